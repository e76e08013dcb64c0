#include <zo/Tessera/readDocument.h>

#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "documents/reading.h"

using namespace zo::Tessera;

// Each option alone.

namespace {

constexpr const char* k_ones =
    "etArray key=\"\" index=- parent=none\n  etNumber 1 key=\"[0]\" index=0 parent=right\n";

ReadOptions withDepth(size_t greatestDepth) {
    ReadOptions options;
    options.greatestDepth = greatestDepth;
    return options;
}

TEST(GreatestDepth, IsUnlimitedByDefault) {
    EXPECT_EQ(ReadOptions().greatestDepth, ReadOptions::k_anyDepth);
    const std::string deep = std::string(2000, '[') + std::string(2000, ']');
    EXPECT_THAT(fromBoth(deep), testing::StartsWith("etArray"));
}

TEST(GreatestDepth, OfZeroAllowsScalarsAlone) {
    EXPECT_EQ(fromBoth("1", withDepth(0)), k_one);
    EXPECT_EQ(fromBoth("\"[{\"", withDepth(0)), "etString \"[{\" key=\"\" index=- parent=none\n");
    EXPECT_EQ(fromBoth("/*[*/ []", withDepth(0)),
              "Parse error at 1,7 in element \"\": nested deeper than 0 levels");
    EXPECT_EQ(fromBoth(" {}", withDepth(0)),
              "Parse error at 1,2 in element \"\": nested deeper than 0 levels");
}

TEST(GreatestDepth, CountsTheContainersThatAreOpenAtOnce) {
    EXPECT_EQ(fromBoth("[1]", withDepth(1)), k_ones);
    EXPECT_EQ(fromBoth(R"([{"a": [0]}, 1, {"b": {"c": 2}}])", withDepth(2)),
              "Parse error at 1,8 in element \"[0].a\": nested deeper than 2 levels");
    EXPECT_EQ(fromBoth(R"([{"a": [0]}, 1, {"b": {"c": 2}}])", withDepth(3)),
              fromBoth(R"([{"a": [0]}, 1, {"b": {"c": 2}}])"));
    EXPECT_EQ(fromBoth("[[],[],[[]],\n[1, {}, [[]]]]", withDepth(3)),
              "Parse error at 2,10 in element \"[3][2][0]\": nested deeper than 3 levels");
    EXPECT_EQ(fromBoth("{\"a\": {\"b\": []}}", withDepth(1)),
              "Parse error at 1,7 in element \"a\": nested deeper than 1 levels");
}

ReadOptions refusingDuplicateKeys() {
    ReadOptions options;
    options.refuseDuplicateKeys = true;
    return options;
}

TEST(DuplicateKeys, AreRefusedWhereTheyBegin) {
    EXPECT_EQ(fromBoth("{\"a\": 1,\n  \"a\": 2}", refusingDuplicateKeys()),
              "Parse error at 2,3 in element \"a\": the object has this key already");
    EXPECT_EQ(fromBoth(R"([{"x.y": [{"": 1, "b": 2, "": 3}]}])", refusingDuplicateKeys()),
              "Parse error at 1,27 in element \"[0].x\\.y[0].\": the object has this key already");
}

TEST(DuplicateKeys, AreToldByWhatTheyMean) {
    EXPECT_EQ(fromBoth(R"({"a": 1, "\u0061": 2})", refusingDuplicateKeys()),
              "Parse error at 1,10 in element \"a\": the object has this key already");
    EXPECT_THAT(fromBoth(R"({"a": 1, "A": 2, "a ": 3, "a\u0000": 4})", refusingDuplicateKeys()),
                testing::StartsWith("etObject"));
}

TEST(DuplicateKeys, AreNoneInDifferentObjects) {
    const std::string_view text = R"({"a": {"a": [{"a": 1}, {"a": 2}]}, "b": {"a": 3}})";
    EXPECT_EQ(fromBoth(text, refusingDuplicateKeys()), fromBoth(text));
    EXPECT_THAT(fromBoth(text), testing::StartsWith("etObject"));
}

ReadOptions refusingComments() {
    ReadOptions options;
    options.refuseComments = true;
    return options;
}

TEST(Comments, AreRefusedWhereTheyBegin) {
    constexpr const char* reason =
        ": lexical error: probable comment found in input text, comments "
        "are not enabled.";
    EXPECT_EQ(fromBoth("// a\n1", refusingComments()),
              std::string("Parse error at 1,1 in element \"\"") + reason);
    EXPECT_EQ(fromBoth("[1, /* a */ 1]", refusingComments()),
              std::string("Parse error at 1,5 in element \"[1]\"") + reason);
    EXPECT_EQ(fromBoth("[1, /", refusingComments()),
              std::string("Parse error at 1,5 in element \"[1]\"") + reason);
}

TEST(Comments, AreRefusedBehindTheDocument) {
    for (const std::string_view comment : {"// a", "// a\n", "/**/", "/*", "/"}) {
        EXPECT_THAT(fromBoth("1 " + std::string(comment), refusingComments()),
                    testing::StartsWith("Parse error at 1,3 in element \"\": "));
    }
}

TEST(Comments, AreNoneInStrings) {
    EXPECT_EQ(fromBoth(R"(["// a", "/* b */"])", refusingComments()),
              fromBoth(R"(["// a", "/* b */"])"));
    EXPECT_EQ(fromBoth("1", refusingComments()), k_one);
}

ReadOptions checkingUtf8() {
    ReadOptions options;
    options.checkUtf8 = true;
    return options;
}

TEST(Utf8, IsRefusedWhereTheFirstCharacterIsNone) {
    for (const std::string_view bytes :
         {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3(", "\xE0\x9F\xBF", "\xE2\x82",
          "\xE2(\xA1", "\xED\xA0\x80", "\xED\xBF\xBF", "\xEF\xBF", "\xF0\x8F\xBF\xBF",
          "\xF0\x9F\x98", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xF8\x88\x80\x80\x80", "\xFE",
          "\xFF"}) {
        const std::string text = "[\"\xC3\xA9\",\n\"a" + std::string(bytes) + "\"]";
        EXPECT_EQ(fromBoth(text, checkingUtf8()),
                  "Parse error at 2,3 in element \"[1]\": the text is not UTF-8");
        EXPECT_THAT(fromBoth(text), testing::StartsWith("etArray"));
    }
}

TEST(Utf8, IsCheckedEverywhere) {
    EXPECT_EQ(fromBoth("{\"a\xFF\": 1}", checkingUtf8()),
              "Parse error at 1,4 in element \"\": the text is not UTF-8");
    EXPECT_EQ(fromBoth("[1, /* \xFF */ 2]", checkingUtf8()),
              "Parse error at 1,8 in element \"[1]\": the text is not UTF-8");
    EXPECT_EQ(fromBoth("1 // \xFF", checkingUtf8()),
              "Parse error at 1,6 in element \"\": the text is not UTF-8");
    EXPECT_EQ(fromBoth("\xFF", checkingUtf8()),
              "Parse error at 1,1 in element \"\": the text is not UTF-8");
    EXPECT_EQ(fromBoth("\"\xE2\x82", checkingUtf8()),
              "Parse error at 1,2 in element \"\": the text is not UTF-8");
    // An error before it comes first.
    EXPECT_THAT(fromBoth("[1 2 \xFF]", checkingUtf8()), testing::StartsWith("Parse error at 1,4 "));
}

TEST(Utf8, TakesEachLengthAtItsBounds) {
    const std::string_view text =
        "\"\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"
        "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF\"";
    EXPECT_EQ(fromBoth(text, checkingUtf8()), fromBoth(text));
    EXPECT_THAT(fromBoth(text), testing::StartsWith("etString"));
}

TEST(ByteOrderMark, IsLeftOutOnceAtTheBeginning) {
    constexpr const char* reason = R"( in element "": lexical error: invalid char in json text.)";
    const std::string mark = "\xEF\xBB\xBF";
    EXPECT_EQ(fromBoth(mark + "1"), k_one);
    EXPECT_EQ(fromBoth(mark + mark + "[]"), std::string("Parse error at 1,4") + reason);
    EXPECT_EQ(fromBoth(" " + mark + "[]"), std::string("Parse error at 1,2") + reason);
    EXPECT_EQ(fromBoth("\xFE\xFF[]"), std::string("Parse error at 1,1") + reason);
}

TEST(ByteOrderMark, IsRefusedOnRequest) {
    ReadOptions options;
    options.skipByteOrderMark = false;
    EXPECT_EQ(fromBoth("\xEF\xBB\xBF[]", options),
              R"(Parse error at 1,1 in element "": lexical error: invalid char in json text.)");
    EXPECT_EQ(fromBoth("[1]", options), k_ones);
}

TEST(OddBlanks, AreBlanksOnRequest) {
    ReadOptions options;
    options.refuseOddBlanks = false;
    EXPECT_EQ(fromBoth("\v[\f1\v\f]\f", options), k_ones);
    EXPECT_EQ(fromBoth("[1\v]", options), k_ones);
    EXPECT_EQ(
        fromBoth("[\"\v\"]", options),
        R"(Parse error at 1,3 in element "[0]": lexical error: invalid character inside string.)");
    EXPECT_EQ(
        fromBoth("[1 \f\v2]", options),
        R"(Parse error at 1,6 in element "": parse error: after array element, I expect ',' or ']')");
}

TEST(OddBlanks, AreRefusedBetweenAnyTokens) {
    for (const std::string_view odd : {"\v", "\f"}) {
        const std::string blank(odd);
        const auto refusedAt = [](int column, const std::string& path) {
            return "Parse error at 1," + std::to_string(column) + " in element \"" + path +
                   "\": a vertical tab or a form feed is no blank";
        };
        EXPECT_EQ(fromBoth(blank + "1"), refusedAt(1, ""));
        EXPECT_EQ(fromBoth("[1," + blank + "2]"), refusedAt(4, "[1]"));
        EXPECT_EQ(fromBoth("{\"a\"" + blank + ":1}"), refusedAt(5, "a"));
        EXPECT_EQ(fromBoth("{\"a\":" + blank + "1}"), refusedAt(6, "a"));
        EXPECT_EQ(fromBoth("[1]" + blank), refusedAt(4, ""));
        EXPECT_EQ(fromBoth("[/*" + blank + "*/" + blank + "]"), refusedAt(7, "[0]"));
        EXPECT_EQ(fromBoth("[\"\\\"\"" + blank + "]"), refusedAt(6, ""));
    }
}

TEST(OddBlanks, MayStandInComments) {
    EXPECT_EQ(fromBoth("/*\v*/[/*\f\f*//**/1//\v//\f\n]//\v"), k_ones);
    EXPECT_EQ(fromBoth("/*\v*/[1 /*\v*/ 2]"),
              "Parse error at 1,15 in element \"\": parse error: "
              "after array element, I expect ',' or ']'");
}

}  // namespace
