#include <zo/Tessera/CallbackParser.h>

#include <ios>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <zo/Tessera/Exception.h>

#include "parsing/PieceBuffer.h"
#include "support/EventLog.h"
#include "support/thrown.h"

namespace {

using namespace std::string_literals;
using zo::Tessera::CallbackParser;
using zo::Tessera::Exception;
using Sizes = std::vector<std::streamsize>;

class StreamThatIsNotGood : public testing::TestWithParam<std::ios_base::iostate> {};

TEST_P(StreamThatIsNotGood, YieldsNoEvents) {
    EventLog log;
    CallbackParser parser(&log);
    PieceBuffer buffer({"[1]"});
    std::istream in(&buffer);
    in.setstate(GetParam());
    EXPECT_EQ(&parser.parse(in), &in);
    EXPECT_EQ(log.events, "");
    EXPECT_EQ(buffer.asked, Sizes{});
    EXPECT_EQ(in.rdstate(), GetParam());
    EXPECT_EQ(parser.state(), 0);
}

INSTANTIATE_TEST_SUITE_P(ParseStream, StreamThatIsNotGood,
                         testing::Values(std::ios_base::failbit, std::ios_base::badbit,
                                         std::ios_base::eofbit));

TEST(ParseStream, ReadsPiecesOfAtMost255Characters) {
    EventLog log;
    CallbackParser parser(&log);
    PieceBuffer buffer({"[\"" + std::string(596, 'a') + "\"]"});
    std::istream in(&buffer);
    parser.parse(in);
    EXPECT_EQ(buffer.asked, (Sizes{255, 255, 90}));
    EXPECT_EQ(log.events, "start_array;string " + std::string(596, 'a') + ";end_array;");
}

TEST(ParseStream, AsksForNoMoreThanIsAtHand) {
    EventLog log;
    CallbackParser parser(&log);
    PieceBuffer buffer({"[", "1,", std::string(300, ' '), "2]"});
    std::istream in(&buffer);
    parser.parse(in);
    EXPECT_EQ(buffer.asked, (Sizes{1, 2, 255, 45, 2}));
    EXPECT_EQ(log.events, "start_array;number 1;number 2;end_array;");
}

TEST(ParseStream, StopsWhenNothingIsAtHandAndGoesOnWhenAskedAgain) {
    EventLog log;
    CallbackParser parser(&log);
    PieceBuffer buffer({"[1,", "", "2]"});
    std::istream in(&buffer);
    parser.parse(in);
    EXPECT_EQ(log.events, "start_array;number 1;");
    EXPECT_TRUE(in.good());
    parser.parse(in);
    EXPECT_EQ(log.events, "start_array;number 1;number 2;end_array;");
}

TEST(ParseStream, StopsAtTheEndOfTheStream) {
    EventLog log;
    CallbackParser parser(&log);
    PieceBuffer buffer({"[7"});
    buffer.atHandAfterAll = -1;
    int askedForMore = 0;
    buffer.afterAll = [&askedForMore] { ++askedForMore; };
    std::istream in(&buffer);
    parser.parse(in);
    EXPECT_EQ(log.events, "start_array;");
    EXPECT_TRUE(in.eof());
    EXPECT_EQ(askedForMore, 1);
    parser.parse(in);
    EXPECT_EQ(askedForMore, 1);
}

TEST(ParseStream, ReadsFromWhereTheStreamStands) {
    EventLog log;
    CallbackParser parser(&log);
    std::istringstream in("header [true]");
    std::string header;
    in >> header;
    parser.parse(in);
    EXPECT_EQ(log.events, "start_array;true;end_array;");
}

TEST(ParseStream, TakesTheWholeTextAsOneDocument) {
    EventLog log;
    CallbackParser parser(&log);
    std::istringstream first("{\"a\":");
    std::istringstream second("[1]}");
    parser.parse(first);
    parser.parse(second);
    EXPECT_EQ(log.events, "start_map;key a;start_array;number 1;end_array;end_map;");
}

TEST(ParseStream, RaisesNothingForATextThatIsCutOff) {
    EventLog log;
    CallbackParser parser(&log);
    std::istringstream in(R"({"a":[1,{"b)");
    parser.parse(in);
    EXPECT_EQ(log.events, "start_map;key a;start_array;number 1;start_map;");
    EXPECT_EQ(log.errors, "");
    EXPECT_EQ(parser.state(), 0);
}

TEST(ParseStream, HoldsATopLevelNumberAtTheEndBack) {
    EventLog log;
    CallbackParser parser(&log);
    std::istringstream in("7");
    parser.parse(in);
    EXPECT_EQ(log.events, "");
    std::istringstream blank(" ");
    parser.parse(blank);
    EXPECT_EQ(log.events, "number 7;");
}

/// 255 characters that a malformed 256th follows.
std::string malformedAt256() {
    std::string text = "[";
    while (text.size() < 255) {
        text += "1,";
    }
    return text + "x";
}

TEST(ParseStream, ShowsOnlyTheMalformedPieceInItsError) {
    EventLog log;
    CallbackParser parser(&log);
    std::istringstream in(malformedAt256());
    EXPECT_EQ(thrown<Exception>([&] { parser.parse(in); }),
              R"(lexical error: invalid char in json text.
                                       x
                     (right here) ------^
)");
}

TEST(ParseText, ShowsWhatCameBeforeInTheSamePieceInItsError) {
    EventLog log;
    CallbackParser parser(&log);
    EXPECT_EQ(thrown<Exception>([&] { parser.parse(malformedAt256()); }),
              R"(lexical error: invalid char in json text.
          ,1,1,1,1,1,1,1,1,1,1,1,1,1,1,x
                     (right here) ------^
)");
}

TEST(ParseStream, ReadsOnAfterAnErrorThatTheListenerAccepts) {
    // The result of a piece is not looked at, so each further piece is reported again.
    EventLog log;
    log.errorAnswer = 1;
    CallbackParser parser(&log);
    PieceBuffer buffer({"[x", "1", "2"});
    std::istream in(&buffer);
    parser.parse(in);
    EXPECT_EQ(buffer.asked, (Sizes{2, 1, 1}));
    EXPECT_EQ(log.events, "start_array;");
    EXPECT_TRUE(in.good());
    EXPECT_EQ(parser.state(), 2);
}

TEST(ParseStream, LeavesTheStreamBehindThePieceWithTheError) {
    EventLog log;
    CallbackParser parser(&log);
    PieceBuffer buffer({"[1", "x", "]"});
    std::istream in(&buffer);
    EXPECT_EQ(thrown<Exception>([&] { parser.parse(in); }),
              R"(lexical error: invalid char in json text.
                                       x
                     (right here) ------^
)");
    EXPECT_EQ(buffer.asked, (Sizes{2, 1}));
    EXPECT_TRUE(in.good());
}

/// Hands out its text, and then tells by throwing that there is no more.
class BufferThatThrowsAtItsEnd : public std::stringbuf {
public:
    using std::stringbuf::stringbuf;

private:
    std::streamsize showmanyc() override { throw std::ios_base::failure("no more"); }
};

TEST(ParseStream, TellsTheEventsOfWhatCameBeforeTheStreamThrew) {
    const std::string string(6000, 'x');
    EventLog log;
    CallbackParser parser(&log);
    BufferThatThrowsAtItsEnd buffer("[\"" + string + "\"]");
    std::istream in(&buffer);
    in.exceptions(std::ios_base::badbit);
    EXPECT_THROW(parser.parse(in), std::ios_base::failure);
    EXPECT_EQ(log.events, "start_array;string " + string + ";end_array;");
}

}  // namespace
