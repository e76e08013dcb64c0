#include <zo/Tessera/Path.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "paths/ownKinds.h"
#include "support/dump.h"
#include "support/exceptionText.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using ConstRoot = const Element&;

static_assert(std::is_same_v<decltype(Path::getElement("", std::declval<ConstRoot>())), ConstRoot>);
static_assert(std::is_same_v<decltype(Path::getElement("", std::declval<Element&>())), Element&>);
static_assert(
    std::is_same_v<decltype(Path::tryGetElement("", std::declval<ConstRoot>())), const Element*>);
static_assert(
    std::is_same_v<decltype(Path::tryGetElement("", std::declval<Element&>())), Element*>);
static_assert(std::is_same_v<decltype(Path::tryGetElement("", std::declval<ConstRoot>(), etNull)),
                             const Element*>);
static_assert(
    std::is_same_v<decltype(Path::tryGetElement("", std::declval<Element&>(), etNull)), Element*>);

constexpr EType k_types[] = {etEmpty,  etNull,   etBoolean, etNumber,
                             etString, etObject, etArray,   static_cast<EType>(6)};

const char* const k_document =
    R"({"a":[10,20],"o":{"x.y":true,"[0]":false,"*":1,"b\\":2,"deep":{"k":"v"}},)"
    R"("n":1,"s":"text","b":true,"z":null,"list":[[[1],[2,3]],{"k":[{"l":null}]}],)"
    R"("e":{},"none":[]})";

// The eight look-ups, each by its own name.
struct LookUp {
    const char* name;
    std::function<void(const Path&, Element&)> run;
};

const std::vector<LookUp> k_lookUps = {
    {"pathExists", [](const Path& path, Element& root) { Path::pathExists(path, root); }},
    {"pathExists of a kind",
     [](const Path& path, Element& root) { Path::pathExists(path, root, etNull); }},
    {"getElement const",
     [](const Path& path, Element& root) { Path::getElement(path, std::as_const(root)); }},
    {"getElement", [](const Path& path, Element& root) { Path::getElement(path, root); }},
    {"tryGetElement const",
     [](const Path& path, Element& root) { Path::tryGetElement(path, std::as_const(root)); }},
    {"tryGetElement", [](const Path& path, Element& root) { Path::tryGetElement(path, root); }},
    {"tryGetElement const of a kind",
     [](const Path& path, Element& root) {
         Path::tryGetElement(path, std::as_const(root), etNull);
     }},
    {"tryGetElement of a kind",
     [](const Path& path, Element& root) { Path::tryGetElement(path, root, etNull); }},
};

void expectFound(const Path& path, Element& root, const Element& expected) {
    ConstRoot constRoot = root;
    EXPECT_TRUE(Path::pathExists(path, root));
    EXPECT_EQ(&Path::getElement(path, constRoot), &expected);
    EXPECT_EQ(&Path::getElement(path, root), &expected);
    EXPECT_EQ(Path::tryGetElement(path, constRoot), &expected);
    EXPECT_EQ(Path::tryGetElement(path, root), &expected);
    for (const EType type : k_types) {
        const bool same = type == expected.type();
        EXPECT_EQ(Path::pathExists(path, root, type), same) << type;
        EXPECT_EQ(Path::tryGetElement(path, constRoot, type), same ? &expected : nullptr) << type;
        EXPECT_EQ(Path::tryGetElement(path, root, type), same ? &expected : nullptr) << type;
    }
}

template <class Root>
void expectNotFound(const Path& path, Root& root, const std::string& key, const std::string& at) {
    try {
        Path::getElement(path, root);
        ADD_FAILURE();
    } catch (const PathNotFound& exception) {
        EXPECT_EQ(exception.path(), path);
        EXPECT_EQ(exception.key(), key);
        ASSERT_NE(exception.elementPath(), nullptr);
        EXPECT_EQ(*exception.elementPath(), at);
        EXPECT_EQ(exception.what(),
                  "Path \"" + path + "\" not found! Key \"" + key + "\"." + addressPart(exception));
    }
}

void expectMissing(const Path& path, Element& root, const std::string& key, const std::string& at) {
    ConstRoot constRoot = root;
    EXPECT_FALSE(Path::pathExists(path, root));
    EXPECT_EQ(Path::tryGetElement(path, constRoot), nullptr);
    EXPECT_EQ(Path::tryGetElement(path, root), nullptr);
    for (const EType type : k_types) {
        EXPECT_FALSE(Path::pathExists(path, root, type)) << type;
        EXPECT_EQ(Path::tryGetElement(path, constRoot, type), nullptr) << type;
        EXPECT_EQ(Path::tryGetElement(path, root, type), nullptr) << type;
    }
    expectNotFound(path, root, key, at);
    expectNotFound(path, constRoot, key, at);
}

