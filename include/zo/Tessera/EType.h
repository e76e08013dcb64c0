#ifndef ZO_TESSERA_ETYPE_H
#define ZO_TESSERA_ETYPE_H

#include <iosfwd>

#include <zo/Tessera/export.h>

namespace zo::Tessera {

/// The kind of an element. Elements of different kinds are ordered by these values.
enum ZO_TESSERA_EXPORT EType : int {
    etEmpty = -1,  ///< no element, or not yet known
    etNull = 0,
    etBoolean = 1,
    etNumber = 2,
    etString = 3,
    etObject = 4,
    etArray = 5
};

/// Writes the enumerator's name, such as "etObject", and ">>INVALID<<" for any other value.
/// @{
ZO_TESSERA_EXPORT std::ostream& operator<<(std::ostream& out, EType type);
ZO_TESSERA_EXPORT std::wostream& operator<<(std::wostream& out, EType type);
/// @}

}  // namespace zo::Tessera

#endif
