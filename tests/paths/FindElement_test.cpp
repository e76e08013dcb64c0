#include <zo/Tessera/Element.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include <zo/Exception.h>
#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/TBasicElement.h>

#include "paths/notFound.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using Owner = std::unique_ptr<Element>;

template <class Asked, class Pattern>
using FoundElement = decltype(std::declval<Asked&>().findElement(
    std::declval<const Pattern&>(), std::declval<const Path&>(), std::declval<const Path&>()));
static_assert(std::is_same_v<FoundElement<Element, Element>, Element*>);
static_assert(std::is_same_v<FoundElement<Element, Owner>, Element*>);
static_assert(std::is_same_v<FoundElement<const Element, Element>, const Element*>);
static_assert(std::is_same_v<FoundElement<const Element, Owner>, const Element*>);

struct FindForm {
    const char* name;
    const Element* (*find)(Element& asked, const Owner& pattern, const Path& keyPath,
                           const Path& arrayPath);
};

const auto k_findForms = testing::Values(
    FindForm{"Reference",
             [](Element& asked, const Owner& pattern, const Path& keyPath,
                const Path& arrayPath) -> const Element* {
                 return asked.findElement(std::as_const(*pattern), keyPath, arrayPath);
             }},
    FindForm{"ConstReference",
             [](Element& asked, const Owner& pattern, const Path& keyPath, const Path& arrayPath) {
                 return std::as_const(asked).findElement(std::as_const(*pattern), keyPath,
                                                         arrayPath);
             }},
    FindForm{"Owner",
             [](Element& asked, const Owner& pattern, const Path& keyPath, const Path& arrayPath)
                 -> const Element* { return asked.findElement(pattern, keyPath, arrayPath); }},
    FindForm{"ConstOwner",
             [](Element& asked, const Owner& pattern, const Path& keyPath, const Path& arrayPath) {
                 return std::as_const(asked).findElement(pattern, keyPath, arrayPath);
             }});

/// The pattern is the only item of a JSON array.
struct Search {
    const char* name;
    const char* json;
    const char* pattern;
    const char* keyPath;
    const char* arrayPath;
    const char* found;  // the path of the item
};

class FindElement : public testing::TestWithParam<std::tuple<FindForm, Search>> {};

TEST_P(FindElement, GivesTheFirstItemThatMatchesOrNull) {
    const auto& [form, row] = GetParam();
    const Owner root = parsed(row.json);
    const Owner pattern(parsed(row.pattern)->at(0).clone());
    const Element* const found = form.find(*root, pattern, row.keyPath, row.arrayPath);
    EXPECT_EQ(found ? found->path(nullptr) : "null", row.found);
    EXPECT_EQ(found, found ? &root->get(row.found) : nullptr);
}

const auto k_searches = testing::Values(
    Search{"AmongTheItemsThemselves", "[1, 2, 3]", "[2]", "", "", "[1]"},
    Search{"ByAKey", R"([{"id": 1}, {"id": 2}])", "[2]", "id", "", "[1]"},
    Search{"ByALongerPath", R"([{"a": [0, {"b": 1}]}, {"a": [0, {"b": 2}]}])", "[2]", "a[1].b", "",
           "[1]"},
    Search{"ByAnIndex", "[[1], [0, 1], [0, 2]]", "[2]", "[1]", "", "[2]"},
    Search{"InAnArrayBelow", R"({"a": {"list": [1, 2]}})", "[2]", "", "a.list", "a.list[1]"},
    Search{"InAnArrayThatIsAnItem", "[[1], [2]]", "[2]", "", "[1]", "[1][0]"},
    Search{"ByAKeyInAnArrayBelow", R"({"a": [{"id": 1}, {"id": 2}]})", "[2]", "id", "a", "a[1]"},
    Search{"TheFirstOfSeveral", R"([0, {"id": 1, "n": 1}, {"id": 1, "n": 2}])", "[1]", "id", "",
           "[1]"},
    Search{"NothingWhereNoneMatches", "[1, 2]", "[3]", "", "", "null"},
    Search{"NothingInAnEmptyArray", "[]", "[1]", "", "", "null"},
    Search{"NothingInAnEmptyArrayBelow", R"({"a": []})", "[1]", "id", "a", "null"},
    Search{"NotInTheItemsOfItems", "[[1]]", "[1]", "", "", "null"},
    Search{"SkipsItemsWithoutTheKey", R"([{}, {"x": 1}, {"id": 1}])", "[1]", "id", "", "[2]"},
    Search{"SkipsItemsOfAnotherKindOnTheWay", R"([null, true, 1, "id", ["id"], {"id": 1}])", "[1]",
           "id", "", "[5]"},
    Search{"NothingWhereAllAreSkipped", R"([null, {}])", "[1]", "id", "", "null"},
    Search{"SkipsAllForAKeyPathThatEndsEarly", R"([{"id": 1}])", "[1]", "id.", "", "null"},
    Search{"SkipsAllForAKeyPathOfBadSyntax", R"([{"a": {"b": 1}}])", "[1]", "a..b", "", "null"},
    Search{"SkipsAllForAKeyPathThatBeginsBadly", "[[1]]", "[1]", "[x]", "", "null"},
    Search{"SkipsAllForAKeyPathToAnyItem", "[[1]]", "[1]", "[*]", "", "null"},
    Search{"ByKindAndValue", R"(["1", true, 1])", "[1]", "", "", "[2]"},
    Search{"Null", "[0, null]", "[null]", "", "", "[1]"},
    Search{"ANullMemberOnlyWhereItIsThere", R"([{}, {"id": null}])", "[null]", "id", "", "[1]"},
    Search{"AnArray", "[[1], [1, 2]]", "[[1, 2]]", "", "", "[1]"},
    // Objects are compared by their values alone.
    Search{"AnObjectOfOtherKeys", R"([{"a": 1}, {"b": 2}])", R"([{"x": 2}])", "", "", "[1]"},
    // Its comparison throws ValueOutOfRange.
    Search{"SkipsANumberOutOfRange", "[1e400, 2]", "[2]", "", "", "[1]"});

