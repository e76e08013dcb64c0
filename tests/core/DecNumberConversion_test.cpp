#include <zo/DecNumber.h>

#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "RuntimeErrorText.h"
#include "decimalText.h"
#include "support/notFinite.h"

namespace {

using zo::DecNumber;

constexpr float k_floatInfinity = std::numeric_limits<float>::infinity();

// ---- converting to integers

template <class Integer>
struct Bounds {
    const char* typeName;
    Integer min;
    const char* minText;
    const char* belowMin;
    Integer max;
    const char* maxText;
    const char* aboveMax;
};

template <class Integer>
Integer convertedTo(const std::string& text) {
    const Integer result = DecNumber(text);
    return result;
}

template <class Integer>
std::string misfit(const std::string& text) {
    return runtimeErrorText([&] { convertedTo<Integer>(text); });
}

template <class Integer>
void checkBounds(const Bounds<Integer>& row) {
    SCOPED_TRACE(row.typeName);
    const std::string reason = std::string("Decimal number does not fit into ") + row.typeName;
    EXPECT_EQ(convertedTo<Integer>(row.minText), row.min);
    EXPECT_EQ(convertedTo<Integer>(std::string(row.minText) + ".9"), row.min);
    EXPECT_EQ(misfit<Integer>(row.belowMin), reason + ": \"" + row.belowMin + '"');
    EXPECT_EQ(convertedTo<Integer>(row.maxText), row.max);
    EXPECT_EQ(convertedTo<Integer>(std::string(row.maxText) + ".9"), row.max);
    EXPECT_EQ(misfit<Integer>(row.aboveMax), reason + ": \"" + row.aboveMax + '"');
    EXPECT_EQ(misfit<Integer>("1e+99"), reason + ": \"1e+99\"");
    EXPECT_EQ(misfit<Integer>("-1e999999999"), reason + ": \"-1e+999999999\"");
    EXPECT_EQ(convertedTo<Integer>("1e-999999999"), Integer{0});
}

TEST(DecNumberConversion, ConvertsToCharTypesUpToTheirBounds) {
    checkBounds<char>({"char", -128, "-128", "-129", 127, "127", "128"});
    checkBounds<unsigned char>({"unsigned char", 0, "-0", "-1", 255, "255", "256"});
}

TEST(DecNumberConversion, ConvertsToShortTypesUpToTheirBounds) {
    checkBounds<short>({"short", -32768, "-32768", "-32769", 32767, "32767", "32768"});
    checkBounds<unsigned short>({"unsigned short", 0, "-0", "-1", 65535, "65535", "65536"});
}

TEST(DecNumberConversion, ConvertsToIntTypesUpToTheirBounds) {
    checkBounds<int>({"int", -2147483647 - 1, "-2147483648", "-2147483649", 2147483647,
                      "2147483647", "2147483648"});
    checkBounds<unsigned int>(
        {"unsigned int", 0, "-0", "-1", 4294967295U, "4294967295", "4294967296"});
}

TEST(DecNumberConversion, ConvertsToLongTypesUpToTheirBounds) {
    checkBounds<long>({"long", -9223372036854775807L - 1, "-9223372036854775808",
                       "-9223372036854775809", 9223372036854775807L, "9223372036854775807",
                       "9223372036854775808"});
    checkBounds<unsigned long>({"unsigned long", 0, "-0", "-1", 18446744073709551615UL,
                                "18446744073709551615", "18446744073709551616"});
}

TEST(DecNumberConversion, ConvertsToLongLongTypesUpToTheirBounds) {
    checkBounds<long long>({"long long", -9223372036854775807LL - 1, "-9223372036854775808",
                            "-9223372036854775809", 9223372036854775807LL, "9223372036854775807",
                            "9223372036854775808"});
    checkBounds<unsigned long long>({"unsigned long long", 0, "-0", "-1", 18446744073709551615ULL,
                                     "18446744073709551615", "18446744073709551616"});
}

TEST(DecNumberConversion, ConvertsToIntegersTowardZero) {
    EXPECT_EQ(convertedTo<int>("3.999"), 3);
    EXPECT_EQ(convertedTo<int>("-3.999"), -3);
    EXPECT_EQ(convertedTo<int>("0.999"), 0);
    EXPECT_EQ(convertedTo<unsigned int>("-0.999"), 0U);
    EXPECT_EQ(misfit<unsigned int>("-1.5"),
              R"(Decimal number does not fit into unsigned int: "-1.5")");
    EXPECT_EQ(convertedTo<int>("123456e-3"), 123);
    EXPECT_EQ(convertedTo<int>("12e3"), 12000);
    EXPECT_EQ(convertedTo<unsigned long long>("1e19"), 10000000000000000000ULL);
    EXPECT_EQ(misfit<unsigned long long>("1e20"),
              R"(Decimal number does not fit into unsigned long long: "100000000000000000000")");
}

TEST(DecNumberConversion, ConvertsAMillionDigitsToAnInteger) {
    const std::string digits(1'000'000, '7');
    EXPECT_EQ(convertedTo<int>("7." + digits), 7);
    EXPECT_EQ(convertedTo<int>(digits + "e-999998"), 77);
    EXPECT_THROW(convertedTo<int>(digits), zo::RuntimeError);
}

// ---- converting to floating-point numbers

struct DoubleRow {
    const char* text;
    double value;
};

TEST(DecNumberConversion, ConvertsToTheNearestDouble) {
    const DoubleRow table[] = {
        {"0", 0.0},
        {"0.1", 0x1.999999999999ap-4},
        {"-1.5", -1.5},
        {"123456789012345678901234567890", 0x1.8ee90ff6c373ep+96},
        {"9007199254740993", 9007199254740992.0},  // half way: to even
        {"9007199254740995", 9007199254740996.0},
        {"9007199254740993.0000000000000000000000000000000001", 9007199254740994.0},
        {"1.7976931348623158e308", 0x1.fffffffffffffp+1023},
        {"1.797693134862315807e308", 0x1.fffffffffffffp+1023},
        {"1.797693134862315808e308", k_infinity},
        {"2.2250738585072011e-308", 0x0.fffffffffffffp-1022},
        {"4.9e-324", 0x1p-1074},
        {"2.4703282292062328e-324", 0x1p-1074},
        {"2.4703282292062327e-324", 0.0},
        {"1e309", k_infinity},
        {"-1e309", -k_infinity},
        {"1e999999999", k_infinity},
        {"-1e100000000000000000", -k_infinity},
        {"1e-999999999", 0.0},
        {"1e-100000000000000000", 0.0},
    };
    for (const DoubleRow& row : table) {
        SCOPED_TRACE(row.text);
        const double value = DecNumber(row.text);
        EXPECT_EQ(value, row.value);
    }
}

struct FloatRow {
    const char* text;
    float value;
};

TEST(DecNumberConversion, ConvertsToTheNearestFloat) {
    const FloatRow table[] = {
        {"0", 0.0F},
        {"0.1", 0x1.99999ap-4F},
        {"-1.5", -1.5F},
        {"16777217", 16777216.0F},  // half way: to even
        // Just below half way; rounded to a double first, it would be half way and go up.
        {"1.00000017881393432617187499", 0x1.000002p0F},
        {"1.00000017881393432617187501", 0x1.000004p0F},
        {"3.4028235e38", 0x1.fffffep+127F},
        {"3.4028235677973366e38", 0x1.fffffep+127F},
        {"3.4028235677973367e38", k_floatInfinity},
        {"1e39", k_floatInfinity},
        {"-1e39", -k_floatInfinity},
        {"1e-40", 0x1.16c2p-133F},
        {"1e-45", 0x1p-149F},
        {"1e-46", 0.0F},
        {"1e999999999", k_floatInfinity},
        {"-1e-999999999", 0.0F},
    };
    for (const FloatRow& row : table) {
        SCOPED_TRACE(row.text);
        const float value = DecNumber(row.text);
        EXPECT_EQ(value, row.value);
    }
}

TEST(DecNumberConversion, GivesAZeroItsSignWhenItIsTooSmall) {
    EXPECT_TRUE(std::signbit(static_cast<double>(DecNumber("-1e-999"))));
    EXPECT_FALSE(std::signbit(static_cast<double>(DecNumber("1e-999"))));
    EXPECT_TRUE(std::signbit(static_cast<float>(DecNumber("-1e-999"))));
    EXPECT_FALSE(std::signbit(static_cast<double>(DecNumber("-0.0"))));
}

TEST(DecNumberConversion, ConvertsAMillionDigitsToFloatingPoint) {
    const std::string sevens(1'000'000, '7');
    EXPECT_EQ(static_cast<double>(DecNumber("0." + sevens)), 7.0 / 9);
    EXPECT_EQ(static_cast<float>(DecNumber("0." + sevens)), 7.0F / 9);
    EXPECT_EQ(static_cast<double>(DecNumber(sevens)), k_infinity);
    const std::string zeros(1'000'000, '0');
    EXPECT_EQ(static_cast<double>(DecNumber("9007199254740993." + zeros + "1")),
              9007199254740994.0);
    EXPECT_EQ(static_cast<double>(DecNumber("1" + zeros + "e-1000000")), 1.0);
}

TEST(DecNumberConversion, ReadsBackEveryDoubleItIsMadeFrom) {
    for (const double value : {0.1, 1.0 / 3, 123456789012345680000.0, 5e-324,
                               2.2250738585072014e-308, 1.7976931348623157e308, -0.7}) {
        SCOPED_TRACE(value);
        EXPECT_EQ(static_cast<double>(DecNumber(value)), value);
        EXPECT_EQ(DecNumber(written(DecNumber(value))).compare(DecNumber(value)), 0);
    }
}

}  // namespace
