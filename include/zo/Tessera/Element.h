#ifndef ZO_TESSERA_ELEMENT_H
#define ZO_TESSERA_ELEMENT_H

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <type_traits>

#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/EType.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/export.h>
#include <zo/Tessera/factories.h>

namespace zo::Tessera {

class Array;
class Object;
template <class T>
class ZO_TESSERA_EXPORT TBasicElement;

static_assert(sizeof(long) == 8, "indexes and numbers rely on a long of 64 bits");

/// Any value of a JSON document: the base of `Null`, `TBasicElement<bool>`,
/// `TBasicElement<BasicNumber>`, `TBasicElement<std::string>`, `Object` and `Array`.
///
/// An element knows its place: the container that holds it, and its key or its index there. The
/// containers keep these three; a container owns its children and deletes them, so never delete an
/// attached element. An element that nobody holds (a root, a clone, what the free factories return)
/// has no parent, an empty key and the index `Path::k_noIndex`.
///
/// Of the operations that are not under "Editing" only two attach: `Object::insert` of a new key
/// and `Array::push_back`. The children of a copied or assigned container are owned but not
/// attached: their `parent()` is null and their paths begin at themselves, until `reattach` of the
/// container. What replaces a member by `Object::insert` keeps the place that it came with.
///
/// Every access by the wrong kind throws `TypeException<EType>`, which names both kinds and the
/// element's path; the element is then unchanged. Nothing converts between kinds.
///
/// Elements have no locks, and even reading a number fills its caches: a tree that several threads
/// share needs outside locking, or `prepareForSharing` if they only read.
class ZO_TESSERA_EXPORT Element {
public:
    virtual ~Element();
    /// `realAssign` and the setters copy values, and leave an element its place.
    Element& operator=(const Element&) = delete;

    /// A deep copy, detached wherever the source stands; the caller owns it. Linear in the tree.
    virtual Element* clone() const = 0;
    virtual EType type() const = 0;
    /// The number of children; 1 for a boolean, a number or a string, 0 for null.
    virtual size_t size() const = 0;

    /// \name The element as its own kind
    /// The element itself, under its concrete class. Another kind throws `TypeException<EType>`.
    /// The requested kind that the exception names is not always the one asked for: callers match
    /// on the texts, so these stay. A boolean or a number asked for its string names `etNumber`, a
    /// boolean or a string asked for its number names `etBoolean`, and a null or an object asked
    /// for its array names `etObject`. The found kind is always right.
    /// A const form calls the other one: a class overrides only the form without const.
    /// @{
    virtual TBasicElement<bool>& getBooleanValue();
    virtual const TBasicElement<bool>& getBooleanValue() const;
    virtual TBasicElement<BasicNumber>& getNumberValue();
    virtual const TBasicElement<BasicNumber>& getNumberValue() const;
    virtual TBasicElement<std::string>& getStringValue();
    virtual const TBasicElement<std::string>& getStringValue() const;
    virtual Object& getObjectValue();
    virtual const Object& getObjectValue() const;
    virtual Array& getArrayValue();
    virtual const Array& getArrayValue() const;
    /// @}

    /// \name Setting the value
    /// Copies the value into this element, which must be of that kind: otherwise the getter's
    /// `TypeException<EType>` is thrown and nothing changes. The source may be this element, or
    /// stand inside it. Setting an object or an array is `Object::assign` or `Array::assign`: deep,
    /// and the copied children are owned but not attached. Out of memory a scalar is as before, and
    /// a container holds what its `assign` leaves.
    /// @{
    virtual void setBooleanValue(const TBasicElement<bool>& value);
    virtual void setBooleanValue(bool value);
    virtual void setNumberValue(const TBasicElement<BasicNumber>& value);
    virtual void setNumberValue(const BasicNumber& value);
    virtual void setStringValue(const TBasicElement<std::string>& value);
    virtual void setStringValue(const std::string& value);
    virtual void setObjectValue(const Object& value);
    virtual void setArrayValue(const Array& value);
    /// @}

