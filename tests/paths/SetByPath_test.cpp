#include <zo/Tessera/Element.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "paths/notFound.h"
#include "support/dump.h"
#include "support/inPlace.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using Owner = std::unique_ptr<Element>;

const char* const k_tree = R"({"a": {"b": 1}, "list": ["x", [2]]})";

/// A path in that tree, and what the tree is when a null was put there.
struct Placement {
    const char* name;
    const char* path;
    const char* after;
    const char* pathAfter;  // of the null
};

class SetByPath : public testing::TestWithParam<Placement> {};

TEST_P(SetByPath, PutsACopyThere) {
    const Owner root = parsed(k_tree);
    const Owner source = value();
    const Element& result = root->set(GetParam().path, *source);
    EXPECT_EQ(dump(*root), inPlace(GetParam().after));
    EXPECT_EQ(result.path(nullptr), GetParam().pathAfter);
    EXPECT_EQ(&root->get(result.path(nullptr)), &result);
    EXPECT_EQ(dump(*source), inPlace("null"));
}

TEST_P(SetByPath, PutsWhatIsHandedOverThere) {
    const Owner root = parsed(k_tree);
    Owner owner = value();
    const Element* const element = owner.get();
    EXPECT_EQ(&root->set(GetParam().path, std::move(owner)), element);
    EXPECT_EQ(owner, nullptr);
    EXPECT_EQ(dump(*root), inPlace(GetParam().after));
    EXPECT_EQ(element->path(nullptr), GetParam().pathAfter);
}

