#ifndef ZO_TESSERA_TESTS_VALUE_MODEL_KINDMATRIX_H
#define ZO_TESSERA_TESTS_VALUE_MODEL_KINDMATRIX_H

#include <cstddef>
#include <string>

#include <zo/Tessera/Element.h>

#include "BareElement.h"

/// What each kind of element answers to the five typed getters: "self", or the requested kind that
/// its exception names. Setters and factories go through the getters and so share the table.
struct KindRow {
    const char* name;
    zo::Tessera::EType type;
    bool bare;  // a class that overrides no getter
    const char* found;
    const char* cells[5];  // boolean, number, string, object, array

    zo::Tessera::Element* make() const {
        return bare ? new BareElement(type) : zo::Tessera::Element::create(type);
    }
    bool isSelf(size_t getter) const { return std::string(cells[getter]) == "self"; }
    std::string mismatch(size_t getter, const std::string& path) const {
        return std::string("Json type mismatch! Requestet Json type: ") + cells[getter] +
               " Got Json type: " + found + " Current element: \"" + path + "\"";
    }
};

enum GetterIndex : size_t { gtBoolean, gtNumber, gtString, gtObject, gtArray };

// Some cells name another kind than the getter's own: callers match on these texts.
inline const KindRow k_kindRows[] = {
    {"Base",
     static_cast<zo::Tessera::EType>(6),
     true,
     ">>INVALID<<",
     {"etBoolean", "etNumber", "etString", "etObject", "etObject"}},
    {"Null",
     zo::Tessera::etNull,
     false,
     "etNull",
     {"etBoolean", "etNumber", "etString", "etObject", "etObject"}},
    {"Boolean",
     zo::Tessera::etBoolean,
     false,
     "etBoolean",
     {"self", "etBoolean", "etNumber", "etObject", "etArray"}},
    {"Number",
     zo::Tessera::etNumber,
     false,
     "etNumber",
     {"etBoolean", "self", "etNumber", "etObject", "etArray"}},
    {"String",
     zo::Tessera::etString,
     false,
     "etString",
     {"etBoolean", "etBoolean", "self", "etObject", "etArray"}},
    {"Object",
     zo::Tessera::etObject,
     false,
     "etObject",
     {"etBoolean", "etNumber", "etString", "self", "etObject"}},
    {"Array",
     zo::Tessera::etArray,
     false,
     "etArray",
     {"etBoolean", "etNumber", "etString", "etObject", "self"}},
};

#endif
