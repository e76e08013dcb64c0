#ifndef ZO_TESSERA_SRC_DOCUMENTS_OPENCONTAINER_H
#define ZO_TESSERA_SRC_DOCUMENTS_OPENCONTAINER_H

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/PathGenerator.h>

#include "containers/Children.h"

namespace zo::Tessera {

/// A container that is being written, and its child at hand. The places of the children at hand,
/// from the outermost container inward, are the path of what is being written: a copied tree knows
/// no better one.
class OpenContainer {
public:
    /// `start` is where the array begins in the text, if it is to stand on one line.
    OpenContainer(const Array& array, std::optional<size_t> start)
        : m_children(array), m_array(&array), m_start(start) {}

    /// Leaves out the member `skippedKey`, if given.
    OpenContainer(const Object& object, bool sorted, const std::string* skippedKey)
        : m_children(object), m_skippedKey(skippedKey) {
        if (sorted) {
            sort(object);
        }
    }

    /// Goes on to the next child, if there is one.
    bool next() {
        if (!m_sorted.empty()) {
            return nextSorted();
        }
        while (!m_children.atEnd()) {
            const std::string* const key = m_children.keyed() ? &m_children.key() : nullptr;
            const Element& child = m_children.element();
            m_children.advance();
            if (!isSkipped(key)) {
                goTo(key, child);
                return true;
            }
        }
        return false;
    }

    bool keyed() const { return m_array == nullptr; }
    /// How many children have been at hand.
    size_t count() const { return m_count; }
    const Element& child() const { return *m_child; }
    /// The child's; null in an array.
    const std::string* key() const { return m_key; }

    void writePlace(PathGenerator& path) const {
        if (m_key) {
            path.genObjectProperty(*m_key);
        } else {
            path.genListItem(m_count - 1);
        }
    }

    std::optional<size_t> start() const { return m_start; }
    /// The array from its beginning, and on many lines.
    OpenContainer onManyLines() const { return {*m_array, std::nullopt}; }

private:
    using Member = Object::Members::value_type;

    void sort(const Object& object) {
        m_sorted.reserve(object.size());
        for (const Member& member : object) {
            if (!isSkipped(&member.first)) {
                m_sorted.push_back(&member);
            }
        }
        std::sort(m_sorted.begin(), m_sorted.end(), [](const Member* left, const Member* right) {
            return left->first < right->first;
        });
    }

    bool nextSorted() {
        if (m_count == m_sorted.size()) {
            return false;
        }
        const Member& member = *m_sorted[m_count];
        goTo(&member.first, *member.second);
        return true;
    }

    void goTo(const std::string* key, const Element& child) {
        m_key = key;
        m_child = &child;
        ++m_count;
    }

    bool isSkipped(const std::string* key) const {
        return key != nullptr && m_skippedKey != nullptr && *key == *m_skippedKey;
    }

    Children m_children;  // behind the child at hand, unless the members are sorted
    std::vector<const Member*> m_sorted;
    const Array* m_array = nullptr;  // null for an object
    const std::string* m_skippedKey = nullptr;
    std::optional<size_t> m_start;
    const std::string* m_key = nullptr;
    const Element* m_child = nullptr;
    size_t m_count = 0;
};

}  // namespace zo::Tessera

#endif
