#ifndef ZO_TESSERA_SRC_NUMBERS_DECIMALTEXT_H
#define ZO_TESSERA_SRC_NUMBERS_DECIMALTEXT_H

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>
#include <system_error>

namespace zo::Tessera {

/// The pieces of a decimal's text: the digits before and behind the point, times ten to `exponent`.
struct DecimalText {
    bool negative = false;
    std::string_view whole;
    std::string_view fraction;
    long long exponent = 0;
};

inline bool takeAny(std::string_view& text, std::string_view wanted) {
    if (text.empty() || wanted.find(text.front()) == std::string_view::npos) {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

/// Takes an optional sign, and tells whether it was a minus.
inline bool takeMinus(std::string_view& text) {
    const bool minus = !text.empty() && text.front() == '-';
    takeAny(text, "+-");
    return minus;
}

inline std::string_view takeDigits(std::string_view& text) {
    const std::string_view digits =
        text.substr(0, std::min(text.find_first_not_of("0123456789"), text.size()));
    text.remove_prefix(digits.size());
    return digits;
}

/// The number that `digits` are, cut short at one that no text has digits enough to make up for.
inline long long exponentOf(std::string_view digits) {
    constexpr long long largest = std::numeric_limits<long long>::max() / 4;
    long long exponent = 0;
    const std::from_chars_result result =
        std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    return result.ec == std::errc() ? std::min(exponent, largest) : largest;
}

/// Reads what `zo::DecNumber` reads, and exponents of any length: an optional sign, digits with an
/// optional point before, among or behind them, an optional exponent. Nothing for any other text.
/// Linear; allocates nothing.
inline std::optional<DecimalText> readDecimal(std::string_view text) {
    DecimalText decimal;
    decimal.negative = takeMinus(text);
    decimal.whole = takeDigits(text);
    if (takeAny(text, ".")) {
        decimal.fraction = takeDigits(text);
    }
    bool complete = !decimal.whole.empty() || !decimal.fraction.empty();
    if (takeAny(text, "eE")) {
        const bool negative = takeMinus(text);
        const std::string_view digits = takeDigits(text);
        complete = complete && !digits.empty();
        decimal.exponent = negative ? -exponentOf(digits) : exponentOf(digits);
    }
    return complete && text.empty() ? std::optional<DecimalText>(decimal) : std::nullopt;
}

inline void dropLeadingZeros(std::string_view& digits) {
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
}

inline void dropTrailingZeros(std::string_view& digits) {
    digits = digits.substr(0, digits.find_last_not_of('0') + 1);
}

/// The value, if it is whole and `Integer` has it: for the built-in types of up to 64 bits that
/// `std::from_chars` reads.
template <class Integer>
std::optional<Integer> wholeIntegerOf(DecimalText decimal) {
    constexpr std::size_t most = 20;  // digits of the largest of these types
    dropTrailingZeros(decimal.fraction);
    if (decimal.fraction.empty()) {
        const std::size_t before = decimal.whole.size();
        dropTrailingZeros(decimal.whole);
        decimal.exponent += static_cast<long long>(before - decimal.whole.size());
    }
    decimal.exponent -= static_cast<long long>(decimal.fraction.size());
    dropLeadingZeros(decimal.whole);
    if (decimal.whole.empty()) {
        dropLeadingZeros(decimal.fraction);
    }
    const std::size_t count = decimal.whole.size() + decimal.fraction.size();
    if (count == 0) {
        return Integer{0};
    }
    // No zero is left at either end: what has places behind the point is not whole.
    if (count > most || decimal.exponent < 0 ||
        decimal.exponent > static_cast<long long>(most - count)) {
        return std::nullopt;
    }
    std::array<char, 1 + most> text{'-'};
    char* end = std::copy(decimal.whole.begin(), decimal.whole.end(), text.data() + 1);
    end = std::copy(decimal.fraction.begin(), decimal.fraction.end(), end);
    end = std::fill_n(end, decimal.exponent, '0');
    // Knows the bounds of each type, and no minus before an unsigned number.
    Integer value = 0;
    const std::from_chars_result result =
        std::from_chars(text.data() + (decimal.negative ? 0 : 1), end, value);
    return result.ec == std::errc() ? std::optional<Integer>(value) : std::nullopt;
}

}  // namespace zo::Tessera

#endif
