#ifndef ZO_TESSERA_SRC_DOCUMENTS_JSONTEXT_H
#define ZO_TESSERA_SRC_DOCUMENTS_JSONTEXT_H

#include <string>
#include <string_view>

namespace zo::Tessera {

/// Whether `text` is a number by JSON's own grammar, and nothing else stands around it.
bool isJsonNumber(std::string_view text);

/// Appends `text`, which must be UTF-8, between quotes, with the escapes that JSON asks for and,
/// with `escapeNonAscii`, one or two for each character beyond ASCII.
void appendJsonString(std::string& out, std::string_view text, bool escapeNonAscii);

}  // namespace zo::Tessera

#endif
