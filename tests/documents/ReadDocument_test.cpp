#include <zo/Tessera/readDocument.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/TBasicElement.h>

#include "documents/reading.h"

using namespace zo::Tessera;
using namespace std::string_literals;

// What is read, and what is built of it.

namespace {

TEST(ReadDocument, BuildsEveryKindInItsPlace) {
    EXPECT_EQ(fromBoth(R"({"none": null, "yes": true, "no": false, "price": 1.50, "text": "a b",
        "list": [null, [], {"inner": [{}]}], "empty": {}})"),
              R"(etObject key="" index=- parent=none
  etNull key="none" index=- parent=right
  etBoolean true key="yes" index=- parent=right
  etBoolean false key="no" index=- parent=right
  etNumber 1.50 key="price" index=- parent=right
  etString "a b" key="text" index=- parent=right
  etArray key="list" index=- parent=right
    etNull key="[0]" index=0 parent=right
    etArray key="[1]" index=1 parent=right
    etObject key="[2]" index=2 parent=right
      etArray key="inner" index=- parent=right
        etObject key="[0]" index=0 parent=right
  etObject key="empty" index=- parent=right
)");
}

TEST(ReadDocument, TakesAnyKindForTheRoot) {
    EXPECT_EQ(fromBoth("null"), "etNull key=\"\" index=- parent=none\n");
    EXPECT_EQ(fromBoth("true"), "etBoolean true key=\"\" index=- parent=none\n");
    EXPECT_EQ(fromBoth("false"), "etBoolean false key=\"\" index=- parent=none\n");
    EXPECT_EQ(fromBoth("0"), "etNumber 0 key=\"\" index=- parent=none\n");
    EXPECT_EQ(fromBoth("\"\""), "etString \"\" key=\"\" index=- parent=none\n");
    EXPECT_EQ(fromBoth("[]"), "etArray key=\"\" index=- parent=none\n");
    EXPECT_EQ(fromBoth("{}"), "etObject key=\"\" index=- parent=none\n");
}

TEST(ReadDocument, GivesElementsThatKnowTheirPath) {
    const Dom document = readDocument(R"({"a": {"b.c": [0, {"d": true}]}})");
    EXPECT_EQ(document.root()->get("a.b\\.c[1].d").path(nullptr), "a.b\\.c[1].d");
}

// The document that is handed out holds the very elements that were built.
TEST(ReadDocument, LeavesTheElementsWhereTheyAreWhenItIsMoved) {
    Dom document = readDocument("[[1]]");
    const Element* const root = document.root();
    const Dom moved = std::move(document);
    EXPECT_EQ(moved.root(), root);
    EXPECT_EQ(moved.root()->at(0).parent(), root);
}

TEST(ReadDocument, KeepsTheTextOfNumbers) {
    for (const char* const text :
         {"0", "-0", "-0.0", "1.50", "1E+2", "1e400", "-1e-400", "100e-0002",
          "18446744073709551616", "0.1000000000000000055511151231257827021181583404541015625"}) {
        const Dom document = readDocument(text);
        EXPECT_EQ(document.root()->getNumberValue().value().toString(), text);
    }
}

TEST(ReadDocument, DecodesEveryEscape) {
    const Dom document = readDocument(
        R"("\" \\ \/ \b \f \n \r \t \u0041 \u00e9 \u20AC \uD83D\uDE00 \u0000 \uFFFF.")");
    EXPECT_EQ(document.root()->getStringValue().value(),
              "\" \\ / \b \f \n \r \t A \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80 \0 \xEF\xBF\xBF."s);
}

TEST(ReadDocument, DecodesEveryEscapeInAKey) {
    EXPECT_EQ(fromBoth(R"({"\u006B\n\"": 1})"),
              "etObject key=\"\" index=- parent=none\n"
              "  etNumber 1 key=\"k\n\"\" index=- parent=right\n");
}

TEST(ReadDocument, KeepsTheBytesOfStringsAndKeys) {
    const Dom document = readDocument("{\"\xFF\xC0\x80\": \"\xED\xA0\x80\x7F\"}");
    EXPECT_EQ(document.root()->at("\xFF\xC0\x80").getStringValue().value(), "\xED\xA0\x80\x7F");
}

