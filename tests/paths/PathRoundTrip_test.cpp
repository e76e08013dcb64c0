#include <zo/Tessera/Element.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "support/classicText.h"
#include "support/parsed.h"
#include "support/rowName.h"

using namespace zo::Tessera;

// What `path()` writes, `get` reads back: for which keys, and for which not.

namespace {

/// Trees of a given number of elements, whose keys are made of whatever has a meaning in paths.
class RandomTrees {
public:
    explicit RandomTrees(uint32_t seed) : m_random(seed) {}

    std::unique_ptr<Element> next(size_t count) {
        std::unique_ptr<Element> root(Element::create(anyOf({etObject, etArray})));
        std::vector<Element*> containers = {root.get()};
        for (size_t i = 0; i < count; ++i) {
            // Half of the elements go to the newest container, so that the tree gets deep.
            Element* const parent =
                below(2) == 0 ? containers.back() : containers[below(containers.size())];
            const EType kind = anyOf({etNull, etNumber, etString, etObject, etArray});
            Element* const made = parent->type() == etArray
                                      ? Element::create(kind, parent)
                                      : Element::create(kind, parent, newKey(*parent));
            if (kind == etObject || kind == etArray) {
                containers.push_back(made);
            }
        }
        return root;
    }

private:
    size_t below(size_t count) { return m_random() % count; }

    EType anyOf(const std::vector<EType>& kinds) { return kinds[below(kinds.size())]; }

    std::string newKey(const Element& object) {
        std::string key;
        do {
            key += piece();
        } while (below(2) == 0 ||
                 object.getObjectValue().find(key) != object.getObjectValue().end());
        return key;
    }

    std::string piece() {
        static const std::string k_pieces[] = {
            ".",    "[",      "]",        "*",    "\\",        std::string(1, '\0'),
            "\x80", "\xfe",   "\n",       " ",    "\"",        "0",
            "[0]",  "[*]",    "a.b",      "a",    "..",        "\\\\",
            "meta", "schema", "\xc3\xa9", "\\.",  "].",        ".[",
            "-1",   "key",    "items",    "\x7f", "default.x", std::string(300, 'k')};
        return k_pieces[below(std::size(k_pieces))];
    }

