#include <gtest/gtest.h>

#include <string>

#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Exception.h>

#include "hostile/million.h"
#include "numbers/exactly.h"
#include "support/NumberOf.h"
#include "support/rowName.h"

using namespace zo::Tessera;

// Exact conversions of numbers of a million digits, and of exponents that nobody could write out.

namespace {

const std::string k_zeros(k_million, '0');

std::string conversions(const std::string& text) {
    const BasicNumber number = numberOf(text);
    return asTold<signed char>(number) + ' ' + asTold<long long>(number) + ' ' +
           asTold<unsigned long long>(number) + ' ' + asTold<float>(number) + ' ' +
           asTold<double>(number);
}

struct LargeExactNumber {
    const char* name;
    std::string text;
    std::string told;
};

constexpr const char* k_allRefused = "refused refused refused refused refused";

class HugeExactNumbers : public testing::TestWithParam<LargeExactNumber> {};

TEST_P(HugeExactNumbers, AreConvertedOrRefused) {
    EXPECT_EQ(conversions(GetParam().text), GetParam().told);
}

TEST_P(HugeExactNumbers, KeepTheirText) {
    const BasicNumber number = numberOf(GetParam().text);
    EXPECT_TRUE(number.as<std::string>() == GetParam().text);
    EXPECT_TRUE(number.tryAs<std::string>() == GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Hostile, HugeExactNumbers,
    testing::Values(
        LargeExactNumber{"AMillionDigits", k_sevens, k_allRefused},
        LargeExactNumber{"AMillionZeros", "-" + k_zeros, "0 0 0 -0 -0"},
        LargeExactNumber{"AMillionZerosBefore", "-" + k_zeros + "7", "-7 -7 refused -7 -7"},
        LargeExactNumber{"AMillionZerosBehindThePoint", "7." + k_zeros, "7 7 7 7 7"},
        LargeExactNumber{"AMillionZerosAndThenADigit", "7." + k_zeros + "1",
                         "refused refused refused 7 7"},
        LargeExactNumber{"AMillionZerosPutRight", "7" + k_zeros + "e-1000000", "7 7 7 7 7"},
        LargeExactNumber{"AMillionZerosPutRightBySoMuchMore", "7" + k_zeros + "e-1000001",
                         "refused refused refused 0.699999988 0.69999999999999996"},
        LargeExactNumber{"AMillionZerosBehindThePointPutRight", "0." + k_zeros + "7e1000001",
                         "7 7 7 7 7"},
        LargeExactNumber{"AMillionDigitsOfAFraction", "7." + k_sevens,
                         "refused refused refused 7.77777767 7.7777777777777777"},
        LargeExactNumber{"AMillionDigitsPutRight", k_sevens + "e-999998",
                         "refused refused refused 77.7777786 77.777777777777771"},
        LargeExactNumber{"AMillionDigitsOfAnExponent", "1e" + k_sevens, k_allRefused},
        LargeExactNumber{"AMillionDigitsOfANegativeExponent", "-1e-" + k_sevens,
                         "refused refused refused -0 -0"},
        LargeExactNumber{"AMillionZerosOfAnExponent", "7e-" + k_zeros, "7 7 7 7 7"},
        LargeExactNumber{"ZeroWithAMillionDigitsOfAnExponent", "0e" + k_sevens, "0 0 0 0 0"},
        LargeExactNumber{"LargestLongLongAsExponent", "1e9223372036854775807", k_allRefused},
        LargeExactNumber{"SmallestLongLongAsExponent", "1e-9223372036854775808",
                         "refused refused refused 0 0"},
        LargeExactNumber{"FarBeyondAsExponent", "10e99999999999999999999", k_allRefused},
        LargeExactNumber{"AMillionLetters", std::string(k_million, 'x'), k_allRefused},
        LargeExactNumber{"AMillionDigitsAndALetter", k_sevens + "x", k_allRefused},
        LargeExactNumber{"AMillionBlanks", std::string(k_million, ' ') + "7", k_allRefused}),
    k_rowName);

TEST(HugeExactNumber, IsALongDoubleToo) {
    EXPECT_EQ(asTold<long double>(numberOf("-0." + k_zeros + "5e1000001")), "-5");
    EXPECT_EQ(asTold<long double>(numberOf(k_sevens)), "refused");
    EXPECT_EQ(asTold<long double>(numberOf("1e-" + k_sevens)), "0");
}

TEST(HugeExactNumber, IsShownWholeByItsRefusal) {
    try {
        numberOf(k_sevens).as<int>();
        FAIL();
    } catch (const ValueOutOfRange<BasicNumber, int>& exception) {
        EXPECT_TRUE(exception.value().toString() == k_sevens);
        EXPECT_TRUE(exception.what() ==
                    "Value out of range! Value: " + k_sevens + " Min: -2147483648 Max: 2147483647");
    }
}

}  // namespace
