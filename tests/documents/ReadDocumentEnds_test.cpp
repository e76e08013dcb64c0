#include <zo/Tessera/readDocument.h>

#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "documents/reading.h"

using namespace zo::Tessera;

// Texts that end too early, or just in time.

namespace {

struct Case {
    const char* name;
    std::string_view text;
    const char* outcome;
};

class ReadDocumentEnds : public testing::TestWithParam<Case> {};

TEST_P(ReadDocumentEnds, AreTold) {
    EXPECT_EQ(fromBoth(GetParam().text), GetParam().outcome);
}

const auto k_name = [](const auto& row) { return std::string(row.param.name); };

INSTANTIATE_TEST_SUITE_P(
    Refused, ReadDocumentEnds,
    testing::Values(
        Case{"Empty", "",
             R"(Parse error at 1,1 in element "": unexpected end of text before a document)"},
        Case{"Blanks", " \n\t ",
             R"(Parse error at 2,3 in element "": unexpected end of text before a document)"},
        Case{"CommentsAlone", "/* a */ // b",
             R"(Parse error at 1,13 in element "": unexpected end of text before a document)"},
        Case{"ByteOrderMarkAlone", "\xEF\xBB\xBF",
             R"(Parse error at 1,4 in element "": unexpected end of text before a document)"},
        Case{"HalfAByteOrderMark", "\xEF\xBB",
             R"(Parse error at 1,1 in element "": lexical error: invalid char in json text.)"},
        Case{"InAnArray", "[1", R"(Parse error at 1,3 in element "": unexpected end of text)"},
        Case{"BehindAComma", "[1,",
             R"(Parse error at 1,4 in element "[1]": unexpected end of text)"},
        Case{"InAnObject", "{\"a\": [{",
             R"(Parse error at 1,9 in element "a[0]": unexpected end of text)"},
        Case{"BehindAKey", "{\"a\"",
             R"(Parse error at 1,5 in element "a": unexpected end of text)"},
        Case{"BehindAColon", "{\"a\": {\"b\":\n",
             R"(Parse error at 2,1 in element "a.b": unexpected end of text)"},
        Case{"InAString", "[\"a",
             R"(Parse error at 1,4 in element "[0]": unexpected end of text within a string)"},
        Case{"InAStringAlone", "\"",
             R"(Parse error at 1,2 in element "": unexpected end of text within a string)"},
        Case{"InAnEscape", "[\"a\\",
             R"(Parse error at 1,5 in element "[0]": unexpected end of text within a string)"},
        Case{"BehindAnEscapedQuote", "[\"a\\\"",
             R"(Parse error at 1,6 in element "[0]": unexpected end of text within a string)"},
        Case{"AmongHexDigits", "[\"\\u12",
             R"(Parse error at 1,7 in element "[0]": unexpected end of text within a string)"},
        Case{"InAKey", "{\"a\": 1, \"b",
             R"(Parse error at 1,12 in element "": unexpected end of text within a string)"},
        Case{"InACharacter", "\"\xE2\x82",
             R"(Parse error at 1,4 in element "": unexpected end of text within a string)"},
        Case{"InALiteral", "[tru",
             R"(Parse error at 1,5 in element "[0]": unexpected end of text within a token)"},
        Case{"InALiteralAlone", "fals",
             R"(Parse error at 1,5 in element "": unexpected end of text within a token)"},
        Case{"BehindAMinus", "-",
             R"(Parse error at 1,2 in element "": unexpected end of text within a token)"},
        Case{"BehindAPoint", "0.",
             R"(Parse error at 1,3 in element "": unexpected end of text within a token)"},
        Case{"BehindTheLetterOfAnExponent", "[1e",
             R"(Parse error at 1,4 in element "[0]": unexpected end of text within a token)"},
        Case{"BehindTheSignOfAnExponent", "[1e-",
             R"(Parse error at 1,5 in element "[0]": unexpected end of text within a token)"},
        Case{"BehindASlash", "[1, /",
             R"(Parse error at 1,6 in element "[1]": unexpected end of text within a token)"},
        Case{"InAComment", "[1 /*",
             R"(Parse error at 1,6 in element "": unexpected end of text within a comment)"},
        Case{"BehindTheStarOfAComment", "[1 /* *",
             R"(Parse error at 1,8 in element "": unexpected end of text within a comment)"},
        Case{"InACommentBeforeTheDocument", "/* [1] ",
             R"(Parse error at 1,8 in element "": unexpected end of text within a comment)"},
        Case{"InACommentBehindTheDocument", "[1] /*/",
             R"(Parse error at 1,8 in element "": unexpected end of text within a comment)"},
        Case{"InACommentBehindANumber", "1/**",
             R"(Parse error at 1,5 in element "": unexpected end of text within a comment)"},
        Case{"InALineCommentInAnArray", "[1, // a",
             R"(Parse error at 1,9 in element "[1]": unexpected end of text)"},
        Case{"ASlashBehindTheDocument", "[1] /",
             R"(Parse error at 1,5 in element "": text behind the document)"},
        Case{"AStringBehindTheDocument", "[1] \"a",
             R"(Parse error at 1,5 in element "": text behind the document)"},
        Case{"ALiteralBehindTheDocument", "[1]\ntru",
             R"(Parse error at 2,1 in element "": text behind the document)"},
        Case{"AMinusBehindTheDocument", "1 -",
             R"(Parse error at 1,3 in element "": text behind the document)"}),
    k_name);

constexpr const char* k_one = "etNumber 1 key=\"\" index=- parent=none\n";

INSTANTIATE_TEST_SUITE_P(
    Accepted, ReadDocumentEnds,
    testing::Values(Case{"InADigit", "1", k_one}, Case{"BehindABlank", "1 ", k_one},
                    Case{"BehindALineEnd", "1\r\n", k_one}, Case{"BehindAComment", "1/**/", k_one},
                    Case{"InALineComment", "1 // a", k_one},
                    Case{"InAnEmptyLineComment", "1//", k_one},
                    Case{"InACommentsEndInALineComment", "1 // */", k_one},
                    Case{"InACommentsBeginningInALineComment", "1 // /*", k_one},
                    Case{"InAFraction", "-0.5", "etNumber -0.5 key=\"\" index=- parent=none\n"},
                    Case{"InAnExponent", "1e5", "etNumber 1e5 key=\"\" index=- parent=none\n"},
                    Case{"WithALiteral", "true", "etBoolean true key=\"\" index=- parent=none\n"},
                    Case{"WithAString", "\"a\\\\\"",
                         "etString \"a\\\" key=\"\" index=- parent=none\n"},
                    Case{"WithABracket", "[]", "etArray key=\"\" index=- parent=none\n"}),
    k_name);

/// Reads each beginning of `text` that ends before `documentEnd`, and then each longer one.
void readEachBeginning(std::string_view text, size_t documentEnd) {
    for (size_t length = 0; length < documentEnd; ++length) {
        const std::string result = fromBoth(text.substr(0, length));
        EXPECT_THAT(result, testing::StartsWith("Parse error at 1," + std::to_string(length + 1) +
                                                " in element \""))
            << text.substr(0, length);
        EXPECT_THAT(result, testing::HasSubstr("\": unexpected end of text"));
    }
    const std::string whole = fromBoth(text);
    for (size_t length = documentEnd; length < text.size(); ++length) {
        EXPECT_EQ(fromBoth(text.substr(0, length)), whole) << text.substr(0, length);
    }
}

constexpr std::string_view k_document =
    R"( {"a":[1,-2.50e+3,true,false,null,"b\n\u00e9\"c",[],{}],"d\\":{"e":{"f":[[0]]}},"":""})";

