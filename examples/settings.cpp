// Keeps settings beside the schema that describes them, and reads each with its default.

#include <iostream>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    // The schema describes members under "properties" and all items of an array under "items".
    const Dom document = readDocument(R"({
        "window": {"width": 800},
        "files": [{"name": "a.txt"}, {"name": "b.txt", "readOnly": true}],
        "meta": {"schema": {"properties": {
            "window": {"properties": {
                "width": {"default": 640},
                "title": {"default": "untitled"}
            }},
            "files": {"items": {"properties": {
                "readOnly": {"default": false}
            }}}
        }}}
    })");
    const Element& root = *document.root();

    const auto show = [](const Element& from, const Path& path) {
        std::cout << path << ": ";
        from.getUsingDefault(path).writeTo(std::cout) << '\n';
    };
    std::cout << std::boolalpha;
    show(root, "window.width");
    show(root, "window.title");
    show(root, "files[0].readOnly");
    show(root, "files[1].readOnly");

    // The path may begin at any element: the schema is found from the root all the same.
    show(root.get("files[0]"), "readOnly");

    const auto width = root.getDefault("window.width").as<int>();
    std::cout << "window.width would be " << width << '\n';

    // Without a default there is an exception, even where the setting exists.
    try {
        root.getUsingDefault("files[0].name");
    } catch (const PathNotFound& missing) {
        std::cout << "no default at " << missing.path() << '\n';
    }

    // Writing can leave the meta member out, and the schema with it.
    WriteOptions options;
    options.includeMeta = false;
    writeDocument(std::cout, document, options);
}
