#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <type_traits>

#include <zo/DecNumber.h>

#include "exactly.h"
#include "support/NumberOf.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

/// The same whole number, not as a text: as a `long long`, or else as an `unsigned long long`.
BasicNumber binaryOf(const std::string& digits) {
    return digits.front() == '-' ? numberOf(std::strtoll(digits.c_str(), nullptr, 10))
                                 : numberOf(std::strtoull(digits.c_str(), nullptr, 10));
}

struct Range {
    const char* name;
    std::string (*told)(const BasicNumber&);
    std::string below;
    std::string min;
    std::string max;
    std::string above;
};

class IntegerTypes : public testing::TestWithParam<Range> {};

TEST_P(IntegerTypes, GetEachOfTheirBoundsAndNothingBeyondFromText) {
    const Range& range = GetParam();
    EXPECT_EQ(range.told(numberOf(range.below)), "refused");
    EXPECT_EQ(range.told(numberOf(range.min)), range.min);
    EXPECT_EQ(range.told(numberOf(range.max)), range.max);
    EXPECT_EQ(range.told(numberOf(range.above)), "refused");
}

TEST_P(IntegerTypes, GetTheSameFromTextWithAnExponent) {
    const Range& range = GetParam();
    EXPECT_EQ(range.told(numberOf(range.below + "0e-1")), "refused");
    EXPECT_EQ(range.told(numberOf(range.min + ".00e0")), range.min);
    EXPECT_EQ(range.told(numberOf(range.max + "0e-1")), range.max);
    EXPECT_EQ(range.told(numberOf(range.above + ".0")), "refused");
}

TEST_P(IntegerTypes, GetTheSameFromIntegers) {
    const Range& range = GetParam();
    EXPECT_EQ(range.told(binaryOf(range.min)), range.min);
    EXPECT_EQ(range.told(binaryOf(range.max)), range.max);
    if (range.below != "-9223372036854775809") {
        EXPECT_EQ(range.told(binaryOf(range.below)), "refused");
    }
    if (range.above != "18446744073709551616") {
        EXPECT_EQ(range.told(binaryOf(range.above)), "refused");
    }
}

TEST_P(IntegerTypes, GetZeroHoweverItIsHeld) {
    const auto told = GetParam().told;
    EXPECT_EQ(told(numberOf("0")), "0");
    EXPECT_EQ(told(numberOf("-0")), "0");
    EXPECT_EQ(told(numberOf("-0.0")), "0");
    EXPECT_EQ(told(numberOf(0)), "0");
    EXPECT_EQ(told(numberOf(0U)), "0");
    EXPECT_EQ(told(numberOf(0.0)), "0");
    EXPECT_EQ(told(numberOf(-0.0)), "0");
    EXPECT_EQ(told(BasicNumber()), "0");
}

constexpr bool k_wideIsSigned = std::is_signed_v<wchar_t>;

INSTANTIATE_TEST_SUITE_P(
    BasicNumber, IntegerTypes,
    testing::Values(
        Range{"Char", exactly<char>, "-129", "-128", "127", "128"},
        Range{"SignedChar", exactly<signed char>, "-129", "-128", "127", "128"},
        Range{"UnsignedChar", exactly<unsigned char>, "-1", "0", "255", "256"},
        Range{"WideChar", exactly<wchar_t>, k_wideIsSigned ? "-2147483649" : "-1",
              k_wideIsSigned ? "-2147483648" : "0", k_wideIsSigned ? "2147483647" : "4294967295",
              k_wideIsSigned ? "2147483648" : "4294967296"},
        Range{"Char16", exactly<char16_t>, "-1", "0", "65535", "65536"},
        Range{"Char32", exactly<char32_t>, "-1", "0", "4294967295", "4294967296"},
        Range{"Short", exactly<short>, "-32769", "-32768", "32767", "32768"},
        Range{"UnsignedShort", exactly<unsigned short>, "-1", "0", "65535", "65536"},
        Range{"Int", exactly<int>, "-2147483649", "-2147483648", "2147483647", "2147483648"},
        Range{"UnsignedInt", exactly<unsigned int>, "-1", "0", "4294967295", "4294967296"},
        Range{"Long", exactly<long>, "-9223372036854775809", "-9223372036854775808",
              "9223372036854775807", "9223372036854775808"},
        Range{"UnsignedLong", exactly<unsigned long>, "-1", "0", "18446744073709551615",
              "18446744073709551616"},
        Range{"LongLong", exactly<long long>, "-9223372036854775809", "-9223372036854775808",
              "9223372036854775807", "9223372036854775808"},
        Range{"UnsignedLongLong", exactly<unsigned long long>, "-1", "0", "18446744073709551615",
              "18446744073709551616"}),
    k_rowName);

