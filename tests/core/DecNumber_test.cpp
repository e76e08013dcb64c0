#include <zo/DecNumber.h>

#include <cmath>
#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "RuntimeErrorText.h"
#include "decimalText.h"
#include "support/notFinite.h"
#include "support/rowName.h"

namespace {

using zo::DecNumber;

static_assert(!std::is_convertible_v<std::string, DecNumber>);
static_assert(!std::is_convertible_v<const char*, DecNumber>);
static_assert(!std::is_convertible_v<double, DecNumber>);
static_assert(!std::is_convertible_v<int, DecNumber>);
static_assert(std::is_convertible_v<DecNumber, char>);
static_assert(std::is_convertible_v<DecNumber, int>);
static_assert(std::is_convertible_v<DecNumber, double>);
static_assert(!std::is_convertible_v<DecNumber, bool>, "which number it stands for is not said");
static_assert(std::is_nothrow_move_constructible_v<DecNumber>);
static_assert(std::is_nothrow_move_assignable_v<DecNumber>);

// ---- reading and writing text

struct Reading {
    const char* name;
    const char* text;
    const char* result;  // as written again, or the whole text of the error
};

class Texts : public testing::TestWithParam<Reading> {};

std::string readAndWritten(const std::string& text) {
    std::string result;
    const std::string error = runtimeErrorText([&] { result = written(DecNumber(text)); });
    return error == "nothing thrown" ? result : error;
}

TEST_P(Texts, AreReadAndWrittenOrRefused) {
    EXPECT_EQ(readAndWritten(GetParam().text), GetParam().result);
}

// Each refused text is one step from an accepted one.
const Reading k_syntax[] = {
    {"Digit", "7", "7"},
    {"Empty", "", R"(Not a decimal number: "")"},
    {"Plus", "+7", "7"},
    {"Minus", "-7", "-7"},
    {"SignAlone", "-", R"(Not a decimal number: "-")"},
    {"TwoSigns", "-+7", R"(Not a decimal number: "-+7")"},
    {"SignBehind", "7-", R"(Not a decimal number: "7-")"},
    {"PointAmong", "1.5", "1.5"},
    {"PointBehind", "5.", "5"},
    {"PointBefore", ".5", "0.5"},
    {"SignedPointBefore", "-.5", "-0.5"},
    {"PointAlone", ".", R"(Not a decimal number: ".")"},
    {"SignAndPoint", "-.", R"(Not a decimal number: "-.")"},
    {"TwoPoints", "1.5.", R"(Not a decimal number: "1.5.")"},
    {"Comma", "1,5", R"(Not a decimal number: "1,5")"},
    {"Exponent", "1e2", "100"},
    {"CapitalExponent", "1E2", "100"},
    {"ExponentWithPlus", "1e+2", "100"},
    {"ExponentWithMinus", "1e-2", "0.01"},
    {"ExponentWithZeros", "1e0002", "100"},
    {"ExponentAfterPoint", "5.e1", "50"},
    {"ExponentAfterPointBefore", ".5e1", "5"},
    {"ExponentWithoutDigits", "1e", R"(Not a decimal number: "1e")"},
    {"ExponentSignAlone", "1e+", R"(Not a decimal number: "1e+")"},
    {"ExponentTwoSigns", "1e+-2", R"(Not a decimal number: "1e+-2")"},
    {"ExponentWithPoint", "1e2.0", R"(Not a decimal number: "1e2.0")"},
    {"ExponentTwice", "1e2e3", R"(Not a decimal number: "1e2e3")"},
    {"ExponentAlone", "e2", R"(Not a decimal number: "e2")"},
    {"PointAndExponent", ".e2", R"(Not a decimal number: ".e2")"},
    {"BlankBefore", " 7", R"(Not a decimal number: " 7")"},
    {"BlankBehind", "7 ", R"(Not a decimal number: "7 ")"},
    {"BlankAlone", " ", R"(Not a decimal number: " ")"},
    {"BlankAfterSign", "- 7", R"(Not a decimal number: "- 7")"},
    {"Hexadecimal", "0x7", R"(Not a decimal number: "0x7")"},
    {"Letter", "7a", R"(Not a decimal number: "7a")"},
    {"NotANumber", "nan", R"(Not a decimal number: "nan")"},
    {"Infinity", "inf", R"(Not a decimal number: "inf")"},
};
INSTANTIATE_TEST_SUITE_P(Syntax, Texts, testing::ValuesIn(k_syntax), k_rowName);

const Reading k_zeros[] = {
    {"Zero", "0", "0"},
    {"NegativeZero", "-0", "0"},
    {"NegativeZeroFraction", "-0.00", "0"},
    {"ZeroWithExponent", "0e5", "0"},
    {"LeadingZeros", "007", "7"},
    {"LeadingZerosOfAFraction", "00.0070", "0.007"},
    {"TrailingZerosOfAFraction", "1.500", "1.5"},
    {"TrailingZerosOfAWhole", "1500", "1500"},
    {"FractionOfZeros", "15.00", "15"},
    {"ZerosWithin", "1002.003", "1002.003"},
};
INSTANTIATE_TEST_SUITE_P(Zeros, Texts, testing::ValuesIn(k_zeros), k_rowName);

const Reading k_forms[] = {
    {"SmallestPlain", "1e-7", "0.0000001"},
    {"BelowTheSmallestPlain", "9.9e-8", "9.9e-8"},
    {"LargestPlain", "999999999999999999999.9", "999999999999999999999.9"},
    {"AboveTheLargestPlain", "1000000000000000000000", "1e+21"},
    {"LastPlainPower", "1e20", "100000000000000000000"},
    {"ScientificWithFraction", "-1234567e30", "-1.234567e+36"},
    {"ScientificSmall", "-0.00000000123", "-1.23e-9"},
    {"ScientificTrailingZeros", "1200e30", "1.2e+33"},
    {"PointMovedIn", "123456e-3", "123.456"},
    {"PointMovedToTheEnd", "123.456e3", "123456"},
    {"PointMovedBeyondTheEnd", "1.5e3", "1500"},
    {"ManyDigits", "3.14159265358979323846264338327950288419716939937510",
     "3.1415926535897932384626433832795028841971693993751"},
};
INSTANTIATE_TEST_SUITE_P(Forms, Texts, testing::ValuesIn(k_forms), k_rowName);

// 1e17 is the largest exponent, written and as counted behind the first digit.
const Reading k_hugeExponents[] = {
    {"Largest", "1e100000000000000000", "1e+100000000000000000"},
    {"LargestWritten", "1e100000000000000001",
     R"(Exponent of a decimal number out of range: "1e100000000000000001")"},
    {"LargestCounted", "10e100000000000000000",
     R"(Exponent of a decimal number out of range: "10e100000000000000000")"},
    {"LargestWrittenOnly", "0.1e100000000000000001",
     R"(Exponent of a decimal number out of range: "0.1e100000000000000001")"},
    {"Smallest", "1e-100000000000000000", "1e-100000000000000000"},
    {"SmallestWritten", "1e-100000000000000001",
     R"(Exponent of a decimal number out of range: "1e-100000000000000001")"},
    {"SmallestCounted", "0.1e-100000000000000000",
     R"(Exponent of a decimal number out of range: "0.1e-100000000000000000")"},
    {"ZeroToo", "0e100000000000000001",
     R"(Exponent of a decimal number out of range: "0e100000000000000001")"},
    {"LargestLongLong", "1e9223372036854775807",
     R"(Exponent of a decimal number out of range: "1e9223372036854775807")"},
    {"BeyondLongLong", "1e-9223372036854775809",
     R"(Exponent of a decimal number out of range: "1e-9223372036854775809")"},
};
INSTANTIATE_TEST_SUITE_P(HugeExponents, Texts, testing::ValuesIn(k_hugeExponents), k_rowName);

TEST(DecNumber, RefusesANullCharacterWithinTheText) {
    EXPECT_THROW(DecNumber(std::string("1\0", 2)), zo::RuntimeError);
    EXPECT_THROW(DecNumber(std::string("1\0002", 3)), zo::RuntimeError);
}

TEST(DecNumber, RefusesANullPointer) {
    const char* const none = nullptr;
    EXPECT_EQ(runtimeErrorText([&] { const DecNumber number(none); }),
              "Null pointer exception: text may not be null");
}

TEST(DecNumber, RefusesAnExponentOfAMillionDigits) {
    EXPECT_THROW(DecNumber("1e" + std::string(1'000'000, '9')), zo::RuntimeError);
    EXPECT_THROW(DecNumber("1e-" + std::string(1'000'000, '9')), zo::RuntimeError);
}

TEST(DecNumber, SkipsAMillionZerosOfAnExponent) {
    EXPECT_EQ(written(DecNumber("1e" + std::string(1'000'000, '0') + "3")), "1000");
}

TEST(DecNumber, KeepsAMillionDigits) {
    const std::string digits(1'000'000, '7');
    EXPECT_EQ(written(DecNumber(digits)), "7." + std::string(999'999, '7') + "e+999999");
    EXPECT_EQ(written(DecNumber("-0." + digits)), "-0." + digits);
}

TEST(DecNumber, SkipsAMillionZeros) {
    const std::string zeros(1'000'000, '0');
    EXPECT_EQ(written(DecNumber(zeros + "1." + zeros)), "1");
    EXPECT_EQ(written(DecNumber("0." + zeros + "1")), "1e-1000001");
    EXPECT_EQ(written(DecNumber("1" + zeros)), "1e+1000000");
    EXPECT_EQ(written(DecNumber(zeros)), "0");
}

TEST(DecNumber, IsWrittenAsFormattedOutput) {
    std::ostringstream out;
    out << std::setfill('*') << std::setw(6) << std::hex << std::showpos << std::setprecision(1);
    EXPECT_EQ(&DecNumber("15.5").writeTo(out), &out);
    EXPECT_EQ(out.str(), "**15.5");
}

TEST(DecNumber, DoesNotDependOnALocale) {
    struct Hostile : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\1"; }
    };
    const std::locale former = std::locale::global(std::locale(std::locale(), new Hostile));
    std::ostringstream probe;
    probe << 1234.5;
    EXPECT_EQ(probe.str(), "1.2.3.4,5") << "the locale must be a hostile one";
    EXPECT_EQ(written(DecNumber("1234.5")), "1234.5");
    EXPECT_EQ(written(DecNumber(1234.5)), "1234.5");
    EXPECT_EQ(written(DecNumber(12345)), "12345");
    EXPECT_EQ(written(DecNumber("1e1234")), "1e+1234");
    EXPECT_EQ(static_cast<int>(DecNumber("1234.5")), 1234);
    EXPECT_EQ(static_cast<double>(DecNumber("1234.5")), 1234.5);
    std::locale::global(former);
}

// ---- reading built-in numbers

TEST(DecNumber, IsExactlyTheIntegerItIsMadeFrom) {
    EXPECT_EQ(written(DecNumber(0)), "0");
    EXPECT_EQ(written(DecNumber(-5)), "-5");
    EXPECT_EQ(written(DecNumber('A')), "65");
    EXPECT_EQ(written(DecNumber(static_cast<short>(-7))), "-7");
    EXPECT_EQ(written(DecNumber(4294967295U)), "4294967295");
    EXPECT_EQ(written(DecNumber(-1000L)), "-1000");
    EXPECT_EQ(written(DecNumber(1000UL)), "1000");
    EXPECT_EQ(written(DecNumber(9223372036854775807LL)), "9223372036854775807");
    EXPECT_EQ(written(DecNumber(std::numeric_limits<long long>::min())), "-9223372036854775808");
    EXPECT_EQ(written(DecNumber(18446744073709551615ULL)), "18446744073709551615");
}

TEST(DecNumber, HasTheFewestDigitsThatReadBackToADouble) {
    EXPECT_EQ(written(DecNumber(0.1)), "0.1");
    EXPECT_EQ(written(DecNumber(0.1F)), "0.10000000149011612");
    EXPECT_EQ(written(DecNumber(1.0 / 3)), "0.3333333333333333");
    EXPECT_EQ(written(DecNumber(-0.0)), "0");
    EXPECT_EQ(written(DecNumber(-2.5)), "-2.5");
    EXPECT_EQ(written(DecNumber(100.0)), "100");
    EXPECT_EQ(written(DecNumber(123456789012345680000.0)), "123456789012345680000");
    EXPECT_EQ(written(DecNumber(5e-324)), "5e-324");
    EXPECT_EQ(written(DecNumber(1.7976931348623157e308)), "1.7976931348623157e+308");
}

TEST(DecNumber, RefusesADoubleThatIsNoNumber) {
    EXPECT_EQ(runtimeErrorText([] { DecNumber number(std::nan("")); }),
              R"(Not a decimal number: "nan")");
    EXPECT_EQ(runtimeErrorText([] { DecNumber number(k_infinity); }),
              R"(Not a decimal number: "inf")");
    EXPECT_EQ(runtimeErrorText([] { DecNumber number(-k_infinity); }),
              R"(Not a decimal number: "-inf")");
}

// ---- comparing

int signOf(int value) {
    return (value > 0) - (value < 0);
}

struct Comparison {
    const char* left;
    const char* right;
    int sign;
};

TEST(DecNumber, ComparesByValue) {
    const Comparison table[] = {
        {"1", "1", 0},
        {"1.0", "1", 0},
        {"0", "-0.0", 0},
        {"0e5", "0e-5", 0},
        {"100", "1e2", 0},
        {"0.00012", "12e-5", 0},
        {"1", "2", -1},
        {"-1", "-2", 1},
        {"-1", "1", -1},
        {"0", "1e-100", -1},
        {"0", "-1e-100", 1},
        {"0", "1e100", -1},
        {"9", "10", -1},
        {"-9", "-10", 1},
        {"99", "100.5", -1},
        {"0.1", "0.01", 1},
        {"1.2", "1.25", -1},
        {"-1.2", "-1.25", 1},
        {"123", "12.9", 1},
        {"0.1", "0.1000000000000000055511151231257827", -1},
        {"9007199254740993", "9007199254740992", 1},
        {"1e999999999", "2e999999999", -1},
        {"1e999999999", "9e999999998", 1},
        {"-1e999999999", "1e-999999999", -1},
        {"1e-999999999", "2e-999999999", -1},
        {"1e100000000000000000", "1e-100000000000000000", 1},
    };
    for (const Comparison& row : table) {
        SCOPED_TRACE(std::string(row.left) + " with " + row.right);
        const DecNumber left(row.left);
        const DecNumber right(row.right);
        EXPECT_EQ(signOf(left.compare(right)), row.sign);
        EXPECT_EQ(signOf(right.compare(left)), -row.sign);
        EXPECT_EQ(left.compare(left), 0);
    }
}

TEST(DecNumber, ComparesTheLastOfAMillionDigits) {
    const std::string digits(1'000'000, '3');
    EXPECT_GT(DecNumber(digits + "2").compare(DecNumber(digits + "1")), 0);
    EXPECT_LT(DecNumber("-" + digits + ".2").compare(DecNumber("-" + digits + ".1")), 0);
    EXPECT_EQ(DecNumber(digits + ".0").compare(DecNumber(digits)), 0);
}

TEST(DecNumber, ComparesWhatComesFromDifferentTypes) {
    EXPECT_EQ(DecNumber(0.5).compare(DecNumber("0.5")), 0);
    EXPECT_EQ(DecNumber(0.1).compare(DecNumber("0.1")), 0);
    EXPECT_EQ(DecNumber(5LL).compare(DecNumber(5ULL)), 0);
    EXPECT_LT(DecNumber(-1LL).compare(DecNumber(18446744073709551615ULL)), 0);
}

TEST(DecNumber, CopiesAndMovesItsValue) {
    const DecNumber original("-12.5e30");
    DecNumber copy(original);
    EXPECT_EQ(copy.compare(original), 0);
    DecNumber target(0);
    target = std::move(copy);
    EXPECT_EQ(target.compare(original), 0);
    copy = DecNumber(1);
    EXPECT_EQ(written(copy), "1");
    EXPECT_EQ(written(original), "-1.25e+31");
}

}  // namespace
