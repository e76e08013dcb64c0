// What the two libraries are meant to read differently, and what they might but do not.

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include <zo/Tessera.h>

#include "agreement/differences.h"
#include "agreement/readings.h"
#include "support/NumberOf.h"

using namespace std::string_literals;
using namespace zo::Tessera;

namespace {

using TextOutOfRange = ValueOutOfRange<std::string, std::string>;

/// Both readings of one text.
struct Readings {
    std::string ours;
    std::string theirs;

    bool operator==(const Readings& other) const {
        return ours == other.ours && theirs == other.theirs;
    }
};

std::ostream& operator<<(std::ostream& out, const Readings& readings) {
    return out << "ours: " << readings.ours << " theirs: " << readings.theirs;
}

Readings readingsOf(const std::string& text) {
    return {ourReading(text), theirReading(text)};
}

Readings both(const std::string& reading) {
    return {reading, reading};
}

}  // namespace

// Configuration files have them.
TEST(Differences, OnlyWeReadComments) {
    const std::string text = "[1,/* two */2] // end\n";
    EXPECT_EQ(differencesOf(text), "comment ");
    EXPECT_EQ(readingsOf(text), (Readings{"[1,2]", "refused"}));
    EXPECT_EQ(readingsOf("[\"//\"]"), both("[\"//\"]"));
}

// Our strings are bytes: whether they are UTF-8 is the application's concern.
TEST(Differences, OnlyWeKeepBytesThatAreNotUtf8) {
    const std::string text = "[\"\xFF\"]";
    EXPECT_EQ(differencesOf(text), "no-utf-8 ");
    EXPECT_EQ(readingsOf(text), (Readings{text, "refused"}));
    EXPECT_EQ(readingsOf("[\"\xC3\xBF\"]"), both("[\"\xC3\xBF\"]"));
}

// To our tokeniser these three bytes are no blanks.
TEST(Differences, OnlyTheySkipAByteOrderMark) {
    const std::string text = "\xEF\xBB\xBF[1]";
    EXPECT_EQ(differencesOf(text), "byte-order-mark ");
    EXPECT_EQ(readingsOf(text), (Readings{"refused", "[1]"}));
}

// A zero byte is the end of their input. Ours has a length.
TEST(Differences, OnlyTheyEndATextAtAZeroByte) {
    const std::string text = "[1]\0]"s;
    EXPECT_EQ(differencesOf(text), "zero-byte ");
    EXPECT_EQ(readingsOf(text), (Readings{"refused", "[1]"}));
    EXPECT_EQ(readingsOf("[\"\\u0000\"]"), both("[\"\0\"]"s));
}

// Our tokeniser takes what C takes for blanks.
TEST(Differences, OnlyWeTakeVerticalTabsAndFormFeedsForBlanks) {
    const std::string text = "[1,\v2\f]";
    EXPECT_EQ(differencesOf(text), "other-blanks ");
    EXPECT_EQ(readingsOf(text), (Readings{"[1,2]", "refused"}));
    EXPECT_EQ(readingsOf("[1,\t2\r\n]"), both("[1,2]"));
}

// We are never told that the text is at its end: what came so far is there.
TEST(Differences, OnlyWeReadTheBeginningOfATextThatIsCutOff) {
    EXPECT_EQ(differencesOf("[1,{\"a\":2"), "incomplete word-at-end ");
    EXPECT_EQ(readingsOf("[1,{\"a\":2"), (Readings{"[1,{}]", "refused"}));
    EXPECT_EQ(differencesOf("[\""), "incomplete ");
    EXPECT_EQ(readingsOf("[\""), (Readings{"[]", "refused"}));
    EXPECT_EQ(differencesOf(" \n"), "incomplete ");
    EXPECT_EQ(readingsOf(" \n"), (Readings{"nothing", "refused"}));
    EXPECT_EQ(readingsOf("[1,{\"a\":2}]"), both("[1,{\"a\":2}]"));
}

// For the same reason a number might still go on.
TEST(Differences, OnlyTheyReadANumberAtTheVeryEnd) {
    EXPECT_EQ(differencesOf("12"), "word-at-end ");
    EXPECT_EQ(readingsOf("12"), (Readings{"nothing", "12"}));
    EXPECT_EQ(readingsOf("12\n"), both("12"));
    EXPECT_EQ(readingsOf("true"), both("true"));
}

