#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>

#include <zo/DecNumber.h>
#include <zo/Exception.h>
#include <zo/Tessera/Exception.h>

#include "forceType.h"
#include "outcome.h"
#include "support/NumberOf.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

std::string decimalText(const BasicNumber& number) {
    std::ostringstream out;
    number.toDecNumber().writeTo(out);
    return out.str();
}

TEST(ToDecNumber, IsBuiltFromTheBinaryForm) {
    EXPECT_EQ(decimalText(BasicNumber()), "0");
    EXPECT_EQ(decimalText(numberOf(-9223372036854775807LL - 1)), "-9223372036854775808");
    EXPECT_EQ(decimalText(numberOf(18446744073709551615ULL)), "18446744073709551615");
    EXPECT_EQ(decimalText(numberOf(0.1)), "0.1");
    EXPECT_EQ(decimalText(numberOf(-1234567.5)), "-1234567.5");
}

TEST(ToDecNumber, ReadsATextsBinaryFormFirst) {
    EXPECT_EQ(decimalText(numberOf("007")), "7");
    EXPECT_EQ(decimalText(numberOf("-12abc")), "-12");
    EXPECT_EQ(decimalText(numberOf("1.50")), "1.5");
    // More digits than a double has are lost on the way.
    EXPECT_EQ(decimalText(numberOf("0.12345678901234567890123456789")), "0.12345678901234568");
}

TEST(ToDecNumber, RefusesWhatIsNoDecimal) {
    EXPECT_THROW(numberOf(std::numeric_limits<double>::quiet_NaN()).toDecNumber(),
                 zo::RuntimeError);
    EXPECT_THROW(numberOf(std::numeric_limits<double>::infinity()).toDecNumber(), zo::RuntimeError);
    EXPECT_THROW(numberOf("nan.").toDecNumber(), zo::RuntimeError);
}

TEST(ToDecNumber, OfABigDecimalIsBuiltFromTheText) {
    EXPECT_EQ(decimalText(bigDecimal("0.12345678901234567890123456789")),
              "0.12345678901234567890123456789");
    EXPECT_EQ(decimalText(bigDecimal("1e400")), "1e+400");
    EXPECT_EQ(decimalText(bigDecimal("12345678901234567890")), "12345678901234567890");
}

TEST(BigDecimal, IsReportedAndItsTextKept) {
    const BasicNumber number = bigDecimal("12345678901234567890");
    EXPECT_EQ(number.type(), BasicNumber::ebBigDecimal);
    EXPECT_EQ(number.toString(), "12345678901234567890");
}

TEST(BigDecimal, ThatIsNoDecimalIsRefusedByEveryReader) {
    const BasicNumber number = bigDecimal("no decimal");
    EXPECT_THROW(number.toDecNumber(), zo::RuntimeError);
    EXPECT_THROW(number.toInt(), zo::RuntimeError);
    EXPECT_THROW(number.compare(1LL), zo::RuntimeError);
}

struct Conversion {
    const char* name;
    std::string (*convert)(const BasicNumber&);
    const char* text;
    const char* expected;
};

class BigDecimalConversions : public testing::TestWithParam<Conversion> {};

TEST_P(BigDecimalConversions, AreCheckedAndMadeExactly) {
    EXPECT_EQ(GetParam().convert(bigDecimal(GetParam().text)), GetParam().expected);
}

