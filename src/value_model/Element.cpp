#include <zo/Tessera/Element.h>

#include <cassert>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/TBasicElement.h>

#include "support/TreeMemory.h"
#include "value_model/kindName.h"

namespace zo::Tessera {

namespace {

Element* checkedParent(Element* parent) {
    if (!parent) {
        throw Exception("Null pointer exception: parent may not be null");
    }
    return parent;
}

TypeException<EType> typeMismatch(const Element& element, EType requested) {
    return {&element, requested, element.type()};
}

template <class T>
void assignUnlessSame(TBasicElement<T>& target, const TBasicElement<T>& source) {
    if (&target != &source) {
        target.value() = source.value();
    }
}

}  // namespace

Element::Element() : m_parent(nullptr), m_index(Path::k_noIndex) {}

Element::Element(const Element&) : Element() {}

Element::Element(Element* parent, const std::string& key)
    : m_parent(checkedParent(parent)), m_index(Path::k_noIndex) {
    parent->getObjectValue().insert(key, this);
}

Element::Element(Element* parent) : m_parent(checkedParent(parent)), m_index(Path::k_noIndex) {
    parent->getArrayValue().push_back(this);
}

Element::~Element() = default;

// NOLINTNEXTLINE(misc-new-delete-overloads): its counterpart is the one that is told the size.
void* Element::operator new(std::size_t size) {
    return TreeMemory::allocateOutside(size);
}

void* Element::operator new(std::size_t size, const std::nothrow_t& none) noexcept {
    return ::operator new(TreeMemory::roundedUp(size), none);
}

void* Element::operator new(std::size_t size, std::align_val_t alignment) {
    return ::operator new(size, alignment);
}

void* Element::operator new(std::size_t size, std::align_val_t alignment,
                            const std::nothrow_t& none) noexcept {
    return ::operator new(size, alignment, none);
}

void Element::operator delete(void* memory, std::size_t size) noexcept {
    releaseForTree(memory, size);
}

void Element::operator delete(void* memory, const std::nothrow_t&) noexcept {
    ::operator delete(memory);
}

void Element::operator delete(void* memory, std::align_val_t alignment,
                              const std::nothrow_t&) noexcept {
    ::operator delete(memory, alignment);
}

void Element::operator delete(void* memory, std::align_val_t alignment) noexcept {
    ::operator delete(memory, alignment);
}

TBasicElement<bool>& Element::getBooleanValue() {
    throw typeMismatch(*this, etBoolean);
}

const TBasicElement<bool>& Element::getBooleanValue() const {
    return const_cast<Element*>(this)->getBooleanValue();
}

TBasicElement<BasicNumber>& Element::getNumberValue() {
    throw typeMismatch(*this, etNumber);
}

const TBasicElement<BasicNumber>& Element::getNumberValue() const {
    return const_cast<Element*>(this)->getNumberValue();
}

TBasicElement<std::string>& Element::getStringValue() {
    throw typeMismatch(*this, etString);
}

const TBasicElement<std::string>& Element::getStringValue() const {
    return const_cast<Element*>(this)->getStringValue();
}

Object& Element::getObjectValue() {
    throw typeMismatch(*this, etObject);
}

const Object& Element::getObjectValue() const {
    return const_cast<Element*>(this)->getObjectValue();
}

Array& Element::getArrayValue() {
    // Callers match on the text, which names etObject here and not etArray.
    throw typeMismatch(*this, etObject);
}

const Array& Element::getArrayValue() const {
    return const_cast<Element*>(this)->getArrayValue();
}

void Element::setBooleanValue(const TBasicElement<bool>& value) {
    assignUnlessSame(getBooleanValue(), value);
}

void Element::setBooleanValue(bool value) {
    getBooleanValue().value() = value;
}

void Element::setNumberValue(const TBasicElement<BasicNumber>& value) {
    assignUnlessSame(getNumberValue(), value);
}

void Element::setNumberValue(const BasicNumber& value) {
    getNumberValue().value().set(value);
}

void Element::setStringValue(const TBasicElement<std::string>& value) {
    assignUnlessSame(getStringValue(), value);
}

void Element::setStringValue(const std::string& value) {
    getStringValue().value() = value;
}

void Element::setObjectValue(const Object& value) {
    getObjectValue().assign(value);
}

void Element::setArrayValue(const Array& value) {
    getArrayValue().assign(value);
}

int Element::compare(const Element&) const {
    return 0;
}

std::string Element::typeName() const {
    return std::string(kindName(type()).text);
}

Element& Element::realAssign(const Element& other) {
    switch (other.type()) {
        case etBoolean:
            setBooleanValue(static_cast<const TBasicElement<bool>&>(other));
            break;
        case etNumber:
            setNumberValue(static_cast<const TBasicElement<BasicNumber>&>(other));
            break;
        case etString:
            setStringValue(static_cast<const TBasicElement<std::string>&>(other));
            break;
        case etObject:
            setObjectValue(static_cast<const Object&>(other));
            break;
        case etArray:
            setArrayValue(static_cast<const Array&>(other));
            break;
        case etEmpty:
        case etNull:
            break;
    }
    return *this;
}

void Element::requireKind(EType kind) const {
    if (type() != kind) {
        throw typeMismatch(*this, kind);
    }
}

Element* Element::parent() {
    return m_parent;
}

const Element* Element::parent() const {
    return m_parent;
}

size_t Element::index() const {
    return m_index;
}

std::string Element::key() const {
    if (!m_parent) {
        return Path::k_noName;
    }
    switch (m_parent->type()) {
        case etObject:
            return m_key;
        case etArray:
            return "[" + std::to_string(m_index) + "]";
        default:
            return std::string();
    }
}

Element& Element::root() {
    Element* top = this;
    while (top->m_parent) {
        top = top->m_parent;
    }
    return *top;
}

const Element& Element::root() const {
    return const_cast<Element*>(this)->root();
}

Element& Element::at(unsigned long i) {
    return *getArrayValue().m_elements[i];
}

const Element& Element::at(unsigned long i) const {
    return *getArrayValue().m_elements[i];
}

Element& Element::at(const std::string& key) {
    return getObjectValue().at(key);
}

const Element& Element::at(const std::string& key) const {
    const Object& members = getObjectValue();
    const auto found = members.find(key);
    assert(found != members.end());
    return *found->second;
}

}  // namespace zo::Tessera
