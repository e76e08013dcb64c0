// The members of Array and Object that edit.

#include <iterator>
#include <memory>
#include <string>
#include <utility>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "containers/Place.h"
#include "containers/treeWalks.h"

namespace zo::Tessera {

namespace {

void requireIndex(const Array& array, size_t index, size_t end) {
    if (index >= end) {
        throw Exception("Array does not contain [" + std::to_string(index) + ']', &array);
    }
}

Array::iterator positionOf(Array& array, size_t index) {
    return std::next(array.begin(), static_cast<Array::iterator::difference_type>(index));
}

void setPlacesFrom(Array& array, size_t index) noexcept {
    for (size_t i = index; i < array.size(); ++i) {
        Place::setItem(array.at(i), array, i);
    }
}

}  // namespace

void Array::erase(size_t index) {
    // The item lives until the array is whole again.
    take(index);
}

std::unique_ptr<Element> Array::take(size_t index) {
    requireIndex(*this, index, size());
    const auto position = positionOf(*this, index);
    std::unique_ptr<Element> taken(*position);
    m_elements.erase(position);
    Place::detach(*taken);
    setPlacesFrom(*this, index);
    return taken;
}

Element& Array::insert(size_t index, Element* element) {
    Place::requireFree(element, *this);
    requireIndex(*this, index, size() + 1);
    m_elements.insert(index == size() ? end() : positionOf(*this, index), element);
    setPlacesFrom(*this, index);
    return *element;
}

Element& Array::insert(size_t index, std::unique_ptr<Element>&& element) {
    insert(index, element.get());
    return *element.release();
}

Element& Array::replace(size_t index, Element* element) {
    requireIndex(*this, index, size());
    Element*& stored = m_elements[index];
    if (stored != element) {
        Place::requireFree(element, *this);
    }
    Place::setItem(*element, *this, index);
    if (stored != element) {
        delete std::exchange(stored, element);
    }
    return *element;
}

Element& Array::replace(size_t index, std::unique_ptr<Element>&& element) {
    replace(index, element.get());
    return *element.release();
}

void Array::clear() {
    TreeDestroyer::deleteChildren(*this);
}

void Array::reattach() {
    reattachChildren(*this);
}

bool Object::erase(const std::string& key) {
    const auto found = m_elements.find(key);
    if (found == m_elements.end()) {
        return false;
    }
    // The member lives until the object is whole again.
    const std::unique_ptr<Element> taken(found->second);
    m_elements.erase(found);
    return true;
}

std::unique_ptr<Element> Object::take(const std::string& key) {
    std::unique_ptr<Element> taken(&at(key));
    m_elements.erase(key);
    Place::detach(*taken);
    return taken;
}

Element& Object::replace(const std::string& key, Element* element) {
    const auto found = m_elements.find(key);
    const bool isNew = found == m_elements.end();
    if (isNew || found->second != element) {
        Place::requireFree(element, *this);
    }
    if (isNew) {
        insert(key, element);
        return *element;
    }
    Place::setMember(*element, *this, key);
    if (found->second != element) {
        delete std::exchange(found->second, element);
    }
    return *element;
}

Element& Object::replace(const std::string& key, std::unique_ptr<Element>&& element) {
    replace(key, element.get());
    return *element.release();
}

void Object::reattach() {
    reattachChildren(*this);
}

bool Object::contains(const std::string& key) const {
    return find(key) != end();
}

Element* Object::tryAt(const std::string& key) {
    const auto found = find(key);
    return found == end() ? nullptr : found->second;
}

const Element* Object::tryAt(const std::string& key) const {
    const auto found = find(key);
    return found == end() ? nullptr : found->second;
}

}  // namespace zo::Tessera