// Where the document stands: a path begins at any element of a tree.
enum class Place { top, member, item };

class Document : public testing::Test {
protected:
    void place(Place place) {
        std::unique_ptr<Element> document = parsed(k_document);
        m_root = document.get();
        if (place == Place::top) {
            m_top = std::move(document);
            return;
        }
        m_top = place == Place::member ? object() : array();
        if (place == Place::member) {
            m_top->getObjectValue().insert("outer", document.release());
        } else {
            m_top->getArrayValue().push_back(document.release());
        }
    }

    std::unique_ptr<Element> m_top;
    Element* m_root = nullptr;
};

std::string placeName(Place place) {
    return place == Place::top ? "AtTheTop" : place == Place::member ? "InAnObject" : "InAnArray";
}

struct Found {
    const char* name;
    const char* path;
    const char* reached;  // as path() writes it
    EType type;
};

class PathLookUpFound : public Document,
                        public testing::WithParamInterface<std::tuple<Found, Place>> {};

TEST_P(PathLookUpFound, ReachesTheElementThroughEachOperation) {
    const auto& [row, where] = GetParam();
    place(where);
    const std::string before = dump(*m_top);
    const Element& reached = Path::getElement(row.path, *m_root);
    EXPECT_EQ(reached.path(m_root), row.reached);
    EXPECT_EQ(reached.type(), row.type);
    expectFound(row.path, *m_root, reached);
    EXPECT_EQ(dump(*m_top), before);
}

INSTANTIATE_TEST_SUITE_P(
    PathLookUp, PathLookUpFound,
    testing::Combine(
        testing::Values(
            Found{"Null", "z", "z", etNull}, Found{"Boolean", "b", "b", etBoolean},
            Found{"Number", "n", "n", etNumber}, Found{"String", "s", "s", etString},
            Found{"Object", "e", "e", etObject}, Found{"Array", "none", "none", etArray},
            Found{"Item", "a[1]", "a[1]", etNumber},
            Found{"KeyAfterALeadingDot", ".n", "n", etNumber},
            Found{"KeyInKeys", "o.deep.k", "o.deep.k", etString},
            Found{"IndexesInARow", "list[0][1][0]", "list[0][1][0]", etNumber},
            Found{"KeyAfterAnIndexWithADot", "list[1].k[0].l", "list[1].k[0].l", etNull},
            Found{"KeyAfterAnIndexWithoutADot", "list[1]k[0]l", "list[1].k[0].l", etNull},
            Found{"EscapedDot", "o.x\\.y", "o.x\\.y", etBoolean},
            Found{"EscapedBrackets", "o.\\[0\\]", "o.\\[0\\]", etBoolean},
            Found{"EscapedStar", "o.\\*", "o.\\*", etNumber},
            Found{"StarAsItIs", "o.*", "o.\\*", etNumber},
            Found{"EscapedBackslash", "o.b\\\\", "o.b\\\\", etNumber},
            Found{"NeedlessEscapes", "\\o.\\d\\e\\ep", "o.deep", etObject},
            Found{"EscapedDigit", "a[\\1]", "a[1]", etNumber},
            Found{"TextEndedByAByteOfOnes", "o.deep\xff.none..", "o.deep", etObject}),
        testing::Values(Place::top, Place::member, Place::item)),
    [](const auto& row) {
        return std::get<0>(row.param).name + placeName(std::get<1>(row.param));
    });

class PathLookUpPlaces : public Document, public testing::WithParamInterface<Place> {};

TEST_P(PathLookUpPlaces, GivesTheRootForTheEmptyPath) {
    place(GetParam());
    expectFound("", *m_root, *m_root);
    for (const char* const key : {"a", "o", "n", "s", "b", "z"}) {
        Element& element = m_root->at(key);
        expectFound(Path(), element, element);
    }
}

INSTANTIATE_TEST_SUITE_P(PathLookUp, PathLookUpPlaces,
                         testing::Values(Place::top, Place::member, Place::item),
                         [](const auto& row) { return placeName(row.param); });

struct Missing {
    const char* name;
    const char* path;
    const char* key;
    const char* at;  // the element that lacks it, seen from where the path begins
};

