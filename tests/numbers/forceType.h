#ifndef ZO_TESSERA_TESTS_NUMBERS_FORCETYPE_H
#define ZO_TESSERA_TESTS_NUMBERS_FORCETYPE_H

#include <cstring>
#include <string>
#include <type_traits>

#include <zo/Tessera/BasicNumber.h>

/// Gives `number` a binary type that no operation sets. The type is the first field of a class of
/// standard layout, so the object begins with it.
inline void forceType(zo::Tessera::BasicNumber& number,
                      zo::Tessera::BasicNumber::EBinaryType type) {
    static_assert(std::is_standard_layout_v<zo::Tessera::BasicNumber>);
    std::memcpy(static_cast<void*>(&number), &type, sizeof(type));
}

inline zo::Tessera::BasicNumber numberOfType(int type, const std::string& text) {
    zo::Tessera::BasicNumber number;
    number.set(text);
    forceType(number, static_cast<zo::Tessera::BasicNumber::EBinaryType>(type));
    return number;
}

inline zo::Tessera::BasicNumber bigDecimal(const std::string& text) {
    return numberOfType(zo::Tessera::BasicNumber::ebBigDecimal, text);
}

#endif
