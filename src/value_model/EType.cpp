#include <zo/Tessera/EType.h>

#include <string_view>

#include "value_model/kindName.h"

namespace zo::Tessera {

Ascii kindName(EType type) {
    // The first kind is -1. The last entry answers for the value after the last kind.
    static constexpr std::string_view k_names[] = {"etEmpty",  "etNull",     "etBoolean",
                                                   "etNumber", "etString",   "etObject",
                                                   "etArray",  ">>INVALID<<"};
    return enumName(k_names, static_cast<long>(type) + 1, ">>INVALID<<");
}

std::ostream& operator<<(std::ostream& out, EType type) {
    return out << kindName(type);
}

std::wostream& operator<<(std::wostream& out, EType type) {
    return out << kindName(type);
}

}  // namespace zo::Tessera
