#ifndef ZO_TESSERA_SRC_PATHS_SEGMENTS_H
#define ZO_TESSERA_SRC_PATHS_SEGMENTS_H

#include <string>
#include <string_view>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "support/isJust.h"

/// \file
/// One step of a path, for those that walk on constant trees and on others.

namespace zo::Tessera {

/// The children as the containers keep them: found without a copy of a key.
class Contents {
public:
    template <class Container>
    static const auto& of(const Container& container) {
        return container.m_elements;
    }
};

/// For elements of classes of the application's own, which are asked through virtual operations.
/// Apart from the rest, which is small without them.
/// @{
template <class ElementType>
[[gnu::cold, gnu::noinline]] auto* objectByItsKind(ElementType& element) {
    return element.type() == etObject ? &element.getObjectValue() : nullptr;
}

template <class ElementType>
[[gnu::cold, gnu::noinline]] ElementType* itemByItsKind(ElementType& element, unsigned long index) {
    if (element.type() != etArray) {
        return nullptr;
    }
    auto& array = element.getArrayValue();
    return index < array.size() ? &array.at(index) : nullptr;
}
/// @}

/// The member `key`; null when there is none or the element is no object.
template <class ElementType>
ElementType* memberOf(ElementType& element, std::string_view key) {
    const Object* const object =
        isJust<Object>(element) ? static_cast<const Object*>(&element) : objectByItsKind(element);
    if (!object) {
        return nullptr;
    }
    const Object::Members& members = Contents::of(*object);
    const auto found = members.findSought(Object::Members::Sought(key));
    return found == members.end() ? nullptr : found->second;
}

/// The item at `index`; null when there is none or the element is no array.
template <class ElementType>
ElementType* itemOf(ElementType& element, unsigned long index) {
    if (!isJust<Array>(element)) {
        return itemByItsKind(element, index);
    }
    const auto& items = Contents::of(static_cast<const Array&>(element));
    return index < items.size() ? items[index] : nullptr;
}

/// What a walker answers when `element` lacks a segment: throws `PathNotFound` if it is to throw,
/// otherwise false.
/// @{
inline bool refuseSegment(bool throwing, const Element& element, const std::string& path,
                          const std::string& key) {
    if (throwing) {
        throw PathNotFound(&element, path, key);
    }
    return false;
}

inline bool refuseSegment(bool throwing, const Element& element, const std::string& path,
                          unsigned long index) {
    return throwing && refuseSegment(throwing, element, path, "[" + std::to_string(index) + "]");
}
/// @}

}  // namespace zo::Tessera

#endif
