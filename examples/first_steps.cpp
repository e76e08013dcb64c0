#include <iostream>
#include <string>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    Dom document = readDocument(R"({"title": "Cup", "price": 1.50, "tags": ["new"]})");
    Element& root = *document.root();

    const auto title = root.get("title").as<std::string>();
    const auto price = root.get("price").as<double>();
    std::cout << title << " costs " << price << '\n';

    root.set("title", value("Large cup"));
    root.set("tags[*]", value("blue"));       // appended
    root.set("stock[0].city", value("Ulm"));  // created, on the way and at the end
    writeDocument(std::cout, document);

    try {
        readDocument(R"({"tags": ["new", ]})");
    } catch (const Exception& error) {
        std::cout << error.what() << '\n';
    }
}
