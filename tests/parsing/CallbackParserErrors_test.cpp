#include <zo/Tessera/CallbackParser.h>

#include <ostream>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Exception.h>

#include "support/EventLog.h"
#include "support/rowName.h"
#include "support/thrown.h"

namespace {

using namespace std::string_literals;
using zo::Tessera::CallbackParser;
using zo::Tessera::Exception;

const char k_marker[] = "\n                     (right here) ------^\n";

struct Malformed {
    const char* name;
    std::string text;
    const char* events;
    const char* error;    // the first line of the message
    std::string context;  // its second one
};

void PrintTo(const Malformed& row, std::ostream* out) {
    *out << row.name;
}

class MalformedText : public testing::TestWithParam<Malformed> {
protected:
    std::string message() const { return GetParam().error + "\n"s + GetParam().context + k_marker; }
};

TEST_P(MalformedText, IsThrownWhenTheListenerAnswersZero) {
    EventLog log;
    CallbackParser parser(&log);
    EXPECT_EQ(thrown<Exception>([&] { parser.parse(GetParam().text); }), message());
    EXPECT_EQ(log.events, GetParam().events);
    EXPECT_EQ(log.errors, message());
    EXPECT_EQ(parser.state(), 2);
}

TEST_P(MalformedText, GivesTheListenersOtherAnswerAsTheResult) {
    for (const int answer : {1, 7, -1}) {
        EventLog log;
        log.errorAnswer = answer;
        CallbackParser parser(&log);
        EXPECT_EQ(parser.parse(GetParam().text.data(), GetParam().text.size()), answer);
        EXPECT_EQ(log.events, GetParam().events);
        EXPECT_EQ(log.errors, message());
        EXPECT_EQ(parser.state(), 2);
    }
}

INSTANTIATE_TEST_SUITE_P(
    CallbackParser, MalformedText,
    testing::Values(
        Malformed{"UnknownCharacter", "[1,x]", "start_array;number 1;",
                  "lexical error: invalid char in json text.", std::string(36, ' ') + "[1,x]"},
        Malformed{"UnknownWord", "[tru]", "start_array;",
                  "lexical error: invalid string in json text.", std::string(36, ' ') + "[tru]"},
        Malformed{"LineBreakInAString", "[\"a\nb\"]", "start_array;",
                  "lexical error: invalid character inside string.",
                  std::string(37, ' ') + "[\"a b\"]"},
        Malformed{
            "UnknownEscape", R"("\x")", "",
            "lexical error: inside a string, '\\' occurs before a character which it may not.",
            std::string(38, ' ') + R"("\x")"},
        Malformed{"SingleSlash", "/x", "", "lexical error: invalid char in json text.",
                  std::string(38, ' ') + "/x"},
        Malformed{"KeyWithoutValue", R"({"a"})", "start_map;key a;",
                  "parse error: object key and value must be separated by a colon (':')",
                  std::string(35, ' ') + R"({"a"})"},
        Malformed{"KeyThatIsNoString", "{1:2}", "start_map;",
                  "parse error: invalid object key (must be a string)",
                  std::string(38, ' ') + "{1:2}"},
        Malformed{"WrongBracket", "[1}", "start_array;number 1;",
                  "parse error: after array element, I expect ',' or ']'",
                  std::string(37, ' ') + "[1}"},
        Malformed{"CommaAtTheEnd", "[1,]", "start_array;number 1;",
                  "parse error: unallowed token at this point in JSON text",
                  std::string(36, ' ') + "[1,]"},
        Malformed{"SecondTopLevelValue", "[] {}", "start_array;end_array;",
                  "parse error: trailing garbage", std::string(36, ' ') + "[] {}"}),
    k_rowName);

TEST(ParserError, ShowsNothingBehindAZeroByte) {
    EventLog log;
    CallbackParser parser(&log);
    EXPECT_EQ(thrown<Exception>([&] { parser.parse("[\0]"s); }),
              "lexical error: invalid char in json text.\n" + std::string(38, ' ') +
                  "[                     (right here) ------^\n");
    EXPECT_EQ(log.events, "start_array;");
}

TEST(ParserError, NamesNoElement) {
    EventLog log;
    CallbackParser parser(&log);
    try {
        parser.parse("x"s);
        FAIL() << "nothing thrown";
    } catch (const Exception& exception) {
        EXPECT_EQ(exception.elementPath(), nullptr);
    }
}

TEST(ParserError, IsReportedForEachFurtherPiece) {
    // A leak check covers the error texts, which the parser keeps where the listener accepts them.
    EventLog log;
    log.errorAnswer = 3;
    CallbackParser parser(&log);
    EXPECT_EQ(parser.parse("[x"s), 3);
    for (int piece = 0; piece < 1000; ++piece) {
        log.errors.clear();
        EXPECT_EQ(parser.parse("1]"s), 3);
        EXPECT_EQ(log.errors.substr(0, log.errors.find('\n')),
                  "lexical error: invalid char in json text.");
        EXPECT_EQ(parser.state(), 2);
    }
    EXPECT_EQ(log.events, "start_array;");
}

TEST(ParserError, IsThrownForEachFurtherPiece) {
    EventLog log;
    CallbackParser parser(&log);
    EXPECT_EQ(thrown<Exception>([&] { parser.parse("]"s); }),
              "parse error: unallowed token at this point in JSON text\n" + std::string(39, ' ') +
                  "]" + k_marker);
    log.errors.clear();
    const std::string second = thrown<Exception>([&] { parser.parse("1"s); });
    EXPECT_EQ(second, log.errors);
    EXPECT_EQ(second.substr(0, second.find('\n')),
              "parse error: unallowed token at this point in JSON text");
}

TEST(ParserError, LetsTheListenersOwnExceptionOut) {
    class Refusing : public EventLog {
    public:
        int cb_error(const char* message) override {
            throw std::out_of_range(std::string(message).substr(0, 13));
        }
    };
    Refusing log;
    CallbackParser parser(&log);
    for (int piece = 0; piece < 3; ++piece) {
        try {
            parser.parse("x"s);
            FAIL() << "nothing thrown";
        } catch (const std::out_of_range& exception) {
            EXPECT_STREQ(exception.what(), "lexical error");
        }
        EXPECT_EQ(parser.state(), 2);
    }
}

TEST(ParserState, IsZeroUntilSomethingIsWrong) {
    EventLog log;
    log.errorAnswer = 1;
    CallbackParser parser(&log);
    EXPECT_EQ(parser.state(), 0);
    parser.parse("[1"s);
    EXPECT_EQ(parser.state(), 0);
    parser.parse("}"s);
    EXPECT_EQ(parser.state(), 2);
    parser.parse(""s);
    EXPECT_EQ(parser.state(), 2);
}

}  // namespace
