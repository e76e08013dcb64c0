#include <zo/Tessera/Object.h>

#include <ostream>
#include <utility>

#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Path.h>

#include "containers/treeWalks.h"
#include "support/TreeMemory.h"
#include "value_model/elementRules.h"

namespace zo::Tessera {

namespace {

/// The member that `find` gave, or an exception that names the key.
template <class Iterator>
Element& required(Iterator found, Iterator end, const std::string& key) {
    if (found == end) {
        throw Exception("Object does not contain \"" + key + '"');
    }
    return *found->second;
}

}  // namespace

// Before the objects of an application that links the library statically and may use this.
[[gnu::init_priority(101)]] const Object Object::k_empty;

Object::Object() = default;

// The map is made before the base attaches: nothing can fail once the parent holds this object.
Object::Object(Element* parent, const std::string& key) : Object(Members(), parent, key) {}

Object::Object(Element* parent) : Object(Members(), parent) {}

Object::Object(Members&& prepared, Element* parent, const std::string& key)
    : Element(parent, key), m_elements(std::move(prepared)) {}

Object::Object(Members&& prepared, Element* parent)
    : Element(parent), m_elements(std::move(prepared)) {}

Object::Object(const Object& other) : Object() {
    assign(other);
}

Object::~Object() {
    clear();
}

Object& Object::assign(const Object& other) {
    if (&other != this) {
        // The old members go last: `other` may stand among them.
        Object old;
        old.m_elements.swap(m_elements);
        appendCopies(*this, other);
    }
    return *this;
}

void Object::clear() {
    TreeDestroyer::deleteChildren(*this);
}

std::pair<Object::iterator, bool> Object::insert(const std::string& key, Element* value) {
    if (!value) {
        throw Exception("Null pointer exception: child may not be null");
    }
    const std::pair<iterator, bool> result = m_elements.insert(key, value);
    if (result.second) {
        try {
            value->m_key = key;
        } catch (...) {
            m_elements.erase(result.first);
            throw;
        }
        value->m_parent = this;
        value->m_index = Path::k_noIndex;
    } else if (Element*& stored = result.first->second; stored != value) {
        // Stored without attaching it: callers rely on the value's own place being kept.
        delete std::exchange(stored, value);
    }
    return result;
}

Element& Object::at(const std::string& key) {
    return required(m_elements.find(key), m_elements.end(), key);
}

const Element& Object::at(const std::string& key) const {
    return required(find(key), end(), key);
}

Object::iterator Object::find(const std::string& key) {
    return m_elements.find(key);
}

Object::const_iterator Object::find(const std::string& key) const {
    return std::as_const(m_elements).find(key);
}

Object::iterator Object::begin() {
    return m_elements.begin();
}

Object::iterator Object::end() {
    return m_elements.end();
}

Object::const_iterator Object::begin() const {
    return std::as_const(m_elements).begin();
}

Object::const_iterator Object::end() const {
    return std::as_const(m_elements).end();
}

Object* Object::clone() const {
    return newInTree<Object>(*this);
}

EType Object::type() const {
    return etObject;
}

size_t Object::size() const {
    return m_elements.size();
}

Object& Object::getObjectValue() {
    return *this;
}

int Object::compare(const Object& other) const {
    return compareChildren(*this, other);
}

int Object::compare(const Element& other) const {
    return compareElements(*this, other,
                           [&] { return compare(static_cast<const Object&>(other)); });
}

std::ostream& Object::writeTo(std::ostream& out) const {
    return writeMembers(out, *this);
}

std::wostream& Object::writeTo(std::wostream& out) const {
    return writeMembers(out, *this);
}

std::istream& Object::readFrom(std::istream&) {
    refuseReading("Object");
}

std::wistream& Object::readFrom(std::wistream&) {
    refuseReading("Object");
}

}  // namespace zo::Tessera