INSTANTIATE_TEST_SUITE_P(Element, FindElement, testing::Combine(k_findForms, k_searches),
                         [](const auto& row) {
                             return std::string(std::get<0>(row.param).name) + "Finds" +
                                    std::get<1>(row.param).name;
                         });

/// Answers each comparison as the test says.
class Asking : public TBasicElement<bool> {
public:
    using Answer = std::function<int(const Element& other)>;

    explicit Asking(Answer answer) : TBasicElement(true), m_answer(std::move(answer)) {}
    int compare(const Element& other) const override { return m_answer(other); }

private:
    Answer m_answer;
};

class FindElementForm : public testing::TestWithParam<FindForm> {
protected:
    static const Element* find(Element& asked, const Owner& pattern, const Path& keyPath,
                               const Path& arrayPath) {
        return GetParam().find(asked, pattern, keyPath, arrayPath);
    }
    static const Element* find(Element& asked, const Asking::Answer& answer) {
        return find(asked, std::make_unique<Asking>(answer), "", "");
    }
};

INSTANTIATE_TEST_SUITE_P(Element, FindElementForm, k_findForms, k_rowName);

TEST_P(FindElementForm, AsksThePatternToCompareAndNoItem) {
    Array list;
    std::string log;
    for (int i = 0; i < 3; ++i) {
        list.push_back(new Asking([&log](const Element&) {
            log += "item asked;";
            return 0;
        }));
    }
    EXPECT_EQ(find(list,
                   [&log](const Element& other) {
                       log += other.path(nullptr) + ";";
                       return other.index() == 1 ? 0 : 7;
                   }),
              &list.at(1));
    EXPECT_EQ(log, "[0];[1];");
}

TEST_P(FindElementForm, ComparesWithWhatTheKeyPathReaches) {
    const Owner list = parsed(R"([{"id": 1}, {}, {"id": 2}])");
    std::string log;
    const Owner pattern = std::make_unique<Asking>([&log](const Element& other) {
        log += other.path(nullptr) + ";";
        return -1;
    });
    EXPECT_EQ(find(*list, pattern, "id", ""), nullptr);
    EXPECT_EQ(log, "[0].id;[2].id;");
}

TEST_P(FindElementForm, TakesOnlyZeroForAMatch) {
    const Owner list = parsed("[1, 2, 3, 4]");
    const int answers[] = {-1, 1, 2, 0};
    EXPECT_EQ(find(*list, [&](const Element& other) { return answers[other.index()]; }),
              &list->at(3));
}

TEST_P(FindElementForm, MayBeGivenAnItemOfTheArrayItself) {
    const Owner list = parsed("[1, 2, 2]");
    const Element& second = list->at(2);
    EXPECT_EQ(find(*list, [&](const Element& other) { return second.compare(other); }),
              &list->at(1));
    EXPECT_EQ(list->findElement(second, "", ""), &list->at(1));
}

template <class Thrown>
int throwAtTheFirst(const Element& other, const Thrown& thrown) {
    if (other.index() == 0) {
        throw thrown;
    }
    return 0;
}