    std::mt19937 m_random;
};

/// Checks `element` and what is below it from each of its ancestors; returns how many were checked.
size_t checkReadBack(Element& element) {
    size_t count = 1;
    for (Element* ancestor = element.parent(); ancestor; ancestor = ancestor->parent()) {
        const std::string path = element.path(ancestor);
        EXPECT_EQ(&ancestor->get(path), &element) << path;
        EXPECT_TRUE(ancestor->pathExists(path, element.type())) << path;
    }
    const std::string path = element.path(nullptr);
    EXPECT_EQ(&element.root().get(path), &element) << path;
    EXPECT_EQ(Path::toSchemaPath(path), element.schemaPath(nullptr)) << path;
    if (element.type() == etArray) {
        for (Element* const item : element.getArrayValue()) {
            count += checkReadBack(*item);
        }
    } else if (element.type() == etObject) {
        for (const auto& [key, member] : element.getObjectValue()) {
            EXPECT_EQ(member->key(), key);
            count += checkReadBack(*member);
        }
    }
    return count;
}

TEST(PathRoundTrip, LeadsBackToEachElementOfRandomTreesFromEachAncestor) {
    constexpr uint32_t k_seed = 20240607;
    RandomTrees trees(k_seed);
    for (int i = 0; i < 100; ++i) {
        SCOPED_TRACE("tree " + std::to_string(i) + " of seed " + std::to_string(k_seed));
        const auto root = trees.next(60);
        EXPECT_EQ(checkReadBack(*root), 61U);
        if (HasFailure()) {
            return;
        }
    }
}

TEST(PathRoundTrip, HoldsForEachByteButTheLastWhereverItStandsInAKey) {
    Array root;
    Element& holder = *Element::createObject(&root);
    const Object& members = holder.getObjectValue();
    for (int byte = 0; byte < 0xff; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        for (const std::string& key :
             {text, text + "k", "k" + text, text + text, "0" + text + "0"}) {
            if (members.find(key) == members.end()) {
                holder.insertElement(key, *value(byte));
            }
        }
    }
    // The root, the object and five keys for each byte, of which "k" makes three that are the same.
    EXPECT_EQ(checkReadBack(root), 1275U);
}

TEST(PathRoundTrip, HoldsForKeysThatAreInsertedAsTheyAreAndSearchedByTheirPaths) {
    for (const std::string& key :
         {std::string("a.b"), std::string("[0]"), std::string("[*]"), std::string("*"),
          std::string("."), std::string("\\"), std::string("a\\.b"), std::string("]["),
          std::string("zero\0byte", 9), std::string("\xfe\x80"), std::string(1000, '.')}) {
        SCOPED_TRACE(key);
        Array list;
        Element::createObject(&list);
        for (const int number : {1, 2, 2}) {
            Element::createObject(&list)->insertElement(key, value(number));
        }
        const Element& member = list.at(2).at(key);
        const Path keyPath = member.path(&list.at(2));
        EXPECT_EQ(&list.at(2).get(keyPath), &member);
        EXPECT_EQ(list.findElement(*value(2), keyPath, ""), &list.at(2));
        list.removeElement(*value(2), keyPath, "");
        EXPECT_EQ(list.size(), 2U);
        EXPECT_EQ(&list.at(1).tryUpdate(keyPath, *value(3)), &list.at(1).at(key));
        EXPECT_EQ(list.at(1).size(), 1U);
    }
}

/// Where the path of `element` leads to: "reaches" and the path of what it reaches, or the text of
/// the exception, in which the path of the current element stands in place of its address.
std::string readBack(const Element& element, const Element* ancestor) {
    const Element& from = ancestor ? *ancestor : element.root();
    try {
        const Element& found = from.get(element.path(ancestor));
        return &found == &element ? "itself" : "reaches " + found.path(nullptr);
    } catch (const PathNotFound& exception) {
        const std::string address = classicText(exception.elementPath());
        std::string text = exception.what();
        return text.replace(text.find(address), address.size(), *exception.elementPath());
    } catch (const ParseException& exception) {
        return exception.what();
    }
}

const char* const k_oddKeys =
    "{\"\": {\"\": {\"b\": 1}, \"b\": 2}, \"b\": 3,"
    " \"a\": {\"\": {\"b\": 4, \"\": 5}, \"b\": 6, \"\xff\": 7, \"b\xff.c\": 8},"
    " \"list\": [{\"\": {\"b\": 9}, \"\xff\": 10}],"
    " \"x\": {\"\": [11]},"
    " \"\xff\": {\"b\": 12}, \"a\xff\": 13, \"q\xff\": 14}";

struct OneWay {
    const char* name;
    std::vector<std::string> steps;  // an item is always the first
    const char* path;
    const char* outcome;
};

class PathOfNoReturn : public testing::TestWithParam<OneWay> {};

TEST_P(PathOfNoReturn, LeadsElsewhereOrNowhere) {
    const auto root = parsed(k_oddKeys);
    const Element* element = root.get();
    for (const std::string& step : GetParam().steps) {
        element = element->type() == etArray ? &element->at(0) : &element->at(step);
    }
    EXPECT_EQ(element->path(nullptr), GetParam().path);
    EXPECT_EQ(readBack(*element, nullptr), GetParam().outcome);
}

// No text names an empty key: nothing is written for it.
INSTANTIATE_TEST_SUITE_P(
    EmptyKey, PathOfNoReturn,
    testing::Values(OneWay{"Alone", {""}, "", "reaches "},
                    OneWay{"First", {"", "b"}, ".b", "reaches b"},
                    OneWay{"Twice",
                           {"", ""},
                           ".",
                           "Parse error at 1,0-1,1Unexpexced EOF in path at \"\" 0,1 "
                           "parser state esObjectInit"},
                    OneWay{"TwiceFirst",
                           {"", "", "b"},
                           "..b",
                           "Parse error at 1,0-1,1Unexpected character '.' in path at \"\" 0,1 "
                           "parser state esObjectInit"},
                    OneWay{"Last",
                           {"a", ""},
                           "a.",
                           "Parse error at 1,1-1,2Unexpexced EOF in path at \"\" 1,2 "
                           "parser state esObjectInit"},
                    OneWay{"Middle",
                           {"a", "", "b"},
                           "a..b",
                           "Parse error at 1,1-1,2Unexpected character '.' in path at \"\" 1,2 "
                           "parser state esObjectInit"},
                    OneWay{"TwiceLast",
                           {"a", "", ""},
                           "a..",
                           "Parse error at 1,1-1,2Unexpected character '.' in path at \"\" 1,2 "
                           "parser state esObjectInit"},
                    OneWay{"BeforeAnIndex",
                           {"x", "", "[0]"},
                           "x.[0]",
                           "Parse error at 1,1-1,2Unexpected character '[' in path at \"\" 1,2 "
                           "parser state esObjectInit"},
                    OneWay{"BehindAnIndex",
                           {"list", "[0]", ""},
                           "list[0].",
                           "Parse error at 1,7-1,8Unexpexced EOF in path at \"\" 7,8 "
                           "parser state esObjectInit"},
                    OneWay{"BetweenAnIndexAndAKey",
                           {"list", "[0]", "", "b"},
                           "list[0]..b",
                           "Parse error at 1,7-1,8Unexpected character '.' in path at \"\" 7,8 "
                           "parser state esObjectInit"}),
    k_rowName);

// The byte 0xFF is not escaped, and ends the text.
INSTANTIATE_TEST_SUITE_P(
    LastByte, PathOfNoReturn,
    testing::Values(OneWay{"Alone", {"\xff"}, "\xff", "reaches "},
                    OneWay{"First", {"\xff", "b"}, "\xff.b", "reaches "},
                    OneWay{"BehindAKeyThatExists", {"a\xff"}, "a\xff", "reaches a"},
                    OneWay{"BehindAKeyThatDoesNot",
                           {"q\xff"},
                           "q\xff",
                           "Path \"q\xff\" not found! Key \"q\". Current element: \"\""},
                    OneWay{"InTheMiddle", {"a", "b\xff.c"}, "a.b\xff\\.c", "reaches a.b"},
                    OneWay{"BehindADot",
                           {"a", "\xff"},
                           "a.\xff",
                           "Parse error at 1,1-1,2Unexpexced EOF in path at \"\" 1,2 "
                           "parser state esObjectInit"},
                    OneWay{"BehindAnIndexAndADot",
                           {"list", "[0]", "\xff"},
                           "list[0].\xff",
                           "Parse error at 1,7-1,8Unexpexced EOF in path at \"\" 7,8 "
                           "parser state esObjectInit"}),
    k_rowName);

TEST(PathByHand, ReachesAKeyWithTheLastByteBehindABackslash) {
    const auto root = parsed(k_oddKeys);
    EXPECT_EQ(&root->get("a\\\xff"), &root->at("a\xff"));
    EXPECT_EQ(&root->get("a.b\\\xff\\.c"), &root->at("a").at("b\xff.c"));
    EXPECT_EQ(&root->get("\\\xff.b"), &root->at("\xff").at("b"));
}

// The end of the text is itself taken for the escaped character, as the byte 0xFF.
TEST(PathByHand, ThatEndsInASingleBackslashReachesAKeyThatEndsInTheLastByte) {
    const auto root = parsed(k_oddKeys);
    EXPECT_EQ(&root->get("q\\"), &root->at("q\xff"));
    EXPECT_EQ(&root->get("\\"), &root->at("\xff"));
}

TEST(PathOfNoReturnBelow, AnAncestorLosesAnEmptyKeyBeforeAnIndex) {
    const auto root = parsed(k_oddKeys);
    const Element& x = root->at("x");
    EXPECT_EQ(x.at("").at(0).path(&x), "[0]");
    EXPECT_EQ(readBack(x.at("").at(0), &x),
              R"(Path "[0]" not found! Key "[0]". Current element: "x")");
}

// Their stored index is one too high for each item that was removed before them.
TEST(PathOfNoReturnBehindARemoval, LeadsToALaterItemOrNowhere) {
    const auto root = parsed(R"({"a": ["x", 1, 2, 3]})");
    root->removeElement(*value("x"), "", "a");
    const Element& list = root->at("a");
    EXPECT_EQ(list.at(0).path(nullptr), "a[2]");
    EXPECT_EQ(&root->get("a[2]"), &list.at(2));
    EXPECT_EQ(readBack(list.at(0), nullptr), "reaches a[4]");
    EXPECT_EQ(readBack(list.at(1), nullptr),
              R"(Path "a[3]" not found! Key "[3]". Current element: "a")");
    EXPECT_EQ(readBack(list.at(2), nullptr),
              R"(Path "a[4]" not found! Key "[4]". Current element: "a")");
}

TEST(PathOfNoReturnOfReplacements, BeginsAtThemselvesOrEndsInAnEmptyKey) {
    const auto root = parsed(R"({"a": {"b": 1, "c": 2}})");
    Element& a = root->at("a");
    const Element& inserted = a.insertElement("b", value(3));
    EXPECT_EQ(inserted.path(nullptr), "");
    EXPECT_EQ(&root->get(inserted.path(root.get())), root.get());
    const Element* const made = Element::createNull(&a, "c");
    EXPECT_EQ(readBack(*made, nullptr),
              "Parse error at 1,1-1,2Unexpexced EOF in path at \"\" 1,2 parser state esObjectInit");
}

TEST(PathOfNoReturnOfCopies, BeginsAtTheirUnattachedChildren) {
    const auto root = parsed(R"({"a": [1]})");
    const std::unique_ptr<Element> copy(root->clone());
    EXPECT_EQ(copy->at("a").path(copy.get()), "");
    EXPECT_EQ(&copy->get(copy->at("a").at(0).path(copy.get())), copy.get());
    EXPECT_EQ(&copy->get("a[0]"), &copy->at("a").at(0));
}

TEST(PathOfNoReturnFromNoAncestor, BeginsAtTheTopOfTheTree) {
    const auto root = parsed(R"({"a": {"b": 1}})");
    const Element& a = root->at("a");
    EXPECT_EQ(readBack(a, &a), R"(Path "a" not found! Key "a". Current element: "a")");
    EXPECT_EQ(readBack(a, &a.at("b")), R"(Path "a" not found! Key "a". Current element: "a.b")");
}

}  // namespace
