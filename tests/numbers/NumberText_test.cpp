#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <limits>
#include <sstream>
#include <string>

#include "forceType.h"
#include "support/NumberOf.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

std::string written(const BasicNumber& number) {
    std::ostringstream out;
    EXPECT_EQ(&number.writeAt(out), &out);
    return out.str();
}

std::wstring writtenWide(const BasicNumber& number) {
    std::wostringstream out;
    EXPECT_EQ(&number.writeAt(out), &out);
    return out.str();
}

struct WrittenDouble {
    const char* name;
    double value;
    const char* text;
};

class TextOfADouble : public testing::TestWithParam<WrittenDouble> {};

TEST_P(TextOfADouble, HasSixSignificantDigits) {
    EXPECT_EQ(numberOf(GetParam().value).toString(), GetParam().text);
    EXPECT_EQ(written(numberOf(GetParam().value)), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    BasicNumber, TextOfADouble,
    testing::Values(
        WrittenDouble{"Tenth", 0.1, "0.1"}, WrittenDouble{"TenthOfAFloat", 0.1F, "0.1"},
        WrittenDouble{"Pi", 3.14159265, "3.14159"},
        WrittenDouble{"SevenDigits", 1234567.0, "1.23457e+06"},
        WrittenDouble{"NineDigits", 123456789.0, "1.23457e+08"},
        WrittenDouble{"SixDigits", 123456.0, "123456"}, WrittenDouble{"Whole", 2.0, "2"},
        WrittenDouble{"Negative", -0.5, "-0.5"}, WrittenDouble{"Million", 1000000.0, "1e+06"},
        WrittenDouble{"RoundedUpToAMillion", 999999.5, "1e+06"},
        WrittenDouble{"SmallestPlain", 0.0001, "0.0001"},
        WrittenDouble{"LargestSmallScientific", 0.00001, "1e-05"}, WrittenDouble{"Zero", 0.0, "0"},
        WrittenDouble{"MinusZero", -0.0, "-0"},
        WrittenDouble{"Largest", 1.7976931348623157e308, "1.79769e+308"},
        WrittenDouble{"SmallestSubnormal", 5e-324, "4.94066e-324"},
        WrittenDouble{"Infinity", std::numeric_limits<double>::infinity(), "inf"},
        WrittenDouble{"MinusInfinity", -std::numeric_limits<double>::infinity(), "-inf"},
        WrittenDouble{"NotANumber", std::numeric_limits<double>::quiet_NaN(), "nan"},
        WrittenDouble{"MinusNotANumber", -std::numeric_limits<double>::quiet_NaN(), "-nan"}),
    k_rowName);

TEST(NumberText, OfADoubleLosesDigitsWhileTheBinaryFormKeepsThem) {
    const BasicNumber number = numberOf(1234567.5);
    EXPECT_EQ(number.toString(), "1.23457e+06");
    EXPECT_EQ(number.toDouble(), 1234567.5);
}

TEST(NumberText, OfAnInfiniteDoubleIsNeverReadBack) {
    const BasicNumber number = numberOf(std::numeric_limits<double>::infinity());
    EXPECT_EQ(number.toString(), "inf");
    EXPECT_EQ(number.type(), BasicNumber::ebDouble);
}

TEST(NumberText, IsWrittenAndReturnedUnchangedInEveryForm) {
    for (const char* text : {"007", "1.50", "1E3", "-0", " 5x"}) {
        const std::string bytes = text;
        const std::wstring wide(bytes.begin(), bytes.end());
        EXPECT_EQ(numberOf(text).toString(), bytes);
        EXPECT_EQ(numberOf(text).toWString(), wide);
        EXPECT_EQ(written(numberOf(text)), bytes);
        EXPECT_EQ(writtenWide(numberOf(text)), wide);
    }
}

TEST(NumberText, IsMadeByWhicheverReaderComesFirst) {
    EXPECT_EQ(numberOf(-5).toString(), "-5");
    EXPECT_EQ(numberOf(-5).toWString(), L"-5");
    EXPECT_EQ(written(numberOf(-5)), "-5");
    EXPECT_EQ(writtenWide(numberOf(-5)), L"-5");
    EXPECT_EQ(written(numberOf(18446744073709551615ULL)), "18446744073709551615");
    EXPECT_EQ(writtenWide(numberOf(2.5)), L"2.5");
    EXPECT_EQ(written(BasicNumber()), "0");
}

TEST(NumberText, SetFromTextOutlivesTheReadingOfTheBinaryForm) {
    const BasicNumber number = numberOf("1.50");
    EXPECT_EQ(number.toDouble(), 1.5);
    EXPECT_EQ(number.toInt(), 1);
    EXPECT_EQ(number.toString(), "1.50");
    EXPECT_EQ(written(number), "1.50");
}

TEST(NumberText, IsReturnedByReferenceAndMadeOnce) {
    const BasicNumber number = numberOf(123456789.0);
    const std::string& text = number.toString();
    EXPECT_EQ(number.toDouble(), 123456789.0);
    EXPECT_EQ(&number.toString(), &text);
    EXPECT_EQ(text, "1.23457e+08");
}

TEST(NumberText, IsNotDerivedAgainWhileThereIsOne) {
    BasicNumber number = numberOf(5);
    EXPECT_EQ(number.toString(), "5");
    forceType(number, BasicNumber::ebDouble);  // another text would now belong to the bits
    EXPECT_EQ(number.toString(), "5");
}

TEST(NumberText, GivesNoBinaryFormWhileThereIsOne) {
    BasicNumber number = numberOf("5");
    EXPECT_EQ(number.type(), BasicNumber::ebULongLong);
    forceType(number, BasicNumber::ebLongLong);
    EXPECT_EQ(number.type(), BasicNumber::ebLongLong);
    forceType(number, BasicNumber::ebNone);
    EXPECT_EQ(number.type(), BasicNumber::ebULongLong);
}

TEST(NumberText, IsReplacedByEverySetter) {
    BasicNumber number = numberOf("1.50");
    number.set(2);
    EXPECT_EQ(number.toString(), "2");
    number.set(3U);
    EXPECT_EQ(number.toString(), "3");
    number.set(4.5);
    EXPECT_EQ(number.toString(), "4.5");
    number.set("5.50");
    EXPECT_EQ(number.toString(), "5.50");
}

TEST(EmptyText, StaysEmptyUntilTheBinaryFormIsRead) {
    BasicNumber number = numberOf(7);
    number.set("");
    EXPECT_EQ(number.toString(), "");
    EXPECT_EQ(number.toWString(), L"");
    EXPECT_EQ(written(number), "");
    EXPECT_EQ(writtenWide(number), L"");
}

TEST(EmptyText, IsReadAsUnsignedAndLeavesTheFormerBinaryValue) {
    BasicNumber number = numberOf(7);
    number.set("");
    EXPECT_EQ(number.type(), BasicNumber::ebULongLong);
    EXPECT_EQ(number.toULongLong(), 7U);

    number.set(-1);
    number.set("");
    EXPECT_EQ(number.toULongLong(), 18446744073709551615ULL);

    number.set(1.0);
    number.set("");
    EXPECT_EQ(number.toULongLong(), 4607182418800017408ULL);
}

TEST(EmptyText, IsReplacedOnceThereIsABinaryForm) {
    BasicNumber number = numberOf(7);
    number.set("");
    EXPECT_EQ(number.type(), BasicNumber::ebULongLong);
    EXPECT_EQ(number.toString(), "7");
}

TEST(EmptyText, OfATypeWithoutABinaryValueStaysEmpty) {
    BasicNumber number = numberOf(7);
    forceType(number, BasicNumber::ebBigDecimal);
    EXPECT_EQ(number.toString(), "");
    forceType(number, BasicNumber::ebNone);
    EXPECT_EQ(number.toString(), "");
}

TEST(WideText, IsReadFromUtf8) {
    EXPECT_EQ(numberOf("5\xE2\x82\xAC").toWString(), L"5\u20AC");
    EXPECT_EQ(writtenWide(numberOf("5\xE2\x82\xAC")), L"5\u20AC");
}

TEST(WideText, ShowsTheReplacementCharacterForInvalidBytes) {
    EXPECT_EQ(numberOf("1\xFF"
                       "2")
                  .toWString(),
              L"1\uFFFD"
              L"2");
    EXPECT_EQ(writtenWide(numberOf("1\xFF"
                                   "2")),
              L"1\uFFFD"
              L"2");
    EXPECT_EQ(written(numberOf("1\xFF"
                               "2")),
              "1\xFF"
              "2");
}

TEST(WriteAt, HonoursAWidthOfTheStreamButNoBaseOrPrecision) {
    std::ostringstream out;
    out << std::hex << std::showbase << std::setprecision(2) << std::setw(5);
    numberOf(255).writeAt(out);
    numberOf(1.2345).writeAt(out);
    EXPECT_EQ(out.str(), "  2551.2345");

    std::wostringstream wideOut;
    wideOut << std::setw(5);
    numberOf(255).writeAt(wideOut);
    EXPECT_EQ(wideOut.str(), L"  255");
}

TEST(WriteAt, AppendsNoQuotesAndNoBlanks) {
    std::ostringstream out;
    numberOf("1.0").writeAt(numberOf(2).writeAt(out));
    EXPECT_EQ(out.str(), "21.0");
}

}  // namespace