TEST_P(FindElementForm, SkipsAnItemWhoseComparisonThrowsAnExceptionOfThisLibrary) {
    const Owner list = parsed("[1, 2]");
    const Element* const second = &list->at(1);
    EXPECT_EQ(find(*list, [](const Element& e) { return throwAtTheFirst(e, Exception("x")); }),
              second);
    EXPECT_EQ(find(*list,
                   [](const Element& e) {
                       return throwAtTheFirst(e, TypeException<EType>(&e, etNull, etArray));
                   }),
              second);
    EXPECT_EQ(find(*list,
                   [](const Element& e) {
                       return throwAtTheFirst(e, ParseException("x", -1, -1, -1, -1));
                   }),
              second);
    EXPECT_EQ(
        find(*list, [](const Element& e) { return throwAtTheFirst(e, KeyNotFound(&e, "k")); }),
        second);
}

TEST_P(FindElementForm, LetsEveryOtherExceptionPass) {
    const Owner list = parsed("[1, 2]");
    EXPECT_EQ(thrown<zo::RuntimeError>([&] {
                  find(*list, [](const Element& e) {
                      return throwAtTheFirst(e, zo::RuntimeError("no number"));
                  });
              }),
              "no number");
    EXPECT_EQ(thrown<zo::Exception>([&] {
                  find(*list, [](const Element& e) {
                      return throwAtTheFirst(e, zo::Exception("of the core"));
                  });
              }),
              "of the core");
    EXPECT_THROW(find(*list, [](const Element& e) { return throwAtTheFirst(e, std::bad_alloc()); }),
                 std::bad_alloc);
    EXPECT_THROW(find(*list, [](const Element& e) { return throwAtTheFirst(e, 1); }), int);
}

// Only items are skipped: that there is no array is not swallowed.
TEST_P(FindElementForm, ThrowsWhereTheArrayPathLeadsNowhere) {
    const Owner root = parsed(R"({"a": [[1]]})");
    EXPECT_EQ(notFound([&] { find(*root, value(1), "", "b"); }),
              R"(Path "b" not found! Key "b". Current element: "")");
    EXPECT_EQ(notFound([&] { find(*root, value(1), "", "a[1]"); }),
              R"(Path "a[1]" not found! Key "[1]". Current element: "a")");
    EXPECT_EQ(notFound([&] { find(root->at("a"), value(1), "", "a"); }),
              R"(Path "a" not found! Key "a". Current element: "a")");
}

TEST_P(FindElementForm, ThrowsWhereTheArrayPathBreaksTheSyntax) {
    const Owner root = parsed(R"({"a": [[1]]})");
    EXPECT_EQ(thrown<ParseException>([&] { find(*root, value(1), "", "a[*]"); }),
              "Index must be set!");
    EXPECT_EQ(thrown<ParseException>([&] { find(*root, value(1), "", "a..b"); }),
              "Parse error at 1,1-1,2Unexpected character '.' in path at \"\" 1,2 "
              "parser state esObjectInit");
}

// A null or an object that is asked for its array says etObject: callers match on the text.
TEST_P(FindElementForm, ThrowsTheMismatchOfWhatIsNoArray) {
    const Owner root = parsed(R"({"null": null, "b": true, "n": 1, "s": "x", "o": {}})");
    const struct {
        const char* path;
        const char* requested;
        const char* got;
    } rows[] = {{"null", "etObject", "etNull"},
                {"b", "etArray", "etBoolean"},
                {"n", "etArray", "etNumber"},
                {"s", "etArray", "etString"},
                {"o", "etObject", "etObject"}};
    for (const auto& row : rows) {
        const std::string message = std::string("Json type mismatch! Requestet Json type: ") +
                                    row.requested + " Got Json type: " + row.got +
                                    " Current element: \"" + row.path + "\"";
        EXPECT_EQ(thrown<TypeException<EType>>([&] { find(*root, value(1), "", row.path); }),
                  message);
        EXPECT_EQ(
            thrown<TypeException<EType>>([&] { find(root->get(row.path), value(1), "", ""); }),
            message);
    }
    EXPECT_EQ(thrown<TypeException<EType>>([&] { find(*root, value(1), "n", ""); }),
              "Json type mismatch! Requestet Json type: etObject Got Json type: etObject "
              "Current element: \"\"");
}

TEST(FindElementByOwner, RefusesAnEmptyOne) {
    const Owner list = parsed("[1]");
    EXPECT_EQ(thrown<Exception>([&] { list->findElement(Owner(), "", ""); }),
              "Null pointer exception: pattern may not be null");
    EXPECT_EQ(thrown<Exception>([&] { std::as_const(*list).findElement(Owner(), "", ""); }),
              "Null pointer exception: pattern may not be null");
}

TEST(FindElementResult, IsTheItemItself) {
    const Owner root = parsed(R"({"a": [{"id": 1, "v": "old"}]})");
    root->findElement(*value(1), "id", "a")->at("v").setStringValue("new");
    EXPECT_EQ(root->get("a[0].v").getStringValue().value(), "new");
}

}  // namespace
