#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <string>

#include "outcome.h"
#include "support/NumberOf.h"
#include "support/notFinite.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

/// One value and what its conversion gives in each form that can hold it; null for the others.
/// The double is the one nearest to the value.
struct Bound {
    const char* name;
    std::string (*convert)(const BasicNumber&);
    const char* value;
    const char* fromLongLong;
    const char* fromULongLong;
    const char* fromDouble;
    const char* fromText;
};

class IntegerBounds : public testing::TestWithParam<Bound> {};

TEST_P(IntegerBounds, HoldForEachBinaryForm) {
    const Bound& row = GetParam();
    if (row.fromLongLong) {
        EXPECT_EQ(row.convert(numberOf(std::stoll(row.value))), row.fromLongLong);
    }
    if (row.fromULongLong) {
        EXPECT_EQ(row.convert(numberOf(std::stoull(row.value))), row.fromULongLong);
    }
    EXPECT_EQ(row.convert(numberOf(std::strtod(row.value, nullptr))), row.fromDouble);
}

TEST_P(IntegerBounds, HoldForTextOfAnIntegerAndOfADouble) {
    const Bound& row = GetParam();
    EXPECT_EQ(row.convert(numberOf(row.value)), row.fromText);
    EXPECT_EQ(row.convert(numberOf(row.value + std::string("e0"))), row.fromDouble);
    EXPECT_EQ(row.convert(numberOf(row.value + std::string(".0"))), row.fromDouble);
}

INSTANTIATE_TEST_SUITE_P(
    Char, IntegerBounds,
    testing::Values(Bound{"BelowMin", outcome<char>, "-129", k_no, nullptr, k_no, k_no},
                    Bound{"Min", outcome<char>, "-128", "-128", nullptr, "-128", "-128"},
                    Bound{"Zero", outcome<char>, "0", "0", "0", "0", "0"},
                    Bound{"Max", outcome<char>, "127", "127", "127", "127", "127"},
                    Bound{"AboveMax", outcome<char>, "128", k_no, k_no, k_no, k_no}),
    k_rowName);

