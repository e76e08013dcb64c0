#ifndef ZO_TESSERA_TESTS_NUMBERS_EXACTLY_H
#define ZO_TESSERA_TESTS_NUMBERS_EXACTLY_H

#include <gtest/gtest.h>

#include <iomanip>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>

#include <zo/DecNumber.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Exception.h>

#include "support/classicText.h"

/// Every digit of a number; a text in quotes.
template <class T>
std::string allDigits(const T& value) {
    if constexpr (std::is_same_v<T, std::string>) {
        return '"' + value + '"';
    } else if constexpr (std::is_floating_point_v<T>) {
        return classicText(std::setprecision(std::numeric_limits<T>::max_digits10), value);
    } else if constexpr (std::is_same_v<T, char>) {
        return std::to_string(static_cast<signed char>(value));
    } else {
        return std::to_string(value);
    }
}

/// What `as` gives, or "refused"; `tryAs` is checked to agree.
template <class T>
std::string asTold(const zo::Tessera::BasicNumber& number) {
    const std::optional<T> tried = number.tryAs<T>();
    std::string told;
    try {
        told = allDigits<T>(number.as<T>());
    } catch (const zo::Tessera::ValueOutOfRange<zo::Tessera::BasicNumber, T>&) {
        told = "refused";
    }
    EXPECT_EQ(tried ? allDigits<T>(*tried) : "refused", told);
    return told;
}

/// The ways to have a number derive its other form.
/// @{
inline void deriveBinary(const zo::Tessera::BasicNumber& number) {
    try {
        number.type();
    } catch (const zo::Tessera::ValueOutOfRange<std::string, std::string>&) {
        number.type();  // raises once only, and leaves a former value
    }
}

inline void deriveText(const zo::Tessera::BasicNumber& number) {
    number.toString();
}

inline void failToConvert(const zo::Tessera::BasicNumber& number) {
    try {
        number.toDouble();
    } catch (const zo::Tessera::Exception&) {
    }
}

inline void deriveDecimal(const zo::Tessera::BasicNumber& number) {
    try {
        number.toDecNumber();
    } catch (const zo::Exception&) {
    }
}
/// @}

/// What `as` gives, or "refused": of `number`, and, which is checked, of copies that have derived
/// their other form in each way.
template <class T>
std::string exactly(const zo::Tessera::BasicNumber& number) {
    const std::string told = asTold<T>(number);
    for (const auto derive : {deriveBinary, deriveText, failToConvert, deriveDecimal}) {
        const zo::Tessera::BasicNumber copy(number);
        derive(copy);
        EXPECT_EQ(asTold<T>(copy), told);
        deriveText(copy);
        deriveBinary(copy);
        EXPECT_EQ(asTold<T>(copy), told);
    }
    return told;
}

#endif
