#include <zo/Tessera/PathParser.h>

#include <exception>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Path.h>

#include "PathEvents.h"
#include "support/rowName.h"

using zo::Tessera::Path;
using zo::Tessera::PathParser;

namespace {

using namespace std::string_literals;

struct Segments {
    const char* name;
    std::string text;
    std::string events;
};

void PrintTo(const Segments& row, std::ostream* out) {
    *out << row.name;
}

class PathTexts : public testing::TestWithParam<Segments> {};

TEST_P(PathTexts, AreReportedSegmentBySegment) {
    EXPECT_EQ(eventsOf(GetParam().text, Errors::refused), GetParam().events);
    EXPECT_EQ(eventsOf(GetParam().text, Errors::accepted), GetParam().events);
}

INSTANTIATE_TEST_SUITE_P(
    Plain, PathTexts,
    testing::Values(
        Segments{"Empty", "", "finish"}, Segments{"OneKey", "a", "key a; finish"},
        Segments{"TwoKeys", "a.b", "key a; key b; finish"},
        Segments{"ManyKeys", "meta.schema.properties.name",
                 "key meta; key schema; key properties; key name; finish"},
        Segments{"OneIndex", "[3]", "item 3; finish"},
        Segments{"TwoIndexes", "[0][1]", "item 0; item 1; finish"},
        Segments{"IndexAfterKey", "list[3]", "key list; item 3; finish"},
        Segments{"KeyAfterIndex", "list[3].value", "key list; item 3; key value; finish"},
        Segments{"Mixed", "a[0][1].b.c[2]", "key a; item 0; item 1; key b; key c; item 2; finish"},
        Segments{"NoParticularIndex", "[*]", "item 18446744073709551615; finish"},
        Segments{"NoParticularIndexes", "a[*][*].b",
                 "key a; item 18446744073709551615; item 18446744073709551615; key b; "
                 "finish"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Lenient, PathTexts,
    testing::Values(Segments{"LeadingDot", ".a", "key a; finish"},
                    Segments{"LeadingDotBeforeTwoKeys", ".a.b", "key a; key b; finish"},
                    Segments{"NoDotAfterIndex", "a[2]b", "key a; item 2; key b; finish"},
                    Segments{"NoDotAfterLeadingIndex", "[0]a", "item 0; key a; finish"},
                    Segments{"DotAfterLeadingIndex", "[0].a", "item 0; key a; finish"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    KeysOfAnyCharacters, PathTexts,
    testing::Values(
        Segments{"Star", "*", "key *; finish"}, Segments{"StarInside", "a*b", "key a*b; finish"},
        Segments{"Digits", "12.3", "key 12; key 3; finish"},
        Segments{"Blanks", " a . b ", "key  a ; key  b ; finish"},
        Segments{"OnlyABlank", " ", "key  ; finish"},
        Segments{"LinesAndTabs", "a\nb\r.\tc", "key a\nb\r; key \tc; finish"},
        Segments{"OtherPunctuation", "a-b/c:d\"e'{}(),;", "key a-b/c:d\"e'{}(),;; finish"},
        Segments{"Utf8", "\xc3\xa4.\xe2\x82\xac", "key \xc3\xa4; key \xe2\x82\xac; finish"},
        Segments{"HighBytes", "\x80\xfe.\xae\xdb\xdd", "key \x80\xfe; key \xae\xdb\xdd; finish"},
        Segments{"ZeroBytes", "a\0b.\0[0]"s, "key a\0b; key \0; item 0; finish"s},
        Segments{"EscapedZeroByte", "a\\\0b"s, "key a\0b; finish"s}),
    k_rowName);

std::string keyOf(size_t length) {
    return std::string(length - 1, 'k') + "e";
}

// Beyond 15 bytes a string keeps its text elsewhere; the key after a long one begins anew.
INSTANTIATE_TEST_SUITE_P(
    KeysOfAnyLength, PathTexts,
    testing::Values(Segments{"Bytes15", keyOf(15), "key " + keyOf(15) + "; finish"},
                    Segments{"Bytes16", keyOf(16), "key " + keyOf(16) + "; finish"},
                    Segments{"Bytes17", keyOf(17), "key " + keyOf(17) + "; finish"},
                    Segments{"Bytes100000", keyOf(100000), "key " + keyOf(100000) + "; finish"},
                    Segments{
                        "ShortAfterLong", keyOf(100) + ".a[7]." + keyOf(40),
                        "key " + keyOf(100) + "; key a; item 7; key " + keyOf(40) + "; finish"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Escapes, PathTexts,
    testing::Values(Segments{"Dot", "a\\.b", "key a.b; finish"},
                    Segments{"Backslash", "a\\\\b", "key a\\b; finish"},
                    Segments{"Brackets", "\\[0\\]", "key [0]; finish"},
                    Segments{"Star", "\\*", "key *; finish"},
                    Segments{"Letter", "\\a\\n", "key an; finish"},
                    Segments{"DotAloneIsAKey", "\\.", "key .; finish"},
                    Segments{"DotAfterDot", ".\\..\\.", "key .; key .; finish"},
                    Segments{"DotAfterIndex", "[0]\\.a", "item 0; key .a; finish"},
                    Segments{"BackslashesBeforeDot", "a\\\\.b", "key a\\; key b; finish"},
                    Segments{"BackslashesBeforeBracket", "a\\\\[0]", "key a\\; item 0; finish"},
                    Segments{"ThreeBackslashesBeforeDot", "a\\\\\\.b", "key a\\.b; finish"},
                    Segments{"DigitAsIndex", "[\\5]", "item 5; finish"},
                    Segments{"DigitsOfIndex", "[\\1\\2][3\\4]", "item 12; item 34; finish"},
                    Segments{"StarAsIndex", "[\\*]", "item 18446744073709551615; finish"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Indexes, PathTexts,
    testing::Values(
        Segments{"Zero", "[0]", "item 0; finish"}, Segments{"Nine", "[9]", "item 9; finish"},
        Segments{"Digits", "[1234567890]", "item 1234567890; finish"},
        Segments{"LeadingZeros", "[00][007][010]", "item 0; item 7; item 10; finish"},
        Segments{"ManyLeadingZeros", "[" + std::string(100, '0') + "7]", "item 7; finish"},
        Segments{"Past32Bits", "[4294967296]", "item 4294967296; finish"},
        Segments{"SignBit", "[9223372036854775808]", "item 9223372036854775808; finish"},
        Segments{"OneBelowLargest", "[18446744073709551614]", "item 18446744073709551614; finish"},
        Segments{"LargestIsNoParticularOne", "[18446744073709551615]",
                 "item 18446744073709551615; finish"},
        Segments{"LeadingZeroBeforeLargest", "[018446744073709551615]",
                 "item 18446744073709551615; finish"}),
    k_rowName);

// The end of the text is told by its lowest byte, as a signed character.
INSTANTIATE_TEST_SUITE_P(EndingInAByteFF, PathTexts,
                         testing::Values(Segments{"Alone", "\xff", "finish"},
                                         Segments{"InKey", "ab\xff.c", "key ab; finish"},
                                         Segments{"AfterIndex", "[0]\xff]", "item 0; finish"},
                                         Segments{"EscapedIsOfTheKey", "a\\\xff.b",
                                                  "key a\xff; key b; finish"},
                                         Segments{"EscapedThenBare",
                                                  "\\\xff\xff"
                                                  "a",
                                                  "key \xff; finish"}),
                         k_rowName);

INSTANTIATE_TEST_SUITE_P(
    EndingInABackslash, PathTexts,
    testing::Values(Segments{"Alone", "\\", "key \xff; finish"},
                    Segments{"InKey", "ab\\", "key ab\xff; finish"},
                    Segments{"AfterDot", "a.\\", "key a; key \xff; finish"},
                    Segments{"AfterIndex", "[0]\\", "item 0; key \xff; finish"},
                    Segments{"AfterAnEscapedOne", "a\\\\\\", "key a\\\xff; finish"},
                    Segments{"EscapedItself", "a\\\\", "key a\\; finish"}),
    k_rowName);

TEST(PathParser, ReportsNoParticularIndexAsTheConstant) {
    EXPECT_EQ(eventsOf("[*]"), "item " + std::to_string(Path::k_noIndex) + "; finish");
}

struct Stop {
    const char* name;
    const char* text;
    const char* unwanted;
    const char* events;
    const char* left;
};

void PrintTo(const Stop& row, std::ostream* out) {
    *out << row.name;
}

class PathParserStop : public testing::TestWithParam<Stop> {};

TEST_P(PathParserStop, ComesWithAFalseAnswer) {
    const Stop& row = GetParam();
    EXPECT_EQ(eventsOf(row.text, Errors::refused, row.unwanted), row.events);
}

TEST_P(PathParserStop, LeavesTheRestInTheStream) {
    const Stop& row = GetParam();
    PathEvents log(Errors::refused, row.unwanted);
    std::istringstream in(row.text);
    PathParser(log).parse(in);
    EXPECT_EQ(restOf(in), row.left);
}

INSTANTIATE_TEST_SUITE_P(InTheMiddle, PathParserStop,
                         testing::Values(Stop{"KeyBeforeDot", "a.b", "key a", "key a", "b"},
                                         Stop{"KeyBeforeDotAtTheEnd", "a.", "key a", "key a", ""},
                                         Stop{"KeyBeforeBracket", "a[0]", "key a", "key a", "0]"},
                                         Stop{"SecondKey", "a.b.c", "key b", "key a; key b", "c"},
                                         Stop{"BeforeAnError", "a..b", "key a", "key a", ".b"},
                                         Stop{"IndexBeforeDot", "[0].a", "item 0", "item 0", ".a"},
                                         Stop{"IndexBeforeKey", "[0]a", "item 0", "item 0", "a"},
                                         Stop{"IndexBeforeIndex", "a[0][1]", "item 0",
                                              "key a; item 0", "[1]"}),
                         k_rowName);

// A last key is complete only where the text is; a last index before that. Listeners count on it.
INSTANTIATE_TEST_SUITE_P(
    AtTheEnd, PathParserStop,
    testing::Values(Stop{"KeyFinishes", "a", "key a", "key a; finish", ""},
                    Stop{"SecondKeyFinishes", "a.b", "key b", "key a; key b; finish", ""},
                    Stop{"KeyBeforeAByteFFFinishes", "a\xff.b", "key a", "key a; finish", ".b"},
                    Stop{"KeyOfABackslashFinishes", "a\\", "key a\xff", "key a\xff; finish", ""},
                    Stop{"IndexDoesNotFinish", "[0]", "item 0", "item 0", ""},
                    Stop{"IndexAfterKeyDoesNotFinish", "a[0]", "item 0", "key a; item 0", ""},
                    Stop{"IndexBeforeAByteFFDoesNotFinish", "[0]\xff", "item 0", "item 0", "\xff"}),
    k_rowName);

TEST(PathParserRuns, KeepNothingOfEachOther) {
    // Ended by an error in each state, or in the middle of an escape.
    for (const char* const first : {"a.", "ab]", "[12", "[*7]", "\\", "[\\", "[0", "a[b"}) {
        SCOPED_TRACE(first);
        PathEvents log(Errors::refused);
        PathParser parser(log);
        parser.parse(first);
        log.events.clear();
        parser.parse("c..d");
        EXPECT_EQ(log.events,
                  "key c; error Unexpected character '.' in path at \"\" 1,2 parser state "
                  "esObjectInit");
        log.events.clear();
        std::istringstream in("c[2]");
        parser.parse(in);
        EXPECT_EQ(log.events, "key c; item 2; finish");

        log.events.clear();
        std::istringstream firstStream(first);
        parser.parse(firstStream);
        log.events.clear();
        parser.parse("]");
        EXPECT_EQ(log.events,
                  "error Unexpected character ']' in path at \"\" 0,0 parser state esInit");
    }
}

TEST(PathParserRuns, CanStandInsideEachOther) {
    PathEvents log(Errors::refused);
    PathParser parser(log);
    std::istringstream innerStream("inner[1]");
    log.atEvent = [&] {
        if (log.events == "key outer") {
            parser.parse("inner[0]");
            parser.parse(innerStream);
        }
    };
    const std::string events =
        "key outer; key inner; item 0; finish; key inner; item 1; finish; item 2; key last; finish";
    parser.parse("outer[2].last");
    EXPECT_EQ(log.events, events);

    log.events.clear();
    innerStream.clear();
    innerStream.seekg(0);
    std::istringstream outerStream("outer[2].last");
    parser.parse(outerStream);
    EXPECT_EQ(log.events, events);
}

// The exception that a run lets out; the listener throws it at the event that ends `events`.
template <class Run>
std::exception_ptr letOut(const std::exception_ptr& thrown, const std::string& events,
                          const Run& run) {
    PathEvents log(Errors::accepted);
    log.atEvent = [&] {
        if (log.events == events) {
            std::rethrow_exception(thrown);
        }
    };
    PathParser parser(log);
    try {
        run(parser);
    } catch (...) {
        EXPECT_EQ(log.events, events);
        log.events = "again";
        parser.parse("b");
        EXPECT_EQ(log.events, "again; key b; finish");
        return std::current_exception();
    }
    return nullptr;
}

TEST(PathParserListenerException, PassesOutUnchangedFromEachEvent) {
    const std::string text = "a.b[0][*]..c[*7].d";
    const std::exception_ptr exception = std::make_exception_ptr(1);
    const std::string all = eventsOf(text, Errors::accepted);
    EXPECT_EQ(all,
              "key a; key b; item 0; item 18446744073709551615; "
              "error Unexpected character '.' in path at \"\" 9,10 parser state esObjectInit; "
              "key c; error Unreadable index in path at \"*7\" 13,15 parser state esInit; "
              "item 18446744073709551614; key d; finish");
    for (size_t end = 0; end != std::string::npos;) {
        end = all.find("; ", end + 1);
        const std::string events = all.substr(0, end);
        SCOPED_TRACE(events);
        std::istringstream in(text);
        EXPECT_EQ(letOut(exception, events, [&](PathParser& parser) { parser.parse(in); }),
                  exception);
        EXPECT_EQ(letOut(exception, events, [&](PathParser& parser) { parser.parse(text); }),
                  exception);
    }
}

TEST(PathParserListenerException, LeavesTheRestInTheStream) {
    std::istringstream in("a.b[0].c");
    EXPECT_NE(letOut(std::make_exception_ptr(1), "key a; key b; item 0",
                     [&](PathParser& parser) { parser.parse(in); }),
              nullptr);
    EXPECT_TRUE(in.good());
    EXPECT_EQ(restOf(in), ".c");
}

}  // namespace
