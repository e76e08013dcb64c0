#include <zo/Tessera/PathParser.h>

#include <limits>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Exception.h>

#include "PathEvents.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using namespace std::string_literals;

/// Keeps the four arguments of the first error, and refuses it.
class FirstError : public PathParserListener {
public:
    bool cbObjectProperty(const std::string&) override { return true; }
    bool cbArrayItem(unsigned long) override { return true; }
    bool cbParseError(const std::string& message, const std::string& text, unsigned long tokenStart,
                      unsigned long position) override {
        if (arguments.empty()) {
            arguments = message + " | " + text + " | " + std::to_string(tokenStart) + " | " +
                        std::to_string(position);
        }
        return false;
    }

    std::string arguments;
};

struct PathError {
    const char* name;
    std::string text;
    std::string before;
    std::string message;
    std::string token;
    int tokenStart;
    int position;
};

void PrintTo(const PathError& row, std::ostream* out) {
    *out << row.name;
}

class PathErrors : public testing::TestWithParam<PathError> {};

TEST_P(PathErrors, EndARefusingListenersRun) {
    EXPECT_EQ(eventsOf(GetParam().text), GetParam().before + "error " + GetParam().message);
}

TEST_P(PathErrors, ComeWithTheTokenAndTheTwoPlaces) {
    const PathError& row = GetParam();
    const std::string expected = row.message + " | " + row.token + " | " +
                                 std::to_string(row.tokenStart) + " | " +
                                 std::to_string(row.position);
    FirstError fromStream;
    std::istringstream in(row.text);
    PathParser(fromStream).parse(in);
    EXPECT_EQ(fromStream.arguments, expected);

    FirstError fromMemory;
    PathParser(fromMemory).parse(row.text);
    EXPECT_EQ(fromMemory.arguments, expected);
}

template <class Run>
void expectParseException(const PathError& row, const Run& run) {
    SegmentsOnly listener;
    try {
        run(listener);
        ADD_FAILURE() << "nothing thrown";
    } catch (const ParseException& exception) {
        EXPECT_EQ(exception.message(), row.message);
        EXPECT_EQ(exception.line(), 1);
        EXPECT_EQ(exception.column(), row.tokenStart);
        EXPECT_EQ(exception.endLine(), 1);
        EXPECT_EQ(exception.endColumn(), row.position);
        EXPECT_EQ(exception.elementPath(), nullptr);
    }
    EXPECT_EQ(thrown<ParseException>([&] { run(listener); }),
              "Parse error at 1," + std::to_string(row.tokenStart) + "-1," +
                  std::to_string(row.position) + row.message);
}

TEST_P(PathErrors, AreThrownByDefault) {
    const PathError& row = GetParam();
    expectParseException(row, [&](PathParserListener& listener) {
        std::istringstream in(row.text);
        PathParser(listener).parse(in);
    });
    expectParseException(
        row, [&](PathParserListener& listener) { PathParser(listener).parse(row.text); });
}