class PathLookUpMissing : public Document,
                          public testing::WithParamInterface<std::tuple<Missing, Place>> {};

TEST_P(PathLookUpMissing, IsAnsweredByEachOperationInItsWay) {
    const auto& [row, where] = GetParam();
    place(where);
    const std::string outer = m_root->path(nullptr);
    const std::string at = row.at;
    const std::string dot = outer.empty() || at.empty() ? "" : ".";
    expectMissing(row.path, *m_root, row.key, outer + dot + at);
}

INSTANTIATE_TEST_SUITE_P(
    PathLookUp, PathLookUpMissing,
    testing::Combine(
        testing::Values(
            Missing{"KeyFirst", "m", "m", ""}, Missing{"KeyLast", "o.m", "m", "o"},
            Missing{"KeyBetween", "o.m.k", "m", "o"}, Missing{"KeyInAnotherCase", "A", "A", ""},
            Missing{"KeyWithEscapes", "o.\\.\\[\\]\\*\\\\", ".[]*\\", "o"},
            Missing{"KeyOfTheEscapedPath", "o\\.deep", "o.deep", ""},
            Missing{"KeyAfterAnOddBackslash", "n\\", "n\xff", ""},
            Missing{"IndexAtTheEnd", "a[2]", "[2]", "a"},
            Missing{"IndexInAnEmptyArray", "none[0]", "[0]", "none"},
            Missing{"IndexBetween", "list[1].k[1].l", "[1]", "list[1].k"},
            Missing{"LargestIndex", "a[18446744073709551614]", "[18446744073709551614]", "a"},
            Missing{"KeyInAnArray", "a.length", "length", "a"},
            Missing{"IndexInAnObject", "o[0]", "[0]", "o"}, Missing{"KeyInANull", "z.k", "k", "z"},
            Missing{"IndexInANull", "z[0]", "[0]", "z"}, Missing{"KeyInABoolean", "b.k", "k", "b"},
            Missing{"KeyInANumber", "n.k", "k", "n"}, Missing{"IndexInANumber", "n[0]", "[0]", "n"},
            Missing{"IndexInAString", "s[0]", "[0]", "s"},
            // what stands behind the missing segment is not read
            Missing{"KeyBeforeASyntaxError", "m..k", "m", ""},
            Missing{"KeyBeforeABadIndex", "m[x]", "m", ""},
            Missing{"IndexBeforeASyntaxError", "a[2]]", "[2]", "a"},
            Missing{"KeyBeforeAnyItem", "m[*]", "m", ""}),
        testing::Values(Place::top, Place::member, Place::item)),
    [](const auto& row) {
        return std::get<0>(row.param).name + placeName(std::get<1>(row.param));
    });

struct MalformedLookUp {
    const char* name;
    const char* path;
    const char* text;
};

class PathLookUpMalformed : public Document, public testing::WithParamInterface<MalformedLookUp> {};

// Those that answer whether something is there throw, too.
TEST_P(PathLookUpMalformed, ThrowsFromEachOperation) {
    place(Place::member);
    const std::string before = dump(*m_top);
    for (const LookUp& lookUp : k_lookUps) {
        EXPECT_EQ(thrown<ParseException>([&] { lookUp.run(GetParam().path, *m_root); }),
                  GetParam().text)
            << lookUp.name;
    }
    EXPECT_EQ(dump(*m_top), before);
}

INSTANTIATE_TEST_SUITE_P(
    PathLookUp, PathLookUpMalformed,
    testing::Values(
        MalformedLookUp{
            "SecondDot", "o..k",
            "Parse error at 1,1-1,2Unexpected character '.' in path at \"\" 1,2 parser state "
            "esObjectInit"},
        MalformedLookUp{"DotAtTheEnd", "o.",
                        "Parse error at 1,1-1,2Unexpexced EOF in path at \"\" 1,2 parser state "
                        "esObjectInit"},
        MalformedLookUp{
            "IndexThatIsNotClosed", "a[1",
            "Parse error at 1,2-1,3Unexpexced EOF in path at \"1\" 2,3 parser state esArray"},
        MalformedLookUp{
            "LetterInAnIndex", "a[1x]",
            "Parse error at 1,2-1,3Unexpected character 'x' in path at \"1\" 2,3 parser state "
            "esArray"},
        MalformedLookUp{
            "ClosingBracketInAKeyThatIsMissing", "m]",
            "Parse error at 1,0-1,1Unexpected character ']' in path at \"m\" 0,1 parser state "
            "esObject"},
        MalformedLookUp{
            "IndexPast64Bits", "a[18446744073709551616]",
            "Parse error at 1,2-1,22Unreadable index in path at \"18446744073709551616\" 2,22 "
            "parser state esInit"},
        MalformedLookUp{"AnyItem", "a[*]", "Index must be set!"},
        MalformedLookUp{"AnyItemInAnObject", "[*]", "Index must be set!"},
        MalformedLookUp{"AnyItemInANumber", "n[*].k..", "Index must be set!"},
        // the number that stands for "*" is no index either
        MalformedLookUp{"TheNumberOfAnyItem", "a[18446744073709551615]", "Index must be set!"}),
    k_rowName);

