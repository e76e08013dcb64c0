#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>

#include <zo/DecNumber.h>
#include <zo/Tessera/Exception.h>

#include "setTo.h"
#include "support/NumberOf.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

static_assert(std::is_default_constructible_v<BasicNumber>);
static_assert(std::is_copy_constructible_v<BasicNumber>);
static_assert(std::is_copy_assignable_v<BasicNumber>);
static_assert(std::is_nothrow_move_constructible_v<BasicNumber>);
static_assert(std::is_nothrow_move_assignable_v<BasicNumber>);

// Values go in through set alone.
static_assert(!std::is_constructible_v<BasicNumber, int>);
static_assert(!std::is_constructible_v<BasicNumber, double>);
static_assert(!std::is_constructible_v<BasicNumber, const char*>);
static_assert(!std::is_constructible_v<BasicNumber, std::string>);

static_assert(std::is_same_v<decltype(std::declval<BasicNumber&>().set(1)), void>);

TEST(DefaultNumber, IsTheSignedZero) {
    const BasicNumber number;
    EXPECT_EQ(number.type(), BasicNumber::ebLongLong);
    EXPECT_EQ(number.toString(), "0");
    EXPECT_EQ(number.toLongLong(), 0);
}

TEST(DefaultNumber, IsBelowEveryUnsignedTypeUnlikeTheSameZeroReadFromText) {
    const BasicNumber number;
    EXPECT_EQ((thrown<ValueOutOfRange<BasicNumber, unsigned int>>([&] { number.toUInt(); })),
              "Value out of range! Value: 0 Min: 0 Max: 4294967295");
    EXPECT_EQ(numberOf("0").toUInt(), 0U);
}

struct BinarySetter {
    const char* name;
    std::function<void(BasicNumber&)> set;
    BasicNumber::EBinaryType type;
    const char* text;
};

class BinarySetters : public testing::TestWithParam<BinarySetter> {};

TEST_P(BinarySetters, KeepTheValueAsTheOnlyForm) {
    BasicNumber number = numberOf("-77.5e1");  // of yet another type
    EXPECT_EQ(number.type(), BasicNumber::ebDouble);
    GetParam().set(number);
    EXPECT_EQ(number.type(), GetParam().type);
    EXPECT_EQ(number.toString(), GetParam().text);
}

template <class T>
std::function<void(BasicNumber&)> setToMin() {
    return setTo(std::numeric_limits<T>::min());
}

template <class T>
std::function<void(BasicNumber&)> setToMax() {
    return setTo(std::numeric_limits<T>::max());
}

