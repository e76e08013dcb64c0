#ifndef ZO_TESSERA_FUZZ_DECIMALCHECKS_H
#define ZO_TESSERA_FUZZ_DECIMALCHECKS_H

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <zo/DecNumber.h>
#include <zo/Exception.h>
#include <zo/Tessera/BasicNumber.h>

#include "ExactDecimal.h"
#include "ExactNumber.h"
#include "check.h"

/// \file
/// Holds `zo::DecNumber` against `ExactDecimal` and the C library.

inline std::string decimalText(const zo::DecNumber& number) {
    std::ostringstream out;
    number.writeTo(out);
    return out.str();
}

/// The number as a decimal, unless the decimal refuses it.
template <class Value>
std::optional<zo::DecNumber> decNumber(const Value& value) {
    try {
        return zo::DecNumber(value);
    } catch (const zo::RuntimeError&) {
        return std::nullopt;
    }
}

template <class T>
void checkWholeNumber(const zo::DecNumber& number, const ExactDecimal& decimal) {
    const std::optional<Int128> whole = wholePart(decimal);
    const bool fits =
        whole && *whole >= Int128{lowerBound<T>()} && *whole <= Int128{upperBound<T>()};
    try {
        const T value = static_cast<T>(number);
        check(fits && Int128{value} == *whole, "a decimal is cut toward zero");
    } catch (const zo::RuntimeError&) {
        check(!fits, "a decimal that fits converts");
    }
}

inline void checkDecimal(const zo::DecNumber& number, const std::string& text) {
    const ExactDecimal decimal = *decimalOf(text);
    const std::string shown = decimalText(number);
    checkSame(shown, written(decimal), "a decimal as text");
    check(zo::DecNumber(shown).compare(number) == 0, "a decimal reads back");
    zo::Tessera::BasicNumber kept;
    kept.set(number);
    checkSame(kept.toString(), shown, "a number set from a decimal");

    const double real = std::strtod(text.c_str(), nullptr);
    check(static_cast<double>(number) == real, "a decimal as a double");
    check(static_cast<float>(number) == std::strtof(text.c_str(), nullptr), "as a float");
    check(decimal.sign == 0 || std::signbit(static_cast<double>(number)) == std::signbit(real),
          "a decimal too small for a double keeps its sign");
    checkWholeNumber<char>(number, decimal);
    checkWholeNumber<unsigned char>(number, decimal);
    checkWholeNumber<short>(number, decimal);
    checkWholeNumber<unsigned short>(number, decimal);
    checkWholeNumber<int>(number, decimal);
    checkWholeNumber<unsigned int>(number, decimal);
    checkWholeNumber<long>(number, decimal);
    checkWholeNumber<unsigned long>(number, decimal);
    checkWholeNumber<long long>(number, decimal);
    checkWholeNumber<unsigned long long>(number, decimal);
}

/// A double becomes the decimal that reads back to it, and none with a digit less does.
inline void checkShortest(double value) {
    const std::string text = decimalText(zo::DecNumber(value));
    check(std::strtod(text.c_str(), nullptr) == value, "a double reads back");
    const size_t digits = decimalOf(text)->digits.size();
    if (digits > 1) {
        char shorter[64];
        std::snprintf(shorter, sizeof(shorter), "%.*e", static_cast<int>(digits) - 2, value);
        check(std::strtod(shorter, nullptr) != value, "a double has no needless digits");
    }
}

inline void checkOrder(const std::vector<zo::DecNumber>& numbers) {
    for (const zo::DecNumber& a : numbers) {
        check(a.compare(a) == 0, "a decimal equals itself");
        for (const zo::DecNumber& b : numbers) {
            const int order = signOf(a.compare(b));
            check(order == -signOf(b.compare(a)), "decimals compare alike from both sides");
            check(order == compared(*decimalOf(decimalText(a)), *decimalOf(decimalText(b))),
                  "by value");
            for (const zo::DecNumber& c : numbers) {
                check(order > 0 || b.compare(c) > 0 || a.compare(c) <= 0, "in one order");
            }
        }
    }
}

inline void checkDecimals(const std::vector<std::string>& texts, double real) {
    std::vector<zo::DecNumber> numbers;
    for (const std::string& text : texts) {
        const std::optional<zo::DecNumber> number = decNumber(text);
        check(number.has_value() == decimalOf(text).has_value(), "which texts are decimals");
        if (number) {
            checkDecimal(*number, text);
            numbers.push_back(*number);
        }
    }
    if (std::isfinite(real)) {
        checkShortest(real);
        numbers.emplace_back(real);
    }
    checkOrder(numbers);
}

#endif
