#ifndef ZO_TESSERA_TESTS_PARSING_MOURNED_H
#define ZO_TESSERA_TESTS_PARSING_MOURNED_H

#include <zo/Tessera/Null.h>

/// A null that tells when it is deleted.
class Mourned : public zo::Tessera::Null {
public:
    explicit Mourned(bool& gone) : m_gone(gone) {}
    ~Mourned() override { m_gone = true; }

private:
    bool& m_gone;
};

#endif
