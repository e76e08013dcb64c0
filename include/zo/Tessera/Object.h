#ifndef ZO_TESSERA_OBJECT_H
#define ZO_TESSERA_OBJECT_H

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <utility>

#include <zo/ListMap.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/TreeAllocator.h>

namespace zo::Tessera {

/// A JSON object: members in the order in which their keys were first inserted, found by key in
/// logarithmic time. Owns its members and deletes them; a member's address stays until it is
/// replaced. Keys are unique, compared byte by byte.
///
/// Objects order by the number of members first, then by the first pair of values that differ, in
/// insertion order. Beware: keys are not compared, so {"a":1} equals {"b":1}, and {"a":1,"b":2}
/// does not equal {"b":2,"a":1}. Where keys matter, compare them while iterating.
class ZO_TESSERA_EXPORT Object : public Element {
public:
    using Members = ListMap<std::string, Element*, std::less<std::string>,
                            TreeAllocator<std::pair<const std::string, Element*>>>;
    using iterator = Members::iterator;
    using const_iterator = Members::const_iterator;
    using value_type = Members::value_type;

    /// An empty object for callers to share.
    static const Object k_empty;

    /// Detached and empty.
    Object();
    /// Becomes the member `key` of the object `parent`, which owns it. Throws as the factories do.
    Object(Element* parent, const std::string& key);
    /// Becomes the last item of the array `parent`, which owns it. Throws as the factories do.
    explicit Object(Element* parent);
    /// Detached, with deep copies of the members, as `assign` makes them.
    Object(const Object& other);
    ~Object() override;

    /// Replaces the members by deep copies of those of `other`, which may be this object or stand
    /// inside it. Linear in both trees. The copies are owned but not attached: `parent()` of each
    /// is null and `key()` empty until `reattach`, while the object still finds them by key. If a
    /// copy fails, the object is left with those made so far, or as before when there is no memory
    /// to begin. Where this object stands inside `other`, its own copy holds what it has been given
    /// by then.
    Object& assign(const Object& other);

    /// Deletes all members, in insertion order. Allocates nothing.
    void clear();

    /// Stores `value` under `key` and takes it over. Returns the member and whether the key is new.
    ///
    /// A new key goes last, and `value` is attached: its parent and key are set. A key that exists
    /// keeps its place; the old value is deleted, and `value` is stored as it is, not attached: its
    /// parent and key stay what they were: `replace` attaches it.
    ///
    /// `value` must not be held by a container already; that is not checked. The very element that
    /// is stored under `key` changes nothing. A null value throws `zo::Tessera::Exception` "Null
    /// pointer exception: child may not be null". After any exception the object is as before and
    /// the value still the caller's. Logarithmic, and linear in what is deleted.
    std::pair<iterator, bool> insert(const std::string& key, Element* value);

    /// \name Editing
    /// Each keeps the parent, the key and the index of every member right. Logarithmic, and linear
    /// in what is deleted. After any exception everything is as before. `key` may be the one of the
    /// member concerned. What is put in is refused as `Array::insert` does.
    /// @{

    /// Deletes the member `key`; returns whether there was one.
    bool erase(const std::string& key);
    /// Takes the member `key` out and hands it to the caller, detached. A missing one throws as
    /// `at` does.
    std::unique_ptr<Element> take(const std::string& key);
    /// Deletes the member `key` and puts `element`, which it takes over, in its place, attached;
    /// returns it. A key that is new goes last, as with `insert`.
    /// @{
    Element& replace(const std::string& key, Element* element);
    Element& replace(const std::string& key, std::unique_ptr<Element>&& element);
    /// @}
    /// Sets the parent, the key and the index of everything below this object: see
    /// `Array::reattach`.
    void reattach();
    /// @}

    /// Whether there is a member `key`. Logarithmic.
    bool contains(const std::string& key) const;
    /// The member `key`, or null. Logarithmic.
    /// @{
    Element* tryAt(const std::string& key);
    const Element* tryAt(const std::string& key) const;
    /// @}

    using Element::at;
    /// The member `key`; a missing one throws `zo::Tessera::Exception` "Object does not contain
    /// "key"". Logarithmic.
    /// @{
    Element& at(const std::string& key);
    const Element& at(const std::string& key) const;
    /// @}

    /// The member `key` as a pair of key and `Element*`, or `end()`. Logarithmic.
    /// @{
    iterator find(const std::string& key);
    const_iterator find(const std::string& key) const;
    /// @}

    /// The members, as pairs of key and `Element*`, in insertion order. Replacing a pointer through
    /// an iterator bypasses ownership: use `insert`.
    /// @{
    iterator begin();
    iterator end();
    const_iterator begin() const;
    const_iterator end() const;
    const_iterator cbegin() const { return begin(); }
    const_iterator cend() const { return end(); }
    /// @}
    /// Whether there is no member. Does not throw.
    bool empty() const { return begin() == end(); }

    Object* clone() const override;
    EType type() const override;
    size_t size() const override;
    using Element::getObjectValue;
    Object& getObjectValue() override;
    int compare(const Object& other) const;
    int compare(const Element& other) const override;
    /// Writes each member as its raw key, " : ", its value's `writeTo` and a comma, between "{ "
    /// and " }".
    /// @{
    std::ostream& writeTo(std::ostream& out) const override;
    std::wostream& writeTo(std::wostream& out) const override;
    /// @}
    std::istream& readFrom(std::istream& in) override;
    std::wistream& readFrom(std::wistream& in) override;

private:
    friend class Contents;
    friend class TreeCopier;
    friend class TreeDestroyer;

    Object(Members&& prepared, Element* parent, const std::string& key);
    Object(Members&& prepared, Element* parent);

    Members m_elements;  // the values are owned
};

}  // namespace zo::Tessera

#endif
