#include <zo/Tessera/DomParser.h>

#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera.h>

#include "parsing/parseFailure.h"
#include "parsing/whileParsing.h"
#include "support/dump.h"
#include "support/rowName.h"
#include "support/thrown.h"

namespace {

using namespace std::string_literals;
using zo::Tessera::Dom;
using zo::Tessera::DomParser;
using zo::Tessera::Exception;
using zo::Tessera::ParseException;

const char k_noPlace[] = " | -1 -1 -1 -1 | no path";

/// The failure of `action` when `text` is read and its open containers wait for more.
template <class Action>
std::string failureAfter(const std::string& text, const Action& action) {
    Dom dom;
    DomParser parser;
    std::string failure;
    whileParsing(parser, dom, text, [&] { failure = parseFailure([&] { action(parser); }); });
    return failure;
}

struct RefusedValue {
    const char* name;
    void (*call)(DomParser&);
    const char* atTopLevel;
    const char* withoutKey;
};

void PrintTo(const RefusedValue& row, std::ostream* out) {
    *out << row.name;
}

class DomParserValue : public testing::TestWithParam<RefusedValue> {};

TEST_P(DomParserValue, IsRefusedAsASecondRoot) {
    Dom dom;
    DomParser parser;
    std::string failure;
    whileParsing(parser, dom, R"({"a":1})",
                 [&] { failure = parseFailure([&] { GetParam().call(parser); }); });
    EXPECT_EQ(failure, GetParam().atTopLevel + std::string(k_noPlace));
    EXPECT_EQ(dump(*dom.root()), R"(etObject key="" index=- parent=none
  etNumber 1 key="a" index=- parent=right
)");
}

TEST_P(DomParserValue, IsRefusedInAnObjectWithoutKey) {
    Dom dom;
    DomParser parser;
    std::string failure;
    whileParsing(parser, dom, R"({"list":[{"a":1,"b":{)",
                 [&] { failure = parseFailure([&] { GetParam().call(parser); }); });
    EXPECT_EQ(failure, GetParam().withoutKey + R"( | -1 -1 -1 -1 | path "list[0].b")"s);
    EXPECT_EQ(dump(*dom.root()), R"(etObject key="" index=- parent=none
  etArray key="list" index=- parent=right
    etObject key="[0]" index=0 parent=right
      etNumber 1 key="a" index=- parent=right
      etObject key="b" index=- parent=right
)");
}

TEST_P(DomParserValue, IsRefusedInTheRootObjectOnceItsKeyIsUsed) {
    EXPECT_EQ(failureAfter(R"({"a":1,)", GetParam().call),
              GetParam().withoutKey + R"( | -1 -1 -1 -1 | path "")"s);
}

TEST_P(DomParserValue, LeavesItsExceptionOutOfTheParse) {
    Dom dom;
    DomParser parser;
    EXPECT_EQ(thrown<ParseException>(
                  [&] { whileParsing(parser, dom, "[]", [&] { GetParam().call(parser); }); }),
              GetParam().atTopLevel);
}

TEST_P(DomParserValue, IsOneTooManyOutsideOfAParse) {
    DomParser parser;
    EXPECT_EQ(parseFailure([&] { GetParam().call(parser); }),
              GetParam().atTopLevel + std::string(k_noPlace));
    Dom dom;
    parser.parse(dom, "[1]"s);
    EXPECT_EQ(parseFailure([&] { GetParam().call(parser); }),
              GetParam().atTopLevel + std::string(k_noPlace));
    EXPECT_EQ(dom.root()->size(), 1U);
}

TEST_P(DomParserValue, StillGoesWhereAFailedParseStopped) {
    DomParser parser;
    Dom dom;
    EXPECT_NE(parseFailure([&] { parser.parse(dom, R"({"a":[1,x)"s); }), "<< nothing thrown >>");
    GetParam().call(parser);
    ASSERT_EQ(dom.root()->at("a").size(), 2U);
    EXPECT_EQ(dom.root()->at("a").at(1UL).path(nullptr), "a[1]");
}

TEST_P(DomParserValue, TakesTheKeyAndThePlaceThatAreThere) {
    Dom dom;
    DomParser members;
    whileParsing(members, dom, R"({"key")", [&] { GetParam().call(members); });
    ASSERT_EQ(dom.root()->size(), 1U);
    EXPECT_EQ(dom.root()->at("key").parent(), dom.root());

    DomParser items;
    whileParsing(items, dom, "[0,", [&] { GetParam().call(items); });
    ASSERT_EQ(dom.root()->size(), 2U);
    EXPECT_EQ(dom.root()->at(1UL).index(), 1U);
}

// "object" without a key is "map" with a root there already: callers match on these texts.
INSTANTIATE_TEST_SUITE_P(
    DomParser, DomParserValue,
    testing::Values(
        RefusedValue{"Null", [](DomParser& parser) { parser.cb_null(); }, "Unexpected null value",
                     "Unexpected null value without map key"},
        RefusedValue{"Boolean", [](DomParser& parser) { parser.cb_boolean(true); },
                     "Unexpected boolean value", "Unexpected boolean value without map key"},
        RefusedValue{"Number", [](DomParser& parser) { parser.cb_number("1", 1); },
                     "Unexpected number value", "Unexpected number value without map key"},
        RefusedValue{"String", [](DomParser& parser) { parser.cb_string("x", 1); },
                     "Unexpected string value", "Unexpected string value without map key"},
        RefusedValue{"Map", [](DomParser& parser) { parser.cb_start_map(); }, "Unexpected map",
                     "Unexpected object without map key"},
        RefusedValue{"Array", [](DomParser& parser) { parser.cb_start_array(); },
                     "Unexpected array", "Unexpected array without map key"}),
    k_rowName);

void key(DomParser& parser) {
    parser.cb_map_key("k", 1);
}
void endMap(DomParser& parser) {
    parser.cb_end_map();
}
void endArray(DomParser& parser) {
    parser.cb_end_array();
}

struct Place {
    const char* name;
    void (*call)(DomParser&);
    const char* text;
    const char* failure;
};

void PrintTo(const Place& row, std::ostream* out) {
    *out << row.name;
}

class DomParserStructure : public testing::TestWithParam<Place> {};

TEST_P(DomParserStructure, ThatDoesNotFitIsRefused) {
    EXPECT_EQ(failureAfter(GetParam().text, GetParam().call), GetParam().failure);
}

INSTANTIATE_TEST_SUITE_P(
    DomParser, DomParserStructure,
    testing::Values(
        Place{"KeyAtTheStart", key, "", "Unexpected key of map! | -1 -1 -1 -1 | no path"},
        Place{"KeyAfterTheRoot", key, "{}", "Unexpected key of map! | -1 -1 -1 -1 | no path"},
        Place{"KeyInAnArray", key, R"({"a":[1)",
              R"(Expected current element to be an object! | -1 -1 -1 -1 | path "a")"},
        Place{"EndOfMapAtTheStart", endMap, "", "Unexpected end of map! | -1 -1 -1 -1 | no path"},
        Place{"EndOfMapAfterTheRoot", endMap, "{}",
              "Unexpected end of map! | -1 -1 -1 -1 | no path"},
        Place{"EndOfMapAfterAKey", endMap, R"([{"k")",
              R"(Unexpected end of map! | -1 -1 -1 -1 | path "[0]")"},
        Place{"EndOfMapInAnArray", endMap, R"({"a":[)",
              R"(Unexpected end of map! | -1 -1 -1 -1 | path "a")"},
        Place{"EndOfArrayAtTheStart", endArray, "",
              "Unexpected end of array! | -1 -1 -1 -1 | no path"},
        Place{"EndOfArrayAfterTheRoot", endArray, "[]",
              "Unexpected end of array! | -1 -1 -1 -1 | no path"},
        Place{"EndOfArrayInAnObject", endArray, R"({"a":{"b":{)",
              R"(Unexpected end of array! | -1 -1 -1 -1 | path "a.b")"}),
    k_rowName);

TEST(DomParserStructure, IsRefusedOutsideOfAParse) {
    DomParser parser;
    EXPECT_EQ(parseFailure([&] { key(parser); }), "Unexpected key of map! | -1 -1 -1 -1 | no path");
    EXPECT_EQ(parseFailure([&] { endMap(parser); }),
              "Unexpected end of map! | -1 -1 -1 -1 | no path");
    EXPECT_EQ(parseFailure([&] { endArray(parser); }),
              "Unexpected end of array! | -1 -1 -1 -1 | no path");
}

TEST(DomParserStructure, TakesTheLaterOfTwoKeys) {
    Dom dom;
    DomParser parser;
    whileParsing(parser, dom, R"({"first")", [&] {
        parser.cb_map_key("second", 6);
        parser.cb_null();
        parser.cb_end_map();
    });
    EXPECT_EQ(dump(*dom.root()), R"(etObject key="" index=- parent=none
  etNull key="second" index=- parent=right
)");
}

/// The exact class, the text and the path of what `action` throws.
template <class Action>
std::string failureWithPath(const Action& action) {
    std::string path = "no path";
    const std::string text = thrown<Exception>([&] {
        try {
            action();
        } catch (const Exception& exception) {
            if (exception.elementPath()) {
                path = *exception.elementPath();
            }
            throw;
        }
    });
    return text + " | " + path;
}

TEST(DomParserConvertedNumber, IsRefusedWithTheCurrentPath) {
    Dom dom;
    DomParser parser;
    whileParsing(parser, dom, R"({"a":[)", [&] {
        EXPECT_EQ(failureWithPath([&] { parser.cb_integer(1); }),
                  "Unexpected integer callback | a");
        EXPECT_EQ(failureWithPath([&] { parser.cb_double(1.5); }),
                  "Unexpected double callback | a");
    });
    EXPECT_EQ(dom.root()->at("a").size(), 0U);
}

TEST(DomParserConvertedNumber, IsRefusedWithoutPathAtTopLevel) {
    DomParser parser;
    EXPECT_EQ(failureWithPath([&] { parser.cb_integer(1); }),
              "Unexpected integer callback | no path");
    EXPECT_EQ(failureWithPath([&] { parser.cb_double(1.5); }),
              "Unexpected double callback | no path");
}

TEST(DomParserError, IsThrownWithItsMessage) {
    DomParser parser;
    EXPECT_EQ(parseFailure([&] { parser.cb_error("any text"); }),
              "any text | -1 -1 -1 -1 | no path");
    EXPECT_EQ(failureAfter(R"({"a":[{)", [](DomParser& inside) { inside.cb_error("in here"); }),
              R"(in here | -1 -1 -1 -1 | path "a[0]")");
}

}  // namespace
