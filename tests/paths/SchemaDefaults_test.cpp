#include <zo/Tessera/Element.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "paths/notFound.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

static_assert(std::is_same_v<decltype(std::declval<Element&>().getDefault("")), const Element&>);
static_assert(
    std::is_same_v<decltype(std::declval<const Element&>().getUsingDefault("")), const Element&>);

// "a.none" and "list[0].none" have a schema node without a default, "a.alien" has none at all.
const char* const k_documentWithSchema = R"({
    "meta": {"schema": {
        "default": "the whole",
        "items": {"default": "an item of the root"},
        "properties": {
            "a": {"default": {"b": "in a's"}, "properties": {"b": {"default": "b"}, "none": {}}},
            "list": {"items": {
                "default": "an item",
                "items": {"default": "an item's item"},
                "properties": {"x": {"default": null}, "none": {}}}},
            "x.y": {"properties": {"[0]": {"default": "odd"}}}}}},
    "a": {"alien": 1, "none": 2},
    "list": [{"x": 1, "none": 3}, ["inner"]],
    "x.y": {}})";

struct Default {
    const char* name;
    const char* element;  // asked for the default
    const char* path;
    const char* found;  // the path of the default
};

class GetDefault : public testing::TestWithParam<Default> {};

TEST_P(GetDefault, GivesTheMemberDefaultOfTheSchemaNode) {
    const auto root = parsed(k_documentWithSchema);
    const Element& asked = std::as_const(*root).get(GetParam().element);
    const Element& found = asked.getDefault(GetParam().path);
    EXPECT_EQ(found.path(nullptr), GetParam().found);
    EXPECT_EQ(&found, &root->get(GetParam().found));
}

INSTANTIATE_TEST_SUITE_P(
    Element, GetDefault,
    testing::Values(
        Default{"RootItself", "", "", "meta.schema.default"},
        Default{"RootMember", "", "a", "meta.schema.properties.a.default"},
        Default{"RootLongerPath", "", "a.b", "meta.schema.properties.a.properties.b.default"},
        Default{"RootLeadingDot", "", ".a.b", "meta.schema.properties.a.properties.b.default"},
        Default{"RootLeadingIndex", "", "[7]", "meta.schema.items.default"},
        Default{"RootAnyItem", "", "list[*]", "meta.schema.properties.list.items.default"},
        Default{"RootItemBeyondTheEnd", "", "list[99]",
                "meta.schema.properties.list.items.default"},
        Default{"RootMemberOfAnItem", "", "list[1].x",
                "meta.schema.properties.list.items.properties.x.default"},
        Default{"MemberItself", "a", "", "meta.schema.properties.a.default"},
        Default{"MemberKey", "a", "b", "meta.schema.properties.a.properties.b.default"},
        Default{"MemberLeadingDot", "a", ".b", "meta.schema.properties.a.properties.b.default"},
        Default{"ArrayIndex", "list", "[1]", "meta.schema.properties.list.items.default"},
        Default{"ArrayAnyItem", "list", "[*]", "meta.schema.properties.list.items.default"},
        Default{"ArrayIndexThenKey", "list", "[0].x",
                "meta.schema.properties.list.items.properties.x.default"},
        Default{"ArrayIndexes", "list", "[1][0]",
                "meta.schema.properties.list.items.items.default"},
        Default{"ItemItself", "list[0]", "", "meta.schema.properties.list.items.default"},
        Default{"ItemKey", "list[0]", "x",
                "meta.schema.properties.list.items.properties.x.default"},
        Default{"ItemIndex", "list[1]", "[5]", "meta.schema.properties.list.items.items.default"},
        Default{"ItemsItem", "list[1][0]", "", "meta.schema.properties.list.items.items.default"},
        Default{"ScalarItself", "list[0].x", "",
                "meta.schema.properties.list.items.properties.x.default"},
        Default{"EscapedKeys", "", "x\\.y.\\[0\\]",
                "meta.schema.properties.x\\.y.properties.\\[0\\].default"},
        // A backslash is neither "." nor "[": the dot is put before it.
        Default{"LeadingEscape", "x\\.y", "\\[0\\]",
                "meta.schema.properties.x\\.y.properties.\\[0\\].default"}),
    k_rowName);

