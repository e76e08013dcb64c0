#include "agreement/RandomTexts.h"

#include <algorithm>
#include <string_view>

std::string RandomTexts::document() {
    // A blank behind it, for a number at the very end is not read.
    return blank() + value(0) + "\n" + blank();
}

std::string RandomTexts::mutated(std::string text) {
    for (size_t changes = 1 + below(4); changes > 0 && !text.empty(); --changes) {
        const size_t place = below(text.size());
        switch (below(5)) {
            case 0:
                text.erase(place, 1 + below(3));
                break;
            case 1:
                text[place] = byte();
                break;
            case 2:
                text.insert(place, 1, byte());
                break;
            case 3:
                text.insert(below(text.size()), text.substr(place, 1 + below(8)));
                break;
            default:
                if (below(4) == 0) {
                    text.erase(place);
                }
        }
    }
    return text;
}

const char* RandomTexts::oneOf(const std::vector<const char*>& choices) {
    return choices[below(choices.size())];
}

std::string RandomTexts::blank() {
    return oneOf({"", "", "", " ", "\n", "\t", "\r\n  "});
}

std::string RandomTexts::digits(size_t most) {
    std::string text;
    for (size_t count = 1 + below(most); count > 0; --count) {
        text += static_cast<char>('0' + below(10));
    }
    return text;
}

std::string RandomTexts::number() {
    if (below(8) == 0) {
        return oneOf({"0", "-0", "0.0", "-0.0", "0e0", "-0E+5", "9223372036854775807",
                      "9999999999999999999", "-99999999999999999", "1e308",
                      "2.2250738585072014e-308", "1.7976931348623157e308", "0.1",
                      "123456789012345678901234567890.5"});
    }
    std::string text = below(2) == 0 ? "-" : "";
    text += below(4) == 0 ? "0" : std::to_string(1 + below(9)) + (below(2) == 0 ? digits(15) : "");
    if (below(3) == 0) {
        text += "." + digits(20);
    }
    if (below(4) == 0) {
        text += oneOf({"e", "E", "e+", "E+", "e-", "E-"}) + digits(2);
    }
    return text;
}

std::string RandomTexts::string(size_t mostPieces) {
    std::string text = "\"";
    for (size_t count = below(mostPieces + 1); count > 0; --count) {
        text += oneOf({"a",
                       "B",
                       "7",
                       " ",
                       "/",
                       "plain text",
                       "\x7F",
                       "\\\"",
                       "\\\\",
                       "\\/",
                       "\\b",
                       "\\f",
                       "\\n",
                       "\\r",
                       "\\t",
                       "\\u0000",
                       "\\u001F",
                       "\\u00e9",
                       "\\u20AC",
                       "\\uFFFF",
                       "\\ud83d\\uDE00",
                       "\\uDBFF\\uDFFF",
                       "\xC3\xA4",
                       "\xC2\x80",
                       "\xE2\x82\xAC",
                       "\xEF\xBF\xBF",
                       "\xF0\x9F\x98\x80",
                       "\xF4\x8F\xBF\xBF",
                       "[",
                       "{",
                       "}",
                       "]",
                       ",",
                       ":",
                       "//"});
    }
    return text + '"';
}

/// No two places have the same.
std::string RandomTexts::key(size_t place) {
    const std::string text = string(3);
    return place == 0 ? text : "\"" + std::to_string(place) + text.substr(1);
}

std::string RandomTexts::container(size_t depth) {
    const bool isObject = below(2) == 0;
    std::string text = isObject ? "{" : "[";
    const size_t size = depth > 0 && below(3) == 0 ? 0 : below(7);
    for (size_t place = 0; place < size; ++place) {
        text += (place > 0 ? "," : "") + blank();
        text += isObject ? key(place) + blank() + ":" + blank() : "";
        text += value(depth + 1) + blank();
    }
    return text + blank() + (isObject ? "}" : "]");
}

std::string RandomTexts::value(size_t depth) {
    const size_t deepest = 6;
    const size_t kind = below(depth == 0 ? 16 : 10);
    if (kind == 0) {
        return oneOf({"null", "true", "false"});
    }
    if (kind < 3) {
        return number();
    }
    if (kind < 5 || depth == deepest) {
        return string(6);
    }
    return container(depth);
}

char RandomTexts::byte() {
    static constexpr std::string_view telling =
        "[]{},:\"\\/ \n\t0123456789-+.eEtrufalsn\v\f*#'\x7F";
    return below(3) == 0 ? static_cast<char>(below(256)) : telling[below(telling.size())];
}
