#include <iostream>
#include <sstream>
#include <string>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    std::istringstream text(R"({"title": "Cup", "price": 1.50, "tags": ["new"]})");
    Dom document;
    text >> document;
    Element& root = *document.root();

    const std::string title = root.get("title");
    std::cout << title << " has " << root.get("tags").size() << " tag\n";

    root.tryUpdate("title", value("Large cup"));
    root.tryUpdate("tags[*]", value("blue"));  // appended
    root.tryUpdate("stock.Ulm", value(12));    // created, on the way and at the end
    try {
        root.get("tags[1]").getObjectValue();
    } catch (const Exception& error) {
        std::cout << error.what() << '\n';
    }
    std::cout << document;
}
