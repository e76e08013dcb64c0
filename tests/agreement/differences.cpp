#include "agreement/differences.h"

#include <charconv>
#include <string_view>
#include <system_error>

#include <zo/convert.h>

namespace {

constexpr std::string_view k_wordCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-.";
constexpr std::string_view k_numberCharacters = "0123456789+-.eE";

/// The text with "" in place of each string, and with its opening quote alone if it has no end.
std::string withoutStrings(const std::string& text) {
    std::string rest;
    bool inString = false;
    for (size_t i = 0; i < text.size(); ++i) {
        if (inString && text[i] == '\\') {
            ++i;
        } else if (text[i] == '"') {
            inString = !inString;
            rest += '"';
        } else if (!inString) {
            rest += text[i];
        }
    }
    return rest;
}

size_t count(const std::string& text, char character) {
    size_t result = 0;
    for (const char c : text) {
        result += c == character ? 1 : 0;
    }
    return result;
}

/// The stretches of `text` that consist of `characters`.
std::vector<std::string> stretches(const std::string& text, std::string_view characters) {
    std::vector<std::string> result;
    size_t start = text.find_first_of(characters);
    while (start != std::string::npos) {
        const size_t end = text.find_first_not_of(characters, start);
        result.push_back(text.substr(start, end - start));
        start = text.find_first_of(characters, end);
    }
    return result;
}

bool hasComment(const std::string& text) {
    return withoutStrings(text).find('/') != std::string::npos;
}

bool isNotUtf8(const std::string& text) {
    return zo::convert(zo::wconvert(text)) != text;
}

bool beginsWithByteOrderMark(const std::string& text) {
    return text.compare(0, 3, "\xEF\xBB\xBF") == 0;
}

bool hasZeroByte(const std::string& text) {
    return text.find('\0') != std::string::npos;
}

bool hasOtherBlanks(const std::string& text) {
    return withoutStrings(text).find_first_of("\v\f") != std::string::npos;
}

bool isIncomplete(const std::string& text) {
    const std::string rest = withoutStrings(text);
    return rest.find_first_not_of(" \t\r\n") == std::string::npos || count(rest, '"') % 2 != 0 ||
           count(rest, '[') + count(rest, '{') > count(rest, ']') + count(rest, '}');
}

bool endsWithWord(const std::string& text) {
    return !text.empty() && k_wordCharacters.find(text.back()) != std::string_view::npos;
}

/// The code unit of the escape at `place`, or 0 if there is none.
unsigned int escapedUnit(const std::string& text, size_t place) {
    unsigned int unit = 0;
    if (text.compare(place, 2, "\\u") == 0 && place + 6 <= text.size()) {
        std::from_chars(text.data() + place + 2, text.data() + place + 6, unit, 16);
    }
    return unit;
}

bool hasLoneSurrogate(const std::string& text) {
    for (size_t i = 0; i < text.size(); i += text[i] == '\\' ? 2 : 1) {
        const unsigned int unit = escapedUnit(text, i);
        if (unit >= 0xD800 && unit <= 0xDFFF) {
            const unsigned int next = escapedUnit(text, i + 6);
            if (unit >= 0xDC00 || next < 0xDC00 || next > 0xDFFF) {
                return true;
            }
            i += 6;
        }
    }
    return false;
}

bool hasLongInteger(const std::string& text) {
    for (const std::string& number : stretches(withoutStrings(text), k_numberCharacters)) {
        const bool isInteger = number.find_first_of(".eE") == std::string::npos;
        if (isInteger && number.size() >= (number.front() == '-' ? 19U : 20U)) {
            return true;
        }
    }
    return false;
}

bool hasDoubleOutOfRange(const std::string& text) {
    for (const std::string& number : stretches(withoutStrings(text), k_numberCharacters)) {
        double value = 0;
        if (std::from_chars(number.data(), number.data() + number.size(), value).ec ==
            std::errc::result_out_of_range) {
            return true;
        }
    }
    return false;
}

}  // namespace

const std::vector<Difference>& differences() {
    static const std::vector<Difference> all = {
        {"comment", hasComment},
        {"no-utf-8", isNotUtf8},
        {"byte-order-mark", beginsWithByteOrderMark},
        {"zero-byte", hasZeroByte},
        {"other-blanks", hasOtherBlanks},
        {"incomplete", isIncomplete},
        {"word-at-end", endsWithWord},
        {"lone-surrogate", hasLoneSurrogate},
        {"long-integer", hasLongInteger},
        {"double-out-of-range", hasDoubleOutOfRange},
    };
    return all;
}

std::string differencesOf(const std::string& text) {
    std::string names;
    for (const Difference& difference : differences()) {
        if (difference.holdsFor(text)) {
            names += std::string(difference.name) + ' ';
        }
    }
    return names;
}
