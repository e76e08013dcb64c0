#include <zo/Tessera/CallbackParser.h>

#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <zo/Tessera/Exception.h>

#include "support/EventLog.h"
#include "support/HostileLocale.h"
#include "support/rowName.h"
#include "support/thrown.h"

namespace {

using namespace std::string_literals;
using zo::Tessera::CallbackParser;

/// Keeps the converted numbers; changes its mind about how it wants them.
class Numbers : public EventLog {
public:
    explicit Numbers(bool asText) : m_asText(asText) {}

    int cb_integer(long long value) override {
        integers.push_back(value);
        return 1;
    }
    int cb_double(double value) override {
        doubles.push_back(value);
        return 1;
    }
    bool use_number_callback() override {
        ++asked;
        return m_asText;
    }
    void want(bool asText) { m_asText = asText; }

    std::vector<long long> integers;
    std::vector<double> doubles;
    int asked = 0;

private:
    bool m_asText;
};

/// Leaves the choice to the library.
class NoChoice : public EventLog {
public:
    bool use_number_callback() override { return CallbackParserListener::use_number_callback(); }
};

TEST(NumbersAsText, AreTheDefault) {
    NoChoice log;
    EXPECT_TRUE(log.use_number_callback());
    CallbackParser parser(&log);
    parser.parse("[15,1.50]"s);
    EXPECT_EQ(log.events, "start_array;number 15;number 1.50;end_array;");
}

TEST(NumbersAsText, AreNeverConverted) {
    Numbers log(true);
    CallbackParser parser(&log);
    parser.parse("[15,1.50,-0,1E400,9223372036854775808]"s);
    EXPECT_EQ(log.events,
              "start_array;number 15;number 1.50;number -0;number 1E400;"
              "number 9223372036854775808;end_array;");
    EXPECT_EQ(log.integers, std::vector<long long>{});
    EXPECT_EQ(log.doubles, std::vector<double>{});
}

TEST(NumbersAsText, KeepTheirTextInAHostileLocale) {
    const HostileLocale locale;
    Numbers log(true);
    CallbackParser parser(&log);
    parser.parse("[1234567,1234567.50]"s);
    EXPECT_EQ(log.events, "start_array;number 1234567;number 1234567.50;end_array;");
}

TEST(NumbersConverted, AreIntegersOrDoublesByTheirForm) {
    Numbers log(false);
    CallbackParser parser(&log);
    EXPECT_EQ(parser.parse("[15,1.5,-7,1e2,-0.25,0]"s), 0);
    EXPECT_EQ(log.integers, (std::vector<long long>{15, -7, 0}));
    EXPECT_EQ(log.doubles, (std::vector<double>{1.5, 100.0, -0.25}));
    EXPECT_EQ(log.events, "start_array;end_array;");
}

TEST(NumbersConverted, ReachTheLimitsOfLongLong) {
    Numbers log(false);
    CallbackParser parser(&log);
    EXPECT_EQ(parser.parse("[9223372036854775807,-9223372036854775807]"s), 0);
    EXPECT_EQ(log.integers,
              (std::vector<long long>{9223372036854775807LL, -9223372036854775807LL}));
}

TEST(NumbersConverted, AreTheSameWhereverTheTextIsCutInTwo) {
    const std::string text = "[-1234,56.25,1e-2]";
    for (size_t length = 0; length <= text.size(); ++length) {
        Numbers log(false);
        CallbackParser parser(&log);
        parser.parse(text.substr(0, length));
        parser.parse(text.substr(length));
        EXPECT_EQ(log.integers, std::vector<long long>{-1234}) << "cut after " << length;
        EXPECT_EQ(log.doubles, (std::vector<double>{56.25, 0.01})) << "cut after " << length;
    }
}

TEST(NumbersConverted, AreTheSameInAHostileLocale) {
    const HostileLocale locale;
    Numbers log(false);
    CallbackParser parser(&log);
    EXPECT_EQ(parser.parse("[1234567,1234567.5,-0.25,1.5e3]"s), 0);
    EXPECT_EQ(log.integers, std::vector<long long>{1234567});
    EXPECT_EQ(log.doubles, (std::vector<double>{1234567.5, -0.25, 1500.0}));
}

struct Overflow {
    const char* name;
    const char* text;
    const char* error;
};

void PrintTo(const Overflow& row, std::ostream* out) {
    *out << row.name;
}

class NumbersConvertedOverflow : public testing::TestWithParam<Overflow> {};

TEST_P(NumbersConvertedOverflow, IsAnErrorInTheText) {
    Numbers log(false);
    log.errorAnswer = 5;
    CallbackParser parser(&log);
    EXPECT_EQ(parser.parse(std::string(GetParam().text)), 5);
    EXPECT_EQ(log.errors, GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(CallbackParser, NumbersConvertedOverflow,
                         testing::Values(Overflow{"Integer", "9223372036854775808 ",
                                                  R"(parse error: integer overflow
                                        9223372036854775808 
                     (right here) ------^
)"},
                                         Overflow{"Double", "1e400 ",
                                                  R"(parse error: numeric (floating point) overflow
                                        1e400 
                     (right here) ------^
)"}),
                         k_rowName);

TEST(SetCallbacks, IsDoneOnceByTheConstructor) {
    Numbers log(true);
    CallbackParser parser(&log);
    EXPECT_EQ(log.asked, 1);
    parser.parse("[1,2]"s);
    EXPECT_EQ(log.asked, 1);
    parser.setCallbacks();
    EXPECT_EQ(log.asked, 2);
}

TEST(SetCallbacks, TakesUpTheListenersNewAnswer) {
    Numbers log(true);
    CallbackParser parser(&log);
    parser.parse("[1,"s);
    log.want(false);
    parser.parse("2,"s);
    parser.setCallbacks();
    parser.parse("3,4.5,"s);
    log.want(true);
    parser.setCallbacks();
    parser.parse("6]"s);
    EXPECT_EQ(log.events, "start_array;number 1;number 2;number 6;end_array;");
    EXPECT_EQ(log.integers, std::vector<long long>{3});
    EXPECT_EQ(log.doubles, std::vector<double>{4.5});
}

// The tokeniser would cut the length of a number off at 4 GiB. The text itself is not looked at.
TEST(ConvertedNumbers, AreRefusedInAPieceThatIsTooLong) {
    Numbers log(false);
    CallbackParser parser(&log);
    const std::string text = "[1,";
    EXPECT_EQ(thrown<zo::Tessera::Exception>([&] { parser.parse(text.data(), size_t{1} << 31); }),
              "Text too long for numbers to be converted!");
    EXPECT_EQ(log.events, "");
    EXPECT_EQ(parser.state(), 0);
    EXPECT_EQ(parser.parse(text), 0);
    EXPECT_EQ(log.events, "start_array;");
    EXPECT_EQ(log.integers, std::vector<long long>{1});
}

TEST(ConvertedNumbers, AreRefusedInAPieceThatAddsUpWithTheLastOnes) {
    Numbers log(false);
    CallbackParser parser(&log);
    const size_t most = (size_t{1} << 31) - 1;
    parser.parse("["s);
    parser.parse("   "s);
    EXPECT_EQ(thrown<zo::Tessera::Exception>([&] { parser.parse("   ", most - 2); }),
              "Text too long for numbers to be converted!");
    EXPECT_EQ(parser.parse("]"s), 0);
    EXPECT_EQ(log.events, "start_array;end_array;");
}

/// Chooses converted numbers in the middle of a piece.
class ChangeOfMind : public Numbers {
public:
    ChangeOfMind() : Numbers(true) {}

    int cb_start_array() override {
        want(false);
        parser.setCallbacks();
        return 1;
    }

    CallbackParser parser{this};
};

// What stands behind the bracket is not looked at.
TEST(ConvertedNumbers, AreRefusedInTheRestOfAPieceThatIsTooLong) {
    ChangeOfMind log;
    EXPECT_EQ(thrown<zo::Tessera::Exception>([&] { log.parser.parse("[1,", size_t{1} << 31); }),
              "Text too long for numbers to be converted!");
}

}  // namespace
