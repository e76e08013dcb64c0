#include "paths.h"

namespace {

std::string pointerToken(const Segment& segment) {
    if (const auto* const index = std::get_if<std::size_t>(&segment)) {
        return std::to_string(*index);
    }
    std::string token;
    for (const char c : std::get<std::string>(segment)) {
        switch (c) {
            case '~':
                token += "~0";
                break;
            case '/':
                token += "~1";
                break;
            default:
                token += c;
        }
    }
    return token;
}

}  // namespace

std::string pointerText(const Segments& segments) {
    std::string text;
    for (const Segment& segment : segments) {
        text += '/' + pointerToken(segment);
    }
    return text;
}
