#ifndef ZO_TESSERA_SRC_SUPPORT_ASCIITEXT_H
#define ZO_TESSERA_SRC_SUPPORT_ASCIITEXT_H

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

namespace zo::Tessera {

/// Text of ASCII characters for streams of both widths. No locale has a say in how it is widened.
struct Ascii {
    std::string_view text;
};

inline std::ostream& operator<<(std::ostream& out, Ascii ascii) {
    return out << ascii.text;
}

inline std::wostream& operator<<(std::wostream& out, Ascii ascii) {
    return out << std::wstring(ascii.text.begin(), ascii.text.end());
}

/// The name at `index` in a table of enumerators' names, `other` outside of it.
template <std::size_t Size>
Ascii enumName(const std::string_view (&names)[Size], long index, std::string_view other) {
    const bool known = index >= 0 && index < static_cast<long>(Size);
    return {known ? names[index] : other};
}

}  // namespace zo::Tessera

#endif
