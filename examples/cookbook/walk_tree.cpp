// Walks a tree: one level of it by loops, all of it by visit.

#include <cstddef>
#include <iostream>
#include <string>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    const Dom document = readDocument(R"({
        "name": "Ada",
        "languages": ["en", "de"],
        "address": {"city": "Ulm", "zip": null}
    })");
    const Element& root = *document.root();

    // The members of an object.
    for (const auto& [key, member] : root.getObjectValue()) {
        std::cout << key << " is of kind " << member->type() << '\n';
    }

    // The items of an array.
    for (const Element* const item : root.get("languages").getArrayValue()) {
        std::cout << item->index() << ": " << item->as<std::string>() << '\n';
    }

    // All that is below an element, and itself, in the order of the text.
    visit(root, [](const Element& element, const Path& path) {
        if (element.type() == etString) {
            std::cout << path << " = " << element.as<std::string>() << '\n';
        }
        return path == "languages" ? evSkip : evGoOn;
    });

    // What is searched ends the walk.
    const bool walkedAll = visit(root, [](const Element& element, const Path& path) {
        if (element.type() != etNull) {
            return evGoOn;
        }
        std::cout << "first null: " << path << '\n';
        return evStop;
    });
    std::cout << (walkedAll ? "no null\n" : "");

    // A second visitor is called when what is below an element is done.
    std::size_t depth = 0;
    const auto enter = [&depth](const Element& element, const Path&) {
        std::cout << std::string(2 * depth++, ' ') << '"' << element.key() << "\"\n";
        return evGoOn;
    };
    const auto leave = [&depth](const Element&, const Path&) {
        --depth;
        return evGoOn;
    };
    visit(root, enter, leave);
}
