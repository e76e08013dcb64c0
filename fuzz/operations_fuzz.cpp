// Runs a program of operations on a tree and on a model of it. After each of them both are the
// same, and so is how it ended.

#include <cstdint>
#include <memory>
#include <string>

#include <zo/Tessera.h>

#include "TwinTrees.h"
#include "modelOperations.h"

using namespace zo::Tessera;
using namespace twins;

namespace {

constexpr size_t k_mostElements = 60;
constexpr size_t k_byteForNull = 255;

class Program : private TwinTrees {
public:
    using TwinTrees::TwinTrees;

    void run() {
        while (!atEnd()) {
            operate();
            if (m_twins.size() > k_mostElements) {
                empty(m_twins.front());
            }
        }
    }

private:
    void operate() {
        using Operation = void (Program::*)();
        static constexpr Operation k_operations[] = {&Program::makeMember,
                                                     &Program::makeItem,
                                                     &Program::insert,
                                                     &Program::append,
                                                     &Program::insertWhatIsNoChild,
                                                     &Program::insertByPathText,
                                                     &Program::set,
                                                     &Program::tryUpdate,
                                                     &Program::createByPath,
                                                     &Program::lookUpByPath,
                                                     &Program::findItem,
                                                     &Program::removeItems,
                                                     &Program::compare,
                                                     &Program::emptyContainer,
                                                     &Program::copyDocument};
        (this->*anyOf(k_operations, byte()))();
    }

    void makeMember() {
        const Twin parent = anyTwin(etObject);
        const Operand source = operand();
        const std::string& name = key();
        const std::string modelName = name;
        Element* const place = byte() == k_byteForNull ? nullptr : parent.m_element;
        both([&] { return Result{makeLike(source.element(), place, name)}; },
             [&] {
                 if (!place) {
                     throw Refusal{Outcome::refused};
                 }
                 requireKind(*parent.m_node, etObject);
                 Node& node = likeNode(source.node());
                 m_model.attach(*parent.m_node, modelName, node);
                 return ModelResult{&node};
             });
    }

    void makeItem() {
        const Twin parent = anyTwin(etArray);
        const Operand source = operand();
        Element* const place = byte() == k_byteForNull ? nullptr : parent.m_element;
        both([&] { return Result{makeLike(source.element(), place)}; },
             [&] {
                 if (!place) {
                     throw Refusal{Outcome::refused};
                 }
                 requireKind(*parent.m_node, etArray);
                 Node& node = likeNode(source.node());
                 m_model.append(*parent.m_node, node);
                 return ModelResult{&node};
             });
    }

    /// What the operand hands over to a container: itself, or a copy when it is in the tree
    /// already.
    std::unique_ptr<Element> handOver(Operand& source) {
        if (source.m_owned) {
            return std::move(source.m_owned);
        }
        source.m_node = &m_model.clone(source.node());
        return std::unique_ptr<Element>(source.element().clone());
    }

    void insert() {
        const Twin target = anyTwin(etObject);
        Operand source = operand();
        const std::string& name = key();
        const std::string modelName = name;
        std::unique_ptr<Element> child = handOver(source);
        both(
            [&] {
                Object& object = target.m_element->getObjectValue();
                const bool isNew = object.insert(name, child.get()).second;
                return Result{child.release(), isNew};
            },
            [&] {
                requireKind(*target.m_node, etObject);
                const size_t size = target.m_node->m_keys.size();
                const bool isNew = Model::placeOf(*target.m_node, modelName) == size;
                m_model.insert(*target.m_node, modelName, source.node());
                return ModelResult{&source.node(), isNew};
            });
    }

    void append() {
        const Twin target = anyTwin(etArray);
        Operand source = operand();
        std::unique_ptr<Element> child = handOver(source);
        both(
            [&] {
                target.m_element->getArrayValue().push_back(child.get());
                return Result{child.release()};
            },
            [&] {
                requireKind(*target.m_node, etArray);
                m_model.append(*target.m_node, source.node());
                return ModelResult{&source.node()};
            });
    }

    /// What must change nothing: a null child, and a member where it already is.
    void insertWhatIsNoChild() {
        const Twin target = anyTwin(etObject);
        const std::string name = key();
        if (target.m_node->m_kind == etArray) {
            return both(
                [&] {
                    target.m_element->getArrayValue().push_back(nullptr);
                    return Result{};
                },
                []() -> ModelResult { throw Refusal{Outcome::refused}; });
        }
        both(
            [&] {
                Object& object = target.m_element->getObjectValue();
                const auto member = object.find(name);
                object.insert(name, member == object.end() ? nullptr : member->second);
                return Result{};
            },
            [&] {
                requireKind(*target.m_node, etObject);
                if (Model::placeOf(*target.m_node, name) == target.m_node->m_keys.size()) {
                    throw Refusal{Outcome::refused};
                }
                return ModelResult{};
            });
    }

    void insertByPathText() {
        const Twin target = anyTwin(etObject);
        Operand source = operand();
        const ModelPath where = path();
        const bool owned = source.m_owned != nullptr;
        both(
            [&] {
                const Path text(where.m_text);
                return Result{
                    owned ? &target.m_element->insertElement(text, std::move(source.m_owned))
                          : &target.m_element->insertElement(text, source.element())};
            },
            [&] {
                requireKind(*target.m_node, etObject);
                Node& node = owned ? source.node() : m_model.clone(source.node());
                m_model.insert(*target.m_node, where.m_text, node);
                return ModelResult{&node};
            });
    }

