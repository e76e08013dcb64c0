#ifndef ZO_TESSERA_NULL_H
#define ZO_TESSERA_NULL_H

#include <cstddef>
#include <iosfwd>
#include <string>

#include <zo/Tessera/Element.h>

namespace zo::Tessera {

/// JSON null. All nulls are equal, and every getter throws.
class ZO_TESSERA_EXPORT Null : public Element {
public:
    /// Detached.
    Null();
    /// Becomes the member `key` of the object `parent`, which owns it. Throws as the factories do.
    Null(Element* parent, const std::string& key);
    /// Becomes the last item of the array `parent`, which owns it. Throws as the factories do.
    explicit Null(Element* parent);
    /// Detached, whatever the place of the source.
    Null(const Null&) = default;
    ~Null() override;

    Null* clone() const override;
    EType type() const override;
    size_t size() const override;
    int compare(const Element& other) const override;
    std::ostream& writeTo(std::ostream& out) const override;
    std::wostream& writeTo(std::wostream& out) const override;
    std::istream& readFrom(std::istream& in) override;
    std::wistream& readFrom(std::wistream& in) override;
};

}  // namespace zo::Tessera

#endif