    /// -1, 0 or 1: a total order of elements. Different kinds order as `EType` does; within a kind
    /// the concrete class decides. Beware: objects compare by their members' values alone, in
    /// order; keys are not looked at. A number whose text is out of range throws what
    /// `BasicNumber::type` throws.
    virtual int compare(const Element& other) const;

    /// Writes a plain diagnostic form, which is not JSON: strings are neither quoted nor escaped,
    /// and an array shows the addresses of its children. For JSON text use `Generator` or a `Dom`.
    /// What was written before an exception stays in the stream.
    /// @{
    virtual std::ostream& writeTo(std::ostream& out) const = 0;
    virtual std::wostream& writeTo(std::wostream& out) const = 0;
    /// @}

    /// Always throws `zo::Tessera::Exception`, and leaves the stream untouched: text is read with
    /// `operator>>` into a `Dom`, or with `DomParser`.
    /// @{
    virtual std::istream& readFrom(std::istream& in) = 0;
    virtual std::wistream& readFrom(std::wistream& in) = 0;
    /// @}

    /// The name of the kind, such as "etObject".
    std::string typeName() const;

    /// Copies `other`'s value into this element by the setter of `other`'s kind, and returns this
    /// element. An `other` that is null changes nothing, whatever this element is.
    Element& realAssign(const Element& other);

    /// \name Place in the tree
    /// @{

    /// The container that holds this element, not owned; null for a root or a detached element.
    Element* parent();
    const Element* parent() const;
    /// The stored position in an array, `Path::k_noIndex` when not attached to one.
    size_t index() const;
    /// The name within the parent: the member name in an object, "[2]" in an array, empty without
    /// a parent, and empty for a member that a factory made in place of another. A member name is
    /// given as it is, not escaped as in a path.
    std::string key() const;
    /// The top of the tree: this element itself when it has no parent. Linear in the depth.
    Element& root();
    const Element& root() const;
    /// The path text from below `ancestor` to this element, such as `a.list[3]`; null stands for
    /// the top of the tree. `ancestor` should be a strict one: given this very element or a
    /// stranger, the path starts at the top. What was written before an exception stays in the
    /// stream. Linear in the depth.
    std::string path(const Element* ancestor) const;
    std::ostream& path(std::ostream& out, const Element* ancestor) const;
    /// The same place in the document's schema, such as
    /// `meta.schema.properties.a.properties.list.items`.
    std::string schemaPath(const Element* ancestor) const;
    std::ostream& schemaPath(std::ostream& out, const Element* ancestor) const;
    /// @}

    /// \name Making elements
    /// Each kind can be made detached (the caller owns the result), as the member `key` of the
    /// object `parent`, or as the last item of the array `parent` (the parent owns the result).
    /// A null parent throws `zo::Tessera::Exception` "Null pointer exception: parent may not be
    /// null", one of another kind its getter's `TypeException<EType>`. After any exception the
    /// parent is as before. A member that exists under `key` is deleted and replaced in its place;
    /// the new element then has `parent` as its parent but an empty key, which paths show. Where
    /// the kind stays, a setter changes the value and keeps the place.
    /// @{
    static Element* createNull();
    static Element* createNull(Element* parent, const std::string& key);
    static Element* createNull(Element* parent);
    static Element* createBoolean(bool value);
    static Element* createBoolean(bool value, Element* parent, const std::string& key);
    static Element* createBoolean(bool value, Element* parent);
    static Element* createNumber(const BasicNumber& value);
    static Element* createNumber(const BasicNumber& value, Element* parent, const std::string& key);
    static Element* createNumber(const BasicNumber& value, Element* parent);
    static Element* createString(const std::string& value);
    static Element* createString(const std::string& value, Element* parent, const std::string& key);
    static Element* createString(const std::string& value, Element* parent);
    static Element* createObject();
    static Element* createObject(Element* parent, const std::string& key);
    static Element* createObject(Element* parent);
    static Element* createArray();
    static Element* createArray(Element* parent, const std::string& key);
    static Element* createArray(Element* parent);
    /// The default value of the kind: false, 0, an empty text or container; null for `etNull`,
    /// `etEmpty` and any value that is no kind.
    static Element* create(EType type);
    static Element* create(EType type, Element* parent, const std::string& key);
    static Element* create(EType type, Element* parent);
    /// @}

