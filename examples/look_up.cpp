// Looks things up by path, and handles what is missing.

#include <iostream>
#include <string>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    Dom document = readDocument(R"({
        "title": "Cup",
        "sizes": [{"name": "small", "price": 1.50}, {"name": "large", "price": 2.25}],
        "v1.2": {"done": true}
    })");
    Element& root = *document.root();

    // What must be there: get, which throws what names the path and the segment.
    const auto title = root.get("title").as<std::string>();
    const auto price = root.get("sizes[1].price").as<double>();
    std::cout << title << ", large: " << price << '\n';
    try {
        root.get("sizes[2].price");
    } catch (const PathNotFound& missing) {
        std::cout << "no " << missing.key() << " in " << *missing.elementPath() << ", asked for "
                  << missing.path() << '\n';
    }

    // What may be there: a test, or a pointer that may be null. The kind can be asked for at once.
    std::cout << std::boolalpha << "sizes[0].colour: " << root.pathExists("sizes[0].colour") << '\n'
              << "sizes, an array: " << root.pathExists("sizes", etArray) << '\n';
    if (const Element* const name = Path::tryGetElement("sizes[0].name", root, etString)) {
        std::cout << name->path(nullptr) << ": " << name->as<std::string>() << '\n';
    }

    // The same for a value: nothing where it is of another kind or does not fit.
    std::cout << "sizes[0].price in whole: " << root.get("sizes[0].price").tryAs<int>().value_or(-1)
              << '\n';

    // A path may begin at any element. What means something in a path stands after a backslash when
    // it belongs to a key; path() writes it so.
    Element& small = root.get("sizes[0]");
    std::cout << small.get("name").path(nullptr) << " is "
              << small.get("name").path(&root.get("sizes")) << " seen from sizes\n";
    const bool done = root.get(R"(v1\.2.done)").as<bool>();
    std::cout << root.at("v1.2").at("done").path(nullptr) << ": " << done << '\n';

    // A text that is no path is an error, not an answer.
    try {
        root.pathExists("sizes[one]");
    } catch (const ParseException& error) {
        std::cout << error.message() << '\n';
    }
}
