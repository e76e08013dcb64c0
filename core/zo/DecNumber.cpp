#include <zo/DecNumber.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <ostream>
#include <string_view>
#include <system_error>
#include <utility>

#include <zo/Exception.h>

namespace zo {

namespace {

// Plain writing covers the exponents from the first to the last of these.
constexpr long long k_minPlainExponent = -7;
constexpr long long k_maxPlainExponent = 20;

// No integer type holds ten to the 20th, so what is larger need not be looked at.
constexpr long long k_maxIntegerExponent = 19;

RuntimeError refusal(std::string_view reason, std::string_view text) {
    std::string message(reason);
    message += ": \"";
    message += text;
    message += '"';
    return RuntimeError(message);
}

// Takes pieces off the front of a text.
class Scanner {
public:
    explicit Scanner(std::string_view text) : m_rest(text) {}

    bool atEnd() const { return m_rest.empty(); }

    // Takes one character if it is among `wanted`, and tells whether it did.
    bool take(std::string_view wanted) {
        if (atEnd() || wanted.find(m_rest.front()) == std::string_view::npos) {
            return false;
        }
        m_rest.remove_prefix(1);
        return true;
    }

    // Takes an optional sign, and tells whether it was a minus.
    bool takeSign() {
        const bool negative = take("-");
        if (!negative) {
            take("+");
        }
        return negative;
    }

    // Takes as many digits as there are.
    std::string_view takeDigits() {
        const std::size_t length = std::min(m_rest.find_first_not_of("0123456789"), m_rest.size());
        const std::string_view digits = m_rest.substr(0, length);
        m_rest.remove_prefix(length);
        return digits;
    }

private:
    std::string_view m_rest;
};

// The pieces of a decimal's text. Those that were not written are empty.
struct Pieces {
    bool negative = false;
    std::string_view whole;
    std::string_view fraction;
    bool exponentNegative = false;
    std::string_view exponent;
};

Pieces split(const std::string& text) {
    Pieces pieces;
    Scanner scanner(text);
    pieces.negative = scanner.takeSign();
    pieces.whole = scanner.takeDigits();
    if (scanner.take(".")) {
        pieces.fraction = scanner.takeDigits();
    }
    bool complete = !pieces.whole.empty() || !pieces.fraction.empty();
    if (scanner.take("eE")) {
        pieces.exponentNegative = scanner.takeSign();
        pieces.exponent = scanner.takeDigits();
        complete = complete && !pieces.exponent.empty();
    }
    if (!complete || !scanner.atEnd()) {
        throw refusal("Not a decimal number", text);
    }
    return pieces;
}

long long checkedExponent(long long exponent, const std::string& text) {
    if (exponent < -DecNumber::k_maxExponent || exponent > DecNumber::k_maxExponent) {
        throw refusal("Exponent of a decimal number out of range", text);
    }
    return exponent;
}

long long writtenExponent(const Pieces& pieces, const std::string& text) {
    if (pieces.exponent.empty()) {
        return 0;
    }
    long long exponent = 0;
    const char* const start = pieces.exponent.data();
    const auto read = std::from_chars(start, start + pieces.exponent.size(), exponent);
    if (read.ec != std::errc()) {  // digits they are: there can only be too many
        exponent = std::numeric_limits<long long>::max();
    }
    return checkedExponent(pieces.exponentNegative ? -exponent : exponent, text);
}

std::string shortestText(double value) {
    std::array<char, 32> text{};
    // Without the format, large whole numbers come with all their digits, not with the fewest.
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific);
    return std::string(text.data(), written.ptr);
}

const char* checkedText(const char* text) {
    if (text == nullptr) {
        throw RuntimeError("Null pointer exception: text may not be null");
    }
    return text;
}

}  // namespace

DecNumber::DecNumber(const std::string& text) {
    const Pieces pieces = split(text);
    const long long written = writtenExponent(pieces, text);
    std::string digits(pieces.whole);
    digits += pieces.fraction;
    const std::size_t first = digits.find_first_not_of('0');
    if (first == std::string::npos) {
        return;
    }
    const long long pointShift =
        static_cast<long long>(pieces.whole.size()) - static_cast<long long>(first) - 1;
    m_exponent = checkedExponent(written + pointShift, text);
    digits.erase(digits.find_last_not_of('0') + 1);
    digits.erase(0, first);
    m_digits = std::move(digits);
    m_negative = pieces.negative;
}

DecNumber::DecNumber(const char* text) : DecNumber(std::string(checkedText(text))) {}

// The texts of a NaN and of the infinities are no decimals and are refused as such.
DecNumber::DecNumber(double value) : DecNumber(shortestText(value)) {}

DecNumber::DecNumber(int value) : DecNumber(std::to_string(value)) {}

