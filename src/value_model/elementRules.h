#ifndef ZO_TESSERA_SRC_VALUE_MODEL_ELEMENTRULES_H
#define ZO_TESSERA_SRC_VALUE_MODEL_ELEMENTRULES_H

#include <string>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>

#include "support/isJust.h"

/// \file
/// What the classes of elements do alike.

namespace zo::Tessera {

/// Orders `left` and `right` by their kinds. Only if both are of one kind, and not one element,
/// `compareValues` is asked.
template <class Class, class CompareValues>
int compareElements(const Class& left, const Element& right, const CompareValues& compareValues) {
    if (&left == &right) {
        return 0;
    }
    if (!isJust<Class>(left) || !isJust<Class>(right)) {
        const EType leftKind = left.type();
        const EType rightKind = right.type();
        if (leftKind != rightKind) {
            return leftKind > rightKind ? 1 : -1;
        }
    }
    return compareValues();
}

[[noreturn]] inline void refuseReading(const char* className) {
    // Callers match on this text.
    throw Exception(std::string("Reading from srteam not (yet) supported for Tessera::") +
                    className + '.');
}

}  // namespace zo::Tessera

#endif
