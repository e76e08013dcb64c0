// The rows of searching the items of an array, and of removing those that match.

#include "growth.h"

using namespace zo::Tessera;

namespace {

/// Objects with the members "name" and "kind", which is "even" and "odd" by turns.
Owner records(size_t count) {
    Owner root = array();
    for (size_t i = 0; i < count; ++i) {
        Element* const record = Element::createObject(root.get());
        Element::createString("item " + std::to_string(i), record, "name");
        Element::createString(i % 2 == 0 ? "even" : "odd", record, "kind");
    }
    return root;
}

void removeEverySecondItem(State& state) {
    const std::string text = "[" + repeated(sizeOf(state) / 2, "true,false,") + "null]";
    const Owner pattern = value(true);
    measure(
        state, [&] { return read(text); },
        [&](Owner& root) { root->removeElement(*pattern, "", ""); });
}

void removeEverySecondRecord(State& state) {
    const size_t count = sizeOf(state);
    const Owner pattern = value("even");
    measure(
        state, [&] { return records(count); },
        [&](Owner& root) {
            root->removeElement(*pattern, "kind", "");
            require(root->size() == count / 2, "not every second one was removed");
        });
}

/// Has to look at all of them, as none matches.
void findRecord(State& state) {
    const Owner root = records(sizeOf(state));
    const Owner pattern = value("none");
    measure(
        state, [] { return 0; },
        [&](int) { require(!root->findElement(*pattern, "kind", ""), "one was found"); });
}

}  // namespace

void registerSearchRows() {
    registerRow("removeEverySecondItem", removeEverySecondItem, 200'000, 2'000'000);
    registerRow("removeEverySecondRecord", removeEverySecondRecord, 100'000, 1'000'000);
    registerRow("findRecord", findRecord, 100'000, 1'000'000);
}
