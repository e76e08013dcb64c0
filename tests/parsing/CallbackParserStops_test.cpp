#include <zo/Tessera/CallbackParser.h>

#include <algorithm>
#include <memory>
#include <sstream>
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

/// One text that ends with the event concerned.
struct LastEvent {
    const char* name;
    bool numbersAsText;
    const char* text;
    const char* events;
};

void PrintTo(const LastEvent& row, std::ostream* out) {
    *out << row.name;
}

/// What a listener throws that shares no class with any library.
struct Stopped {
    std::string after;
};

/// A listener that answers 1 until `last` is noted, and then what `atLast` does.
template <class AtLast>
std::unique_ptr<EventLog> logUntil(const LastEvent& row, AtLast atLast) {
    auto log = std::make_unique<EventLog>(row.numbersAsText);
    log->atEvent = [events = &log->events, last = row.events, atLast] {
        return *events == last ? atLast() : 1;
    };
    return log;
}

class EventThatEndsTheParse : public testing::TestWithParam<LastEvent> {};

TEST_P(EventThatEndsTheParse, ByAnsweringZeroIsAnError) {
    const auto log = logUntil(GetParam(), [] { return 0; });
    CallbackParser parser(log.get());
    const std::string error =
        thrown<Exception>([&] { parser.parse(std::string(GetParam().text)); });
    EXPECT_EQ(error.substr(0, error.find('\n')),
              "parse error: client cancelled parse via callback return value");
    EXPECT_EQ(log->errors, error);
    EXPECT_EQ(log->events, GetParam().events);
    EXPECT_EQ(parser.state(), 1);
}

TEST_P(EventThatEndsTheParse, ByAnsweringZeroIsTheListenersResultWhenItAcceptsTheError) {
    const auto log = logUntil(GetParam(), [] { return 0; });
    log->errorAnswer = 9;
    CallbackParser parser(log.get());
    EXPECT_EQ(parser.parse(std::string(GetParam().text)), 9);
    EXPECT_EQ(parser.state(), 1);
    EXPECT_EQ(parser.parse("1"s), 9);
    EXPECT_EQ(parser.state(), 2);
    EXPECT_EQ(log->events, GetParam().events);
}

TEST_P(EventThatEndsTheParse, ByAnsweringAnythingElseGoesOn) {
    const auto log = logUntil(GetParam(), [] { return -1; });
    CallbackParser parser(log.get());
    EXPECT_EQ(parser.parse(std::string(GetParam().text)), 0);
    EXPECT_EQ(parser.state(), 0);
    EXPECT_NE(log->events, GetParam().events);
}

TEST_P(EventThatEndsTheParse, ByThrowingLetsTheExceptionOutOfTheText) {
    const auto log = logUntil(GetParam(), []() -> int { throw Stopped{GetParam().events}; });
    CallbackParser parser(log.get());
    try {
        parser.parse(std::string(GetParam().text));
        FAIL() << "nothing thrown";
    } catch (const Stopped& stopped) {
        EXPECT_EQ(stopped.after, GetParam().events);
    }
    EXPECT_EQ(log->errors, "");
    EXPECT_EQ(parser.state(), 0);
}

TEST_P(EventThatEndsTheParse, ByThrowingLetsTheExceptionOutOfTheStream) {
    const auto log = logUntil(GetParam(), []() -> int { throw std::string("by its own type"); });
    auto parser = std::make_unique<CallbackParser>(log.get());
    std::istringstream in(GetParam().text);
    try {
        parser->parse(in);
        FAIL() << "nothing thrown";
    } catch (const std::string& text) {
        EXPECT_EQ(text, "by its own type");
    }
    EXPECT_TRUE(in.good());
}

// A further event follows each, so that it shows when the parse goes on.
INSTANTIATE_TEST_SUITE_P(
    CallbackParser, EventThatEndsTheParse,
    testing::Values(LastEvent{"Null", true, "[null,1]", "start_array;null;"},
                    LastEvent{"Boolean", true, "[false,1]", "start_array;false;"},
                    LastEvent{"Number", true, "[1.50,2]", "start_array;number 1.50;"},
                    LastEvent{"String", true, R"(["a\u0041",1])", "start_array;string aA;"},
                    LastEvent{"StartMap", true, R"({"a":1})", "start_map;"},
                    LastEvent{"MapKey", true, R"({"a\n":1})", "start_map;key a\n;"},
                    LastEvent{"EndMap", true, R"([{"a":1},2])",
                              "start_array;start_map;key a;number 1;end_map;"},
                    LastEvent{"StartArray", true, "[1]", "start_array;"},
                    LastEvent{"EndArray", true, "[[1],2]",
                              "start_array;start_array;number 1;end_array;"},
                    LastEvent{"Integer", false, "[15,2]", "start_array;integer 15;"},
                    LastEvent{"Double", false, "[1.5,2]", "start_array;double 1.500000;"}),
    k_rowName);

const char k_document[] = R"({"n":null,"b":true,"i":1,"s":"x\ty","a":[{},[2.5]]})";

TEST(ParserStops, AtEachEventOfADocument) {
    EventLog whole;
    CallbackParser(&whole).parse(std::string(k_document));
    const auto count = std::count(whole.events.begin(), whole.events.end(), ';');
    ASSERT_EQ(count, 18);
    for (int stopAt = 1; stopAt <= count; ++stopAt) {
        EventLog log;
        int seen = 0;
        log.atEvent = [&] { return ++seen < stopAt ? 1 : 0; };
        log.errorAnswer = 4;
        CallbackParser parser(&log);
        EXPECT_EQ(parser.parse(std::string(k_document)), 4) << "event " << stopAt;
        EXPECT_EQ(seen, stopAt);
        EXPECT_EQ(parser.state(), 1);
        EXPECT_EQ(log.events, whole.events.substr(0, log.events.size()));
    }
}

TEST(ParserStops, ByAnExceptionAtEachEventOfADocumentInPieces) {
    for (int stopAt = 1; stopAt <= 18; ++stopAt) {
        EventLog log(false);
        int seen = 0;
        log.atEvent = [&] {
            if (++seen == stopAt) {
                throw Stopped{};
            }
            return 1;
        };
        CallbackParser parser(&log);
        EXPECT_THROW(
            {
                for (const char* next = k_document; *next; ++next) {
                    parser.parse(next, 1);
                }
            },
            Stopped)
            << "event " << stopAt;
        EXPECT_EQ(seen, stopAt);
    }
}

TEST(ParserStops, WithATextThatShowsTheEventsPlace) {
    EventLog log;
    log.atEvent = [&log] { return log.events == "start_array;number 1;null;" ? 0 : 1; };
    CallbackParser parser(&log);
    EXPECT_EQ(thrown<Exception>([&] { parser.parse("[1,null,true]"s); }),
              R"(parse error: client cancelled parse via callback return value
                                 [1,null,true]
                     (right here) ------^
)");
}

TEST(ParserStops, ByTheFirstEventThatAnswersZeroAlone) {
    EventLog log;
    log.atEvent = [] { return 0; };
    CallbackParser parser(&log);
    EXPECT_EQ(thrown<Exception>([&] { parser.parse("{\"a\":1}"s); }),
              R"(parse error: client cancelled parse via callback return value
                                       {"a":1}
                     (right here) ------^
)");
    EXPECT_EQ(log.events, "start_map;");
}

}  // namespace
