#include <zo/Tessera/DomParser.h>

#include <memory>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Generator.h>

#include "support/EventLog.h"
#include "support/FailingNew.h"

using namespace zo::Tessera;

namespace {

// Too long to be kept inside a string, so that each copy allocates.
const std::string k_long = "a text that is too long to be kept inside the string";

std::string compactTextOf(const Dom& dom) {
    Generator generator(nullptr);
    generator.setIndent("");
    return dom.root() ? generator.encode(dom) : "no root";
}

TEST(OutOfMemory, LeavesThePartOfADocumentThatWasBuilt) {
    const std::string text = "{\"" + k_long + "\":[1,\"" + k_long + "\"]} ";
    const long failures = failEachAllocation(
        [] { return std::make_unique<Dom>(); }, [&](auto& dom) { DomParser().parse(*dom, text); },
        [](const auto& dom) {
            EXPECT_THAT(compactTextOf(*dom),
                        testing::AnyOf("no root", "{}", "{\"" + k_long + "\":[]}",
                                       "{\"" + k_long + "\":[1]}",
                                       "{\"" + k_long + "\":[1,\"" + k_long + "\"]}"));
        });
    EXPECT_GT(failures, 10);
}

TEST(OutOfMemory, LosesNothingWhileAnErrorIsReported) {
    long reported = 0;
    const long failures = failEachAllocation(
        [] { return std::make_unique<Dom>(); },
        [&](auto& dom) {
            try {
                DomParser().parse(*dom, std::string("[x"));
            } catch (const ParseException&) {
                ++reported;
            }
        },
        [](const auto& dom) { EXPECT_THAT(compactTextOf(*dom), testing::AnyOf("no root", "[]")); });
    EXPECT_GT(failures, 5);
    EXPECT_EQ(reported, 2);
}

TEST(OutOfMemory, LosesNothingWhileAnErrorIsAccepted) {
    long accepted = 0;
    const auto read = [&](auto& log) {
        log->errorAnswer = 7;
        CallbackParser parser(log.get());
        EXPECT_EQ(parser.parse(std::string("[x")), 7);
        ++accepted;
    };
    const long failures = failEachAllocation(
        [] { return std::make_unique<EventLog>(); }, read,
        [](const auto& log) { EXPECT_THAT(log->events, testing::AnyOf("", "start_array;")); });
    EXPECT_GT(failures, 5);
    EXPECT_EQ(accepted, 2);
}

/// Counts the events and takes no memory.
class EventCount : public CallbackParserListener {
public:
    int cb_null() override { return ++m_count; }
    int cb_boolean(bool) override { return ++m_count; }
    int cb_number(const char*, size_t) override { return ++m_count; }
    int cb_string(const char*, size_t) override { return ++m_count; }
    int cb_start_map() override { return ++m_count; }
    int cb_map_key(const char*, size_t) override { return ++m_count; }
    int cb_end_map() override { return ++m_count; }
    int cb_start_array() override { return ++m_count; }
    int cb_end_array() override { return ++m_count; }
    int cb_error(const char*) override { return 1; }
    int cb_integer(long long) override { return ++m_count; }
    int cb_double(double) override { return ++m_count; }

    int m_count = 0;
};

struct Counted {
    EventCount events;
    CallbackParser parser{&events};
};

TEST(OutOfMemory, MakesNoParserAndLosesNothing) {
    EventCount events;
    const long failures = failEachAllocation(
        [] { return std::unique_ptr<CallbackParser>(); },
        [&](auto& parser) { parser = std::make_unique<CallbackParser>(&events); },
        [](const auto& parser) { EXPECT_EQ(parser, nullptr); });
    EXPECT_GT(failures, 3);
}

// The tokeniser may have noted a size that it did not get: it must not go on.
TEST(OutOfMemory, EndsAParserWhoseTokeniserRanOut) {
    const std::string brackets(300, '[');
    const std::string strings = "\"" + std::string(5000, 'x') + "\\n\",\"" + std::string(9000, 'y');
    for (const std::string& text : {brackets, "[" + strings}) {
        const long failures = failEachAllocation(
            [] { return std::make_unique<Counted>(); },
            [&](auto& counted) { counted->parser.parse(text); },
            [&](auto& counted) {
                const int count = counted->events.m_count;
                EXPECT_THROW(counted->parser.parse(brackets), std::bad_alloc);
                EXPECT_THROW(counted->parser.parse(std::string()), std::bad_alloc);
                EXPECT_EQ(counted->events.m_count, count);
            });
        EXPECT_GT(failures, 3);
    }
}

TEST(OutOfMemory, LeavesInTheStreamWhatHasNotBeenHandedOn) {
    const std::string text = "[\"" + std::string(20000, 'x') + "\",true]";
    struct Reading {
        explicit Reading(const std::string& text) : in(text) {}
        std::istringstream in;
        Counted counted;
    };
    const long failures =
        failEachAllocation([&] { return std::make_unique<Reading>(text); },
                           [&](auto& reading) { reading->counted.parser.parse(reading->in); },
                           [&](auto& reading) {
                               // Either the tokeniser lacked memory, or it has got all that was
                               // read.
                               try {
                                   reading->counted.parser.parse(reading->in);
                                   EXPECT_EQ(reading->counted.events.m_count, 4);
                               } catch (const std::bad_alloc&) {
                                   EXPECT_LT(reading->counted.events.m_count, 4);
                               }
                           });
    EXPECT_GT(failures, 5);
}

TEST(OutOfMemory, PassesFromAListenerThroughTheTokeniser) {
    EventLog log;
    CallbackParser parser(&log);
    log.atEvent = []() -> int { throw std::bad_alloc(); };
    EXPECT_THROW(parser.parse(std::string("[")), std::bad_alloc);
}

TEST(OutOfMemory, LeavesADocumentAsItWasWhenItIsAssignedTo) {
    Dom source;
    source.setRoot(value(k_long));
    source.setMetaKey(k_long);
    const long failures = failEachAllocation(
        [] {
            auto dom = std::make_unique<Dom>();
            dom->setRoot(value(false));
            return dom;
        },
        [&](auto& dom) { *dom = source; },
        [](const auto& dom) {
            EXPECT_EQ(compactTextOf(*dom), "false");
            EXPECT_EQ(dom->metaKey(), "meta");
        });
    EXPECT_GT(failures, 2);
}

TEST(OutOfMemory, LeavesADocumentItsRootWhenACopyIsToReplaceIt) {
    const std::unique_ptr<const Element> root = value(k_long);
    const long failures = failEachAllocation(
        [] {
            auto dom = std::make_unique<Dom>();
            dom->setRoot(value(false));
            return dom;
        },
        [&](auto& dom) { dom->setRoot(*root); },
        [](const auto& dom) { EXPECT_EQ(compactTextOf(*dom), "false"); });
    EXPECT_EQ(failures, 2);
}

}  // namespace
