#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Exception.h>

#include "numbers/decimalText.h"
#include "support/classicLocale.h"

namespace zo::Tessera {

namespace {

/// A plain char counts as signed on every platform.
template <class T>
using Counted = std::conditional_t<std::is_same_v<T, char>, signed char, T>;

template <class T>
using Widest = std::conditional_t<std::is_signed_v<Counted<T>>, long long, unsigned long long>;

/// The value, if `T` has it.
template <class T, class Integer>
std::optional<T> narrowed(Integer value) {
    using Limits = std::numeric_limits<Counted<T>>;
    if constexpr (std::is_signed_v<Integer>) {
        if (value < 0) {
            const bool fits =
                std::is_signed_v<Counted<T>> && value >= static_cast<long long>(Limits::min());
            return fits ? std::optional<T>(static_cast<T>(value)) : std::nullopt;
        }
    }
    const bool fits =
        static_cast<unsigned long long>(value) <= static_cast<unsigned long long>(Limits::max());
    return fits ? std::optional<T>(static_cast<T>(value)) : std::nullopt;
}

template <class Floating>
std::optional<Floating> finite(Floating value) {
    return std::isfinite(value) ? std::optional<Floating>(value) : std::nullopt;
}

template <class Integer>
std::optional<Integer> wholeIntegerOf(double value) {
    const double past = std::ldexp(1.0, std::numeric_limits<Integer>::digits);
    const double least = std::is_signed_v<Integer> ? -past : 0.0;
    const bool held = value >= least && value < past && std::trunc(value) == value;
    return held ? std::optional<Integer>(static_cast<Integer>(value)) : std::nullopt;
}

template <class Integer>
std::optional<Integer> integerOf(std::string_view text) {
    Integer value = 0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (result.ec == std::errc() && result.ptr == end) {
        return value;
    }
    const std::optional<DecimalText> decimal = readDecimal(text);
    return decimal ? wholeIntegerOf<Integer>(*decimal) : std::nullopt;
}

/// The C library's reading of `text`, which is a decimal: the nearest value, or an infinity.
template <class Floating>
Floating nearestFloating(const char* text) {
    if constexpr (std::is_same_v<Floating, float>) {
        return strtof_l(text, nullptr, classicCLocale());
    } else if constexpr (std::is_same_v<Floating, double>) {
        return strtod_l(text, nullptr, classicCLocale());
    } else {
        return strtold_l(text, nullptr, classicCLocale());
    }
}

/// Of a text with a zero behind it.
template <class Floating>
std::optional<Floating> floatingOf(std::string_view text) {
    // Both readers below also take names, hexadecimals or leading blanks.
    if (!readDecimal(text)) {
        return std::nullopt;
    }
    if constexpr (!std::is_same_v<Floating, long double>) {
        Floating value = 0;
        const char* const end = text.data() + text.size();
        if (std::from_chars(text.data(), end, value).ec == std::errc()) {
            return value;
        }
        // A plus sign, or out of range: whether too large or too small is not told.
    }
    return finite(nearestFloating<Floating>(text.data()));
}

/// Of a text with a zero behind it.
template <class T>
std::optional<T> fromText(std::string_view text) {
    if constexpr (std::is_same_v<T, std::string>) {
        return std::string(text);
    } else if constexpr (std::is_floating_point_v<T>) {
        return floatingOf<T>(text);
    } else {
        const std::optional<Widest<T>> value = integerOf<Widest<T>>(text);
        return value ? narrowed<T>(*value) : std::nullopt;
    }
}

template <class T, class Integer>
std::optional<T> fromInteger(Integer value) {
    if constexpr (std::is_same_v<T, std::string>) {
        return std::to_string(value);
    } else if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(value);
    } else {
        return narrowed<T>(value);
    }
}

template <class T>
std::optional<T> fromDouble(double value) {
    if constexpr (std::is_same_v<T, std::string>) {
        if (!std::isfinite(value)) {
            return std::nullopt;
        }
        BasicNumber exact;
        exact.setExact(value);
        return std::string(exact.text());
    } else if constexpr (std::is_floating_point_v<T>) {
        return finite(static_cast<T>(value));
    } else {
        const std::optional<Widest<T>> whole = wholeIntegerOf<Widest<T>>(value);
        return whole ? narrowed<T>(*whole) : std::nullopt;
    }
}

/// The text that a number derives from its double.
std::string derivedText(double value) {
    BasicNumber number;
    number.set(value);
    return std::string(number.text());
}

/// The bounds that a refusal reports.
template <class T>
struct Bounds {
    T min = static_cast<T>(std::numeric_limits<Counted<T>>::lowest());
    T max = static_cast<T>(std::numeric_limits<Counted<T>>::max());
};

template <>
struct Bounds<std::string> {
    std::string min;
    std::string max;
};

}  // namespace

