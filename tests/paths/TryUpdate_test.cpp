#include <zo/Tessera/Element.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>
#include <utility>

#include <zo/Tessera/Exception.h>

#include "support/NumberOf.h"
#include "support/dump.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

/// Either way to name the source.
struct UpdateForm {
    const char* name;
    Element& (*update)(Element& target, const Path& path, const std::unique_ptr<Element>& source);
};

const auto k_updateForms = testing::Values(
    UpdateForm{"Reference",
               [](Element& target, const Path& path, const std::unique_ptr<Element>& source)
                   -> Element& { return target.tryUpdate(path, std::as_const(*source)); }},
    UpdateForm{"Owner",
               [](Element& target, const Path& path, const std::unique_ptr<Element>& source)
                   -> Element& { return target.tryUpdate(path, source); }});

class TryUpdate : public testing::TestWithParam<UpdateForm> {
protected:
    Element& update(const Path& path, const std::unique_ptr<Element>& source) {
        return GetParam().update(*root, path, source);
    }

    std::unique_ptr<Element> root;
};

INSTANTIATE_TEST_SUITE_P(Element, TryUpdate, k_updateForms, k_rowName);

TEST_P(TryUpdate, SetsTheValueOfWhatExistsAndKeepsItsPlace) {
    root = parsed(R"({"a": [false, 1, "old", {"x": 1}, [2, 3]]})");
    Element* const items[] = {&root->get("a[0]"), &root->get("a[1]"), &root->get("a[2]"),
                              &root->get("a[3]"), &root->get("a[4]")};
    EXPECT_EQ(&update("a[0]", value(true)), items[0]);
    EXPECT_EQ(&update("a[1]", value(numberOf("1.50"))), items[1]);
    EXPECT_EQ(&update("a[2]", value("new")), items[2]);
    EXPECT_EQ(&update("a[3]", parsed(R"({"y": "z"})")), items[3]);
    EXPECT_EQ(&update("a[4]", parsed("[null]")), items[4]);
    EXPECT_EQ(dump(*root),
              "etObject key=\"\" index=- parent=none\n"
              "  etArray key=\"a\" index=- parent=right\n"
              "    etBoolean true key=\"[0]\" index=0 parent=right\n"
              "    etNumber 1.50 key=\"[1]\" index=1 parent=right\n"
              "    etString \"new\" key=\"[2]\" index=2 parent=right\n"
              "    etObject key=\"[3]\" index=3 parent=right\n"
              "      etString \"z\" key=\"\" index=- parent=none held as \"y\"\n"
              "    etArray key=\"[4]\" index=4 parent=right\n"
              "      etNull key=\"\" index=- parent=none\n");
}

TEST_P(TryUpdate, OfTheEmptyPathSetsTheElementItself) {
    root = value("old");
    EXPECT_EQ(&update("", value("new")), root.get());
    EXPECT_EQ(dump(*root), "etString \"new\" key=\"\" index=- parent=none\n");
}

TEST_P(TryUpdate, LeavesTheSourceAsItIs) {
    root = parsed("{}");
    const std::unique_ptr<Element> source = parsed(R"({"x": [1]})");
    const std::string before = dump(*source);
    EXPECT_NE(&update("new", source), source.get());
    EXPECT_EQ(dump(*source), before);
}

TEST_P(TryUpdate, CreatesAMissingMemberAndObjectsOnTheWay) {
    root = parsed(R"({"a": {}})");
    Element& created = update("a.b.c", value(numberOf("1.50")));
    EXPECT_EQ(&created, &root->get("a.b.c"));
    EXPECT_EQ(dump(*root),
              "etObject key=\"\" index=- parent=none\n"
              "  etObject key=\"a\" index=- parent=right\n"
              "    etObject key=\"b\" index=- parent=right\n"
              "      etNumber 1.50 key=\"c\" index=- parent=right\n");
}

