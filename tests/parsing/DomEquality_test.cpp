#include <zo/Tessera/Dom.h>

#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera.h>

#include "support/rowName.h"
#include "support/thrown.h"

namespace {

using namespace std::string_literals;
using zo::Tessera::Dom;
using zo::Tessera::DomParser;

struct Side {
    std::string text;
    bool includeMeta = true;
    std::string metaKey = "meta";
};

Dom domOf(const Side& side) {
    Dom dom;
    DomParser().parse(dom, side.text);
    dom.setIncludeMeta(side.includeMeta);
    dom.setMetaKey(side.metaKey);
    return dom;
}

struct Sides {
    const char* name;
    Side left;
    Side right;
    bool equal;
};

void PrintTo(const Sides& row, std::ostream* out) {
    *out << row.name;
}

class DomEquality : public testing::TestWithParam<Sides> {};

TEST_P(DomEquality, HoldsFromBothSidesAndIsNegatedByNotEqual) {
    const Dom left = domOf(GetParam().left);
    const Dom right = domOf(GetParam().right);
    EXPECT_EQ(left == right, GetParam().equal);
    EXPECT_EQ(right == left, GetParam().equal);
    EXPECT_EQ(left != right, !GetParam().equal);
    EXPECT_EQ(right != left, !GetParam().equal);
}

INSTANTIATE_TEST_SUITE_P(
    Trees, DomEquality,
    testing::Values(Sides{"SameTree", {R"({"a":[1,null]})"}, {R"( { "a" : [ 1 , null ] } )"}, true},
                    Sides{"OtherValue", {R"({"a":[1,null]})"}, {R"({"a":[2,null]})"}, false},
                    Sides{"OtherKind", {"[]"}, {"{}"}, false},
                    Sides{"OneMore", {"[1]"}, {"[1,1]"}, false},
                    // Objects compare by their members' values alone.
                    Sides{"OtherKey", {R"({"a":1})"}, {R"({"b":1})"}, true},
                    // Deliberately: a document without a root equals none but itself.
                    Sides{"NoRoots", {""}, {""}, false},
                    Sides{"RootAndNone", {"null"}, {""}, false}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Settings, DomEquality,
    testing::Values(
        Sides{"SameSettings", {"[1]", false, "about"}, {"[1]", false, "about"}, true},
        Sides{"OtherMetaFlag", {"[1]", true}, {"[1]", false}, false},
        Sides{"OtherMetaKey", {"[1]", true, "meta"}, {"[1]", true, "Meta"}, false},
        Sides{"MetaKeyWithAZeroByte", {"[1]", true, "meta"}, {"[1]", true, "meta\0"s}, false},
        Sides{"NoRootsAndOtherSettings", {"", true, "a"}, {"", false, "b"}, false}),
    k_rowName);

TEST(DomEqualsItself, WithAndWithoutARoot) {
    const Dom empty;
    EXPECT_TRUE(empty == empty);
    EXPECT_FALSE(empty != empty);
    const Dom filled = domOf({"[1]"});
    EXPECT_TRUE(filled == filled);
    EXPECT_FALSE(filled != filled);
}

TEST(DomComparison, FailsWhereNumbersCannotBeCompared) {
    // A number of 20 digits or more is kept as text only; callers know this refusal.
    const Dom left = domOf({"[1234567890123456789012345678901234567890]"});
    const Dom right = domOf({"[1234567890123456789012345678901234567890]"});
    EXPECT_EQ((thrown<zo::Tessera::ValueOutOfRange<std::string, std::string>>(
                  [&] { static_cast<void>(left == right); })),
              "Value out of range! Value: 1234567890123456789012345678901234567890 Min:  Max: ");
}

TEST(DomCopyEquality, LastsUntilASettingOrAValueChanges) {
    const Dom dom = domOf({R"({"a":[1]})"});
    Dom copy(dom);
    EXPECT_TRUE(copy == dom);
    copy.setMetaKey("other");
    EXPECT_FALSE(copy == dom);
    copy = dom;
    EXPECT_TRUE(copy == dom);
    copy.root()->at("a").setArrayValue(zo::Tessera::array()->getArrayValue());
    EXPECT_FALSE(copy == dom);
}

}  // namespace
