#ifndef ZO_TESSERA_SRC_VALUE_MODEL_KINDNAME_H
#define ZO_TESSERA_SRC_VALUE_MODEL_KINDNAME_H

#include <zo/Tessera/EType.h>

#include "support/asciiText.h"

namespace zo::Tessera {

/// The enumerator's name, and ">>INVALID<<" for any other value.
Ascii kindName(EType type);

}  // namespace zo::Tessera

#endif
