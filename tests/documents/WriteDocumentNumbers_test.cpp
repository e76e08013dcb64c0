#include <zo/Tessera/writeDocument.h>

#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/TBasicElement.h>

#include "documents/writtenEverywhere.h"
#include "support/NumberOf.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using Number = TBasicElement<BasicNumber>;

class NumberText : public testing::TestWithParam<const char*> {};

TEST_P(NumberText, IsWrittenAsItIs) {
    EXPECT_EQ(writtenEverywhere(Number(numberOf(std::string(GetParam())))),
              std::string(GetParam()) + '\n');
}

INSTANTIATE_TEST_SUITE_P(WriteDocument, NumberText,
                         testing::Values("0", "-0", "7", "-7", "10", "1234567890", "0.5", "-0.50",
                                         "1.000", "0e0", "1e5", "1E5", "1e+5", "1e-5", "0.1E-07",
                                         "1e999999999999999999999",
                                         "123456789012345678901234567890.123456789"));

class NoNumberText : public testing::TestWithParam<std::string> {};

TEST_P(NoNumberText, IsRefused) {
    const Number number(numberOf(GetParam()));
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(number); }),
              "Cannot write element \"\": the text \"" + GetParam() + "\" is no JSON number");
}

// Each is one step away from a number.
INSTANTIATE_TEST_SUITE_P(WriteDocument, NoNumberText,
                         testing::Values("", "-", "+1", "--1", "007", "00", "-01", ".5", "-.5",
                                         "5.", "1.e5", "1..5", "1.5.", "1e", "1e+", "1e+-5",
                                         "1e5.0", "e5", "1f", "0x10", " 1", "1 ", "1\n", "1,5",
                                         "1.234,5", "NaN", "Infinity", "-Infinity", "nan", "true",
                                         "1]", std::string("1\0", 2), "\xD9\xA1"));

struct Binary {
    const char* name;
    BasicNumber number;
    const char* text;
};

class BinaryNumber : public testing::TestWithParam<Binary> {};

TEST_P(BinaryNumber, IsWrittenInFull) {
    EXPECT_EQ(writtenEverywhere(Number(GetParam().number)), GetParam().text);
}

BasicNumber exact(double value) {
    BasicNumber number;
    number.setExact(value);
    return number;
}

INSTANTIATE_TEST_SUITE_P(
    WriteDocument, BinaryNumber,
    testing::Values(Binary{"Least", numberOf(std::numeric_limits<long long>::min()),
                           "-9223372036854775808\n"},
                    Binary{"Greatest", numberOf(std::numeric_limits<unsigned long long>::max()),
                           "18446744073709551615\n"},
                    Binary{"ExactDouble", exact(0.1), "0.1\n"},
                    Binary{"MinusZero", exact(-0.0), "-0\n"},
                    Binary{"ExactThird", exact(1.0 / 3), "0.3333333333333333\n"}),
    k_rowName);

class NotFinite : public testing::TestWithParam<double> {};

TEST_P(NotFinite, IsRefused) {
    const Number number(numberOf(GetParam()));
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(number); }),
              "Cannot write element \"\": JSON has no such number");
}

INSTANTIATE_TEST_SUITE_P(WriteDocument, NotFinite,
                         testing::Values(std::numeric_limits<double>::quiet_NaN(),
                                         std::numeric_limits<double>::infinity(),
                                         -std::numeric_limits<double>::infinity()));

TEST(WriteDocument, DoesNotMindWhatElseWasReadOfANumber) {
    const Number number(numberOf("1.50"));
    EXPECT_EQ(number.value().toDouble(), 1.5);
    EXPECT_EQ(writtenEverywhere(number), "1.50\n");
}

}  // namespace
