// Reads settings with the defaults of a schema, which the program brings along.

#include <iostream>
#include <string>

#include <zo/Tessera.h>

using namespace zo::Tessera;

namespace {

constexpr const char* k_schema = R"({
    "properties": {
        "port": {"default": 80},
        "log": {"properties": {"level": {"default": "info"}}},
        "hosts": {"items": {"properties": {"secure": {"default": true}}}}
    }
})";

/// The element, or else its default, or else null. The path begins at the root.
const Element* findSetting(const Element& root, const Path& path) {
    const Element* const chosen = Path::tryGetElement(path, root);
    const Path ofDefault = Path::toSchemaPath(path) + '.' + Path::k_default;
    return chosen ? chosen : Path::tryGetElement(ofDefault, root);
}

}  // namespace

int main() {
    Dom document = readDocument(R"({"port": 8080, "hosts": [{"name": "a"}]})");
    Element& root = *document.root();
    root.set("meta.schema", readDocument(k_schema).takeRoot());
    document.setIncludeMeta(false);  // writing leaves it out

    std::cout << std::boolalpha << "port " << root.getUsingDefault("port").as<int>()
              << ", otherwise " << root.getDefault("port").as<int>() << '\n'
              << "level " << root.getUsingDefault("log.level").as<std::string>() << '\n'
              << "secure " << root.getUsingDefault("hosts[0].secure").as<bool>() << '\n';

    // The name of a host is there, but getUsingDefault wants a default, too.
    try {
        root.getUsingDefault("hosts[0].name");
    } catch (const PathNotFound& missing) {
        std::cout << "nothing at " << missing.path() << '\n';
    }
    for (const Path path : {"hosts[0].name", "hosts[0].secure", "hosts[0].port"}) {
        const Element* const found = findSetting(root, path);
        std::cout << path << ": " << (found ? writeDocument(*found) : "neither\n");
    }

    writeDocument(std::cout, document);
}
