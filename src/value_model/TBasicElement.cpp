#include <zo/Tessera/TBasicElement.h>

#include <ostream>
#include <type_traits>
#include <utility>

#include <zo/Tessera/Exception.h>
#include <zo/convert.h>

#include "support/TreeMemory.h"
#include "support/asciiText.h"
#include "value_model/elementRules.h"

namespace zo::Tessera {

namespace {

template <class T>
constexpr EType k_kind = etEmpty;
template <>
constexpr EType k_kind<bool> = etBoolean;
template <>
constexpr EType k_kind<BasicNumber> = etNumber;
template <>
constexpr EType k_kind<std::string> = etString;

int compareValues(bool left, bool right) {
    return left == right ? 0 : (left ? 1 : -1);
}

int compareValues(const BasicNumber& left, const BasicNumber& right) {
    return left.compare(right);
}

int compareValues(const std::string& left, const std::string& right) {
    const int result = left.compare(right);
    return result == 0 ? 0 : (result > 0 ? 1 : -1);
}

template <class Char>
std::basic_ostream<Char>& writeValue(std::basic_ostream<Char>& out, bool value) {
    return out << Ascii{value ? "true" : "false"};
}

template <class Char>
std::basic_ostream<Char>& writeValue(std::basic_ostream<Char>& out, const BasicNumber& value) {
    return value.writeAt(out);
}

std::ostream& writeValue(std::ostream& out, const std::string& value) {
    return out << value;
}

std::wostream& writeValue(std::wostream& out, const std::string& value) {
    return out << wconvert(value);
}

/// The element itself when `Wanted` is the type of its value.
template <class Wanted, class T>
TBasicElement<Wanted>& asKind(TBasicElement<T>& element, EType requested) {
    if constexpr (std::is_same_v<Wanted, T>) {
        return element;
    } else {
        throw TypeException<EType>(&element, requested, element.type());
    }
}

}  // namespace

// The value is a parameter by value: all that can fail has been done when the base attaches.
template <class T>
TBasicElement<T>::TBasicElement(T value) : m_value(std::move(value)) {}

template <class T>
TBasicElement<T>::TBasicElement(T value, Element* parent, const std::string& key)
    : Element(parent, key), m_value(std::move(value)) {}

template <class T>
TBasicElement<T>::TBasicElement(T value, Element* parent)
    : Element(parent), m_value(std::move(value)) {}

template <class T>
TBasicElement<T>::~TBasicElement() = default;

template <class T>
T& TBasicElement<T>::value() {
    return m_value;
}

template <class T>
const T& TBasicElement<T>::value() const {
    return m_value;
}

template <class T>
TBasicElement<T>* TBasicElement<T>::clone() const {
    return newInTree<TBasicElement>(*this);
}

template <class T>
EType TBasicElement<T>::type() const {
    return k_kind<T>;
}

template <class T>
size_t TBasicElement<T>::size() const {
    return 1;
}

template <class T>
TBasicElement<bool>& TBasicElement<T>::getBooleanValue() {
    return asKind<bool>(*this, etBoolean);
}

template <class T>
TBasicElement<BasicNumber>& TBasicElement<T>::getNumberValue() {
    // Callers match on the text, which names etBoolean here and not etNumber.
    return asKind<BasicNumber>(*this, etBoolean);
}

template <class T>
TBasicElement<std::string>& TBasicElement<T>::getStringValue() {
    // Callers match on the text, which names etNumber here and not etString.
    return asKind<std::string>(*this, etNumber);
}

template <class T>
Object& TBasicElement<T>::getObjectValue() {
    throw TypeException<EType>(this, etObject, type());
}

template <class T>
Array& TBasicElement<T>::getArrayValue() {
    throw TypeException<EType>(this, etArray, type());
}

template <class T>
int TBasicElement<T>::compare(const Element& other) const {
    return compareElements(*this, other, [&] {
        return compareValues(m_value, static_cast<const TBasicElement&>(other).m_value);
    });
}

template <class T>
std::ostream& TBasicElement<T>::writeTo(std::ostream& out) const {
    return writeValue(out, m_value);
}

template <class T>
std::wostream& TBasicElement<T>::writeTo(std::wostream& out) const {
    return writeValue(out, m_value);
}

template <class T>
std::istream& TBasicElement<T>::readFrom(std::istream&) {
    refuseReading("TBasicElement");
}

template <class T>
std::wistream& TBasicElement<T>::readFrom(std::wistream&) {
    refuseReading("TBasicElement");
}

template class TBasicElement<bool>;
template class TBasicElement<BasicNumber>;
template class TBasicElement<std::string>;

}  // namespace zo::Tessera
