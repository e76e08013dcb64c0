#ifndef ZO_TESSERA_SRC_DOCUMENTS_REPLACEFILE_H
#define ZO_TESSERA_SRC_DOCUMENTS_REPLACEFILE_H

#include <filesystem>
#include <string_view>

namespace zo::Tessera {

/// Makes `text` the contents of `file`, whole or not at all, as `writeDocumentFile` describes it.
void replaceFile(const std::filesystem::path& file, std::string_view text);

}  // namespace zo::Tessera

#endif