TEST_P(TryUpdate, AppendsAnItemAndArraysOnTheWay) {
    root = parsed(R"({"list": [0]})");
    const Element& item = update("list[*]", value(true));
    EXPECT_EQ(&item, &root->get("list[1]"));
    const Element& inner = update("list[*][*]", value("x"));
    EXPECT_EQ(&inner, &root->get("list[2][0]"));
    EXPECT_EQ(dump(*root),
              "etObject key=\"\" index=- parent=none\n"
              "  etArray key=\"list\" index=- parent=right\n"
              "    etNumber 0 key=\"[0]\" index=0 parent=right\n"
              "    etBoolean true key=\"[1]\" index=1 parent=right\n"
              "    etArray key=\"[2]\" index=2 parent=right\n"
              "      etString \"x\" key=\"[0]\" index=0 parent=right\n");
}

// The value is set once more after it has been created, so its children are copies of copies.
TEST_P(TryUpdate, LeavesTheChildrenOfACreatedContainerUnattached) {
    root = parsed("{}");
    update("new", parsed(R"({"x": ["y"]})"));
    EXPECT_EQ(dump(*root),
              "etObject key=\"\" index=- parent=none\n"
              "  etObject key=\"new\" index=- parent=right\n"
              "    etArray key=\"\" index=- parent=none held as \"x\"\n"
              "      etString \"y\" key=\"\" index=- parent=none\n");
}

TEST_P(TryUpdate, TakesANullForNothingToSet) {
    root = parsed(R"({"n": 1, "o": {"x": 2}})");
    EXPECT_EQ(&update("n", value()), &root->at("n"));
    EXPECT_EQ(&update("o", value()), &root->at("o"));
    const Element& created = update("new", value());
    EXPECT_EQ(&created, &root->at("new"));
    EXPECT_EQ(dump(*root),
              "etObject key=\"\" index=- parent=none\n"
              "  etNumber 1 key=\"n\" index=- parent=right\n"
              "  etObject key=\"o\" index=- parent=right\n"
              "    etNumber 2 key=\"x\" index=- parent=right\n"
              "  etNull key=\"new\" index=- parent=right\n");
}

// The requested kinds are those of the target's getters: callers match on these texts.
TEST_P(TryUpdate, OfAnotherKindThrowsTheTargetsMismatchAndChangesNothing) {
    root = parsed(R"({"null": null, "n": 1, "s": "x", "a": [true]})");
    const std::string before = dump(*root);
    EXPECT_EQ(thrown<TypeException<EType>>([&] { update("null", value(1)); }),
              "Json type mismatch! Requestet Json type: etNumber Got Json type: etNull "
              "Current element: \"null\"");
    EXPECT_EQ(thrown<TypeException<EType>>([&] { update("n", value("x")); }),
              "Json type mismatch! Requestet Json type: etNumber Got Json type: etNumber "
              "Current element: \"n\"");
    EXPECT_EQ(thrown<TypeException<EType>>([&] { update("s", array()); }),
              "Json type mismatch! Requestet Json type: etArray Got Json type: etString "
              "Current element: \"s\"");
    EXPECT_EQ(thrown<TypeException<EType>>([&] { update("a[0]", object()); }),
              "Json type mismatch! Requestet Json type: etObject Got Json type: etBoolean "
              "Current element: \"a[0]\"");
    EXPECT_EQ(thrown<TypeException<EType>>([&] { update("", array()); }),
              "Json type mismatch! Requestet Json type: etObject Got Json type: etObject "
              "Current element: \"\"");
    EXPECT_EQ(dump(*root), before);
}

struct UpdateRefusal {
    const char* name;
    const char* path;
    const char* parent;
    const char* after;
};

class TryUpdateRefusal : public testing::TestWithParam<std::tuple<UpdateForm, UpdateRefusal>> {};

// What was created on the way stays.
TEST_P(TryUpdateRefusal, NamesTheElementItIsAskedOfAndThePath) {
    const UpdateForm& form = std::get<0>(GetParam());
    const UpdateRefusal& row = std::get<1>(GetParam());
    const auto root = parsed(R"({"list": [1]})");
    Element& asked = *row.parent ? root->get(row.parent) : *root;
    std::string elementPath = "none";
    const std::string text = thrown<Exception>([&] {
        try {
            form.update(asked, row.path, value(true));
        } catch (const Exception& exception) {
            elementPath = *exception.elementPath();
            throw;
        }
    });
    EXPECT_EQ(text, std::string("Error creating element. Parent: \"") + row.parent + "\" path: \"" +
                        row.path + "\"");
    EXPECT_EQ(elementPath, row.parent);
    EXPECT_EQ(dump(*root), std::string("etObject key=\"\" index=- parent=none\n"
                                       "  etArray key=\"list\" index=- parent=right\n"
                                       "    etNumber 1 key=\"[0]\" index=0 parent=right\n") +
                               row.after);
}

