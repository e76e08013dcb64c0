#include "containers/treeWalks.h"

#include <memory>
#include <ostream>
#include <utility>
#include <vector>

#include <zo/convert.h>

#include "containers/Children.h"
#include "containers/Place.h"
#include "support/TreeMemory.h"
#include "support/asciiText.h"
#include "support/isJust.h"

namespace zo::Tessera {

namespace {

/// Of which of the two classes of containers the element is itself; `etEmpty` for any other class,
/// a derived one included.
EType exactContainer(const Element& element) {
    if (isJust<Array>(element)) {
        return etArray;
    }
    return isJust<Object>(element) ? etObject : etEmpty;
}

}  // namespace

template <class Container>
Element* TreeDestroyer::deleteToContainer(Container& parent) noexcept {
    while (!parent.m_elements.empty()) {
        Element* const child = parent.m_elements.takeFirst();
        if (exactContainer(*child) != etEmpty) {
            return child;
        }
        delete child;
    }
    return nullptr;
}

Element* TreeDestroyer::deleteToContainer(Element& parent) noexcept {
    return parent.type() == etArray ? deleteToContainer(static_cast<Array&>(parent))
                                    : deleteToContainer(static_cast<Object&>(parent));
}

template <class Container>
void TreeDestroyer::deleteBelow(Container& top) noexcept {
    // From the container that is being emptied, parent pointers lead to `top`; what stood before it
    // in any of them is deleted.
    if (top.m_elements.empty()) {
        return;
    }
    const TreeMemory::Releases releases;
    Element* open = &top;
    while (true) {
        Element* const child = open == &top ? deleteToContainer(top) : deleteToContainer(*open);
        if (child != nullptr) {
            child->m_parent = open;
            open = child;
        } else if (open != &top) {
            delete std::exchange(open, open->m_parent);
        } else {
            return;
        }
    }
}

void TreeDestroyer::deleteChildren(Array& array) noexcept {
    deleteBelow(array);
}

void TreeDestroyer::deleteChildren(Object& object) noexcept {
    deleteBelow(object);
}

/// Copies trees without recursion.
class TreeCopier {
public:
    template <class Container>
    static void copyChildren(Container& target, const Container& source) {
        TreeMemory memory;
        const TreeMemory::Scope scope(memory);
        TreeCopier copier;
        copier.m_open.emplace_back(source, target);
        copier.run();
    }

private:
    /// A container that is being copied. Its copy is stored in the one outside of it when it is
    /// complete, so that a failure leaves nothing half copied in the tree.
    struct Level {
        Level(const Array& source, Array& target) : m_source(source), m_array(&target) {
            target.m_elements.reserve(source.m_elements.size());
        }
        Level(const Object& source, Object& target) : m_source(source), m_object(&target) {}

        void store(std::unique_ptr<Element> copy) {
            if (m_object) {
                m_object->m_elements.append(m_source.key(), copy.get());
            } else {
                m_array->m_elements.push_back(copy.get());
            }
            static_cast<void>(copy.release());
            m_source.advance();
        }

        Children m_source;
        Array* m_array = nullptr;
        Object* m_object = nullptr;
        std::unique_ptr<Element> m_copy;  // null for the outermost, which the caller owns
    };

    template <class Container>
    void open(const Container& source) {
        auto copy = std::unique_ptr<Container>(newInTree<Container>());
        m_open.emplace_back(source, *copy);
        m_open.back().m_copy = std::move(copy);
    }

    void run() {
        // All that stands before the sources' current children is copied.
        while (!m_open.empty()) {
            const Children& source = m_open.back().m_source;
            if (auto complete = source.atEnd() ? close() : copyOrOpen(source.element())) {
                m_open.back().store(std::move(complete));
            }
        }
    }

    /// Null for a container that is to be copied first.
    std::unique_ptr<Element> copyOrOpen(const Element& source) {
        switch (exactContainer(source)) {
            case etArray:
                open(static_cast<const Array&>(source));
                return nullptr;
            case etObject:
                open(static_cast<const Object&>(source));
                return nullptr;
            default:
                return std::unique_ptr<Element>(source.clone());
        }
    }

    /// The copy of the innermost container; null for the outermost one's.
    std::unique_ptr<Element> close() {
        std::unique_ptr<Element> copy = std::move(m_open.back().m_copy);
        m_open.pop_back();
        return copy;
    }

