#include "libraries/Library.h"

#include <algorithm>

namespace {

constexpr const char* k_names[] = {
    "tessera", "yajl",   "yajl_tree", "nlohmann",       "nlohmann_ordered",
    "jsoncpp", "json-c", "rapidjson", "rapidjson_text", "boost",
};

/// Made at its first use: the constants of other sources may come before those of this one.
std::vector<Library>& known() {
    static std::vector<Library> all;
    return all;
}

const Library* find(const std::string& name) {
    const auto place = std::find_if(known().begin(), known().end(),
                                    [&](const Library& library) { return library.name == name; });
    return place == known().end() ? nullptr : &*place;
}

}  // namespace

std::vector<Library> libraries() {
    std::vector<Library> result;
    for (const char* const name : k_names) {
        if (const Library* const library = find(name)) {
            result.push_back(*library);
        }
    }
    return result;
}

std::vector<std::string> missingLibraries() {
    std::vector<std::string> result;
    for (const char* const name : k_names) {
        if (!find(name)) {
            result.emplace_back(name);
        }
    }
    return result;
}

KnownLibrary::KnownLibrary(const Library& library) {
    known().push_back(library);
}
