#include <zo/Tessera/readDocument.h>

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <zo/Tessera/Element.h>

#include "documents/reading.h"
#include "support/rowName.h"

using namespace zo::Tessera;

// Escaped halves of surrogate pairs. The tokeniser makes other texts of those that stand alone.

namespace {

struct Half {
    const char* name;
    std::string_view text;
    int column;
    const char* element;
};

class EscapedHalf : public testing::TestWithParam<Half> {};

TEST_P(EscapedHalf, IsRefusedWithoutTheOther) {
    const Half& row = GetParam();
    const std::string refusal = "Parse error at 1," + std::to_string(row.column) +
                                " in element \"" + row.element +
                                "\": half of a surrogate pair stands alone";
    ReadOptions lenient;
    lenient.refuseOddBlanks = false;
    EXPECT_EQ(fromBoth(row.text), refusal);
    EXPECT_EQ(fromBoth(row.text, lenient), refusal);
}

INSTANTIATE_TEST_SUITE_P(
    Each, EscapedHalf,
    testing::Values(Half{"FirstBeforeTheEnd", R"("\ud800")", 2, ""},
                    Half{"FirstOfTheLast", R"(["\uDBFF"])", 3, "[0]"},
                    Half{"FirstBeforeAnotherCharacter", R"(["a\ud83dx"])", 4, "[0]"},
                    Half{"FirstBeforeAnotherEscape", R"(["\ud83d\n"])", 3, "[0]"},
                    Half{"FirstBeforeAnotherCodePoint", R"(["\ud800\u0041"])", 3, "[0]"},
                    Half{"FirstBeforeAPair", R"(["\ud800\ud83d\ude00"])", 3, "[0]"},
                    Half{"SecondAlone", R"({"a":"\udc00"})", 7, "a"},
                    Half{"SecondOfTheLast", R"({"a":"\uDfFf"})", 7, "a"},
                    Half{"SecondBehindAPair", R"(["\ud83d\ude00\ude00"])", 15, "[0]"},
                    Half{"BehindABackslash", R"(["\\\ud800"])", 5, "[0]"},
                    Half{"InAKey", R"({"b":1,"\ud800":2})", 9, ""},
                    Half{"BehindAComment", R"(/*\ud800*/"\ud800")", 12, ""}),
    k_rowName);

TEST(EscapedHalves, MakeOneCharacterInPairs) {
    const Dom document = readDocument(R"(["\ud800\udc00", "\uD83D\uDE00", "x\udbff\udfffy"])");
    EXPECT_EQ(document.root()->at(0).as<std::string>(), "\xF0\x90\x80\x80");
    EXPECT_EQ(document.root()->at(1).as<std::string>(), "\xF0\x9F\x98\x80");
    EXPECT_EQ(document.root()->at(2).as<std::string>(), "x\xF4\x8F\xBF\xBFy");
}

TEST(EscapedHalves, AreNoneBehindAnEscapedBackslash) {
    const Dom document = readDocument(R"(["\\ud800", "\\\\udc00", "\\\\\\ud83d"])");
    EXPECT_EQ(document.root()->at(0).as<std::string>(), R"(\ud800)");
    EXPECT_EQ(document.root()->at(1).as<std::string>(), R"(\\udc00)");
    EXPECT_EQ(document.root()->at(2).as<std::string>(), R"(\\\ud83d)");
}

TEST(EscapedHalves, AreNoneBesideTheSurrogates) {
    EXPECT_EQ(readDocument(R"("\ud7ff\ue000")").root()->as<std::string>(),
              "\xED\x9F\xBF\xEE\x80\x80");
}

TEST(EscapedHalves, MeanNothingInComments) {
    const std::string one = "etNumber 1 key=\"\" index=- parent=none\n";
    EXPECT_EQ(fromBoth("/* \\ud800 \\udc00 \\ */ 1"), one);
    EXPECT_EQ(fromBoth("// \\ud800\n1 // \\udc00 \\"), one);
    EXPECT_EQ(fromBoth("/*\\*/1"), one);
}

TEST(EscapedHalves, LeaveOtherErrorsToThemselves) {
    EXPECT_EQ(fromBoth(R"([\ud800])"),
              "Parse error at 1,2 in element \"[0]\": lexical error: invalid char in json text.");
    EXPECT_EQ(fromBoth(R"(["\ud8g0"])"),
              "Parse error at 1,7 in element \"[0]\": lexical error: invalid (non-hex) character "
              "occurs after '\\u' inside string.");
    EXPECT_EQ(fromBoth(R"(["\ud800)"),
              "Parse error at 1,9 in element \"[0]\": unexpected end of text within a string");
    EXPECT_EQ(fromBoth(R"(["\ud83d\ude)"),
              "Parse error at 1,13 in element \"[0]\": unexpected end of text within a string");
}

}  // namespace
