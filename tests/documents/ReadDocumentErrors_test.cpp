#include <zo/Tessera/readDocument.h>

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <zo/Tessera/Exception.h>

#include "documents/reading.h"

using namespace zo::Tessera;
using namespace std::string_view_literals;

// Where malformed text is refused, and how. The ends of texts have their own tests.

namespace {

struct Case {
    const char* name;
    std::string_view text;
    int line;
    int column;
    const char* message;
};

class ReadDocumentErrors : public testing::TestWithParam<Case> {};

TEST_P(ReadDocumentErrors, SayWhereAndWhatAndInWhichElement) {
    const Case& row = GetParam();
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

const auto k_name = [](const auto& row) { return std::string(row.param.name); };

// The byte itself is named, where no token can hold it.
INSTANTIATE_TEST_SUITE_P(
    Bytes, ReadDocumentErrors,
    testing::Values(
        Case{"NoTokenBeginsSo", "x", 1, 1,
             R"( in element "": lexical error: invalid char in json text.)"},
        Case{"NoTokenBeginsSoInAnArray", "[1,\n  x]", 2, 3,
             R"( in element "[1]": lexical error: invalid char in json text.)"},
        Case{"NoTokenBeginsSoInAMember", "{\"a\": 'b'}", 1, 7,
             R"( in element "a": lexical error: invalid char in json text.)"},
        Case{"NoTokenBeginsSoBehindAnItem", "[1 x]", 1, 4,
             R"( in element "": lexical error: invalid char in json text.)"},
        Case{"NoTokenBeginsWithAPlus", "[+1]", 1, 2,
             R"( in element "[0]": lexical error: invalid char in json text.)"},
        Case{"NoTokenBeginsWithAPoint", "[.5]", 1, 2,
             R"( in element "[0]": lexical error: invalid char in json text.)"},
        Case{"NoTokenBeginsWithAHighByte", "[\xC3\xA9]", 1, 2,
             R"( in element "[0]": lexical error: invalid char in json text.)"},
        Case{"NoTokenBeginsWithAZeroByte", "[\0]"sv, 1, 2,
             R"( in element "[0]": lexical error: invalid char in json text.)"},
        Case{"LiteralGoesOnWrongly", "[true, fals ]", 1, 12,
             R"( in element "[1]": lexical error: invalid string in json text.)"},
        Case{"LiteralIsNoLiteral", "{\"a\": nan}", 1, 8,
             R"( in element "a": lexical error: invalid string in json text.)"},
        Case{"LiteralIsLonger", "[nullx]", 1, 6,
             R"( in element "": lexical error: invalid char in json text.)"},
        Case{"MinusAlone", "[-]", 1, 3,
             R"( in element "[0]": lexical error: malformed number, a digit is required after the )"
             "minus sign."},
        Case{"NoDigitBehindThePoint", "[0, 1.]", 1, 7,
             R"( in element "[1]": lexical error: malformed number, a digit is required after the )"
             "decimal point."},
        Case{"NoDigitInTheExponent", "[0, 1e]", 1, 7,
             R"( in element "[1]": lexical error: malformed number, a digit is required after the )"
             "exponent."},
        Case{"NoDigitBehindTheSignOfTheExponent", "[1.5E+ 1]", 1, 7,
             R"( in element "[0]": lexical error: malformed number, a digit is required after the )"
             "exponent."},
        Case{"ControlCharacterInAString", "[\"a\tb\"]", 1, 4,
             R"( in element "[0]": lexical error: invalid character inside string.)"},
        Case{"LineEndInAString", "[\n \"ab\n\"]", 2, 5,
             R"( in element "[0]": lexical error: invalid character inside string.)"},
        Case{"ZeroByteInAKey", "{\"a\0\": 1}"sv, 1, 4,
             R"( in element "": lexical error: invalid character inside string.)"},
        Case{"UnknownEscape", R"(["\a"])", 1, 4,
             R"( in element "[0]": lexical error: inside a string, '\' occurs before a character )"
             "which it may not."},
        Case{"EscapeWithoutFourHexDigits", R"({"a": "\u12G4"})", 1, 12,
             R"( in element "a": lexical error: invalid (non-hex) character occurs after '\u' )"
             "inside string."},
        Case{"SlashBeforeAnythingElse", "[1, /x]", 1, 6,
             R"( in element "[1]": lexical error: invalid char in json text.)"},
        Case{"VerticalTabForABlank", "[1,\v2]", 1, 4,
             R"( in element "[1]": a vertical tab or a form feed is no blank)"},
        Case{"FormFeedForABlank", "[1 \f,2]", 1, 4,
             R"( in element "": a vertical tab or a form feed is no blank)"},
        Case{"VerticalTabInAString", "[1,\"ab\v\"]", 1, 7,
             R"( in element "[1]": lexical error: invalid character inside string.)"}),
    k_name);

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
    testing::Values(Case{"ClosingBraceAlone", "}", 1, 1, k_unallowed},
                    Case{"ClosingBracketAlone", " ]", 1, 2, k_unallowed},
                    Case{"CommaAlone", ",", 1, 1, k_unallowed},
                    Case{"ColonAlone", ":", 1, 1, k_unallowed},
                    Case{"CommaFirstInAnArray", "[,1]", 1, 2, k_unallowedFirst},
                    Case{"TwoCommasInAnArray", "[1,,2]", 1, 4, k_unallowedSecond},
                    Case{"CommaLastInAnArray", "[1, ]", 1, 5, k_unallowedSecond},
                    Case{"ColonInAnArray", "[\"a\": 1]", 1, 5, k_expectItemEnd},
                    Case{"NoCommaInAnArray", "[true 12345]", 1, 7, k_expectItemEnd},
                    Case{"LeadingZero", "[012]", 1, 3, k_expectItemEnd},
                    Case{"TwoSigns", "[1-22]", 1, 3, k_expectItemEnd},
                    Case{"ArrayClosedAsAnObject", "[1}", 1, 3, k_expectItemEnd},
                    Case{"EmptyArrayClosedAsAnObject", "[}", 1, 2, k_unallowedFirst},
                    Case{"ObjectClosedAsAnArray", "{\"a\": 1]", 1, 8, k_expectMemberEnd},
                    Case{"EmptyObjectClosedAsAnArray", "{]", 1, 2, k_expectKey},
                    Case{"CommaFirstInAnObject", "{,\"a\": 1}", 1, 2, k_expectKey},
                    Case{"CommaLastInAnObject", "{\"a\": 1, }", 1, 10, k_expectKey},
                    Case{"NumberForAKey", "{\"a\": 1, 234: 5}", 1, 10, k_expectKey},
                    Case{"LiteralForAKey", "{ null: 5}", 1, 3, k_expectKey},
                    Case{"ArrayForAKey", "{[1]: 5}", 1, 2, k_expectKey},
                    Case{"NoCommaInAnObject", "{\"a\": 1\n\"b\": 2}", 2, 1, k_expectMemberEnd},
                    Case{"KeyWithoutAValue", "{\"a\": }", 1, 7, k_unallowedMember},
                    Case{"KeyWithoutAColon", "{\"a\" \"bc\"}", 1, 6, k_expectColon},
                    Case{"KeyAlone", "{\"a\"}", 1, 5, k_expectColon},
                    Case{"CommaForAColon", "{\"a\" , 1}", 1, 6, k_expectColon},
                    Case{"TwoColons", "{\"a\":: 1}", 1, 6, k_unallowedMember},
                    Case{"NumberBehindAComment", "{\"a\": 1/*]*/234}", 1, 13, k_expectMemberEnd},
                    Case{"LiteralBehindALine", "{\"a\": 1 //\ntrue}", 2, 1, k_expectMemberEnd},
                    Case{"ColonBehindAComment", "{\"a\": 1 /**/: 2}", 1, 13, k_expectMemberEnd},
                    Case{"KeyBehindAComment", "{\"a\": 1 /**/\"b\": 2}", 1, 13, k_expectMemberEnd},
                    Case{"StarsBetween", "[1 /***/ 2]", 1, 10, k_expectItemEnd},
                    Case{"CommentsBetween", "[1 /*]*/ //,\n /* */ 2]", 2, 8, k_expectItemEnd}),
    k_name);

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
        Case{"LiteralForAKey", "{name\":1}", 1, 2, k_noKey},
        Case{"NumberForAKey", "{\"a\":1, -}", 1, 9, k_noKey},
        Case{"MinusBehindAnItem", "[1 -]", 1, 4, k_afterItem},
        Case{"NumberBehindAnItem", "[1 2", 1, 4, k_afterItem},
        Case{"StringBehindAnItem", "[-0\".5e3],\n", 1, 4, k_afterItem},
        Case{"EscapeBehindAnItem", "[1 \"\\x\"]", 1, 4, k_afterItem},
        Case{"HalfAPairBehindAnItem", R"([1 "\ud800"])", 1, 4, k_afterItem},
        Case{"OddBlankBehindAnItem", "[1 2\v]", 1, 4, k_afterItem},
        Case{"StringBehindAMember", "{\"a\":1 \"\n", 1, 8, k_afterMember},
        Case{
            "LiteralForAColon", "{\"a\" nul}", 1, 6,
            R"( in element "a": parse error: object key and value must be separated by a colon (':'))"},
        Case{"HalfAPairBehindTheDocument", R"(1 "\ud800")", 1, 3,
             R"( in element "": text behind the document)"}),
    k_name);

