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

/// The text of `root` for people to read: on one line, with the reason between "<" and ">" in place
/// of what has no JSON form, and U+FFFD in place of what is not UTF-8.
std::string shownText(const Element& root);

}  // namespace zo::Tessera

#endif
