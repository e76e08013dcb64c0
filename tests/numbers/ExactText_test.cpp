#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include <zo/Tessera/Exception.h>

#include "exactly.h"
#include "support/HostileLocale.h"
#include "support/NumberOf.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

TEST(ExactText, IsTheOneThatWasSetToTheLastCharacter) {
    for (const std::string text : {"1",
                                   "-0",
                                   "007",
                                   "+5",
                                   "1.50",
                                   "5.",
                                   ".5",
                                   "1E3",
                                   "1e400",
                                   "-1e-400",
                                   "12345678901234567890",
                                   "-9223372036854775808",
                                   "0.1000000000000000055511151231257827",
                                   "1e99999999999999999999",
                                   "abc",
                                   " 1 ",
                                   "0x10",
                                   "nan",
                                   "-inf",
                                   "1e",
                                   "-infe"}) {
        EXPECT_EQ(exactly<std::string>(numberOf(text)), '"' + text + '"');
    }
}

TEST(ExactText, MayHoldAZeroByte) {
    const std::string text("1\0002", 3);
    EXPECT_EQ(exactly<std::string>(numberOf(text)), '"' + text + '"');
}

TEST(ExactText, IsEmptyForANumberSetToAnEmptyText) {
    EXPECT_EQ(asTold<std::string>(numberOf("")), R"("")");
}

TEST(ExactText, OfAnIntegerIsThatOfToString) {
    EXPECT_EQ(exactly<std::string>(BasicNumber()), R"("0")");
    EXPECT_EQ(exactly<std::string>(numberOf(-42)), R"("-42")");
    EXPECT_EQ(exactly<std::string>(numberOf('A')), R"("65")");
    EXPECT_EQ(exactly<std::string>(numberOf(-9223372036854775807LL - 1)),
              R"("-9223372036854775808")");
    EXPECT_EQ(exactly<std::string>(numberOf(18446744073709551615ULL)), R"("18446744073709551615")");
}

struct Double {
    const char* name;
    double value;
    const char* text;
};

class TextsOfDoubles : public testing::TestWithParam<Double> {};

TEST_P(TextsOfDoubles, ReadBack) {
    const BasicNumber number = numberOf(GetParam().value);
    EXPECT_EQ(number.as<std::string>(), GetParam().text);
    EXPECT_EQ(exactly<std::string>(number), std::string("\"") + GetParam().text + '"');
    EXPECT_EQ(numberOf(number.as<std::string>()).as<double>(), GetParam().value);
}

TEST_P(TextsOfDoubles, AreTheSameUnderAHostileLocale) {
    const HostileLocale locale;
    EXPECT_EQ(exactly<std::string>(numberOf(GetParam().value)),
              std::string("\"") + GetParam().text + '"');
}

// What `toString` gives already reads back.
INSTANTIATE_TEST_SUITE_P(
    OfSixDigits, TextsOfDoubles,
    testing::Values(Double{"Zero", 0.0, "0"}, Double{"NegativeZero", -0.0, "-0"},
                    Double{"OneTenth", 0.1, "0.1"}, Double{"SixDigits", 123456.0, "123456"},
                    Double{"Fraction", -1234.5, "-1234.5"}, Double{"AMillion", 1e6, "1e+06"},
                    Double{"Large", 1e21, "1e+21"}, Double{"Small", 1.5e-8, "1.5e-08"},
                    Double{"Smallest", 5e-324, "4.94066e-324"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    OfMoreDigits, TextsOfDoubles,
    testing::Values(Double{"SevenDigits", 1234567.0, "1234567"},
                    Double{"Thousandths", 12345.678, "12345.678"},
                    Double{"OneThird", 1.0 / 3, "0.3333333333333333"},
                    Double{"NextToOne", 1.0000000000000002, "1.0000000000000002"},
                    Double{"FloatOfOneTenth", static_cast<double>(0.1F), "0.10000000149011612"},
                    Double{"TwoToThe53rd", 9007199254740992.0, "9007199254740992"},
                    Double{"TwoToThe63rd", 0x1p63, "9.223372036854776e+18"},
                    Double{"Large", -1.2345678e22, "-1.2345678e+22"},
                    Double{"Small", 1.2345678e-9, "1.2345678e-9"},
                    Double{"Largest", 1.7976931348623157e308, "1.7976931348623157e+308"}),
    k_rowName);

TEST(ExactText, IsRefusedOfANaNAndAnInfinity) {
    for (const double value : {std::nan(""), -std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_EQ(exactly<std::string>(numberOf(value)), "refused");
    }
}

TEST(ExactText, RefusalsHaveEmptyBounds) {
    try {
        numberOf(HUGE_VAL).as<std::string>();
        FAIL();
    } catch (const ValueOutOfRange<BasicNumber, std::string>& exception) {
        EXPECT_EQ(exception.min(), "");
        EXPECT_EQ(exception.max(), "");
        EXPECT_STREQ(exception.what(), "Value out of range! Value: inf Min:  Max: ");
    }
}

}  // namespace
