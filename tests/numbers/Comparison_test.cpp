#include <zo/Tessera/BasicNumber.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include <zo/Tessera/Exception.h>

#include "support/NumberOf.h"
#include "support/notFinite.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

static_assert(std::is_same_v<decltype(BasicNumber().compare(BasicNumber())), int>);

constexpr long long k_minSigned = -9223372036854775807LL - 1;
constexpr long long k_maxSigned = 9223372036854775807LL;
constexpr unsigned long long k_maxUnsigned = 18446744073709551615ULL;

/// The operand of the members and functions for built-in values.
/// @{
long long operand(int value) {
    return value;
}
long long operand(long long value) {
    return value;
}
unsigned long long operand(unsigned int value) {
    return value;
}
unsigned long long operand(unsigned long long value) {
    return value;
}
double operand(float value) {
    return value;
}
double operand(double value) {
    return value;
}
/// @}

/// Every way to compare two values, which must all answer the same.
template <class Left, class Right>
std::vector<int> answers(Left left, Right right) {
    std::vector<int> all{numberOf(left).compare(numberOf(right))};
    if constexpr (!std::is_same_v<Right, const char*>) {
        all.push_back(numberOf(left).compare(operand(right)));
        if constexpr (!std::is_same_v<Left, const char*>) {
            using L = decltype(operand(left));
            using R = decltype(operand(right));
            if constexpr ((std::is_same_v<L, long long> && !std::is_same_v<R, long long>) ||
                          (std::is_same_v<L, unsigned long long> && std::is_same_v<R, double>)) {
                all.push_back(BasicNumber::compare(operand(left), operand(right)));
            }
        }
    }
    return all;
}

struct Pair {
    template <class Left, class Right>
    Pair(const char* rowName, Left left, Right right, int leftWithRight, int rightWithLeft)
        : name(rowName),
          forward([left, right] { return answers(left, right); }),
          backward([left, right] { return answers(right, left); }),
          expected(leftWithRight),
          expectedBackward(rightWithLeft) {}

    const char* name;
    std::function<std::vector<int>()> forward;
    std::function<std::vector<int>()> backward;
    int expected;
    int expectedBackward;
};

class ComparedPairs : public testing::TestWithParam<Pair> {};

TEST_P(ComparedPairs, AnswerMinusOneZeroOrOneInBothDirections) {
    EXPECT_THAT(GetParam().forward(), testing::Each(GetParam().expected));
    EXPECT_THAT(GetParam().backward(), testing::Each(GetParam().expectedBackward));
}

