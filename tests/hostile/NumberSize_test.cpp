#include <gtest/gtest.h>

#include <locale>
#include <sstream>
#include <string>
#include <vector>

#include <zo/DecNumber.h>
#include <zo/Exception.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Exception.h>

#include "hostile/million.h"
#include "numbers/outcome.h"
#include "support/NumberOf.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

// Numbers of a million digits, and exponents that nobody could write out.

namespace {

using TextOutOfRange = ValueOutOfRange<std::string, std::string>;

template <class T>
std::string converted(const zo::DecNumber& number) {
    try {
        std::ostringstream out;
        out.imbue(std::locale::classic());
        out << +static_cast<T>(number);
        return out.str();
    } catch (const zo::RuntimeError&) {
        return "refused";
    }
}

/// What each of the twelve conversions gives.
std::string conversions(const zo::DecNumber& number) {
    return converted<char>(number) + " " + converted<unsigned char>(number) + " " +
           converted<short>(number) + " " + converted<unsigned short>(number) + " " +
           converted<int>(number) + " " + converted<unsigned int>(number) + " " +
           converted<long>(number) + " " + converted<unsigned long>(number) + " " +
           converted<long long>(number) + " " + converted<unsigned long long>(number) + " " +
           converted<float>(number) + " " + converted<double>(number);
}

std::string conversions(const BasicNumber& number) {
    return outcome<char>(number) + " " + outcome<unsigned char>(number) + " " +
           outcome<short>(number) + " " + outcome<unsigned short>(number) + " " +
           outcome<int>(number) + " " + outcome<unsigned int>(number) + " " +
           outcome<long>(number) + " " + outcome<unsigned long>(number) + " " +
           outcome<long long>(number) + " " + outcome<unsigned long long>(number) + " " +
           outcome<float>(number) + " " + outcome<double>(number);
}

struct LargeNumber {
    const char* name;
    std::string text;
    std::string decimal;  // the conversions of the decimal
    std::string number;   // those of the number
};

constexpr const char* k_tooLarge =
    "refused refused refused refused refused refused refused refused refused refused inf inf";
constexpr const char* k_tooSmall = "0 0 0 0 0 0 0 0 0 0 -0 -0";
constexpr const char* k_textRefused =
    "text refused text refused text refused text refused text refused text refused text refused "
    "text refused text refused text refused text refused text refused";
// The lower bound of a floating type is its smallest positive normal value.
constexpr const char* k_belowFloats = "0 0 0 0 0 0 0 0 0 0 refused refused";

class HugeNumbers : public testing::TestWithParam<LargeNumber> {};

TEST_P(HugeNumbers, AreConvertedOrRefused) {
    EXPECT_EQ(conversions(zo::DecNumber(GetParam().text)), GetParam().decimal);
    EXPECT_EQ(conversions(numberOf(GetParam().text)), GetParam().number);
}

TEST_P(HugeNumbers, KeepTheirText) {
    const BasicNumber number = numberOf(GetParam().text);
    EXPECT_TRUE(number.toString() == GetParam().text);
    std::ostringstream out;
    number.writeAt(out);
    EXPECT_TRUE(out.str() == GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Hostile, HugeNumbers,
    testing::Values(
        LargeNumber{"AMillionDigits", k_sevens, k_tooLarge, k_textRefused},
        LargeNumber{"AMillionDigitsOfAFraction", "7." + k_sevens,
                    "7 7 7 7 7 7 7 7 7 7 7.77778 7.77778",
                    "7 7 7 7 7 7 7 7 7 7 7.77777767 7.7777777777777777"},
        LargeNumber{"AMillionDigitsPutRight", k_sevens + "e-999998",
                    "77 77 77 77 77 77 77 77 77 77 77.7778 77.7778",
                    "77 77 77 77 77 77 77 77 77 77 77.7777786 77.777777777777771"},
        LargeNumber{"AMillionZeros", "-0." + std::string(k_million, '0') + "7", k_tooSmall,
                    k_belowFloats},
        LargeNumber{"NineDigitsOfExponent", "1e999999999", k_tooLarge, k_textRefused},
        LargeNumber{"NineNegativeDigitsOfExponent", "-1e-999999999", k_tooSmall, k_belowFloats},
        LargeNumber{"SeventeenDigitsOfExponent", "1e99999999999999999", k_tooLarge, k_textRefused},
        LargeNumber{"SeventeenNegativeDigitsOfExponent", "-1e-99999999999999999", k_tooSmall,
                    k_belowFloats},
        LargeNumber{"EighteenDigitsOfExponent", "1e100000000000000000", k_tooLarge, k_textRefused},
        LargeNumber{"EighteenNegativeDigitsOfExponent", "-1e-100000000000000000", k_tooSmall,
                    k_belowFloats}),
    k_rowName);

TEST(HugeNumbersInOrder, AreToldApart) {
    const std::string texts[] = {"-1e100000000000000000",  "-1e99999999999999999",
                                 "-1e999999999",           "-" + k_sevens + "8",
                                 "-" + k_sevens + "7",     "-1",
                                 "-1e-999999999",          "-1e-99999999999999999",
                                 "-1e-100000000000000000", "0",
                                 "1e-100000000000000000",  "1e-99999999999999999",
                                 "1e-999999999",           "0." + k_sevens + "7",
                                 "0." + k_sevens + "8",    k_sevens + "7",
                                 k_sevens + "8",           "1e999999999",
                                 "1e99999999999999999",    "1e100000000000000000"};
    std::vector<zo::DecNumber> ascending;
    for (const std::string& text : texts) {
        ascending.emplace_back(text);
    }
    for (size_t i = 0; i < ascending.size(); ++i) {
        for (size_t j = 0; j < ascending.size(); ++j) {
            const int order = ascending[i].compare(ascending[j]);
            EXPECT_EQ(order, i < j ? -1 : (i > j ? 1 : 0)) << i << " and " << j;
        }
    }
}

TEST(HugeNumbersBesideBuiltInOnes, AreToldApart) {
    const std::string texts[] = {k_sevens, "1e999999999", "1e99999999999999999",
                                 "1e100000000000000000"};
    for (const std::string& text : texts) {
        EXPECT_EQ(BasicNumber::compare(9223372036854775807LL, text), -1);
        EXPECT_EQ(BasicNumber::compare(18446744073709551615ULL, "-" + text), 1);
        EXPECT_EQ(BasicNumber::compare(1.7976931348623157e308, text), -1);
    }
    EXPECT_EQ(BasicNumber::compare(0LL, "1e-100000000000000000"), -1);
    EXPECT_EQ(BasicNumber::compare(0ULL, "-1e-100000000000000000"), 1);
    EXPECT_EQ(BasicNumber::compare(4.9e-324, "1e-999999999"), 1);
}

TEST(HugeExponent, BeyondTheLargestIsRefused) {
    EXPECT_EQ(thrown<zo::RuntimeError>([] { zo::DecNumber("1e100000000000000001"); }),
              R"(Exponent of a decimal number out of range: "1e100000000000000001")");
    EXPECT_EQ(thrown<zo::RuntimeError>([] { zo::DecNumber("-1e-999999999999999999"); }),
              R"(Exponent of a decimal number out of range: "-1e-999999999999999999")");
}

TEST(HugeExponent, IsWrittenAsItIs) {
    BasicNumber number;
    number.set(zo::DecNumber("-1234e99999999999999996"));
    EXPECT_EQ(number.toString(), "-1.234e+99999999999999999");
}

TEST(HugeNumber, IsShownWholeByItsRefusal) {
    const auto message = thrown<TextOutOfRange>([] { numberOf(k_sevens).type(); });
    EXPECT_TRUE(message == "Value out of range! Value: " + k_sevens + " Min:  Max: ");
    EXPECT_TRUE(thrown<zo::RuntimeError>([] { zo::DecNumber(k_sevens + "x"); }) ==
                "Not a decimal number: \"" + k_sevens + "x\"");
}

TEST(HugeNumber, RaisesOnceAndThenComparesAsTheValueBefore) {
    BasicNumber number = numberOf(42);
    number.set("1e999999999");
    EXPECT_THROW(number.compare(numberOf(42)), TextOutOfRange);
    EXPECT_EQ(number.toString(), "1e999999999");
    EXPECT_NO_THROW(number.compare(numberOf(42)));
}

}  // namespace
