#include <zo/Tessera/Dom.h>

#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zo/Tessera/Generator.h>
#include <zo/Tessera/Object.h>

#include "failures/outOfMemory.h"
#include "failures/richTree.h"
#include "support/dump.h"

using namespace zo::Tessera;

namespace {

std::unique_ptr<Dom> richDocument() {
    auto dom = std::make_unique<Dom>();
    dom->setRoot(richTree());
    dom->setMetaKey(k_long);
    return dom;
}

TEST(OutOfMemoryInADocument, MakesNoCopyAndKeepsTheSource) {
    const auto source = richDocument();
    const std::string state = dump(*source->root());
    std::unique_ptr<Dom> copy;
    const auto check = [&] {
        EXPECT_EQ(copy, nullptr);
        EXPECT_EQ(dump(*source->root()), state);
    };
    const auto make = [&] { copy = std::make_unique<Dom>(*source); };
    EXPECT_GT(failEachAllocation([&] { copy.reset(); }, make, check), 10);
    EXPECT_TRUE(*copy == *source);
}

TEST(OutOfMemoryInADocument, AssignsAllOrNothing) {
    const auto source = richDocument();
    std::unique_ptr<Dom> target;
    const auto prepare = [&] {
        target = std::make_unique<Dom>();
        target->setIncludeMeta(false);
        target->setRoot(value(true));
    };
    const auto check = [&] {
        EXPECT_EQ(dump(*target->root()), "etBoolean true key=\"\" index=- parent=none\n");
        EXPECT_EQ(target->metaKey(), "meta");
        EXPECT_FALSE(target->includeMeta());
    };
    EXPECT_GT(failEachAllocation(
                  prepare, [&] { *target = *source; }, check),
              10);
    EXPECT_TRUE(*target == *source);
}

TEST(OutOfMemoryInADocument, LeavesTheRootOfWhichAPartIsToBeTheNewOne) {
    std::unique_ptr<Dom> dom;
    const std::string state = dump(*richTree());
    const auto check = [&] { EXPECT_EQ(dump(*dom->root()), state); };
    const auto set = [&] { dom->setRoot(std::as_const(dom->root()->at("list"))); };
    EXPECT_GT(failEachAllocation([&] { dom = richDocument(); }, set, check), 3);
    EXPECT_EQ(dom->root()->size(), 4U);
}

TEST(OutOfMemoryInADocument, LeavesTheMetaKey) {
    std::unique_ptr<Dom> dom;
    const auto prepare = [&] { dom = std::make_unique<Dom>(); };
    const auto check = [&] { EXPECT_EQ(dom->metaKey(), "meta"); };
    EXPECT_EQ(failEachAllocation(
                  prepare, [&] { dom->setMetaKey(k_long); }, check),
              1);
    EXPECT_EQ(dom->metaKey(), k_long);
}

TEST(OutOfMemoryInADocument, IsNoAnswerToAComparison) {
    const auto left = richDocument();
    const Dom right(*left);
    bool equal = false;
    const auto compare = [&] { equal = *left == right; };
    EXPECT_GT(failEachAllocation([&] { equal = false; }, compare, [&] { EXPECT_FALSE(equal); }), 1);
    EXPECT_TRUE(equal);
    bool unequal = true;
    const auto contrast = [&] { unequal = *left != right; };
    EXPECT_GT(failEachAllocation([&] { unequal = true; }, contrast, [&] { EXPECT_TRUE(unequal); }),
              1);
    EXPECT_FALSE(unequal);
}

TEST(OutOfMemoryInADocument, LeavesAStreamWithTheBeginningOfTheText) {
    const auto dom = richDocument();
    const std::string whole = Generator(nullptr).encode(*dom);
    const std::string state = dump(*dom->root());
    std::unique_ptr<std::ostringstream> out;
    const auto prepare = [&] {
        out = std::make_unique<std::ostringstream>();
        out->exceptions(std::ios::badbit);
    };
    const auto check = [&] {
        EXPECT_THAT(whole, testing::StartsWith(out->str()));
        EXPECT_EQ(dump(*dom->root()), state);
    };
    EXPECT_GT(failEachAllocation(
                  prepare, [&] { *out << *dom; }, check),
              5);
    EXPECT_EQ(out->str(), whole);
}

// The part that was read can be gone on with by hand.
TEST(OutOfMemoryInADocument, LeavesATreeOfWhatWasRead) {
    const std::string text = Generator(nullptr).encode(*richTree());
    std::unique_ptr<Dom> dom;
    std::unique_ptr<std::istringstream> in;
    const auto prepare = [&] {
        dom = richDocument();
        in = std::make_unique<std::istringstream>(text);
    };
    const auto check = [&] {
        EXPECT_EQ(dom->metaKey(), k_long);
        if (Element* const root = dom->root()) {
            expectWhole(*root);
            Element::createNull(root, "by hand");
            EXPECT_EQ(root->at("by hand").parent(), root);
        }
    };
    EXPECT_GT(failEachAllocation(
                  prepare, [&] { *in >> *dom; }, check),
              20);
    EXPECT_EQ(dump(*dom->root()), dump(*richTree()));
}

}  // namespace