INSTANTIATE_TEST_SUITE_P(
    Signed, BinarySetters,
    testing::Values(
        BinarySetter{"CharLetter", setTo('A'), BasicNumber::ebLongLong, "65"},
        // char counts as signed.
        BinarySetter{"CharMin", setTo(static_cast<char>(-128)), BasicNumber::ebLongLong, "-128"},
        BinarySetter{"CharMax", setTo('\x7F'), BasicNumber::ebLongLong, "127"},
        BinarySetter{"ShortMin", setToMin<short>(), BasicNumber::ebLongLong, "-32768"},
        BinarySetter{"ShortMax", setToMax<short>(), BasicNumber::ebLongLong, "32767"},
        BinarySetter{"IntMinusFive", setTo(-5), BasicNumber::ebLongLong, "-5"},
        BinarySetter{"IntMin", setToMin<int>(), BasicNumber::ebLongLong, "-2147483648"},
        BinarySetter{"IntMax", setToMax<int>(), BasicNumber::ebLongLong, "2147483647"},
        BinarySetter{"LongMin", setToMin<long>(), BasicNumber::ebLongLong, "-9223372036854775808"},
        BinarySetter{"LongMax", setToMax<long>(), BasicNumber::ebLongLong, "9223372036854775807"},
        BinarySetter{"LongLongMin", setToMin<long long>(), BasicNumber::ebLongLong,
                     "-9223372036854775808"},
        BinarySetter{"LongLongMax", setToMax<long long>(), BasicNumber::ebLongLong,
                     "9223372036854775807"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Unsigned, BinarySetters,
    testing::Values(
        BinarySetter{"UCharZero", setToMin<unsigned char>(), BasicNumber::ebULongLong, "0"},
        BinarySetter{"UCharMax", setToMax<unsigned char>(), BasicNumber::ebULongLong, "255"},
        BinarySetter{"UShortMax", setToMax<unsigned short>(), BasicNumber::ebULongLong, "65535"},
        BinarySetter{"UIntFive", setTo(5U), BasicNumber::ebULongLong, "5"},
        BinarySetter{"UIntMax", setToMax<unsigned int>(), BasicNumber::ebULongLong, "4294967295"},
        BinarySetter{"ULongMax", setToMax<unsigned long>(), BasicNumber::ebULongLong,
                     "18446744073709551615"},
        BinarySetter{"ULongLongMax", setToMax<unsigned long long>(), BasicNumber::ebULongLong,
                     "18446744073709551615"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Floating, BinarySetters,
    testing::Values(BinarySetter{"Float", setTo(0.1F), BasicNumber::ebDouble, "0.1"},
                    BinarySetter{"FloatMax", setToMax<float>(), BasicNumber::ebDouble,
                                 "3.40282e+38"},
                    BinarySetter{"Double", setTo(-2.5), BasicNumber::ebDouble, "-2.5"},
                    BinarySetter{"DoubleThatIsWhole", setTo(2.0), BasicNumber::ebDouble, "2"}),
    k_rowName);

TEST(SetFloat, WidensToDouble) {
    EXPECT_EQ(numberOf(0.1F).toDouble(), 0.100000001490116119384765625);
}

struct TextSetter {
    const char* name;
    std::function<void(BasicNumber&)> set;
    std::string text;
    BasicNumber::EBinaryType type;
};

class TextSetters : public testing::TestWithParam<TextSetter> {};

TEST_P(TextSetters, KeepTheTextAndDeriveTheTypeFromItAlone) {
    BasicNumber number = numberOf(77.0F);
    EXPECT_EQ(number.toString(), "77");
    GetParam().set(number);
    EXPECT_EQ(number.toString(), GetParam().text);
    EXPECT_EQ(number.type(), GetParam().type);
    EXPECT_EQ(number.toString(), GetParam().text);
}

TextSetter textRow(const char* name, std::function<void(BasicNumber&)> set, std::string text,
                   BasicNumber::EBinaryType type) {
    return TextSetter{name, std::move(set), std::move(text), type};
}

INSTANTIATE_TEST_SUITE_P(
    Narrow, TextSetters,
    testing::Values(
        textRow("String", setTo(std::string("007")), "007", BasicNumber::ebULongLong),
        textRow("StringWithNull", setTo(std::string("7\0 e", 4)), std::string("7\0 e", 4),
                BasicNumber::ebDouble),
        textRow("Pointer", setTo("-12"), "-12", BasicNumber::ebLongLong),
        textRow("PointerEndsAtNull", setTo(static_cast<const char*>("12\0e5")), "12",
                BasicNumber::ebULongLong),
        textRow(
            "PointerAndLength", [](BasicNumber& number) { number.set("1234e5", 4); }, "1234",
            BasicNumber::ebULongLong),
        textRow(
            "LengthPassesNull", [](BasicNumber& number) { number.set("12\0e5", 5); },
            std::string("12\0e5", 5), BasicNumber::ebDouble),
        textRow("UncheckedText", setTo("no number"), "no number", BasicNumber::ebDouble),
        textRow("BytesAreKept", setTo("\xFF\x80"), "\xFF\x80", BasicNumber::ebULongLong)),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Wide, TextSetters,
    testing::Values(
        textRow("String", setTo(std::wstring(L"007")), "007", BasicNumber::ebULongLong),
        textRow("Pointer", setTo(L"-1e3"), "-1e3", BasicNumber::ebDouble),
        textRow(
            "PointerAndLength", [](BasicNumber& number) { number.set(L"-1234", 4); }, "-123",
            BasicNumber::ebLongLong),
        textRow(
            "LengthPassesNull", [](BasicNumber& number) { number.set(L"12\0e5", 5); },
            std::string("12\0e5", 5), BasicNumber::ebDouble),
        textRow("BecomesUtf8", setTo(L"5\u20AC"), "5\xE2\x82\xAC", BasicNumber::ebULongLong),
        // Neither a lone surrogate nor a value beyond U+10FFFF is a character.
        textRow("Surrogate", setTo(std::wstring{L'1', static_cast<wchar_t>(0xD800), L'2'}),
                "1\xEF\xBF\xBD"
                "2",
                BasicNumber::ebULongLong),
        textRow("BeyondUnicode", setTo(std::wstring{static_cast<wchar_t>(0x110000), L'.'}),
                "\xEF\xBF\xBD.", BasicNumber::ebDouble)),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Decimal, TextSetters,
    testing::Values(
        textRow("Whole", setTo(zo::DecNumber(5)), "5", BasicNumber::ebULongLong),
        textRow("Negative", setTo(zo::DecNumber(-5)), "-5", BasicNumber::ebLongLong),
        textRow("Fraction", setTo(zo::DecNumber("1.50")), "1.5", BasicNumber::ebDouble),
        textRow("Scientific", setTo(zo::DecNumber("1e21")), "1e+21", BasicNumber::ebDouble),
        textRow("KeepsEveryDigit", setTo(zo::DecNumber("0.12345678901234567890123456789")),
                "0.12345678901234567890123456789", BasicNumber::ebDouble)),
    k_rowName);

TEST(SetText, OfAnEmptyTextLeavesNoText) {
    EXPECT_EQ(numberOf("").toString(), "");
    EXPECT_EQ(numberOf(std::string()).toString(), "");
    EXPECT_EQ(numberOf(L"").toString(), "");
    BasicNumber number;
    number.set("12", 0);
    EXPECT_EQ(number.toString(), "");
}

TEST(SetText, RefusesANullPointerAndKeepsTheNumber) {
    BasicNumber number = numberOf("12");
    const char* const text = nullptr;
    const wchar_t* const wideText = nullptr;
    const std::string message = "Null pointer exception: text may not be null";
    EXPECT_EQ(thrown<Exception>([&] { number.set(text); }), message);
    EXPECT_EQ(thrown<Exception>([&] { number.set(text, 1); }), message);
    EXPECT_EQ(thrown<Exception>([&] { number.set(wideText); }), message);
    EXPECT_EQ(thrown<Exception>([&] { number.set(wideText, 1); }), message);
    EXPECT_EQ(number.toString(), "12");
}

TEST(SetText, TakesANullPointerOfNoLengthForNoText) {
    BasicNumber number;
    number.set(static_cast<const char*>(nullptr), 0);
    EXPECT_EQ(number.type(), BasicNumber::ebULongLong);
    number.set("12");
    number.set(static_cast<const wchar_t*>(nullptr), 0);
    EXPECT_EQ(number.type(), BasicNumber::ebULongLong);
}

}  // namespace
