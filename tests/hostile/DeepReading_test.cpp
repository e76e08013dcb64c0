#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

#include <zo/Tessera.h>

#include "hostile/DeepDocument.h"
#include "hostile/eachNesting.h"
#include "hostile/onSmallStack.h"

using namespace zo::Tessera;

// Deep texts that come in pieces, break off, break the syntax or meet a listener that throws.

namespace {

/// Counts the containers that are open, and those that were opened and closed.
class LevelCounter : public CallbackParserListener {
public:
    int cb_null() override { return 1; }
    int cb_boolean(bool) override {
        deepestValue = open;
        return 1;
    }
    int cb_number(const char*, size_t) override { return 1; }
    int cb_string(const char*, size_t) override { return 1; }
    int cb_start_map() override { return enter(); }
    int cb_map_key(const char*, size_t) override { return 1; }
    int cb_end_map() override { return leave(); }
    int cb_start_array() override { return enter(); }
    int cb_end_array() override { return leave(); }
    int cb_error(const char*) override { return 0; }
    int cb_integer(long long) override { return 1; }
    int cb_double(double) override { return 1; }

    size_t open = 0;
    size_t opened = 0;
    size_t closed = 0;
    size_t deepestValue = 0;
    size_t refusedLevel = 0;

private:
    int enter() {
        ++open;
        ++opened;
        if (open == refusedLevel) {
            throw std::length_error("too deep for me");
        }
        return 1;
    }
    int leave() {
        --open;
        ++closed;
        return 1;
    }
};

void parseInPieces(CallbackParser& parser, const std::string& text, size_t length) {
    for (size_t at = 0; at < text.size(); at += length) {
        parser.parse(text.data() + at, std::min(length, text.size() - at));
    }
}

/// A builder that throws at the value.
class Thrower : public DomParser {
public:
    int cb_boolean(bool) override { throw std::length_error("too deep for me"); }
};

class DeepReading : public ForEachNesting {};

TEST_P(DeepReading, TellsEachEventWhateverThePieces) {
    onSmallStack([this] {
        const std::string text = document.text();
        for (const size_t length : {size_t{1}, size_t{4096}, text.size()}) {
            LevelCounter counter;
            CallbackParser parser(&counter);
            parseInPieces(parser, text, length);
            EXPECT_EQ(counter.opened, k_depth);
            EXPECT_EQ(counter.closed, k_depth);
            EXPECT_EQ(counter.deepestValue, k_depth);
            EXPECT_EQ(parser.state(), 0);
        }
    });
}

TEST_P(DeepReading, PassesOnWhatAListenerThrowsAtTheBottom) {
    onSmallStack([this] {
        LevelCounter counter;
        counter.refusedLevel = k_depth;
        CallbackParser parser(&counter);
        EXPECT_THROW(parseInPieces(parser, document.text(), 4096), std::length_error);
        EXPECT_EQ(counter.opened, k_depth);
        EXPECT_EQ(counter.closed, 0U);
    });
}

TEST_P(DeepReading, KeepsWhatWasBuiltOfATextThatBreaksOff) {
    onSmallStack([this] {
        Dom dom;
        DomParser().parse(dom, document.opening() + document.lastKey());
        EXPECT_TRUE(textOf(*dom.root()) == document.opening() + document.closing());
    });
}

INSTANTIATE_TEST_SUITE_P(Hostile, DeepReading,
                         testing::Values(Nesting::arrays, Nesting::objects, Nesting::inTurn),
                         nestingName);

TEST(DeepReading, NamesTheContainerThatHoldsAnError) {
    onSmallStack([] {
        const DeepDocument document(Nesting::inTurn);
        Dom dom;
        try {
            DomParser().parse(dom, document.text("x"));
            ADD_FAILURE();
        } catch (const ParseException& exception) {
            EXPECT_TRUE(*exception.elementPath() == document.innermostPath());
            EXPECT_EQ(exception.message().substr(0, 41),
                      "lexical error: invalid char in json text.");
        }
        EXPECT_TRUE(textOf(*dom.root()) == document.opening() + document.closing());
    });
}

TEST(DeepReading, KeepsWhatWasBuiltWhenABuilderThrows) {
    onSmallStack([] {
        const DeepDocument document(Nesting::inTurn);
        Dom dom;
        Thrower thrower;
        std::istringstream in(document.text());
        EXPECT_THROW(thrower.parse(dom, in), std::length_error);
        EXPECT_TRUE(textOf(*dom.root()) == document.opening() + document.closing());
    });
}

TEST(DeepReading, GivesUpADeepDocumentBeforeTheNextOne) {
    onSmallStack([] {
        const DeepDocument document(Nesting::inTurn);
        Dom dom;
        DomParser().parse(dom, document.text());
        std::istringstream in("[]");
        in >> dom;
        EXPECT_EQ(dom.root()->size(), 0U);
    });
}

}  // namespace
