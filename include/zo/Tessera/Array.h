#ifndef ZO_TESSERA_ARRAY_H
#define ZO_TESSERA_ARRAY_H

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>

#include <zo/IndexList.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/TreeAllocator.h>

namespace zo::Tessera {

/// A JSON array: children in order, each reached by its place in constant time (`Element::at`).
/// Owns its children and deletes them; a child's address stays while it is in the array.
///
/// Arrays order by length first, then by the first pair of children that differ.
class ZO_TESSERA_EXPORT Array : public Element {
public:
    using Items = IndexList<Element*, TreeAllocator<Element*>>;
    using iterator = Items::iterator;
    using const_iterator = Items::const_iterator;
    using value_type = Items::value_type;

    /// An empty array for callers to share.
    static const Array k_empty;

    /// Detached and empty.
    Array();
    /// Becomes the member `key` of the object `parent`, which owns it. Throws as the factories do.
    Array(Element* parent, const std::string& key);
    /// Becomes the last item of the array `parent`, which owns it. Throws as the factories do.
    explicit Array(Element* parent);
    /// Detached, with deep copies of the children, as `assign` makes them.
    Array(const Array& other);
    ~Array() override;

    /// Replaces the children by deep copies of those of `other`, which may be this array or stand
    /// inside it. Linear in both trees. The copies are owned but not attached: `parent()` of each
    /// is null, until `reattach`. If a copy fails, the array is left with those made so far, or as
    /// before when there is no memory to begin. Where this array stands inside `other`, its own
    /// copy holds what it has been given by then.
    Array& assign(const Array& other);

    /// Puts `child` last and takes it over: sets its parent and index, and an empty key.
    /// `child` must not be held by a container already; that is not checked. A null child throws
    /// `zo::Tessera::Exception` "Null pointer exception: child may not be null". After any
    /// exception the array is as before and the child still the caller's. Amortised constant.
    void push_back(Element* child);

    /// \name Editing
    /// Each keeps the parent, the key and the index of every item right: those of the items from
    /// the one concerned on are set anew. Unless told otherwise linear in the array, and after any
    /// exception everything is as before. An `index` without an item throws
    /// `zo::Tessera::Exception` "Array does not contain [3]".
    ///
    /// What is put in must not be null, nor have a parent, nor be this array or one of the
    /// containers around it: otherwise `zo::Tessera::Exception` "Null pointer exception: child may
    /// not be null", "Element has a parent already" or "Element cannot be put into itself" is
    /// thrown and the element stays the caller's, as after any exception. Beware: an element that a
    /// container owns without being its parent (see `assign`), or a `Dom` as its root, cannot be
    /// told from a free one: take it out first. Nor do containers that do not know their parents
    /// show what is around them.
    /// @{

    /// Deletes the item.
    void erase(size_t index);
    /// Takes the item out and hands it to the caller, detached.
    std::unique_ptr<Element> take(size_t index);
    /// Puts `element` before the item at `index`, or last when that is `size()`, and takes it over;
    /// returns it.
    /// @{
    Element& insert(size_t index, Element* element);
    Element& insert(size_t index, std::unique_ptr<Element>&& element);
    /// @}
    /// Deletes the item and puts `element`, which it takes over, in its place; returns it.
    /// Constant, and linear in what is deleted.
    /// @{
    Element& replace(size_t index, Element* element);
    Element& replace(size_t index, std::unique_ptr<Element>&& element);
    /// @}
    /// Deletes all items, in order. Allocates nothing.
    void clear();
    /// Sets the parent, the key and the index of everything below this array, at any depth: after
    /// copying, `assign` or a setter, `removeElement`, or what replaced a member. Linear in the
    /// tree. If memory runs out, some are set and the others as before; it may be called again.
    void reattach();
    /// @}

    /// The children, as `Element*`, in order. Replacing a pointer through an iterator bypasses
    /// ownership: do not.
    /// @{
    iterator begin();
    iterator end();
    const_iterator begin() const;
    const_iterator end() const;
    const_iterator cbegin() const { return begin(); }
    const_iterator cend() const { return end(); }
    /// @}
    /// Whether there is no item. Does not throw.
    bool empty() const { return begin() == end(); }

    Array* clone() const override;
    EType type() const override;
    size_t size() const override;
    using Element::getArrayValue;
    Array& getArrayValue() override;
    int compare(const Array& other) const;
    int compare(const Element& other) const override;
    /// Writes the children's addresses, each followed by a comma, between "[ " and " ]".
    /// @{
    std::ostream& writeTo(std::ostream& out) const override;
    std::wostream& writeTo(std::wostream& out) const override;
    /// @}
    std::istream& readFrom(std::istream& in) override;
    std::wistream& readFrom(std::wistream& in) override;

private:
    friend class Contents;
    friend class Element;
    friend class TreeCopier;
    friend class TreeDestroyer;

    Array(Items&& prepared, Element* parent, const std::string& key);
    Array(Items&& prepared, Element* parent);

    Items m_elements;  // the children are owned
};

}  // namespace zo::Tessera

#endif
