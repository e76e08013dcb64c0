#ifndef ZO_TESSERA_FUZZ_TWINTREES_H
#define ZO_TESSERA_FUZZ_TWINTREES_H

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <zo/Tessera.h>

#include "ModelTree.h"
#include "check.h"
#include "modelOperations.h"

namespace twins {

using namespace zo::Tessera;

inline const char* const k_keys[] = {
    "a", "b", "c", "x.y", "*", "", "a long key, which has its own memory"};
// Those that a path text is made of; no text names an empty key.
constexpr size_t k_keysInPaths = 5;
inline const char* const k_strings[] = {
    "", "a", "b", "ab", "x.y", "\xff", "a long text, not kept in place"};
inline const char* const k_numbers[] = {"0",
                                        "-0",
                                        "1",
                                        "-1",
                                        "2",
                                        "1.0",
                                        "10",
                                        "1e1",
                                        "1e400",
                                        "-0.5",
                                        "12345678901234567890",
                                        "-123456789012345678"};

template <class Pool>
auto& anyOf(Pool& pool, size_t byte) {
    return pool[byte % std::size(pool)];
}

/// What takes part in an operation: an element of the tree, or one made for the purpose.
struct Operand {
    Element& element() const { return *m_element; }
    Node& node() const { return *m_node; }

    Element* m_element = nullptr;
    Node* m_node = nullptr;
    std::unique_ptr<Element> m_owned;
};

/// What an operation gives.
struct Result {
    Result(const Element* element = nullptr, int number = 0)
        : m_element(element), m_number(number) {}

    const Element* m_element;
    int m_number;
};
struct ModelResult {
    ModelResult(const Node* node = nullptr, int number = 0) : m_node(node), m_number(number) {}

    const Node* m_node;
    int m_number;
};

template <class Operation>
Outcome outcomeOf(const Operation& operation) {
    try {
        operation();
        return Outcome::done;
    } catch (const Refusal& refusal) {
        return refusal.m_outcome;
    } catch (const ModelOutOfRange&) {
        return Outcome::outOfRange;
    } catch (const TypeException<EType>&) {
        return Outcome::typeMismatch;
    } catch (const PathNotFound&) {
        return Outcome::pathNotFound;
    } catch (const ParseException&) {
        return Outcome::parseError;
    } catch (const ValueOutOfRange<std::string, std::string>&) {
        return Outcome::outOfRange;
    } catch (const Exception&) {
        return Outcome::refused;
    }
}

/// A tree and its model, and the bytes that say what is done to them.
class TwinTrees {
public:
    TwinTrees(const uint8_t* bytes, size_t size) : m_next(bytes), m_end(bytes + size) {
        const EType kind = byte() % 2 == 0 ? etObject : etArray;
        m_dom.setRoot(Element::create(kind));
        m_root = &m_model.make(kind);
        m_twins = checkSameTree(*m_dom.root(), *m_root);
    }

    TwinTrees(const TwinTrees&) = delete;
    TwinTrees& operator=(const TwinTrees&) = delete;

    bool atEnd() const { return m_next == m_end; }
    size_t byte() { return atEnd() ? 0 : *m_next++; }

    Twin anyTwin() { return m_twins[byte() % m_twins.size()]; }

    /// Mostly one of the kind, if there is any.
    Twin anyTwin(EType kind) {
        constexpr size_t oneIn = 16;
        const size_t which = byte();
        std::vector<Twin> fitting;
        for (const Twin& twin : m_twins) {
            if (twin.m_node->m_kind == kind || which % oneIn == 0) {
                fitting.push_back(twin);
            }
        }
        return fitting.empty() ? m_twins.front() : fitting[which / oneIn % fitting.size()];
    }

    /// Runs an operation on both, and compares how it ended and what it left.
    template <class Real, class Mirror>
    void both(const Real& real, const Mirror& mirror) {
        Result result;
        ModelResult expected;
        const Outcome outcome = outcomeOf([&] { result = real(); });
        check(outcome == outcomeOf([&] { expected = mirror(); }), "outcome");
        m_twins = checkSameTree(*m_dom.root(), *m_root);
        check(result.m_number == expected.m_number, "resulting number");
        check((result.m_element == nullptr) == (expected.m_node == nullptr), "a resulting element");
        for (const Twin& twin : m_twins) {
            check((twin.m_element == result.m_element) == (twin.m_node == expected.m_node),
                  "resulting element");
        }
    }

