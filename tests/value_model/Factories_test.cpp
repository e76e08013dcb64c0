#include <zo/Tessera/Element.h>

#include <memory>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "support/NumberOf.h"
#include "support/dump.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

static_assert(std::is_same_v<decltype(value()), std::unique_ptr<Element>>);
static_assert(std::is_same_v<decltype(object()), std::unique_ptr<Element>>);
static_assert(std::is_same_v<decltype(array()), std::unique_ptr<Element>>);

struct FreeRow {
    const char* name;
    std::unique_ptr<Element> (*make)();
    const char* text;
};

class FreeFactories : public testing::TestWithParam<FreeRow> {};

TEST_P(FreeFactories, MakeADetachedElement) {
    EXPECT_EQ(dump(*GetParam().make()),
              std::string(GetParam().text) + " key=\"\" index=- parent=none\n");
}

INSTANTIATE_TEST_SUITE_P(
    Factories, FreeFactories,
    testing::Values(
        FreeRow{"Null", [] { return value(); }, "etNull"},
        FreeRow{"True", [] { return value(true); }, "etBoolean true"},
        FreeRow{"False", [] { return value(false); }, "etBoolean false"},
        FreeRow{"Number", [] { return value(numberOf("1.50")); }, "etNumber 1.50"},
        FreeRow{"Int", [] { return value(-2147483647 - 1); }, "etNumber -2147483648"},
        FreeRow{"UnsignedInt", [] { return value(4294967295U); }, "etNumber 4294967295"},
        FreeRow{"Long", [] { return value(-9223372036854775807L - 1); },
                "etNumber -9223372036854775808"},
        FreeRow{"UnsignedLong", [] { return value(18446744073709551615UL); },
                "etNumber 18446744073709551615"},
        FreeRow{"LongLong", [] { return value(9223372036854775807LL); },
                "etNumber 9223372036854775807"},
        FreeRow{"UnsignedLongLong", [] { return value(18446744073709551615ULL); },
                "etNumber 18446744073709551615"},
        FreeRow{"Double", [] { return value(2.5); }, "etNumber 2.5"},
        // A double's text has 6 significant digits: callers rely on it.
        FreeRow{"DoubleIsShortened", [] { return value(1234567.0); }, "etNumber 1.23457e+06"},
        FreeRow{"String", [] { return value(std::string("a b")); }, "etString \"a b\""},
        FreeRow{"Literal", [] { return value("text"); }, "etString \"text\""},
        FreeRow{"EmptyLiteral", [] { return value(""); }, "etString \"\""},
        FreeRow{"LiteralUpToItsTerminator", [] { return value("ab\0cd"); }, "etString \"ab\""},
        FreeRow{"Object", [] { return object(); }, "etObject"},
        FreeRow{"Array", [] { return array(); }, "etArray"}),
    k_rowName);

TEST(FreeFactories, KeepAZeroInsideAString) {
    EXPECT_EQ(value(std::string("a\0b", 3))->getStringValue().value(), std::string("a\0b", 3));
}

TEST(FreeFactories, RefuseANullText) {
    EXPECT_EQ(thrown<Exception>([] { value(static_cast<const char*>(nullptr)); }),
              "Null pointer exception: text may not be null");
}

TEST(FreeFactories, HoldANumberInTheFormOfItsType) {
    const auto form = [](const std::unique_ptr<Element>& element) {
        return element->getNumberValue().value().type();
    };
    EXPECT_EQ(form(value(1)), BasicNumber::ebLongLong);
    EXPECT_EQ(form(value(1U)), BasicNumber::ebULongLong);
    EXPECT_EQ(form(value(1L)), BasicNumber::ebLongLong);
    EXPECT_EQ(form(value(1UL)), BasicNumber::ebULongLong);
    EXPECT_EQ(form(value(1LL)), BasicNumber::ebLongLong);
    EXPECT_EQ(form(value(1ULL)), BasicNumber::ebULongLong);
    EXPECT_EQ(form(value(1.0)), BasicNumber::ebDouble);
    EXPECT_EQ(form(value(numberOf(1U))), BasicNumber::ebULongLong);
}

struct StaticRow {
    const char* name;
    Element* (*detached)();
    Element* (*byKey)(Element* parent, const std::string& key);
    Element* (*appended)(Element* parent);
    const char* text;
};

template <int kind>
StaticRow createRow(const char* name, const char* text) {
    constexpr EType k_type = static_cast<EType>(kind);
    return {name, [] { return Element::create(k_type); },
            [](Element* p, const std::string& k) { return Element::create(k_type, p, k); },
            [](Element* p) { return Element::create(k_type, p); }, text};
}

class StaticFactories : public testing::TestWithParam<StaticRow> {
protected:
    const std::string text = GetParam().text;
};

TEST_P(StaticFactories, MakeADetachedElement) {
    const std::unique_ptr<const Element> element(GetParam().detached());
    EXPECT_EQ(dump(*element), text + " key=\"\" index=- parent=none\n");
}

