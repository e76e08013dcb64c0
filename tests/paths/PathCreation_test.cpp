#include <zo/Tessera/Path.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Generator.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "paths/creating.h"
#include "paths/ownKinds.h"
#include "support/dump.h"
#include "support/exceptionText.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

static_assert(std::is_same_v<decltype(Path::createElement(std::declval<Element&>(), "",
                                                          std::declval<const Element&>())),
                             Element&>);
static_assert(std::is_same_v<decltype(Path::tryCreateElement(std::declval<Element&>(), "",
                                                             std::declval<const Element&>())),
                             Element*>);

namespace {

std::string jsonOf(const Element& element) {
    Generator generator(nullptr);
    generator.setIndent("");
    return generator.encode(element);
}

// A document at the top of its tree, or as the member "outer" of another.
struct PlacedDocument {
    explicit PlacedDocument(const std::string& json, bool below)
        : top(parsed(below ? "{\"outer\":" + json + "}" : json)),
          root(below ? &top->at("outer") : top.get()),
          path(below ? "outer" : "") {}

    std::string pathOf(const std::string& at) const {
        return path + (path.empty() || at.empty() || at[0] == '[' ? "" : ".") + at;
    }

    std::unique_ptr<Element> top;
    Element* root;
    std::string path;
};

struct Created {
    const char* name;
    const char* before;
    const char* path;
    const char* after;
    const char* reached;  // as path() writes it
};

class PathCreated : public testing::TestWithParam<Created> {};

TEST_P(PathCreated, IsReachedAndAttached) {
    const std::unique_ptr<Element> one = value(1);
    for (const Create operation : k_bothCreate) {
        for (const bool below : {false, true}) {
            const PlacedDocument place(GetParam().before, below);
            Element* const element = operation(*place.root, GetParam().path, *one);
            ASSERT_NE(element, nullptr);
            EXPECT_EQ(jsonOf(*place.root), GetParam().after);
            EXPECT_EQ(element->path(nullptr), place.pathOf(GetParam().reached));
            EXPECT_EQ(&Path::getElement(GetParam().reached, *place.root), element);
        }
    }
    EXPECT_EQ(one->parent(), nullptr);
    EXPECT_EQ(one->getNumberValue().value().toString(), "1");
}

INSTANTIATE_TEST_SUITE_P(
    PathCreation, PathCreated,
    testing::Values(
        Created{"AsAMember", "{}", "a", R"({"a":1})", "a"},
        Created{"AsTheLastMember", R"({"b":2})", "a", R"({"b":2,"a":1})", "a"},
        Created{"WithAnObjectOnTheWay", "{}", "a.b", R"({"a":{"b":1}})", "a.b"},
        Created{"WithObjectsOnTheWay", "{}", "a.b.c.d", R"({"a":{"b":{"c":{"d":1}}}})", "a.b.c.d"},
        Created{"BelowWhatExists", R"({"a":{"x":null}})", "a.b.c",
                R"({"a":{"x":null,"b":{"c":1}}})", "a.b.c"},
        Created{"AsTheFirstItem", R"({"list":[]})", "list[*]", R"({"list":[1]})", "list[0]"},
        Created{"AsTheLastItem", R"({"list":[7,8]})", "list[*]", R"({"list":[7,8,1]})", "list[2]"},
        Created{"AsAnItemOfTheRoot", "[true]", "[*]", "[true,1]", "[1]"},
        Created{"WithAnArrayOnTheWay", "[7]", "[*][*]", "[7,[1]]", "[1][0]"},
        Created{"WithArraysOnTheWay", R"({"list":[]})", "list[*][*][*]", R"({"list":[[[1]]]})",
                "list[0][0][0]"},
        Created{"InAnItem", R"([{"x":null},{}])", "[1].b", R"([{"x":null},{"b":1}])", "[1].b"},
        Created{"WithAnObjectInAnItem", "[{}]", "[0]a.b", R"([{"a":{"b":1}}])", "[0].a.b"},
        Created{"AtTheEndOfAnItem", "[[],[2]]", "[1][*]", "[[],[2,1]]", "[1][1]"},
        Created{"UnderKeysWithEscapes", "{}", "x\\.y.\\[0\\].b\\\\", R"({"x.y":{"[0]":{"b\\":1}}})",
                "x\\.y.\\[0\\].b\\\\"},
        Created{"UnderAStar", "{}", "*.\\*", R"({"*":{"*":1}})", "\\*.\\*"},
        // what exists is neither replaced nor changed, and the value is not used
        Created{"NotForTheEmptyPath", R"({"a":2})", "", R"({"a":2})", ""},
        Created{"NotForAMember", R"({"a":2})", "a", R"({"a":2})", "a"},
        Created{"NotForAMemberOfAnotherKind", R"({"a":{"b":null}})", "a.b", R"({"a":{"b":null}})",
                "a.b"},
        Created{"NotForAContainer", R"({"a":{"b":[]}})", "a", R"({"a":{"b":[]}})", "a"},
        Created{"NotForAnItem", "[2,3]", "[1]", "[2,3]", "[1]"},
        Created{"NotForTheEmptyPathOfAnArray", "[2]", "", "[2]", ""}),
    k_rowName);

struct Refused {
    const char* name;
    const char* before;
    const char* path;
    const char* after;  // what was created on the way stays
    const char* key;
    const char* at;
};

class PathRefused : public testing::TestWithParam<Refused> {};

TEST_P(PathRefused, IsNotFound) {
    for (const bool below : {false, true}) {
        const PlacedDocument place(GetParam().before, below);
        try {
            Path::createElement(*place.root, GetParam().path, Object::k_empty);
            ADD_FAILURE();
        } catch (const PathNotFound& exception) {
            EXPECT_EQ(exception.path(), GetParam().path);
            EXPECT_EQ(exception.key(), GetParam().key);
            ASSERT_NE(exception.elementPath(), nullptr);
            EXPECT_EQ(*exception.elementPath(), place.pathOf(GetParam().at));
            EXPECT_EQ(exception.what(), "Path \"" + exception.path() + "\" not found! Key \"" +
                                            exception.key() + "\"." + addressPart(exception));
            std::string base = "replaced";
            exception.Exception::generateWhat(base);
            EXPECT_EQ(base, "");  // no cause
        }
        EXPECT_EQ(jsonOf(*place.root), GetParam().after);
    }
}

// The form that tries throws all the same, but names where it began.
TEST_P(PathRefused, IsAnErrorOfTheRootForTheFormThatTries) {
    for (const bool below : {false, true}) {
        const PlacedDocument place(GetParam().before, below);
        try {
            Path::tryCreateElement(*place.root, GetParam().path, Object::k_empty);
            ADD_FAILURE();
        } catch (const Exception& exception) {
            EXPECT_TRUE(typeid(exception) == typeid(Exception));
            EXPECT_EQ(exception.what(), "Error creating element. Parent: \"" + place.path +
                                            "\" path: \"" + GetParam().path + "\"");
            ASSERT_NE(exception.elementPath(), nullptr);
            EXPECT_EQ(*exception.elementPath(), place.path);
        }
        EXPECT_EQ(jsonOf(*place.root), GetParam().after);
    }
}

INSTANTIATE_TEST_SUITE_P(
    PathCreation, PathRefused,
    testing::Values(
        // what is created on the way is of the kind that lacked it, and stays: callers know it so
        Refused{"ItemOfAMissingKey", "{}", "a[*]", R"({"a":{}})", "[18446744073709551615]", "a"},
        Refused{"IndexOfAMissingKey", "{}", "a[0]", R"({"a":{}})", "[0]", "a"},
        Refused{"ItemOfAMissingKeyFarther", "{}", "a.b[*].c", R"({"a":{"b":{}}})",
                "[18446744073709551615]", "a.b"},
        Refused{"KeyOfAnAppendedItem", R"({"list":[]})", "list[*].b", R"({"list":[[]]})", "b",
                "list[0]"},
        Refused{"KeyOfAnAppendedItemFarther", "[1]", "[*][*].b.c", "[1,[[]]]", "b", "[1][0]"},
        Refused{"IndexOfAnAppendedItem", "[]", "[*][0]", "[[]]", "[0]", "[0]"},
        // arrays are never padded
        Refused{"ItemAtTheEndOfNothing", R"({"list":[]})", "list[0]", R"({"list":[]})", "[0]",
                "list"},
        Refused{"ItemAtTheEnd", "[1,2]", "[2]", "[1,2]", "[2]", ""},
        Refused{"KeyInAnArray", "[1]", "k", "[1]", "k", ""},
        Refused{"IndexInAnObject", R"({"0":1})", "[0]", R"({"0":1})", "[0]", ""},
        Refused{"KeyInANull", R"({"a":null})", "a.b", R"({"a":null})", "b", "a"},
        Refused{"KeyInABoolean", "[true]", "[0].b.c", "[true]", "b", "[0]"},
        Refused{"KeyInANumber", R"({"a":2})", "a.b", R"({"a":2})", "b", "a"},
        Refused{"ItemOfAString", R"({"a":"t"})", "a[*]", R"({"a":"t"})", "[18446744073709551615]",
                "a"},
        Refused{"EscapedKey", "[]", "x\\.y", "[]", "x.y", ""},
        // what stands behind it is not read
        Refused{"BeforeASyntaxError", "[]", "k..", "[]", "k", ""},
        Refused{"BeforeABadIndex", "{}", "a[0][x]", R"({"a":{}})", "[0]", "a"}),
    k_rowName);

struct MalformedCreation {
    const char* name;
    const char* before;
    const char* path;
    const char* after;  // with what earlier segments created
    const char* text;
};

class PathMalformed : public testing::TestWithParam<MalformedCreation> {};

TEST_P(PathMalformed, ThrowsFromBothForms) {
    for (const Create operation : k_bothCreate) {
        for (const bool below : {false, true}) {
            const PlacedDocument place(GetParam().before, below);
            EXPECT_EQ(thrown<ParseException>(
                          [&] { operation(*place.root, GetParam().path, Object::k_empty); }),
                      GetParam().text);
            EXPECT_EQ(jsonOf(*place.root), GetParam().after);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    PathCreation, PathMalformed,
    testing::Values(
        MalformedCreation{
            "SecondDot", R"({"a":{}})", "a..b", R"({"a":{}})",
            "Parse error at 1,1-1,2Unexpected character '.' in path at \"\" 1,2 parser state "
            "esObjectInit"},
        MalformedCreation{
            "SecondDotAfterAMissingKey", "{}", "a..b", "{}",
            "Parse error at 1,1-1,2Unexpected character '.' in path at \"\" 1,2 parser state "
            "esObjectInit"},
        MalformedCreation{
            "SecondDotAfterMissingKeys", "{}", "a.b.c..", R"({"a":{"b":{}}})",
            "Parse error at 1,5-1,6Unexpected character '.' in path at \"\" 5,6 parser state "
            "esObjectInit"},
        MalformedCreation{"EndAfterADot", "{}", "a.", "{}",
                          "Parse error at 1,1-1,2Unexpexced EOF in path at \"\" 1,2 parser state "
                          "esObjectInit"},
        MalformedCreation{
            "ClosingBracketInAKey", "{}", "a]", "{}",
            "Parse error at 1,0-1,1Unexpected character ']' in path at \"a\" 0,1 parser state "
            "esObject"},
        MalformedCreation{
            "LetterAsAnIndex", "[]", "[*][x]", "[]",
            "Parse error at 1,3-1,4Unexpected character 'x' in path at \"\" 3,4 parser state "
            "esArrayInit"},
        MalformedCreation{
            "EndInAnIndex", "[]", "[*][*][*", "[[]]",
            "Parse error at 1,7-1,8Unexpexced EOF in path at \"*\" 7,8 parser state esArray"},
        MalformedCreation{
            "UnreadableIndex", "[]", "[*7]", "[]",
            "Parse error at 1,1-1,3Unreadable index in path at \"*7\" 1,3 parser state "
            "esInit"}),
    k_rowName);

/// Counts its clones and what lives of them.
class Costly : public TBasicElement<bool> {
public:
    Costly() : TBasicElement(true) { ++s_living; }
    Costly(const Costly& other) : TBasicElement(other) { ++s_living; }
    ~Costly() override { --s_living; }
    Costly* clone() const override { return new Costly(*this); }

    inline static int s_living = 0;
};

TEST(PathCreation, PutsACopyOfItsOwnClassIntoTheTree) {
    for (const Create operation : k_bothCreate) {
        {
            const auto root = parsed("{}");
            const Costly original;
            Element* const element = operation(*root, "a", original);
            EXPECT_NE(element, &original);
            EXPECT_NE(dynamic_cast<Costly*>(element), nullptr);
            EXPECT_EQ(Costly::s_living, 2);
        }
        EXPECT_EQ(Costly::s_living, 0);
    }
}

TEST(PathCreation, KeepsNoCopyThatIsNotUsed) {
    const Costly original;
    const auto root = parsed("[1]");
    for (const Create operation : k_bothCreate) {
        EXPECT_EQ(operation(*root, "", original), root.get());
        EXPECT_EQ(operation(*root, "[0]", original), &root->at(0));
        EXPECT_THROW(operation(*root, "[0].k", original), Exception);
        EXPECT_THROW(operation(*root, "[1]", original), Exception);
        EXPECT_THROW(operation(*root, "[", original), ParseException);
        EXPECT_EQ(Costly::s_living, 1);
    }
}

// The copy is made before the path is read.
TEST(PathCreation, ChangesNothingWhenTheValueCannotBeCopied) {
    for (const Create operation : k_bothCreate) {
        const auto root = parsed("{}");
        EXPECT_THROW(operation(*root, "a.b", Uncloneable()), int);
        EXPECT_THROW(operation(*root, "", Uncloneable()), int);
        EXPECT_EQ(jsonOf(*root), "{}");
    }
}

// So the copy lacks what is created on the way. The children of a copy are not attached.
TEST(PathCreation, CopiesAContainerThatStandsOnTheWay) {
    for (const Create operation : k_bothCreate) {
        const auto root = parsed(R"({"o":{"k":null}})");
        operation(*root, "o.a.b", root->at("o"));
        EXPECT_EQ(dump(*root),
                  "etObject key=\"\" index=- parent=none\n"
                  "  etObject key=\"o\" index=- parent=right\n"
                  "    etNull key=\"k\" index=- parent=right\n"
                  "    etObject key=\"a\" index=- parent=right\n"
                  "      etObject key=\"b\" index=- parent=right\n"
                  "        etNull key=\"\" index=- parent=none held as \"k\"\n");
    }
}

TEST(PathCreation, CopiesTheRootIntoItself) {
    for (const Create operation : k_bothCreate) {
        const auto root = parsed("[null]");
        operation(*root, "[*]", *root);
        EXPECT_EQ(dump(*root),
                  "etArray key=\"\" index=- parent=none\n"
                  "  etNull key=\"[0]\" index=0 parent=right\n"
                  "  etArray key=\"[1]\" index=1 parent=right\n"
                  "    etNull key=\"\" index=- parent=none\n");
    }
}

TEST(PathCreation, GoesThroughDerivedClassesAndMakesTheLibrarysOwn) {
    for (const Create operation : k_bothCreate) {
        OwnObject root;
        auto list = std::make_unique<OwnArray>();
        root.insert("list", list.get());
        static_cast<void>(list.release());
        operation(root, "list[*][*]", Object::k_empty);
        operation(root, "a.b", Array::k_empty);
        EXPECT_EQ(jsonOf(root), R"({"list":[[{}]],"a":{"b":[]}})");
        const Element& item = Path::getElement("list[0]", root);
        const Element& member = Path::getElement("a", root);
        EXPECT_TRUE(typeid(item) == typeid(Array));
        EXPECT_TRUE(typeid(member) == typeid(Object));
    }
}

}  // namespace
