#ifndef ZO_TESSERA_SRC_PATHS_REQUIRED_H
#define ZO_TESSERA_SRC_PATHS_REQUIRED_H

#include <memory>
#include <string>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>

namespace zo::Tessera {

/// The element of the argument `name`, which must not be empty.
inline Element& required(const std::unique_ptr<Element>& argument, const char* name) {
    if (!argument) {
        throw Exception(std::string("Null pointer exception: ") + name + " may not be null");
    }
    return *argument;
}

}  // namespace zo::Tessera

#endif