struct NoDefault {
    const char* name;
    const char* element;
    const char* path;
    const char* message;
};

class NoDefaultFound : public testing::TestWithParam<NoDefault> {};

// The element that is asked for may well be there: its default comes first.
TEST_P(NoDefaultFound, NamesTheSchemaPath) {
    const auto root = parsed(k_documentWithSchema);
    const Element& asked = root->get(GetParam().element);
    EXPECT_EQ(notFound([&] { asked.getDefault(GetParam().path); }), GetParam().message);
    EXPECT_EQ(notFound([&] { asked.getUsingDefault(GetParam().path); }), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Element, NoDefaultFound,
    testing::Values(
        NoDefault{"NoDefaultInTheNode", "", "a.none",
                  R"(Path "meta.schema.properties.a.properties.none.default" not found! )"
                  R"(Key "default". Current element: "meta.schema.properties.a.properties.none")"},
        NoDefault{"NoNode", "a", "alien",
                  R"(Path "meta.schema.properties.a.properties.alien.default" not found! )"
                  R"(Key "alien". Current element: "meta.schema.properties.a.properties")"},
        NoDefault{"NoNodeForMembers", "list", "x",
                  R"(Path "meta.schema.properties.list.properties.x.default" not found! )"
                  R"(Key "properties". Current element: "meta.schema.properties.list")"},
        NoDefault{"NoNodeForItems", "a", "[0]",
                  R"(Path "meta.schema.properties.a.items.default" not found! )"
                  R"(Key "items". Current element: "meta.schema.properties.a")"},
        NoDefault{"NoDefaultForAnArray", "list", "",
                  R"(Path "meta.schema.properties.list.default" not found! )"
                  R"(Key "default". Current element: "meta.schema.properties.list")"},
        NoDefault{"ItemWithoutADefault", "list[0]", "none",
                  R"(Path "meta.schema.properties.list.items.properties.none.default" not found! )"
                  R"(Key "default". )"
                  R"(Current element: "meta.schema.properties.list.items.properties.none")"},
        // The path of a scalar goes on like any other.
        NoDefault{"BelowAScalar", "a.none", "x",
                  R"(Path "meta.schema.properties.a.properties.none.properties.x.default" )"
                  R"(not found! Key "properties". )"
                  R"(Current element: "meta.schema.properties.a.properties.none")"}),
    k_rowName);

TEST(SchemaDefaults, AreNotThereWithoutASchema) {
    for (const char* json : {"[1]", "{}", R"({"a": {"b": 1}})"}) {
        const auto root = parsed(json);
        EXPECT_EQ(notFound([&] { root->getDefault("a.b"); }),
                  R"(Path "meta.schema.properties.a.properties.b.default" not found! Key "meta". )"
                  R"(Current element: "")");
        EXPECT_EQ(notFound([&] { root->getUsingDefault("a.b"); }),
                  R"(Path "meta.schema.properties.a.properties.b.default" not found! Key "meta". )"
                  R"(Current element: "")");
    }
}

// A detached copy is the root of its own tree.
TEST(SchemaDefaults, AreLookedUpInTheTreeOfTheElement) {
    const auto root = parsed(k_documentWithSchema);
    const std::unique_ptr<Element> copy(root->at("a").clone());
    EXPECT_EQ(notFound([&] { copy->getDefault("b"); }),
              R"(Path "meta.schema.properties.b.default" not found! Key "meta". )"
              R"(Current element: "")");
    Element* const meta = Element::createObject(copy.get(), "meta");
    Element* const schema = Element::createObject(meta, "schema");
    const Element* const own = Element::createNull(schema, "default");
    EXPECT_EQ(&copy->getDefault(""), own);
}

struct Value {
    const char* name;
    const char* element;
    const char* path;
    const char* found;
};

class GetUsingDefault : public testing::TestWithParam<Value> {};

TEST_P(GetUsingDefault, GivesTheElementOrElseItsDefault) {
    const auto root = parsed(k_documentWithSchema);
    const Element& asked = root->get(GetParam().element);
    EXPECT_EQ(&asked.getUsingDefault(GetParam().path), &root->get(GetParam().found));
}

INSTANTIATE_TEST_SUITE_P(
    Element, GetUsingDefault,
    testing::Values(
        Value{"TheElementItself", "a", "", "a"}, Value{"TheRootItself", "", "", ""},
        Value{"ExistingMember", "", "a", "a"}, Value{"ExistingItem", "list", "[1]", "list[1]"},
        Value{"ExistingMemberOfAnItem", "", "list[0].x", "list[0].x"},
        Value{"ExistingItemsItem", "list[1]", "[0]", "list[1][0]"},
        Value{"MissingMember", "", "a.b", "meta.schema.properties.a.properties.b.default"},
        Value{"MissingMemberFromItsParent", "a", "b",
              "meta.schema.properties.a.properties.b.default"},
        Value{"MissingItem", "list", "[2]", "meta.schema.properties.list.items.default"},
        Value{"MissingMemberOfAMissingItem", "", "list[2].x",
              "meta.schema.properties.list.items.properties.x.default"},
        Value{"MemberOfAnItemOfAnotherKind", "list[1]", "x",
              "meta.schema.properties.list.items.properties.x.default"},
        Value{"ItemOfARootThatIsNoArray", "", "[0]", "meta.schema.items.default"}),
    k_rowName);

TEST(UsingSchemaDefaults, GivesAnExistingNullRatherThanTheDefault) {
    const auto root =
        parsed(R"({"meta": {"schema": {"properties": {"n": {"default": 1}}}}, "n": null})");
    EXPECT_EQ(&root->getUsingDefault("n"), &root->at("n"));
}

// Each text is read with the path of the element before it, and so are the columns counted.
TEST(SchemaDefaults, ThrowWhereTheSyntaxBreaks) {
    const auto root = parsed(k_documentWithSchema);
    const Element& a = root->at("a");
    const auto both = [](const Element& asked, const char* path) {
        const std::string text = thrown<ParseException>([&] { asked.getDefault(path); });
        EXPECT_EQ(thrown<ParseException>([&] { asked.getUsingDefault(path); }), text);
        return text;
    };
    EXPECT_EQ(both(*root, "a..b"),
              "Parse error at 1,2-1,3Unexpected character '.' in path at \"\" 2,3 "
              "parser state esObjectInit");
    EXPECT_EQ(both(*root, "..a"),
              "Parse error at 1,0-1,1Unexpected character '.' in path at \"\" 0,1 "
              "parser state esObjectInit");
    EXPECT_EQ(both(a, "b..c"),
              "Parse error at 1,3-1,4Unexpected character '.' in path at \"\" 3,4 "
              "parser state esObjectInit");
    EXPECT_EQ(both(a, "]"),
              "Parse error at 1,1-1,2Unexpected character ']' in path at \"\" 1,2 "
              "parser state esObjectInit");
    EXPECT_EQ(both(root->at("list"), "[x]"),
              "Parse error at 1,4-1,5Unexpected character 'x' in path at \"\" 4,5 "
              "parser state esArrayInit");
    EXPECT_EQ(both(*root, "."),
              "Parse error at 1,0-1,1Unexpexced EOF in path at \"\" 0,1 parser state esObjectInit");
}

TEST(UsingSchemaDefaults, ThrowsForAnyItemThatIsLookedUp) {
    const auto root = parsed(k_documentWithSchema);
    EXPECT_EQ(thrown<ParseException>([&] { root->getUsingDefault("list[*]"); }),
              "Index must be set!");
    // Without a default it does not come to that, and neither does a look-up that ends before.
    EXPECT_EQ(notFound([&] { root->getUsingDefault("a.none[*]"); }),
              R"(Path "meta.schema.properties.a.properties.none.items.default" not found! )"
              R"(Key "items". Current element: "meta.schema.properties.a.properties.none")");
    const auto empty =
        parsed(R"({"meta": {"schema": {"properties": {"list": {"items": {"default": 1}}}}}})");
    EXPECT_EQ(&empty->getUsingDefault("list[*]"),
              &empty->get("meta.schema.properties.list.items.default"));
}

}  // namespace
