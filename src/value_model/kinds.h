#ifndef ZO_TESSERA_SRC_VALUE_MODEL_KINDS_H
#define ZO_TESSERA_SRC_VALUE_MODEL_KINDS_H

#include <zo/Tessera/Element.h>

namespace zo::Tessera {

/// How elements order by their kinds alone: 0 for one kind, otherwise the sign of the difference.
inline int compareKinds(const Element& left, const Element& right) {
    const EType leftKind = left.type();
    const EType rightKind = right.type();
    return leftKind == rightKind ? 0 : (leftKind > rightKind ? 1 : -1);
}

}  // namespace zo::Tessera

#endif
