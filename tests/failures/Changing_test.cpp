#include <zo/Tessera/Element.h>

#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/TBasicElement.h>

#include "failures/outOfMemory.h"
#include "failures/richTree.h"
#include "support/NumberOf.h"
#include "support/dump.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

const std::string k_newText = "new " + k_long;
const BasicNumber k_newNumber = numberOf("9876543210987654321098765432109876543210.5");
const TBasicElement<std::string> k_newString(k_newText);
const TBasicElement<BasicNumber> k_newNumberElement(k_newNumber);

/// An operation that changes a tree.
struct Change {
    const char* name;
    std::function<void(Element& root)> apply;
};

class OutOfMemoryInAChange : public testing::TestWithParam<Change> {};

TEST_P(OutOfMemoryInAChange, IsAsIfItHadNotBeenTried) {
    const std::string before = dump(*richTree());
    const auto whole = richTree();
    GetParam().apply(*whole);
    const std::string after = dump(*whole);
    ASSERT_NE(after, before);
    std::unique_ptr<Element> root;
    const long failures =
        failEachAllocation([&] { root = richTree(); }, [&] { GetParam().apply(*root); },
                           [&] {
                               EXPECT_EQ(dump(*root), before);
                               expectWhole(*root);
                               GetParam().apply(*root);
                               EXPECT_EQ(dump(*root), after);
                           });
    EXPECT_GT(failures, 0);
    EXPECT_EQ(dump(*root), after);
}

