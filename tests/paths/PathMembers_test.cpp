#include <zo/Tessera/Element.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "paths/notFound.h"
#include "paths/ownKinds.h"
#include "support/dump.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

static_assert(std::is_same_v<decltype(std::declval<Element&>().get("")), Element&>);
static_assert(std::is_same_v<decltype(std::declval<const Element&>().get("")), const Element&>);
static_assert(std::is_same_v<decltype(std::declval<const Element&>().pathExists("")), bool>);

using Kind = TypeException<EType>;

class GetByPath : public testing::Test {
protected:
    const std::unique_ptr<Element> root = parsed(R"({"a": {"list": [10, {"v": null}]}, "s": "x"})");
    const Element& constRoot = *root;
};

TEST_F(GetByPath, GivesTheVeryElementForTheEmptyPathWhateverItsKind) {
    for (const EType kind : {etNull, etBoolean, etNumber, etString, etObject, etArray}) {
        SCOPED_TRACE(kind);
        const std::unique_ptr<Element> element(Element::create(kind));
        EXPECT_EQ(&element->get(""), element.get());
        EXPECT_EQ(&std::as_const(*element).get(""), element.get());
        Element* const member = Element::create(kind, root.get(), "member");
        EXPECT_EQ(&member->get(Path()), member);
        EXPECT_EQ(&std::as_const(*member).get(Path()), member);
    }
}

TEST_F(GetByPath, ReachesWhatThePathNames) {
    Element& v = root->at("a").at("list").at(1).at("v");
    EXPECT_EQ(&root->get("a.list[1].v"), &v);
    EXPECT_EQ(&constRoot.get("a.list[1].v"), &v);
    EXPECT_EQ(&root->get(".a.list[1]v"), &v);
    EXPECT_EQ(&root->get("s"), &root->at("s"));
}

TEST_F(GetByPath, BeginsAtTheElementItIsAskedOf) {
    Element& a = root->at("a");
    EXPECT_EQ(&a.get("list[0]"), &a.at("list").at(0));
    EXPECT_EQ(&a.at("list").get("[1].v"), &a.at("list").at(1).at("v"));
    EXPECT_EQ(notFound([&] { a.get("a"); }),
              R"(Path "a" not found! Key "a". Current element: "a")");
}

struct MissingPath {
    const char* name;
    const char* path;
    const char* message;
};

class GetByMissingPath : public testing::TestWithParam<MissingPath> {};