INSTANTIATE_TEST_SUITE_P(
    Element, TryUpdateRefusal,
    testing::Combine(k_updateForms,
                     testing::Values(UpdateRefusal{"ArraysAreNotPadded", "list[1]", "", ""},
                                     UpdateRefusal{"AskedOfTheArrayItself", "[1]", "list", ""},
                                     UpdateRefusal{"MemberOfAnArray", "list.x", "", ""},
                                     UpdateRefusal{"MemberOfAScalar", "list[0].x", "", ""},
                                     UpdateRefusal{"AskedOfAScalar", "x", "list[0]", ""},
                                     // What is created has the kind of what lacked it, not that
                                     // which the rest needs.
                                     UpdateRefusal{"ItemOfAMissingMember", "a[*]", "",
                                                   "  etObject key=\"a\" index=- parent=right\n"},
                                     UpdateRefusal{
                                         "MemberOfAnAppendedItem", "list[*].b", "",
                                         "    etArray key=\"[1]\" index=1 parent=right\n"})),
    [](const auto& row) {
        return std::string(std::get<0>(row.param).name) + std::get<1>(row.param).name;
    });

TEST_P(TryUpdate, ThrowsWhereTheSyntaxBreaksAndKeepsWhatWasCreatedUntilThere) {
    root = parsed("{}");
    EXPECT_EQ(thrown<ParseException>([&] { update("x.y..b", value(1)); }),
              "Parse error at 1,3-1,4Unexpected character '.' in path at \"\" 3,4 "
              "parser state esObjectInit");
    EXPECT_EQ(dump(*root),
              "etObject key=\"\" index=- parent=none\n"
              "  etObject key=\"x\" index=- parent=right\n");
}

TEST(TryUpdateFromItsOwnTree, CopiesAPartOfTheTargetIntoIt) {
    const auto root = parsed(R"({"a": {"b": ["x"]}, "c": null})");
    EXPECT_EQ(&root->tryUpdate("", root->at("a")), root.get());
    EXPECT_EQ(dump(*root),
              "etObject key=\"\" index=- parent=none\n"
              "  etArray key=\"\" index=- parent=none held as \"b\"\n"
              "    etString \"x\" key=\"\" index=- parent=none\n");
}

TEST(TryUpdateFromItsOwnTree, ChangesNothingWhereTheTargetIsTheSource) {
    const auto root = parsed(R"({"a": ["x"]})");
    const std::string before = dump(*root);
    EXPECT_EQ(&root->tryUpdate("a", root->at("a")), &root->at("a"));
    EXPECT_EQ(dump(*root), before);
}

// The target holds a copy of the tree by the time it is set, and so becomes a part of the source.
TEST(TryUpdateFromItsOwnTree, CopiesTheWholeTreeIntoANewMember) {
    const auto root = parsed(R"({"n": 1})");
    root->tryUpdate("new", *root);
    EXPECT_EQ(dump(*root),
              "etObject key=\"\" index=- parent=none\n"
              "  etNumber 1 key=\"n\" index=- parent=right\n"
              "  etObject key=\"new\" index=- parent=right\n"
              "    etNumber 1 key=\"\" index=- parent=none held as \"n\"\n"
              "    etObject key=\"\" index=- parent=none held as \"new\"\n"
              "      etNumber 1 key=\"\" index=- parent=none held as \"n\"\n");
}

TEST(TryUpdateByOwner, RefusesAnEmptyOneAndCreatesNothing) {
    const auto root = parsed(R"({"k": 1})");
    const std::string before = dump(*root);
    for (const char* path : {"", "k", "x.y"}) {
        EXPECT_EQ(thrown<Exception>([&] { root->tryUpdate(path, std::unique_ptr<Element>()); }),
                  "Null pointer exception: element may not be null");
    }
    EXPECT_EQ(dump(*root), before);
}

}  // namespace