INSTANTIATE_TEST_SUITE_P(
    UnexpectedCharacters, PathErrors,
    testing::Values(
        PathError{"DotAfterDot", "a..b", "key a; ",
                  R"(Unexpected character '.' in path at "" 1,2 parser state esObjectInit)", "", 1,
                  2},
        PathError{"TwoLeadingDots", "..a", "",
                  R"(Unexpected character '.' in path at "" 0,1 parser state esObjectInit)", "", 0,
                  1},
        PathError{"BracketAfterDot", "a.[0]", "key a; ",
                  R"(Unexpected character '[' in path at "" 1,2 parser state esObjectInit)", "", 1,
                  2},
        PathError{"ClosedWithoutOpening", "a]", "",
                  R"(Unexpected character ']' in path at "a" 0,1 parser state esObject)", "a", 0,
                  1},
        PathError{"ClosedAtTheStart", "]", "",
                  R"(Unexpected character ']' in path at "" 0,0 parser state esInit)", "", 0, 0},
        PathError{"ClosedTwice", "[12]]", "item 12; ",
                  R"(Unexpected character ']' in path at "" 3,4 parser state esInit)", "", 3, 4},
        PathError{"ClosedAfterAnEscapedOpening", "a\\[0]", "",
                  R"(Unexpected character ']' in path at "a[0" 0,4 parser state esObject)", "a[0",
                  0, 4},
        PathError{"EmptyBrackets", "[]", "",
                  R"(Unexpected character ']' in path at "" 0,1 parser state esArrayInit)", "", 0,
                  1},
        PathError{"EmptyBracketsAfterKey", "ab[]", "key ab; ",
                  R"(Unexpected character ']' in path at "" 2,3 parser state esArrayInit)", "", 2,
                  3},
        PathError{"TwoOpeningBrackets", "[[0]]", "",
                  R"(Unexpected character '[' in path at "" 0,1 parser state esArrayInit)", "", 0,
                  1},
        PathError{"BlankInBrackets", "[ 1]", "",
                  R"(Unexpected character ' ' in path at "" 0,1 parser state esArrayInit)", "", 0,
                  1},
        PathError{"BlankAfterIndex", "[1 ]", "",
                  R"(Unexpected character ' ' in path at "1" 1,2 parser state esArray)", "1", 1, 2},
        PathError{"Minus", "[-1]", "",
                  R"(Unexpected character '-' in path at "" 0,1 parser state esArrayInit)", "", 0,
                  1},
        PathError{"Plus", "[+1]", "",
                  R"(Unexpected character '+' in path at "" 0,1 parser state esArrayInit)", "", 0,
                  1},
        PathError{"Letter", "[a]", "",
                  R"(Unexpected character 'a' in path at "" 0,1 parser state esArrayInit)", "", 0,
                  1},
        PathError{"EscapedLetter", "[\\a]", "",
                  R"(Unexpected character 'a' in path at "" 0,2 parser state esArrayInit)", "", 0,
                  2},
        PathError{"LetterAfterDigits", "[12a]", "",
                  R"(Unexpected character 'a' in path at "12" 1,3 parser state esArray)", "12", 1,
                  3},
        PathError{"Fraction", "[1.5]", "",
                  R"(Unexpected character '.' in path at "1" 1,2 parser state esArray)", "1", 1, 2},
        PathError{"OneBelowZero", "[/]", "",
                  R"(Unexpected character '/' in path at "" 0,1 parser state esArrayInit)", "", 0,
                  1},
        PathError{"OneAboveNine", "[9:]", "",
                  R"(Unexpected character ':' in path at "9" 1,2 parser state esArray)", "9", 1, 2},
        PathError{"SuperscriptDigit", "[\xb2]", "",
                  "Unexpected character '\xb2' in path at \"\" 0,1 parser state esArrayInit", "", 0,
                  1},
        PathError{"StarAfterStar", "[**]", "",
                  R"(Unexpected character '*' in path at "*" 1,2 parser state esArray)", "*", 1, 2},
        PathError{"StarAfterDigit", "[1*]", "",
                  R"(Unexpected character '*' in path at "1" 1,2 parser state esArray)", "1", 1, 2},
        PathError{"ZeroByte", "[\0]"s, "",
                  "Unexpected character '\0' in path at \"\" 0,1 parser state esArrayInit"s, "", 0,
                  1},
        PathError{"ZeroByteInToken", "a\0b]"s, "",
                  "Unexpected character ']' in path at \"a\0b\" 0,3 parser state esObject"s,
                  "a\0b"s, 0, 3},
        PathError{
            "LongToken", "x.abcdefghijklmnopqrstuvwxyz]", "key x; ",
            "Unexpected character ']' in path at \"abcdefghijklmnopqrstuvwxyz\" 2,28 parser state "
            "esObject",
            "abcdefghijklmnopqrstuvwxyz", 2, 28}),
    k_rowName);

// "Unexpexced" is what callers match on.
INSTANTIATE_TEST_SUITE_P(
    UnexpectedEnd, PathErrors,
    testing::Values(
        PathError{"AfterDot", "a.", "key a; ",
                  R"(Unexpexced EOF in path at "" 1,2 parser state esObjectInit)", "", 1, 2},
        PathError{"AfterLeadingDot", ".", "",
                  R"(Unexpexced EOF in path at "" 0,1 parser state esObjectInit)", "", 0, 1},
        PathError{"AfterIndexAndDot", "[0].", "item 0; ",
                  R"(Unexpexced EOF in path at "" 3,4 parser state esObjectInit)", "", 3, 4},
        PathError{"AfterOpeningBracket", "a[", "key a; ",
                  R"(Unexpexced EOF in path at "" 1,2 parser state esArrayInit)", "", 1, 2},
        PathError{"InIndex", "a[1", "key a; ",
                  R"(Unexpexced EOF in path at "1" 2,3 parser state esArray)", "1", 2, 3},
        PathError{"AfterStar", "[*", "",
                  R"(Unexpexced EOF in path at "*" 1,2 parser state esArray)", "*", 1, 2},
        PathError{"AtAByteFFAfterDot",
                  "a.\xff"
                  "b",
                  "key a; ", R"(Unexpexced EOF in path at "" 1,2 parser state esObjectInit)", "", 1,
                  2},
        PathError{"AtAByteFFInIndex", "[1\xff]", "",
                  R"(Unexpexced EOF in path at "1" 1,2 parser state esArray)", "1", 1, 2},
        PathError{"AtAnEscapedByteFFInIndex", "[1\\\xff]", "",
                  R"(Unexpexced EOF in path at "1" 1,3 parser state esArray)", "1", 1, 3},
        PathError{"AtABackslashAfterOpeningBracket", "[\\", "",
                  R"(Unexpexced EOF in path at "" 0,2 parser state esArrayInit)", "", 0, 2},
        PathError{"AtABackslashInIndex", "[1\\", "",
                  R"(Unexpexced EOF in path at "1" 1,3 parser state esArray)", "1", 1, 3}),
    k_rowName);

struct Accepted {
    const char* name;
    const char* text;
    const char* events;
};

void PrintTo(const Accepted& row, std::ostream* out) {
    *out << row.name;
}

class AcceptedPathErrors : public testing::TestWithParam<Accepted> {};

TEST_P(AcceptedPathErrors, DropTheCharacterAndGoOn) {
    EXPECT_EQ(eventsOf(GetParam().text, Errors::accepted), GetParam().events);
}

INSTANTIATE_TEST_SUITE_P(
    PathParser, AcceptedPathErrors,
    testing::Values(
        Accepted{"SecondDot", "a..b",
                 R"(key a; error Unexpected character '.' in path at "" 1,2 parser state )"
                 "esObjectInit; key b; finish"},
        Accepted{"StrayBracketInKey", "a]b",
                 R"(error Unexpected character ']' in path at "a" 0,1 parser state esObject; )"
                 "key ab; finish"},
        Accepted{"StrayBracketAfterIndex", "[1]]a",
                 R"(item 1; error Unexpected character ']' in path at "" 2,3 parser state esInit; )"
                 "key a; finish"},
        Accepted{"MinusBeforeIndex", "[-1]",
                 R"(error Unexpected character '-' in path at "" 0,1 parser state esArrayInit; )"
                 "item 1; finish"},
        Accepted{"BlankInIndex", "[1 2]",
                 R"(error Unexpected character ' ' in path at "1" 1,2 parser state esArray; )"
                 "item 12; finish"},
        Accepted{"LetterBeforeStar", "[x*]",
                 R"(error Unexpected character 'x' in path at "" 0,1 parser state esArrayInit; )"
                 "item 18446744073709551615; finish"},
        // A star is only told by the place of its bracket, and here that is one too far.
        Accepted{"LetterAfterStar", "[*x]",
                 R"(error Unexpected character 'x' in path at "*" 1,2 parser state esArray; )"
                 R"(error Unreadable index in path at "*" 1,3 parser state esInit; )"
                 "item 18446744073709551614; finish"},
        Accepted{"EndInIndex", "[1",
                 R"(error Unexpexced EOF in path at "1" 1,2 parser state esArray)"},
        Accepted{"EveryOneOfMany", "].].",
                 R"(error Unexpected character ']' in path at "" 0,0 parser state esInit; )"
                 R"(error Unexpected character ']' in path at "" 1,2 parser state esObjectInit; )"
                 R"(error Unexpected character '.' in path at "" 1,3 parser state esObjectInit; )"
                 R"(error Unexpexced EOF in path at "" 1,4 parser state esObjectInit)"}),
    k_rowName);

struct Unreadable {
    const char* name;
    const char* index;
    const char* error;
};

void PrintTo(const Unreadable& row, std::ostream* out) {
    *out << row.name;
}

class UnreadableIndex : public testing::TestWithParam<Unreadable> {
protected:
    const std::string text = GetParam().index;
    const std::string error = GetParam().error;
    // Reported in either case, below `Path::k_noIndex` and beyond the end of any array.
    const std::string item = "; item 18446744073709551614";
};

TEST_P(UnreadableIndex, IsReportedAndPassedOverWhenAccepted) {
    EXPECT_EQ(eventsOf(text, Errors::accepted), error + item + "; finish");
    EXPECT_EQ(eventsOf(text + ".a[2]", Errors::accepted), error + item + "; key a; item 2; finish");
}

TEST_P(UnreadableIndex, IsReportedBeforeTheRunEndsWhenRefused) {
    EXPECT_EQ(eventsOf(text), error + item);
    EXPECT_EQ(eventsOf(text + ".a[2]"), error + item);
    EXPECT_EQ(eventsOf(text + "..["), error + item);
}

TEST_P(UnreadableIndex, EndsTheRunWhenItsItemIsRefused) {
    EXPECT_EQ(eventsOf(text + ".a", Errors::accepted, "item 18446744073709551614"), error + item);
    EXPECT_EQ(eventsOf(text + ".a", Errors::refused, "item 18446744073709551614"), error + item);
    EXPECT_EQ(eventsOf(text, Errors::accepted, "item 18446744073709551614"), error + item);
}

INSTANTIATE_TEST_SUITE_P(
    PathParser, UnreadableIndex,
    testing::Values(
        Unreadable{"StarBeforeDigit", "[*7]",
                   R"(error Unreadable index in path at "*7" 1,3 parser state esInit)"},
        Unreadable{"StarBeforeDigits", "[*00]",
                   R"(error Unreadable index in path at "*00" 1,4 parser state esInit)"},
        Unreadable{"EscapedStarBeforeDigit", "[\\*7]",
                   R"(error Unreadable index in path at "*7" 2,4 parser state esInit)"},
        Unreadable{"StarBeforeEscapedDigit", "[*\\7]",
                   R"(error Unreadable index in path at "*7" 1,4 parser state esInit)"},
        Unreadable{"OneAboveTheLargest", "[18446744073709551616]",
                   R"(error Unreadable index in path at "18446744073709551616" 1,21 parser )"
                   "state esInit"},
        Unreadable{"ZeroBeforeOneAboveTheLargest", "[018446744073709551616]",
                   R"(error Unreadable index in path at "018446744073709551616" 1,22 parser )"
                   "state esInit"},
        Unreadable{"OneDigitMore", "[184467440737095516150]",
                   R"(error Unreadable index in path at "184467440737095516150" 1,22 parser )"
                   "state esInit"},
        Unreadable{"ManyDigits", "[9999999999999999999999999999999999999999]",
                   R"(error Unreadable index in path at )"
                   R"("9999999999999999999999999999999999999999" 1,41 parser state esInit)"}),
    k_rowName);

TEST(UnreadableIndexByDefault, IsThrownAndNothingReported) {
    const char* const text =
        R"(Parse error at 1,2-1,4Unreadable index in path at "*7" 2,4 parser state esInit)";
    SegmentsOnly fromMemory;
    EXPECT_EQ(thrown<ParseException>([&] { PathParser(fromMemory).parse("a[*7].b"); }), text);
    EXPECT_EQ(fromMemory.segments, " key a");

    SegmentsOnly fromStream;
    std::istringstream in("a[*7].b");
    EXPECT_EQ(thrown<ParseException>([&] { PathParser(fromStream).parse(in); }), text);
    EXPECT_EQ(fromStream.segments, " key a");
    EXPECT_EQ(restOf(in), ".b");
}

struct Counters {
    const char* name;
    unsigned long tokenStart;
    unsigned long position;
    int column;
    int endColumn;
    const char* text;
};

void PrintTo(const Counters& row, std::ostream* out) {
    *out << row.name;
}

class PathErrorCounters : public testing::TestWithParam<Counters> {};

TEST_P(PathErrorCounters, AreCutTo32BitsByTheDefault) {
    const Counters& row = GetParam();
    SegmentsOnly listener;
    const auto call = [&] {
        listener.cbParseError("the message", "the text", row.tokenStart, row.position);
    };
    try {
        call();
        ADD_FAILURE() << "nothing thrown";
    } catch (const ParseException& exception) {
        EXPECT_EQ(exception.message(), "the message");
        EXPECT_EQ(exception.line(), 1);
        EXPECT_EQ(exception.column(), row.column);
        EXPECT_EQ(exception.endLine(), 1);
        EXPECT_EQ(exception.endColumn(), row.endColumn);
        EXPECT_EQ(exception.elementPath(), nullptr);
    }
    EXPECT_EQ(thrown<ParseException>(call), row.text);
}

INSTANTIATE_TEST_SUITE_P(
    PathParser, PathErrorCounters,
    testing::Values(
        Counters{"Zero", 0, 0, 0, 0, "Parse error at 1,0-1,0the message"},
        Counters{"Small", 3, 12, 3, 12, "Parse error at 1,3-1,12the message"},
        Counters{"Largest", 0x7FFFFFFE, 0x7FFFFFFF, 2147483646, 2147483647,
                 "Parse error at 1,2147483646-1,2147483647the message"},
        Counters{"SignBit", 0x80000000, 0x80000001, std::numeric_limits<int>::min(), -2147483647,
                 "Parse error at 1,-2147483648-1,-2147483647the message"},
        Counters{"Past32Bits", 0x100000000, 0x700000009, 0, 9, "Parse error at 1,0-1,9the message"},
        // What is cut to -1 counts as unknown.
        Counters{"AllBitsOf32", 0xFFFFFFFF, 0x2FFFFFFFF, -1, -1, "Parse error at 1-1the message"},
        Counters{"AllBitsOf64", ~0UL, 5, -1, 5, "Parse error at 1-1,5the message"}),
    k_rowName);

}  // namespace