TEST_P(GetByMissingPath, NamesTheFirstSegmentThatIsNotThere) {
    const auto root = parsed(R"({"a": {"list": [10, {"v": null}]}, "s": "x"})");
    EXPECT_EQ(notFound([&] { root->get(GetParam().path); }), GetParam().message);
    EXPECT_EQ(notFound([&] { std::as_const(*root).get(GetParam().path); }), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Element, GetByMissingPath,
    testing::Values(
        MissingPath{"Member", "b", R"(Path "b" not found! Key "b". Current element: "")"},
        MissingPath{"MemberOnTheWay", "a.b.c",
                    R"(Path "a.b.c" not found! Key "b". Current element: "a")"},
        MissingPath{"KeyOfAnotherCase", "A", R"(Path "A" not found! Key "A". Current element: "")"},
        MissingPath{"IndexAtTheEnd", "a.list[2]",
                    R"(Path "a.list[2]" not found! Key "[2]". Current element: "a.list")"},
        MissingPath{"MemberOfAScalar", "s.x",
                    R"(Path "s.x" not found! Key "x". Current element: "s")"},
        MissingPath{"MemberOfAnArray", "a.list.v",
                    R"(Path "a.list.v" not found! Key "v". Current element: "a.list")"},
        MissingPath{"ItemOfAnObject", "a[0]",
                    R"(Path "a[0]" not found! Key "[0]". Current element: "a")"},
        MissingPath{
            "MemberWhoseKeyLooksLikeAnIndex", "a.list[1].\\[0\\]",
            R"(Path "a.list[1].\[0\]" not found! Key "[0]". Current element: "a.list[1]")"}),
    k_rowName);

TEST_F(GetByPath, ThrowsWhereTheTextIsNoPathToLookUp) {
    EXPECT_EQ(thrown<ParseException>([&] { root->get("a..list"); }),
              "Parse error at 1,1-1,2Unexpected character '.' in path at \"\" 1,2 "
              "parser state esObjectInit");
    EXPECT_EQ(thrown<ParseException>([&] { constRoot.get("a."); }),
              "Parse error at 1,1-1,2Unexpexced EOF in path at \"\" 1,2 parser state esObjectInit");
    EXPECT_EQ(thrown<ParseException>([&] { root->get("a.list[*]"); }), "Index must be set!");
    EXPECT_EQ(thrown<ParseException>([&] { constRoot.get("[*]"); }), "Index must be set!");
}

struct Existence {
    const char* name;
    const char* path;
    EType kind;  // etEmpty: nothing is there
};

class PathExists : public testing::TestWithParam<Existence> {};

TEST_P(PathExists, SaysWhetherAnElementIsThereAndOfTheKind) {
    const auto root = parsed(R"({"n": null, "b": true, "a": [1, "x", {"o": 0}]})");
    const EType found = GetParam().kind;
    EXPECT_EQ(root->pathExists(GetParam().path), found != etEmpty);
    for (const EType kind : {etEmpty, etNull, etBoolean, etNumber, etString, etObject, etArray}) {
        EXPECT_EQ(root->pathExists(GetParam().path, kind), found != etEmpty && kind == found)
            << kind;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Element, PathExists,
    testing::Values(Existence{"TheElementItself", "", etObject}, Existence{"Null", "n", etNull},
                    Existence{"Boolean", "b", etBoolean}, Existence{"Array", "a", etArray},
                    Existence{"Number", "a[0]", etNumber}, Existence{"String", "a[1]", etString},
                    Existence{"Object", "a[2]", etObject}, Existence{"Deep", "a[2].o", etNumber},
                    Existence{"NoMember", "x", etEmpty},
                    Existence{"IndexAtTheEnd", "a[3]", etEmpty},
                    Existence{"BelowNull", "n.x", etEmpty},
                    Existence{"ItemOfAnObject", "[0]", etEmpty},
                    // The walk ends at what is missing: the rest of the text is not read.
                    Existence{"BadSyntaxBehindWhatIsMissing", "x..y", etEmpty},
                    Existence{"AnyItemBehindWhatIsMissing", "x[*]", etEmpty}),
    k_rowName);

TEST(PathExistence, IsNotAnsweredForATextThatIsNoPathToLookUp) {
    const auto root = parsed(R"({"a": [1]})");
    EXPECT_EQ(thrown<ParseException>([&] { root->pathExists("a[*]"); }), "Index must be set!");
    EXPECT_EQ(thrown<ParseException>([&] { root->pathExists("a[*]", etArray); }),
              "Index must be set!");
    EXPECT_EQ(thrown<ParseException>([&] { root->pathExists("a["); }),
              "Parse error at 1,1-1,2Unexpexced EOF in path at \"\" 1,2 parser state esArrayInit");
    EXPECT_EQ(thrown<ParseException>([&] { root->pathExists("a]", etArray); }),
              "Parse error at 1,0-1,1Unexpected character ']' in path at \"a\" 0,1 "
              "parser state esObject");
}

/// Both ways to hand the element over, behind one: `source` is left as the call leaves it.
struct Insertion {
    const char* name;
    bool handsOver;
    Element& (*insert)(Element& target, const Path& path, std::unique_ptr<Element>& source);
};

class InsertElement : public testing::TestWithParam<Insertion> {
protected:
    Element& insert(const Path& path, std::unique_ptr<Element> source) {
        return GetParam().insert(*target, path, source);
    }

    std::unique_ptr<Element> target = parsed(R"({"n": null})");
};

INSTANTIATE_TEST_SUITE_P(
    Element, InsertElement,
    testing::Values(Insertion{"Copy", false,
                              [](Element& target, const Path& path,
                                 std::unique_ptr<Element>& source) -> Element& {
                                  return target.insertElement(path, std::as_const(*source));
                              }},
                    Insertion{"Owner", true,
                              [](Element& target, const Path& path,
                                 std::unique_ptr<Element>& source) -> Element& {
                                  return target.insertElement(path, std::move(source));
                              }}),
    k_rowName);

TEST_P(InsertElement, AttachesANewMemberAndReturnsIt) {
    Element& inserted = insert("new", parsed(R"(["x"])"));
    EXPECT_EQ(&inserted, &target->at("new"));
    EXPECT_EQ(dump(*target),
              std::string("etObject key=\"\" index=- parent=none\n"
                          "  etNull key=\"n\" index=- parent=right\n"
                          "  etArray key=\"new\" index=- parent=right\n") +
                  (GetParam().handsOver ? "    etString \"x\" key=\"[0]\" index=0 parent=right\n"
                                        : "    etString \"x\" key=\"\" index=- parent=none\n"));
}

TEST_P(InsertElement, TakesTheElementItselfOnlyFromItsOwner) {
    std::unique_ptr<Element> source = value("x");
    Element* const address = source.get();
    Element& inserted = GetParam().insert(*target, "new", source);
    EXPECT_EQ(&inserted == address, GetParam().handsOver);
    EXPECT_EQ(source == nullptr, GetParam().handsOver);
}

// Nothing is walked, so nothing can be missing or break the syntax.
TEST_P(InsertElement, TakesTheWholeTextForTheName) {
    for (const std::string& text :
         {std::string("a.b"), std::string("n.x"), std::string("a..b"), std::string("[0]"),
          std::string("[*]"), std::string("x\\.y"), std::string("]"), std::string(),
          std::string("zero\0byte", 9), std::string("\xff.")}) {
        SCOPED_TRACE(text);
        target = parsed(R"({"n": null})");
        Element& inserted = insert(text, value(true));
        EXPECT_EQ(dump(*target),
                  "etObject key=\"\" index=- parent=none\n"
                  "  etNull key=\"n\" index=- parent=right\n"
                  "  etBoolean true key=\"" +
                      text + "\" index=- parent=right\n");
        EXPECT_EQ(&inserted, &target->at(text));
    }
}

TEST_P(InsertElement, ReplacesTheMemberOfThatNameInItsPlaceAndLeavesItUnattached) {
    target = parsed(R"({"a.b": [1], "a": {"b": 2}})");
    Element& inserted = insert("a.b", value("x"));
    EXPECT_EQ(&inserted, &target->at("a.b"));
    EXPECT_EQ(dump(*target),
              "etObject key=\"\" index=- parent=none\n"
              "  etString \"x\" key=\"\" index=- parent=none held as \"a.b\"\n"
              "  etObject key=\"a\" index=- parent=right\n"
              "    etNumber 2 key=\"b\" index=- parent=right\n");
}

TEST_P(InsertElement, IntoAnotherKindThrowsItsMismatchAndChangesNothing) {
    const auto root = parsed(R"([null, true, 1, "x", [2]])");
    const std::string before = dump(*root);
    const char* const kinds[] = {"etNull", "etBoolean", "etNumber", "etString", "etArray"};
    for (unsigned long i = 0; i < 5; ++i) {
        std::unique_ptr<Element> source = value("new");
        EXPECT_EQ(thrown<Kind>([&] { GetParam().insert(root->at(i), "k", source); }),
                  std::string("Json type mismatch! Requestet Json type: etObject Got Json type: ") +
                      kinds[i] + " Current element: \"[" + std::to_string(i) + "]\"");
        EXPECT_EQ(source == nullptr, GetParam().handsOver);
    }
    EXPECT_EQ(dump(*root), before);
}

TEST(InsertElementByCopy, ThatFailsChangesNothing) {
    const auto root = parsed(R"({"k": [1]})");
    const std::string before = dump(*root);
    EXPECT_THROW(root->insertElement("k", Uncloneable()), int);
    EXPECT_THROW(root->insertElement("new", Uncloneable()), int);
    EXPECT_EQ(dump(*root), before);
}

TEST(InsertElementByCopy, AsksForTheObjectBeforeItCopies) {
    const auto root = parsed("[1]");
    EXPECT_THROW(root->insertElement("k", Uncloneable()), Kind);
}

TEST(InsertElementByCopy, PutsACopyOfTheObjectIntoItself) {
    const auto root = parsed(R"({"n": null})");
    Element& inserted = root->insertElement("self", *root);
    EXPECT_EQ(&inserted, &root->at("self"));
    EXPECT_EQ(dump(*root),
              "etObject key=\"\" index=- parent=none\n"
              "  etNull key=\"n\" index=- parent=right\n"
              "  etObject key=\"self\" index=- parent=right\n"
              "    etNull key=\"\" index=- parent=none held as \"n\"\n");
}

TEST(InsertElementByCopy, MayReplaceItsSourceOrWhatHoldsIt) {
    const auto root = parsed(R"({"a": {"b": ["x"]}})");
    root->insertElement("a", root->at("a"));
    EXPECT_EQ(dump(*root),
              "etObject key=\"\" index=- parent=none\n"
              "  etObject key=\"\" index=- parent=none held as \"a\"\n"
              "    etArray key=\"\" index=- parent=none held as \"b\"\n"
              "      etString \"x\" key=\"\" index=- parent=none\n");
    root->insertElement("a", root->get("a.b[0]"));
    EXPECT_EQ(dump(*root),
              "etObject key=\"\" index=- parent=none\n"
              "  etString \"x\" key=\"\" index=- parent=none held as \"a\"\n");
}

TEST(InsertElementByOwner, RefusesAnEmptyOne) {
    const auto root = parsed(R"({"k": 1})");
    const std::string before = dump(*root);
    for (const char* key : {"k", "new"}) {
        EXPECT_EQ(thrown<Exception>([&] { root->insertElement(key, std::unique_ptr<Element>()); }),
                  "Null pointer exception: element may not be null");
    }
    EXPECT_EQ(dump(*root), before);
}

}  // namespace
