#ifndef ZO_TESSERA_TESTS_PARSING_STATEOF_H
#define ZO_TESSERA_TESTS_PARSING_STATEOF_H

#include <string>

#include <zo/Tessera/Dom.h>

#include "support/dump.h"

/// The tree of a document and its settings.
inline std::string stateOf(const zo::Tessera::Dom& dom) {
    return (dom.root() ? dump(*dom.root()) : "no root\n") +
           (dom.includeMeta() ? "with " : "without ") + dom.metaKey();
}

#endif
