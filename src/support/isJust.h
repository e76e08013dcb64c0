#ifndef ZO_TESSERA_SRC_SUPPORT_ISJUST_H
#define ZO_TESSERA_SRC_SUPPORT_ISJUST_H

#include <typeinfo>

namespace zo::Tessera {

/// Whether the object is of this very class, whose operations are known then. A copy of the class
/// that another shared library has is not told from one of the application's own.
template <class Class, class Base>
bool isJust(const Base& object) {
    return &typeid(object) == &typeid(Class);
}

}  // namespace zo::Tessera

#endif
