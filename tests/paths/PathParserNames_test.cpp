#include <zo/Tessera/PathParser.h>

#include <iomanip>
#include <limits>
#include <sstream>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include <zo/Tessera/Exception.h>

#include "PathEvents.h"
#include "support/HostileLocale.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

static_assert(PathParser::esInit == 0);
static_assert(PathParser::esObjectInit == 1);
static_assert(PathParser::esObject == 2);
static_assert(PathParser::esArrayInit == 3);
static_assert(PathParser::esArray == 4);
static_assert(PathParser::esError == 5);
static_assert(std::is_same_v<std::underlying_type_t<PathParser::EState>, int>);
static_assert(sizeof(PathParser::EState) * 8 == 32);

static_assert(std::is_abstract_v<PathParserListener>);
static_assert(std::has_virtual_destructor_v<PathParserListener>);
static_assert(sizeof(PathParserListener) == sizeof(void*), "a listener holds no data");

static_assert(std::is_constructible_v<PathParser, PathParserListener&>);
static_assert(!std::is_convertible_v<PathParserListener&, PathParser>, "never by accident");
static_assert(!std::is_default_constructible_v<PathParser>);
static_assert(sizeof(PathParser) == sizeof(void*), "a parser holds its listener only");

struct StateName {
    const char* name;
    PathParser::EState state;
    const char* text;
    const wchar_t* wideText;
};

void PrintTo(const StateName& row, std::ostream* out) {
    *out << row.name;
}

class PathParserStateName : public testing::TestWithParam<StateName> {};

TEST_P(PathParserStateName, IsWrittenToANarrowStream) {
    std::ostringstream out;
    EXPECT_EQ(&(out << GetParam().state << '|'), &out);
    EXPECT_EQ(out.str(), std::string(GetParam().text) + "|");
}

TEST_P(PathParserStateName, IsWrittenToAWideStream) {
    std::wostringstream out;
    EXPECT_EQ(&(out << GetParam().state << L'|'), &out);
    EXPECT_EQ(out.str(), std::wstring(GetParam().wideText) + L"|");
}

constexpr PathParser::EState stateOf(int value) {
    return static_cast<PathParser::EState>(value);
}

INSTANTIATE_TEST_SUITE_P(
    EachState, PathParserStateName,
    testing::Values(StateName{"Init", PathParser::esInit, "esInit", L"esInit"},
                    StateName{"ObjectInit", PathParser::esObjectInit, "esObjectInit",
                              L"esObjectInit"},
                    StateName{"Object", PathParser::esObject, "esObject", L"esObject"},
                    StateName{"ArrayInit", PathParser::esArrayInit, "esArrayInit", L"esArrayInit"},
                    StateName{"Array", PathParser::esArray, "esArray", L"esArray"},
                    StateName{"Error", PathParser::esError, "esError", L"esError"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    OtherValues, PathParserStateName,
    testing::Values(StateName{"OneBelow", stateOf(-1), ">>INVALID<<", L">>INVALID<<"},
                    StateName{"OneAbove", stateOf(6), ">>INVALID<<", L">>INVALID<<"},
                    StateName{"Least", stateOf(std::numeric_limits<int>::min()), ">>INVALID<<",
                              L">>INVALID<<"},
                    StateName{"Largest", stateOf(std::numeric_limits<int>::max()), ">>INVALID<<",
                              L">>INVALID<<"}),
    k_rowName);

TEST(PathParserStateNames, FillTheWidthThatIsSetOnTheStream) {
    std::ostringstream out;
    out << std::setw(8) << std::setfill('.') << PathParser::esInit << PathParser::esError;
    EXPECT_EQ(out.str(), "..esInitesError");

    std::wostringstream wideOut;
    wideOut << std::setw(8) << std::setfill(L'.') << PathParser::esInit << PathParser::esError;
    EXPECT_EQ(wideOut.str(), L"..esInitesError");
}

TEST(PathParserListener, DoesNothingAtTheEndUnlessTold) {
    SegmentsOnly listener;
    EXPECT_NO_THROW(PathParser(listener).parse("a[2]"));
    EXPECT_EQ(listener.segments, " key a item 2");
    std::istringstream in("b");
    EXPECT_NO_THROW(PathParser(listener).parse(in));
    EXPECT_EQ(listener.segments, " key a item 2 key b");
    EXPECT_NO_THROW(listener.cbFinish());
    EXPECT_EQ(listener.segments, " key a item 2 key b");
}

TEST(PathParserListener, ThrowsAtAnErrorUnlessTold) {
    const char* const text =
        R"(Parse error at 1,3-1,4Unexpected character ']' in path at "" 3,4 parser state esInit)";
    SegmentsOnly listener;
    EXPECT_EQ(thrown<ParseException>([&] { PathParser(listener).parse("a[2]]"); }), text);
    EXPECT_EQ(listener.segments, " key a item 2");
    std::istringstream in("b[3]]");
    EXPECT_EQ(thrown<ParseException>([&] { PathParser(listener).parse(in); }), text);
    EXPECT_EQ(listener.segments, " key a item 2 key b item 3");
}

// Paths are logged and compared, wherever the application runs.
TEST(PathParserInAHostileLocale, WritesCountersWithoutGroups) {
    const std::string key(1234, 'k');
    const HostileLocale locale;
    EXPECT_EQ(eventsOf(key + "..b"),
              "key " + key +
                  "; error Unexpected character '.' in path at \"\" 1234,1235 parser state "
                  "esObjectInit");
    SegmentsOnly listener;
    EXPECT_EQ(thrown<ParseException>([&] { PathParser(listener).parse(key + "..b"); }),
              "Parse error at 1,1234-1,1235Unexpected character '.' in path at \"\" "
              "1234,1235 parser state esObjectInit");
}

TEST(PathParserInAHostileLocale, ReadsIndexesAsEverywhere) {
    const HostileLocale locale;
    EXPECT_EQ(eventsOf("[1234567]"), "item 1234567; finish");
    EXPECT_EQ(eventsOf("[18446744073709551615]"), "item 18446744073709551615; finish");
    EXPECT_EQ(eventsOf("[1.234]"),
              "error Unexpected character '.' in path at \"1\" 1,2 parser state esArray");
    EXPECT_EQ(eventsOf("[18446744073709551616]"),
              "error Unreadable index in path at \"18446744073709551616\" 1,21 parser state "
              "esInit; item 18446744073709551614");
}

}  // namespace
