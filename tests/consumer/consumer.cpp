// Calls each room of the library, and catches what it throws.

#include <iostream>
#include <string>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    Dom document = readDocument(R"({"price": 1.50, "tags": ["new"]})");
    Element& root = *document.root();
    root.set("tags[*]", value("blue"));
    for (const auto& [key, member] : root.getObjectValue()) {
        std::cout << key << " is an " << member->typeName() << '\n';
    }
    WriteOptions options;
    options.compact = true;
    writeDocument(std::cout, document, options);
    try {
        root.get("tags").as<int>();
    } catch (const TypeException<EType>& error) {
        std::cout << error.what() << '\n';
    }
    try {
        root.get("price").as<int>();
    } catch (const ValueOutOfRange<BasicNumber, int>& error) {
        std::cout << error.what() << '\n';
    }
    try {
        readDocument("[1,");
    } catch (const zo::Exception& error) {
        std::cout << error.what() << '\n';
    }
}