// For the same reason it is not yet a token.
TEST(Differences, OnlyWeOverlookHalfATokenBehindTheEnd) {
    EXPECT_EQ(differencesOf("[] 12"), "word-at-end ");
    EXPECT_EQ(readingsOf("[] 12"), (Readings{"[]", "refused"}));
    EXPECT_EQ(readingsOf("[] tr"), (Readings{"[]", "refused"}));
    EXPECT_EQ(differencesOf("[] \""), "incomplete ");
    EXPECT_EQ(readingsOf("[] \""), (Readings{"[]", "refused"}));
    EXPECT_EQ(readingsOf("[] 12 "), both("refused"));
    EXPECT_EQ(readingsOf("[] \"a\""), both("refused"));
}

// Our tokeniser puts a question mark, or the bytes that the number of the surrogate gives.
TEST(Differences, OnlyWeReadLoneSurrogates) {
    EXPECT_EQ(differencesOf(R"(["\uD83D"])"), "lone-surrogate ");
    EXPECT_EQ(readingsOf(R"(["\uD83D"])"), (Readings{"[\"?\"]", "refused"}));
    EXPECT_EQ(differencesOf(R"(["\uDE00"])"), "lone-surrogate ");
    EXPECT_EQ(readingsOf(R"(["\uDE00"])"), (Readings{"[\"\xED\xB8\x80\"]", "refused"}));
    EXPECT_EQ(readingsOf(R"(["\uD83D\uDE00"])"), both("[\"\xF0\x9F\x98\x80\"]"));
    EXPECT_EQ(readingsOf(R"(["\\uD83D"])"), both(R"(["\\uD83D"])"));
}

// We keep the text, and refuse its conversion by its length.
TEST(Differences, OnlyTheyConvertIntegersOfTwentyDigits) {
    EXPECT_EQ(differencesOf("[18446744073709551615]"), "long-integer ");
    EXPECT_EQ(theirReading("[18446744073709551615]"), "[18446744073709551615]");
    EXPECT_EQ(writtenByUs("18446744073709551615 "), "18446744073709551615\n");
    EXPECT_THROW(numberOf("18446744073709551615").toULongLong(), TextOutOfRange);
    EXPECT_EQ(differencesOf("[-123456789012345678]"), "long-integer ");
    EXPECT_EQ(theirReading("[-123456789012345678]"), "[-123456789012345678]");
    EXPECT_THROW(numberOf("-123456789012345678").toLongLong(), TextOutOfRange);
    EXPECT_EQ(readingsOf("[1844674407370955161,-12345678901234567]"),
              both("[1844674407370955161,-12345678901234567]"));
}

// We keep the text, and refuse its conversion; they refuse the document.
TEST(Differences, OnlyWeReadADocumentWithTooLargeADouble) {
    EXPECT_EQ(differencesOf("[1e400]"), "double-out-of-range ");
    EXPECT_EQ(theirReading("[1e400]"), "refused");
    EXPECT_EQ(writtenByUs("1e400 "), "1e400\n");
    EXPECT_THROW(numberOf("1e400").toDouble(), TextOutOfRange);
    EXPECT_EQ(differencesOf("[1e-400]"), "double-out-of-range ");
    EXPECT_EQ(readingsOf("[1e-400]"), both("[0e+00]"));
}

// As an integer it has none in either library. The readings of doubles leave it out.
TEST(Differences, OnlyTheyKnowTheSignOfAZeroThatIsADouble) {
    EXPECT_EQ(readingsOf("[-0,-0.0]"), both("[0,0e+00]"));
    EXPECT_EQ(writtenByUs("-0.0 "), "-0.0\n");
    EXPECT_EQ(writtenByThem("-0.0"), "-0.0");
    EXPECT_EQ(writtenByUs("-0 "), "-0\n");
    EXPECT_EQ(writtenByThem("-0"), "0");
}

TEST(Differences, AreNoneWhereKeysComeTwice) {
    EXPECT_EQ(differencesOf(R"({"a":1,"b":2,"a":3})"), "");
    EXPECT_EQ(readingsOf(R"({"a":1,"b":2,"a":3})"), both(R"({"a":3,"b":2})"));
}

TEST(Differences, AreNoneInDepth) {
    const std::string text = std::string(500, '[') + std::string(500, ']');
    EXPECT_EQ(differencesOf(text), "");
    EXPECT_EQ(readingsOf(text), both(text));
}
