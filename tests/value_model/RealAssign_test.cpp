#include <zo/Tessera/Element.h>

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "KindMatrix.h"
#include "support/NumberOf.h"
#include "support/dump.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

struct NewValue {
    const char* name;
    EType kind;
    GetterIndex getter;
    Element* (*make)();
    const char* copy;
};

const NewValue k_newValues[] = {
    {"Boolean", etBoolean, gtBoolean, [] { return Element::createBoolean(true); },
     "etBoolean true key=\"t\" index=- parent=right\n"},
    {"Number", etNumber, gtNumber, [] { return Element::createNumber(numberOf("1.50")); },
     "etNumber 1.50 key=\"t\" index=- parent=right\n"},
    {"String", etString, gtString, [] { return Element::createString("new"); },
     "etString \"new\" key=\"t\" index=- parent=right\n"},
    {"Object", etObject, gtObject,
     [] {
         Element* const object = Element::createObject();
         Element::createNull(object, "n");
         return object;
     },
     "etObject key=\"t\" index=- parent=right\n"
     "    etNull key=\"\" index=- parent=none held as \"n\"\n"},
    {"Array", etArray, gtArray,
     [] {
         Element* const array = Element::createArray();
         Element::createString("i", array);
         return array;
     },
     "etArray key=\"t\" index=- parent=right\n"
     "    etString \"i\" key=\"\" index=- parent=none\n"},
};

class RealAssign : public testing::TestWithParam<NewValue> {};

TEST_P(RealAssign, CopiesTheValueIntoAnElementOfItsKind) {
    Object root;
    Element* const target = Element::create(GetParam().kind, &root, "t");
    const std::unique_ptr<const Element> source(GetParam().make());
    const std::string sourceBefore = dump(*source);
    EXPECT_EQ(&target->realAssign(*source), target);
    EXPECT_EQ(dump(root),
              std::string("etObject key=\"\" index=- parent=none\n  ") + GetParam().copy);
    EXPECT_EQ(dump(*source), sourceBefore);
}

TEST_P(RealAssign, ThrowsTheMismatchOfTheTargetsGetterForAnotherKind) {
    const std::unique_ptr<const Element> source(GetParam().make());
    for (const KindRow& row : k_kindRows) {
        if (row.isSelf(GetParam().getter)) {
            continue;
        }
        SCOPED_TRACE(row.name);
        Object root;
        Element* const target = row.make();
        root.insert("t", target);
        const std::string before = dump(root);
        EXPECT_EQ(thrown<TypeException<EType>>([&] { target->realAssign(*source); }),
                  row.mismatch(GetParam().getter, "t"));
        EXPECT_EQ(dump(root), before);
    }
}

TEST_P(RealAssign, FromItselfChangesNothing) {
    const std::unique_ptr<Element> element(GetParam().make());
    const std::string before = dump(*element);
    EXPECT_EQ(&element->realAssign(*element), element.get());
    EXPECT_EQ(dump(*element), before);
}

INSTANTIATE_TEST_SUITE_P(Element, RealAssign, testing::ValuesIn(k_newValues), k_rowName);

// A null has no value to copy, so it fits every target and changes none.
TEST(RealAssign, OfANullChangesNothingInAnyKind) {
    const Null null;
    for (const NewValue& source : k_newValues) {
        SCOPED_TRACE(source.name);
        const std::unique_ptr<Element> target(source.make());
        const std::string before = dump(*target);
        EXPECT_EQ(&target->realAssign(null), target.get());
        EXPECT_EQ(dump(*target), before);
    }
    Null other;
    EXPECT_EQ(&other.realAssign(null), &other);
}

TEST(RealAssign, OfAnElementThatIsNoKindChangesNothing) {
    TBasicElement<bool> target(true);
    for (const int kind : {-1, 6, -5}) {
        const BareElement source(static_cast<EType>(kind));
        EXPECT_EQ(&target.realAssign(source), &target);
        EXPECT_TRUE(target.value());
    }
}

/// Notes which setter it was given.
class Noting : public BareElement {
public:
    Noting() : BareElement(etNull) {}
    using Element::setBooleanValue;
    using Element::setNumberValue;
    using Element::setStringValue;
    void setBooleanValue(const TBasicElement<bool>&) override { noted = "boolean"; }
    void setNumberValue(const TBasicElement<BasicNumber>&) override { noted = "number"; }
    void setStringValue(const TBasicElement<std::string>&) override { noted = "string"; }
    void setObjectValue(const Object&) override { noted = "object"; }
    void setArrayValue(const Array&) override { noted = "array"; }

    std::string noted;
};

TEST(RealAssign, GoesThroughTheVirtualSetterOfTheSourcesKind) {
    const char* const expected[] = {"boolean", "number", "string", "object", "array"};
    for (size_t i = 0; i < 5; ++i) {
        const std::unique_ptr<const Element> source(k_newValues[i].make());
        Noting target;
        target.realAssign(*source);
        EXPECT_EQ(target.noted, expected[i]);
    }
}

}  // namespace
