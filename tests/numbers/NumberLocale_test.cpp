#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <locale>
#include <sstream>
#include <string>

#include <zo/DecNumber.h>
#include <zo/Tessera/Exception.h>

#include "forceType.h"
#include "outcome.h"
#include "support/HostileLocale.h"
#include "support/NumberOf.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

/// Each test runs where 1234567.5 is written "1.234.567,5".
class NumberInAHostileLocale : public testing::Test {
    const HostileLocale m_locale;
};

TEST_F(NumberInAHostileLocale, TheLocaleIsHostileIndeed) {
    std::ostringstream out;
    out << 1234567;
    EXPECT_EQ(out.str(), "1.234.567");
    EXPECT_EQ(std::atof("0.5"), 0.0);
}

TEST_F(NumberInAHostileLocale, DoubleTextIsReadWithAPoint) {
    EXPECT_EQ(numberOf("1234567.5").toDouble(), 1234567.5);
    EXPECT_EQ(numberOf("-1234567.5").toInt(), -1234567);
    EXPECT_EQ(numberOf("1.234").toDouble(), 1.234);
    EXPECT_EQ(numberOf("12.5e-1").toDouble(), 1.25);
    EXPECT_EQ(numberOf("0x1.8p1").toDouble(), 3.0);
    EXPECT_EQ(numberOf(L"1234567.5").toDouble(), 1234567.5);
}

TEST_F(NumberInAHostileLocale, ACommaEndsANumber) {
    EXPECT_EQ(numberOf("1,5").type(), BasicNumber::ebULongLong);
    EXPECT_EQ(numberOf("1,5").toInt(), 1);
    EXPECT_EQ(numberOf("1,5e3").toDouble(), 1.0);
    EXPECT_EQ(numberOf("1.234.567,5").toDouble(), 1.234);
}

TEST_F(NumberInAHostileLocale, IntegerTextIsReadWithoutGroups) {
    EXPECT_EQ(numberOf("1234567").toInt(), 1234567);
    EXPECT_EQ(numberOf("-1234567").toInt(), -1234567);
    EXPECT_EQ(numberOf("9999999999999999999").toULongLong(), 9999999999999999999ULL);
}

class CommaGroups : public std::numpunct<char> {
    char do_thousands_sep() const override { return ','; }
    std::string do_grouping() const override { return "\3"; }
};

// A double's text has a point in it; an integer's could pass for one in groups.
TEST_F(NumberInAHostileLocale, ACommaEndsAnIntegerThatTheLocaleWouldGroup) {
    const std::locale former = std::locale::global(std::locale(std::locale(), new CommaGroups));
    const int narrow = numberOf("1,234").toInt();
    const int spaced = numberOf(" 1,234").toInt();
    std::locale::global(former);
    EXPECT_EQ(narrow, 1);
    EXPECT_EQ(spaced, 1);
}

TEST_F(NumberInAHostileLocale, TextIsMadeWithoutGroupsAndWithAPoint) {
    EXPECT_EQ(numberOf(1234567.5).toString(), "1.23457e+06");
    EXPECT_EQ(numberOf(1234.5).toString(), "1234.5");
    EXPECT_EQ(numberOf(123456.0F).toString(), "123456");
    EXPECT_EQ(numberOf(-1234567).toString(), "-1234567");
    EXPECT_EQ(numberOf(18446744073709551615ULL).toString(), "18446744073709551615");
    EXPECT_EQ(numberOf(-1234567).toWString(), L"-1234567");
    EXPECT_EQ(numberOf(1234.5).toWString(), L"1234.5");
}

TEST_F(NumberInAHostileLocale, StreamsOfThatLocaleGetThePlainText) {
    std::ostringstream out;
    numberOf(1234.5).writeAt(out);
    numberOf(-1234567).writeAt(out);
    numberOf("1234567.50").writeAt(out);
    EXPECT_EQ(out.str(), "1234.5-12345671234567.50");

    std::wostringstream wideOut;
    numberOf(1234.5).writeAt(wideOut);
    numberOf(-1234567).writeAt(wideOut);
    EXPECT_EQ(wideOut.str(), L"1234.5-1234567");
}

TEST_F(NumberInAHostileLocale, MessagesArePlain) {
    EXPECT_EQ((thrown<ValueOutOfRange<BasicNumber, int>>([] { numberOf(3000000000LL).toInt(); })),
              "Value out of range! Value: 3000000000 Min: -2147483648 Max: 2147483647");
    EXPECT_EQ((thrown<ValueOutOfRange<BasicNumber, unsigned short>>(
                  [] { numberOf(1234567.5).toUShort(); })),
              "Value out of range! Value: 1.23457e+06 Min: 0 Max: 65535");
    EXPECT_EQ((thrown<ValueOutOfRange<BasicNumber, double>>([] { numberOf(-0.5).toDouble(); })),
              "Value out of range! Value: -0.5 Min: 2.22507e-308 Max: 1.79769e+308");
    EXPECT_EQ((thrown<ValueOutOfRange<BasicNumber, float>>([] { numberOf(-1).toFloat(); })),
              "Value out of range! Value: -1 Min: 1.17549e-38 Max: 3.40282e+38");
}

TEST_F(NumberInAHostileLocale, DecimalsAreReadAndWrittenWithAPoint) {
    EXPECT_EQ(outcome<double>(bigDecimal("1234567.5")), "1234567.5");
    EXPECT_EQ(bigDecimal("1234567.5").compare(1234567.5), 0);
    EXPECT_EQ(BasicNumber::compare(0.5, "0.5"), 0);
    BasicNumber number;
    number.set(numberOf(1234567.5).toDecNumber());
    EXPECT_EQ(number.toString(), "1234567.5");
}

TEST_F(NumberInAHostileLocale, BinaryTypesAreWrittenByName) {
    std::ostringstream out;
    out << BasicNumber::ebDouble << static_cast<BasicNumber::EBinaryType>(1234567);
    EXPECT_EQ(out.str(), "ebDouble>>Unknown<<");
}

}  // namespace
