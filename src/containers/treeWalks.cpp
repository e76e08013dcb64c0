#include "containers/treeWalks.h"

#include <memory>
#include <ostream>
#include <typeinfo>
#include <utility>
#include <vector>

#include <zo/convert.h>

#include "containers/Children.h"
#include "containers/Place.h"
#include "support/asciiText.h"

namespace zo::Tessera {

namespace {

/// The element as the class itself, null when it is of another one, a derived one included.
template <class Container>
const Container* exactly(EType kind, const Element& element) {
    return element.type() == kind && typeid(element) == typeid(Container)
               ? static_cast<const Container*>(&element)
               : nullptr;
}

const Array* exactArray(const Element& element) {
    return exactly<Array>(etArray, element);
}

const Object* exactObject(const Element& element) {
    return exactly<Object>(etObject, element);
}

bool isExactContainer(const Element& element) {
    return exactArray(element) != nullptr || exactObject(element) != nullptr;
}

}  // namespace

Element* TreeDestroyer::takeFirst(Array& array) noexcept {
    return array.m_elements.empty() ? nullptr : array.m_elements.takeFirst();
}

Element* TreeDestroyer::takeFirst(Object& object) noexcept {
    return object.m_elements.empty() ? nullptr : object.m_elements.takeFirst();
}

Element* TreeDestroyer::takeFirst(Element& container) noexcept {
    return container.type() == etArray ? takeFirst(static_cast<Array&>(container))
                                       : takeFirst(static_cast<Object&>(container));
}

template <class Container>
void TreeDestroyer::deleteBelow(Container& top) noexcept {
    // From the container that is being emptied, parent pointers lead to `top`; what stood before it
    // in any of them is deleted.
    Element* open = &top;
    while (true) {
        Element* const child = open == &top ? takeFirst(top) : takeFirst(*open);
        if (child == nullptr) {
            if (open == &top) {
                return;
            }
            delete std::exchange(open, open->m_parent);
        } else if (isExactContainer(*child)) {
            child->m_parent = open;
            open = child;
        } else {
            delete child;
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
        TreeCopier copier;
        copier.m_open.emplace_back(Children(source), &target);
        copier.run();
    }

private:
    /// A container that is being copied. Its copy is stored in the one outside of it when it is
    /// complete, so that a failure leaves nothing half copied in the tree.
    struct Level {
        Level(const Children& source, Array* target) : m_source(source), m_array(target) {}
        Level(const Children& source, Object* target) : m_source(source), m_object(target) {}

        void store(std::unique_ptr<Element> copy) {
            if (m_object) {
                m_object->m_elements.insert({m_source.key(), copy.get()});
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
        auto copy = std::make_unique<Container>();
        m_open.emplace_back(Children(source), copy.get());
        m_open.back().m_copy = std::move(copy);
    }

    void run() {
        // All that stands before the sources' current children is copied.
        while (!m_open.empty()) {
            if (m_open.back().m_source.atEnd()) {
                close();
                continue;
            }
            const Element& child = m_open.back().m_source.element();
            if (const Array* const array = exactArray(child)) {
                open(*array);
            } else if (const Object* const object = exactObject(child)) {
                open(*object);
            } else {
                m_open.back().store(std::unique_ptr<Element>(child.clone()));
            }
        }
    }

    void close() {
        std::unique_ptr<Element> copy = std::move(m_open.back().m_copy);
        m_open.pop_back();
        if (copy) {
            m_open.back().store(std::move(copy));
        }
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
        if (const Array* const array = exactArray(left); array && right.type() == etArray) {
            return open(*array, static_cast<const Array&>(right));
        }
        if (const Object* const object = exactObject(left); object && right.type() == etObject) {
            return open(*object, static_cast<const Object&>(right));
        }
        return left.compare(right);
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
        if (const Object* const inner = exactObject(value)) {
            out << Ascii{"{ "};
            open.emplace_back(*inner);
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
