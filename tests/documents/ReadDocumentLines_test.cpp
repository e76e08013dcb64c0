#include <zo/Tessera/readDocument.h>

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "documents/reading.h"
#include "support/rowName.h"

using namespace zo::Tessera;

// Lines end with CR LF, LF or CR, and count once.

namespace {

struct PlaceInText {
    const char* name;
    std::string_view text;  // up to an "x" that no token begins with
    const char* place;
};

class ReadDocumentLines : public testing::TestWithParam<PlaceInText> {};

std::string placeOf(const std::string& refusal) {
    const std::string_view before = "Parse error at ";
    return refusal.substr(before.size(), refusal.find(' ', before.size()) - before.size());
}

TEST_P(ReadDocumentLines, AreCounted) {
    EXPECT_EQ(placeOf(fromBoth(std::string(GetParam().text) + "x")), GetParam().place);
}

// The same place, when it is where the text ends.
TEST_P(ReadDocumentLines, AreCountedToTheEndOfTheText) {
    EXPECT_EQ(placeOf(fromBoth(GetParam().text)), GetParam().place);
}

INSTANTIATE_TEST_SUITE_P(
    Places, ReadDocumentLines,
    testing::Values(
        PlaceInText{"First", "[", "1,2"}, PlaceInText{"LineFeed", "[\n", "2,1"},
        PlaceInText{"CarriageReturn", "[\r", "2,1"}, PlaceInText{"Both", "[\r\n", "2,1"},
        PlaceInText{"InTheWrongOrder", "[\n\r", "3,1"}, PlaceInText{"TwoLineFeeds", "[\n\n", "3,1"},
        PlaceInText{"TwoCarriageReturns", "[\r\r", "3,1"},
        PlaceInText{"BothTwice", "[\r\n\r\n", "3,1"},
        PlaceInText{"ReturnThenBoth", "[\r\r\n", "3,1"},
        PlaceInText{"BothThenLineFeed", "[\r\n\n", "3,1"},
        PlaceInText{"AllOfThem", "[1,\n2,\r3,\r\n4,\n\r5, ", "6,4"},
        PlaceInText{"BeforeTheDocument", "\n\r\n\r ", "4,2"},
        PlaceInText{"SpaceBetweenReturnAndFeed", "[\r \n", "3,1"},
        PlaceInText{"TokenBetweenReturnAndFeed", "[1\r,\n", "3,1"},
        PlaceInText{"ReturnBehindAToken", "[1,\r  ", "2,3"},
        PlaceInText{"LineEndBehindAToken", "[\"a\"\r\n,", "2,2"},
        PlaceInText{"LineEndBehindANumber", "[12\r\n, ", "2,3"},
        PlaceInText{"InABlockComment", "[/* a\r\nb\rc\nd */ ", "4,6"},
        PlaceInText{"InABlockCommentBehindAToken", "[1/*\r*/\r\n", "3,1"},
        PlaceInText{"AfterALineComment", "[ // a\r\n  ", "2,3"},
        PlaceInText{"AfterALineCommentOfAFeed", "[ // a\n ", "2,2"},
        PlaceInText{"EscapedOnesEndNoLine", "[\"\\r\\n\", ", "1,10"},
        PlaceInText{"OtherSeparatorsEndNoLine", "[\"\xC2\x85\xE2\x80\xA8\xE2\x80\xA9\", ", "1,14"},
        PlaceInText{"BytesAreCounted", "[\"\xF0\x9F\x98\x80\", ", "1,10"},
        PlaceInText{"TabsAreOneByte", "[\t\t", "1,4"}),
    k_rowName);

TEST(ReadDocumentLines, AreCountedBehindAByteOrderMark) {
    EXPECT_EQ(placeOf(fromBoth("\xEF\xBB\xBF[x")), "1,5");
    EXPECT_EQ(placeOf(fromBoth("\xEF\xBB\xBF\r\n[x")), "2,2");
}

TEST(ReadDocumentLines, AreCountedInALongDocument) {
    std::string text = "[0";
    for (int line = 2; line <= 123456; ++line) {
        text += line % 3 == 0 ? ",\r\n0" : (line % 3 == 1 ? "\n,0" : ",\r 0");
    }
    EXPECT_EQ(fromBoth(text + ",\n?"),
              "Parse error at 123457,1 in element \"[123456]\": lexical "
              "error: invalid char in json text.");
}

TEST(ReadDocumentLines, HaveLongColumns) {
    const std::string string = '"' + std::string(300000, 'a') + '"';
    EXPECT_EQ(placeOf(fromBoth("[" + string + "x")), "1,300004");
    EXPECT_EQ(placeOf(fromBoth("\n[" + string + ", " + string + " ")), "2,600009");
    EXPECT_EQ(placeOf(fromBoth("[" + std::string(300000, ' ') + "x")), "1,300002");
}

TEST(ReadDocumentLines, NameTheTokenThatMayNotStandThereWhereItBegins) {
    EXPECT_EQ(placeOf(fromBoth("[1\r\n\"a/*b*/c\"")), "2,1");
    EXPECT_EQ(placeOf(fromBoth("[1 /*\n*/ //\r\n -1.5e3 ]")), "3,2");
    EXPECT_EQ(placeOf(fromBoth("{\"a\": 1}\r\n\r  {}")), "3,3");
}

}  // namespace
