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

    const std::string title = root.at("title");
    std::cout << title << " has " << root.at("tags").size() << " tag\n";

    root.at("title").setStringValue("Large cup");
    Element::createString("blue", &root.at("tags"));  // appended, and owned by the array
    Element::createBoolean(true, &root, "in stock");  // a new member, owned by the object
    try {
        root.at("tags").at(1).getObjectValue();
    } catch (const Exception& error) {
        std::cout << error.what() << '\n';
    }
    std::cout << document;
}