TEST(ReadDocument, KeepsTheLastValueOfAKeyInThePlaceOfTheFirst) {
    EXPECT_EQ(fromBoth(R"({"a": {"x": [1]}, "b": 2, "a": 3, "c": 4, "a": [{"y": 5}], "b": null})"),
              R"(etObject key="" index=- parent=none
  etArray key="a" index=- parent=right
    etObject key="[0]" index=0 parent=right
      etNumber 5 key="y" index=- parent=right
  etNull key="b" index=- parent=right
  etNumber 4 key="c" index=- parent=right
)");
}

TEST(ReadDocument, TakesAnEmptyKeyAndKeysThatLookLikePaths) {
    EXPECT_EQ(fromBoth(R"({"": 1, "a.b": 2, "[0]": 3, "*": 4})"),
              R"(etObject key="" index=- parent=none
  etNumber 1 key="" index=- parent=right
  etNumber 2 key="a.b" index=- parent=right
  etNumber 3 key="[0]" index=- parent=right
  etNumber 4 key="*" index=- parent=right
)");
}

TEST(ReadDocument, ReadsTheMetaMemberAsAnyOther) {
    const Dom document = readDocument(R"({"meta": {"schema": {}}, "a": 1})");
    EXPECT_EQ(dump(*document.root()), R"(etObject key="" index=- parent=none
  etObject key="meta" index=- parent=right
    etObject key="schema" index=- parent=right
  etNumber 1 key="a" index=- parent=right
)");
    EXPECT_EQ(document.metaKey(), "meta");
    EXPECT_TRUE(document.includeMeta());
}

TEST(ReadDocument, SkipsBlanksAndCommentsBetweenAllTokens) {
    const std::string plain = fromBoth(R"({"a":[1,"/*b*/",true],"c":null})");
    for (const char* const blank : {" ", "\t", "\n", "\r", " \r\n\t", "/**/", "/***/",
                                    "/* * / // */", "// /* c\n", "//\n", "/*\r\n\"*/ //]\r\n"}) {
        std::string text;
        for (const char* const token : {"{", "\"a\"", ":", "[", "1", ",", "\"/*b*/\"", ",", "true",
                                        "]", ",", "\"c\"", ":", "null", "}"}) {
            text += blank;
            text += token;
        }
        EXPECT_EQ(fromBoth(text + blank), plain) << blank;
    }
}

// The tokeniser decides that, and counts LF alone.
TEST(ReadDocument, EndsALineCommentAtTheNextLineFeed) {
    const std::string one = "etNumber 1 key=\"\" index=- parent=none\n";
    EXPECT_EQ(fromBoth("//c\n1"), one);
    EXPECT_EQ(fromBoth("//c\r\n1"), one);
    EXPECT_EQ(fromBoth("//c\r2\n1"), one);
}

TEST(ReadDocument, ReadsNoFurtherThanTheText) {
    // Without anything behind it that a checker of memory would let pass.
    const std::string_view text = "[12]";
    for (const size_t length : {size_t{3}, size_t{4}}) {
        const auto exact = std::make_unique<char[]>(length);
        text.copy(exact.get(), length);
        EXPECT_EQ(fromMemory({exact.get(), length}),
                  length == 3 ? "Parse error at 1,4 in element \"\": unexpected end of text"
                              : "etArray key=\"\" index=- parent=none\n"
                                "  etNumber 12 key=\"[0]\" index=0 parent=right\n");
    }
    EXPECT_EQ(fromMemory(std::string_view("123").substr(0, 2)),
              "etNumber 12 key=\"\" index=- parent=none\n");
}

TEST(ReadDocument, DoesNotReferToTheTextAfterwards) {
    std::string text = R"({"key": ["a string that is too long to be kept inside", 1.50]})";
    const Dom document = readDocument(text);
    const std::string before = dump(*document.root());
    text.assign(text.size(), 'x');
    EXPECT_EQ(dump(*document.root()), before);
}

}  // namespace
