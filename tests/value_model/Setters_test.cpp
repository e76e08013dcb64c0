#include <zo/Tessera/Element.h>

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "KindMatrix.h"
#include "support/NumberOf.h"
#include "support/dump.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

struct Setter {
    const char* name;
    GetterIndex getter;
    EType kind;
    void (*set)(Element& target);
    const char* result;
};

void setObject(Element& target) {
    Object source;
    Element::createNull(&source, "n");
    target.setObjectValue(source);
}

void setArray(Element& target) {
    Array source;
    Element::createBoolean(true, &source);
    target.setArrayValue(source);
}

const Setter k_setters[] = {
    {"BooleanElement", gtBoolean, etBoolean,
     [](Element& e) { e.setBooleanValue(TBasicElement<bool>(true)); },
     "etBoolean true key=\"t\" index=- parent=right\n"},
    {"Boolean", gtBoolean, etBoolean, [](Element& e) { e.setBooleanValue(true); },
     "etBoolean true key=\"t\" index=- parent=right\n"},
    {"NumberElement", gtNumber, etNumber,
     [](Element& e) { e.setNumberValue(TBasicElement<BasicNumber>(numberOf("1.50"))); },
     "etNumber 1.50 key=\"t\" index=- parent=right\n"},
    {"Number", gtNumber, etNumber, [](Element& e) { e.setNumberValue(numberOf("1.50")); },
     "etNumber 1.50 key=\"t\" index=- parent=right\n"},
    {"StringElement", gtString, etString,
     [](Element& e) { e.setStringValue(TBasicElement<std::string>("new")); },
     "etString \"new\" key=\"t\" index=- parent=right\n"},
    {"String", gtString, etString, [](Element& e) { e.setStringValue("new"); },
     "etString \"new\" key=\"t\" index=- parent=right\n"},
    {"Object", gtObject, etObject, setObject,
     "etObject key=\"t\" index=- parent=right\n"
     "    etNull key=\"\" index=- parent=none held as \"n\"\n"},
    {"Array", gtArray, etArray, setArray,
     "etArray key=\"t\" index=- parent=right\n"
     "    etBoolean true key=\"\" index=- parent=none\n"},
};

class Setters : public testing::TestWithParam<Setter> {};

TEST_P(Setters, CopyTheValueAndLeaveThePlaceAlone) {
    Object root;
    Element* const target = Element::create(GetParam().kind, &root, "t");
    GetParam().set(*target);
    EXPECT_EQ(dump(root),
              std::string("etObject key=\"\" index=- parent=none\n  ") + GetParam().result);
}

TEST_P(Setters, RefuseEveryOtherKindAsTheGetterDoes) {
    for (const KindRow& row : k_kindRows) {
        if (row.isSelf(GetParam().getter)) {
            continue;
        }
        SCOPED_TRACE(row.name);
        Object root;
        Element* const target = row.make();
        root.insert("t", target);
        const std::string before = dump(root);
        EXPECT_EQ(thrown<TypeException<EType>>([&] { GetParam().set(*target); }),
                  row.mismatch(GetParam().getter, "t"));
        EXPECT_EQ(dump(root), before);
    }
}

INSTANTIATE_TEST_SUITE_P(Element, Setters, testing::ValuesIn(k_setters), k_rowName);

TEST(Setters, TakeTheTargetItself) {
    TBasicElement<bool> boolean(true);
    boolean.setBooleanValue(boolean);
    EXPECT_TRUE(boolean.value());
    TBasicElement<BasicNumber> number(numberOf("1.50"));
    number.setNumberValue(number);
    EXPECT_EQ(number.value().toString(), "1.50");
    TBasicElement<std::string> text("a text that is too long to be kept inside the string");
    text.setStringValue(text);
    EXPECT_EQ(text.value(), "a text that is too long to be kept inside the string");
}

TEST(Setters, TakeTheTargetsOwnValue) {
    TBasicElement<bool> boolean(true);
    boolean.setBooleanValue(boolean.value());
    EXPECT_TRUE(boolean.value());
    TBasicElement<BasicNumber> number(numberOf("1.50"));
    number.setNumberValue(number.value());
    EXPECT_EQ(number.value().toString(), "1.50");
    TBasicElement<std::string> text("a text that is too long to be kept inside the string");
    text.setStringValue(text.value());
    EXPECT_EQ(text.value(), "a text that is too long to be kept inside the string");
}

TEST(Setters, LeaveAContainerGivenItselfAsItIs) {
    Object object;
    const Element* const member = Element::createNull(&object, "a");
    object.setObjectValue(object);
    EXPECT_EQ(&object.at("a"), member);
    Array array;
    const Element* const item = Element::createNull(&array);
    array.setArrayValue(array);
    EXPECT_EQ(&array.at(0), item);
}

TEST(Setters, ReplaceAllThatAContainerHeld) {
    Object object;
    Element::createBoolean(true, &object, "old");
    setObject(object);
    EXPECT_EQ(dump(object),
              "etObject key=\"\" index=- parent=none\n"
              "  etNull key=\"\" index=- parent=none held as \"n\"\n");
    Array array;
    Element::createNull(&array);
    Element::createNull(&array);
    setArray(array);
    EXPECT_EQ(dump(array),
              "etArray key=\"\" index=- parent=none\n"
              "  etBoolean true key=\"\" index=- parent=none\n");
}

TEST(Setters, CopyBothFormsOfANumber) {
    TBasicElement<BasicNumber> number(numberOf("1.50"));
    number.setNumberValue(numberOf(7U));
    EXPECT_EQ(number.value().type(), BasicNumber::ebULongLong);
    EXPECT_EQ(number.value().toString(), "7");
}

/// A null in name that answers the boolean getter with an element it holds.
class BooleanBehind : public BareElement {
public:
    BooleanBehind() : BareElement(etNull), m_held(false) {}
    using Element::getBooleanValue;
    TBasicElement<bool>& getBooleanValue() override { return m_held; }

private:
    TBasicElement<bool> m_held;
};

TEST(Setters, FetchTheirTargetThroughTheVirtualGetter) {
    BooleanBehind element;
    element.setBooleanValue(true);
    EXPECT_TRUE(element.getBooleanValue().value());
    element.setBooleanValue(TBasicElement<bool>(false));
    EXPECT_FALSE(element.getBooleanValue().value());
}

}  // namespace
