#ifndef ZO_TESSERA_TESTS_SUPPORT_INPLACE_H
#define ZO_TESSERA_TESTS_SUPPORT_INPLACE_H

#include <string>

#include "support/dump.h"
#include "support/parsed.h"

/// The whole state (see `dump`) of the tree that a JSON text describes, every element of it in its
/// place.
inline std::string inPlace(const std::string& json) {
    // What follows a number ends it.
    return dump(*parsed(json + '\n'));
}

#endif
