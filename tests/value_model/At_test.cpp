#include <zo/Tessera/Element.h>

#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "KindMatrix.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

static_assert(std::is_same_v<decltype(std::declval<Element&>().at(0)), Element&>);
static_assert(std::is_same_v<decltype(std::declval<const Element&>().at(0)), const Element&>);
static_assert(std::is_same_v<decltype(std::declval<Element&>().at("")), Element&>);
static_assert(std::is_same_v<decltype(std::declval<const Element&>().at("")), const Element&>);

TEST(AtIndex, GivesTheItem) {
    Array array;
    Element* const first = Element::createNull(&array);
    Element* const second = Element::createNull(&array);
    Element& element = array;
    EXPECT_EQ(&element.at(0), first);  // a literal 0 is an index, not a null text
    EXPECT_EQ(&element.at(1), second);
    EXPECT_EQ(&std::as_const(element).at(0), first);
    EXPECT_EQ(&std::as_const(element).at(1), second);
    EXPECT_EQ(&array.at(1UL), second);
}

TEST(AtKey, GivesTheMember) {
    Object object;
    Element* const a = Element::createNull(&object, "a");
    Element* const zero = Element::createNull(&object, "0");
    Element& element = object;
    EXPECT_EQ(&element.at("a"), a);
    EXPECT_EQ(&element.at("0"), zero);
    EXPECT_EQ(&std::as_const(element).at("a"), a);
    EXPECT_EQ(&std::as_const(element).at(std::string("0")), zero);
}

TEST(AtKey, IsNoPath) {
    Object object;
    Element* const a = Element::createObject(&object, "a");
    Element::createNull(a, "b");
    Element* const dotted = Element::createNull(&object, "a.b");
    Element& element = object;
    EXPECT_EQ(&element.at("a.b"), dotted);
}

struct MissingKey {
    const char* name;
    std::string key;
    std::string message;
};

class AtMissingKey : public testing::TestWithParam<MissingKey> {};

TEST_P(AtMissingKey, ThrowsTheKeyBetweenQuotesAndNoElement) {
    Object root;
    Element* const object = Element::createObject(&root, "o");
    Element::createNull(object, "y");
    try {
        object->at(GetParam().key);
        FAIL();
    } catch (const Exception& exception) {
        EXPECT_EQ(exception.elementPath(), nullptr);
    }
    EXPECT_EQ(thrown<Exception>([&] { object->at(GetParam().key); }), GetParam().message);
    EXPECT_EQ(object->size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Element, AtMissingKey,
    testing::Values(MissingKey{"Plain", "x", "Object does not contain \"x\""},
                    MissingKey{"Empty", "", "Object does not contain \"\""},
                    MissingKey{"OtherCase", "Y", "Object does not contain \"Y\""},
                    MissingKey{"PrefixOfAnother", "yy", "Object does not contain \"yy\""},
                    MissingKey{"QuoteInside", "a\"b", "Object does not contain \"a\"b\""},
                    MissingKey{"PathCharacters", "a.[*]\\", "Object does not contain \"a.[*]\\\""}),
    k_rowName);

class AtOfAnotherKind : public testing::TestWithParam<KindRow> {};

TEST_P(AtOfAnotherKind, ThrowsTheMismatchOfTheGetter) {
    Object root;
    Element* const element = GetParam().make();
    root.insert("e", element);
    const Element& constElement = *element;
    using Mismatch = TypeException<EType>;
    if (!GetParam().isSelf(gtArray)) {
        const std::string message = GetParam().mismatch(gtArray, "e");
        EXPECT_EQ(thrown<Mismatch>([&] { element->at(0); }), message);
        EXPECT_EQ(thrown<Mismatch>([&] { constElement.at(0); }), message);
    }
    if (!GetParam().isSelf(gtObject)) {
        const std::string message = GetParam().mismatch(gtObject, "e");
        EXPECT_EQ(thrown<Mismatch>([&] { element->at("a"); }), message);
        EXPECT_EQ(thrown<Mismatch>([&] { constElement.at("a"); }), message);
    }
}

INSTANTIATE_TEST_SUITE_P(Element, AtOfAnotherKind, testing::ValuesIn(k_kindRows), k_rowName);

#ifndef NDEBUG
TEST(AtDeathTest, AssertsItsRequirementsInDebugBuilds) {
    Array array;
    Element::createNull(&array);
    Element& asElement = array;
    EXPECT_DEATH(asElement.at(1), "");
    EXPECT_DEATH(std::as_const(asElement).at(1), "");
    Object object;
    const Element& constObject = object;
    EXPECT_DEATH(constObject.at("a"), "");
}
#endif

}  // namespace
