#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>

#include <zo/DecNumber.h>
#include <zo/Tessera/Exception.h>

#include "outcome.h"
#include "setTo.h"
#include "support/NumberOf.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using TextOutOfRange = ValueOutOfRange<std::string, std::string>;

TEST(Limits, AreAllEmpty) {
    // Every long integer text is refused because of it, and the refusals show it.
    EXPECT_EQ(BasicNumber::k_limits.maxLongLong, "");
    EXPECT_EQ(BasicNumber::k_limits.minLongLong, "");
    EXPECT_EQ(BasicNumber::k_limits.maxULongLong, "");
    EXPECT_EQ(BasicNumber::k_limits.minULongLong, "");
    EXPECT_EQ(BasicNumber::k_limits.minDouble, "");
    EXPECT_EQ(BasicNumber::k_limits.maxDouble, "");
}

struct LongText {
    const char* name;
    std::string text;
    const char* value;  // what is read
};

class TextsShortEnough : public testing::TestWithParam<LongText> {};

TEST_P(TextsShortEnough, AreRead) {
    const BasicNumber number = numberOf(GetParam().text);
    EXPECT_EQ(number.type() == BasicNumber::ebLongLong ? outcome<long long>(number)
                                                       : outcome<unsigned long long>(number),
              GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    BasicNumber, TextsShortEnough,
    testing::Values(LongText{"EighteenDigits", "123456789012345678", "123456789012345678"},
                    LongText{"MinusAndSeventeenDigits", "-12345678901234567", "-12345678901234567"},
                    LongText{"MinusAndSeventeenNines", "-99999999999999999", "-99999999999999999"},
                    LongText{"NineteenDigits", "1234567890123456789", "1234567890123456789"},
                    LongText{"NineteenNines", "9999999999999999999", "9999999999999999999"},
                    LongText{"LargestSigned", "9223372036854775807", "9223372036854775807"},
                    LongText{"PlusAndEighteenDigits", "+123456789012345678", "123456789012345678"},
                    LongText{"NineteenCharactersWithLetters", "12abcdfghijklmnopqr", "12"}),
    k_rowName);

struct RefusedText {
    const char* name;
    std::string text;
    BasicNumber::EBinaryType type;
};

class TextsTooLong : public testing::TestWithParam<RefusedText> {};

TEST_P(TextsTooLong, AreRefusedWithEmptyBoundsWhateverTheirDigits) {
    const BasicNumber number = numberOf(GetParam().text);
    try {
        number.type();
        FAIL();
    } catch (const TextOutOfRange& exception) {
        EXPECT_EQ(exception.value(), GetParam().text);
        EXPECT_EQ(exception.min(), "");
        EXPECT_EQ(exception.max(), "");
        EXPECT_STREQ(exception.what(),
                     ("Value out of range! Value: " + GetParam().text + " Min:  Max: ").c_str());
    }
    EXPECT_EQ(number.toString(), GetParam().text);
}

TEST_P(TextsTooLong, AreRefusedOnceOnly) {
    const BasicNumber number = numberOf(GetParam().text);
    EXPECT_THROW(number.type(), TextOutOfRange);
    EXPECT_EQ(number.type(), GetParam().type);
    EXPECT_EQ(number.type(), GetParam().type);
}

TEST_P(TextsTooLong, AreWrittenWithoutBeingRead) {
    const BasicNumber number = numberOf(GetParam().text);
    std::ostringstream out;
    number.writeAt(out);
    EXPECT_EQ(out.str(), GetParam().text);
    EXPECT_EQ(std::string(number.toString()), GetParam().text);
    EXPECT_EQ(number.toWString().size(), GetParam().text.size());
    EXPECT_THROW(number.type(), TextOutOfRange);  // only now
}

INSTANTIATE_TEST_SUITE_P(
    BasicNumber, TextsTooLong,
    testing::Values(
        RefusedText{"TwentyDigits", "12345678901234567890", BasicNumber::ebULongLong},
        RefusedText{"LargestUnsigned", "18446744073709551615", BasicNumber::ebULongLong},
        RefusedText{"TwentyZeros", "00000000000000000000", BasicNumber::ebULongLong},
        RefusedText{"PlusAndNineteenDigits", "+1234567890123456789", BasicNumber::ebULongLong},
        RefusedText{"TwentyBlanks", "                    ", BasicNumber::ebULongLong},
        RefusedText{"TwentyLetters", "abcdfghijklmnopqrstu", BasicNumber::ebULongLong},
        RefusedText{"FortyDigits", "1234567890123456789012345678901234567890",
                    BasicNumber::ebULongLong},
        RefusedText{"MinusAndEighteenDigits", "-123456789012345678", BasicNumber::ebLongLong},
        RefusedText{"MinusAndEighteenZeros", "-000000000000000000", BasicNumber::ebLongLong},
        RefusedText{"SmallestSigned", "-9223372036854775808", BasicNumber::ebLongLong},
        RefusedText{"MinusAndFortyDigits", "-1234567890123456789012345678901234567890",
                    BasicNumber::ebLongLong}),
    k_rowName);

TEST(LongTexts, OfADoubleAreNotLimited) {
    EXPECT_EQ(numberOf("1.0000000000000000000000000").toDouble(), 1.0);
    EXPECT_EQ(numberOf("-12345678901234567890e-10").toInt(), -1234567890);
}

struct Reader {
    const char* name;
    std::function<void(const BasicNumber&)> read;
};

class FirstReader : public testing::TestWithParam<Reader> {};

TEST_P(FirstReader, OfTheBinaryFormRaises) {
    for (const char* text : {"12345678901234567890", "-123456789012345678", "1e400"}) {
        const BasicNumber number = numberOf(text);
        EXPECT_EQ(thrown<TextOutOfRange>([&] { GetParam().read(number); }),
                  std::string("Value out of range! Value: ") + text + " Min:  Max: ");
    }
}

template <class T>
Reader conversion(const char* name) {
    return Reader{name, [](const BasicNumber& number) { (number.*k_conversion<T>)(); }};
}

INSTANTIATE_TEST_SUITE_P(
    Conversion, FirstReader,
    testing::Values(conversion<char>("Char"), conversion<unsigned char>("UChar"),
                    conversion<short>("Short"), conversion<unsigned short>("UShort"),
                    conversion<int>("Int"), conversion<unsigned int>("UInt"),
                    conversion<long>("Long"), conversion<unsigned long>("ULong"),
                    conversion<long long>("LongLong"), conversion<unsigned long long>("ULongLong"),
                    conversion<float>("Float"), conversion<double>("Double")),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Other, FirstReader,
    testing::Values(
        Reader{"Type", [](const BasicNumber& number) { number.type(); }},
        Reader{"DecNumber", [](const BasicNumber& number) { number.toDecNumber(); }},
        Reader{"CompareWithNumber",
               [](const BasicNumber& number) { number.compare(BasicNumber()); }},
        Reader{"AsOperand", [](const BasicNumber& number) { BasicNumber().compare(number); }},
        Reader{"CompareWithSigned", [](const BasicNumber& number) { number.compare(1LL); }},
        Reader{"CompareWithUnsigned", [](const BasicNumber& number) { number.compare(1ULL); }},
        Reader{"CompareWithDouble", [](const BasicNumber& number) { number.compare(1.0); }}),
    k_rowName);

// After a refusal the bits that the number held before are read as the text's type.
struct StaleValue {
    const char* name;
    std::function<void(BasicNumber&)> before;
    const char* text;
    std::function<std::string(const BasicNumber&)> read;
    const char* value;
};

class AfterARefusal : public testing::TestWithParam<StaleValue> {};

TEST_P(AfterARefusal, TheFormerBinaryValueIsRead) {
    BasicNumber number;
    GetParam().before(number);
    number.set(GetParam().text);
    EXPECT_THROW(number.type(), TextOutOfRange);
    EXPECT_EQ(GetParam().read(number), GetParam().value);
    EXPECT_EQ(number.toString(), GetParam().text);
}

constexpr const char* k_twentyDigits = "12345678901234567890";
constexpr const char* k_minusAndEighteen = "-123456789012345678";

INSTANTIATE_TEST_SUITE_P(
    BasicNumber, AfterARefusal,
    testing::Values(
        StaleValue{"NewNumberAsUnsigned", [](BasicNumber&) {}, k_twentyDigits,
                   outcome<unsigned long long>, "0"},
        StaleValue{"NewNumberAsSigned", [](BasicNumber&) {}, k_minusAndEighteen, outcome<long long>,
                   "0"},
        StaleValue{"NewNumberAsDouble", [](BasicNumber&) {}, "1e400", outcome<int>, "0"},
        StaleValue{"SignedAsUnsigned", setTo(-1), k_twentyDigits, outcome<unsigned long long>,
                   "18446744073709551615"},
        StaleValue{"UnsignedAsSigned", setTo(18446744073709551615ULL), k_minusAndEighteen,
                   outcome<int>, "-1"},
        StaleValue{"DoubleAsUnsigned", setTo(1.5), k_twentyDigits, outcome<unsigned long long>,
                   "4609434218613702656"},
        StaleValue{"DoubleAsSigned", setTo(-0.0), k_minusAndEighteen, outcome<long long>,
                   "-9223372036854775808"},
        StaleValue{"DoubleAsDouble", setTo(2.5), "1e400", outcome<double>, "2.5"},
        StaleValue{"UnsignedAsDouble", setTo(4609434218613702656ULL), "-infe", outcome<double>,
                   "1.5"},
        StaleValue{"ReadTextAsUnsigned",
                   [](BasicNumber& number) {
                       number.set("12");
                       number.type();
                   },
                   k_twentyDigits, outcome<int>, "12"},
        StaleValue{"UnreadTextIsNeverSeen", setTo("12"), k_twentyDigits, outcome<int>, "0"}),
    k_rowName);

TEST(AfterARefusal, DecimalsAndComparisonsUseTheFormerValueToo) {
    BasicNumber number = numberOf(7);
    number.set(k_twentyDigits);
    EXPECT_THROW(number.compare(7ULL), TextOutOfRange);
    EXPECT_EQ(number.compare(7ULL), 0);
    EXPECT_EQ(number.compare(8ULL), -1);
    EXPECT_EQ(numberOf(7).compare(number), 0);
    EXPECT_EQ(number.toDecNumber().compare(zo::DecNumber(7)), 0);
}

TEST(AfterARefusal, TheSameTextSetAnewIsRefusedAnew) {
    BasicNumber number = numberOf(k_twentyDigits);
    EXPECT_THROW(number.type(), TextOutOfRange);
    number.set(k_twentyDigits);
    EXPECT_THROW(number.type(), TextOutOfRange);
}

TEST(AfterARefusal, AShortTextIsReadAgain) {
    BasicNumber number = numberOf(k_twentyDigits);
    EXPECT_THROW(number.type(), TextOutOfRange);
    number.set("12");
    EXPECT_EQ(number.toInt(), 12);
}

}  // namespace
