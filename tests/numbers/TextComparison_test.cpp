#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

#include <zo/Exception.h>

#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

struct TextPair {
    template <class Value>
    TextPair(const char* rowName, Value value, const char* text, int answer)
        : name(rowName),
          compare([value, text] { return BasicNumber::compare(value, std::string(text)); }),
          expected(answer) {}

    const char* name;
    std::function<int()> compare;
    int expected;
};

class ValueWithText : public testing::TestWithParam<TextPair> {};

TEST_P(ValueWithText, ComparesAsExactDecimals) {
    EXPECT_EQ(GetParam().compare(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Signed, ValueWithText,
    testing::Values(TextPair{"Equal", 5LL, "5", 0}, TextPair{"EqualFraction", 5LL, "5.0", 0},
                    TextPair{"EqualExponent", 500LL, "5e2", 0}, TextPair{"Greater", 5LL, "4.99", 1},
                    TextPair{"Smaller", 5LL, "5.01", -1}, TextPair{"Negative", -5LL, "-4.99", -1},
                    TextPair{"ZeroHasNoSign", 0LL, "-0", 0},
                    TextPair{"SmallestExact", -9223372036854775807LL - 1, "-9223372036854775808.1",
                             1},
                    TextPair{"LargestExact", 9223372036854775807LL, "9223372036854775808", -1},
                    TextPair{"BeyondEveryDouble", 9223372036854775807LL, "1e400", -1}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Unsigned, ValueWithText,
    testing::Values(TextPair{"Equal", 5ULL, "5", 0}, TextPair{"Greater", 5ULL, "4.99", 1},
                    TextPair{"Smaller", 5ULL, "5.01", -1}, TextPair{"ZeroHasNoSign", 0ULL, "0", 0},
                    TextPair{"ZeroWithNegative", 0ULL, "-1", 1},
                    TextPair{"LargestEqual", 18446744073709551615ULL, "18446744073709551615", 0},
                    TextPair{"LargestExact", 18446744073709551615ULL, "18446744073709551616", -1}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Double, ValueWithText,
    testing::Values(TextPair{"Equal", 0.5, "0.5", 0}, TextPair{"Greater", 0.5, "0.49", 1},
                    TextPair{"Smaller", -0.5, "0", -1},
                    // A double stands for the shortest decimal that reads back to it.
                    TextPair{"Shortest", 0.1, "0.1", 0},
                    TextPair{"NotTheExactExpansion", 0.1, "0.1000000000000000055511151231257827",
                             -1},
                    TextPair{"BeyondEveryDouble", 1.7976931348623157e308, "1e309", -1}),
    k_rowName);

TEST(ValueWithText, RefusesATextThatIsNoDecimal) {
    for (const char* text : {"", " 5", "5x", "inf", "0x5"}) {
        EXPECT_THROW(BasicNumber::compare(5LL, std::string(text)), zo::RuntimeError) << text;
        EXPECT_THROW(BasicNumber::compare(5ULL, std::string(text)), zo::RuntimeError) << text;
        EXPECT_THROW(BasicNumber::compare(5.0, std::string(text)), zo::RuntimeError) << text;
    }
}

TEST(ValueWithText, RefusesADoubleThatIsNoDecimal) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(BasicNumber::compare(infinity, "5"), zo::RuntimeError);
    EXPECT_THROW(BasicNumber::compare(nan, "5"), zo::RuntimeError);
}

}  // namespace
