#ifndef ZO_TESSERA_FUZZ_MODELTREE_H
#define ZO_TESSERA_FUZZ_MODELTREE_H

#include <algorithm>
#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include <zo/Tessera.h>

#include "ModelNumber.h"
#include "check.h"

/// An element as it should be.
struct Node {
    zo::Tessera::EType m_kind = zo::Tessera::etNull;
    bool m_boolean = false;
    ModelNumber m_number;
    std::string m_string;
    std::vector<Node*> m_children;
    std::vector<std::string> m_keys;  // in an object, under which each child is held

    // What the element says of its own place. Its parent, if any, is what holds it.
    bool m_hasParent = false;
    std::string m_key;
    size_t m_index = zo::Tessera::Path::k_noIndex;
};

/// Trees as they should be. Nodes live as long as the model, those taken out of a tree as well.
class Model {
public:
    Node& make(zo::Tessera::EType kind) {
        Node& node = m_nodes.emplace_back();
        node.m_kind = kind;
        return node;
    }

    void append(Node& array, Node& child) {
        child.m_hasParent = true;
        child.m_key.clear();
        child.m_index = array.m_children.size();
        array.m_children.push_back(&child);
    }

    /// What takes the place of another member keeps what it says of its own place.
    void insert(Node& object, const std::string& key, Node& child) {
        const size_t place = placeOf(object, key);
        if (place < object.m_keys.size()) {
            object.m_children[place] = &child;
            return;
        }
        child.m_hasParent = true;
        child.m_key = key;
        child.m_index = zo::Tessera::Path::k_noIndex;
        object.m_keys.push_back(key);
        object.m_children.push_back(&child);
    }

    /// As a factory makes a member: the parent is known before the object is asked to insert.
    void attach(Node& object, const std::string& key, Node& child) {
        child.m_hasParent = true;
        insert(object, key, child);
    }

    /// A deep copy whose children are not attached.
    Node& clone(const Node& source) { return copy(source, false); }

    /// A deep copy whose children all are: the tree as it is read from its own text.
    Node& attachedCopy(const Node& source) { return copy(source, true); }

    static size_t placeOf(const Node& object, const std::string& key) {
        const auto found = std::find(object.m_keys.begin(), object.m_keys.end(), key);
        return static_cast<size_t>(found - object.m_keys.begin());
    }

private:
    Node& copy(const Node& source, bool attached) {
        Node& top = copyWithoutPlace(source);
        std::vector<Node*> open{&top};
        while (!open.empty()) {
            Node& parent = *open.back();
            open.pop_back();
            for (size_t i = 0; i < parent.m_children.size(); ++i) {
                Node& child = copyWithoutPlace(*parent.m_children[i]);
                parent.m_children[i] = &child;
                open.push_back(&child);
                if (attached) {
                    child.m_hasParent = true;
                    const bool member = parent.m_kind == zo::Tessera::etObject;
                    child.m_key = member ? parent.m_keys[i] : std::string();
                    child.m_index = member ? zo::Tessera::Path::k_noIndex : i;
                }
            }
        }
        return top;
    }

    Node& copyWithoutPlace(const Node& source) {
        Node& node = m_nodes.emplace_back(source);
        node.m_hasParent = false;
        node.m_key.clear();
        node.m_index = zo::Tessera::Path::k_noIndex;
        return node;
    }

    std::deque<Node> m_nodes;
};

/// An element and what it should be.
struct Twin {
    zo::Tessera::Element* m_element;
    Node* m_node;
};

inline void checkSameValue(zo::Tessera::Element& element, const Node& node) {
    using namespace zo::Tessera;
    check(element.type() == node.m_kind, "kind");
    switch (node.m_kind) {
        case etBoolean:
            check(element.getBooleanValue().value() == node.m_boolean, "boolean");
            break;
        case etNumber:
            checkSame(element.getNumberValue().value().toString(), node.m_number.m_text, "number");
            break;
        case etString:
            checkSame(element.getStringValue().value(), node.m_string, "string");
            break;
        case etArray:
        case etObject:
            check(element.size() == node.m_children.size(), "size");
            break;
        default:
            check(element.size() == 0, "size of null");
    }
}

inline void checkSamePlace(zo::Tessera::Element& element, const Node& node,
                           zo::Tessera::Element* holder) {
    using namespace zo::Tessera;
    check(element.parent() == (node.m_hasParent ? holder : nullptr), "parent");
    check(element.index() == node.m_index, "index");
    const bool item = node.m_hasParent && holder->type() == etArray;
    checkSame(element.key(), item ? "[" + std::to_string(node.m_index) + "]" : node.m_key, "key");
}

/// Adds the children of `twin` to `twins`.
inline void addChildren(std::vector<Twin>& twins, const Twin& twin) {
    using namespace zo::Tessera;
    Element& element = *twin.m_element;
    const Node& node = *twin.m_node;
    size_t place = 0;
    if (node.m_kind == etArray) {
        for (Element* const item : element.getArrayValue()) {
            check(&element.at(place) == item, "item by its place");
            twins.push_back({item, node.m_children[place++]});
        }
    } else if (node.m_kind == etObject) {
        for (const auto& [key, member] : element.getObjectValue()) {
            checkSame(key, node.m_keys[place], "key that holds a member");
            check(&element.at(key) == member, "member by its key");
            twins.push_back({member, node.m_children[place++]});
        }
    }
    check(place == node.m_children.size(), "children visited");
}

/// Checks values, order, keys and places of a whole tree, and returns its elements.
inline std::vector<Twin> checkSameTree(zo::Tessera::Element& root, Node& rootNode) {
    checkSamePlace(root, rootNode, nullptr);
    std::vector<Twin> twins{{&root, &rootNode}};
    // Those before `i` are checked, and their children stand behind it.
    for (size_t i = 0; i < twins.size(); ++i) {
        const Twin twin = twins[i];
        checkSameValue(*twin.m_element, *twin.m_node);
        const size_t firstChild = twins.size();
        addChildren(twins, twin);
        for (size_t child = firstChild; child < twins.size(); ++child) {
            checkSamePlace(*twins[child].m_element, *twins[child].m_node, twin.m_element);
        }
    }
    return twins;
}

#endif
