#include "documents/suspects.h"

#include <algorithm>
#include <charconv>

namespace zo::Tessera {

namespace {

constexpr size_t k_escapeLength = 6;  // of \uXXXX

/// What begins with a backslash.
enum EEscape { esOther, esCutOff, esFirstHalf, esSecondHalf };

EEscape escapeAt(std::string_view text) {
    if (text.size() < 2) {
        return esCutOff;
    }
    if (text[1] != 'u') {
        return esOther;
    }
    unsigned int unit = 0;
    const size_t length = std::min(text.size(), k_escapeLength);
    const auto [end, error] = std::from_chars(text.data() + 2, text.data() + length, unit, 16);
    if (end != text.data() + length) {
        return esOther;  // an error, which the tokeniser tells
    }
    if (length < k_escapeLength) {
        return esCutOff;
    }
    if (unit < 0xD800 || unit > 0xDFFF) {
        return esOther;
    }
    return unit < 0xDC00 ? esFirstHalf : esSecondHalf;
}

/// What begins with a backslash, as a suspect or none, and how long it is.
struct Escape {
    ESuspect kind;
    size_t length;
};

/// A first half, and what follows it.
Escape examinePair(std::string_view text) {
    const std::string_view rest = text.substr(k_escapeLength);
    if (rest.empty()) {
        return {suCutOff, text.size()};
    }
    switch (rest.front() == '\\' ? escapeAt(rest) : esOther) {
        case esSecondHalf:
            return {suNone, 2 * k_escapeLength};
        case esCutOff:
            return {suCutOff, text.size()};
        default:
            return {suHalfPair, k_escapeLength};
    }
}

Escape examineEscape(std::string_view text) {
    switch (escapeAt(text)) {
        case esFirstHalf:
            return examinePair(text);
        case esSecondHalf:
            return {suHalfPair, k_escapeLength};
        case esCutOff:
            return {suCutOff, text.size()};
        default:
            return {suNone, 2};
    }
}

size_t findOddBlank(std::string_view text) {
    return std::min({text.find('\v'), text.find('\f'), text.size()});
}

}  // namespace

Suspect findSuspect(std::string_view text, size_t start, bool withOddBlanks) {
    // In blocks, so that the search for one kind does not run far beyond the others.
    constexpr size_t blockLength = 4096;
    size_t at = start;
    while (at < text.size()) {
        const std::string_view block = text.substr(at, blockLength);
        const std::string_view plain = block.substr(0, block.find('\\'));
        const size_t oddBlank = withOddBlanks ? findOddBlank(plain) : plain.size();
        if (oddBlank < plain.size()) {
            return {suOddBlank, at + oddBlank};
        }
        at += plain.size();
        if (plain.size() < block.size()) {
            const Escape escape = examineEscape(text.substr(at));
            if (escape.kind != suNone) {
                return {escape.kind, at};
            }
            at += escape.length;
        }
    }
    return {suNone, text.size()};
}

}  // namespace zo::Tessera
