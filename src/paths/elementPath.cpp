#include "paths/elementPath.h"

#include <vector>

#include <zo/Tessera/Path.h>

namespace zo::Tessera {

namespace {

/// Calls back for each step from below `root`, or from the top of the tree, down to `element`:
/// `member(key)` for a step into an object, `item(index)` for one into an array.
template <class Member, class Item>
void walkDown(const Element& element, const Element* root, const Member& member, const Item& item) {
    std::vector<const Element*> chain{&element};
    while (chain.back()->parent() && chain.back()->parent() != root) {
        chain.push_back(chain.back()->parent());
    }
    for (auto step = chain.rbegin(); step != chain.rend(); ++step) {
        const Element* const container = (*step)->parent();
        if (!container) {
            continue;
        }
        if (container->type() == etObject) {
            member((*step)->key());
        } else if (container->type() == etArray) {
            item((*step)->index());
        }
    }
}

}  // namespace

void generatePath(PathGenerator path, const Element& element, const Element* root) {
    walkDown(
        element, root, [&](const std::string& key) { path.genObjectProperty(key); },
        [&](size_t index) { path.genListItem(index); });
}

void generateSchemaPath(PathGenerator path, const Element& element, const Element* root) {
    path.genObjectProperty(Path::k_meta);
    path.genObjectProperty(Path::k_schema);
    walkDown(
        element, root,
        [&](const std::string& key) {
            path.genObjectProperty(Path::k_metaObjectProperty);
            path.genObjectProperty(key);
        },
        [&](size_t) { path.genObjectProperty(Path::k_metaArrayItem); });
}

}  // namespace zo::Tessera
