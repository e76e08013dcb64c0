#include <zo/Tessera/CallbackParser.h>

#include <ostream>
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

const unsigned char k_bytes[] = {'a', 0, 'b', 'c'};

struct Call {
    const char* name;
    int (*call)(void* context);
    std::string event;
};

void PrintTo(const Call& row, std::ostream* out) {
    *out << row.name;
}

class Trampoline : public testing::TestWithParam<Call> {};

TEST_P(Trampoline, CallsTheListenersOperation) {
    EventLog log;
    CallbackParser parser(&log);
    GetParam().call(&parser);
    EXPECT_EQ(log.events, GetParam().event);
}

TEST_P(Trampoline, ReturnsTheListenersAnswerAsItIs) {
    EventLog log;
    CallbackParser parser(&log);
    for (const int answer : {0, 1, 2, -1}) {
        log.atEvent = [answer] { return answer; };
        EXPECT_EQ(GetParam().call(&parser), answer);
    }
}

TEST_P(Trampoline, RefusesToWorkWithoutAListener) {
    CallbackParser parser(nullptr);
    EXPECT_EQ(thrown<Exception>([&] { GetParam().call(&parser); }),
              "No listener attached to CallbackParser!");
}

INSTANTIATE_TEST_SUITE_P(
    CallbackParser, Trampoline,
    testing::Values(
        Call{"Null", [](void* context) { return CallbackParser::cb_null(context); }, "null;"},
        Call{"False", [](void* context) { return CallbackParser::cb_boolean(context, 0); },
             "false;"},
        Call{"True", [](void* context) { return CallbackParser::cb_boolean(context, 1); }, "true;"},
        Call{"AnyOtherBooleanIsTrue",
             [](void* context) { return CallbackParser::cb_boolean(context, -256); }, "true;"},
        Call{"Integer",
             [](void* context) { return CallbackParser::cb_integer(context, -9000000000LL); },
             "integer -9000000000;"},
        Call{"Double", [](void* context) { return CallbackParser::cb_double(context, 1.5); },
             "double 1.500000;"},
        Call{"Number", [](void* context) { return CallbackParser::cb_number(context, "1.505", 4); },
             "number 1.50;"},
        Call{"String", [](void* context) { return CallbackParser::cb_string(context, k_bytes, 3); },
             "string a\0b;"s},
        Call{"StartMap", [](void* context) { return CallbackParser::cb_start_map(context); },
             "start_map;"},
        Call{"MapKey",
             [](void* context) { return CallbackParser::cb_map_key(context, k_bytes, 4); },
             "key a\0bc;"s},
        Call{"EndMap", [](void* context) { return CallbackParser::cb_end_map(context); },
             "end_map;"},
        Call{"StartArray", [](void* context) { return CallbackParser::cb_start_array(context); },
             "start_array;"},
        Call{"EndArray", [](void* context) { return CallbackParser::cb_end_array(context); },
             "end_array;"}),
    k_rowName);

class ParserWithoutListener : public testing::TestWithParam<const char*> {};

TEST_P(ParserWithoutListener, ThrowsAtTheFirstEventOrError) {
    CallbackParser parser(nullptr);
    EXPECT_EQ(thrown<Exception>([&] { parser.parse(std::string(GetParam())); }),
              "No listener attached to CallbackParser!");
}

// The last two are malformed.
INSTANTIATE_TEST_SUITE_P(CallbackParser, ParserWithoutListener,
                         testing::Values("null", "true", "false", "1 ", "1.5 ", "\"a\"", "{", "[",
                                         "x", "]"));

TEST(ParserWithoutListener, IsContentWithoutEvents) {
    CallbackParser parser(nullptr);
    EXPECT_EQ(parser.parse(" /* nothing */ "s), 0);
    EXPECT_EQ(parser.state(), 0);
    parser.setCallbacks();
    EXPECT_EQ(parser.parse("\n"s), 0);
}

TEST(ParserWithoutListener, NamesNoElement) {
    CallbackParser parser(nullptr);
    try {
        parser.parse("[]"s);
        FAIL() << "nothing thrown";
    } catch (const Exception& exception) {
        EXPECT_EQ(exception.elementPath(), nullptr);
    }
}

}  // namespace
