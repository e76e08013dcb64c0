#ifndef ZO_TESSERA_SRC_CONTAINERS_TREEWALKS_H
#define ZO_TESSERA_SRC_CONTAINERS_TREEWALKS_H

#include <iosfwd>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Object.h>

/// \file
/// What the two containers do to whole trees. All of it loops: a document may be nested deeper than
/// any stack. A class of the application's own that derives from `Array` or `Object` is asked
/// through its virtual operations, as scalars are.

namespace zo::Tessera {

/// Deletes trees without recursion and without allocating.
class TreeDestroyer {
public:
    /// Deletes the children in order, each after what is below it, and leaves the container empty.
    /// A child that is being deleted still knows its place, and its parent is alive.
    /// @{
    static void deleteChildren(Array& array) noexcept;
    static void deleteChildren(Object& object) noexcept;
    /// @}

private:
    template <class Container>
    static void deleteBelow(Container& top) noexcept;
    /// Deletes children up to the first one that is a container itself and takes that one out;
    /// null when there is none.
    /// @{
    template <class Container>
    static Element* deleteToContainer(Container& parent) noexcept;
    static Element* deleteToContainer(Element& parent) noexcept;
    /// @}
};

/// Appends deep copies of the source's children to the target, not attached. If one fails, those
/// made before stay.
/// @{
void appendCopies(Array& target, const Array& source);
void appendCopies(Object& target, const Object& source);
/// @}

/// Sets the parent, the key and the index of all that is below the container. If memory runs out,
/// some are set and the others as before.
/// @{
void reattachChildren(Array& array);
void reattachChildren(Object& object);
/// @}

/// By size, then by the first pair of children that differ.
/// @{
int compareChildren(const Array& left, const Array& right);
int compareChildren(const Object& left, const Object& right);
/// @}

/// The diagnostic form.
/// @{
std::ostream& writeMembers(std::ostream& out, const Object& object);
std::wostream& writeMembers(std::wostream& out, const Object& object);
/// @}

}  // namespace zo::Tessera

#endif
