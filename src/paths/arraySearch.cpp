// The members of Element that search the items of an array.

#include <list>
#include <utility>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Path.h>

#include "paths/required.h"

namespace zo::Tessera {

namespace {

bool matches(const Element& item, const Element& pattern, const Path& keyPath) {
    try {
        const Element* const reached = Path::tryGetElement(keyPath, item);
        return reached != nullptr && pattern.compare(*reached) == 0;
    } catch (const Exception&) {
        return false;
    }
}

}  // namespace

/// Walks an array once and takes items out. These die with it, and what it has not come to when an
/// exception ends the walk stays in the array.
class Element::ItemRemoval {
public:
    explicit ItemRemoval(Array& array)
        : m_array(array), m_current(array.end()), m_next(array.begin()) {}
    ItemRemoval(const ItemRemoval&) = delete;
    ItemRemoval& operator=(const ItemRemoval&) = delete;

    ~ItemRemoval() {
        while (next()) {
        }
        m_array.m_elements.recount();
        for (Element* const item : m_removed) {
            delete item;
        }
    }

    /// The next item, which stands where the removals so far have put it; null at the end.
    const Element* next() {
        if (m_next == m_array.end()) {
            return nullptr;
        }
        m_current = m_next++;
        raise(**m_current, m_removed.size());
        return *m_current;
    }

    void removeCurrent() {
        raise(**m_current, 1);
        m_array.m_elements.extract(m_current, m_removed);
    }

private:
    /// Each removal adds one to the index of the item and of all behind it: callers rely on it.
    void raise(Element& item, size_t removals) const {
        if (removals > 0) {
            item.m_parent = &m_array;
            item.m_index += removals;
            item.m_key.clear();
        }
    }

    Array& m_array;
    Array::iterator m_current;
    Array::iterator m_next;
    std::list<Element*, TreeAllocator<Element*>> m_removed;  // owned; the pattern may be among them
};

Element* Element::findElement(const Element& pattern, const Path& keyPath, const Path& arrayPath) {
    return const_cast<Element*>(std::as_const(*this).findElement(pattern, keyPath, arrayPath));
}

const Element* Element::findElement(const Element& pattern, const Path& keyPath,
                                    const Path& arrayPath) const {
    for (const Element* const item : get(arrayPath).getArrayValue()) {
        if (matches(*item, pattern, keyPath)) {
            return item;
        }
    }
    return nullptr;
}

Element* Element::findElement(const std::unique_ptr<Element>& pattern, const Path& keyPath,
                              const Path& arrayPath) {
    return findElement(required(pattern, "pattern"), keyPath, arrayPath);
}

const Element* Element::findElement(const std::unique_ptr<Element>& pattern, const Path& keyPath,
                                    const Path& arrayPath) const {
    return findElement(required(pattern, "pattern"), keyPath, arrayPath);
}

void Element::removeElement(const Element& pattern, const Path& keyPath, const Path& arrayPath) {
    ItemRemoval walk(get(arrayPath).getArrayValue());
    while (const Element* const item = walk.next()) {
        if (matches(*item, pattern, keyPath)) {
            walk.removeCurrent();
        }
    }
}

void Element::removeElement(const std::unique_ptr<Element>& pattern, const Path& keyPath,
                            const Path& arrayPath) {
    removeElement(required(pattern, "pattern"), keyPath, arrayPath);
}

}  // namespace zo::Tessera
