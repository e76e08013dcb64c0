#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

#include "exactly.h"
#include "support/HostileLocale.h"
#include "support/NumberOf.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

struct FloatingText {
    const char* name;
    const char* text;
    const char* asFloat;
    const char* asDouble;
};

class FloatingTexts : public testing::TestWithParam<FloatingText> {};

TEST_P(FloatingTexts, GiveTheNearestValue) {
    EXPECT_EQ(exactly<float>(numberOf(GetParam().text)), GetParam().asFloat);
    EXPECT_EQ(exactly<double>(numberOf(GetParam().text)), GetParam().asDouble);
}

TEST_P(FloatingTexts, GiveTheSameUnderAHostileLocale) {
    const HostileLocale locale;
    EXPECT_EQ(exactly<float>(numberOf(GetParam().text)), GetParam().asFloat);
    EXPECT_EQ(exactly<double>(numberOf(GetParam().text)), GetParam().asDouble);
}

INSTANTIATE_TEST_SUITE_P(
    Ordinary, FloatingTexts,
    testing::Values(FloatingText{"Zero", "0", "0", "0"},
                    FloatingText{"NegativeZero", "-0", "-0", "-0"},
                    FloatingText{"NegativeZeroWithAPoint", "-0.0", "-0", "-0"},
                    FloatingText{"ZeroWithAbsurdExponent", "0e99999999999999999999", "0", "0"},
                    FloatingText{"Integer", "42", "42", "42"},
                    FloatingText{"NegativeInteger", "-42", "-42", "-42"},
                    FloatingText{"Plus", "+2.5", "2.5", "2.5"},
                    FloatingText{"LeadingZeros", "002.5", "2.5", "2.5"},
                    FloatingText{"NothingBehindThePoint", "5.", "5", "5"},
                    FloatingText{"NothingBeforeIt", "-.5", "-0.5", "-0.5"},
                    FloatingText{"Exponent", "-1.5E+3", "-1500", "-1500"},
                    FloatingText{"OneTenth", "0.1", "0.100000001", "0.10000000000000001"},
                    FloatingText{"TwentyDigits", "12345678901234567890", "1.23456794e+19",
                                 "1.2345678901234567e+19"},
                    FloatingText{"ManyDigits", "0.333333333333333333333333333333333333333333333",
                                 "0.333333343", "0.33333333333333331"}),
    k_rowName);

