#include <zo/Tessera/readDocument.h>

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <zo/Tessera/Exception.h>

#include "documents/reading.h"
#include "support/rowName.h"

using namespace zo::Tessera;
using namespace std::string_view_literals;

// Where malformed text is refused, and how. The ends of texts have their own tests.

namespace {

struct Flaw {
    const char* name;
    std::string_view text;
    int line;
    int column;
    const char* message;
};

class ReadDocumentErrors : public testing::TestWithParam<Flaw> {};

TEST_P(ReadDocumentErrors, SayWhereAndWhatAndInWhichElement) {
    const Flaw& row = GetParam();
    EXPECT_EQ(fromBoth(row.text), "Parse error at " + std::to_string(row.line) + ',' +
                                      std::to_string(row.column) + row.message);
}

TEST_P(ReadDocumentErrors, HaveTheirPartsApart) {
    try {
        readDocument(GetParam().text);
        ADD_FAILURE();
    } catch (const ParseException& refusal) {
        EXPECT_EQ(refusal.line(), GetParam().line);
        EXPECT_EQ(refusal.column(), GetParam().column);
        EXPECT_EQ(refusal.message(), GetParam().message);
    }
}

// The byte itself is named, where no token can hold it.
INSTANTIATE_TEST_SUITE_P(
    Bytes, ReadDocumentErrors,
    testing::Values(
        Flaw{"NoTokenBeginsSo", "x", 1, 1,
             R"( in element "": lexical error: invalid char in json text.)"},
        Flaw{"NoTokenBeginsSoInAnArray", "[1,\n  x]", 2, 3,
             R"( in element "[1]": lexical error: invalid char in json text.)"},
        Flaw{"NoTokenBeginsSoInAMember", "{\"a\": 'b'}", 1, 7,
             R"( in element "a": lexical error: invalid char in json text.)"},
        Flaw{"NoTokenBeginsSoBehindAnItem", "[1 x]", 1, 4,
             R"( in element "": lexical error: invalid char in json text.)"},
        Flaw{"NoTokenBeginsWithAPlus", "[+1]", 1, 2,
             R"( in element "[0]": lexical error: invalid char in json text.)"},
        Flaw{"NoTokenBeginsWithAPoint", "[.5]", 1, 2,
             R"( in element "[0]": lexical error: invalid char in json text.)"},
        Flaw{"NoTokenBeginsWithAHighByte", "[\xC3\xA9]", 1, 2,
             R"( in element "[0]": lexical error: invalid char in json text.)"},
        Flaw{"NoTokenBeginsWithAZeroByte", "[\0]"sv, 1, 2,
             R"( in element "[0]": lexical error: invalid char in json text.)"},
        Flaw{"LiteralGoesOnWrongly", "[true, fals ]", 1, 12,
             R"( in element "[1]": lexical error: invalid string in json text.)"},
        Flaw{"LiteralIsNoLiteral", "{\"a\": nan}", 1, 8,
             R"( in element "a": lexical error: invalid string in json text.)"},
        Flaw{"LiteralIsLonger", "[nullx]", 1, 6,
             R"( in element "": lexical error: invalid char in json text.)"},
        Flaw{"MinusAlone", "[-]", 1, 3,
             R"( in element "[0]": lexical error: malformed number, a digit is required after the )"
             "minus sign."},
        Flaw{"NoDigitBehindThePoint", "[0, 1.]", 1, 7,
             R"( in element "[1]": lexical error: malformed number, a digit is required after the )"
             "decimal point."},
        Flaw{"NoDigitInTheExponent", "[0, 1e]", 1, 7,
             R"( in element "[1]": lexical error: malformed number, a digit is required after the )"
             "exponent."},
        Flaw{"NoDigitBehindTheSignOfTheExponent", "[1.5E+ 1]", 1, 7,
             R"( in element "[0]": lexical error: malformed number, a digit is required after the )"
             "exponent."},
        Flaw{"ControlCharacterInAString", "[\"a\tb\"]", 1, 4,
             R"( in element "[0]": lexical error: invalid character inside string.)"},
        Flaw{"LineEndInAString", "[\n \"ab\n\"]", 2, 5,
             R"( in element "[0]": lexical error: invalid character inside string.)"},
        Flaw{"ZeroByteInAKey", "{\"a\0\": 1}"sv, 1, 4,
             R"( in element "": lexical error: invalid character inside string.)"},
        Flaw{"UnknownEscape", R"(["\a"])", 1, 4,
             R"( in element "[0]": lexical error: inside a string, '\' occurs before a character )"
             "which it may not."},
        Flaw{"EscapeWithoutFourHexDigits", R"({"a": "\u12G4"})", 1, 12,
             R"( in element "a": lexical error: invalid (non-hex) character occurs after '\u' )"
             "inside string."},
        Flaw{"SlashBeforeAnythingElse", "[1, /x]", 1, 6,
             R"( in element "[1]": lexical error: invalid char in json text.)"},
        Flaw{"VerticalTabForABlank", "[1,\v2]", 1, 4,
             R"( in element "[1]": a vertical tab or a form feed is no blank)"},
        Flaw{"FormFeedForABlank", "[1 \f,2]", 1, 4,
             R"( in element "": a vertical tab or a form feed is no blank)"},
        Flaw{"VerticalTabInAString", "[1,\"ab\v\"]", 1, 7,
             R"( in element "[1]": lexical error: invalid character inside string.)"}),
    k_rowName);

constexpr const char* k_unallowed =
    R"( in element "": parse error: unallowed token at this point in JSON text)";
constexpr const char* k_unallowedFirst =
    R"( in element "[0]": parse error: unallowed token at this point in JSON text)";
constexpr const char* k_unallowedSecond =
    R"( in element "[1]": parse error: unallowed token at this point in JSON text)";
constexpr const char* k_unallowedMember =
    R"( in element "a": parse error: unallowed token at this point in JSON text)";
constexpr const char* k_expectItemEnd =
    R"( in element "": parse error: after array element, I expect ',' or ']')";
constexpr const char* k_expectMemberEnd =
    R"( in element "": parse error: after key and value, inside map, I expect ',' or '}')";
constexpr const char* k_expectColon =
    R"( in element "a": parse error: object key and value must be separated by a colon (':'))";
constexpr const char* k_expectKey =
    R"( in element "": parse error: invalid object key (must be a string))";

// The first byte of a token is named that may not stand there.
INSTANTIATE_TEST_SUITE_P(
    Tokens, ReadDocumentErrors,
    testing::Values(Flaw{"ClosingBraceAlone", "}", 1, 1, k_unallowed},
                    Flaw{"ClosingBracketAlone", " ]", 1, 2, k_unallowed},
                    Flaw{"CommaAlone", ",", 1, 1, k_unallowed},
                    Flaw{"ColonAlone", ":", 1, 1, k_unallowed},
                    Flaw{"CommaFirstInAnArray", "[,1]", 1, 2, k_unallowedFirst},
                    Flaw{"TwoCommasInAnArray", "[1,,2]", 1, 4, k_unallowedSecond},
                    Flaw{"CommaLastInAnArray", "[1, ]", 1, 5, k_unallowedSecond},
                    Flaw{"ColonInAnArray", "[\"a\": 1]", 1, 5, k_expectItemEnd},
                    Flaw{"NoCommaInAnArray", "[true 12345]", 1, 7, k_expectItemEnd},
                    Flaw{"LeadingZero", "[012]", 1, 3, k_expectItemEnd},
                    Flaw{"TwoSigns", "[1-22]", 1, 3, k_expectItemEnd},
                    Flaw{"ArrayClosedAsAnObject", "[1}", 1, 3, k_expectItemEnd},
                    Flaw{"EmptyArrayClosedAsAnObject", "[}", 1, 2, k_unallowedFirst},
                    Flaw{"ObjectClosedAsAnArray", "{\"a\": 1]", 1, 8, k_expectMemberEnd},
                    Flaw{"EmptyObjectClosedAsAnArray", "{]", 1, 2, k_expectKey},
                    Flaw{"CommaFirstInAnObject", "{,\"a\": 1}", 1, 2, k_expectKey},
                    Flaw{"CommaLastInAnObject", "{\"a\": 1, }", 1, 10, k_expectKey},
                    Flaw{"NumberForAKey", "{\"a\": 1, 234: 5}", 1, 10, k_expectKey},
                    Flaw{"LiteralForAKey", "{ null: 5}", 1, 3, k_expectKey},
                    Flaw{"ArrayForAKey", "{[1]: 5}", 1, 2, k_expectKey},
                    Flaw{"NoCommaInAnObject", "{\"a\": 1\n\"b\": 2}", 2, 1, k_expectMemberEnd},
                    Flaw{"KeyWithoutAValue", "{\"a\": }", 1, 7, k_unallowedMember},
                    Flaw{"KeyWithoutAColon", "{\"a\" \"bc\"}", 1, 6, k_expectColon},
                    Flaw{"KeyAlone", "{\"a\"}", 1, 5, k_expectColon},
                    Flaw{"CommaForAColon", "{\"a\" , 1}", 1, 6, k_expectColon},
                    Flaw{"TwoColons", "{\"a\":: 1}", 1, 6, k_unallowedMember},
                    Flaw{"NumberBehindAComment", "{\"a\": 1/*]*/234}", 1, 13, k_expectMemberEnd},
                    Flaw{"LiteralBehindALine", "{\"a\": 1 //\ntrue}", 2, 1, k_expectMemberEnd},
                    Flaw{"ColonBehindAComment", "{\"a\": 1 /**/: 2}", 1, 13, k_expectMemberEnd},
                    Flaw{"KeyBehindAComment", "{\"a\": 1 /**/\"b\": 2}", 1, 13, k_expectMemberEnd},
                    Flaw{"StarsBetween", "[1 /***/ 2]", 1, 10, k_expectItemEnd},
                    Flaw{"CommentsBetween", "[1 /*]*/ //,\n /* */ 2]", 2, 8, k_expectItemEnd}),
    k_rowName);

constexpr const char* k_behind = R"( in element "": text behind the document)";

constexpr const char* k_afterItem =
    R"( in element "": parse error: after array element, I expect ',' or ']')";
constexpr const char* k_afterMember =
    R"( in element "": parse error: after key and value, inside map, I expect ',' or '}')";
constexpr const char* k_noKey =
    R"( in element "": parse error: invalid object key (must be a string))";

// Malformed as well, or cut off: what is told is that the token may not stand there.
INSTANTIATE_TEST_SUITE_P(
    Misplaced, ReadDocumentErrors,
    testing::Values(
        Flaw{"LiteralForAKey", "{name\":1}", 1, 2, k_noKey},
        Flaw{"NumberForAKey", "{\"a\":1, -}", 1, 9, k_noKey},
        Flaw{"MinusBehindAnItem", "[1 -]", 1, 4, k_afterItem},
        Flaw{"NumberBehindAnItem", "[1 2", 1, 4, k_afterItem},
        Flaw{"StringBehindAnItem", "[-0\".5e3],\n", 1, 4, k_afterItem},
        Flaw{"EscapeBehindAnItem", "[1 \"\\x\"]", 1, 4, k_afterItem},
        Flaw{"HalfAPairBehindAnItem", R"([1 "\ud800"])", 1, 4, k_afterItem},
        Flaw{"OddBlankBehindAnItem", "[1 2\v]", 1, 4, k_afterItem},
        Flaw{"StringBehindAMember", "{\"a\":1 \"\n", 1, 8, k_afterMember},
        Flaw{
            "LiteralForAColon", "{\"a\" nul}", 1, 6,
            R"( in element "a": parse error: object key and value must be separated by a colon (':'))"},
        Flaw{"HalfAPairBehindTheDocument", R"(1 "\ud800")", 1, 3,
             R"( in element "": text behind the document)"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(Behind, ReadDocumentErrors,
                         testing::Values(Flaw{"AnotherDocument", "1 2", 1, 3, k_behind},
                                         Flaw{"ClosingBracket", "[]]", 1, 3, k_behind},
                                         Flaw{"Comma", "{},", 1, 3, k_behind},
                                         Flaw{"NoToken", "[]\n 'x'", 2, 2, k_behind},
                                         Flaw{"ZeroByte", "[]\0"sv, 1, 3, k_behind},
                                         Flaw{"LeadingZero", "00", 1, 2, k_behind},
                                         Flaw{"LiteralGoesOn", "truetrue", 1, 5, k_behind},
                                         Flaw{"BehindAComment", "1/*2*/3", 1, 7, k_behind},
                                         Flaw{"StringThatIsMalformed", "1 \"\\x\"", 1, 3, k_behind},
                                         Flaw{"NumberThatIsMalformed", "1 -x", 1, 3, k_behind},
                                         Flaw{"ByteOrderMark", "1\xEF\xBB\xBF", 1, 2, k_behind}),
                         k_rowName);

constexpr const char* k_invalidChar = R"(": lexical error: invalid char in json text.)";

TEST(ReadDocumentErrors, NameTheElementByItsPath) {
    const auto refusalOf = [](const std::string& path) {
        return " in element \"" + path + k_invalidChar;
    };
    EXPECT_EQ(fromBoth(R"({"a.b[\"\\": [0, {"": [[], [true, x]]}]})"),
              "Parse error at 1,35" + refusalOf(R"(a\.b\["\\[1].[1][1])"));
    // What was read before has no say in it.
    EXPECT_EQ(fromBoth("{\"a\": [1, 2], \"b\": {\"c\": 3}, x"),
              "Parse error at 1,30" + refusalOf(""));
    EXPECT_EQ(fromBoth("[[1, 2], [3], x"), "Parse error at 1,15" + refusalOf("[2]"));
    EXPECT_EQ(fromBoth("[[1, 2], [3, 4] x"), "Parse error at 1,17" + refusalOf(""));
    EXPECT_EQ(fromBoth("{\"a\": 1, \"a\": [x"), "Parse error at 1,16" + refusalOf("a[0]"));
    EXPECT_EQ(fromBoth("{\"k\": {\"a\": 1, x"), "Parse error at 1,16" + refusalOf("k"));
}

}  // namespace
