#ifndef ZO_TESSERA_FUZZ_EXACTNUMBER_H
#define ZO_TESSERA_FUZZ_EXACTNUMBER_H

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>

#include <zo/Tessera/BasicNumber.h>

#include "ExactDecimal.h"

/// \file
/// What a number must hold and convert to, worked out over 128 bits.

/// The bounds that conversions are held to: the lower one of a floating type is its smallest
/// positive normal value, and a plain char counts as signed.
/// @{
template <class T>
T lowerBound() {
    return std::is_same_v<T, char> ? static_cast<T>(-128) : std::numeric_limits<T>::min();
}

template <class T>
T upperBound() {
    return std::is_same_v<T, char> ? static_cast<T>(127) : std::numeric_limits<T>::max();
}
/// @}

/// The two forms of a number. The bits of the binary one stay until there are new ones.
class ExactNumber {
public:
    using EForm = zo::Tessera::BasicNumber::EBinaryType;

    EForm form = EForm::ebLongLong;
    unsigned long long bits = 0;
    std::string text = "0";

    void setText(const std::string& newText) {
        text = newText;
        form = EForm::ebNone;
    }

    template <class T>
    void setBinary(T value) {
        text.clear();
        if constexpr (std::is_floating_point_v<T>) {
            setReal(value);
        } else {
            form = lowerBound<T>() < 0 ? EForm::ebLongLong : EForm::ebULongLong;
            bits = static_cast<unsigned long long>(
                std::is_same_v<T, char> ? static_cast<long long>(static_cast<signed char>(value))
                                        : static_cast<long long>(value));
        }
    }

    /// Derives the binary form; false for a text that must be refused, once.
    bool sync() {
        if (form != EForm::ebNone) {
            return true;
        }
        const bool negative = text.rfind('-', 0) == 0;
        if (text.find_first_of(".eE") != std::string::npos) {
            form = EForm::ebDouble;
            const double value = std::strtod(text.c_str(), nullptr);
            if (std::isinf(value)) {
                return false;
            }
            setReal(value);
            return true;
        }
        form = negative ? EForm::ebLongLong : EForm::ebULongLong;
        if (text.size() >= (negative ? 19 : 20)) {
            return false;
        }
        readInteger();
        return true;
    }

    /// The text that is shown, where there is one or a binary form to make it of.
    std::string shownText() const {
        if (!text.empty() || form == EForm::ebNone) {
            return text;
        }
        char buffer[32];
        if (form == EForm::ebDouble) {
            std::snprintf(buffer, sizeof(buffer), "%g", real());
        } else if (form == EForm::ebLongLong) {
            std::snprintf(buffer, sizeof(buffer), "%lld", static_cast<long long>(bits));
        } else {
            std::snprintf(buffer, sizeof(buffer), "%llu", bits);
        }
        return buffer;
    }

    Int128 integer() const {
        return form == EForm::ebLongLong ? Int128{static_cast<long long>(bits)} : Int128{bits};
    }

    /// The binary form as a double: an integer is rounded to the nearest.
    double real() const {
        if (form != EForm::ebDouble) {
            return static_cast<double>(integer());
        }
        double value = 0;
        std::memcpy(&value, &bits, sizeof(value));
        return value;
    }

private:
    void setReal(double value) {
        form = EForm::ebDouble;
        std::memcpy(&bits, &value, sizeof(bits));
    }

    /// As a stream reads it: blanks, a sign, digits. A text of blanks alone changes nothing.
    void readInteger() {
        size_t i = text.find_first_not_of(" \t\n\v\f\r");
        if (i == std::string::npos) {
            return;
        }
        const bool negative = text[i] == '-';
        i += isSign(text[i]) ? 1 : 0;
        bits = 0;
        for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
            bits = bits * 10 + static_cast<unsigned long long>(text[i] - '0');
        }
        bits = negative ? 0 - bits : bits;
    }
};

/// Whether a number passes the range test of a type.
template <class T>
bool isInRange(const ExactNumber& number) {
    if (number.form == ExactNumber::EForm::ebDouble) {
        // The bounds of 64 bits are rounded up, and a NaN is beyond none.
        return !(number.real() < static_cast<double>(lowerBound<T>())) &&
               !(number.real() > static_cast<double>(upperBound<T>()));
    }
    const Int128 value = number.integer();
    if constexpr (std::is_floating_point_v<T>) {
        return value > 0;
    } else {
        const bool isSignedZero = value == 0 && number.form == ExactNumber::EForm::ebLongLong;
        return value >= Int128{lowerBound<T>()} && value <= Int128{upperBound<T>()} &&
               !(isSignedZero && lowerBound<T>() == 0);
    }
}

/// What a number in range converts to.
template <class T>
T converted(const ExactNumber& number) {
    const bool isReal = number.form == ExactNumber::EForm::ebDouble;
    if constexpr (std::is_floating_point_v<T>) {
        return isReal ? static_cast<T>(number.real()) : static_cast<T>(number.integer());
    } else {
        if (!isReal) {
            return static_cast<T>(number.integer());
        }
        const bool isNan = std::isnan(number.real());
        const Int128 whole = isNan ? 0 : static_cast<Int128>(number.real());
        if (!isNan && whole <= Int128{upperBound<T>()}) {
            return static_cast<T>(whole);
        }
        // The top bit alone, of which types narrower than the one truncated to keep none.
        const bool keepsTopBit = sizeof(T) == 8 || std::is_same_v<T, int>;
        return keepsTopBit ? static_cast<T>(Int128{1} << (8 * sizeof(T) - 1)) : T{0};
    }
}

/// How two numbers compare.
inline int compared(const ExactNumber& left, const ExactNumber& right) {
    if (left.form == ExactNumber::EForm::ebDouble || right.form == ExactNumber::EForm::ebDouble) {
        return (left.real() > right.real() ? 1 : 0) - (left.real() < right.real() ? 1 : 0);
    }
    if (left.integer() != right.integer()) {
        return left.integer() < right.integer() ? -1 : 1;
    }
    // A signed zero is smaller than an unsigned one.
    return left.integer() == 0 ? signOf(left.form - right.form) : 0;
}

#endif
