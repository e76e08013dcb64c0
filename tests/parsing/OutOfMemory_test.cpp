#include <zo/Tessera/DomParser.h>

#include <memory>
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

std::string textOf(const Dom& dom) {
    Generator generator(nullptr);
    generator.setIndent("");
    return dom.root() ? generator.encode(dom) : "no root";
}

TEST(OutOfMemory, LeavesThePartOfADocumentThatWasBuilt) {
    const std::string text = "{\"" + k_long + "\":[1,\"" + k_long + "\"]} ";
    const long failures = failEachAllocation(
        [] { return std::make_unique<Dom>(); }, [&](auto& dom) { DomParser().parse(*dom, text); },
        [](const auto& dom) {
            EXPECT_THAT(textOf(*dom), testing::AnyOf("no root", "{}", "{\"" + k_long + "\":[]}",
                                                     "{\"" + k_long + "\":[1]}"));
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
        [](const auto& dom) { EXPECT_THAT(textOf(*dom), testing::AnyOf("no root", "[]")); });
    EXPECT_GT(failures, 5);
    EXPECT_EQ(reported, 1);
}

TEST(OutOfMemory, LosesNothingWhileAnErrorIsAccepted) {
    failEachAllocation([] { return std::make_unique<EventLog>(); },
                       [](auto& log) {
                           log->errorAnswer = 7;
                           CallbackParser parser(log.get());
                           EXPECT_EQ(parser.parse(std::string("[x")), 7);
                       },
                       [](const auto&) {});
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
            EXPECT_EQ(textOf(*dom), "false");
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
        [](const auto& dom) { EXPECT_EQ(textOf(*dom), "false"); });
    EXPECT_EQ(failures, 2);
}

}  // namespace
