#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>

#include <zo/Tessera/Exception.h>

#include "exactly.h"
#include "support/HostileLocale.h"
#include "support/NumberOf.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using TextOutOfRange = ValueOutOfRange<std::string, std::string>;

BasicNumber exact(double value) {
    BasicNumber number;
    number.setExact(value);
    return number;
}

uint64_t bitsOf(double value) {
    uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    return bits;
}

struct Shortest {
    const char* name;
    double value;
    const char* text;
};

class ShortestTexts : public testing::TestWithParam<Shortest> {};

TEST_P(ShortestTexts, AreSet) {
    EXPECT_EQ(exact(GetParam().value).toString(), GetParam().text);
}

TEST_P(ShortestTexts, AreSetUnderAHostileLocale) {
    const HostileLocale locale;
    EXPECT_EQ(exact(GetParam().value).toString(), GetParam().text);
    EXPECT_EQ(exact(GetParam().value).as<double>(), GetParam().value);
}

TEST_P(ShortestTexts, ReadBackToTheLastBit) {
    const BasicNumber number = exact(GetParam().value);
    EXPECT_EQ(bitsOf(number.as<double>()), bitsOf(GetParam().value));
    EXPECT_EQ(exactly<double>(number), allDigits(GetParam().value));
    EXPECT_EQ(exactly<std::string>(number), std::string("\"") + GetParam().text + '"');
}

INSTANTIATE_TEST_SUITE_P(
    SetExact, ShortestTexts,
    testing::Values(Shortest{"Zero", 0.0, "0"}, Shortest{"NegativeZero", -0.0, "-0"},
                    Shortest{"One", 1.0, "1"}, Shortest{"OneTenth", 0.1, "0.1"},
                    Shortest{"NegativeFraction", -2.5, "-2.5"},
                    Shortest{"SevenDigits", 1234567.0, "1234567"},
                    Shortest{"Pi", 3.141592653589793, "3.141592653589793"},
                    Shortest{"SumOfTenths", 0.1 + 0.2, "0.30000000000000004"},
                    Shortest{"AMillion", 1e6, "1000000"},
                    Shortest{"TwoToThe53rd", 9007199254740992.0, "9007199254740992"},
                    Shortest{"LargestPlain", 99999999999999984.0, "99999999999999980"},
                    Shortest{"SmallestScientific", 1e17, "1e+17"},
                    Shortest{"NegativeScientific", -1e17, "-1e+17"},
                    Shortest{"ManyDigitsScientific", 123456789012345680000.0,
                             "1.2345678901234568e+20"},
                    Shortest{"SmallestPlain", 1e-7, "0.0000001"},
                    Shortest{"LargestSmallScientific", 1.5e-8, "1.5e-8"},
                    Shortest{"Largest", 1.7976931348623157e308, "1.7976931348623157e+308"},
                    Shortest{"SmallestNormal", 2.2250738585072014e-308, "2.2250738585072014e-308"},
                    Shortest{"SmallestDenormal", -5e-324, "-5e-324"},
                    Shortest{"Float", static_cast<double>(0.1F), "0.10000000149011612"}),
    k_rowName);

TEST(SetExact, SetsATextAsTheOnlyForm) {
    EXPECT_EQ(exact(1234567.0).type(), BasicNumber::ebULongLong);
    EXPECT_EQ(exact(-5.0).type(), BasicNumber::ebLongLong);
    EXPECT_EQ(exact(0.5).type(), BasicNumber::ebDouble);
}

// An integer of 20 digits could not be read back by the conversions that derive a binary form.
TEST(SetExact, SetsNoTextThatIsOutOfRange) {
    for (const double value : {1e17, -1e17, 1e18, -1e18, 9.9e18, 2e19, 1e20, -9.9e20, 1e21}) {
        EXPECT_EQ(exact(value).type(), BasicNumber::ebDouble) << value;
        EXPECT_EQ(exact(value).compare(value), 0) << value;
    }
    EXPECT_EQ(exact(99999999999999984.0).type(), BasicNumber::ebULongLong);
    EXPECT_EQ(exact(-99999999999999984.0).type(), BasicNumber::ebLongLong);
}

TEST(SetExact, ReplacesWhatWasThere) {
    BasicNumber number = numberOf("abc");
    number.setExact(0.25);
    EXPECT_EQ(number.toString(), "0.25");
    EXPECT_EQ(number.toDouble(), 0.25);
    number.setExact(-7);
    EXPECT_EQ(number.toString(), "-7");
    EXPECT_EQ(number.toInt(), -7);
}

TEST(SetExact, RefusesANaNAndAnInfinityAndChangesNothing) {
    for (const double value : {std::nan(""), -std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        BasicNumber text = numberOf("1.50");
        EXPECT_EQ(thrown<Exception>([&] { text.setExact(value); }), "Number must be finite!");
        EXPECT_EQ(text.toString(), "1.50");
        BasicNumber binary = numberOf(-42);
        EXPECT_EQ(thrown<Exception>([&] { binary.setExact(value); }), "Number must be finite!");
        EXPECT_EQ(binary.type(), BasicNumber::ebLongLong);
        EXPECT_EQ(binary.toString(), "-42");
    }
}

TEST(SetExact, OfEachRandomDoubleReadsBackToTheLastBit) {
    std::mt19937_64 random(5);
    for (int round = 0; round < 20'000; ++round) {
        const uint64_t bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof(value));
        if (!std::isfinite(value)) {
            continue;
        }
        const BasicNumber number = exact(value);
        ASSERT_EQ(bitsOf(number.as<double>()), bits) << number.toString();
        ASSERT_EQ(bitsOf(numberOf(value).as<double>()), bits) << number.toString();
    }
}

}  // namespace