class PathLookUpOfAnyItem : public Document {};

TEST_F(PathLookUpOfAnyItem, NamesNoPlaceInTheText) {
    place(Place::top);
    for (const LookUp& lookUp : k_lookUps) {
        try {
            lookUp.run("a[*]", *m_root);
            ADD_FAILURE() << lookUp.name;
        } catch (const ParseException& exception) {
            EXPECT_EQ(exception.line(), -1);
            EXPECT_EQ(exception.column(), -1);
            EXPECT_EQ(exception.endLine(), -1);
            EXPECT_EQ(exception.endColumn(), -1);
            EXPECT_EQ(exception.elementPath(), nullptr);
            std::string base = "replaced";
            exception.Exception::generateWhat(base);
            EXPECT_EQ(base, "");  // no cause
        }
    }
}

TEST(PathLookUp, FindsEachKeyAgainByThePathOfItsElement) {
    const std::unique_ptr<Element> root = object();
    Element* const inner = Element::createObject(Element::createArray(root.get(), "[*].\\"));
    for (const char* const key :
         {".", "[", "]", "*", "\\", "a.b", "[0]", "..", "\\.", "a\\", " ", "\"", "\xc3\xa4", "0"}) {
        Element* const member = Element::createNull(inner, key);
        expectFound(member->path(nullptr), *root, *member);
        expectFound(member->path(inner), *inner, *member);
    }
}

// No text names it: an empty key writes nothing.
TEST(PathLookUp, CannotNameTheMemberWithAnEmptyKey) {
    const std::unique_ptr<Element> root = object();
    expectFound(Element::createNull(root.get(), "")->path(nullptr), *root, *root);
}

TEST(PathLookUp, TakesAZeroByteForAnyOther) {
    const std::unique_ptr<Element> root = object();
    const std::string key("a\0b", 3);
    expectFound(key, *root, *Element::createNull(root.get(), key));
}

// Copied children do not know their parents; a look-up goes down and needs none.
TEST(PathLookUp, GoesThroughCopiedContainers) {
    const std::unique_ptr<Element> root = object();
    Element::createNull(Element::createArray(root.get(), "a"));
    const std::unique_ptr<Element> copy(root->clone());
    ASSERT_EQ(copy->at("a").parent(), nullptr);
    expectFound("a[0]", *copy, copy->at("a").at(0));
    expectMissing("a[1]", *copy, "[1]", "");
}

TEST(PathLookUp, GoesThroughDerivedClasses) {
    OwnObject root;
    auto list = std::make_unique<OwnArray>();
    Element* const item = Element::createObject(list.get());
    Element* const member = Element::createNull(item, "k");
    root.insert("list", list.release());
    expectFound("list", root, *item->parent());
    expectFound("list[0].k", root, *member);
    expectMissing("list[1]", root, "[1]", "list");
}

TEST(PathLookUp, DoesNotEnterAClassOfAnotherKind) {
    OddObject root;
    Element::createNull(&root, "k");
    expectFound("", root, root);  // the kind asked for may be any value
    expectMissing("k", root, "k", "");
}

TEST(PathLookUp, GoesAsDeepAsThePathIsLong) {
    constexpr int depth = 20000;
    const std::unique_ptr<Element> root = array();
    Element* innermost = root.get();
    std::string path;
    for (int i = 0; i < depth; ++i) {
        Element* const item = Element::createObject(innermost);
        innermost = Element::createArray(Element::createObject(item, "k"), "l");
        path += "[0].k.l";
    }
    EXPECT_TRUE(Path::pathExists(path, *root));
    EXPECT_EQ(&Path::getElement(path, *root), innermost);
    EXPECT_EQ(Path::tryGetElement(path, *root, etArray), innermost);
    EXPECT_FALSE(Path::pathExists(path + "[0]", *root));
}

}  // namespace
