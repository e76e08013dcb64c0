#ifndef ZO_TESSERA_SRC_PATHS_LOOKUP_H
#define ZO_TESSERA_SRC_PATHS_LOOKUP_H

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Path.h>

namespace zo::Tessera {

/// What an `ElementGetter` that does not throw finds at the path, null for nothing; at less cost.
const Element* lookUp(const Path& path, const Element& root);

}  // namespace zo::Tessera

#endif
