#include <zo/Tessera/Element.h>

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "BareElement.h"
#include "KindMatrix.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

struct Getter {
    const char* name;
    const Element* (*get)(Element& element);
    const Element* (*getConst)(const Element& element);
};

// In the order of the table's cells.
const Getter k_getters[] = {
    {"getBooleanValue", [](Element& e) -> const Element* { return &e.getBooleanValue(); },
     [](const Element& e) -> const Element* { return &e.getBooleanValue(); }},
    {"getNumberValue", [](Element& e) -> const Element* { return &e.getNumberValue(); },
     [](const Element& e) -> const Element* { return &e.getNumberValue(); }},
    {"getStringValue", [](Element& e) -> const Element* { return &e.getStringValue(); },
     [](const Element& e) -> const Element* { return &e.getStringValue(); }},
    {"getObjectValue", [](Element& e) -> const Element* { return &e.getObjectValue(); },
     [](const Element& e) -> const Element* { return &e.getObjectValue(); }},
    {"getArrayValue", [](Element& e) -> const Element* { return &e.getArrayValue(); },
     [](const Element& e) -> const Element* { return &e.getArrayValue(); }},
};

class GetterMatrix : public testing::TestWithParam<KindRow> {
protected:
    template <class Get, class Target>
    void expectCell(size_t i, Get get, Target& element, const std::string& path) {
        SCOPED_TRACE(k_getters[i].name);
        if (GetParam().isSelf(i)) {
            EXPECT_EQ(get(element), &element);
            return;
        }
        EXPECT_EQ(thrown<TypeException<EType>>([&] { get(element); }),
                  GetParam().mismatch(i, path));
    }
};

TEST_P(GetterMatrix, AnswersSelfOrNamesBothKindsAndThePath) {
    Object root;
    Element* const list = Element::createArray(&root, "a.b");
    Element::createNull(list);
    Element* const element = GetParam().make();
    list->getArrayValue().push_back(element);
    const Element& constElement = *element;
    for (size_t i = 0; i < 5; ++i) {
        expectCell(i, k_getters[i].get, *element, "a\\.b[1]");
        expectCell(i, k_getters[i].getConst, constElement, "a\\.b[1]");
    }
}

TEST_P(GetterMatrix, NamesAnEmptyPathForARoot) {
    const std::unique_ptr<Element> element(GetParam().make());
    const Element& constElement = *element;
    for (size_t i = 0; i < 5; ++i) {
        expectCell(i, k_getters[i].get, *element, "");
        expectCell(i, k_getters[i].getConst, constElement, "");
    }
}

INSTANTIATE_TEST_SUITE_P(Elements, GetterMatrix, testing::ValuesIn(k_kindRows), k_rowName);

TEST(Getters, BuildTheWholeText) {
    const std::unique_ptr<Element> text(Element::createString("x"));
    // The string names etBoolean as the kind asked for: callers match on this text.
    EXPECT_EQ(thrown<TypeException<EType>>([&] { text->getNumberValue(); }),
              "Json type mismatch! Requestet Json type: etBoolean Got Json type: etString "
              "Current element: \"\"");
}

TEST(Getters, CarryBothKindsAndThePathInTheException) {
    Object root;
    const Element* const text = Element::createString("x", &root, "name");
    try {
        text->getArrayValue();
        FAIL();
    } catch (const TypeException<EType>& exception) {
        EXPECT_EQ(exception.requested(), etArray);
        EXPECT_EQ(exception.found(), etString);
        ASSERT_NE(exception.elementPath(), nullptr);
        EXPECT_EQ(*exception.elementPath(), "name");
    }
}

/// Overrides the getters without const, and those alone.
class Disguise : public BareElement {
public:
    Disguise() : BareElement(etNull), m_boolean(true), m_number(BasicNumber()), m_string("text") {}

    using Element::getArrayValue;
    using Element::getBooleanValue;
    using Element::getNumberValue;
    using Element::getObjectValue;
    using Element::getStringValue;
    TBasicElement<bool>& getBooleanValue() override { return m_boolean; }
    TBasicElement<BasicNumber>& getNumberValue() override { return m_number; }
    TBasicElement<std::string>& getStringValue() override { return m_string; }
    Object& getObjectValue() override { return m_object; }
    Array& getArrayValue() override { return m_array; }

private:
    TBasicElement<bool> m_boolean;
    TBasicElement<BasicNumber> m_number;
    TBasicElement<std::string> m_string;
    Object m_object;
    Array m_array;
};

TEST(Getters, AnswerBothFormsForAClassThatOverridesOne) {
    Disguise disguise;
    const Element& constDisguise = disguise;
    for (const Getter& getter : k_getters) {
        SCOPED_TRACE(getter.name);
        EXPECT_EQ(getter.getConst(constDisguise), getter.get(disguise));
    }
}

}  // namespace
