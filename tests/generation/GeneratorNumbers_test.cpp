#include <zo/Tessera/Generator.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <sstream>
#include <string>

#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/DomParser.h>
#include <zo/Tessera/Element.h>

#include "generation/written.h"
#include "support/HostileLocale.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

std::string doubleText(double number) {
    return written(Layout::oneLine, [&](Generator& g) { EXPECT_EQ(g.gen_double(number), 0); });
}

// Twenty significant digits, and a fraction where the text would look like an integer's.
struct Double {
    const char* name;
    double number;
    const char* text;
};

class GeneratorDouble : public testing::TestWithParam<Double> {};

TEST_P(GeneratorDouble, IsWrittenWithTwentyDigits) {
    EXPECT_EQ(doubleText(GetParam().number), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Generator, GeneratorDouble,
    testing::Values(
        Double{"Tenth", 0.1, "0.10000000000000000555"},
        Double{"MinusTenth", -0.1, "-0.10000000000000000555"}, Double{"Zero", 0.0, "0.0"},
        Double{"MinusZero", -0.0, "-0.0"}, Double{"One", 1.0, "1.0"},
        Double{"MinusOne", -1.0, "-1.0"}, Double{"Half", 0.5, "0.5"},
        Double{"OneAndAHalf", 1.5, "1.5"},
        Double{"TwentyDigits", 12345678901234567168.0, "12345678901234567168.0"},
        Double{"TwentyOneDigits", 1e20, "1e+20"},
        Double{"Small", 0.00001, "1.0000000000000000818e-05"},
        Double{"Largest", std::numeric_limits<double>::max(), "1.7976931348623157081e+308"},
        Double{"Lowest", std::numeric_limits<double>::lowest(), "-1.7976931348623157081e+308"},
        Double{"SmallestNormal", std::numeric_limits<double>::min(), "2.2250738585072013831e-308"},
        Double{"SmallestOfAll", std::numeric_limits<double>::denorm_min(),
               "4.9406564584124654418e-324"}),
    k_rowName);

// The text of a number is written as it is, whatever it says.
struct NumberText {
    const char* name;
    const char* text;
};

class GeneratorNumberText : public testing::TestWithParam<NumberText> {};

TEST_P(GeneratorNumberText, IsKeptByTheSingleEvent) {
    BasicNumber number;
    number.set(GetParam().text);
    EXPECT_EQ(written(Layout::oneLine, [&](Generator& g) { EXPECT_EQ(g.gen_number(number), 0); }),
              GetParam().text);
}

TEST_P(GeneratorNumberText, IsKeptByAnElement) {
    BasicNumber number;
    number.set(GetParam().text);
    const std::unique_ptr<Element> element = value(number);
    EXPECT_EQ(written(Layout::oneLine, [&](Generator& g) { EXPECT_EQ(g.print(*element), 0); }),
              GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Generator, GeneratorNumberText,
    testing::Values(NumberText{"TrailingZero", "1.50"}, NumberText{"Exponent", "1e3"},
                    NumberText{"CapitalExponentWithSign", "-1.0E+07"},
                    NumberText{"MinusZero", "-0"},
                    NumberText{"FortyDigits", "1234567890123456789012345678901234567890"},
                    NumberText{"ManyDecimals",
                               "0.1000000000000000055511151231257827021181583404541"},
                    NumberText{"BeyondDouble", "1e999"}, NumberText{"NoNumberAtAll", "abc"},
                    NumberText{"QuoteAndLineFeedUnescaped", "\"\n"}, NumberText{"Empty", ""}),
    k_rowName);

TEST(GeneratorNumbers, AnEmptyTextStillTakesAPlace) {
    BasicNumber empty;
    empty.set("");
    const auto emit = [&](Generator& generator) {
        generator.gen_array_open();
        EXPECT_EQ(generator.gen_number(empty), 0);
        generator.gen_integer(1);
        generator.gen_array_close();
    };
    EXPECT_EQ(written(Layout::oneLine, emit), "[,1]");
    EXPECT_EQ(written(Layout::lineBreaks, emit), "[\n,\n1\n]\n");
}

TEST(GeneratorNumbers, AnEmbeddedZeroIsWrittenAsItIs) {
    BasicNumber number;
    number.set(std::string("1\0002", 3));
    EXPECT_EQ(written(Layout::oneLine, [&](Generator& g) { g.gen_number(number); }),
              std::string("1\0002", 3));
}

TEST(GeneratorNumbers, ATextThatWasReadAsABinaryIsKeptAllTheSame) {
    BasicNumber number;
    number.set("1.50");
    ASSERT_EQ(number.toDouble(), 1.5);
    EXPECT_EQ(written(Layout::oneLine, [&](Generator& g) { g.gen_number(number); }), "1.50");
}

// A number set from a double shows six digits, unlike gen_double: its own text is what counts.
TEST(GeneratorNumbers, ABuiltInNumberIsWrittenWithItsOwnText) {
    const auto elementText = [](const std::unique_ptr<Element>& element) {
        return written(Layout::oneLine, [&](Generator& g) { g.print(*element); });
    };
    EXPECT_EQ(elementText(value(0.1)), "0.1");
    EXPECT_EQ(elementText(value(1.0)), "1");
    EXPECT_EQ(elementText(value(1234567.0)), "1.23457e+06");
    EXPECT_EQ(elementText(value(-7)), "-7");
    EXPECT_EQ(elementText(value(18446744073709551615ULL)), "18446744073709551615");
}

TEST(GeneratorNumbers, DependOnNoLocale) {
    BasicNumber decimal;
    decimal.set("1234567.50");
    BasicNumber binary;
    binary.set(1234567L);
    const auto emit = [&](Generator& generator) {
        generator.gen_array_open();
        generator.gen_double(0.1);
        generator.gen_double(-1234567.25);
        generator.gen_double(1e300);
        generator.gen_double(1.0);
        generator.gen_integer(1234567);
        generator.gen_number(decimal);
        generator.gen_number(binary);
        generator.print(*value(2.5));
        generator.gen_array_close();
    };
    const HostileLocale locale;
    EXPECT_EQ(written(Layout::oneLine, emit),
              "[0.10000000000000000555,-1234567.25,1.0000000000000000525e+300,1.0,1234567,"
              "1234567.50,1234567,2.5]");
}

TEST(GeneratorNumbers, WholeDocumentsDependOnNoLocale) {
    const std::string text =
        "{\n\"a\": 1234567.50,\n\"b\": [\n1e3,\n-1000000\n],\n\"c\": 0.10\n}\n";
    const HostileLocale locale;
    Dom dom;
    DomParser().parse(dom, text);
    std::ostringstream out;
    out << dom;
    EXPECT_EQ(out.str(), text);
    EXPECT_EQ(Generator(nullptr).encode(dom), text);
}

}  // namespace