TEST_P(StaticFactories, MakeAMember) {
    Object parent;
    const Element* const member = GetParam().byKey(&parent, "k");
    EXPECT_EQ(&parent.at("k"), member);
    EXPECT_EQ(dump(parent), "etObject key=\"\" index=- parent=none\n  " + text +
                                " key=\"k\" index=- parent=right\n");
}

TEST_P(StaticFactories, ReplaceAMember) {
    Object parent;
    Element::createString("old", &parent, "k");
    Element::createNull(&parent, "z");
    const Element* const member = GetParam().byKey(&parent, "k");
    EXPECT_EQ(&parent.at("k"), member);
    EXPECT_EQ(dump(parent), "etObject key=\"\" index=- parent=none\n  " + text +
                                " key=\"\" index=- parent=right held as \"k\"\n"
                                "  etNull key=\"z\" index=- parent=right\n");
}

TEST_P(StaticFactories, AppendAnItem) {
    Array parent;
    Element::createNull(&parent);
    const Element* const item = GetParam().appended(&parent);
    EXPECT_EQ(&parent.at(1), item);
    EXPECT_EQ(dump(parent),
              "etArray key=\"\" index=- parent=none\n"
              "  etNull key=\"[0]\" index=0 parent=right\n  " +
                  text + " key=\"[1]\" index=1 parent=right\n");
}

TEST_P(StaticFactories, RefuseANullParent) {
    EXPECT_EQ(thrown<Exception>([] { GetParam().byKey(nullptr, "k"); }),
              "Null pointer exception: parent may not be null");
    EXPECT_EQ(thrown<Exception>([] { GetParam().appended(nullptr); }),
              "Null pointer exception: parent may not be null");
}

TEST_P(StaticFactories, RefuseAParentOfTheWrongKindAndLeaveItAlone) {
    Object root;
    Element* const list = Element::createArray(&root, "list");
    Element* const member = Element::createObject(&root, "member");
    const std::string before = dump(root);
    EXPECT_EQ(thrown<TypeException<EType>>([&] { GetParam().byKey(list, "k"); }),
              "Json type mismatch! Requestet Json type: etObject Got Json type: etArray "
              "Current element: \"list\"");
    // An object asked for its array names etObject twice: callers match on this text.
    EXPECT_EQ(thrown<TypeException<EType>>([&] { GetParam().appended(member); }),
              "Json type mismatch! Requestet Json type: etObject Got Json type: etObject "
              "Current element: \"member\"");
    EXPECT_EQ(dump(root), before);
}

INSTANTIATE_TEST_SUITE_P(
    Factories, StaticFactories,
    testing::Values(
        StaticRow{"Null", [] { return Element::createNull(); },
                  [](Element* p, const std::string& k) { return Element::createNull(p, k); },
                  [](Element* p) { return Element::createNull(p); }, "etNull"},
        StaticRow{
            "Boolean", [] { return Element::createBoolean(true); },
            [](Element* p, const std::string& k) { return Element::createBoolean(true, p, k); },
            [](Element* p) { return Element::createBoolean(true, p); }, "etBoolean true"},
        StaticRow{"Number", [] { return Element::createNumber(numberOf("1.50")); },
                  [](Element* p, const std::string& k) {
                      return Element::createNumber(numberOf("1.50"), p, k);
                  },
                  [](Element* p) { return Element::createNumber(numberOf("1.50"), p); },
                  "etNumber 1.50"},
        StaticRow{
            "String", [] { return Element::createString("text"); },
            [](Element* p, const std::string& k) { return Element::createString("text", p, k); },
            [](Element* p) { return Element::createString("text", p); }, "etString \"text\""},
        StaticRow{"Object", [] { return Element::createObject(); },
                  [](Element* p, const std::string& k) { return Element::createObject(p, k); },
                  [](Element* p) { return Element::createObject(p); }, "etObject"},
        StaticRow{"Array", [] { return Element::createArray(); },
                  [](Element* p, const std::string& k) { return Element::createArray(p, k); },
                  [](Element* p) { return Element::createArray(p); }, "etArray"},
        createRow<-1>("OfEmpty", "etNull"), createRow<0>("OfNull", "etNull"),
        createRow<1>("OfBoolean", "etBoolean false"), createRow<2>("OfNumber", "etNumber 0"),
        createRow<3>("OfString", "etString \"\""), createRow<4>("OfObject", "etObject"),
        createRow<5>("OfArray", "etArray"),
        // What is no kind makes a null.
        createRow<6>("OfSix", "etNull"), createRow<-5>("OfMinusFive", "etNull")),
    k_rowName);

TEST(Create, MakesASignedZero) {
    const std::unique_ptr<const Element> element(Element::create(etNumber));
    EXPECT_EQ(element->getNumberValue().value().type(), BasicNumber::ebLongLong);
    EXPECT_EQ(element->getNumberValue().value().toString(), "0");
}

}  // namespace