// A signed 0 lies below the unsigned 0, in every unsigned type.
INSTANTIATE_TEST_SUITE_P(
    UChar, IntegerBounds,
    testing::Values(Bound{"BelowMin", outcome<unsigned char>, "-1", k_no, nullptr, k_no, k_no},
                    Bound{"MinusZero", outcome<unsigned char>, "-0", k_no, nullptr, "0", k_no},
                    Bound{"Min", outcome<unsigned char>, "0", k_no, "0", "0", "0"},
                    Bound{"One", outcome<unsigned char>, "1", "1", "1", "1", "1"},
                    Bound{"Max", outcome<unsigned char>, "255", "255", "255", "255", "255"},
                    Bound{"AboveMax", outcome<unsigned char>, "256", k_no, k_no, k_no, k_no}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Short, IntegerBounds,
    testing::Values(Bound{"BelowMin", outcome<short>, "-32769", k_no, nullptr, k_no, k_no},
                    Bound{"Min", outcome<short>, "-32768", "-32768", nullptr, "-32768", "-32768"},
                    Bound{"Zero", outcome<short>, "0", "0", "0", "0", "0"},
                    Bound{"Max", outcome<short>, "32767", "32767", "32767", "32767", "32767"},
                    Bound{"AboveMax", outcome<short>, "32768", k_no, k_no, k_no, k_no}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    UShort, IntegerBounds,
    testing::Values(Bound{"BelowMin", outcome<unsigned short>, "-1", k_no, nullptr, k_no, k_no},
                    Bound{"MinusZero", outcome<unsigned short>, "-0", k_no, nullptr, "0", k_no},
                    Bound{"Min", outcome<unsigned short>, "0", k_no, "0", "0", "0"},
                    Bound{"One", outcome<unsigned short>, "1", "1", "1", "1", "1"},
                    Bound{"Max", outcome<unsigned short>, "65535", "65535", "65535", "65535",
                          "65535"},
                    Bound{"AboveMax", outcome<unsigned short>, "65536", k_no, k_no, k_no, k_no}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Int, IntegerBounds,
    testing::Values(Bound{"BelowMin", outcome<int>, "-2147483649", k_no, nullptr, k_no, k_no},
                    Bound{"Min", outcome<int>, "-2147483648", "-2147483648", nullptr, "-2147483648",
                          "-2147483648"},
                    Bound{"Zero", outcome<int>, "0", "0", "0", "0", "0"},
                    Bound{"Max", outcome<int>, "2147483647", "2147483647", "2147483647",
                          "2147483647", "2147483647"},
                    Bound{"AboveMax", outcome<int>, "2147483648", k_no, k_no, k_no, k_no}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    UInt, IntegerBounds,
    testing::Values(Bound{"BelowMin", outcome<unsigned>, "-1", k_no, nullptr, k_no, k_no},
                    Bound{"MinusZero", outcome<unsigned>, "-0", k_no, nullptr, "0", k_no},
                    Bound{"Min", outcome<unsigned>, "0", k_no, "0", "0", "0"},
                    Bound{"One", outcome<unsigned>, "1", "1", "1", "1", "1"},
                    Bound{"Max", outcome<unsigned>, "4294967295", "4294967295", "4294967295",
                          "4294967295", "4294967295"},
                    Bound{"AboveMax", outcome<unsigned>, "4294967296", k_no, k_no, k_no, k_no}),
    k_rowName);

// The largest integers round up to 2^63 and 2^64 as a double, and so do the bounds they are checked
// against: both pass, and truncate to the top bit alone.
template <class T>
auto signed64Bounds() {
    return testing::Values(
        Bound{"DoubleBelowMin", outcome<T>, "-9223372036854777856", nullptr, nullptr, k_no,
              k_noText},
        Bound{"Min", outcome<T>, "-9223372036854775808", "-9223372036854775808", nullptr,
              "-9223372036854775808", k_noText},
        Bound{"Zero", outcome<T>, "0", "0", "0", "0", "0"},
        Bound{"LargestDoubleBelowMax", outcome<T>, "9223372036854774784", "9223372036854774784",
              "9223372036854774784", "9223372036854774784", "9223372036854774784"},
        Bound{"Max", outcome<T>, "9223372036854775807", "9223372036854775807",
              "9223372036854775807", "-9223372036854775808", "9223372036854775807"},
        Bound{"AboveMax", outcome<T>, "9223372036854775808", nullptr, k_no, "-9223372036854775808",
              k_no},
        Bound{"DoubleAboveMax", outcome<T>, "9223372036854777856", nullptr, k_no, k_no, k_no});
}

template <class T>
auto unsigned64Bounds() {
    return testing::Values(
        Bound{"BelowMin", outcome<T>, "-1", k_no, nullptr, k_no, k_no},
        Bound{"MinusZero", outcome<T>, "-0", k_no, nullptr, "0", k_no},
        Bound{"Min", outcome<T>, "0", k_no, "0", "0", "0"},
        Bound{"One", outcome<T>, "1", "1", "1", "1", "1"},
        Bound{"TopBit", outcome<T>, "9223372036854775808", nullptr, "9223372036854775808",
              "9223372036854775808", "9223372036854775808"},
        Bound{"LargestDoubleBelowMax", outcome<T>, "18446744073709549568", nullptr,
              "18446744073709549568", "18446744073709549568", k_noText},
        Bound{"Max", outcome<T>, "18446744073709551615", nullptr, "18446744073709551615",
              "9223372036854775808", k_noText},
        Bound{"AboveMax", outcome<T>, "18446744073709551616", nullptr, nullptr,
              "9223372036854775808", k_noText},
        Bound{"DoubleAboveMax", outcome<T>, "18446744073709555712", nullptr, nullptr, k_no,
              k_noText});
}

INSTANTIATE_TEST_SUITE_P(Long, IntegerBounds, signed64Bounds<long>(), k_rowName);
INSTANTIATE_TEST_SUITE_P(ULong, IntegerBounds, unsigned64Bounds<unsigned long>(), k_rowName);
INSTANTIATE_TEST_SUITE_P(LongLong, IntegerBounds, signed64Bounds<long long>(), k_rowName);
INSTANTIATE_TEST_SUITE_P(ULongLong, IntegerBounds, unsigned64Bounds<unsigned long long>(),
                         k_rowName);

struct Fraction {
    const char* name;
    std::string (*convert)(const BasicNumber&);
    double value;
    const char* expected;
};

class FractionsToIntegers : public testing::TestWithParam<Fraction> {};

TEST_P(FractionsToIntegers, TruncateTowardZeroAndAreCheckedBeforeTruncation) {
    EXPECT_EQ(GetParam().convert(numberOf(GetParam().value)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    BasicNumber, FractionsToIntegers,
    testing::Values(Fraction{"CharInside", outcome<char>, -3.7, "-3"},
                    Fraction{"CharBelow", outcome<char>, -128.5, k_no},
                    Fraction{"CharAbove", outcome<char>, 127.5, k_no},
                    Fraction{"UCharInside", outcome<unsigned char>, 254.9, "254"},
                    Fraction{"UCharBelow", outcome<unsigned char>, -0.5, k_no},
                    Fraction{"UCharAbove", outcome<unsigned char>, 255.5, k_no},
                    Fraction{"ShortInside", outcome<short>, -32767.9, "-32767"},
                    Fraction{"ShortBelow", outcome<short>, -32768.5, k_no},
                    Fraction{"UShortInside", outcome<unsigned short>, 65534.9, "65534"},
                    Fraction{"UShortAbove", outcome<unsigned short>, 65535.5, k_no},
                    Fraction{"IntInside", outcome<int>, 3.7, "3"},
                    Fraction{"IntInsideNegative", outcome<int>, -3.7, "-3"},
                    Fraction{"IntBelow", outcome<int>, -2147483648.5, k_no},
                    Fraction{"IntAbove", outcome<int>, 2147483647.9, k_no},
                    Fraction{"UIntInside", outcome<unsigned>, 4294967294.9, "4294967294"},
                    Fraction{"UIntAbove", outcome<unsigned>, 4294967295.5, k_no},
                    Fraction{"UIntMinusZero", outcome<unsigned>, -0.0, "0"},
                    Fraction{"LongInside", outcome<long>, -1.9, "-1"},
                    Fraction{"ULongInside", outcome<unsigned long>, 1.9, "1"},
                    Fraction{"ULongBelow", outcome<unsigned long>, -5e-324, k_no},
                    Fraction{"LongLongInside", outcome<long long>, 0.9, "0"},
                    Fraction{"ULongLongInside", outcome<unsigned long long>, 0.9, "0"}),
    k_rowName);

// A NaN compares equal to every bound, so no range test stops it.
class NanConversions : public testing::TestWithParam<Fraction> {};

TEST_P(NanConversions, GiveTheTopBitOfTheTruncationOnEveryPlatform) {
    EXPECT_EQ(GetParam().convert(numberOf(GetParam().value)), GetParam().expected);
    EXPECT_EQ(GetParam().convert(numberOf("nan.")), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    BasicNumber, NanConversions,
    testing::Values(Fraction{"Char", outcome<char>, k_nan, "0"},
                    Fraction{"UChar", outcome<unsigned char>, k_nan, "0"},
                    Fraction{"Short", outcome<short>, k_nan, "0"},
                    Fraction{"UShort", outcome<unsigned short>, k_nan, "0"},
                    Fraction{"Int", outcome<int>, k_nan, "-2147483648"},
                    Fraction{"UInt", outcome<unsigned>, k_nan, "0"},
                    Fraction{"Long", outcome<long>, k_nan, "-9223372036854775808"},
                    Fraction{"ULong", outcome<unsigned long>, k_nan, "9223372036854775808"},
                    Fraction{"LongLong", outcome<long long>, k_nan, "-9223372036854775808"},
                    Fraction{"ULongLong", outcome<unsigned long long>, k_nan,
                             "9223372036854775808"}),
    k_rowName);

class InfinitiesToIntegers : public testing::TestWithParam<std::string (*)(const BasicNumber&)> {};

TEST_P(InfinitiesToIntegers, AreRefused) {
    EXPECT_EQ(GetParam()(numberOf(std::numeric_limits<double>::infinity())), "refused");
    EXPECT_EQ(GetParam()(numberOf(-std::numeric_limits<double>::infinity())), "refused");
}

INSTANTIATE_TEST_SUITE_P(BasicNumber, InfinitiesToIntegers,
                         testing::Values(outcome<char>, outcome<unsigned char>, outcome<short>,
                                         outcome<unsigned short>, outcome<int>, outcome<unsigned>,
                                         outcome<long>, outcome<unsigned long>, outcome<long long>,
                                         outcome<unsigned long long>));

}  // namespace
