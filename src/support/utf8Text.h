#ifndef ZO_TESSERA_SRC_SUPPORT_UTF8TEXT_H
#define ZO_TESSERA_SRC_SUPPORT_UTF8TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

namespace zo::Tessera {

/// Where the first sequence in `text` begins that is not UTF-8, or `npos`. Overlong forms,
/// surrogates and what lies beyond U+10FFFF are none; neither is a sequence that the end of `text`
/// cuts off. Linear, and fast over ASCII. Does not throw.
size_t findInvalidUtf8(std::string_view text) noexcept;

/// Whether a text whose last part is `rest` can become UTF-8 by going on. `rest` begins where
/// `findInvalidUtf8` says; if it is cut off, it has three bytes at most. Does not throw.
bool isCutOffUtf8(std::string_view rest) noexcept;

/// Takes the first code point off `text`, which must be UTF-8 and not empty.
char32_t takeCodePoint(std::string_view& text) noexcept;

/// `text` with U+FFFD in place of each sequence that is not UTF-8: a first byte with the
/// continuation bytes behind it, or a byte that cannot come first. Linear.
std::string withoutInvalidUtf8(std::string_view text);

}  // namespace zo::Tessera

#endif
