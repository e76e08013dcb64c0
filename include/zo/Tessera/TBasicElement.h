#ifndef ZO_TESSERA_TBASICELEMENT_H
#define ZO_TESSERA_TBASICELEMENT_H

#include <cstddef>
#include <iosfwd>
#include <string>

#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Element.h>

namespace zo::Tessera {

/// A JSON boolean, number or string: an element that holds one value of type `T`, which is `bool`,
/// `BasicNumber` or `std::string`. The library holds these three instances and no other.
///
/// Order within a kind: false before true; numbers as `BasicNumber::compare`; strings by their
/// bytes, a prefix before what it begins.
template <class T>
class ZO_TESSERA_EXPORT TBasicElement : public Element {
public:
    /// Detached.
    explicit TBasicElement(T value);
    /// Becomes the member `key` of the object `parent`, which owns it. Throws as the factories do.
    /// `value` and `key` may live in the member that is replaced.
    TBasicElement(T value, Element* parent, const std::string& key);
    /// Becomes the last item of the array `parent`, which owns it. Throws as the factories do.
    TBasicElement(T value, Element* parent);
    /// Detached, whatever the place of the source.
    TBasicElement(const TBasicElement&) = default;
    ~TBasicElement() override;

    /// The value itself, which may be changed in place.
    T& value();
    const T& value() const;

    TBasicElement* clone() const override;
    EType type() const override;
    size_t size() const override;

    using Element::getArrayValue;
    using Element::getBooleanValue;
    using Element::getNumberValue;
    using Element::getObjectValue;
    using Element::getStringValue;
    TBasicElement<bool>& getBooleanValue() override;
    TBasicElement<BasicNumber>& getNumberValue() override;
    TBasicElement<std::string>& getStringValue() override;
    Object& getObjectValue() override;
    Array& getArrayValue() override;

    int compare(const Element& other) const override;
    std::ostream& writeTo(std::ostream& out) const override;
    std::wostream& writeTo(std::wostream& out) const override;
    std::istream& readFrom(std::istream& in) override;
    std::wistream& readFrom(std::wistream& in) override;

private:
    T m_value;
};

extern template class TBasicElement<bool>;
extern template class TBasicElement<BasicNumber>;
extern template class TBasicElement<std::string>;

}  // namespace zo::Tessera

#endif
