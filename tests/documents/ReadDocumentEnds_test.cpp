#include <zo/Tessera/readDocument.h>

#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "documents/reading.h"
#include "support/rowName.h"

using namespace zo::Tessera;

// Texts that end too early, or just in time.

namespace {

struct Ending {
    const char* name;
    std::string_view text;
    const char* outcome;
};

class ReadDocumentEnds : public testing::TestWithParam<Ending> {};

TEST_P(ReadDocumentEnds, AreTold) {
    EXPECT_EQ(fromBoth(GetParam().text), GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(
    Refused, ReadDocumentEnds,
    testing::Values(
        Ending{"Empty", "",
               R"(Parse error at 1,1 in element "": unexpected end of text before a document)"},
        Ending{"Blanks", " \n\t ",
               R"(Parse error at 2,3 in element "": unexpected end of text before a document)"},
        Ending{"CommentsAlone", "/* a */ // b",
               R"(Parse error at 1,13 in element "": unexpected end of text before a document)"},
        Ending{"ByteOrderMarkAlone", "\xEF\xBB\xBF",
               R"(Parse error at 1,4 in element "": unexpected end of text before a document)"},
        Ending{"HalfAByteOrderMark", "\xEF\xBB",
               R"(Parse error at 1,1 in element "": lexical error: invalid char in json text.)"},
        Ending{"InAnArray", "[1", R"(Parse error at 1,3 in element "": unexpected end of text)"},
        Ending{"BehindAComma", "[1,",
               R"(Parse error at 1,4 in element "[1]": unexpected end of text)"},
        Ending{"InAnObject", "{\"a\": [{",
               R"(Parse error at 1,9 in element "a[0]": unexpected end of text)"},
        Ending{"BehindAKey", "{\"a\"",
               R"(Parse error at 1,5 in element "a": unexpected end of text)"},
        Ending{"BehindAColon", "{\"a\": {\"b\":\n",
               R"(Parse error at 2,1 in element "a.b": unexpected end of text)"},
        Ending{"InAString", "[\"a",
               R"(Parse error at 1,4 in element "[0]": unexpected end of text within a string)"},
        Ending{"InAStringAlone", "\"",
               R"(Parse error at 1,2 in element "": unexpected end of text within a string)"},
        Ending{"InAnEscape", "[\"a\\",
               R"(Parse error at 1,5 in element "[0]": unexpected end of text within a string)"},
        Ending{"BehindAnEscapedQuote", "[\"a\\\"",
               R"(Parse error at 1,6 in element "[0]": unexpected end of text within a string)"},
        Ending{"AmongHexDigits", "[\"\\u12",
               R"(Parse error at 1,7 in element "[0]": unexpected end of text within a string)"},
        Ending{"InAKey", "{\"a\": 1, \"b",
               R"(Parse error at 1,12 in element "": unexpected end of text within a string)"},
        Ending{"InACharacter", "\"\xE2\x82",
               R"(Parse error at 1,4 in element "": unexpected end of text within a string)"},
        Ending{"InALiteral", "[tru",
               R"(Parse error at 1,5 in element "[0]": unexpected end of text within a token)"},
        Ending{"InALiteralAlone", "fals",
               R"(Parse error at 1,5 in element "": unexpected end of text within a token)"},
        Ending{"BehindAMinus", "-",
               R"(Parse error at 1,2 in element "": unexpected end of text within a token)"},
        Ending{"BehindAPoint", "0.",
               R"(Parse error at 1,3 in element "": unexpected end of text within a token)"},
        Ending{"BehindTheLetterOfAnExponent", "[1e",
               R"(Parse error at 1,4 in element "[0]": unexpected end of text within a token)"},
        Ending{"BehindTheSignOfAnExponent", "[1e-",
               R"(Parse error at 1,5 in element "[0]": unexpected end of text within a token)"},
        Ending{"BehindASlash", "[1, /",
               R"(Parse error at 1,6 in element "[1]": unexpected end of text within a token)"},
        Ending{"InAComment", "[1 /*",
               R"(Parse error at 1,6 in element "": unexpected end of text within a comment)"},
        Ending{"BehindTheStarOfAComment", "[1 /* *",
               R"(Parse error at 1,8 in element "": unexpected end of text within a comment)"},
        Ending{"InACommentBeforeTheDocument", "/* [1] ",
               R"(Parse error at 1,8 in element "": unexpected end of text within a comment)"},
        Ending{"InACommentBehindTheDocument", "[1] /*/",
               R"(Parse error at 1,8 in element "": unexpected end of text within a comment)"},
        Ending{"InACommentBehindANumber", "1/**",
               R"(Parse error at 1,5 in element "": unexpected end of text within a comment)"},
        Ending{"InALineCommentInAnArray", "[1, // a",
               R"(Parse error at 1,9 in element "[1]": unexpected end of text)"},
        Ending{"ASlashBehindTheDocument", "[1] /",
               R"(Parse error at 1,5 in element "": text behind the document)"},
        Ending{"AStringBehindTheDocument", "[1] \"a",
               R"(Parse error at 1,5 in element "": text behind the document)"},
        Ending{"ALiteralBehindTheDocument", "[1]\ntru",
               R"(Parse error at 2,1 in element "": text behind the document)"},
        Ending{"AMinusBehindTheDocument", "1 -",
               R"(Parse error at 1,3 in element "": text behind the document)"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Accepted, ReadDocumentEnds,
    testing::Values(
        Ending{"InADigit", "1", k_one}, Ending{"BehindABlank", "1 ", k_one},
        Ending{"BehindALineEnd", "1\r\n", k_one}, Ending{"BehindAComment", "1/**/", k_one},
        Ending{"InALineComment", "1 // a", k_one}, Ending{"InAnEmptyLineComment", "1//", k_one},
        Ending{"InACommentsEndInALineComment", "1 // */", k_one},
        Ending{"InACommentsBeginningInALineComment", "1 // /*", k_one},
        Ending{"InAFraction", "-0.5", "etNumber -0.5 key=\"\" index=- parent=none\n"},
        Ending{"InAnExponent", "1e5", "etNumber 1e5 key=\"\" index=- parent=none\n"},
        Ending{"WithALiteral", "true", "etBoolean true key=\"\" index=- parent=none\n"},
        Ending{"WithAString", "\"a\\\\\"", "etString \"a\\\" key=\"\" index=- parent=none\n"},
        Ending{"WithABracket", "[]", "etArray key=\"\" index=- parent=none\n"}),
    k_rowName);

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