    std::vector<Level> m_open;  // from the outermost inward
};

void appendCopies(Array& target, const Array& source) {
    TreeCopier::copyChildren(target, source);
}

void appendCopies(Object& target, const Object& source) {
    TreeCopier::copyChildren(target, source);
}

namespace {

/// Sets places in trees without recursion.
class TreeAttacher {
public:
    template <class Container>
    static void attachBelow(Container& top) {
        TreeAttacher attacher;
        attacher.attachChildren(top);
        attacher.run();
    }

private:
    void run() {
        // All places are set but for those below the waiting containers.
        while (!m_waiting.empty()) {
            Element& container = *m_waiting.back();
            m_waiting.pop_back();
            if (container.type() == etArray) {
                attachChildren(container.getArrayValue());
            } else {
                attachChildren(container.getObjectValue());
            }
        }
    }

    void attachChildren(Array& array) {
        size_t index = 0;
        for (Element* const item : array) {
            Place::setItem(*item, array, index++);
            addIfContainer(*item);
        }
    }

    void attachChildren(Object& object) {
        for (const Object::iterator::value_type& member : object) {
            Place::setMember(*member.second, object, member.first);
            addIfContainer(*member.second);
        }
    }

    void addIfContainer(Element& element) {
        if (element.type() == etArray || element.type() == etObject) {
            m_waiting.push_back(&element);
        }
    }

    std::vector<Element*> m_waiting;  // containers whose children's places are not set yet
};

}  // namespace

void reattachChildren(Array& array) {
    TreeAttacher::attachBelow(array);
}

void reattachChildren(Object& object) {
    TreeAttacher::attachBelow(object);
}

namespace {

/// Compares trees without recursion.
class TreeComparer {
public:
    template <class Container>
    static int compareChildren(const Container& left, const Container& right) {
        TreeComparer comparer;
        const int sizes = comparer.open(left, right);
        return sizes != 0 ? sizes : comparer.run();
    }

private:
    struct Level {
        Children m_left;
        Children m_right;
    };

    template <class Container>
    int open(const Container& left, const Container& right) {
        if (left.size() != right.size()) {
            return left.size() > right.size() ? 1 : -1;
        }
        m_open.push_back({Children(left), Children(right)});
        return 0;
    }

    int run() {
        // All that stands before the current pairs of children is equal.
        while (!m_open.empty()) {
            Level& level = m_open.back();
            if (level.m_left.atEnd()) {
                m_open.pop_back();
                continue;
            }
            const Element& left = level.m_left.element();
            const Element& right = level.m_right.element();
            level.m_left.advance();
            level.m_right.advance();
            const int result = comparePair(left, right);
            if (result != 0) {
                return result;
            }
        }
        return 0;
    }

    int comparePair(const Element& left, const Element& right) {
        if (&left == &right) {
            return 0;
        }
        const EType kind = exactContainer(left);
        if (kind == etEmpty || kind != right.type()) {
            return left.compare(right);
        }
        return kind == etArray
                   ? open(static_cast<const Array&>(left), static_cast<const Array&>(right))
                   : open(static_cast<const Object&>(left), static_cast<const Object&>(right));
    }

    std::vector<Level> m_open;  // from the outermost inward
};

}  // namespace

int compareChildren(const Array& left, const Array& right) {
    return TreeComparer::compareChildren(left, right);
}

int compareChildren(const Object& left, const Object& right) {
    return TreeComparer::compareChildren(left, right);
}

namespace {

std::ostream& writeKey(std::ostream& out, const std::string& key) {
    return out << key;
}

std::wostream& writeKey(std::wostream& out, const std::string& key) {
    return out << wconvert(key);
}

template <class Char>
std::basic_ostream<Char>& writeTree(std::basic_ostream<Char>& out, const Object& object) {
    std::vector<Children> open;  // the objects being written, from the outermost inward
    out << Ascii{"{ "};
    open.emplace_back(object);
    while (true) {
        Children& members = open.back();
        if (members.atEnd()) {
            out << Ascii{" }"};
            open.pop_back();
            if (open.empty()) {
                return out;
            }
            out << Ascii{","};
            continue;
        }
        const Element& value = members.element();
        writeKey(out, members.key()) << Ascii{" : "};
        members.advance();
        if (exactContainer(value) == etObject) {
            out << Ascii{"{ "};
            open.emplace_back(static_cast<const Object&>(value));
        } else {
            value.writeTo(out) << Ascii{","};
        }
    }
}

}  // namespace

std::ostream& writeMembers(std::ostream& out, const Object& object) {
    return writeTree(out, object);
}

std::wostream& writeMembers(std::wostream& out, const Object& object) {
    return writeTree(out, object);
}

}  // namespace zo::Tessera