DecNumber::DecNumber(unsigned int value) : DecNumber(std::to_string(value)) {}

DecNumber::DecNumber(long value) : DecNumber(std::to_string(value)) {}

DecNumber::DecNumber(unsigned long value) : DecNumber(std::to_string(value)) {}

DecNumber::DecNumber(long long value) : DecNumber(std::to_string(value)) {}

DecNumber::DecNumber(unsigned long long value) : DecNumber(std::to_string(value)) {}

std::ostream& DecNumber::writeTo(std::ostream& out) const {
    return out << text();
}

int DecNumber::compare(const DecNumber& other) const noexcept {
    if (sign() != other.sign()) {
        return sign() < other.sign() ? -1 : 1;
    }
    if (m_exponent != other.m_exponent) {
        return m_exponent < other.m_exponent ? -sign() : sign();
    }
    // Of digits that begin alike the longer are larger, since none end in a zero.
    const int order = m_digits.compare(other.m_digits);
    if (order == 0) {
        return 0;
    }
    return order < 0 ? -sign() : sign();
}

DecNumber::operator char() const {
    return toInteger<char>("char");
}

DecNumber::operator unsigned char() const {
    return toInteger<unsigned char>("unsigned char");
}

DecNumber::operator short() const {
    return toInteger<short>("short");
}

DecNumber::operator unsigned short() const {
    return toInteger<unsigned short>("unsigned short");
}

DecNumber::operator int() const {
    return toInteger<int>("int");
}

DecNumber::operator unsigned int() const {
    return toInteger<unsigned int>("unsigned int");
}

DecNumber::operator long() const {
    return toInteger<long>("long");
}

DecNumber::operator unsigned long() const {
    return toInteger<unsigned long>("unsigned long");
}

DecNumber::operator long long() const {
    return toInteger<long long>("long long");
}

DecNumber::operator unsigned long long() const {
    return toInteger<unsigned long long>("unsigned long long");
}

DecNumber::operator float() const {
    return toFloating<float>();
}

DecNumber::operator double() const {
    return toFloating<double>();
}

int DecNumber::sign() const noexcept {
    if (m_digits.empty()) {
        return 0;
    }
    return m_negative ? -1 : 1;
}

std::string DecNumber::text() const {
    if (m_digits.empty()) {
        return "0";
    }
    const bool plain = m_exponent >= k_minPlainExponent && m_exponent <= k_maxPlainExponent;
    return plain ? plainText() : scientificText();
}

// Only for exponents of plain writing: the others would take more zeros than there is memory.
std::string DecNumber::plainText() const {
    std::string result(m_negative ? "-" : "");
    if (m_exponent < 0) {
        result += "0.";
        result.append(static_cast<std::size_t>(-m_exponent - 1), '0');
        result += m_digits;
        return result;
    }
    const auto wholeLength = static_cast<std::size_t>(m_exponent) + 1;
    result.append(m_digits, 0, wholeLength);
    if (m_digits.size() > wholeLength) {
        result += '.';
        result.append(m_digits, wholeLength);
    } else {
        result.append(wholeLength - m_digits.size(), '0');
    }
    return result;
}

std::string DecNumber::scientificText() const {
    std::string result(m_negative ? "-" : "");
    result += m_digits.front();
    if (m_digits.size() > 1) {
        result += '.';
        result.append(m_digits, 1);
    }
    result += m_exponent < 0 ? "e" : "e+";
    result += std::to_string(m_exponent);
    return result;
}

template <class Integer>
Integer DecNumber::toInteger(const char* typeName) const {
    if (m_digits.empty() || m_exponent < 0) {
        return 0;
    }
    Integer result = 0;
    bool fits = false;
    if (m_exponent <= k_maxIntegerExponent) {
        std::string whole = plainText();
        whole.erase(std::min(whole.find('.'), whole.size()));
        // Knows the bounds of each type, and no minus before an unsigned number.
        fits = std::from_chars(whole.data(), whole.data() + whole.size(), result).ec == std::errc();
    }
    if (!fits) {
        throw refusal(std::string("Decimal number does not fit into ") + typeName, text());
    }
    return result;
}

template <class Floating>
Floating DecNumber::toFloating() const {
    if (m_digits.empty()) {
        return 0;
    }
    const std::string exact = scientificText();
    Floating result = 0;
    if (std::from_chars(exact.data(), exact.data() + exact.size(), result).ec == std::errc()) {
        return result;
    }
    // Out of range one way or the other; which, is not told.
    const Floating magnitude = m_exponent > 0 ? std::numeric_limits<Floating>::infinity() : 0;
    return m_negative ? -magnitude : magnitude;
}

}  // namespace zo