    /// \name Reading a scalar as a plain type
    /// Another kind throws `TypeException<EType>`; a number that does not fit throws
    /// `ValueOutOfRange<BasicNumber, T>`, and one whose text is out of range what
    /// `BasicNumber::type` throws. References live as long as the element.
    ///
    /// Beware: `double` and `float` refuse zero and every negative number (see
    /// `BasicNumber::toDouble`), and convert const elements only. `as` does neither. To assign to a
    /// string that exists, write `s = e.getStringValue().value()`.
    /// @{
    operator bool();
    operator bool() const;
    operator BasicNumber&();
    operator const BasicNumber&() const;
    operator std::string&();
    operator const std::string&() const;
    operator char();
    operator char() const;
    operator unsigned char();
    operator unsigned char() const;
    operator short();
    operator short() const;
    operator unsigned short();
    operator unsigned short() const;
    operator int();
    operator int() const;
    operator unsigned int();
    operator unsigned int() const;
    operator long();
    operator long() const;
    operator unsigned long();
    operator unsigned long() const;
    operator long long();
    operator long long() const;
    operator unsigned long long();
    operator unsigned long long() const;
    operator double() const;
    operator float() const;
    /// @}

    /// \name Reading a scalar exactly
    /// `T` is `bool` for a boolean, `std::string` for a string, and any other built-in arithmetic
    /// type for a number, which is converted as `BasicNumber::as` does: exactly, and without
    /// filling a cache.
    ///
    ///     const double d = e.as<double>();
    ///     const int width = root.get("width").tryAs<int>().value_or(640);
    /// @{

    /// The value. Another kind throws `TypeException<EType>`, which names the right one as
    /// requested, a number that does not fit `ValueOutOfRange<BasicNumber, T>`.
    template <class T>
    T as() const;
    /// The value, or nothing where `as` throws these two.
    template <class T>
    std::optional<T> tryAs() const;
    /// @}

    /// Derives what reading a number of this tree would derive, so that, as long as nobody changes
    /// the tree, any number of threads may read it without a lock: from then on no operation on it
    /// as a constant writes. Beware of integer texts that are out of range for `BasicNumber::type`:
    /// the exception that they throw once is spent by this, and only `as` still tells. If memory
    /// runs out, the rest of the tree is not prepared. Linear in the tree, at any depth.
    void prepareForSharing() const;

    /// \name Reaching children
    /// References live until the child is deleted, wherever its container goes.
    /// @{

    /// The i-th item of an array, in constant time. `i` must be below `size()`: not checked in
    /// release builds. Another kind throws `TypeException<EType>`.
    Element& at(unsigned long i);
    const Element& at(unsigned long i) const;
    /// The member `key` of an object. A missing key throws `zo::Tessera::Exception` "Object does
    /// not contain "key"". Another kind throws `TypeException<EType>`.
    Element& at(const std::string& key);
    /// The same without the check: the key must exist. For one that may not, use `Object::find`.
    const Element& at(const std::string& key) const;
    /// Not there: `e["name"]` would take the element for a place in the text "name". Use `at`.
    template <class T>
    void operator[](const T&) const = delete;
    /// @}

    /// \name Reaching, testing and changing by path
    /// Paths begin at this element; see `Path` for their syntax, what a look-up costs and the
    /// `ParseException` of a text that breaks it. References and pointers live as `at`'s do. An
    /// empty `std::unique_ptr` throws `zo::Tessera::Exception` "Null pointer exception: element may
    /// not be null".
    /// @{

