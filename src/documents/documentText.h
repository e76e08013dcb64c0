#ifndef ZO_TESSERA_SRC_DOCUMENTS_DOCUMENTTEXT_H
#define ZO_TESSERA_SRC_DOCUMENTS_DOCUMENTTEXT_H

#include <string>

namespace zo::Tessera {

class Element;
struct WriteOptions;

/// The JSON text of `root`, which is left without its member `skippedKey` if that is given and
/// `root` an object. Throws as `writeDocument` does.
std::string documentText(const Element& root, const WriteOptions& options,
                         const std::string* skippedKey = nullptr);

}  // namespace zo::Tessera

#endif
