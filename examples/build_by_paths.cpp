// Builds a document from an empty object by paths alone.

#include <iostream>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    Dom document;
    document.setRoot(object());
    Element& root = *document.root();

    // What is missing on the way is created: objects within an object.
    root.tryUpdate("shop.name", value("Corner"));
    root.tryUpdate("shop.address.city", value("Ulm"));

    // "[*]" appends. The array itself must be there: on the way to it an object would be made.
    root.tryUpdate("shop.articles", array());
    for (const char* name : {"cup", "plate"}) {
        Element& article = root.tryUpdate("shop.articles[*]", object());
        article.tryUpdate("name", value(name));
        article.tryUpdate("stock", value(0));
    }

    // What exists is given the new value, which must be of its own kind, in its place.
    root.tryUpdate("shop.articles[1].stock", value(12));

    // Within an array arrays are created.
    root.tryUpdate("shop.grid", array());
    root.tryUpdate("shop.grid[*][*]", value(1));
    root.tryUpdate("shop.grid[0][*]", value(2));

    // createElement creates too, but leaves what exists as it is.
    Path::createElement(root, "shop.name", *value("Another"));
    Path::createElement(root, "shop.opened", *value(1987));

    // What cannot be created throws: an array is never padded.
    try {
        root.tryUpdate("shop.articles[9].name", value("spoon"));
    } catch (const Exception& error) {
        std::cout << error.what() << '\n';
    }

    // insertElement walks nothing: its text is the name of one member.
    root.insertElement("shop.name", value("a member with a dot"));

    std::cout << document;
}
