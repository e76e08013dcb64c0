// Finds and removes the items of a list by the value that each has under a key.

#include <iostream>
#include <sstream>
#include <string>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    std::istringstream text(R"({"people": [
        {"name": "Ada", "address": {"city": "Ulm"}},
        {"name": "Bo"},
        {"name": "Cy", "address": {"city": "Bonn"}},
        {"name": "Di", "address": {"city": "Ulm"}}
    ], "tags": ["new", "old", "new"]})");
    Dom document;
    text >> document;
    Element& root = *document.root();

    // What is looked for, where in each item, and in which list. Bo has no address and is skipped.
    if (Element* const found = root.findElement(value("Bonn"), "address.city", "people")) {
        const std::string& name = found->get("name");
        std::cout << found->path(nullptr) << ": " << name << " lives in Bonn\n";
    }
    if (root.findElement(value("Rome"), "address.city", "people") == nullptr) {
        std::cout << "nobody lives in Rome\n";
    }

    // All who match are removed, in one pass.
    root.removeElement(value("Ulm"), "address.city", "people");

    // Without a key the items themselves are compared; without a list, this element is the list.
    root.get("tags").removeElement(value("new"), "", "");

    // at() and the order are right; the index that is stored in an item is too high now.
    std::cout << "people[1] is now " << root.get("people[1].name").getStringValue().value()
              << ", which says it is " << root.get("people[1]").path(nullptr) << '\n';
    std::cout << document;
}
