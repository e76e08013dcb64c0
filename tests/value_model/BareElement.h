#ifndef ZO_TESSERA_TESTS_VALUE_MODEL_BAREELEMENT_H
#define ZO_TESSERA_TESTS_VALUE_MODEL_BAREELEMENT_H

#include <istream>
#include <ostream>
#include <string>

#include <zo/Tessera/Element.h>

/// Overrides what `Element` leaves pure and nothing else, so that it shows the base's defaults.
/// It says to be of whatever kind the test wants.
class BareElement : public zo::Tessera::Element {
public:
    explicit BareElement(zo::Tessera::EType type) : m_type(type) {}
    BareElement(zo::Tessera::EType type, Element* parent, const std::string& key)
        : Element(parent, key), m_type(type) {}
    BareElement(zo::Tessera::EType type, Element* parent) : Element(parent), m_type(type) {}
    BareElement(const BareElement&) = default;

    BareElement* clone() const override { return new BareElement(*this); }
    zo::Tessera::EType type() const override { return m_type; }
    size_t size() const override { return 0; }
    std::ostream& writeTo(std::ostream& out) const override { return out; }
    std::wostream& writeTo(std::wostream& out) const override { return out; }
    std::istream& readFrom(std::istream& in) override { return in; }
    std::wistream& readFrom(std::wistream& in) override { return in; }

private:
    zo::Tessera::EType m_type;
};

#endif
