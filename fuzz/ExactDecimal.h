#ifndef ZO_TESSERA_FUZZ_EXACTDECIMAL_H
#define ZO_TESSERA_FUZZ_EXACTDECIMAL_H

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

/// \file
/// A second opinion on decimals: their texts, order and whole parts.

__extension__ typedef __int128 Int128;

/// A decimal: 0.d1d2d3... times ten to `exponent`.
struct ExactDecimal {
    int sign = 0;          // -1, 0 or 1
    std::string digits{};  // without zeros at either end
    long long exponent = 0;
};

constexpr long long k_exponentLimit = 100'000'000'000'000'000;

inline bool areDigits(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

inline bool isSign(char c) {
    return c == '+' || c == '-';
}

/// The number after "e"; nothing when it is none, or beyond the limit.
inline std::optional<long long> exponentOf(const std::string& text) {
    const std::string digits = text.substr(!text.empty() && isSign(text[0]) ? 1 : 0);
    if (!areDigits(digits)) {
        return std::nullopt;
    }
    const std::string counting =
        digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
    if (counting.size() > 18) {
        return std::nullopt;
    }
    const long long exponent = counting.empty() ? 0 : std::stoll(counting);
    if (exponent > k_exponentLimit) {
        return std::nullopt;
    }
    return text[0] == '-' ? -exponent : exponent;
}

/// The decimal that a text says; nothing when it says none.
inline std::optional<ExactDecimal> decimalOf(const std::string& text) {
    const size_t e = std::min(text.find_first_of("eE"), text.size());
    const size_t start = !text.empty() && isSign(text[0]) ? 1 : 0;
    if (start > e) {
        return std::nullopt;
    }
    std::string digits = text.substr(start, e - start);
    const size_t point = std::min(digits.find('.'), digits.size());
    digits.erase(point, point == digits.size() ? 0 : 1);
    const std::optional<long long> written =
        e == text.size() ? std::optional<long long>(0) : exponentOf(text.substr(e + 1));
    if (!areDigits(digits) || !written) {
        return std::nullopt;
    }
    const size_t first = digits.find_first_not_of('0');
    if (first == std::string::npos) {
        return ExactDecimal();
    }
    ExactDecimal decimal;
    decimal.sign = text[0] == '-' ? -1 : 1;
    decimal.digits = digits.substr(first, digits.find_last_not_of('0') + 1 - first);
    decimal.exponent = *written + static_cast<long long>(point) - static_cast<long long>(first);
    if (decimal.exponent - 1 < -k_exponentLimit || decimal.exponent - 1 > k_exponentLimit) {
        return std::nullopt;
    }
    return decimal;
}

inline int signOf(long long value) {
    return value < 0 ? -1 : (value > 0 ? 1 : 0);
}

/// -1, 0 or 1.
inline int compared(ExactDecimal left, ExactDecimal right) {
    if (left.sign != right.sign || left.sign == 0) {
        return signOf(left.sign - right.sign);
    }
    if (left.exponent != right.exponent) {
        return left.exponent < right.exponent ? -left.sign : left.sign;
    }
    const size_t length = std::max(left.digits.size(), right.digits.size());
    left.digits.resize(length, '0');
    right.digits.resize(length, '0');
    return left.sign * signOf(left.digits.compare(right.digits));
}

/// The text that is written for it.
inline std::string written(const ExactDecimal& decimal) {
    if (decimal.sign == 0) {
        return "0";
    }
    std::string text = decimal.digits;
    if (decimal.exponent > 21 || decimal.exponent < -6) {
        const long long exponent = decimal.exponent - 1;
        text.insert(1, text.size() > 1 ? "." : "");
        text += (exponent < 0 ? "e-" : "e+") + std::to_string(exponent < 0 ? -exponent : exponent);
    } else if (decimal.exponent <= 0) {
        text.insert(0, "0." + std::string(static_cast<size_t>(-decimal.exponent), '0'));
    } else {
        const auto whole = static_cast<size_t>(decimal.exponent);
        text.resize(std::max(whole, text.size()), '0');
        text.insert(whole, text.size() > whole ? "." : "");
    }
    return (decimal.sign < 0 ? "-" : "") + text;
}

/// What is left without the fraction; nothing when it is beyond all integer types.
inline std::optional<Int128> wholePart(const ExactDecimal& decimal) {
    if (decimal.exponent > 25) {
        return std::nullopt;
    }
    Int128 whole = 0;
    for (long long place = 0; place < decimal.exponent; ++place) {
        const auto i = static_cast<size_t>(place);
        whole = whole * 10 + (i < decimal.digits.size() ? decimal.digits[i] - '0' : 0);
    }
    return decimal.sign * whole;
}

#endif
