#ifndef ZO_TESSERA_TESTS_GENERATION_KINDONLY_H
#define ZO_TESSERA_TESTS_GENERATION_KINDONLY_H

#include <istream>
#include <ostream>

#include <zo/Tessera/Element.h>

/// An application's own element, of whatever kind it claims to be and without a value.
class KindOnly : public zo::Tessera::Element {
public:
    explicit KindOnly(int kind) : m_kind(static_cast<zo::Tessera::EType>(kind)) {}

    KindOnly* clone() const override { return new KindOnly(*this); }
    zo::Tessera::EType type() const override { return m_kind; }
    size_t size() const override { return 0; }
    std::ostream& writeTo(std::ostream& out) const override { return out; }
    std::wostream& writeTo(std::wostream& out) const override { return out; }
    std::istream& readFrom(std::istream& in) override { return in; }
    std::wistream& readFrom(std::wistream& in) override { return in; }

private:
    zo::Tessera::EType m_kind;
};

#endif
