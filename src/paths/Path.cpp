#include <zo/Tessera/Path.h>

#include <ostream>
#include <vector>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/PathGenerator.h>

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

const unsigned long Path::k_noIndex;
// Before the objects of an application that links the library statically and may use these.
[[gnu::init_priority(101)]] const std::string Path::k_noName;
[[gnu::init_priority(101)]] const std::string Path::k_meta = "meta";
[[gnu::init_priority(101)]] const std::string Path::k_schema = "schema";
[[gnu::init_priority(101)]] const std::string Path::k_default = "default";
[[gnu::init_priority(101)]] const std::string Path::k_metaObjectProperty = "properties";
[[gnu::init_priority(101)]] const std::string Path::k_metaArrayItem = "items";
[[gnu::init_priority(101)]] const std::string Path::k_escapeChars = ".[]*\\";

Path::Path(const std::string& text) : std::string(text) {}

std::ostream& Path::elementPath(std::ostream& out, const Element& element, const Element* root) {
    PathGenerator path(out);
    walkDown(
        element, root, [&](const std::string& key) { path.genObjectProperty(key); },
        [&](size_t index) { path.genListItem(index); });
    return out;
}

std::ostream& Path::elementSchemaPath(std::ostream& out, const Element& element,
                                      const Element* root) {
    PathGenerator path(out);
    path.genObjectProperty(k_meta);
    path.genObjectProperty(k_schema);
    walkDown(
        element, root,
        [&](const std::string& key) {
            path.genObjectProperty(k_metaObjectProperty);
            path.genObjectProperty(key);
        },
        [&](size_t) { path.genObjectProperty(k_metaArrayItem); });
    return out;
}

}  // namespace zo::Tessera
