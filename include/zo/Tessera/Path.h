#ifndef ZO_TESSERA_PATH_H
#define ZO_TESSERA_PATH_H

#include <functional>
#include <iosfwd>
#include <string>

#include <zo/Tessera/EType.h>
#include <zo/Tessera/export.h>

namespace zo::Tessera {

class Element;

/// A path text such as `a.list[3].value`, which names one element of a tree, seen from another.
/// It is a `std::string` that adds no data; any text is a valid value, and its syntax is checked
/// when it is used:
///
/// | path text     | reaches                                                                 |
/// |---------------|-------------------------------------------------------------------------|
/// | (empty)       | the element where the path begins                                       |
/// | `a`, `.a`     | the member "a" of an object                                             |
/// | `a.b`         | the member "b" of the member "a"                                        |
/// | `list[3]`     | the item at place 3, counted from 0; `[3]` where the path begins at one |
/// | `list[3].b`   | the member "b" of that item; `list[3]b` says the same                   |
/// | `list[*]`     | where something is created: an item to be appended                      |
/// | `x\.y`        | the member "x.y": after a backslash every character belongs to the key  |
///
/// Keys are bytes, compared exactly: UTF-8 by custom. A key needs a backslash before each ".", "[",
/// "]" and backslash, and before each byte 0xFF, which would end the text; `path()` writes these,
/// but for the last, and one more before "*". No text names a member whose key is empty: use
/// `Element::at`.
///
/// The text is parsed by every call that takes it. A look-up that throws nothing allocates nothing
/// while each key and each index is at most 15 bytes long. Keep a `Path` that is used often: a
/// literal makes a new one each time, which allocates when the whole text is longer than that.
///
/// Besides what each says, all operations throw `ParseException` for a text that breaks the syntax,
/// and those that only look up for "*" ("Index must be set!"): those that answer whether something
/// is there, too. What stands behind a segment that is missing is not read any more.
class ZO_TESSERA_EXPORT Path : public std::string {
public:
    /// The index "*": no particular position. Also the index of an element outside of an array.
    static const unsigned long k_noIndex = ~0UL;
    /// The key of an element outside of an object: empty.
    static const std::string k_noName;
    /// The keys that lead from a document's root to its schema: "meta", then "schema".
    /// @{
    static const std::string k_meta;
    static const std::string k_schema;
    /// @}
    /// The key of the default value in a schema node: "default".
    static const std::string k_default;
    /// The schema key before a member's name: "properties".
    static const std::string k_metaObjectProperty;
    /// The schema key that stands for the items of an array: "items".
    static const std::string k_metaArrayItem;
    /// The characters of a key that a path text shows after a backslash: ".[]*\".
    static const std::string k_escapeChars;

    using std::string::string;
    using std::string::operator=;
    Path() = default;
    Path(const std::string& text);
    /// The text up to its terminating zero. A null pointer throws `zo::Tessera::Exception` "Null
    /// pointer exception: path may not be null".
    Path(const char* text);

    /// Writes the path of `element` from below `root`, or from the top of the tree when `root` is
    /// null, no ancestor, or `element` itself. Returns `out`, in which what was written before an
    /// exception stays. Linear in the depth.
    static std::ostream& elementPath(std::ostream& out, const Element& element,
                                     const Element* root);
    /// The same for the element's place in the document's schema: "meta.schema", then
    /// ".properties." and the key for each member and ".items" for each item on the way.
    static std::ostream& elementSchemaPath(std::ostream& out, const Element& element,
                                           const Element* root);

    /// \name Looking up
    /// `root` is where the path begins: any element of a tree. Linear in the text, and logarithmic
    /// in the size of each object on the way.
    /// @{

    /// Whether the path leads to an element, which is of the kind `type` when that is given.
    static bool pathExists(const Path& path, const Element& root);
    static bool pathExists(const Path& path, const Element& root, EType type);
    /// The element at the path; `PathNotFound` when there is none.
    static const Element& getElement(const Path& path, const Element& root);
    static Element& getElement(const Path& path, Element& root);
    /// The element at the path, owned by its tree; null when there is none, or none of the kind
    /// `type` when that is given.
    static const Element* tryGetElement(const Path& path, const Element& root);
    static Element* tryGetElement(const Path& path, Element& root);
    static const Element* tryGetElement(const Path& path, const Element& root, EType type);
    static Element* tryGetElement(const Path& path, Element& root, EType type);
    /// @}

    /// \name Creating
    /// The element at the path, owned by its tree. What is missing on the way is created (see
    /// `ElementCreator` for what can be, and for the kinds it gets), with a deep copy of `value` at
    /// the end. An element that exists stays as it is: `Element::tryUpdate` sets its value, too.
    /// After any exception what was created on the way stays.
    /// @{

    /// Where it cannot be created: `PathNotFound`.
    static Element& createElement(Element& root, const Path& path, const Element& value);
    /// Never null. Where it cannot be created: `zo::Tessera::Exception` "Error creating element.
    /// Parent: "..." path: "..."", with the path of `root`, which is its `elementPath()`, too, and
    /// this one.
    static Element* tryCreateElement(Element& root, const Path& path, const Element& value);
    /// @}

    /// \name Between data and their schema
    /// A schema stands under "meta" and "schema" in its document, and describes members under
    /// "properties" and all items of an array under "items".
    /// @{

    /// The path of the schema node that describes the data at `path`: of `list[3].x` it is
    /// `meta.schema.properties.list.items.properties.x`.
    static Path toSchemaPath(const Path& path);
    /// The other way, with "*" for every index. Another text than a schema path throws
    /// `ParseException`; see `FromSchemaPathConverter` for what raises nothing.
    static Path fromSchemaPath(const Path& schemaPath);
    /// @}
};

}  // namespace zo::Tessera

/// That of the text.
template <>
struct std::hash<zo::Tessera::Path> : std::hash<std::string> {};

#endif