// A decimal zero has no sign, so it is in the range of the unsigned types.
INSTANTIATE_TEST_SUITE_P(
    Narrow, BigDecimalConversions,
    testing::Values(Conversion{"CharBelow", outcome<char>, "-128.5", k_no},
                    Conversion{"CharMin", outcome<char>, "-128", "-128"},
                    Conversion{"CharMax", outcome<char>, "127", "127"},
                    Conversion{"CharAbove", outcome<char>, "127.5", k_no},
                    Conversion{"UCharBelow", outcome<unsigned char>, "-0.5", k_no},
                    Conversion{"UCharMinusZero", outcome<unsigned char>, "-0", "0"},
                    Conversion{"UCharMax", outcome<unsigned char>, "255", "255"},
                    Conversion{"UCharAbove", outcome<unsigned char>, "256", k_no},
                    Conversion{"ShortBelow", outcome<short>, "-32769", k_no},
                    Conversion{"ShortMin", outcome<short>, "-32768", "-32768"},
                    Conversion{"ShortMax", outcome<short>, "32767", "32767"},
                    Conversion{"ShortAbove", outcome<short>, "32768", k_no},
                    Conversion{"UShortBelow", outcome<unsigned short>, "-1", k_no},
                    Conversion{"UShortMin", outcome<unsigned short>, "0", "0"},
                    Conversion{"UShortMax", outcome<unsigned short>, "65535", "65535"},
                    Conversion{"UShortAbove", outcome<unsigned short>, "65536", k_no},
                    Conversion{"IntBelow", outcome<int>, "-2147483649", k_no},
                    Conversion{"IntMin", outcome<int>, "-2147483648", "-2147483648"},
                    Conversion{"IntFraction", outcome<int>, "-3.7", "-3"},
                    Conversion{"IntMax", outcome<int>, "2147483647", "2147483647"},
                    Conversion{"IntAbove", outcome<int>, "2147483648", k_no},
                    Conversion{"UIntBelow", outcome<unsigned>, "-1", k_no},
                    Conversion{"UIntMin", outcome<unsigned>, "0", "0"},
                    Conversion{"UIntMax", outcome<unsigned>, "4294967295", "4294967295"},
                    Conversion{"UIntAbove", outcome<unsigned>, "4294967296", k_no}),
    k_rowName);

template <class T>
auto signed64Rows() {
    return testing::Values(
        Conversion{"Below", outcome<T>, "-9223372036854775809", k_no},
        Conversion{"Min", outcome<T>, "-9223372036854775808", "-9223372036854775808"},
        Conversion{"Max", outcome<T>, "9223372036854775807", "9223372036854775807"},
        Conversion{"AboveByAFraction", outcome<T>, "9223372036854775807.1", k_no},
        Conversion{"Above", outcome<T>, "9223372036854775808", k_no});
}

template <class T>
auto unsigned64Rows() {
    return testing::Values(
        Conversion{"Below", outcome<T>, "-1", k_no}, Conversion{"Min", outcome<T>, "0", "0"},
        Conversion{"Max", outcome<T>, "18446744073709551615", "18446744073709551615"},
        Conversion{"Above", outcome<T>, "18446744073709551616", k_no});
}

INSTANTIATE_TEST_SUITE_P(Long, BigDecimalConversions, signed64Rows<long>(), k_rowName);
INSTANTIATE_TEST_SUITE_P(ULong, BigDecimalConversions, unsigned64Rows<unsigned long>(), k_rowName);
INSTANTIATE_TEST_SUITE_P(LongLong, BigDecimalConversions, signed64Rows<long long>(), k_rowName);
INSTANTIATE_TEST_SUITE_P(ULongLong, BigDecimalConversions, unsigned64Rows<unsigned long long>(),
                         k_rowName);

// The bounds are the shortest decimals that read back to those of the type.
INSTANTIATE_TEST_SUITE_P(
    Floating, BigDecimalConversions,
    testing::Values(
        Conversion{"FloatZero", outcome<float>, "0", k_no},
        Conversion{"FloatBelow", outcome<float>, "1.1754943508222874e-38", k_no},
        Conversion{"FloatMin", outcome<float>, "1.1754943508222875e-38", "1.17549435e-38"},
        Conversion{"FloatMax", outcome<float>, "3.4028234663852886e38", "3.40282347e+38"},
        Conversion{"FloatAbove", outcome<float>, "3.4028234663852887e38", k_no},
        Conversion{"DoubleNegative", outcome<double>, "-1", k_no},
        Conversion{"DoubleBelow", outcome<double>, "2.2250738585072013e-308", k_no},
        Conversion{"DoubleMin", outcome<double>, "2.2250738585072014e-308",
                   "2.2250738585072014e-308"},
        Conversion{"DoubleTenth", outcome<double>, "0.1", "0.10000000000000001"},
        Conversion{"DoubleMax", outcome<double>, "1.7976931348623157e308",
                   "1.7976931348623157e+308"},
        Conversion{"DoubleAbove", outcome<double>, "1.7976931348623158e308", k_no}),
    k_rowName);

TEST(BigDecimalConversions, NameTheTextInTheRefusal) {
    EXPECT_EQ((thrown<ValueOutOfRange<BasicNumber, short>>([] { bigDecimal("4.00e4").toShort(); })),
              "Value out of range! Value: 4.00e4 Min: -32768 Max: 32767");
}