    /// The element at `path`; `PathNotFound` when there is none. The empty path gives this element.
    Element& get(const Path& path);
    const Element& get(const Path& path) const;
    /// Whether the path leads to an element, which is of the kind `type` when that is given.
    bool pathExists(const Path& path) const;
    bool pathExists(const Path& path, EType type) const;
    /// Makes the element at `path` hold the value of `element`, and returns it. What is missing on
    /// the way is created, as `Path::tryCreateElement` does, which throws where that cannot be.
    /// The value is copied as `realAssign` does: into an element of another kind throws
    /// `TypeException<EType>`, and a null changes nothing that exists. Out of memory a container
    /// holds what its `assign` leaves.
    Element& tryUpdate(const Path& path, const Element& element);
    Element& tryUpdate(const Path& path, const std::unique_ptr<Element>& element);
    /// Puts a deep copy of `element`, or the element itself, into this object as `Object::insert`
    /// does, and returns what is stored. Beware: nothing is walked. The whole text of `path` is the
    /// member's name, dots, brackets and backslashes included; `tryUpdate` walks.
    /// Another kind than an object throws `TypeException<EType>`; an `element` handed over is then
    /// deleted, as after any exception.
    Element& insertElement(const Path& path, const Element& element);
    Element& insertElement(const Path& path, std::unique_ptr<Element> element);

    /// Puts `element`, or a deep copy of it, attached throughout, at `path`, and returns it. What
    /// is there is deleted, of whatever kind it is, and its place taken; what is missing on the way
    /// is created, an array where the next segment is an index and an object where it is a key. An
    /// index may be that of an item, the size of the array, or "*": the last two append.
    ///
    ///     root.set("list[*].name", value("Ada"));
    ///
    /// A segment that can be neither found nor created (a key in an array, an index past the size,
    /// anything in a scalar) throws `PathNotFound`, which names the innermost container that is
    /// there; an empty path, and what `Array::insert` refuses, `zo::Tessera::Exception`. After any
    /// exception the tree is as before, and an `element` that was handed over still the caller's.
    /// To change a value and keep the element, use `tryUpdate`.
    /// @{
    Element& set(const Path& path, const Element& element);
    Element& set(const Path& path, std::unique_ptr<Element>&& element);
    /// @}
    /// Deletes the element at `path` and takes it out of its container; returns whether there was
    /// one. An empty path throws `zo::Tessera::Exception` "Path may not be empty": no element
    /// deletes itself. The whole path is read before anything is looked up. Costs what
    /// `Object::erase` or `Array::erase` does.
    bool remove(const Path& path);
    /// @}

    /// \name Searching the items of an array
    /// `arrayPath` leads from this element to the array; when it is empty, this element is the
    /// array. An item matches when what `keyPath` reaches in it (the item itself, when empty)
    /// compares equal to `pattern`. An item in which that raises a `zo::Tessera::Exception` does
    /// not match: the path does not exist there, or breaks the syntax. Other exceptions pass.
    ///
    /// Beware of numbers whose text is out of range, such as integers of 20 digits: a comparison
    /// with one raises and is no match once, and from then on it compares as the value that it had
    /// before, mostly 0 (see `BasicNumber::type`).
    ///
    /// An `arrayPath` that leads nowhere throws `PathNotFound`, to no array `TypeException<EType>`;
    /// an empty `std::unique_ptr` `zo::Tessera::Exception` "Null pointer exception: pattern may not
    /// be null". Linear in the array.
    /// @{

