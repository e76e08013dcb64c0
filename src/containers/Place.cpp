#include "containers/Place.h"

#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Path.h>

namespace zo::Tessera {

namespace {

/// Whether the element may stand above others: scalars and empty containers do not.
bool hasChildren(const Element& element) {
    return (element.type() == etObject || element.type() == etArray) && element.size() > 0;
}

}  // namespace

void Place::requireFree(const Element* element, const Element& container) {
    if (!element) {
        throw Exception("Null pointer exception: child may not be null");
    }
    if (element->m_parent) {
        throw Exception("Element has a parent already", element);
    }
    // Only a tree's top has no parent.
    if (element == &container || (hasChildren(*element) && element == &container.root())) {
        throw Exception("Element cannot be put into itself", element);
    }
}

void Place::setItem(Element& element, Array& parent, std::size_t index) noexcept {
    element.m_parent = &parent;
    element.m_key.clear();
    element.m_index = index;
}

void Place::setMember(Element& element, Object& parent, const std::string& key) {
    element.m_key = key;
    element.m_parent = &parent;
    element.m_index = Path::k_noIndex;
}

void Place::detach(Element& element) noexcept {
    element.m_parent = nullptr;
    element.m_key.clear();
    element.m_index = Path::k_noIndex;
}

}  // namespace zo::Tessera
