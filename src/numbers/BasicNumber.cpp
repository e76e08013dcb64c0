#include <zo/Tessera/BasicNumber.h>

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <utility>

#include <zo/DecNumber.h>
#include <zo/Tessera/Exception.h>
#include <zo/convert.h>

#include "support/asciiText.h"
#include "support/classicLocale.h"

namespace zo::Tessera {

namespace {

// Any text that is shorter fits into 64 bits.
constexpr size_t k_longLongTextLimit = 19;
constexpr size_t k_uLongLongTextLimit = 20;

// From here on exact texts have an exponent: of digits alone some would be too long to be read
// back.
constexpr double k_leastWithExponent = 1e17;

Ascii binaryTypeName(BasicNumber::EBinaryType type) {
    static constexpr std::string_view names[] = {"ebNone", "ebLongLong", "ebULongLong", "ebDouble",
                                                 "ebBigDecimal"};
    return enumName(names, type, ">>Unknown<<");
}

BasicNumber::EBinaryType classify(std::string_view text) {
    if (text.find_first_of(".eE") != std::string_view::npos) {
        return BasicNumber::ebDouble;
    }
    return !text.empty() && text.front() == '-' ? BasicNumber::ebLongLong
                                                : BasicNumber::ebULongLong;
}

/// What formatted extraction from `text` leaves in `target`. A stream is only made for what is not
/// plain digits: leading blanks, a plus sign, trailing letters, nothing at all.
template <class Integer>
void extractInteger(std::string_view text, Integer& target) {
    Integer value = 0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (result.ec == std::errc() && result.ptr == end) {
        target = value;
        return;
    }
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    stream >> target;
}

/// Of a text with a zero behind it.
double convertDouble(std::string_view text) {
    return strtod_l(text.data(), nullptr, classicCLocale());
}

template <class Value, class... Format>
std::string formatted(Value value, Format... format) {
    char buffer[32];
    const std::to_chars_result result =
        std::to_chars(std::begin(buffer), std::end(buffer), value, format...);
    return std::string(buffer, result.ptr);
}

/// As an output stream writes it by default.
std::string formattedDouble(double value) {
    constexpr int defaultPrecision = 6;
    return formatted(value, std::chars_format::general, defaultPrecision);
}

template <class Char>
const Char* checkedText(const Char* text) {
    if (!text) {
        throw Exception("Null pointer exception: text may not be null");
    }
    return text;
}

}  // namespace

// Before the numbers of an application that links the library statically.
[[gnu::init_priority(101)]] const BasicNumber::Limits BasicNumber::k_limits{};

BasicNumber::BasicNumber() = default;

// NOLINTNEXTLINE(modernize-use-equals-default): the text comes first, for it alone can fail.
BasicNumber& BasicNumber::operator=(const BasicNumber& other) {
    m_text = other.m_text;
    m_binaryType = other.m_binaryType;
    m_binary = other.m_binary;
    return *this;
}

void BasicNumber::set(const std::string& text) {
    setText(text);
}

void BasicNumber::set(const char* text) {
    setText(checkedText(text));
}

void BasicNumber::set(const char* text, unsigned long length) {
    setText(length == 0 ? std::string_view() : std::string_view(checkedText(text), length));
}

void BasicNumber::set(const std::wstring& text) {
    setText(convert(text));
}

void BasicNumber::set(const wchar_t* text) {
    setText(convert(checkedText(text)));
}

void BasicNumber::set(const wchar_t* text, unsigned long length) {
    setText(length == 0 ? std::string() : convert(std::wstring(checkedText(text), length)));
}

void BasicNumber::set(const zo::DecNumber& value) {
    std::ostringstream text = classicStream();
    value.writeTo(text);
    setText(text.str());
}

void BasicNumber::set(const BasicNumber& other) {
    *this = other;
}

void BasicNumber::set(char value) {
    // Signed on every platform.
    set(static_cast<long long>(static_cast<signed char>(value)));
}

void BasicNumber::set(short value) {
    set(static_cast<long long>(value));
}

void BasicNumber::set(int value) {
    set(static_cast<long long>(value));
}

void BasicNumber::set(long value) {
    set(static_cast<long long>(value));
}

void BasicNumber::set(long long value) {
    m_binary.asLongLong = value;
    becomeBinary(ebLongLong);
}

void BasicNumber::set(unsigned char value) {
    set(static_cast<unsigned long long>(value));
}

void BasicNumber::set(unsigned short value) {
    set(static_cast<unsigned long long>(value));
}

void BasicNumber::set(unsigned int value) {
    set(static_cast<unsigned long long>(value));
}

void BasicNumber::set(unsigned long value) {
    set(static_cast<unsigned long long>(value));
}

void BasicNumber::set(unsigned long long value) {
    m_binary.asULongLong = value;
    becomeBinary(ebULongLong);
}

void BasicNumber::set(float value) {
    set(static_cast<double>(value));
}

void BasicNumber::set(double value) {
    m_binary.asDouble = value;
    becomeBinary(ebDouble);
}

void BasicNumber::setExact(double value) {
    if (!std::isfinite(value)) {
        throw Exception("Number must be finite!");
    }
    if (value == 0.0 && std::signbit(value)) {
        setText("-0");  // a decimal zero has no sign
    } else if (std::abs(value) < k_leastWithExponent) {
        set(zo::DecNumber(value));
    } else {
        setText(formatted(value, std::chars_format::scientific));
    }
}

BasicNumber::EBinaryType BasicNumber::type() const {
    if (m_binaryType == ebNone) {
        syncToBinary();
    }
    return m_binaryType;
}

const std::string& BasicNumber::toString() const {
    text();
    return m_text.asString();
}

std::string_view BasicNumber::text() const {
    if (m_text.empty()) {
        syncToString();
    }
    return m_text.view();
}

std::wstring BasicNumber::toWString() const {
    return wconvert(std::string(text()));
}

std::ostream& BasicNumber::writeAt(std::ostream& out) const {
    return out << text();
}

std::wostream& BasicNumber::writeAt(std::wostream& out) const {
    return out << toWString();
}

zo::DecNumber BasicNumber::toDecNumber() const {
    switch (type()) {
        case ebLongLong:
            return zo::DecNumber(m_binary.asLongLong);
        case ebULongLong:
            return zo::DecNumber(m_binary.asULongLong);
        case ebDouble:
            return zo::DecNumber(m_binary.asDouble);
        case ebBigDecimal:
            return zo::DecNumber(m_text.asString());
        default:
            throw zo::RuntimeError("Unknown type, implementation missing");
    }
}

void BasicNumber::setText(std::string_view text) {
    // The binary value stays: it is what a text that gives none is read as.
    m_text.assign(text);
    m_binaryType = ebNone;
}

void BasicNumber::becomeBinary(EBinaryType type) {
    m_binaryType = type;
    m_text.clear();
}

void BasicNumber::syncToBinary() const {
    const std::string_view text = m_text.view();
    const EBinaryType type = classify(text);
    switch (type) {
        case ebLongLong:
            if (text.size() >= k_longLongTextLimit) {
                requireInRange(type, k_limits.minLongLong, k_limits.maxLongLong);
            }
            extractInteger(text, m_binary.asLongLong);
            break;
        case ebULongLong:
            if (text.size() >= k_uLongLongTextLimit) {
                requireInRange(type, k_limits.minULongLong, k_limits.maxULongLong);
            }
            extractInteger(text, m_binary.asULongLong);
            break;
        default: {
            const double value = convertDouble(text);
            if (std::isinf(value)) {
                refuse(type, k_limits.minDouble, k_limits.maxDouble);
            }
            m_binary.asDouble = value;
        }
    }
    m_binaryType = type;
}

void BasicNumber::requireInRange(EBinaryType type, const std::string& min,
                                 const std::string& max) const {
    if (const std::string_view text = m_text.view(); text > max || text < min) {
        // Callers match on the signed bounds, for an unsigned text too.
        refuse(type, k_limits.minLongLong, k_limits.maxLongLong);
    }
}

void BasicNumber::refuse(EBinaryType type, const std::string& min, const std::string& max) const {
    try {
        throw ValueOutOfRange<std::string, std::string>(std::string(m_text.view()), min, max);
    } catch (const Exception&) {
        // Later readers use the binary value as it stands, without raising again. If there was no
        // memory for the exception, they try anew.
        m_binaryType = type;
        throw;
    }
}

void BasicNumber::syncToString() const {
    switch (m_binaryType) {
        case ebLongLong:
            m_text.assign(formatted(m_binary.asLongLong));
            break;
        case ebULongLong:
            m_text.assign(formatted(m_binary.asULongLong));
            break;
        case ebDouble:
            m_text.assign(formattedDouble(m_binary.asDouble));
            break;
        case ebNone:
        case ebBigDecimal:
            break;
    }
}

std::ostream& operator<<(std::ostream& out, const BasicNumber::EBinaryType& type) {
    return out << binaryTypeName(type);
}

std::wostream& operator<<(std::wostream& out, const BasicNumber::EBinaryType& type) {
    return out << binaryTypeName(type);
}

}  // namespace zo::Tessera