TEST(BigDecimalComparison, IsExactOnTheLeft) {
    const BasicNumber number = bigDecimal("9007199254740992.5");
    EXPECT_EQ(number.compare(9007199254740992LL), 1);
    EXPECT_EQ(number.compare(9007199254740993LL), -1);
    EXPECT_EQ(number.compare(9007199254740992ULL), 1);
    EXPECT_EQ(number.compare(9007199254740993ULL), -1);
    EXPECT_EQ(number.compare(9007199254740992.0), 1);
    EXPECT_EQ(number.compare(9007199254740994.0), -1);
    EXPECT_EQ(bigDecimal("-5.0").compare(-5LL), 0);
    EXPECT_EQ(bigDecimal("18446744073709551615").compare(18446744073709551615ULL), 0);
    EXPECT_EQ(bigDecimal("0.1").compare(0.1), 0);
    EXPECT_EQ(bigDecimal("0").compare(0LL), 0);
    EXPECT_EQ(bigDecimal("0").compare(0ULL), 0);
}

TEST(BigDecimalComparison, TakesANumberOfEachOtherFormOnTheRight) {
    EXPECT_EQ(bigDecimal("1e400").compare(numberOf(1)), 1);
    EXPECT_EQ(bigDecimal("5").compare(numberOf("5")), 0);
    EXPECT_EQ(bigDecimal("-1e400").compare(numberOf("1.5")), -1);
}

// Only the left side may be a decimal; callers match on this text.
TEST(BigDecimalComparison, IsRefusedOnTheRight) {
    for (const BasicNumber& left :
         {numberOf(5), numberOf("5"), numberOf(5.0), bigDecimal("5"), numberOfType(5, "5")}) {
        EXPECT_EQ(thrown<Exception>([&] { left.compare(bigDecimal("5")); }), "Uncomparable type.");
    }
}

TEST(BigDecimalComparison, RefusesANumberWithItself) {
    const BasicNumber number = bigDecimal("5");
    EXPECT_EQ(thrown<Exception>([&] { number.compare(number); }), "Uncomparable type.");
}

TEST(BigDecimalComparison, RefusesADoubleThatIsNoDecimal) {
    EXPECT_THROW(bigDecimal("5").compare(std::numeric_limits<double>::quiet_NaN()),
                 zo::RuntimeError);
}

class UnknownTypes : public testing::TestWithParam<int> {
protected:
    const BasicNumber m_number = numberOfType(GetParam(), "5");
};

TEST_P(UnknownTypes, AreRefusedByEveryReaderOfTheBinaryForm) {
    const std::string message = "Unknown type, implementation missing";
    EXPECT_EQ(thrown<zo::RuntimeError>([this] { m_number.toDecNumber(); }), message);
    EXPECT_EQ(thrown<zo::RuntimeError>([this] { m_number.compare(5LL); }), message);
    EXPECT_EQ(thrown<zo::RuntimeError>([this] { m_number.compare(5ULL); }), message);
    EXPECT_EQ(thrown<zo::RuntimeError>([this] { m_number.compare(5.0); }), message);
    EXPECT_EQ(thrown<zo::RuntimeError>([this] { m_number.compare(numberOf("5")); }), message);
}

TEST_P(UnknownTypes, AreRefusedByTheRangeTestOfAConversion) {
    int out = 99;
    EXPECT_EQ(thrown<zo::RuntimeError>([&] { m_number.getValue(out); }),
              "Unknown type, implementation missing");
    EXPECT_EQ(out, 99);
    EXPECT_EQ(thrown<zo::RuntimeError>([this] { m_number.toDouble(); }),
              "Unknown type, implementation missing");
}

TEST_P(UnknownTypes, AreUncomparableOnTheRight) {
    EXPECT_EQ(thrown<Exception>([this] { numberOf(5).compare(m_number); }), "Uncomparable type.");
}

TEST_P(UnknownTypes, AreReportedAndKeepTheirText) {
    EXPECT_EQ(static_cast<int>(m_number.type()), GetParam());
    EXPECT_EQ(m_number.toString(), "5");
}

INSTANTIATE_TEST_SUITE_P(BasicNumber, UnknownTypes, testing::Values(5, -1, 2147483647));

}  // namespace
