#include "documents/jsonText.h"

#include <algorithm>
#include <array>

#include "support/utf8Text.h"

namespace zo::Tessera {

namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// Takes the first character off `text` if it is `character`.
bool take(std::string_view& text, char character) {
    const bool found = !text.empty() && text.front() == character;
    text.remove_prefix(found ? 1 : 0);
    return found;
}

/// Takes the digits off that `text` begins with. Whether there are any.
bool takeDigits(std::string_view& text) {
    const auto* const end = std::find_if_not(text.begin(), text.end(), isDigit);
    const bool found = end != text.begin();
    text.remove_prefix(static_cast<size_t>(end - text.begin()));
    return found;
}

using Bytes = std::array<bool, 256>;

/// The bytes that are escaped: some whatever the options, and those from `limit` on.
constexpr Bytes escapedBytes(size_t limit) {
    Bytes escaped{};
    for (size_t byte = 0; byte < escaped.size(); ++byte) {
        escaped[byte] = byte < 0x20 || byte == '"' || byte == '\\' || byte >= limit;
    }
    return escaped;
}

size_t lengthWithoutEscapes(std::string_view text, bool escapeNonAscii) {
    static constexpr Bytes k_always = escapedBytes(0x100);
    static constexpr Bytes k_withNonAscii = escapedBytes(0x80);
    const Bytes& escaped = escapeNonAscii ? k_withNonAscii : k_always;
    const auto* const end = std::find_if(text.begin(), text.end(), [&escaped](char byte) {
        return escaped[static_cast<unsigned char>(byte)];
    });
    return static_cast<size_t>(end - text.begin());
}

/// Appends one unit of UTF-16.
void appendUnit(std::string& out, char32_t unit) {
    constexpr std::string_view k_hexDigits = "0123456789ABCDEF";
    out += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) {
        out += k_hexDigits[(unit >> shift) & 0xF];
    }
}

void appendEscape(std::string& out, char32_t codePoint) {
    constexpr std::string_view k_named = "\"\\\b\f\n\r\t";
    constexpr std::string_view k_names = "\"\\bfnrt";
    constexpr char32_t k_firstOfPairs = 0x10000;
    if (codePoint >= k_firstOfPairs) {
        const char32_t offset = codePoint - k_firstOfPairs;
        appendUnit(out, 0xD800 + (offset >> 10));
        appendUnit(out, 0xDC00 + (offset & 0x3FF));
        return;
    }
    const size_t name =
        codePoint < 0x80 ? k_named.find(static_cast<char>(codePoint)) : std::string_view::npos;
    if (name == std::string_view::npos) {
        appendUnit(out, codePoint);
        return;
    }
    out += '\\';
    out += k_names[name];
}

}  // namespace

bool isJsonNumber(std::string_view text) {
    take(text, '-');
    if (!take(text, '0') && !takeDigits(text)) {
        return false;
    }
    if (take(text, '.') && !takeDigits(text)) {
        return false;
    }
    if (take(text, 'e') || take(text, 'E')) {
        if (!take(text, '+')) {
            take(text, '-');
        }
        if (!takeDigits(text)) {
            return false;
        }
    }
    return text.empty();
}

void appendJsonString(std::string& out, std::string_view text, bool escapeNonAscii) {
    out += '"';
    while (!text.empty()) {
        const size_t length = lengthWithoutEscapes(text, escapeNonAscii);
        out += text.substr(0, length);
        text.remove_prefix(length);
        if (!text.empty()) {
            appendEscape(out, takeCodePoint(text));
        }
    }
    out += '"';
}

}  // namespace zo::Tessera
