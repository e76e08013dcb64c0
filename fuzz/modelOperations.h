#ifndef ZO_TESSERA_FUZZ_MODELOPERATIONS_H
#define ZO_TESSERA_FUZZ_MODELOPERATIONS_H

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "ModelTree.h"

/// How an operation ends: with a result, or with an exception of one of these classes.
enum class Outcome { done, typeMismatch, pathNotFound, parseError, outOfRange, refused };

/// Thrown where the operation would throw.
struct Refusal {
    Outcome m_outcome;
};

struct Segment {
    bool m_isKey;
    std::string m_key;
    size_t m_index;
};

/// A path as what its text means.
struct ModelPath {
    std::string m_text;
    std::vector<Segment> m_segments;
    bool m_broken = false;  // the text breaks the syntax behind the last segment
};

inline void requireKind(const Node& node, zo::Tessera::EType kind) {
    if (node.m_kind != kind) {
        throw Refusal{Outcome::typeMismatch};
    }
}

inline int order(bool less, bool greater) {
    return (greater ? 1 : 0) - (less ? 1 : 0);
}

inline int compareNodes(Node& left, Node& right) {
    using namespace zo::Tessera;
    if (&left == &right) {
        return 0;
    }
    if (left.m_kind != right.m_kind) {
        return order(left.m_kind<right.m_kind, left.m_kind> right.m_kind);
    }
    const size_t leftSize = left.m_children.size();
    const size_t rightSize = right.m_children.size();
    switch (left.m_kind) {
        case etBoolean:
            return order(left.m_boolean<right.m_boolean, left.m_boolean> right.m_boolean);
        case etNumber:
            return left.m_number.compare(right.m_number);
        case etString:
            return order(left.m_string<right.m_string, left.m_string> right.m_string);
        default:
            int result = order(leftSize<rightSize, leftSize> rightSize);
            for (size_t i = 0; result == 0 && i < leftSize; ++i) {
                result = compareNodes(*left.m_children[i], *right.m_children[i]);
            }
            return result;
    }
}

/// The child that the segment names, or null.
inline Node* step(const Node& node, const Segment& segment) {
    using namespace zo::Tessera;
    const bool right = node.m_kind == (segment.m_isKey ? etObject : etArray);
    const size_t place = segment.m_isKey ? Model::placeOf(node, segment.m_key) : segment.m_index;
    return right && place < node.m_children.size() ? node.m_children[place] : nullptr;
}

/// Null when there is nothing at the path.
inline Node* lookUp(Node& from, const ModelPath& path) {
    Node* current = &from;
    for (const Segment& segment : path.m_segments) {
        if (!segment.m_isKey && segment.m_index == zo::Tessera::Path::k_noIndex) {
            throw Refusal{Outcome::parseError};
        }
        current = step(*current, segment);
        if (!current) {
            return nullptr;
        }
    }
    if (path.m_broken) {
        throw Refusal{Outcome::parseError};
    }
    return current;
}

inline Node& get(Node& from, const ModelPath& path) {
    Node* const found = lookUp(from, path);
    if (!found) {
        throw Refusal{Outcome::pathNotFound};
    }
    return *found;
}

inline void put(Model& model, Node& container, const Segment& where, Node& child) {
    if (container.m_kind == zo::Tessera::etArray) {
        model.append(container, child);
    } else {
        model.attach(container, where.m_key, child);
    }
}

/// Null when the element cannot be created; what was created on the way stays. What lacks a segment
/// gets a container of its own kind there, whatever the next segment needs.
inline Node* create(Model& model, Node& from, const ModelPath& path, const Node& value) {
    using namespace zo::Tessera;
    Node& copy = model.clone(value);
    Node* current = &from;
    const Segment* pending = nullptr;
    for (const Segment& segment : path.m_segments) {
        if (pending) {
            Node& made = model.make(current->m_kind);
            put(model, *current, *pending, made);
            current = &made;
            pending = nullptr;
        }
        if (Node* const child = step(*current, segment)) {
            current = child;
        } else if (segment.m_isKey
                       ? current->m_kind == etObject
                       : current->m_kind == etArray && segment.m_index == Path::k_noIndex) {
            pending = &segment;
        } else {
            return nullptr;
        }
    }
    if (path.m_broken) {
        throw Refusal{Outcome::parseError};
    }
    if (!pending) {
        return current;
    }
    put(model, *current, *pending, copy);
    return &copy;
}

/// The source may stand inside the target, and the target inside the source, which then holds what
/// the target has been given so far.
inline void assign(Model& model, Node& target, const Node& source) {
    if (&target == &source) {
        return;
    }
    target.m_children.clear();
    target.m_keys.clear();
    for (size_t i = 0; i < source.m_children.size(); ++i) {
        Node& copy = model.clone(*source.m_children[i]);
        target.m_children.push_back(&copy);
        if (source.m_kind == zo::Tessera::etObject) {
            target.m_keys.push_back(source.m_keys[i]);
        }
    }
}

inline void realAssign(Model& model, Node& target, const Node& source) {
    if (source.m_kind == zo::Tessera::etNull) {
        return;
    }
    requireKind(target, source.m_kind);
    target.m_boolean = source.m_boolean;
    target.m_number = source.m_number;
    target.m_string = source.m_string;
    assign(model, target, source);
}

inline bool matches(Node& item, Node& pattern, const ModelPath& keyPath) {
    try {
        Node* const reached = lookUp(item, keyPath);
        return reached && compareNodes(pattern, *reached) == 0;
    } catch (const Refusal&) {
        return false;
    } catch (const ModelOutOfRange&) {
        return false;
    }
}

inline Node* find(Node& array, Node& pattern, const ModelPath& keyPath) {
    requireKind(array, zo::Tessera::etArray);
    for (Node* const item : array.m_children) {
        if (matches(*item, pattern, keyPath)) {
            return item;
        }
    }
    return nullptr;
}

/// Each removal raises the index of the items behind it.
inline void remove(Node& array, Node& pattern, const ModelPath& keyPath) {
    requireKind(array, zo::Tessera::etArray);
    std::vector<Node*>& items = array.m_children;
    for (size_t i = 0; i < items.size();) {
        if (!matches(*items[i], pattern, keyPath)) {
            ++i;
            continue;
        }
        for (size_t behind = i; behind < items.size(); ++behind) {
            items[behind]->m_hasParent = true;
            ++items[behind]->m_index;
            items[behind]->m_key.clear();
        }
        items.erase(items.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

#endif
