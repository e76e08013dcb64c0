#include <zo/Tessera/Array.h>

#include <ostream>
#include <utility>

#include <zo/Tessera/Exception.h>

#include "containers/treeWalks.h"
#include "support/TreeMemory.h"
#include "support/asciiText.h"
#include "value_model/elementRules.h"

namespace zo::Tessera {

namespace {

template <class Char>
std::basic_ostream<Char>& writeAddresses(std::basic_ostream<Char>& out, const Array& array) {
    out << Ascii{"[ "};
    for (const Element* item : array) {
        // The comma follows the last one too: callers rely on the form.
        out << static_cast<const void*>(item) << Ascii{","};
    }
    return out << Ascii{" ]"};
}

}  // namespace

// Before the objects of an application that links the library statically and may use this.
[[gnu::init_priority(101)]] const Array Array::k_empty;

Array::Array() = default;

// The list is made before the base attaches: nothing can fail once the parent holds this array.
Array::Array(Element* parent, const std::string& key) : Array(Items(), parent, key) {}

Array::Array(Element* parent) : Array(Items(), parent) {}

Array::Array(Items&& prepared, Element* parent, const std::string& key)
    : Element(parent, key), m_elements(std::move(prepared)) {}

Array::Array(Items&& prepared, Element* parent)
    : Element(parent), m_elements(std::move(prepared)) {}

Array::Array(const Array& other) : Array() {
    assign(other);
}

Array::~Array() {
    TreeDestroyer::deleteChildren(*this);
}

Array& Array::assign(const Array& other) {
    if (&other != this) {
        // The old children go last: `other` may stand among them.
        Array old;
        old.m_elements.swap(m_elements);
        appendCopies(*this, other);
    }
    return *this;
}

void Array::push_back(Element* child) {
    if (!child) {
        throw Exception("Null pointer exception: child may not be null");
    }
    const size_t place = m_elements.size();
    m_elements.push_back(child);
    child->m_parent = this;
    child->m_index = place;
    child->m_key.clear();
}

Array::iterator Array::begin() {
    return m_elements.begin();
}

Array::iterator Array::end() {
    return m_elements.end();
}

Array::const_iterator Array::begin() const {
    return std::as_const(m_elements).begin();
}

Array::const_iterator Array::end() const {
    return std::as_const(m_elements).end();
}

Array* Array::clone() const {
    return newInTree<Array>(*this);
}

EType Array::type() const {
    return etArray;
}

size_t Array::size() const {
    return m_elements.size();
}

Array& Array::getArrayValue() {
    return *this;
}

int Array::compare(const Array& other) const {
    return compareChildren(*this, other);
}

int Array::compare(const Element& other) const {
    return compareElements(*this, other, [&] { return compare(static_cast<const Array&>(other)); });
}

std::ostream& Array::writeTo(std::ostream& out) const {
    return writeAddresses(out, *this);
}

std::wostream& Array::writeTo(std::wostream& out) const {
    return writeAddresses(out, *this);
}

std::istream& Array::readFrom(std::istream&) {
    refuseReading("Array");
}

std::wistream& Array::readFrom(std::wistream&) {
    refuseReading("Array");
}

}  // namespace zo::Tessera