INSTANTIATE_TEST_SUITE_P(
    Element, OutOfMemoryInAChange,
    testing::Values(
        Change{"SetStringValue", [](Element& e) { e.at("text").setStringValue(k_newText); }},
        Change{"SetStringValueOfAnElement",
               [](Element& e) { e.at("text").setStringValue(k_newString); }},
        Change{"SetNumberValue", [](Element& e) { e.at("number").setNumberValue(k_newNumber); }},
        Change{"SetNumberValueOfAnElement",
               [](Element& e) { e.at("number").setNumberValue(k_newNumberElement); }},
        Change{"AssignAString", [](Element& e) { e.at("text").realAssign(k_newString); }},
        Change{"AssignANumber", [](Element& e) { e.at("number").realAssign(k_newNumberElement); }},
        Change{"UpdateAString", [](Element& e) { e.tryUpdate("text", k_newString); }},
        Change{"UpdateANumber", [](Element& e) { e.tryUpdate("number", k_newNumberElement); }},
        Change{"InsertACopy", [](Element& e) { e.insertElement(k_newKey, e.at("list")); }},
        Change{"InsertACopyInPlace", [](Element& e) { e.insertElement("text", k_newString); }},
        Change{"InsertWhatIsHandedOver",
               [](Element& e) { e.insertElement(k_newKey, value(k_newText)); }},
        Change{"CreateElement", [](Element& e) { Path::createElement(e, k_newKey, e.at("list")); }},
        Change{"TryCreateElement",
               [](Element& e) { Path::tryCreateElement(e, "list[*]", e.at(k_long)); }}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Create, OutOfMemoryInAChange,
    testing::Values(
        Change{"Null", [](Element& e) { Element::create(etNull, &e, k_newKey); }},
        Change{"Boolean", [](Element& e) { Element::create(etBoolean, &e, k_newKey); }},
        Change{"Number", [](Element& e) { Element::create(etNumber, &e, k_newKey); }},
        Change{"String", [](Element& e) { Element::create(etString, &e, k_newKey); }},
        Change{"Object", [](Element& e) { Element::create(etObject, &e, k_newKey); }},
        Change{"Array", [](Element& e) { Element::create(etArray, &e, k_newKey); }},
        Change{"ReplacementOfAMember", [](Element& e) { Element::create(etArray, &e, k_long); }},
        Change{"NullItem", [](Element& e) { Element::create(etNull, &e.at("list")); }},
        Change{"BooleanItem", [](Element& e) { Element::create(etBoolean, &e.at("list")); }},
        Change{"NumberItem", [](Element& e) { Element::create(etNumber, &e.at("list")); }},
        Change{"StringItem", [](Element& e) { Element::create(etString, &e.at("list")); }},
        Change{"ObjectItem", [](Element& e) { Element::create(etObject, &e.at("list")); }},
        Change{"ArrayItem", [](Element& e) { Element::create(etArray, &e.at("list")); }}),
    k_rowName);

// The parent deletes what is constructed.
INSTANTIATE_TEST_SUITE_P(
    Constructor, OutOfMemoryInAChange,
    testing::Values(
        Change{"Null", [](Element& e) { new Null(&e, k_newKey); }},
        Change{"Boolean", [](Element& e) { new TBasicElement<bool>(true, &e, k_newKey); }},
        Change{"Number",
               [](Element& e) { new TBasicElement<BasicNumber>(k_newNumber, &e, k_newKey); }},
        Change{"String",
               [](Element& e) { new TBasicElement<std::string>(k_newText, &e, k_newKey); }},
        Change{"StringFromWhatItReplaces",
               [](Element& e) {
                   const std::string& old = e.at("text").getStringValue().value();
                   new TBasicElement<std::string>(old, &e, "text");
               }},
        Change{"Object", [](Element& e) { new Object(&e, k_newKey); }},
        Change{"Array", [](Element& e) { new Array(&e, k_newKey); }},
        Change{"NullItem", [](Element& e) { new Null(&e.at("list")); }},
        Change{"BooleanItem", [](Element& e) { new TBasicElement<bool>(true, &e.at("list")); }},
        Change{"NumberItem",
               [](Element& e) { new TBasicElement<BasicNumber>(k_newNumber, &e.at("list")); }},
        Change{"StringItem",
               [](Element& e) { new TBasicElement<std::string>(k_newText, &e.at("list")); }},
        Change{"ObjectItem", [](Element& e) { new Object(&e.at("list")); }},
        Change{"ArrayItem", [](Element& e) { new Array(&e.at("list")); }}),
    k_rowName);

/// Something that is made and belongs to the caller, shown as text.
struct Making {
    const char* name;
    std::function<std::unique_ptr<Element>()> make;
    const char* state;
};

class OutOfMemoryWhenMaking : public testing::TestWithParam<Making> {};

TEST_P(OutOfMemoryWhenMaking, IsAWholeElementOrNone) {
    std::unique_ptr<Element> element;
    const auto make = [&] { element = GetParam().make(); };
    const auto check = [&] { EXPECT_EQ(element, nullptr); };
    EXPECT_GT(failEachAllocation([&] { element.reset(); }, make, check), 0);
    EXPECT_EQ(dump(*element), GetParam().state + std::string(" key=\"\" index=- parent=none\n"));
}

using Owner = std::unique_ptr<Element>;
const char* const k_stringState =
    "etString \"a text that is too long to be kept inside the string\"";

INSTANTIATE_TEST_SUITE_P(
    Value, OutOfMemoryWhenMaking,
    testing::Values(Making{"Null", [] { return value(); }, "etNull"},
                    Making{"Boolean", [] { return value(true); }, "etBoolean true"},
                    Making{"Number", [] { return value(k_newNumber); },
                           "etNumber 9876543210987654321098765432109876543210.5"},
                    Making{"Int", [] { return value(-7); }, "etNumber -7"},
                    Making{"UnsignedInt", [] { return value(7U); }, "etNumber 7"},
                    Making{"Long", [] { return value(-7L); }, "etNumber -7"},
                    Making{"UnsignedLong", [] { return value(7UL); }, "etNumber 7"},
                    Making{"LongLong", [] { return value(-7LL); }, "etNumber -7"},
                    Making{"UnsignedLongLong", [] { return value(7ULL); }, "etNumber 7"},
                    Making{"Double", [] { return value(0.5); }, "etNumber 0.5"},
                    Making{"String", [] { return value(k_long); }, k_stringState},
                    Making{"Text", [] { return value(k_long.c_str()); }, k_stringState},
                    Making{"Object", [] { return object(); }, "etObject"},
                    Making{"Array", [] { return array(); }, "etArray"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Factory, OutOfMemoryWhenMaking,
    testing::Values(
        Making{"Null", [] { return Owner(Element::create(etNull)); }, "etNull"},
        Making{"Boolean", [] { return Owner(Element::create(etBoolean)); }, "etBoolean false"},
        Making{"Number", [] { return Owner(Element::create(etNumber)); }, "etNumber 0"},
        Making{"String", [] { return Owner(Element::create(etString)); }, "etString \"\""},
        Making{"Object", [] { return Owner(Element::create(etObject)); }, "etObject"},
        Making{"Array", [] { return Owner(Element::create(etArray)); }, "etArray"},
        Making{"LongNumber", [] { return Owner(Element::createNumber(k_newNumber)); },
               "etNumber 9876543210987654321098765432109876543210.5"},
        Making{"LongString", [] { return Owner(Element::createString(k_long)); }, k_stringState}),
    k_rowName);

}  // namespace
