#include <zo/Tessera/Element.h>

#include <gtest/gtest.h>

#include <memory>

#include <zo/Tessera/Exception.h>

#include "support/dump.h"
#include "support/inPlace.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using Owner = std::unique_ptr<Element>;

const char* const k_wholeTree = R"({"a": {"b": 1, "c.[d]": 2}, "list": ["x", [3, {"k": 4}], "z"]})";

/// A path in that tree, and what is left when that was removed.
struct RemovedPath {
    const char* name;
    const char* path;
    const char* after;
};

class RemoveByPath : public testing::TestWithParam<RemovedPath> {};

TEST_P(RemoveByPath, LeavesEverythingElseInItsPlace) {
    const Owner root = parsed(k_wholeTree);
    EXPECT_TRUE(root->remove(GetParam().path));
    EXPECT_EQ(dump(*root), inPlace(GetParam().after));
}

INSTANTIATE_TEST_SUITE_P(
    Element, RemoveByPath,
    testing::Values(RemovedPath{"Member", "a.b",
                                R"({"a": {"c.[d]": 2}, "list": ["x", [3, {"k": 4}], "z"]})"},
                    RemovedPath{"MemberWithAnEscapedKey", "a.c\\.\\[d\\]",
                                R"({"a": {"b": 1}, "list": ["x", [3, {"k": 4}], "z"]})"},
                    RemovedPath{"FilledMember", ".a", R"({"list": ["x", [3, {"k": 4}], "z"]})"},
                    RemovedPath{"FirstItem", "list[0]",
                                R"({"a": {"b": 1, "c.[d]": 2}, "list": [[3, {"k": 4}], "z"]})"},
                    RemovedPath{"ItemInTheMiddle", "list[1]",
                                R"({"a": {"b": 1, "c.[d]": 2}, "list": ["x", "z"]})"},
                    RemovedPath{"LastItem", "list[2]",
                                R"({"a": {"b": 1, "c.[d]": 2}, "list": ["x", [3, {"k": 4}]]})"},
                    RemovedPath{"ItemOfAnItem", "list[1][0]",
                                R"({"a": {"b": 1, "c.[d]": 2}, "list": ["x", [{"k": 4}], "z"]})"},
                    RemovedPath{"MemberOfAnItem", "list[1][1].k",
                                R"({"a": {"b": 1, "c.[d]": 2}, "list": ["x", [3, {}], "z"]})"}),
    k_rowName);

class RemoveOfNothing : public testing::TestWithParam<const char*> {};

TEST_P(RemoveOfNothing, ChangesNothing) {
    const Owner root = parsed(k_wholeTree);
    EXPECT_FALSE(root->remove(GetParam()));
    EXPECT_EQ(dump(*root), inPlace(k_wholeTree));
}

INSTANTIATE_TEST_SUITE_P(Element, RemoveOfNothing,
                         testing::Values("d", "a.d", "d.b", "d[0]", "list[3]", "list[3].k",
                                         "list.a", "a[0]", "a[0].b", "a.b.c", "list[0][0]",
                                         "list[1][1].k.x", "list[18446744073709551614]"));

TEST(RemoveByPath, BeginsAtTheElement) {
    const Owner root = parsed(k_wholeTree);
    EXPECT_TRUE(root->at("list").remove("[1][0]"));
    EXPECT_TRUE(root->get("list[1]").remove("[0].k"));
    EXPECT_FALSE(root->get("a.b").remove("x"));
    EXPECT_EQ(dump(*root), inPlace(R"({"a": {"b": 1, "c.[d]": 2}, "list": ["x", [{}], "z"]})"));
}

TEST(RemoveByPath, EmptiesATreeStepByStep) {
    const Owner root = parsed(R"([{"a": 1}])");
    EXPECT_TRUE(root->remove("[0].a"));
    EXPECT_FALSE(root->remove("[0].a"));
    EXPECT_TRUE(root->remove("[0]"));
    EXPECT_FALSE(root->remove("[0]"));
    EXPECT_EQ(dump(*root), inPlace("[]"));
}

TEST(RemoveByPath, RefusesAnyIndexWhereverItStands) {
    const Owner root = parsed(k_wholeTree);
    for (const char* const path :
         {"list[*]", "list[*].k", "missing[*]", "a[*]", "list[1][18446744073709551615]"}) {
        EXPECT_EQ(thrown<ParseException>([&] { root->remove(path); }), "Index must be set!")
            << path;
    }
    EXPECT_EQ(dump(*root), inPlace(k_wholeTree));
}

TEST(RemoveByPath, NeedsASegment) {
    const Owner root = parsed(k_wholeTree);
    for (const char* const path : {"", "\xFF"}) {
        EXPECT_EQ(thrown<Exception>([&] { root->remove(path); }), "Path may not be empty");
        EXPECT_EQ(thrown<Exception>([&] { root->get("a.b").remove(path); }),
                  "Path may not be empty");
    }
    EXPECT_EQ(dump(*root), inPlace(k_wholeTree));
}

TEST(RemoveByPath, ReadsTheWholePathFirst) {
    const Owner root = parsed(k_wholeTree);
    EXPECT_EQ(thrown<ParseException>([&] { root->remove("a..b"); }),
              "Parse error at 1,1-1,2Unexpected character '.' in path at \"\" 1,2 "
              "parser state esObjectInit");
    EXPECT_EQ(thrown<ParseException>([&] { root->remove("missing.x["); }),
              "Parse error at 1,9-1,10Unexpexced EOF in path at \"\" 9,10 "
              "parser state esArrayInit");
    EXPECT_EQ(dump(*root), inPlace(k_wholeTree));
}

// The containers of a copy are not their children's parents.
TEST(RemoveByPathFromACopy, FindsItsWay) {
    const Owner copy(parsed(k_wholeTree)->clone());
    EXPECT_TRUE(copy->remove("list[1][1].k"));
    EXPECT_TRUE(copy->remove("list[0]"));
    EXPECT_TRUE(copy->remove("a"));
    EXPECT_FALSE(copy->remove("a"));
    EXPECT_EQ(dump(*copy),
              "etObject key=\"\" index=- parent=none\n"
              "  etArray key=\"\" index=- parent=none held as \"list\"\n"
              "    etArray key=\"[0]\" index=0 parent=right\n"
              "      etNumber 3 key=\"\" index=- parent=none\n"
              "      etObject key=\"\" index=- parent=none\n"
              "    etString \"z\" key=\"[1]\" index=1 parent=right\n");
}

}  // namespace
