#ifndef ZO_TESSERA_TESTS_PATHS_OWNKINDS_H
#define ZO_TESSERA_TESTS_PATHS_OWNKINDS_H

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

/// The application's own kinds.
/// @{
class OwnArray : public zo::Tessera::Array {};
class OwnObject : public zo::Tessera::Object {};

/// Says to be of a kind that there is not.
class OddObject : public zo::Tessera::Object {
public:
    zo::Tessera::EType type() const override { return static_cast<zo::Tessera::EType>(6); }
};

/// Cannot be cloned: throws the int 1.
class Uncloneable : public zo::Tessera::TBasicElement<bool> {
public:
    Uncloneable() : TBasicElement(true) {}
    Uncloneable* clone() const override { throw 1; }
};
/// @}

#endif