INSTANTIATE_TEST_SUITE_P(Behind, ReadDocumentErrors,
                         testing::Values(Case{"AnotherDocument", "1 2", 1, 3, k_behind},
                                         Case{"ClosingBracket", "[]]", 1, 3, k_behind},
                                         Case{"Comma", "{},", 1, 3, k_behind},
                                         Case{"NoToken", "[]\n 'x'", 2, 2, k_behind},
                                         Case{"ZeroByte", "[]\0"sv, 1, 3, k_behind},
                                         Case{"LeadingZero", "00", 1, 2, k_behind},
                                         Case{"LiteralGoesOn", "truetrue", 1, 5, k_behind},
                                         Case{"BehindAComment", "1/*2*/3", 1, 7, k_behind},
                                         Case{"StringThatIsMalformed", "1 \"\\x\"", 1, 3, k_behind},
                                         Case{"NumberThatIsMalformed", "1 -x", 1, 3, k_behind},
                                         Case{"ByteOrderMark", "1\xEF\xBB\xBF", 1, 2, k_behind}),
                         k_name);

constexpr const char* k_invalid = R"(": lexical error: invalid char in json text.)";

TEST(ReadDocumentErrors, NameTheElementByItsPath) {
    const auto refusalOf = [](const std::string& path) {
        return " in element \"" + path + k_invalid;
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