    static void setValue(Element& target, const Element& source) {
        switch (source.type()) {
            case etBoolean:
                return target.setBooleanValue(source.getBooleanValue().value());
            case etNumber:
                return target.setNumberValue(source.getNumberValue().value());
            case etString:
                return target.setStringValue(source.getStringValue().value());
            case etObject:
                return target.setObjectValue(source.getObjectValue());
            case etArray:
                return target.setArrayValue(source.getArrayValue());
            default:
                break;
        }
    }

    void set() {
        const Operand source = operand();
        const Twin target = anyTwin(source.node().m_kind);
        const bool asElement = byte() % 2 == 0;
        both(
            [&] {
                if (asElement) {
                    return Result{&target.m_element->realAssign(source.element())};
                }
                setValue(*target.m_element, source.element());
                return Result{target.m_element};
            },
            [&] {
                ::realAssign(m_model, *target.m_node, source.node());
                return ModelResult{target.m_node};
            });
    }

    void tryUpdate() {
        const Twin target = anyTwin();
        const Operand source = operand();
        const ModelPath where = path();
        both(
            [&] {
                const Path text(where.m_text);
                return Result{source.m_owned
                                  ? &target.m_element->tryUpdate(text, source.m_owned)
                                  : &target.m_element->tryUpdate(text, source.element())};
            },
            [&] {
                Node* const node = create(m_model, *target.m_node, where, source.node());
                if (!node) {
                    throw Refusal{Outcome::refused};
                }
                ::realAssign(m_model, *node, source.node());
                return ModelResult{node};
            });
    }

    void createByPath() {
        const Twin target = anyTwin();
        const Operand source = operand();
        const ModelPath where = path();
        const bool tries = byte() % 2 == 0;
        both(
            [&] {
                Element& root = *target.m_element;
                const Path text(where.m_text);
                return Result{tries ? Path::tryCreateElement(root, text, source.element())
                                    : &Path::createElement(root, text, source.element())};
            },
            [&] {
                Node* const node = create(m_model, *target.m_node, where, source.node());
                if (!node) {
                    throw Refusal{tries ? Outcome::refused : Outcome::pathNotFound};
                }
                return ModelResult{node};
            });
    }

    void lookUpByPath() {
        const Twin target = anyTwin();
        const ModelPath where = path();
        const auto kind = static_cast<EType>(byte() % 6);
        Element& from = *target.m_element;
        const Path text(where.m_text);
        both([&] { return Result{&from.get(text)}; },
             [&] { return ModelResult{&get(*target.m_node, where)}; });
        both(
            [&] {
                return Result{Path::tryGetElement(text, from), from.pathExists(text)};
            },
            [&] {
                const Node* const node = lookUp(*target.m_node, where);
                return ModelResult{node, node != nullptr};
            });
        both([&] { return Result{Path::tryGetElement(text, from, kind)}; },
             [&] {
                 const Node* const node = lookUp(*target.m_node, where);
                 return ModelResult{node && node->m_kind == kind ? node : nullptr};
             });
    }

    void findItem() {
        const Twin target = anyTwin(etArray);
        const Operand pattern = operand();
        const ModelPath keyPath = path();
        const ModelPath arrayPath = path();
        both(
            [&] {
                Element& from = *target.m_element;
                const Path key(keyPath.m_text);
                const Path array(arrayPath.m_text);
                return Result{pattern.m_owned ? from.findElement(pattern.m_owned, key, array)
                                              : from.findElement(pattern.element(), key, array)};
            },
            [&] {
                Node& array = get(*target.m_node, arrayPath);
                return ModelResult{find(array, pattern.node(), keyPath)};
            });
    }

    void removeItems() {
        const Twin target = anyTwin(etArray);
        const Operand pattern = operand();
        const ModelPath keyPath = path();
        const ModelPath arrayPath = path();
        both(
            [&] {
                target.m_element->removeElement(pattern.element(), keyPath.m_text,
                                                arrayPath.m_text);
                return Result{};
            },
            [&] {
                remove(get(*target.m_node, arrayPath), pattern.node(), keyPath);
                return ModelResult{};
            });
    }

    void compare() {
        const Twin left = anyTwin();
        const Operand right = operand();
        both(
            [&] {
                return Result{nullptr, left.m_element->compare(right.element())};
            },
            [&] {
                return ModelResult{nullptr, compareNodes(*left.m_node, right.node())};
            });
    }

    void emptyContainer() { empty(anyTwin()); }

    void empty(const Twin& target) {
        const bool assigned = byte() % 2 == 0;
        both(
            [&] {
                if (target.m_node->m_kind == etArray) {
                    target.m_element->setArrayValue(Array::k_empty);
                } else if (assigned) {
                    target.m_element->setObjectValue(Object::k_empty);
                } else {
                    target.m_element->getObjectValue().clear();
                }
                return Result{};
            },
            [&] {
                if (target.m_node->m_kind != etArray) {
                    requireKind(*target.m_node, etObject);
                }
                target.m_node->m_children.clear();
                target.m_node->m_keys.clear();
                return ModelResult{};
            });
    }

    /// Makes a part of the tree, or all of it, the tree.
    void copyDocument() {
        const Twin part = anyTwin();
        both(
            [&] {
                if (part.m_node->m_children.empty()) {
                    const Dom copy(m_dom);
                    m_dom = copy;
                } else {
                    m_dom.setRoot(*part.m_element);
                }
                return Result{};
            },
            [&] {
                m_root = &m_model.clone(part.m_node->m_children.empty() ? *m_root : *part.m_node);
                return ModelResult{};
            });
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Program(data, size).run();
    return 0;
}
