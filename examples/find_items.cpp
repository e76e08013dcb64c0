// Finds and removes the items of a list by the value that each has under a key.

#include <iostream>
#include <string>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    Dom document = readDocument(R"({"people": [
        {"name": "Ada", "address": {"city": "Ulm"}},
        {"name": "Bo"},
        {"name": "Cy", "address": {"city": "Bonn"}},
        {"name": "Di", "address": {"city": "Ulm"}}
    ], "tags": ["new", "old", "new"]})");
    Element& root = *document.root();

    // What is looked for, where in each item, and in which list. Bo has no address and is skipped.
    if (Element* const found = root.findElement(value("Bonn"), "address.city", "people")) {
        std::cout << found->path(nullptr) << ": " << found->get("name").as<std::string>()
                  << " lives in Bonn\n";
    }
    if (root.findElement(value("Rome"), "address.city", "people") == nullptr) {
        std::cout << "nobody lives in Rome\n";
    }

    // All who match are removed, in one pass.
    Array& people = root.get("people").getArrayValue();
    root.removeElement(value("Ulm"), "address.city", "people");

    // at() and the order are right; the index that is stored in an item is too high, until all
    // are set anew.
    const Element& cy = people.at(1);
    std::cout << cy.get("name").as<std::string>() << " says to be " << cy.path(nullptr);
    people.reattach();
    std::cout << ", and is " << cy.path(nullptr) << '\n';

    // Without a key the items themselves are compared; without a list, this element is the list.
    root.get("tags").removeElement(value("new"), "", "");

    writeDocument(std::cout, document);
}