INSTANTIATE_TEST_SUITE_P(
    WhatIsThere, SetByPath,
    testing::Values(
        Placement{"Member", "list", R"({"a": {"b": 1}, "list": null})", "list"},
        Placement{"MemberOfAMember", "a.b", R"({"a": {"b": null}, "list": ["x", [2]]})", "a.b"},
        Placement{"FilledMember", ".a", R"({"a": null, "list": ["x", [2]]})", "a"},
        Placement{"FirstItem", "list[0]", R"({"a": {"b": 1}, "list": [null, [2]]})", "list[0]"},
        Placement{"LastItem", "list[1]", R"({"a": {"b": 1}, "list": ["x", null]})", "list[1]"},
        Placement{"ItemOfAnItem", "list[1][0]", R"({"a": {"b": 1}, "list": ["x", [null]]})",
                  "list[1][0]"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    WhatIsMissing, SetByPath,
    testing::Values(
        Placement{"Member", "new", R"({"a": {"b": 1}, "list": ["x", [2]], "new": null})", "new"},
        Placement{"MemberOfAMember", "a.c", R"({"a": {"b": 1, "c": null}, "list": ["x", [2]]})",
                  "a.c"},
        Placement{"KeyWithADot", "a.b\\.c", R"({"a": {"b": 1, "b.c": null}, "list": ["x", [2]]})",
                  "a.b\\.c"},
        Placement{"NextItem", "list[2]", R"({"a": {"b": 1}, "list": ["x", [2], null]})", "list[2]"},
        Placement{"AnyItem", "list[*]", R"({"a": {"b": 1}, "list": ["x", [2], null]})", "list[2]"},
        Placement{"AnyItemOfAnItem", "list[1][*]", R"({"a": {"b": 1}, "list": ["x", [2, null]]})",
                  "list[1][1]"}),
    k_rowName);

// What is made on the way is of the kind that the next segment needs.
INSTANTIATE_TEST_SUITE_P(
    WhatIsMissingOnTheWay, SetByPath,
    testing::Values(
        Placement{"Objects", "new.x.y",
                  R"({"a": {"b": 1}, "list": ["x", [2]], "new": {"x": {"y": null}}})", "new.x.y"},
        Placement{"AnArray", "new[0]", R"({"a": {"b": 1}, "list": ["x", [2]], "new": [null]})",
                  "new[0]"},
        Placement{"AnArrayOfAnyItem", "a.c[*]",
                  R"({"a": {"b": 1, "c": [null]}, "list": ["x", [2]]})", "a.c[0]"},
        Placement{"Arrays", "new[*][0][*]",
                  R"({"a": {"b": 1}, "list": ["x", [2]], "new": [[[null]]]})", "new[0][0][0]"},
        Placement{"ObjectInAnAppendedItem", "list[*].name",
                  R"({"a": {"b": 1}, "list": ["x", [2], {"name": null}]})", "list[2].name"},
        Placement{"ObjectInTheNextItem", "list[2].x.y",
                  R"({"a": {"b": 1}, "list": ["x", [2], {"x": {"y": null}}]})", "list[2].x.y"},
        Placement{"InTurn", "new[0].x[*]y",
                  R"({"a": {"b": 1}, "list": ["x", [2]], "new": [{"x": [{"y": null}]}]})",
                  "new[0].x[0].y"}),
    k_rowName);

/// A path whose segment `key` can be neither found nor created in the element at `lacking`.
struct SetRefusal {
    const char* name;
    const char* path;
    const char* key;
    const char* lacking;
};

class SetByPathRefusal : public testing::TestWithParam<SetRefusal> {};

TEST_P(SetByPathRefusal, ChangesNothing) {
    const Owner root = parsed(k_tree);
    Owner owner = parsed("[null]");
    const std::string expected = std::string("Path \"") + GetParam().path + "\" not found! Key \"" +
                                 GetParam().key + "\". Current element: \"" + GetParam().lacking +
                                 "\"";
    EXPECT_EQ(notFound([&] { root->set(GetParam().path, *owner); }), expected);
    EXPECT_EQ(notFound([&] { root->set(GetParam().path, std::move(owner)); }), expected);
    EXPECT_EQ(dump(*root), inPlace(k_tree));
    EXPECT_EQ(dump(*owner), inPlace("[null]"));
}

INSTANTIATE_TEST_SUITE_P(
    Element, SetByPathRefusal,
    testing::Values(SetRefusal{"KeyInAnArray", "list.x", "x", "list"},
                    SetRefusal{"KeyInAnArrayOnTheWay", "list.x.y", "x", "list"},
                    SetRefusal{"IndexPastTheSize", "list[3]", "[3]", "list"},
                    SetRefusal{"IndexPastTheSizeOnTheWay", "list[3].x", "[3]", "list"},
                    SetRefusal{"IndexInAnObject", "a[0]", "[0]", "a"},
                    SetRefusal{"IndexInAnObjectOnTheWay", "[0].b", "[0]", ""},
                    SetRefusal{"AnyIndexInAnObject", "a[*]", "[18446744073709551615]", "a"},
                    SetRefusal{"KeyInAScalar", "a.b.c", "c", "a.b"},
                    SetRefusal{"IndexInAScalar", "list[0][0]", "[0]", "list[0]"},
                    SetRefusal{"AnyIndexInAScalarOnTheWay", "list[0][*].x",
                               "[18446744073709551615]", "list[0]"},
                    SetRefusal{"IndexPastTheSizeOfANewArray", "new[1]", "[1]", ""},
                    SetRefusal{"IndexPastTheSizeDeepInWhatIsNew", "a.c.d[*][3].e", "[3]", "a"},
                    SetRefusal{"IndexPastTheSizeInAnAppendedItem", "list[*][1]", "[1]", "list"}),
    k_rowName);

TEST(SetByPathSyntax, IsCheckedBeforeAnythingIsChanged) {
    const Owner root = parsed(k_tree);
    Owner owner = value();
    EXPECT_EQ(thrown<ParseException>([&] { root->set("new.x..y", std::move(owner)); }),
              "Parse error at 1,5-1,6Unexpected character '.' in path at \"\" 5,6 "
              "parser state esObjectInit");
    EXPECT_EQ(thrown<ParseException>([&] { root->set("list[*", *owner); }),
              "Parse error at 1,5-1,6Unexpexced EOF in path at \"*\" 5,6 parser state esArray");
    EXPECT_EQ(dump(*root), inPlace(k_tree));
    EXPECT_EQ(dump(*owner), inPlace("null"));
}

TEST(SetByPathSyntax, NeedsASegment) {
    const Owner root = parsed(k_tree);
    Owner owner = value();
    for (const char* const path : {"", "\xFF", "\xFF.a"}) {
        EXPECT_EQ(thrown<Exception>([&] { root->set(path, *owner); }), "Path may not be empty");
        EXPECT_EQ(thrown<Exception>([&] { root->set(path, std::move(owner)); }),
                  "Path may not be empty");
    }
    EXPECT_EQ(dump(*root), inPlace(k_tree));
    EXPECT_NE(owner, nullptr);
}

TEST(SetByPath, RefusesAnEmptyOwner) {
    const Owner root = parsed(k_tree);
    for (const char* const path : {"", "a.b", "new.x"}) {
        EXPECT_EQ(thrown<Exception>([&] { root->set(path, Owner()); }),
                  "Null pointer exception: element may not be null");
    }
    EXPECT_EQ(dump(*root), inPlace(k_tree));
}

TEST(SetByPath, BeginsAtTheElement) {
    const Owner root = parsed(k_tree);
    root->at("list").set("[*]", value());
    root->at("a").set("c.d", value());
    EXPECT_EQ(notFound([&] { root->get("a.b").set("x", value()); }),
              "Path \"x\" not found! Key \"x\". Current element: \"a.b\"");
    EXPECT_EQ(dump(*root),
              inPlace(R"({"a": {"b": 1, "c": {"d": null}}, "list": ["x", [2], null]})"));
}

TEST(SetByPath, TakesACopyOfWhatItReplaces) {
    const Owner root = parsed(k_tree);
    root->set("list", root->get("list[1]"));
    root->at("list").getArrayValue().reattach();
    EXPECT_EQ(dump(*root), inPlace(R"({"a": {"b": 1}, "list": [2]})"));
}

TEST(SetByPath, TakesACopyOfWhatStandsAround) {
    const Owner root = parsed(R"({"a": {"b": 1}})");
    root->set("a.c", *root);
    root->getObjectValue().reattach();
    EXPECT_EQ(dump(*root), inPlace(R"({"a": {"b": 1, "c": {"a": {"b": 1}}}})"));
}

TEST(SetByPath, SetsThePlaceOfAnElementThatIsThere) {
    const Owner root = parsed(R"({"a": {"b": 1}})");
    Owner member = value("new");
    Element* const address = member.get();
    root->at("a").insertElement("b", std::move(member));
    ASSERT_EQ(address->parent(), nullptr);
    EXPECT_EQ(&root->set("a.b", Owner(address)), address);
    EXPECT_EQ(dump(*root), inPlace(R"({"a": {"b": "new"}})"));
}

TEST(SetByPath, AttachesAllOfACopy) {
    const Owner root = object();
    const Owner source = parsed(R"({"x": [{"y": 1}]})");
    root->set("t", *source);
    root->set("list[0]", *parsed("[[2]]"));
    EXPECT_EQ(dump(*root), inPlace(R"({"t": {"x": [{"y": 1}]}, "list": [[[2]]]})"));
    EXPECT_EQ(dump(*source), inPlace(R"({"x": [{"y": 1}]})"));
}

// The containers of a copy are not their children's parents.
TEST(SetByPathInACopy, FindsItsWayAndAttachesWhatItPuts) {
    const Owner copy(parsed(k_tree)->clone());
    copy->set("a.b", value(true));
    copy->set("list[1][*].k", value());
    EXPECT_EQ(dump(*copy),
              "etObject key=\"\" index=- parent=none\n"
              "  etObject key=\"\" index=- parent=none held as \"a\"\n"
              "    etBoolean true key=\"b\" index=- parent=right\n"
              "  etArray key=\"\" index=- parent=none held as \"list\"\n"
              "    etString \"x\" key=\"\" index=- parent=none\n"
              "    etArray key=\"\" index=- parent=none\n"
              "      etNumber 2 key=\"\" index=- parent=none\n"
              "      etObject key=\"[1]\" index=1 parent=right\n"
              "        etNull key=\"k\" index=- parent=right\n");
}

}  // namespace