INSTANTIATE_TEST_SUITE_P(
    SignedWithSigned, ComparedPairs,
    testing::Values(Pair{"Smaller", -2, 1, -1, 1}, Pair{"Equal", -2, -2, 0, 0},
                    Pair{"Zeros", 0, 0LL, 0, 0}, Pair{"Far", k_minSigned, k_maxSigned, -1, 1},
                    Pair{"Exact", 9007199254740992LL, 9007199254740993LL, -1, 1}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(UnsignedWithUnsigned, ComparedPairs,
                         testing::Values(Pair{"Smaller", 1U, 2U, -1, 1},
                                         Pair{"Equal", 2U, "2", 0, 0}, Pair{"Zeros", 0U, "0", 0, 0},
                                         Pair{"Far", 0U, k_maxUnsigned, -1, 1},
                                         Pair{"Exact", k_maxUnsigned - 1, k_maxUnsigned, -1, 1}),
                         k_rowName);

// A signed 0 is smaller than the unsigned 0: the refusal of signed zeros by the unsigned
// conversions rests on it.
INSTANTIATE_TEST_SUITE_P(
    SignedWithUnsigned, ComparedPairs,
    testing::Values(Pair{"Smaller", 1, 2U, -1, 1}, Pair{"Equal", 5, "5", 0, 0},
                    Pair{"Greater", 2, 1U, 1, -1}, Pair{"OneWithZero", 1, 0U, 1, -1},
                    Pair{"Zeros", 0, 0U, -1, 1}, Pair{"ZeroWithTextZero", 0, "0", -1, 1},
                    Pair{"TextMinusZero", "-0", "0", -1, 1},
                    Pair{"MinusOneWithZero", -1, 0U, -1, 1},
                    Pair{"MinusOneWithTheSameBits", -1, k_maxUnsigned, -1, 1},
                    Pair{"LargestEqual", k_maxSigned, 9223372036854775807ULL, 0, 0},
                    Pair{"LargestSmaller", k_maxSigned, 9223372036854775808ULL, -1, 1},
                    Pair{"SmallestWithTheSameBits", k_minSigned, 9223372036854775808ULL, -1, 1}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    SignedWithDouble, ComparedPairs,
    testing::Values(Pair{"Smaller", -2, -1.5, -1, 1}, Pair{"Equal", -2, -2.0, 0, 0},
                    Pair{"Greater", 2, 1.5, 1, -1}, Pair{"Zeros", 0, 0.0, 0, 0},
                    Pair{"MinusZero", 0, -0.0, 0, 0},
                    Pair{"RoundedDown", 9007199254740993LL, 9007199254740992.0, 0, 0},
                    Pair{"RoundedUp", 9007199254740995LL, 9007199254740996.0, 0, 0},
                    Pair{"LargestRoundsUp", k_maxSigned, 9223372036854775808.0, 0, 0},
                    Pair{"Infinity", k_maxSigned, k_infinity, -1, 1},
                    Pair{"MinusInfinity", k_minSigned, -k_infinity, 1, -1},
                    Pair{"NotANumber", 5, k_nan, 0, 0}, Pair{"Text", 5, "5.1", -1, 1}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    UnsignedWithDouble, ComparedPairs,
    testing::Values(Pair{"Smaller", 1U, 1.5, -1, 1}, Pair{"Equal", "1", "1.0", 0, 0},
                    Pair{"Greater", 2U, 1.5, 1, -1}, Pair{"Zeros", 0U, 0.0, 0, 0},
                    Pair{"MinusZero", 0U, -0.0, 0, 0}, Pair{"ZeroWithNegative", 0U, -0.5, 1, -1},
                    Pair{"ZeroWithSmallestNegative", 0U, -5e-324, 1, -1},
                    Pair{"NegativeOfTheSameBits", k_maxUnsigned, -1.0, 1, -1},
                    Pair{"ConvertedAsUnsigned", k_maxUnsigned, 1e19, 1, -1},
                    Pair{"RoundedDown", 9007199254740993ULL, 9007199254740992.0, 0, 0},
                    Pair{"LargestRoundsUp", k_maxUnsigned, 18446744073709551616.0, 0, 0},
                    Pair{"Infinity", k_maxUnsigned, k_infinity, -1, 1},
                    Pair{"MinusInfinity", 0U, -k_infinity, 1, -1},
                    Pair{"NotANumber", 0U, k_nan, 0, 0}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(DoubleWithDouble, ComparedPairs,
                         testing::Values(Pair{"Smaller", -1.5, 1.25, -1, 1},
                                         Pair{"Equal", 0.5, "5e-1", 0, 0},
                                         Pair{"ZeroAndMinusZero", 0.0, -0.0, 0, 0},
                                         Pair{"Float", 0.1F, 0.1, 1, -1},
                                         Pair{"Infinities", k_infinity, k_infinity, 0, 0},
                                         Pair{"OppositeInfinities", -k_infinity, k_infinity, -1, 1},
                                         Pair{"NotANumber", k_nan, 1.5, 0, 0},
                                         Pair{"NotANumberWithInfinity", k_nan, k_infinity, 0, 0},
                                         Pair{"TwoNotANumber", k_nan, k_nan, 0, 0}),
                         k_rowName);

TEST(Comparison, OfANumberWithItselfIsZero) {
    for (const char* text : {"5", "-5", "0", "0.5"}) {
        const BasicNumber number = numberOf(text);
        EXPECT_EQ(number.compare(number), 0);
    }
}

TEST(Comparison, GoesByValueAndNotByText) {
    EXPECT_EQ(numberOf("007").compare(numberOf("7")), 0);
    EXPECT_EQ(numberOf("1.50").compare(numberOf("15e-1")), 0);
    EXPECT_EQ(numberOf("10").compare(numberOf("9")), 1);
}

using TextOutOfRange = ValueOutOfRange<std::string, std::string>;

TEST(Comparison, PassesOnTheRefusalOfEitherText) {
    const BasicNumber good = numberOf("1");
    EXPECT_EQ(thrown<TextOutOfRange>([&] { numberOf("12345678901234567890").compare(good); }),
              "Value out of range! Value: 12345678901234567890 Min:  Max: ");
    EXPECT_EQ(thrown<TextOutOfRange>([&] { good.compare(numberOf("-123456789012345678")); }),
              "Value out of range! Value: -123456789012345678 Min:  Max: ");
    EXPECT_EQ(thrown<TextOutOfRange>([&] { good.compare(numberOf("-1e400")); }),
              "Value out of range! Value: -1e400 Min:  Max: ");
}

TEST(Comparison, ReadsTheOperandBeforeThisNumber) {
    const BasicNumber left = numberOf("1e400");
    const BasicNumber right = numberOf("2e400");
    EXPECT_EQ(thrown<TextOutOfRange>([&] { left.compare(right); }),
              "Value out of range! Value: 2e400 Min:  Max: ");
    EXPECT_EQ(thrown<TextOutOfRange>([&] { left.compare(right); }),
              "Value out of range! Value: 1e400 Min:  Max: ");
    EXPECT_EQ(left.compare(right), 0);  // of the zeros that both held before
}

TEST(Comparison, KeepsBothTexts) {
    const BasicNumber left = numberOf("1.50");
    const BasicNumber right = numberOf("007");
    EXPECT_EQ(left.compare(right), -1);
    EXPECT_EQ(left.toString(), "1.50");
    EXPECT_EQ(right.toString(), "007");
}

}  // namespace