    /// The first item that matches, or null.
    Element* findElement(const Element& pattern, const Path& keyPath, const Path& arrayPath);
    const Element* findElement(const Element& pattern, const Path& keyPath,
                               const Path& arrayPath) const;
    Element* findElement(const std::unique_ptr<Element>& pattern, const Path& keyPath,
                         const Path& arrayPath);
    const Element* findElement(const std::unique_ptr<Element>& pattern, const Path& keyPath,
                               const Path& arrayPath) const;
    /// Removes and deletes all items that match. One pass, however many match; only at its end are
    /// places counted anew for `at` and what was removed deleted, so that `pattern` may be one of
    /// them. When an exception passes, those that matched before are removed, and the array is
    /// whole.
    ///
    /// Beware: each removal adds one to the stored `index()` of the items behind it, which `key()`
    /// and paths show, instead of taking one off: callers rely on it. `at` and the order are right.
    void removeElement(const Element& pattern, const Path& keyPath, const Path& arrayPath);
    void removeElement(const std::unique_ptr<Element>& pattern, const Path& keyPath,
                       const Path& arrayPath);
    /// @}

    /// \name Defaults from the schema
    /// @{

    /// The element that the document's schema gives as the default of what is at `path`: the member
    /// "default" of the schema node, which is looked up from the root of this tree (see
    /// `Path::toSchemaPath`). `PathNotFound` when there is none.
    const Element& getDefault(const Path& path) const;
    /// The element at `path`, or its default when there is none. Beware: the default is looked up
    /// first, and throws when it is missing even where the element exists.
    const Element& getUsingDefault(const Path& path) const;
    /// @}

    /// \name Memory
    /// What `new` and `delete` take, in the usual forms. The elements of a tree that was read or
    /// copied stand in memory that is given back in pieces: an element that is taken out of such a
    /// tree, and outlives it, keeps its piece, of 64 KiB at most and less of a small tree. A
    /// `clone` of it keeps none. Any thread may delete it; but not by the global `delete`. A
    /// placement form of your own is called by the global `new`.
    /// @{
    // NOLINTNEXTLINE(misc-new-delete-overloads): its counterpart is the one that is told the size.
    static void* operator new(std::size_t size);
    static void* operator new(std::size_t size, const std::nothrow_t&) noexcept;
    static void* operator new(std::size_t size, std::align_val_t alignment);
    static void* operator new(std::size_t size, std::align_val_t alignment,
                              const std::nothrow_t&) noexcept;
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* memory, std::size_t size) noexcept;
    static void operator delete(void* memory, std::align_val_t alignment) noexcept;
    static void operator delete(void* memory, const std::nothrow_t&) noexcept;
    static void operator delete(void* memory, std::align_val_t alignment,
                                const std::nothrow_t&) noexcept;
    static void operator delete(void*, void*) noexcept {}
    /// @}

protected:
    /// Detached.
    Element();
    /// Detached, whatever the place of the source.
    Element(const Element&);
    /// Attaches to the object `parent` as its member `key`, as `Object::insert` does.
    /// A class that uses this must not fail once it has: its parent would keep what is gone. It
    /// prepares what can fail beforehand, as arguments of its own constructor.
    Element(Element* parent, const std::string& key);
    /// Attaches to the array `parent` as its last item, as `Array::push_back` does. As above.
    explicit Element(Element* parent);

private:
    class ItemRemoval;

    void requireKind(EType kind) const;

    friend class Array;
    friend class Object;
    friend class Place;
    friend class TreeDestroyer;

    Element* m_parent;  // not owned
    std::string m_key;
    size_t m_index;
};

template <class T>
T Element::as() const {
    if constexpr (std::is_same_v<T, bool>) {
        requireKind(etBoolean);
        return operator bool();
    } else if constexpr (std::is_same_v<T, std::string>) {
        requireKind(etString);
        return operator const std::string&();
    } else {
        requireKind(etNumber);
        return operator const BasicNumber&().as<T>();
    }
}

template <class T>
std::optional<T> Element::tryAs() const {
    if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, std::string>) {
        constexpr EType kind = std::is_same_v<T, bool> ? etBoolean : etString;
        return type() == kind ? std::optional<T>(as<T>()) : std::nullopt;
    } else {
        return type() == etNumber ? operator const BasicNumber&().tryAs<T>() : std::nullopt;
    }
}

}  // namespace zo::Tessera

#endif
