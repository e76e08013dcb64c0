#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include <zo/Tessera/Exception.h>

#include "support/NumberOf.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

/// Beside its type, what a text is read as; every digit of it.
struct IntegerText {
    const char* name;
    std::string text;
    BasicNumber::EBinaryType type;
    const char* value;
};

class IntegerTexts : public testing::TestWithParam<IntegerText> {};

TEST_P(IntegerTexts, AreReadAsFormattedExtractionReadsThem) {
    BasicNumber number = numberOf(77);  // not what the text reads as
    number.set(GetParam().text);
    EXPECT_EQ(number.type(), GetParam().type);
    EXPECT_EQ(number.type() == BasicNumber::ebLongLong ? std::to_string(number.toLongLong())
                                                       : std::to_string(number.toULongLong()),
              GetParam().value);
    EXPECT_EQ(number.toString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Plain, IntegerTexts,
    testing::Values(IntegerText{"Zero", "0", BasicNumber::ebULongLong, "0"},
                    IntegerText{"Twelve", "12", BasicNumber::ebULongLong, "12"},
                    IntegerText{"MinusTwelve", "-12", BasicNumber::ebLongLong, "-12"},
                    IntegerText{"MinusZero", "-0", BasicNumber::ebLongLong, "0"},
                    IntegerText{"LeadingZeros", "007", BasicNumber::ebULongLong, "7"},
                    IntegerText{"MinusLeadingZeros", "-007", BasicNumber::ebLongLong, "-7"}),
    k_rowName);

// A text that begins with anything but a minus is unsigned, whatever follows.
INSTANTIATE_TEST_SUITE_P(
    OddBeginning, IntegerTexts,
    testing::Values(IntegerText{"Plus", "+5", BasicNumber::ebULongLong, "5"},
                    IntegerText{"Blank", " 5", BasicNumber::ebULongLong, "5"},
                    IntegerText{"EveryKindOfBlank", " \t\n\v\f\r5", BasicNumber::ebULongLong, "5"},
                    IntegerText{"BlankAndMinusWrapsAround", " -5", BasicNumber::ebULongLong,
                                "18446744073709551611"},
                    IntegerText{"BlankAndPlus", " +5", BasicNumber::ebULongLong, "5"},
                    IntegerText{"PlusAndMinus", "+-5", BasicNumber::ebULongLong, "0"},
                    IntegerText{"PlusAndBlank", "+ 5", BasicNumber::ebULongLong, "0"},
                    IntegerText{"TwoMinuses", "--5", BasicNumber::ebLongLong, "0"},
                    IntegerText{"MinusAndBlank", "- 5", BasicNumber::ebLongLong, "0"},
                    IntegerText{"Null",
                                std::string("\0"
                                            "5",
                                            2),
                                BasicNumber::ebULongLong, "0"},
                    IntegerText{"NoBreakSpace",
                                "\xC2\xA0"
                                "5",
                                BasicNumber::ebULongLong, "0"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    OddEnd, IntegerTexts,
    testing::Values(IntegerText{"Letters", "12abc", BasicNumber::ebULongLong, "12"},
                    IntegerText{"MinusLetters", "-12abc", BasicNumber::ebLongLong, "-12"},
                    IntegerText{"Blank", "12 ", BasicNumber::ebULongLong, "12"},
                    IntegerText{"SecondNumber", "12 34", BasicNumber::ebULongLong, "12"},
                    IntegerText{"Null",
                                std::string("12\0"
                                            "34",
                                            5),
                                BasicNumber::ebULongLong, "12"},
                    IntegerText{"Comma", "1,5", BasicNumber::ebULongLong, "1"},
                    IntegerText{"Groups", "1,234,567", BasicNumber::ebULongLong, "1"},
                    IntegerText{"Hexadecimal", "0x1F", BasicNumber::ebULongLong, "0"},
                    IntegerText{"MinusHexadecimal", "-0x1F", BasicNumber::ebLongLong, "0"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    NoDigits, IntegerTexts,
    testing::Values(IntegerText{"Letters", "abc", BasicNumber::ebULongLong, "0"},
                    IntegerText{"Minus", "-", BasicNumber::ebLongLong, "0"},
                    IntegerText{"MinusLetter", "-x", BasicNumber::ebLongLong, "0"},
                    IntegerText{"Plus", "+", BasicNumber::ebULongLong, "0"},
                    IntegerText{"Infinity", "inf", BasicNumber::ebULongLong, "0"},
                    IntegerText{"LongInfinity", "Infinity", BasicNumber::ebULongLong, "0"},
                    IntegerText{"MinusInfinity", "-inf", BasicNumber::ebLongLong, "0"},
                    IntegerText{"NotANumber", "nan", BasicNumber::ebULongLong, "0"},
                    IntegerText{"WideDigit", "\xEF\xBC\x95", BasicNumber::ebULongLong, "0"}),
    k_rowName);

// Extraction that meets the end before anything else stores nothing.
INSTANTIATE_TEST_SUITE_P(Nothing, IntegerTexts,
                         testing::Values(IntegerText{"Blank", " ", BasicNumber::ebULongLong, "77"},
                                         IntegerText{"Blanks", " \t\n ", BasicNumber::ebULongLong,
                                                     "77"}),
                         k_rowName);

struct DoubleText {
    const char* name;
    std::string text;
    double value;
};

class DoubleTexts : public testing::TestWithParam<DoubleText> {};

TEST_P(DoubleTexts, AreReadAsTheCLibraryReadsThem) {
    BasicNumber number = numberOf(77.0);
    number.set(GetParam().text);
    EXPECT_EQ(number.type(), BasicNumber::ebDouble);
    EXPECT_EQ(number.compare(GetParam().value), 0);
    EXPECT_EQ(number.compare(std::numeric_limits<double>::infinity()), -1);  // so it is no NaN
    EXPECT_EQ(number.toString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Plain, DoubleTexts,
    testing::Values(DoubleText{"Exponent", "1e3", 1000.0}, DoubleText{"LargeE", "1E3", 1000.0},
                    DoubleText{"Point", "-0.5", -0.5}, DoubleText{"ZeroPoint", "0.0", 0.0},
                    DoubleText{"MinusZeroPoint", "-0.0", 0.0},
                    DoubleText{"WholeWithPoint", "12.0", 12.0},
                    DoubleText{"PointAndExponent", "-12.5e-1", -1.25},
                    DoubleText{"PlusInExponent", "1e+3", 1000.0},
                    DoubleText{"PointFirst", ".5", 0.5}, DoubleText{"PointLast", "5.", 5.0},
                    DoubleText{"NearestEven", "9007199254740993.0", 9007199254740992.0},
                    DoubleText{"SmallestNormal", "2.2250738585072014e-308",
                               2.2250738585072014e-308},
                    DoubleText{"Subnormal", "5e-324", 4.9406564584124654e-324},
                    DoubleText{"Underflow", "1e-400", 0.0},
                    DoubleText{"Largest", "1.7976931348623157e308", 1.7976931348623157e308},
                    DoubleText{"LongZeros", "0." + std::string(400, '0') + "1e401", 1.0}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Odd, DoubleTexts,
    testing::Values(
        DoubleText{"LeadingBlanks", " \t\n\v\f\r1e3", 1000.0}, DoubleText{"Plus", "+1e3", 1000.0},
        DoubleText{"BlankAndMinus", " -1e3", -1000}, DoubleText{"TwoMinuses", "--1e3", 0.0},
        DoubleText{"MinusAndBlank", "- 1e3", 0.0}, DoubleText{"TrailingLetters", "1.5abc", 1.5},
        DoubleText{"TrailingBlank", "1.5 ", 1.5}, DoubleText{"BlankInside", "1 e3", 1.0},
        DoubleText{"TwoPoints", "1.5.2", 1.5}, DoubleText{"PointInExponent", "1e3.5", 1000.0},
        DoubleText{"NoExponentDigits", "1e", 1.0},
        DoubleText{"NoExponentDigitsAfterSign", "1e+", 1.0},
        DoubleText{"TwoExponents", "1e2e3", 100.0}, DoubleText{"CommaThenPoint", "1,5.0", 1.0},
        DoubleText{"OnlyE", "e", 0.0}, DoubleText{"OnlyPoint", ".", 0.0},
        DoubleText{"ExponentAlone", "e5", 0.0}, DoubleText{"WordWithE", "true", 0.0},
        DoubleText{"Null", std::string("1\0e5", 4), 1.0}),
    k_rowName);

// A hexadecimal text is a double only when one of ".eE" happens to be in it.
INSTANTIATE_TEST_SUITE_P(Hexadecimal, DoubleTexts,
                         testing::Values(DoubleText{"DigitE", "0x1e", 30.0},
                                         DoubleText{"LargeDigitE", "0X1E", 30.0},
                                         DoubleText{"Minus", "-0xe", -14.0},
                                         DoubleText{"PointAndExponent", "0x1.8p1", 3.0},
                                         DoubleText{"PointFirst", "0x.8", 0.5},
                                         DoubleText{"NoDigit", "0xg.e", 0.0}),
                         k_rowName);

class NanTexts : public testing::TestWithParam<const char*> {};

TEST_P(NanTexts, AreStoredAsNan) {
    const BasicNumber number = numberOf(GetParam());
    EXPECT_EQ(number.type(), BasicNumber::ebDouble);
    EXPECT_TRUE(std::isnan(number.toDouble()));
    EXPECT_EQ(number.toString(), GetParam());
}

INSTANTIATE_TEST_SUITE_P(BasicNumber, NanTexts,
                         testing::Values("nan.", "-nan.", "NaNe", " nan e", "nan(1)E"));

class InfiniteTexts : public testing::TestWithParam<const char*> {};

TEST_P(InfiniteTexts, AreRefusedOnFirstUse) {
    const std::string text = GetParam();
    const BasicNumber number = numberOf(text);
    EXPECT_EQ(number.toString(), text);
    EXPECT_EQ((thrown<ValueOutOfRange<std::string, std::string>>([&] { number.type(); })),
              "Value out of range! Value: " + text + " Min:  Max: ");
    EXPECT_EQ(number.toString(), text);
}

INSTANTIATE_TEST_SUITE_P(BasicNumber, InfiniteTexts,
                         testing::Values("1e400", "-1e400", "1.7976931348623159e308",
                                         "1e99999999999999999999", "infe", "-inf.", "INFINITYe",
                                         "infinite", " +Infinity.5", "0x1.0p1024"));

}  // namespace
