// Builds a document from an empty object by paths alone.

#include <iostream>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    Dom document;
    document.setRoot(object());
    Element& root = *document.root();

    // What is missing on the way is created: an object for a key, an array for an index.
    root.set("shop.name", value("Corner"));
    root.set("shop.address.city", value("Ulm"));

    // "[*]" appends, and set returns what it has put there.
    for (const char* name : {"cup", "plate"}) {
        Element& article = root.set("shop.articles[*]", object());
        article.set("name", value(name));
        article.set("stock", value(0));
    }
    root.set("shop.grid[*][*]", value(1));
    root.set("shop.grid[0][*]", value(2));

    // What exists is replaced, of whatever kind it is.
    root.set("shop.articles[1].stock", value(12));
    root.set("shop.address", value("Ulm"));

    // tryUpdate keeps the element and changes its value, which must be of its own kind.
    Element& stock = root.get("shop.articles[1].stock");
    root.tryUpdate("shop.articles[1].stock", value(11));
    std::cout << "the element itself now holds " << stock.as<int>() << '\n';

    // createElement creates too, but leaves what exists as it is.
    Path::createElement(root, "shop.name", *value("Another"));
    Path::createElement(root, "shop.opened", *value(1987));

    // An array is never padded. What cannot be created throws, and nothing is changed.
    try {
        root.set("shop.articles[9].name", value("spoon"));
    } catch (const PathNotFound& missing) {
        std::cout << "no " << missing.key() << " in " << *missing.elementPath() << '\n';
    }

    root.remove("shop.grid");
    writeDocument(std::cout, document);
}
