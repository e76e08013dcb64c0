#ifndef ZO_TESSERA_SRC_SUPPORT_ERRORTEXT_H
#define ZO_TESSERA_SRC_SUPPORT_ERRORTEXT_H

#include <cstring>
#include <string>

#include "support/classicLocale.h"

namespace zo::Tessera {

/// What the system says of the value of `errno`, in English whatever the locale.
inline std::string errorText(int error) {
    return strerror_l(error, classicCLocale());
}

}  // namespace zo::Tessera

#endif
