#include "support/utf8Text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>

#include <utf8.h>

namespace zo::Tessera {

namespace {

constexpr size_t k_longestSequence = 4;
constexpr char32_t k_replacement = 0xFFFD;

bool isAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// Where the first byte at or behind `begin` stands that is not ASCII.
const char* skipAscii(const char* begin, const char* end) {
    constexpr std::uint64_t k_highBits = 0x8080808080808080;
    std::uint64_t bytes = 0;
    while (static_cast<size_t>(end - begin) >= sizeof(bytes)) {
        std::memcpy(&bytes, begin, sizeof(bytes));
        if ((bytes & k_highBits) != 0) {
            break;
        }
        begin += sizeof(bytes);
    }
    return std::find_if_not(begin, end, isAscii);
}

bool isSequence(const char* begin, size_t length) {
    return utf8::find_invalid(begin, begin + length) == begin + length;
}

/// Whether continuation bytes `filler` make `start` a whole sequence.
bool isCompletedBy(char filler, std::string_view start) {
    std::array<char, k_longestSequence> sequence{};
    sequence.fill(filler);
    start.copy(sequence.data(), sequence.size());
    for (size_t length = start.size() + 1; length <= sequence.size(); ++length) {
        if (isSequence(sequence.data(), length)) {
            return true;
        }
    }
    return false;
}

}  // namespace

size_t findInvalidUtf8(std::string_view text) noexcept {
    const char* const end = text.data() + text.size();
    const char* begin = skipAscii(text.data(), end);
    while (begin != end) {
        // No sequence goes on behind an ASCII byte.
        const char* const runEnd = std::find_if(begin, end, isAscii);
        const char* const invalid = utf8::find_invalid(begin, runEnd);
        if (invalid != runEnd) {
            return static_cast<size_t>(invalid - text.data());
        }
        begin = skipAscii(runEnd, end);
    }
    return std::string_view::npos;
}

bool isCutOffUtf8(std::string_view rest) noexcept {
    // Some first bytes bound their second byte from above, others from below.
    return isCompletedBy('\x80', rest) || isCompletedBy('\xBF', rest);
}

char32_t takeCodePoint(std::string_view& text) noexcept {
    const char* position = text.data();
    const char32_t codePoint = utf8::unchecked::next(position);
    text.remove_prefix(static_cast<size_t>(position - text.data()));
    return codePoint;
}

std::string withoutInvalidUtf8(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(result), k_replacement);
    return result;
}

}  // namespace zo::Tessera
