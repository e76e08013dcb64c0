#ifndef ZO_CONVERT_H
#define ZO_CONVERT_H

#include <string>

#include <zo/export.h>

namespace zo {

/// Between wide text, one code point per `wchar_t`, and narrow text in UTF-8. Null characters are
/// kept. No locale has a say. Linear.
///
/// What is not valid becomes U+FFFD: on the wide side each surrogate and each value beyond
/// U+10FFFF, on the narrow side each malformed sequence (a first byte with the continuation bytes
/// that follow it, or a byte that cannot come first).
///
/// The pointer form reads up to the null character; a null pointer throws `zo::RuntimeError` "Null
/// pointer exception: text may not be null".
/// @{
ZO_CORE_EXPORT std::string convert(const std::wstring& text);
ZO_CORE_EXPORT std::string convert(const wchar_t* text);
ZO_CORE_EXPORT std::wstring wconvert(const std::string& text);
/// @}

}  // namespace zo

#endif
