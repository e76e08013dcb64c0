#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include <zo/Tessera/Exception.h>

#include "exactly.h"
#include "forceType.h"
#include "support/NumberOf.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using TextOutOfRange = ValueOutOfRange<std::string, std::string>;

static_assert(k_holdsNumbers<char> && k_holdsNumbers<wchar_t> && k_holdsNumbers<char16_t>);
static_assert(k_holdsNumbers<signed char> && k_holdsNumbers<long double>);
static_assert(k_holdsNumbers<std::string>);
static_assert(!k_holdsNumbers<bool> && !k_holdsNumbers<const int> && !k_holdsNumbers<int&>);
static_assert(!k_holdsNumbers<std::string_view> && !k_holdsNumbers<const char*>);

/// Everything that `as` can give.
std::string everything(const BasicNumber& number) {
    return asTold<char>(number) + ' ' + asTold<signed char>(number) + ' ' +
           asTold<unsigned char>(number) + ' ' + asTold<wchar_t>(number) + ' ' +
           asTold<char16_t>(number) + ' ' + asTold<char32_t>(number) + ' ' + asTold<short>(number) +
           ' ' + asTold<unsigned short>(number) + ' ' + asTold<int>(number) + ' ' +
           asTold<unsigned int>(number) + ' ' + asTold<long>(number) + ' ' +
           asTold<unsigned long>(number) + ' ' + asTold<long long>(number) + ' ' +
           asTold<unsigned long long>(number) + ' ' + asTold<float>(number) + ' ' +
           asTold<double>(number) + ' ' + asTold<long double>(number) + ' ' +
           asTold<std::string>(number);
}

TEST(ExactConversion, OffersEighteenTypes) {
    EXPECT_EQ(everything(numberOf("65")),
              "65 65 65 65 65 65 65 65 65 65 65 65 65 65 65 65 65 \"65\"");
    EXPECT_EQ(everything(numberOf(-1.5)),
              "refused refused refused refused refused refused refused refused refused refused "
              "refused refused refused refused -1.5 -1.5 -1.5 \"-1.5\"");
}

// Whether the other form is there cannot be asked; a text out of range tells, since it raises when
// its binary form is first derived.
TEST(ExactConversion, DoesNotDeriveTheBinaryForm) {
    for (const char* const text : {"12345678901234567890", "-123456789012345678", "1e400"}) {
        const BasicNumber number = numberOf(text);
        everything(number);
        EXPECT_THROW(number.type(), TextOutOfRange) << text;
    }
}

// A number that is told to have no binary form shows whether it has a text.
TEST(ExactConversion, DoesNotDeriveTheText) {
    for (BasicNumber number : {numberOf(42), numberOf(42U), numberOf(0.1), numberOf(1.0 / 3)}) {
        everything(number);
        forceType(number, BasicNumber::ebNone);
        EXPECT_EQ(number.toString(), "");
    }
}

TEST(ExactConversion, ReadsTheTextOfABigDecimal) {
    EXPECT_EQ(bigDecimal("1e3").as<int>(), 1000);
    EXPECT_EQ(bigDecimal("0.10").as<std::string>(), "0.10");
    EXPECT_EQ(bigDecimal("-0.5").as<double>(), -0.5);
}

// A text out of range leaves the value before as the binary form: it has no say.
struct Former {
    const char* name;
    std::function<void(BasicNumber&)> set;
};

class FormerValues : public testing::TestWithParam<Former> {};

template <class T>
Former former(const char* name, T value) {
    return {name, [value](BasicNumber& number) { number.set(value); }};
}

TEST_P(FormerValues, AreNotReadWhereATextIsOutOfRange) {
    BasicNumber number;
    GetParam().set(number);
    number.set("12345678901234567890");
    EXPECT_EQ(exactly<unsigned long long>(number), "12345678901234567890");
    EXPECT_EQ(exactly<long long>(number), "refused");
    EXPECT_EQ(exactly<std::string>(number), R"("12345678901234567890")");

    GetParam().set(number);
    number.set("-9223372036854775808");
    EXPECT_EQ(exactly<long long>(number), "-9223372036854775808");
    EXPECT_EQ(exactly<float>(number), "-9.22337204e+18");

    GetParam().set(number);
    number.set("-1e400");
    EXPECT_EQ(exactly<double>(number), "refused");
    EXPECT_EQ(exactly<int>(number), "refused");
    EXPECT_EQ(exactly<std::string>(number), R"("-1e400")");
}

TEST_P(FormerValues, AreNotReadWhereATextIsNoNumber) {
    for (const char* const text : {"abc", " 7", "7x", "0x1.8p1", "nane", "nan"}) {
        BasicNumber number;
        GetParam().set(number);
        number.set(text);
        EXPECT_EQ(exactly<int>(number), "refused") << text;
        EXPECT_EQ(exactly<double>(number), "refused") << text;
        EXPECT_EQ(exactly<std::string>(number), std::string("\"") + text + '"');
    }
}

INSTANTIATE_TEST_SUITE_P(BasicNumber, FormerValues,
                         testing::Values(former("Default", 0), former("Signed", -42),
                                         former("Unsigned", 42U), former("Double", 0.5),
                                         former("NaN", std::nan("")), former("Infinity", -HUGE_VAL),
                                         former("LargestDouble", 1.7976931348623157e308)),
                         k_rowName);

