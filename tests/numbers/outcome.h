#ifndef ZO_TESSERA_TESTS_NUMBERS_OUTCOME_H
#define ZO_TESSERA_TESTS_NUMBERS_OUTCOME_H

#include <gtest/gtest.h>

#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Exception.h>

/// The conversion that is named after `T`.
/// @{
template <class T>
inline constexpr auto k_conversion = nullptr;
template <>
inline constexpr auto k_conversion<char> = &zo::Tessera::BasicNumber::toChar;
template <>
inline constexpr auto k_conversion<unsigned char> = &zo::Tessera::BasicNumber::toUChar;
template <>
inline constexpr auto k_conversion<short> = &zo::Tessera::BasicNumber::toShort;
template <>
inline constexpr auto k_conversion<unsigned short> = &zo::Tessera::BasicNumber::toUShort;
template <>
inline constexpr auto k_conversion<int> = &zo::Tessera::BasicNumber::toInt;
template <>
inline constexpr auto k_conversion<unsigned int> = &zo::Tessera::BasicNumber::toUInt;
template <>
inline constexpr auto k_conversion<long> = &zo::Tessera::BasicNumber::toLong;
template <>
inline constexpr auto k_conversion<unsigned long> = &zo::Tessera::BasicNumber::toULong;
template <>
inline constexpr auto k_conversion<long long> = &zo::Tessera::BasicNumber::toLongLong;
template <>
inline constexpr auto k_conversion<unsigned long long> = &zo::Tessera::BasicNumber::toULongLong;
template <>
inline constexpr auto k_conversion<float> = &zo::Tessera::BasicNumber::toFloat;
template <>
inline constexpr auto k_conversion<double> = &zo::Tessera::BasicNumber::toDouble;
/// @}

/// What stands for a refusal.
/// @{
inline constexpr const char* k_no = "refused";
inline constexpr const char* k_noText = "text refused";
/// @}

template <class T, class Action>
std::string resultText(const Action& action) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    try {
        out << std::setprecision(std::numeric_limits<T>::max_digits10) << +action();
    } catch (const zo::Tessera::ValueOutOfRange<zo::Tessera::BasicNumber, T>&) {
        return k_no;
    } catch (const zo::Tessera::ValueOutOfRange<std::string, std::string>&) {
        return k_noText;
    }
    return out.str();
}

/// What converting `number` to `T` gives: every digit of the value; "refused" when it is out of the
/// range of `T`; "text refused" when its text is out of range. Both entrances are tried, each on a
/// copy; that a refusal leaves the caller's variable alone is checked.
template <class T>
std::string outcome(const zo::Tessera::BasicNumber& number) {
    const zo::Tessera::BasicNumber forName(number);
    const std::string byName = resultText<T>([&] { return (forName.*k_conversion<T>)(); });

    const zo::Tessera::BasicNumber forReference(number);
    T out = 99;
    const std::string byReference = resultText<T>([&] {
        EXPECT_EQ(&forReference.getValue(out), &out);
        return out;
    });
    if (byReference == k_no || byReference == k_noText) {
        EXPECT_EQ(out, T(99));
    }
    EXPECT_EQ(byName, byReference);
    return byName;
}

#endif
