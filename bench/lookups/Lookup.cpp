#include "lookups/Lookup.h"

#include <algorithm>
#include <string_view>

namespace {

/// Made at its first use: the constants of other sources may come before those of this one.
std::vector<Library>& known() {
    static std::vector<Library> all;
    return all;
}

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

std::vector<Library> libraries() {
    std::vector<Library> all = known();
    std::sort(all.begin(), all.end(), [](const Library& left, const Library& right) {
        return std::string_view(left.name) < right.name;
    });
    return all;
}

KnownLibrary::KnownLibrary(Library library) {
    known().push_back(library);
}
