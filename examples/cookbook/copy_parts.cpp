// Copies and moves parts of one document into another.

#include <iostream>
#include <memory>
#include <utility>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    Dom from = readDocument(R"({"people": [{"name": "Ada"}, {"name": "Bo"}, {"name": "Cy"}]})");
    Array& people = from.root()->get("people").getArrayValue();
    Dom to;
    to.setRoot(object());
    Element& target = *to.root();

    // Copied, with all that is below it.
    target.set("first", people.at(0));

    // Moved: taken out of the one, put into the other. Nothing is copied.
    target.set("last", people.take(2));

    // Put at a place of an array, before what stands there.
    Array& list = target.set("list", array()).getArrayValue();
    list.insert(0, people.take(1));
    list.insert(0, std::unique_ptr<Element>(people.at(0).clone()));

    // The children of a clone know their place only after reattach.
    const Element& name = list.at(0).get("name");
    std::cout << '"' << name.path(nullptr) << "\", then ";
    list.reattach();
    std::cout << '"' << name.path(nullptr) << "\"\n";

    // So do those of a copied document.
    Dom copy = to;
    copy.root()->getObjectValue().reattach();
    std::cout << copy.root()->get("last.name").path(nullptr) << '\n';

    writeDocument(std::cout, from);
    writeDocument(std::cout, to);
}
