#include <zo/Tessera/readDocument.h>

#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Exception.h>

#include "hostile/DeepDocument.h"
#include "hostile/eachNesting.h"
#include "hostile/onSmallStack.h"

using namespace zo::Tessera;

// Whole documents of any depth, on a small stack.

namespace {

class DeepReadDocument : public ForEachNesting {};

TEST_P(DeepReadDocument, IsBuiltFromMemoryAndFromAStream) {
    onSmallStack([this] {
        const std::string text = document.text();
        EXPECT_TRUE(textOf(*readDocument(text).root()) == text);
        std::istringstream in(text);
        EXPECT_TRUE(textOf(*readDocument(in).root()) == text);
    });
}

TEST_P(DeepReadDocument, KnowsThePathOfItsValue) {
    onSmallStack([this] {
        Dom read = readDocument(document.text());
        EXPECT_TRUE(deepestOf(*read.root()).path(nullptr) == document.path());
    });
}

TEST_P(DeepReadDocument, IsRefusedAtTheBottomWithItsPath) {
    onSmallStack([this] {
        try {
            readDocument(document.text("x"));
            ADD_FAILURE();
        } catch (const ParseException& refusal) {
            EXPECT_TRUE(refusal.message() == " in element \"" + document.path() +
                                                 "\": lexical error: invalid char in json text.");
            EXPECT_EQ(refusal.line(), 1);
            EXPECT_EQ(static_cast<size_t>(refusal.column()),
                      document.opening().size() + document.lastKey().size() + 1);
        }
    });
}

TEST_P(DeepReadDocument, IsRefusedWhenItIsCutOff) {
    onSmallStack([this] {
        std::string text = document.text();
        text.pop_back();
        EXPECT_THROW(readDocument(text), ParseException);
        EXPECT_THROW(readDocument(document.opening()), ParseException);
    });
}

TEST_P(DeepReadDocument, IsReadUpToTheGreatestDepth) {
    onSmallStack([this] {
        ReadOptions options;
        options.greatestDepth = k_depth;
        EXPECT_TRUE(textOf(*readDocument(document.text(), options).root()) == document.text());
        options.greatestDepth = k_depth - 1;
        try {
            readDocument(document.text(), options);
            ADD_FAILURE();
        } catch (const ParseException& refusal) {
            EXPECT_TRUE(refusal.message() == " in element \"" + document.innermostPath() +
                                                 "\": nested deeper than " +
                                                 std::to_string(k_depth - 1) + " levels");
        }
    });
}

// Both kinds are there, and a million levels take their time.
INSTANTIATE_TEST_SUITE_P(Hostile, DeepReadDocument, testing::Values(Nesting::inTurn), nestingName);

TEST(DeepReadDocument, GivesUpADeepValueForTheNextOneOfItsKey) {
    onSmallStack([] {
        const std::string text = DeepDocument(Nesting::inTurn).text();
        const Dom read = readDocument("{\"a\":" + text + ",\"a\":" + text + ",\"a\":[true]}");
        EXPECT_TRUE(textOf(*read.root()) == "{\"a\":[true]}");
    });
}

}  // namespace
