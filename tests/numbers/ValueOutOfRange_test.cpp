#include <zo/Tessera/Exception.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <ostream>
#include <string>
#include <type_traits>

#include "outcome.h"
#include "support/NumberOf.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

static_assert(std::is_base_of_v<Exception, ValueOutOfRange<std::string, std::string>>);
static_assert(std::is_base_of_v<Exception, ValueOutOfRange<BasicNumber, int>>);
static_assert(std::is_base_of_v<zo::Exception, Exception>);

template <class T>
std::string messageOf(const BasicNumber& number) {
    return thrown<ValueOutOfRange<BasicNumber, T>>([&] { (number.*k_conversion<T>)(); });
}

struct Message {
    const char* name;
    std::string (*messageOf)(const BasicNumber&);
    BasicNumber number;
    std::string text;
};

void PrintTo(const Message& row, std::ostream* out) {
    *out << row.name;
}

class OutOfRangeMessages : public testing::TestWithParam<Message> {};

TEST_P(OutOfRangeMessages, NameTheValueAndBothBounds) {
    EXPECT_EQ(GetParam().messageOf(GetParam().number), "Value out of range! " + GetParam().text);
}

// The bounds of the two char types are raw bytes, not numbers; callers match on this text.
INSTANTIATE_TEST_SUITE_P(Bytes, OutOfRangeMessages,
                         testing::Values(Message{"Char", messageOf<char>, numberOf(128),
                                                 "Value: 128 Min: \x80 Max: \x7F"},
                                         Message{"CharBelow", messageOf<char>, numberOf("-129"),
                                                 "Value: -129 Min: \x80 Max: \x7F"},
                                         Message{"UChar", messageOf<unsigned char>, numberOf(256U),
                                                 std::string("Value: 256 Min: \0 Max: \xFF", 24)},
                                         Message{"UCharBelow", messageOf<unsigned char>,
                                                 numberOf(-1),
                                                 std::string("Value: -1 Min: \0 Max: \xFF", 23)}),
                         k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Integers, OutOfRangeMessages,
    testing::Values(
        Message{"Short", messageOf<short>, numberOf(40000), "Value: 40000 Min: -32768 Max: 32767"},
        Message{"UShort", messageOf<unsigned short>, numberOf(70000),
                "Value: 70000 Min: 0 Max: 65535"},
        Message{"Int", messageOf<int>, numberOf(3000000000LL),
                "Value: 3000000000 Min: -2147483648 Max: 2147483647"},
        Message{"UInt", messageOf<unsigned>, numberOf(0), "Value: 0 Min: 0 Max: 4294967295"},
        Message{"Long", messageOf<long>, numberOf(9223372036854775808ULL),
                "Value: 9223372036854775808 Min: -9223372036854775808 Max: 9223372036854775807"},
        Message{"ULong", messageOf<unsigned long>, numberOf(-1),
                "Value: -1 Min: 0 Max: 18446744073709551615"},
        Message{"LongLong", messageOf<long long>, numberOf(18446744073709551615ULL),
                "Value: 18446744073709551615 Min: -9223372036854775808 Max: 9223372036854775807"},
        Message{"ULongLong", messageOf<unsigned long long>, numberOf("-0"),
                "Value: -0 Min: 0 Max: 18446744073709551615"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(Floating, OutOfRangeMessages,
                         testing::Values(Message{"Float", messageOf<float>, numberOf(-1),
                                                 "Value: -1 Min: 1.17549e-38 Max: "
                                                 "3.40282e+38"},
                                         Message{"Double", messageOf<double>, numberOf(-1),
                                                 "Value: -1 Min: 2.22507e-308 Max: "
                                                 "1.79769e+308"}),
                         k_rowName);

INSTANTIATE_TEST_SUITE_P(
    HeldForms, OutOfRangeMessages,
    testing::Values(Message{"Text", messageOf<short>, numberOf("0040000"),
                            "Value: 0040000 Min: -32768 Max: 32767"},
                    Message{"TextOfADouble", messageOf<short>, numberOf("4.00e4"),
                            "Value: 4.00e4 Min: -32768 Max: 32767"},
                    Message{"OddText", messageOf<short>, numberOf(" 40000abc"),
                            "Value:  40000abc Min: -32768 Max: 32767"},
                    Message{"Unsigned", messageOf<short>, numberOf(40000U),
                            "Value: 40000 Min: -32768 Max: 32767"},
                    Message{"Double", messageOf<int>, numberOf(2147483647.9),
                            "Value: 2.14748e+09 Min: -2147483648 Max: 2147483647"},
                    Message{"Infinity", messageOf<int>,
                            numberOf(std::numeric_limits<double>::infinity()),
                            "Value: inf Min: -2147483648 Max: 2147483647"}),
    k_rowName);

TEST(OutOfRangeMessage, OfAByteEndsForWhatAtTheZero) {
    try {
        numberOf(256).toUChar();
        FAIL();
    } catch (const zo::Exception& exception) {
        EXPECT_STREQ(exception.what(), "Value out of range! Value: 256 Min: ");
    }
}

TEST(OutOfRangeMessage, ReplacesWhatTheCallersTextHeld) {
    const ValueOutOfRange<std::string, std::string> exception("a", "b", "c");
    std::string out = "former text, longer than the message that comes into its place";
    exception.generateWhat(out);
    EXPECT_EQ(out, "Value out of range! Value: a Min: b Max: c");
}

TEST(OutOfRangeMessage, LeavesACauseOut) {
    const zo::RuntimeError cause("the cause");
    const ValueOutOfRange<BasicNumber, int> exception(numberOf("5"), 1, 2, &cause);
    EXPECT_STREQ(exception.what(), "Value out of range! Value: 5 Min: 1 Max: 2");
}

struct Bounds {
    const char* name;
    std::function<void()> check;
};

class OutOfRangeBounds : public testing::TestWithParam<Bounds> {};

TEST_P(OutOfRangeBounds, AreThoseOfTheType) {
    GetParam().check();
}

template <class T>
Bounds boundsOf(const char* name, T min, T max) {
    return Bounds{name, [min, max] {
                      const BasicNumber number = numberOf(-1e300);
                      try {
                          (number.*k_conversion<T>)();
                          ADD_FAILURE();
                      } catch (const ValueOutOfRange<BasicNumber, T>& exception) {
                          EXPECT_EQ(exception.min(), min);
                          EXPECT_EQ(exception.max(), max);
                          EXPECT_EQ(exception.value().toString(), "-1e+300");
                          EXPECT_EQ(exception.elementPath(), nullptr);
                      }
                  }};
}

INSTANTIATE_TEST_SUITE_P(
    ValueOutOfRange, OutOfRangeBounds,
    testing::Values(boundsOf<char>("Char", static_cast<char>(-128), '\x7F'),
                    boundsOf<unsigned char>("UChar", 0, 255),
                    boundsOf<short>("Short", -32768, 32767),
                    boundsOf<unsigned short>("UShort", 0, 65535),
                    boundsOf<int>("Int", -2147483647 - 1, 2147483647),
                    boundsOf<unsigned>("UInt", 0, 4294967295U),
                    boundsOf<long>("Long", -9223372036854775807L - 1, 9223372036854775807L),
                    boundsOf<unsigned long>("ULong", 0, 18446744073709551615UL),
                    boundsOf<long long>("LongLong", -9223372036854775807LL - 1,
                                        9223372036854775807LL),
                    boundsOf<unsigned long long>("ULongLong", 0, 18446744073709551615ULL),
                    boundsOf<float>("Float", 1.17549435e-38F, 3.40282347e+38F),
                    boundsOf<double>("Double", 2.2250738585072014e-308, 1.7976931348623157e+308)),
    k_rowName);

TEST(OutOfRangeValue, IsACopyWithBothForms) {
    BasicNumber number = numberOf("4.00e4");
    try {
        number.toShort();
        FAIL();
    } catch (const ValueOutOfRange<BasicNumber, short>& exception) {
        number.set(5);
        EXPECT_EQ(exception.value().toString(), "4.00e4");
        EXPECT_EQ(exception.value().type(), BasicNumber::ebDouble);
        EXPECT_EQ(exception.value().toInt(), 40000);
        EXPECT_STREQ(exception.what(), "Value out of range! Value: 4.00e4 Min: -32768 Max: 32767");
    }
}

TEST(OutOfRangeValue, GetsItsTextInTheExceptionAlone) {
    const BasicNumber number = numberOf(1e300);
    EXPECT_EQ(messageOf<int>(number),
              "Value out of range! Value: 1e+300 Min: -2147483648 Max: 2147483647");
    EXPECT_EQ(number.type(), BasicNumber::ebDouble);
    EXPECT_EQ(number.toDouble(), 1e300);
}

TEST(OutOfRangeException, IsCaughtAsEachOfItsBases) {
    EXPECT_THROW(numberOf(300).toChar(), Exception);
    EXPECT_THROW(numberOf(300).toChar(), zo::Exception);
    EXPECT_THROW(numberOf("1e400").type(), Exception);
    EXPECT_THROW(numberOf("1e400").type(), zo::Exception);
}

template <class From, class To>
void expectFaithfulClone(const From& value, To min, To max, const std::string& message) {
    auto original = std::make_unique<ValueOutOfRange<From, To>>(value, min, max);
    const zo::Exception& base = *original;
    const std::unique_ptr<const zo::Exception> clone(base.clone());
    original.reset();  // the clone has copies of its own
    EXPECT_EQ((thrown<ValueOutOfRange<From, To>>(
                  [&] { throw dynamic_cast<const ValueOutOfRange<From, To>&>(*clone); })),
              message);
}

TEST(OutOfRangeClone, KeepsClassMessageAndFieldsForEveryType) {
    const std::string begin = "Value out of range! Value: ";
    expectFaithfulClone<std::string, std::string>("a", "b", "c", begin + "a Min: b Max: c");
    const BasicNumber number = numberOf("7.50");
    expectFaithfulClone<BasicNumber, char>(number, 'a', 'z', begin + "7.50 Min: a Max: z");
    expectFaithfulClone<BasicNumber, unsigned char>(number, 'b', 'y', begin + "7.50 Min: b Max: y");
    expectFaithfulClone<BasicNumber, short>(number, -1, 2, begin + "7.50 Min: -1 Max: 2");
    expectFaithfulClone<BasicNumber, unsigned short>(number, 1, 2, begin + "7.50 Min: 1 Max: 2");
    expectFaithfulClone<BasicNumber, int>(number, -3, 4, begin + "7.50 Min: -3 Max: 4");
    expectFaithfulClone<BasicNumber, unsigned>(number, 3, 4, begin + "7.50 Min: 3 Max: 4");
    expectFaithfulClone<BasicNumber, long>(number, -5, 6, begin + "7.50 Min: -5 Max: 6");
    expectFaithfulClone<BasicNumber, unsigned long>(number, 5, 6, begin + "7.50 Min: 5 Max: 6");
    expectFaithfulClone<BasicNumber, long long>(number, -7, 8, begin + "7.50 Min: -7 Max: 8");
    expectFaithfulClone<BasicNumber, unsigned long long>(number, 7, 8,
                                                         begin + "7.50 Min: 7 Max: 8");
    expectFaithfulClone<BasicNumber, float>(number, 0.1F, 1e10F,
                                            begin + "7.50 Min: 0.1 Max: 1e+10");
    expectFaithfulClone<BasicNumber, double>(number, 3.14159265, 1234567.0,
                                             begin + "7.50 Min: 3.14159 Max: 1.23457e+06");
}

TEST(OutOfRangeCopies, AreIndependentOfEachOther) {
    const ValueOutOfRange<BasicNumber, int> first(numberOf("5"), 1, 2);
    const ValueOutOfRange<BasicNumber, int> copy(first);
    ValueOutOfRange<BasicNumber, int> assigned(numberOf("6"), 3, 4);
    assigned = first;
    for (const auto* exception : {&copy, &const_cast<const decltype(assigned)&>(assigned)}) {
        EXPECT_STREQ(exception->what(), "Value out of range! Value: 5 Min: 1 Max: 2");
        EXPECT_EQ(exception->value().toString(), "5");
        EXPECT_EQ(exception->min(), 1);
        EXPECT_EQ(exception->max(), 2);
        EXPECT_NE(&exception->value(), &first.value());
    }
}

TEST(OutOfRangeCopies, OfAnExceptionToItselfChangeNothing) {
    ValueOutOfRange<BasicNumber, int> exception(numberOf("5"), 1, 2);
    const auto& same = exception;
    exception = same;
    EXPECT_STREQ(exception.what(), "Value out of range! Value: 5 Min: 1 Max: 2");
}

}  // namespace
