#include <zo/Tessera/Array.h>
#include <zo/Tessera/Object.h>

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "support/dump.h"
#include "support/rowName.h"

using namespace zo::Tessera;

// What is assigned may be a part of the target, which the assignment deletes.

namespace {

using Assign = void (*)(Element& target, const Element& source);

struct Row {
    const char* name;
    Assign assignArray;
    Assign assignObject;
};

class SourceInsideTarget : public testing::TestWithParam<Row> {};

/// [null, ["x", [true]]]
void fillArray(Array& array) {
    Element::createNull(&array);
    Element* const inner = Element::createArray(&array);
    Element::createString("x", inner);
    Element::createBoolean(true, Element::createArray(inner));
}

/// {"n": null, "in": {"s": "x", "deep": {"b": true}}}
void fillObject(Object& object) {
    Element::createNull(&object, "n");
    Element* const inner = Element::createObject(&object, "in");
    Element::createString("x", inner, "s");
    Element::createBoolean(true, Element::createObject(inner, "deep"), "b");
}

const char* const k_childArray =
    "etArray key=\"\" index=- parent=none\n"
    "  etString \"x\" key=\"\" index=- parent=none\n"
    "  etArray key=\"\" index=- parent=none\n"
    "    etBoolean true key=\"\" index=- parent=none\n";

const char* const k_grandchildArray =
    "etArray key=\"\" index=- parent=none\n"
    "  etBoolean true key=\"\" index=- parent=none\n";

const char* const k_memberObject =
    "etObject key=\"\" index=- parent=none\n"
    "  etString \"x\" key=\"\" index=- parent=none held as \"s\"\n"
    "  etObject key=\"\" index=- parent=none held as \"deep\"\n"
    "    etBoolean true key=\"\" index=- parent=none held as \"b\"\n";

const char* const k_deepObject =
    "etObject key=\"\" index=- parent=none\n"
    "  etBoolean true key=\"\" index=- parent=none held as \"b\"\n";

TEST_P(SourceInsideTarget, MayBeAnAttachedChildOfAnArray) {
    Array array;
    fillArray(array);
    GetParam().assignArray(array, array.at(1));
    EXPECT_EQ(dump(array), k_childArray);
}

TEST_P(SourceInsideTarget, MayBeAnAttachedGrandchildOfAnArray) {
    Array array;
    fillArray(array);
    GetParam().assignArray(array, array.at(1).at(1));
    EXPECT_EQ(dump(array), k_grandchildArray);
}

TEST_P(SourceInsideTarget, MayBeAnUnattachedChildOfAnArray) {
    Array original;
    fillArray(original);
    Array array(original);
    GetParam().assignArray(array, array.at(1));
    EXPECT_EQ(dump(array), k_childArray);
}

TEST_P(SourceInsideTarget, MayBeAnUnattachedGrandchildOfAnArray) {
    Array original;
    fillArray(original);
    Array array(original);
    GetParam().assignArray(array, array.at(1).at(1));
    EXPECT_EQ(dump(array), k_grandchildArray);
}

TEST_P(SourceInsideTarget, MayBeAnAttachedMemberOfAnObject) {
    Object object;
    fillObject(object);
    GetParam().assignObject(object, object.at("in"));
    EXPECT_EQ(dump(object), k_memberObject);
}

TEST_P(SourceInsideTarget, MayBeAnAttachedMembersMemberOfAnObject) {
    Object object;
    fillObject(object);
    GetParam().assignObject(object, object.at("in").at("deep"));
    EXPECT_EQ(dump(object), k_deepObject);
}

TEST_P(SourceInsideTarget, MayBeAnUnattachedMemberOfAnObject) {
    Object original;
    fillObject(original);
    Object object(original);
    GetParam().assignObject(object, object.at("in"));
    EXPECT_EQ(dump(object), k_memberObject);
}

TEST_P(SourceInsideTarget, MayBeAnUnattachedMembersMemberOfAnObject) {
    Object original;
    fillObject(original);
    Object object(original);
    GetParam().assignObject(object, object.at("in").at("deep"));
    EXPECT_EQ(dump(object), k_deepObject);
}

TEST_P(SourceInsideTarget, MayStandBehindAContainerOfTheOtherKind) {
    Array array;
    Element* const item = Element::createArray(Element::createObject(&array), "a");
    Element::createNull(item);
    GetParam().assignArray(array, *item);
    EXPECT_EQ(dump(array),
              "etArray key=\"\" index=- parent=none\n"
              "  etNull key=\"\" index=- parent=none\n");
    Object object;
    Element* const member = Element::createObject(Element::createArray(&object, "a"));
    Element::createNull(member, "n");
    GetParam().assignObject(object, *member);
    EXPECT_EQ(dump(object),
              "etObject key=\"\" index=- parent=none\n"
              "  etNull key=\"\" index=- parent=none held as \"n\"\n");
}

// The target is emptied first, so its copy inside the source has what was copied until then.
TEST_P(SourceInsideTarget, MayAlsoHoldTheTarget) {
    Array array;
    fillArray(array);
    GetParam().assignArray(array.at(1), array);
    EXPECT_EQ(dump(array),
              "etArray key=\"\" index=- parent=none\n"
              "  etNull key=\"[0]\" index=0 parent=right\n"
              "  etArray key=\"[1]\" index=1 parent=right\n"
              "    etNull key=\"\" index=- parent=none\n"
              "    etArray key=\"\" index=- parent=none\n"
              "      etNull key=\"\" index=- parent=none\n");
    Object object;
    fillObject(object);
    GetParam().assignObject(object.at("in"), object);
    EXPECT_EQ(dump(object),
              "etObject key=\"\" index=- parent=none\n"
              "  etNull key=\"n\" index=- parent=right\n"
              "  etObject key=\"in\" index=- parent=right\n"
              "    etNull key=\"\" index=- parent=none held as \"n\"\n"
              "    etObject key=\"\" index=- parent=none held as \"in\"\n"
              "      etNull key=\"\" index=- parent=none held as \"n\"\n");
}

void assignArray(Element& target, const Element& source) {
    target.getArrayValue().assign(source.getArrayValue());
}
void assignObject(Element& target, const Element& source) {
    target.getObjectValue().assign(source.getObjectValue());
}
void setArray(Element& target, const Element& source) {
    target.setArrayValue(source.getArrayValue());
}
void setObject(Element& target, const Element& source) {
    target.setObjectValue(source.getObjectValue());
}
void realAssign(Element& target, const Element& source) {
    target.realAssign(source);
}

INSTANTIATE_TEST_SUITE_P(Containers, SourceInsideTarget,
                         testing::Values(Row{"ByAssign", assignArray, assignObject},
                                         Row{"BySetter", setArray, setObject},
                                         Row{"ByRealAssign", realAssign, realAssign}),
                         k_rowName);

}  // namespace
