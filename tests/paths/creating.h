#ifndef ZO_TESSERA_TESTS_PATHS_CREATING_H
#define ZO_TESSERA_TESTS_PATHS_CREATING_H

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Path.h>

/// The two operations that create what a path leads to, as one that answers a pointer.
/// @{
using Create = zo::Tessera::Element* (*)(zo::Tessera::Element& root, const zo::Tessera::Path& path,
                                         const zo::Tessera::Element& value);

inline constexpr Create k_bothCreate[] = {
    [](zo::Tessera::Element& root, const zo::Tessera::Path& path,
       const zo::Tessera::Element& value) {
        return &zo::Tessera::Path::createElement(root, path, value);
    },
    &zo::Tessera::Path::tryCreateElement};
/// @}

#endif
