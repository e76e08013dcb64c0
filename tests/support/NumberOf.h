#ifndef ZO_TESSERA_TESTS_SUPPORT_NUMBEROF_H
#define ZO_TESSERA_TESTS_SUPPORT_NUMBEROF_H

#include <zo/Tessera/BasicNumber.h>

/// A number set from a text or a built-in value.
template <class T>
zo::Tessera::BasicNumber numberOf(T value) {
    zo::Tessera::BasicNumber number;
    number.set(value);
    return number;
}

#endif
