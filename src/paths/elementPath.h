#ifndef ZO_TESSERA_SRC_PATHS_ELEMENTPATH_H
#define ZO_TESSERA_SRC_PATHS_ELEMENTPATH_H

#include <zo/Tessera/Element.h>
#include <zo/Tessera/PathGenerator.h>

namespace zo::Tessera {

/// Write the path of `element`, respectively its schema path, from below `root`, as
/// `Path::elementPath` and `Path::elementSchemaPath` do.
/// @{
void generatePath(PathGenerator path, const Element& element, const Element* root);
void generateSchemaPath(PathGenerator path, const Element& element, const Element* root);
/// @}

}  // namespace zo::Tessera

#endif