struct ExactIntegerText {
    const char* name;
    std::string text;
    const char* asSigned;
    const char* asUnsigned;
};

class ExactIntegerTexts : public testing::TestWithParam<ExactIntegerText> {};

TEST_P(ExactIntegerTexts, AreReadExactlyOrRefused) {
    EXPECT_EQ(exactly<long long>(numberOf(GetParam().text)), GetParam().asSigned);
    EXPECT_EQ(exactly<unsigned long long>(numberOf(GetParam().text)), GetParam().asUnsigned);
}

INSTANTIATE_TEST_SUITE_P(
    Whole, ExactIntegerTexts,
    testing::Values(
        ExactIntegerText{"Exponent", "1e3", "1000", "1000"},
        ExactIntegerText{"CapitalExponent", "1E+3", "1000", "1000"},
        ExactIntegerText{"PointMadeUpFor", "1.50e1", "15", "15"},
        ExactIntegerText{"ExponentMadeUpFor", "100e-2", "1", "1"},
        ExactIntegerText{"NegativeExponent", "-2500e-2", "-25", "refused"},
        ExactIntegerText{"ZeroWithHugeExponent", "0e99999999999999999999", "0", "0"},
        ExactIntegerText{"ZeroWithHugeNegativeExponent", "-0.00e-99999999999999999999", "0", "0"},
        ExactIntegerText{"Plus", "+5", "5", "5"}, ExactIntegerText{"LeadingZeros", "007", "7", "7"},
        ExactIntegerText{"NegativeLeadingZeros", "-007", "-7", "refused"},
        ExactIntegerText{"NothingBehindThePoint", "5.", "5", "5"},
        ExactIntegerText{"NothingBeforeIt", ".5e1", "5", "5"},
        ExactIntegerText{"ThirtyLeadingZeros", "0000000000000000000000000000007", "7", "7"},
        ExactIntegerText{"FractionOfZeros", "7.000000000000000000000000000000", "7", "7"},
        ExactIntegerText{"ThirtyZerosAndExponent", "0.00000000000000000000000000000012e32", "12",
                         "12"},
        ExactIntegerText{"ManyZerosTakenBack", "12000000000000000000000000000000e-30", "12", "12"},
        ExactIntegerText{"LargestSigned", "92233720368547758.07e2", "9223372036854775807",
                         "9223372036854775807"},
        ExactIntegerText{"SmallestSigned", "-9.223372036854775808e18", "-9223372036854775808",
                         "refused"},
        ExactIntegerText{"LargestUnsigned", "1.8446744073709551615e+19", "refused",
                         "18446744073709551615"},
        ExactIntegerText{"NineteenZeros", "1e19", "refused", "10000000000000000000"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Refused, ExactIntegerTexts,
    testing::Values(
        ExactIntegerText{"OneHalf", "1.5", "refused", "refused"},
        ExactIntegerText{"NearlyOne", "0.99999999999999999999999999", "refused", "refused"},
        ExactIntegerText{"OneTenth", "1e-1", "refused", "refused"},
        ExactIntegerText{"OneTenthOfTwelve", "0.00000000000000000000000000000012e31", "refused",
                         "refused"},
        ExactIntegerText{"OneBeyondLargestSigned", "92233720368547758.08e2", "refused",
                         "9223372036854775808"},
        ExactIntegerText{"OneBeyondLargestUnsigned", "1.8446744073709551616e19", "refused",
                         "refused"},
        ExactIntegerText{"TwentyZeros", "1e20", "refused", "refused"},
        ExactIntegerText{"HugeExponent", "1e400", "refused", "refused"},
        ExactIntegerText{"AbsurdExponent", "1e99999999999999999999", "refused", "refused"},
        ExactIntegerText{"AbsurdNegativeExponent", "1e-99999999999999999999", "refused", "refused"},
        ExactIntegerText{"FortyDigits", "1234567890123456789012345678901234567890", "refused",
                         "refused"}),
    k_rowName);

TEST(ExactInteger, IsNotReadFromATextThatIsNoDecimal) {
    const std::string zeroByte("1\0", 2);
    for (const std::string& text :
         {std::string("abc"),   std::string(" 1"),    std::string("1 "),
          std::string("\t1"),   std::string("1x"),    std::string("0x10"),
          std::string("1e"),    std::string("1e+"),   std::string("e5"),
          std::string("."),     std::string("-"),     std::string("+"),
          std::string("--1"),   std::string("+-1"),   std::string("1,000"),
          std::string("1.2.3"), std::string("1e1.0"), std::string("1e1e1"),
          std::string("nan"),   std::string("inf"),   zeroByte}) {
        EXPECT_EQ(exactly<long long>(numberOf(text)), "refused") << text;
        EXPECT_EQ(exactly<unsigned char>(numberOf(text)), "refused") << text;
    }
    EXPECT_EQ(asTold<long long>(numberOf("")), "refused");
}

TEST(ExactInteger, IsReadFromADoubleThatIsWhole) {
    EXPECT_EQ(exactly<int>(numberOf(1000.0)), "1000");
    EXPECT_EQ(exactly<int>(numberOf(-3.0F)), "-3");
    EXPECT_EQ(exactly<unsigned int>(numberOf(4294967295.0)), "4294967295");
    EXPECT_EQ(exactly<unsigned int>(numberOf(4294967296.0)), "refused");
    EXPECT_EQ(exactly<signed char>(numberOf(-129.0)), "refused");
    EXPECT_EQ(exactly<int>(numberOf(1.5)), "refused");
    EXPECT_EQ(exactly<int>(numberOf(1.0000001)), "refused");  // whose text is "1"
    EXPECT_EQ(exactly<int>(numberOf(5e-324)), "refused");
    EXPECT_EQ(exactly<long long>(numberOf(1234567.0)), "1234567");  // its text "1.23457e+06"
    EXPECT_EQ(exactly<long long>(numberOf(1152921504606846976.0)), "1152921504606846976");
}

TEST(ExactInteger, IsReadFromADoubleBelowTwoToThe63Or64Only) {
    const double below63 = std::nextafter(0x1p63, 0);
    EXPECT_EQ(exactly<long long>(numberOf(below63)), "9223372036854774784");
    EXPECT_EQ(exactly<long long>(numberOf(0x1p63)), "refused");
    EXPECT_EQ(exactly<long long>(numberOf(-0x1p63)), "-9223372036854775808");
    EXPECT_EQ(exactly<long long>(numberOf(std::nextafter(-0x1p63, -1e300))), "refused");
    EXPECT_EQ(exactly<unsigned long long>(numberOf(0x1p63)), "9223372036854775808");
    const double below64 = std::nextafter(0x1p64, 0);
    EXPECT_EQ(exactly<unsigned long long>(numberOf(below64)), "18446744073709549568");
    EXPECT_EQ(exactly<unsigned long long>(numberOf(0x1p64)), "refused");
    EXPECT_EQ(exactly<unsigned long long>(numberOf(-1.0)), "refused");
    EXPECT_EQ(exactly<long long>(numberOf(1e300)), "refused");
}

TEST(ExactInteger, IsNotReadFromANaNOrAnInfinity) {
    for (const double value : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_EQ(exactly<int>(numberOf(value)), "refused");
        EXPECT_EQ(exactly<unsigned long long>(numberOf(value)), "refused");
    }
}

TEST(ExactInteger, AgreesWithTheExactDecimalForEveryShortText) {
    const std::string alphabet = "019.e-+";
    size_t read = 0;
    std::string text;
    const auto check = [&] {
        std::string expected = "refused";
        try {
            const zo::DecNumber decimal(text);
            const long long whole = static_cast<long long>(decimal);
            if (zo::DecNumber(whole).compare(decimal) == 0) {
                expected = std::to_string(whole);
                ++read;
            }
        } catch (const zo::RuntimeError&) {  // no decimal, or too large
        }
        ASSERT_EQ(asTold<long long>(numberOf(text)), expected) << text;
    };
    for (size_t number = 1; number < 7 * 7 * 7 * 7 * 7; ++number) {
        text.clear();
        for (size_t rest = number; rest > 0; rest /= alphabet.size()) {
            text += alphabet[rest % alphabet.size()];
        }
        check();
    }
    EXPECT_GT(read, 1000U);
}

}  // namespace
