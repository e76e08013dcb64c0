// How much text yajl is given at once, which its cost depends on: within a token that goes on in
// the next piece it starts again from the token's first byte. This program takes the place of
// yajl's function to see it.

#include <zo/Tessera/CallbackParser.h>

#include <yajl/yajl_parse.h>

#include <numeric>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zo/Tessera/Exception.h>

#include "support/EventLog.h"
#include "support/realYajl.h"

using namespace zo::Tessera;

namespace {

std::vector<size_t> s_lengths;

}  // namespace

yajl_status yajl_parse(yajl_handle handle, const unsigned char* text, size_t length) {
    s_lengths.push_back(length);
    return realYajl(&yajl_parse, "yajl_parse")(handle, text, length);
}

namespace {

using testing::ElementsAreArray;

class PieceLengths : public testing::Test {
protected:
    PieceLengths() { s_lengths.clear(); }

    void read(const std::string& text) {
        std::istringstream in(text);
        CallbackParser(&log).parse(in);
    }

    /// A text of `length` in pieces of 255, and then `others`.
    static std::vector<size_t> pieces(size_t length, const std::vector<size_t>& others = {}) {
        std::vector<size_t> lengths(length / 255, 255);
        if (length % 255 != 0) {
            lengths.push_back(length % 255);
        }
        lengths.insert(lengths.end(), others.begin(), others.end());
        return lengths;
    }

    EventLog log;
};

TEST_F(PieceLengths, AreThoseReadWhileTokensAreShort) {
    // Wherever the string begins within its piece.
    for (size_t blanks = 0; blanks < 255; ++blanks) {
        s_lengths.clear();
        read("[" + std::string(blanks, ' ') + "\"" + std::string(4093, 'x') + "\"]");
        EXPECT_THAT(s_lengths, ElementsAreArray(pieces(1 + blanks + 4095 + 1)));
    }
}

TEST_F(PieceLengths, AreThoseReadInAnyTextOfShortTokens) {
    std::string text = "[0";
    for (int i = 0; i < 5000; ++i) {
        text += ",1";
    }
    read(text);
    EXPECT_THAT(s_lengths, ElementsAreArray(pieces(10002)));
}

TEST_F(PieceLengths, DoubleOnceALongTokenHasBroughtNoEvent) {
    read("[\"" + std::string(100000, 'x') + "\",1,2]");
    // 4335 bytes are the first without an event that are 4 KiB; each amount is read in whole
    // pieces, and the last is what is left.
    EXPECT_THAT(s_lengths, ElementsAreArray(pieces(4590, {4335, 8670, 17340, 34680, 30393})));
    EXPECT_EQ(log.events,
              "start_array;string " + std::string(100000, 'x') + ";number 1;number 2;end_array;");
}

TEST_F(PieceLengths, AreThoseReadAgainAfterAnEvent) {
    std::string text = "[\"" + std::string(10000, 'x') + "\"";
    for (int i = 0; i < 5000; ++i) {
        text += ",1";
    }
    read(text + "]");
    std::vector<size_t> lengths = pieces(4590, {4335, 8670});
    const std::vector<size_t> rest = pieces(2409);
    lengths.insert(lengths.end(), rest.begin(), rest.end());
    EXPECT_THAT(s_lengths, ElementsAreArray(lengths));
}

TEST_F(PieceLengths, DoubleInACommentAndInBlanksToo) {
    for (const std::string& silence :
         {"/*" + std::string(20000, 'x') + "*/", std::string(20004, ' ')}) {
        s_lengths.clear();
        log.events.clear();
        read("[" + silence + "]");
        EXPECT_THAT(s_lengths, ElementsAreArray(pieces(4590, {4335, 8670, 2411})));
        EXPECT_EQ(log.events, "start_array;end_array;");
    }
}

// Of the text that does not come to an end nothing is held back.
TEST_F(PieceLengths, MakeUpAllThatTheStreamHad) {
    const size_t length = 12345;
    CallbackParser parser(&log);
    std::istringstream in("\"" + std::string(length - 1, 'x'));
    parser.parse(in);
    EXPECT_EQ(std::accumulate(s_lengths.begin(), s_lengths.end(), size_t{0}), length);
    parser.parse(std::string("\""));
    EXPECT_EQ(log.events, "string " + std::string(length - 1, 'x') + ";");
}

TEST_F(PieceLengths, GoOnDoublingWithTheNextStream) {
    CallbackParser parser(&log);
    std::istringstream first("\"" + std::string(8 * 1024 - 1, 'x'));
    std::istringstream second(std::string(20000, 'y') + "\"");
    parser.parse(first);
    s_lengths.clear();
    parser.parse(second);
    EXPECT_THAT(s_lengths, ElementsAreArray(std::vector<size_t>{8415, 11586}));
}

// The listener is told of each piece after an error that it accepted.
TEST_F(PieceLengths, StayThoseReadAfterAnError) {
    log.errorAnswer = 1;
    read("x" + std::string(10000, ' '));
    EXPECT_THAT(s_lengths, ElementsAreArray(pieces(10001)));
}

}  // namespace
