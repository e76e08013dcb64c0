#ifndef ZO_TESSERA_DOM_H
#define ZO_TESSERA_DOM_H

#include <iosfwd>
#include <memory>
#include <string>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/export.h>

namespace zo::Tessera {

/// A JSON document: owns the root of a tree, and knows the key of the root object's meta member,
/// which holds data about the document, and whether writing includes it.
class ZO_TESSERA_EXPORT Dom {
public:
    /// The meta key of a new document: "meta".
    static const std::string k_defaultMetaKey;

    /// Empty; the meta member is written.
    Dom();
    /// A deep copy of the tree, and the settings. Beware: the children of a copied root are not
    /// attached to it (see `Element`); `reattach` of the copied root does that.
    Dom(const Dom& other);
    /// As copying does. If memory runs out the document is as before.
    Dom& operator=(const Dom& other);
    /// Takes over the tree, whose elements stay where they are, and the settings; `other` is then
    /// as a new document.
    /// @{
    Dom(Dom&& other) noexcept;
    Dom& operator=(Dom&& other) noexcept;
    /// @}
    virtual ~Dom();

    /// The root, owned by the document; null when it is empty.
    Element* root();
    const Element* root() const;

    /// Deletes the current root and takes over `root`; null empties the document. The current root
    /// changes nothing. Do not pass another part of the current tree: it would go with it.
    void setRoot(Element* root);
    /// The same; the pointer is left empty.
    void setRoot(std::unique_ptr<Element> root);
    /// Deletes the current root and stores a deep copy of `root`, which may be a part of the
    /// current tree. If memory runs out the document is as before.
    void setRoot(const Element& root);
    /// Hands the tree to the caller and leaves the document empty.
    std::unique_ptr<Element> takeRoot();

    /// Whether writing the document includes the root object's meta member.
    bool includeMeta() const;
    void setIncludeMeta(bool include);
    const std::string& metaKey() const;
    /// If memory runs out the document is as before.
    void setMetaKey(const std::string& key);

    /// Equal settings and equal trees (`Element::compare`). Beware: two distinct documents without
    /// roots are unequal, and object keys are not compared.
    /// @{
    bool operator==(const Dom& other) const;
    bool operator!=(const Dom& other) const;
    /// @}

private:
    void swap(Dom& other) noexcept;

    std::unique_ptr<Element> m_root;
    bool m_includeMeta = true;
    std::string m_metaKey = k_defaultMetaKey;
};

/// Empties `dom`, then reads the text that `in` has at hand into it, with a `DomParser` of its own.
/// Throws what `DomParser::parse` throws; the part of the tree that was built then stays. Beware of
/// what raises nothing: a truncated text, and a lone number at the very end, which is not read.
/// `readDocument` refuses the one and reads the other.
ZO_TESSERA_EXPORT std::istream& operator>>(std::istream& in, Dom& dom);

/// Writes the document as JSON text with a `Generator` of its own, on many lines and not indented;
/// `writeDocument` indents, and refuses what is no JSON. A document without a root throws
/// `zo::Tessera::Exception` "Generator: document has no root!". After any exception the stream may
/// hold the beginning of the text.
ZO_TESSERA_EXPORT std::ostream& operator<<(std::ostream& out, const Dom& dom);

}  // namespace zo::Tessera

#endif
