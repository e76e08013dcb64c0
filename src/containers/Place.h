#ifndef ZO_TESSERA_SRC_CONTAINERS_PLACE_H
#define ZO_TESSERA_SRC_CONTAINERS_PLACE_H

#include <cstddef>
#include <string>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Object.h>

namespace zo::Tessera {

/// Sets the parent, the key and the index of elements for the operations that edit containers, and
/// says what these may put in. What stands in the container's own list is theirs to see to.
class Place {
public:
    /// Throws unless `element` may be put into `container`. That is: it is not null, has no parent,
    /// and is neither the container itself nor found above it. Constant, but linear in the depth of
    /// the container when the element has children.
    static void requireFree(const Element* element, const Element& container);

    static void setItem(Element& element, Array& parent, std::size_t index) noexcept;
    /// After an exception (out of memory) the element is as before.
    static void setMember(Element& element, Object& parent, const std::string& key);
    static void detach(Element& element) noexcept;
};

}  // namespace zo::Tessera

#endif
