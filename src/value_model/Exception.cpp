#include <zo/Tessera/Exception.h>

#include <sstream>
#include <tuple>
#include <type_traits>
#include <utility>

#include "support/classicLocale.h"

namespace zo::Tessera {

namespace {

using PathText = std::unique_ptr<const std::string>;

PathText pathOf(const Element* element) {
    return PathText(element ? new std::string(element->path(nullptr)) : nullptr);
}

PathText copyOf(const PathText& path) {
    return PathText(path ? new std::string(*path) : nullptr);
}

std::ostream& operator<<(std::ostream& out, const BasicNumber& number) {
    return number.writeAt(out);
}

/// What a narrow stream shows of a bound. The newer character types mean nothing to it, or
/// something else in each standard; `char` and `unsigned char` stay raw, for callers match on them.
template <class To>
decltype(auto) shown(const To& bound) {
    constexpr bool isCharacter = std::is_same_v<To, signed char> || std::is_same_v<To, wchar_t> ||
                                 std::is_same_v<To, char16_t> || std::is_same_v<To, char32_t>;
    if constexpr (isCharacter) {
        return static_cast<long long>(bound);
    } else {
        return (bound);
    }
}

/// Assigns what `Derived` adds to `Exception`, given as its fields, and the base. What can fail
/// comes before the first change, and `source` is not read after it: it may be a cause that goes.
template <class Derived, class... Fields>
void assignAll(Derived& target, const Derived& source, Fields Derived::*... fields) {
    static_assert((std::is_nothrow_move_assignable_v<Fields> && ...));
    std::tuple<Fields...> copies(source.*fields...);
    target.Exception::operator=(source);
    std::tie(target.*fields...) = std::move(copies);
}

/// The address, not the text: callers match on the form.
void writeCurrentElement(std::ostream& out, const Exception& exception) {
    if (const void* const path = exception.elementPath()) {
        out << " Current element: \"" << path << '"';
    }
}

}  // namespace

Exception::Exception(const zo::Exception* cause) : zo::Exception(std::string(), cause) {}

Exception::Exception(const std::string& message, const zo::Exception* cause)
    : zo::Exception(message, cause) {}

Exception::Exception(const Element* element, const zo::Exception* cause)
    : Exception(std::string(), element, cause) {}

Exception::Exception(const std::string& message, const Element* element, const zo::Exception* cause)
    : zo::Exception(message, cause), m_elementPath(pathOf(element)) {}

Exception::Exception(std::nullptr_t) : zo::Exception(std::string()) {}

Exception::Exception(const std::string& message, std::nullptr_t) : zo::Exception(message) {}

Exception::Exception(const Element* element, std::nullptr_t)
    : Exception(std::string(), element, nullptr) {}

Exception::Exception(const Exception& other)
    : zo::Exception(other), m_elementPath(copyOf(other.m_elementPath)) {}

Exception& Exception::operator=(const Exception& other) {
    if (this != &other) {
        PathText path = copyOf(other.m_elementPath);
        zo::Exception::operator=(other);
        m_elementPath = std::move(path);
    }
    return *this;
}

Exception::~Exception() = default;

Exception* Exception::clone() const {
    return new Exception(*this);
}

const std::string* Exception::elementPath() const {
    return m_elementPath.get();
}

template <class Kind>
TypeException<Kind>::TypeException(const Element* element, Kind requested, Kind found)
    : Exception(element, nullptr), m_requested(requested), m_found(found) {}

template <class Kind>
TypeException<Kind>& TypeException<Kind>::operator=(const TypeException& other) {
    assignAll(*this, other, &TypeException::m_requested, &TypeException::m_found);
    return *this;
}

template <class Kind>
TypeException<Kind>::~TypeException() = default;

template <class Kind>
void TypeException<Kind>::generateWhat(std::string& out) const {
    std::ostringstream text = classicStream();
    text << "Json type mismatch! Requestet Json type: " << m_requested
         << " Got Json type: " << m_found;
    if (elementPath()) {
        text << " Current element: \"" << *elementPath() << '"';
    }
    out = text.str();
}

template <class Kind>
TypeException<Kind>* TypeException<Kind>::clone() const {
    return new TypeException(*this);
}

template <class Kind>
Kind TypeException<Kind>::requested() const {
    return m_requested;
}

template <class Kind>
Kind TypeException<Kind>::found() const {
    return m_found;
}

template class TypeException<EType>;

ParseException::ParseException(const std::string& message, int line, int column, int endLine,
                               int endColumn, const zo::Exception* cause)
    : ParseException(nullptr, message, line, column, endLine, endColumn, cause) {}

ParseException::ParseException(const Element* element, const std::string& message, int line,
                               int column, int endLine, int endColumn, const zo::Exception* cause)
    : Exception(element, cause),
      m_message(message),
      m_line(line),
      m_column(column),
      m_endLine(endLine),
      m_endColumn(endColumn) {}

ParseException& ParseException::operator=(const ParseException& other) {
    assignAll(*this, other, &ParseException::m_message, &ParseException::m_line,
              &ParseException::m_column, &ParseException::m_endLine, &ParseException::m_endColumn);
    return *this;
}

ParseException::~ParseException() = default;

void ParseException::init(const std::string& message, int line, int column, int endLine,
                          int endColumn) {
    m_message = message;
    m_line = line;
    m_column = column;
    m_endLine = endLine;
    m_endColumn = endColumn;
}

void ParseException::generateWhat(std::string& out) const {
    std::ostringstream text = classicStream();
    if (m_line != -1) {
        text << "Parse error at " << m_line;
        if (m_column != -1) {
            text << ',' << m_column;
        }
        if (m_endLine != -1) {
            text << '-';
        }
    }
    if (m_endLine != -1) {
        text << m_endLine;
        if (m_endColumn != -1) {
            text << ',' << m_endColumn;
        }
    }
    text << m_message;
    writeCurrentElement(text, *this);
    out = text.str();
}

ParseException* ParseException::clone() const {
    return new ParseException(*this);
}

const std::string& ParseException::message() const {
    return m_message;
}

int ParseException::line() const {
    return m_line;
}

int ParseException::column() const {
    return m_column;
}

int ParseException::endLine() const {
    return m_endLine;
}

int ParseException::endColumn() const {
    return m_endColumn;
}

PathNotFound::PathNotFound(const Element* element, const std::string& path, const std::string& key,
                           const Exception* cause)
    : Exception(element, cause), m_path(path), m_key(key) {}

PathNotFound& PathNotFound::operator=(const PathNotFound& other) {
    assignAll(*this, other, &PathNotFound::m_path, &PathNotFound::m_key);
    return *this;
}

PathNotFound::~PathNotFound() = default;

void PathNotFound::generateWhat(std::string& out) const {
    std::ostringstream text = classicStream();
    text << "Path \"" << m_path << "\" not found! Key \"" << m_key << "\".";
    writeCurrentElement(text, *this);
    out = text.str();
}

PathNotFound* PathNotFound::clone() const {
    return new PathNotFound(*this);
}

const std::string& PathNotFound::path() const {
    return m_path;
}

const std::string& PathNotFound::key() const {
    return m_key;
}

KeyNotFound::KeyNotFound(const Element* element, const std::string& key, const Exception* cause)
    : Exception(element, cause), m_key(key) {}

KeyNotFound& KeyNotFound::operator=(const KeyNotFound& other) {
    assignAll(*this, other, &KeyNotFound::m_key);
    return *this;
}

KeyNotFound::~KeyNotFound() = default;

void KeyNotFound::generateWhat(std::string& out) const {
    std::ostringstream text = classicStream();
    text << "Key \"" << m_key << "\" not found!";
    writeCurrentElement(text, *this);
    out = text.str();
}

KeyNotFound* KeyNotFound::clone() const {
    return new KeyNotFound(*this);
}

const std::string& KeyNotFound::key() const {
    return m_key;
}

template <class From, class To>
ValueOutOfRange<From, To>::ValueOutOfRange(const From& value, const To& min, const To& max,
                                           const zo::Exception* cause)
    : Exception(cause), m_value(value), m_min(min), m_max(max) {}

template <class From, class To>
ValueOutOfRange<From, To>& ValueOutOfRange<From, To>::operator=(const ValueOutOfRange& other) {
    assignAll(*this, other, &ValueOutOfRange::m_value, &ValueOutOfRange::m_min,
              &ValueOutOfRange::m_max);
    return *this;
}

template <class From, class To>
ValueOutOfRange<From, To>::~ValueOutOfRange() = default;

template <class From, class To>
void ValueOutOfRange<From, To>::generateWhat(std::string& out) const {
    std::ostringstream text = classicStream();
    text << "Value out of range! Value: " << m_value << " Min: " << shown(m_min)
         << " Max: " << shown(m_max);
    out = text.str();
}

template <class From, class To>
ValueOutOfRange<From, To>* ValueOutOfRange<From, To>::clone() const {
    return new ValueOutOfRange(*this);
}

template <class From, class To>
const From& ValueOutOfRange<From, To>::value() const {
    return m_value;
}

template <class From, class To>
const To& ValueOutOfRange<From, To>::min() const {
    return m_min;
}

template <class From, class To>
const To& ValueOutOfRange<From, To>::max() const {
    return m_max;
}

template class ValueOutOfRange<std::string, std::string>;
template class ValueOutOfRange<BasicNumber, char>;
template class ValueOutOfRange<BasicNumber, signed char>;
template class ValueOutOfRange<BasicNumber, unsigned char>;
template class ValueOutOfRange<BasicNumber, wchar_t>;
template class ValueOutOfRange<BasicNumber, char16_t>;
template class ValueOutOfRange<BasicNumber, char32_t>;
template class ValueOutOfRange<BasicNumber, short>;
template class ValueOutOfRange<BasicNumber, unsigned short>;
template class ValueOutOfRange<BasicNumber, int>;
template class ValueOutOfRange<BasicNumber, unsigned int>;
template class ValueOutOfRange<BasicNumber, long>;
template class ValueOutOfRange<BasicNumber, unsigned long>;
template class ValueOutOfRange<BasicNumber, long long>;
template class ValueOutOfRange<BasicNumber, unsigned long long>;
template class ValueOutOfRange<BasicNumber, float>;
template class ValueOutOfRange<BasicNumber, double>;
template class ValueOutOfRange<BasicNumber, long double>;
template class ValueOutOfRange<BasicNumber, std::string>;

}  // namespace zo::Tessera