// On either side of what decides: a tie, which goes to the even neighbour, and a digit beyond it.
INSTANTIATE_TEST_SUITE_P(
    Ties, FloatingTexts,
    testing::Values(
        FloatingText{"OfAFloatDown", "16777217", "16777216", "16777217"},
        FloatingText{"OfAFloatUp", "16777219", "16777220", "16777219"},
        FloatingText{"OfAFloatExceeded", "16777217.00000000000000001", "16777218", "16777217"},
        FloatingText{"OfADoubleDown", "9007199254740993", "9.00719925e+15", "9007199254740992"},
        FloatingText{"OfADoubleUp", "9007199254740995", "9.00719925e+15", "9007199254740996"},
        FloatingText{"OfADoubleExceeded", "9007199254740993.00000000000000000001", "9.00719925e+15",
                     "9007199254740994"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Bounds, FloatingTexts,
    testing::Values(
        FloatingText{"LargestFloat", "3.4028234663852886e38", "3.40282347e+38",
                     "3.4028234663852886e+38"},
        FloatingText{"LargestRoundedToAFloat", "3.4028235677973366e38", "3.40282347e+38",
                     "3.4028235677973366e+38"},
        FloatingText{"BeyondFloat", "3.4028235677973367e38", "refused", "3.4028235677973366e+38"},
        FloatingText{"NegativeBeyondFloat", "-1e39", "refused", "-9.9999999999999994e+38"},
        FloatingText{"LargestDouble", "1.7976931348623157e308", "refused",
                     "1.7976931348623157e+308"},
        FloatingText{"LargestRoundedToADouble", "-1.7976931348623158e308", "refused",
                     "-1.7976931348623157e+308"},
        FloatingText{"BeyondDouble", "1.7976931348623159e308", "refused", "refused"},
        FloatingText{"NegativeBeyondDouble", "-1e400", "refused", "refused"},
        FloatingText{"AbsurdExponent", "1e99999999999999999999", "refused", "refused"},
        FloatingText{"DenormalFloat", "1e-45", "1.40129846e-45", "9.9999999999999998e-46"},
        FloatingText{"TooSmallForFloat", "7e-46", "0", "7.0000000000000004e-46"},
        FloatingText{"DenormalDouble", "-1e-310", "-0", "-9.9999999999999694e-311"},
        FloatingText{"SmallestDouble", "2.4703282292062328e-324", "0", "4.9406564584124654e-324"},
        FloatingText{"TooSmallForDouble", "2.4703282292062327e-324", "0", "0"},
        FloatingText{"NegativeTooSmall", "-1e-400", "-0", "-0"},
        FloatingText{"AbsurdNegativeExponent", "-1e-99999999999999999999", "-0", "-0"}),
    k_rowName);

TEST(ExactFloating, IsNotReadFromATextThatIsNoDecimal) {
    for (const char* const text :
         {"abc", " 1.5", "1.5 ",     "\n1.5", "1.5f",   "0x1p3", "0x1.8",
          "inf", "-inf", "infinity", "nan",   "nan(1)", "1e",    "1.5e+",
          "e5",  ".",    "-",        "+-1.5", "1,5",    "1.5.",  "1.234.567,5"}) {
        EXPECT_EQ(exactly<float>(numberOf(text)), "refused") << text;
        EXPECT_EQ(exactly<double>(numberOf(text)), "refused") << text;
        EXPECT_EQ(exactly<long double>(numberOf(text)), "refused") << text;
    }
    EXPECT_EQ(asTold<double>(numberOf("")), "refused");
    BasicNumber withZeroByte;
    withZeroByte.set("1.5\0", 4);
    EXPECT_EQ(exactly<double>(withZeroByte), "refused");
}

TEST(ExactFloating, IsTheNearestOfAnInteger) {
    EXPECT_EQ(exactly<double>(numberOf(0)), "0");
    EXPECT_EQ(exactly<float>(numberOf(-42)), "-42");
    EXPECT_EQ(exactly<float>(numberOf(16777217)), "16777216");
    EXPECT_EQ(exactly<float>(numberOf(16777219U)), "16777220");
    EXPECT_EQ(exactly<double>(numberOf(9007199254740993LL)), "9007199254740992");
    EXPECT_EQ(exactly<double>(numberOf(-9007199254740995LL)), "-9007199254740996");
    EXPECT_EQ(exactly<double>(numberOf(9223372036854775807LL)), "9.2233720368547758e+18");
    EXPECT_EQ(exactly<double>(numberOf(18446744073709551615ULL)), "1.8446744073709552e+19");
    EXPECT_EQ(exactly<float>(numberOf(18446744073709551615ULL)), "1.84467441e+19");
}

TEST(ExactFloating, IsEveryDoubleThatWasSet) {
    for (const double value :
         {0.0, -0.0, 0.1, -2.5, 1.0 / 3, 1234567.0, 1e21, 1e-7, 5e-324, 2.2250738585072014e-308,
          -1.7976931348623157e308, std::nextafter(1.0, 2.0), 0x1p63}) {
        const BasicNumber number = numberOf(value);
        EXPECT_EQ(number.as<double>(), value);
        EXPECT_EQ(std::signbit(number.as<double>()), std::signbit(value));
        EXPECT_EQ(exactly<double>(number), allDigits(value));
    }
}

TEST(ExactFloating, IsEveryFloatThatWasSet) {
    for (const float value : {0.1F, -1.0F / 3, 16777217.0F, 1e-45F, 3.4028235e38F}) {
        EXPECT_EQ(numberOf(value).as<float>(), value);
        EXPECT_EQ(exactly<float>(numberOf(value)), allDigits(value));
    }
}

TEST(ExactFloating, IsTheNearestFloatOfADouble) {
    EXPECT_EQ(exactly<float>(numberOf(0.1)), "0.100000001");
    EXPECT_EQ(exactly<float>(numberOf(16777217.0)), "16777216");
    EXPECT_EQ(exactly<float>(numberOf(3.4028235677973362e38)), "3.40282347e+38");
    EXPECT_EQ(exactly<float>(numberOf(3.4028235677973366e38)), "refused");
    EXPECT_EQ(exactly<float>(numberOf(-1e300)), "refused");
    EXPECT_EQ(exactly<float>(numberOf(-1e-300)), "-0");
}

TEST(ExactFloating, IsNoNaNAndNoInfinity) {
    for (const double value : {std::nan(""), -std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_EQ(exactly<float>(numberOf(value)), "refused");
        EXPECT_EQ(exactly<double>(numberOf(value)), "refused");
        EXPECT_EQ(exactly<long double>(numberOf(value)), "refused");
    }
}

TEST(ExactLongDouble, HasAsManyDigitsAsItsTypeHolds) {
    EXPECT_EQ(numberOf("0.1").as<long double>(), 0.1L);
    EXPECT_EQ(numberOf("-12345678901234567890.5").as<long double>(), -12345678901234567890.5L);
    EXPECT_EQ(numberOf("18446744073709551615").as<long double>(), 18446744073709551615.0L);
    EXPECT_EQ(numberOf(18446744073709551615ULL).as<long double>(), 18446744073709551615.0L);
    EXPECT_EQ(numberOf(-9223372036854775807LL).as<long double>(), -9223372036854775807.0L);
    EXPECT_EQ(numberOf(1.0 / 3).as<long double>(), static_cast<long double>(1.0 / 3));
    EXPECT_EQ(exactly<long double>(numberOf("0.1")), allDigits(0.1L));
    EXPECT_EQ(exactly<long double>(numberOf("0.333333333333333333333")),
              allDigits(0.333333333333333333333L));
    EXPECT_EQ(exactly<long double>(numberOf(1.0 / 3)),
              allDigits(static_cast<long double>(1.0 / 3)));
    EXPECT_EQ(exactly<long double>(numberOf("-0")), "-0");
}

TEST(ExactLongDouble, IsThatOfTheTextWhereSixDigitsAreTheWholeDouble) {
    EXPECT_EQ(numberOf(0.1).as<long double>(), 0.1L);
    EXPECT_EQ(exactly<long double>(numberOf(0.1)), allDigits(0.1L));
    EXPECT_EQ(exactly<long double>(numberOf(1e22)), allDigits(1e22L));
}

TEST(ExactLongDouble, IsRefusedBeyondItsRange) {
    EXPECT_EQ(exactly<long double>(numberOf("1e5000")), "refused");
    EXPECT_EQ(exactly<long double>(numberOf("-1e99999999999999999999")), "refused");
    EXPECT_EQ(exactly<long double>(numberOf("-1e-5000")), "-0");
    if (std::numeric_limits<long double>::max_exponent10 > 400) {
        EXPECT_EQ(exactly<long double>(numberOf("1e400")),
                  allDigits(std::strtold("1e400", nullptr)));
    }
}

TEST(ExactLongDouble, IsReadWithAPointUnderAHostileLocale) {
    const HostileLocale locale;
    EXPECT_EQ(std::strtold("1.5", nullptr), 1.0L);
    EXPECT_EQ(numberOf("1234567.5").as<long double>(), 1234567.5L);
    EXPECT_EQ(numberOf("-1.5e-1").as<long double>(), -0.15L);
    EXPECT_EQ(exactly<long double>(numberOf("1,5")), "refused");
}

}  // namespace