template <class T, class>
T BasicNumber::as() const {
    std::optional<T> value = tryAs<T>();
    if (!value) {
        const Bounds<T> bounds;
        throw ValueOutOfRange<BasicNumber, T>(*this, bounds.min, bounds.max);
    }
    return *std::move(value);
}

// The text is right wherever there is one, for the binary value may be a former one that a text out
// of range has left. The exception is a text that was derived from a double and lost digits by it.
// Whether a text was derived is not to be told where it reads back to the double, so there it
// counts as right in any case, even before it is derived.
template <class T, class>
std::optional<T> BasicNumber::tryAs() const {
    const std::string_view text = m_text.view();
    if (m_binaryType == ebDouble) {
        const double binary = m_binary.asDouble;
        if (text.empty()) {
            const std::string derived = derivedText(binary);
            return floatingOf<double>(derived) == binary ? fromText<T>(derived)
                                                         : fromDouble<T>(binary);
        }
        if (floatingOf<double>(text) != binary && text == derivedText(binary)) {
            return fromDouble<T>(binary);
        }
    } else if (m_binaryType == ebLongLong && text.empty()) {
        return fromInteger<T>(m_binary.asLongLong);
    } else if (m_binaryType == ebULongLong && text.empty()) {
        return fromInteger<T>(m_binary.asULongLong);
    }
    return fromText<T>(text);
}

template char BasicNumber::as() const;
template signed char BasicNumber::as() const;
template unsigned char BasicNumber::as() const;
template wchar_t BasicNumber::as() const;
template char16_t BasicNumber::as() const;
template char32_t BasicNumber::as() const;
template short BasicNumber::as() const;
template unsigned short BasicNumber::as() const;
template int BasicNumber::as() const;
template unsigned int BasicNumber::as() const;
template long BasicNumber::as() const;
template unsigned long BasicNumber::as() const;
template long long BasicNumber::as() const;
template unsigned long long BasicNumber::as() const;
template float BasicNumber::as() const;
template double BasicNumber::as() const;
template long double BasicNumber::as() const;
template std::string BasicNumber::as() const;

template std::optional<char> BasicNumber::tryAs() const;
template std::optional<signed char> BasicNumber::tryAs() const;
template std::optional<unsigned char> BasicNumber::tryAs() const;
template std::optional<wchar_t> BasicNumber::tryAs() const;
template std::optional<char16_t> BasicNumber::tryAs() const;
template std::optional<char32_t> BasicNumber::tryAs() const;
template std::optional<short> BasicNumber::tryAs() const;
template std::optional<unsigned short> BasicNumber::tryAs() const;
template std::optional<int> BasicNumber::tryAs() const;
template std::optional<unsigned int> BasicNumber::tryAs() const;
template std::optional<long> BasicNumber::tryAs() const;
template std::optional<unsigned long> BasicNumber::tryAs() const;
template std::optional<long long> BasicNumber::tryAs() const;
template std::optional<unsigned long long> BasicNumber::tryAs() const;
template std::optional<float> BasicNumber::tryAs() const;
template std::optional<double> BasicNumber::tryAs() const;
template std::optional<long double> BasicNumber::tryAs() const;
template std::optional<std::string> BasicNumber::tryAs() const;

}  // namespace zo::Tessera