TEST(ExactConversion, TellsATextFromTheSameTextThatADoubleLostDigitsFor) {
    const BasicNumber text = numberOf("0.333333");
    const BasicNumber binary = numberOf(1.0 / 3);
    EXPECT_EQ(binary.toString(), "0.333333");
    EXPECT_EQ(text.type(), BasicNumber::ebDouble);
    EXPECT_EQ(exactly<double>(text), "0.33333299999999999");
    EXPECT_EQ(exactly<double>(binary), "0.33333333333333331");
    EXPECT_EQ(exactly<std::string>(text), R"("0.333333")");
    EXPECT_EQ(exactly<std::string>(binary), R"("0.3333333333333333")");
}

TEST(ExactConversion, KeepsTheTextThatADoubleOfItsValueWouldHave) {
    EXPECT_EQ(exactly<std::string>(numberOf("1e+06")), R"("1e+06")");
    EXPECT_EQ(exactly<std::string>(numberOf("1e6")), R"("1e6")");
    EXPECT_EQ(exactly<std::string>(numberOf("1000000.0")), R"("1000000.0")");
    EXPECT_EQ(exactly<std::string>(numberOf(1e6)), R"("1e+06")");
}

// The older conversions turn such a number into the integer that it held before.
TEST(ExactConversion, OfAnEmptyTextChangesWhenTheBinaryFormIsDerived) {
    BasicNumber number = numberOf(42);
    number.set("");
    EXPECT_EQ(asTold<int>(number), "refused");
    EXPECT_EQ(asTold<std::string>(number), R"("")");
    EXPECT_EQ(number.type(), BasicNumber::ebULongLong);
    EXPECT_EQ(asTold<int>(number), "42");
    EXPECT_EQ(asTold<std::string>(number), R"("42")");
}

TEST(ExactConversion, OfACopyIsThatOfTheNumber) {
    BasicNumber number = numberOf(1.0 / 3);
    number.toString();
    BasicNumber assigned = numberOf(7);
    assigned = number;
    BasicNumber set;
    set.set(number);
    EXPECT_EQ(assigned.as<double>(), 1.0 / 3);
    EXPECT_EQ(set.as<double>(), 1.0 / 3);
    EXPECT_EQ(BasicNumber(std::move(number)).as<double>(), 1.0 / 3);
}

TEST(ExactConversion, OfRandomDoublesIsTheSameInEachForm) {
    std::mt19937_64 random(5);
    std::uniform_int_distribution<int> exponent(-30, 30);
    std::uniform_int_distribution<long long> digits(-99'999'999, 99'999'999);
    for (int round = 0; round < 2000; ++round) {
        // Some of six digits or fewer, whose texts read back, and some of more.
        const BasicNumber text =
            numberOf(std::to_string(digits(random) / (round % 2 == 0 ? 1 : 1000)) + 'e' +
                     std::to_string(exponent(random)));
        const BasicNumber number = numberOf(text.as<double>());
        EXPECT_EQ(exactly<double>(number), exactly<double>(text));
        const BasicNumber copy(number);
        const std::string before = everything(number);
        copy.toString();
        ASSERT_EQ(everything(copy), before) << text.toString();
    }
}

template <class T>
std::string refusalOf(const BasicNumber& number) {
    return thrown<ValueOutOfRange<BasicNumber, T>>([&] { number.as<T>(); });
}

TEST(ExactRefusals, NameTheValueAndTheBoundsOfTheType) {
    const BasicNumber number = numberOf("1e5000");
    const std::string start = "Value out of range! Value: 1e5000 Min: ";
    EXPECT_EQ(refusalOf<char>(number), start + "\x80 Max: \x7F");
    EXPECT_EQ(refusalOf<signed char>(number), start + "-128 Max: 127");
    EXPECT_EQ(refusalOf<unsigned char>(number), start + std::string(1, '\0') + " Max: \xFF");
    EXPECT_EQ(refusalOf<char16_t>(number), start + "0 Max: 65535");
    EXPECT_EQ(refusalOf<char32_t>(number), start + "0 Max: 4294967295");
    EXPECT_EQ(refusalOf<wchar_t>(number),
              start + std::to_string(std::numeric_limits<wchar_t>::min()) +
                  " Max: " + std::to_string(std::numeric_limits<wchar_t>::max()));
    EXPECT_EQ(refusalOf<unsigned short>(number), start + "0 Max: 65535");
    EXPECT_EQ(refusalOf<long long>(number),
              start + "-9223372036854775808 Max: 9223372036854775807");
    EXPECT_EQ(refusalOf<float>(number), start + "-3.40282e+38 Max: 3.40282e+38");
    EXPECT_EQ(refusalOf<double>(number), start + "-1.79769e+308 Max: 1.79769e+308");
    EXPECT_EQ(refusalOf<long double>(number).substr(0, start.size() + 1), start + '-');
}

TEST(ExactRefusals, KeepTheNumberAsItIs) {
    const BasicNumber number = numberOf("12345678901234567890");
    try {
        number.as<int>();
        FAIL();
    } catch (const ValueOutOfRange<BasicNumber, int>& exception) {
        EXPECT_EQ(exception.value().as<unsigned long long>(), 12345678901234567890ULL);
        EXPECT_EQ(exception.min(), -2147483647 - 1);
        EXPECT_EQ(exception.max(), 2147483647);
        EXPECT_STRNE(exception.what(), "");
    }
    EXPECT_THROW(number.type(), TextOutOfRange);
}

}  // namespace
