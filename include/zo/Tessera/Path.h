#ifndef ZO_TESSERA_PATH_H
#define ZO_TESSERA_PATH_H

#include <iosfwd>
#include <string>

#include <zo/Tessera/export.h>

namespace zo::Tessera {

class Element;

/// A path text such as `a.list[3].value`: keys joined by ".", indexes in brackets, a backslash
/// before a ".", "[", "]", "*" or backslash that belongs to a key. It is a `std::string` that adds
/// no data; any text is a valid value.
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
    Path() = default;
    Path(const std::string& text);

    /// Writes the path of `element` from below `root`, or from the top of the tree when `root` is
    /// null, no ancestor, or `element` itself. Returns `out`. Linear in the depth.
    static std::ostream& elementPath(std::ostream& out, const Element& element,
                                     const Element* root);
    /// The same for the element's place in the document's schema: "meta.schema", then
    /// ".properties." and the key for each member and ".items" for each item on the way.
    static std::ostream& elementSchemaPath(std::ostream& out, const Element& element,
                                           const Element* root);
};

}  // namespace zo::Tessera

#endif
