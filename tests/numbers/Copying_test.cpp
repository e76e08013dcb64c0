#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include <zo/Tessera/Exception.h>

#include "forceType.h"
#include "support/NumberOf.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using TextOutOfRange = ValueOutOfRange<std::string, std::string>;

struct Copier {
    const char* name;
    std::function<BasicNumber(const BasicNumber&)> copy;
};

class CopyOfANumber : public testing::TestWithParam<Copier> {
protected:
    BasicNumber copyOf(const BasicNumber& number) const { return GetParam().copy(number); }
};

TEST_P(CopyOfANumber, KeepsTextThatWasNeverRead) {
    const BasicNumber copy = copyOf(numberOf("1.50"));
    EXPECT_EQ(copy.toString(), "1.50");
    EXPECT_EQ(copy.type(), BasicNumber::ebDouble);
}

TEST_P(CopyOfANumber, KeepsAnUnreadTextsRefusal) {
    const BasicNumber number = numberOf("12345678901234567890");
    const BasicNumber copy = copyOf(number);
    EXPECT_EQ(thrown<TextOutOfRange>([&] { copy.type(); }),
              "Value out of range! Value: 12345678901234567890 Min:  Max: ");
    EXPECT_EQ(thrown<TextOutOfRange>([&] { number.type(); }),
              "Value out of range! Value: 12345678901234567890 Min:  Max: ");
}

TEST_P(CopyOfANumber, KeepsTheBinaryValueThatARefusedTextLeft) {
    BasicNumber number = numberOf(7);
    number.set("12345678901234567890");
    EXPECT_THROW(number.type(), TextOutOfRange);
    const BasicNumber copy = copyOf(number);
    EXPECT_EQ(copy.type(), BasicNumber::ebULongLong);
    EXPECT_EQ(copy.toULongLong(), 7U);
    EXPECT_EQ(copy.toString(), "12345678901234567890");
}

TEST_P(CopyOfANumber, KeepsTheFormerBinaryValueBehindAnUnreadText) {
    BasicNumber number = numberOf(7);
    number.set("");
    EXPECT_EQ(copyOf(number).toULongLong(), 7U);
}

TEST_P(CopyOfANumber, KeepsABinaryValueWithoutText) {
    const BasicNumber copy = copyOf(numberOf(-5));
    EXPECT_EQ(copy.type(), BasicNumber::ebLongLong);
    EXPECT_EQ(copy.toInt(), -5);
    EXPECT_EQ(copy.toString(), "-5");
}

TEST_P(CopyOfANumber, KeepsTheBigDecimalType) {
    const BasicNumber copy = copyOf(bigDecimal("1e400"));
    EXPECT_EQ(copy.type(), BasicNumber::ebBigDecimal);
    EXPECT_EQ(copy.toString(), "1e400");
}

INSTANTIATE_TEST_SUITE_P(BasicNumber, CopyOfANumber,
                         testing::Values(Copier{"BySetter",
                                                [](const BasicNumber& number) {
                                                    BasicNumber copy = numberOf(99.5);
                                                    copy.set(number);
                                                    return copy;
                                                }},
                                         Copier{"ByConstructor",
                                                [](const BasicNumber& number) {
                                                    return BasicNumber(number);
                                                }},
                                         Copier{"ByAssignment",
                                                [](const BasicNumber& number) {
                                                    BasicNumber copy = numberOf("99");
                                                    copy = number;
                                                    return copy;
                                                }},
                                         Copier{"ByMoveConstructor",
                                                [](const BasicNumber& number) {
                                                    BasicNumber source(number);
                                                    return BasicNumber(std::move(source));
                                                }},
                                         Copier{"ByMoveAssignment",
                                                [](const BasicNumber& number) {
                                                    BasicNumber source(number);
                                                    BasicNumber copy = numberOf(L"99");
                                                    copy = std::move(source);
                                                    return copy;
                                                }}),
                         k_rowName);

TEST(CopiesOfANumber, AreIndependent) {
    BasicNumber number = numberOf("12");
    BasicNumber copy;
    copy.set(number);
    number.set(5);
    EXPECT_EQ(copy.toString(), "12");
    copy.set("-7");
    EXPECT_EQ(number.toString(), "5");
}

TEST(SetFromItself, ChangesNothing) {
    BasicNumber text = numberOf("12345678901234567890");
    text.set(text);
    EXPECT_EQ(text.toString(), "12345678901234567890");
    EXPECT_EQ(thrown<TextOutOfRange>([&] { text.type(); }),
              "Value out of range! Value: 12345678901234567890 Min:  Max: ");
    text.set(text);
    EXPECT_EQ(text.type(), BasicNumber::ebULongLong);  // still as after the one refusal

    BasicNumber binary = numberOf(2.5);
    binary.set(binary);
    EXPECT_EQ(binary.type(), BasicNumber::ebDouble);
    EXPECT_EQ(binary.toString(), "2.5");
}

struct OwnText {
    const char* name;
    std::function<void(BasicNumber&)> set;
    const char* text;
};

class SetFromOwnText : public testing::TestWithParam<OwnText> {};

TEST_P(SetFromOwnText, WorksAsIfTheTextWereCopiedFirst) {
    // Long enough to live on the heap.
    BasicNumber number = numberOf("-1234567890.123456789012345678901234567890");
    GetParam().set(number);
    EXPECT_EQ(number.toString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    BasicNumber, SetFromOwnText,
    testing::Values(
        OwnText{"String", [](BasicNumber& number) { number.set(number.toString()); },
                "-1234567890.123456789012345678901234567890"},
        OwnText{"Pointer", [](BasicNumber& number) { number.set(number.toString().c_str()); },
                "-1234567890.123456789012345678901234567890"},
        OwnText{"PointerInside",
                [](BasicNumber& number) { number.set(number.toString().c_str() + 1); },
                "1234567890.123456789012345678901234567890"},
        OwnText{"PointerAndLength",
                [](BasicNumber& number) { number.set(number.toString().c_str(), 11); },
                "-1234567890"},
        OwnText{"PointerInsideAndLength",
                [](BasicNumber& number) { number.set(number.toString().c_str() + 1, 10); },
                "1234567890"}),
    k_rowName);

TEST(SetFromOwnText, MakesTheTextOfABinaryNumberTheOnlyForm) {
    BasicNumber number = numberOf(1234567.0);
    number.set(number.toString());
    EXPECT_EQ(number.toString(), "1.23457e+06");
    EXPECT_EQ(number.toInt(), 1234570);  // the digits that the text lost are gone
}

TEST(SetFromOwnText, ReadsAnIntegersTypeAnew) {
    BasicNumber number = numberOf(5);
    number.set(number.toString().c_str());
    EXPECT_EQ(number.type(), BasicNumber::ebULongLong);
}

}  // namespace
