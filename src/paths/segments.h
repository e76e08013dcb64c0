#ifndef ZO_TESSERA_SRC_PATHS_SEGMENTS_H
#define ZO_TESSERA_SRC_PATHS_SEGMENTS_H

#include <string>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

/// \file
/// One step of a path, for those that walk on constant trees and on others.

namespace zo::Tessera {

/// The member `key`; null when there is none or the element is no object.
template <class ElementType>
ElementType* memberOf(ElementType& element, const std::string& key) {
    if (element.type() != etObject) {
        return nullptr;
    }
    auto& object = element.getObjectValue();
    const auto found = object.find(key);
    return found == object.end() ? nullptr : found->second;
}

/// The item at `index`; null when there is none or the element is no array.
template <class ElementType>
ElementType* itemOf(ElementType& element, unsigned long index) {
    if (element.type() != etArray) {
        return nullptr;
    }
    auto& array = element.getArrayValue();
    return index < array.size() ? &array.at(index) : nullptr;
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