TEST(EachBeginning, OfADocumentIsRefusedWhereItEnds) {
    readEachBeginning(k_document, k_document.size());
}

TEST(EachBeginning, OfADocumentWithBlanksBehindItIsTheDocumentOnceThatEnds) {
    readEachBeginning(std::string(k_document) + " \t  ", k_document.size());
}

TEST(EachBeginning, OfADocumentWithComments) {
    const std::string_view text = "/*a*/[/**/1/*b*/,/***/\"/*\"/* /* */]";
    readEachBeginning(text, text.size());
}

TEST(EachBeginning, OfALiteralOrAStringIsRefusedWhereItEnds) {
    for (const std::string_view text : {"true", "false", "null", "\"a\\u00e9\\\\\""}) {
        readEachBeginning(text, text.size());
    }
}

// A number is one again and again, and only the last character tells.
TEST(EachBeginning, OfANumberIsItselfANumberOrRefused) {
    const std::string text = "-10.25E-07";
    std::string read;
    for (size_t length = 1; length <= text.size(); ++length) {
        const std::string part = text.substr(0, length);
        const std::string result = fromBoth(part);
        const bool isNumber = result == "etNumber " + part + " key=\"\" index=- parent=none\n";
        read += isNumber ? 'y' : 'n';
        EXPECT_EQ(isNumber, !testing::Value(result, testing::StartsWith("Parse error")));
    }
    EXPECT_EQ(read, "nyynyynnyy");
}

}  // namespace
