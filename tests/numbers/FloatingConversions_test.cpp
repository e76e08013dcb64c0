#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "outcome.h"
#include "support/NumberOf.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

struct Floating {
    const char* name;
    const char* text;  // of a double, exact
    double value;      // the same
    const char* asFloat;
    const char* asDouble;
};

class DoublesToFloating : public testing::TestWithParam<Floating> {};

TEST_P(DoublesToFloating, FromABinaryDouble) {
    EXPECT_EQ(outcome<float>(numberOf(GetParam().value)), GetParam().asFloat);
    EXPECT_EQ(outcome<double>(numberOf(GetParam().value)), GetParam().asDouble);
}

TEST_P(DoublesToFloating, FromText) {
    EXPECT_EQ(outcome<float>(numberOf(GetParam().text)), GetParam().asFloat);
    EXPECT_EQ(outcome<double>(numberOf(GetParam().text)), GetParam().asDouble);
}

// The lower bound is the smallest positive normal value: callers know that zero, every negative
// number and every subnormal one are refused.
INSTANTIATE_TEST_SUITE_P(
    BasicNumber, DoublesToFloating,
    testing::Values(
        Floating{"One", "1.0", 1.0, "1", "1"},
        Floating{"Tenth", "0.1", 0.1, "0.100000001", "0.10000000000000001"},
        Floating{"Zero", "0.0", 0.0, k_no, k_no}, Floating{"MinusZero", "-0.0", -0.0, k_no, k_no},
        Floating{"MinusOne", "-1.0", -1.0, k_no, k_no},
        Floating{"MinusLargest", "-1.7976931348623157e308", -1.7976931348623157e308, k_no, k_no},
        Floating{"FloatMin", "0x1.0p-126", 0x1.0p-126, "1.17549435e-38", "1.1754943508222875e-38"},
        Floating{"BelowFloatMin", "0x1.fffffffffffffp-127", 0x1.fffffffffffffp-127, k_no,
                 "1.1754943508222874e-38"},
        Floating{"FloatMax", "0x1.fffffep127", 0x1.fffffep127, "3.40282347e+38",
                 "3.4028234663852886e+38"},
        // It would still round down to the largest float.
        Floating{"AboveFloatMax", "0x1.fffffe0000001p127", 0x1.fffffe0000001p127, k_no,
                 "3.402823466385289e+38"},
        Floating{"DoubleMin", "0x1.0p-1022", 0x1.0p-1022, k_no, "2.2250738585072014e-308"},
        Floating{"BelowDoubleMin", "0x0.fffffffffffffp-1022", 0x0.fffffffffffffp-1022, k_no, k_no},
        Floating{"Subnormal", "1e-310", 1e-310, k_no, k_no},
        Floating{"DoubleMax", "1.7976931348623157e308", 1.7976931348623157e308, k_no,
                 "1.7976931348623157e+308"}),
    k_rowName);

TEST(InfinitiesToFloating, AreRefused) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(outcome<float>(numberOf(infinity)), k_no);
    EXPECT_EQ(outcome<double>(numberOf(infinity)), k_no);
    EXPECT_EQ(outcome<float>(numberOf(-infinity)), k_no);
    EXPECT_EQ(outcome<double>(numberOf(-infinity)), k_no);
    EXPECT_EQ(outcome<double>(numberOf("1e400")), "text refused");
}

TEST(NanToFloating, StaysNan) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(numberOf(nan).toFloat()));
    EXPECT_TRUE(std::isnan(numberOf(nan).toDouble()));
    EXPECT_TRUE(std::isnan(numberOf("nan.").toFloat()));
}

TEST(SignedToFloating, IsCheckedAgainstTheSmallestPositiveValue) {
    for (const long long value : {0LL, -1LL, -9223372036854775807LL - 1}) {
        EXPECT_EQ(outcome<float>(numberOf(value)), k_no);
        EXPECT_EQ(outcome<double>(numberOf(value)), k_no);
    }
    EXPECT_EQ(outcome<float>(numberOf(1)), "1");
    EXPECT_EQ(outcome<double>(numberOf(1)), "1");
    EXPECT_EQ(outcome<float>(numberOf(9223372036854775807LL)), "9.22337204e+18");
    EXPECT_EQ(outcome<double>(numberOf(9223372036854775807LL)), "9.2233720368547758e+18");
}

TEST(UnsignedToFloating, IsConvertedAsUnsigned) {
    EXPECT_EQ(outcome<float>(numberOf(0U)), k_no);
    EXPECT_EQ(outcome<double>(numberOf(0U)), k_no);
    EXPECT_EQ(outcome<float>(numberOf(1U)), "1");
    EXPECT_EQ(outcome<double>(numberOf(1U)), "1");
    EXPECT_EQ(outcome<float>(numberOf(18446744073709551615ULL)), "1.84467441e+19");
    EXPECT_EQ(outcome<double>(numberOf(18446744073709551615ULL)), "1.8446744073709552e+19");
}

TEST(IntegerTextToFloating, IsConvertedAsItsInteger) {
    EXPECT_EQ(outcome<double>(numberOf("0")), k_no);
    EXPECT_EQ(outcome<double>(numberOf("-1")), k_no);
    EXPECT_EQ(outcome<float>(numberOf("1")), "1");
    EXPECT_EQ(outcome<double>(numberOf("9999999999999999999")), "1e+19");
    EXPECT_EQ(outcome<double>(numberOf("12345678901234567890")), "text refused");
}

TEST(IntegersToFloating, RoundToNearest) {
    EXPECT_EQ(numberOf(16777217).toFloat(), 16777216.0F);
    EXPECT_EQ(numberOf(16777219U).toFloat(), 16777220.0F);
    EXPECT_EQ(numberOf(9007199254740993LL).toDouble(), 9007199254740992.0);
    EXPECT_EQ(numberOf(9007199254740995ULL).toDouble(), 9007199254740996.0);
}

TEST(Conversion, LeavesTheNumberAsItWas) {
    const BasicNumber number = numberOf("300.50");
    EXPECT_EQ(outcome<char>(number), "refused");
    EXPECT_THROW(number.toChar(), std::exception);
    EXPECT_EQ(number.toString(), "300.50");
    EXPECT_EQ(number.type(), BasicNumber::ebDouble);
    EXPECT_EQ(number.toDouble(), 300.5);
    EXPECT_EQ(number.toShort(), 300);
}

TEST(Conversion, IsRefusedEachTimeUnlikeAText) {
    const BasicNumber number = numberOf(300);
    EXPECT_EQ(outcome<char>(number), "refused");
    EXPECT_THROW(number.toChar(), std::exception);
    EXPECT_THROW(number.toChar(), std::exception);
}

}  // namespace