    Operand operand() {
        const size_t which = byte();
        if (which % 2 == 0) {
            const Twin twin = anyTwin();
            return {twin.m_element, twin.m_node, nullptr};
        }
        Operand fresh = newScalar(which / 2);
        fresh.m_element = fresh.m_owned.get();
        return fresh;
    }

    Operand newScalar(size_t which) {
        switch (which % 8) {
            case 0:
                return {nullptr, &m_model.make(etNull), value()};
            case 1:
                return newBoolean();
            case 2:
            case 3:
                return newNumberOfText();
            case 4:
                return newNumberOfInteger();
            case 5:
                return newString();
            default:
                return newContainer(which % 2 == 0 ? etObject : etArray);
        }
    }

    Operand newBoolean() {
        Node& node = m_model.make(etBoolean);
        node.m_boolean = byte() % 2 == 0;
        return {nullptr, &node, value(node.m_boolean)};
    }

    Operand newNumberOfText() {
        Node& node = m_model.make(etNumber);
        node.m_number = ModelNumber::ofText(anyOf(k_numbers, byte()));
        BasicNumber number;
        number.set(node.m_number.m_text);
        return {nullptr, &node, value(number)};
    }

    Operand newNumberOfInteger() {
        const int number = static_cast<int>(byte() % 4) - 1;
        Node& node = m_model.make(etNumber);
        node.m_number = {std::to_string(number), ModelNumber::Form::isSigned,
                         static_cast<double>(number)};
        return {nullptr, &node, value(number)};
    }

    Operand newString() {
        Node& node = m_model.make(etString);
        node.m_string = anyOf(k_strings, byte());
        return {nullptr, &node, value(node.m_string)};
    }

    /// With the number 0 in it, or empty.
    Operand newContainer(EType kind) {
        Node& node = m_model.make(kind);
        std::unique_ptr<Element> element(Element::create(kind));
        if (byte() % 2 == 0) {
            Node& number = m_model.make(etNumber);
            if (kind == etObject) {
                Element::create(etNumber, element.get(), "a");
                m_model.attach(node, "a", number);
            } else {
                Element::create(etNumber, element.get());
                m_model.append(node, number);
            }
        }
        return {nullptr, &node, std::move(element)};
    }

    /// A key of the pool, or the text of a string of the tree: it may live in what the operation
    /// replaces.
    const std::string& key() {
        const Twin twin = anyTwin();
        if (twin.m_node->m_kind == etString) {
            return twin.m_element->getStringValue().value();
        }
        m_key = anyOf(k_keys, byte());
        return m_key;
    }

    ModelPath path() {
        ModelPath path;
        const size_t shape = byte();
        for (size_t i = 0; i < shape % 4; ++i) {
            const size_t which = byte();
            if (which % 2 == 0) {
                addKey(path, k_keys[which / 2 % k_keysInPaths]);
            } else {
                addIndex(path, which / 2 % 5);
            }
        }
        path.m_broken = shape >= 240;
        path.m_text += path.m_broken ? ".." : "";
        return path;
    }

    static void addKey(ModelPath& path, const std::string& key) {
        path.m_segments.push_back({true, key, 0});
        path.m_text += path.m_text.empty() ? "" : ".";
        for (const char character : key) {
            if (Path::k_escapeChars.find(character) != std::string::npos) {
                path.m_text += '\\';
            }
            path.m_text += character;
        }
    }

    static void addIndex(ModelPath& path, size_t index) {
        const bool any = index == 4;
        path.m_segments.push_back({false, "", any ? Path::k_noIndex : index});
        path.m_text += any ? "[*]" : "[" + std::to_string(index) + "]";
    }

    /// A new element of the operand's kind and value; its containers come empty. The value is
    /// handed over from where it lives.
    template <class... Where>
    static Element* makeLike(const Element& source, const Where&... where) {
        switch (source.type()) {
            case etBoolean:
                return Element::createBoolean(source.getBooleanValue().value(), where...);
            case etNumber:
                return Element::createNumber(source.getNumberValue().value(), where...);
            case etString:
                return Element::createString(source.getStringValue().value(), where...);
            default:
                return Element::create(source.type(), where...);
        }
    }

    Node& likeNode(const Node& source) {
        Node& node = m_model.clone(source);
        node.m_children.clear();
        node.m_keys.clear();
        return node;
    }

    Dom m_dom;
    Model m_model;
    Node* m_root;
    std::vector<Twin> m_twins;  // all elements, from the root downward

private:
    const uint8_t* m_next;
    const uint8_t* m_end;
    std::string m_key;
};

}  // namespace twins

#endif
