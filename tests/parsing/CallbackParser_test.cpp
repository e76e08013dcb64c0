#include <zo/Tessera/CallbackParser.h>

#include <ostream>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "parsing/PieceBuffer.h"
#include "support/EventLog.h"
#include "support/rowName.h"

namespace {

using namespace std::string_literals;
using zo::Tessera::CallbackParser;
using zo::Tessera::CallbackParserListener;

static_assert(std::is_abstract_v<CallbackParserListener>);
static_assert(std::has_virtual_destructor_v<CallbackParserListener>);
static_assert(std::has_virtual_destructor_v<CallbackParser>);
static_assert(!std::is_copy_constructible_v<CallbackParser>);
static_assert(!std::is_copy_assignable_v<CallbackParser>);
static_assert(!std::is_convertible_v<CallbackParserListener*, CallbackParser>);

/// Parses the pieces one after the other, each from memory of its own, so that a look beyond its
/// end shows.
std::string eventsOf(const std::vector<std::string>& pieces) {
    EventLog log;
    CallbackParser parser(&log);
    for (const std::string& piece : pieces) {
        const std::vector<char> bytes(piece.begin(), piece.end());
        EXPECT_EQ(parser.parse(bytes.data(), bytes.size()), 0) << log.errors;
        EXPECT_EQ(parser.state(), 0);
    }
    return log.events;
}

std::vector<std::string> cut(const std::string& text, size_t length) {
    std::vector<std::string> pieces;
    for (size_t start = 0; start < text.size(); start += length) {
        pieces.push_back(text.substr(start, length));
    }
    return pieces;
}

struct TextWithEvents {
    const char* name;
    std::string text;
    std::string events;
};

void PrintTo(const TextWithEvents& row, std::ostream* out) {
    *out << row.name;
}

class ParserEvents : public testing::TestWithParam<TextWithEvents> {};

TEST_P(ParserEvents, AreTheSameFromEachEntrance) {
    const auto& [name, text, events] = GetParam();
    EXPECT_EQ(eventsOf({text}), events);

    EventLog fromString;
    CallbackParser stringParser(&fromString);
    EXPECT_EQ(stringParser.parse(text), 0);
    EXPECT_EQ(fromString.events, events);

    EventLog fromStream;
    CallbackParser streamParser(&fromStream);
    std::istringstream in(text);
    EXPECT_EQ(&streamParser.parse(in), &in);
    EXPECT_EQ(fromStream.events, events);
}

TEST_P(ParserEvents, AreTheSameWhereverTheTextIsCutInTwo) {
    const auto& [name, text, events] = GetParam();
    for (size_t length = 0; length <= text.size(); ++length) {
        EXPECT_EQ(eventsOf({text.substr(0, length), text.substr(length)}), events)
            << "cut after " << length;
    }
}

TEST_P(ParserEvents, AreTheSameForPiecesOfEachLength) {
    const auto& [name, text, events] = GetParam();
    for (size_t length = 1; length <= 31; ++length) {
        EXPECT_EQ(eventsOf(cut(text, length)), events) << "pieces of " << length;
        EventLog log;
        CallbackParser parser(&log);
        PieceBuffer buffer(cut(text, length));
        std::istream in(&buffer);
        parser.parse(in);
        EXPECT_EQ(log.events, events) << "stream that shows " << length;
    }
}

TEST_P(ParserEvents, AreACleanBeginningForATextThatIsCutOff) {
    const auto& [name, text, events] = GetParam();
    for (size_t length = 0; length < text.size(); ++length) {
        const std::string seen = eventsOf({text.substr(0, length)});
        EXPECT_EQ(seen, events.substr(0, seen.size())) << "the first " << length;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Values, ParserEvents,
    testing::Values(TextWithEvents{"Nothing", "", ""}, TextWithEvents{"Blanks", " \t\r\n", ""},
                    TextWithEvents{"Null", "null", "null;"},
                    TextWithEvents{"True", "true", "true;"},
                    TextWithEvents{"False", "false", "false;"},
                    TextWithEvents{"EmptyString", R"("")", "string ;"},
                    TextWithEvents{"String", R"("a b")", "string a b;"},
                    TextWithEvents{"EmptyObject", "{}", "start_map;end_map;"},
                    TextWithEvents{"EmptyArray", "[]", "start_array;end_array;"},
                    TextWithEvents{"BlanksAround", "\n [ ] \t", "start_array;end_array;"},
                    TextWithEvents{"Member", R"({"a":null})", "start_map;key a;null;end_map;"},
                    TextWithEvents{"EmptyKey", R"({"":true})", "start_map;key ;true;end_map;"},
                    TextWithEvents{"SameKeyTwice", R"({"a":1,"a":2})",
                                   "start_map;key a;number 1;key a;number 2;end_map;"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Numbers, ParserEvents,
    testing::Values(TextWithEvents{"Zero", "0 ", "number 0;"},
                    TextWithEvents{"NegativeZero", "-0 ", "number -0;"},
                    TextWithEvents{"KeepsTrailingZeros", "1.50 ", "number 1.50;"},
                    TextWithEvents{"KeepsTheExponentsForm", "[1e3,1E+3,-1.5e-07]",
                                   "start_array;number 1e3;number 1E+3;number -1.5e-07;end_array;"},
                    TextWithEvents{
                        "FortyDigits", "[1234567890123456789012345678901234567890]",
                        "start_array;number 1234567890123456789012345678901234567890;end_array;"},
                    TextWithEvents{"BeyondEveryDouble", "[1e999999]",
                                   "start_array;number 1e999999;end_array;"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Nested, ParserEvents,
    testing::Values(
        TextWithEvents{
            "ArraysInArrays", "[[],[[1]]]",
            "start_array;start_array;end_array;start_array;start_array;number 1;end_array;"
            "end_array;end_array;"},
        TextWithEvents{
            "ObjectsInObjects", R"({"a":{"b":{}},"c":{}})",
            "start_map;key a;start_map;key b;start_map;end_map;end_map;key c;start_map;end_map;"
            "end_map;"},
        TextWithEvents{
            "EachKindAsMember",
            R"({"n":null,"t":true,"f":false,"i":-12,"d":1.5,"s":"x","o":{},"a":[]})",
            "start_map;key n;null;key t;true;key f;false;key i;number -12;key d;number 1.5;"
            "key s;string x;key o;start_map;end_map;key a;start_array;end_array;end_map;"},
        TextWithEvents{
            "EachKindAsItem", R"([ null , true , false , -12 , 1.5 , "x" , {} , [] ])",
            "start_array;null;true;false;number -12;number 1.5;string x;start_map;end_map;"
            "start_array;end_array;end_array;"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Comments, ParserEvents,
    testing::Values(TextWithEvents{"ToTheEndOfTheLine", "// x ]\n[1]//",
                                   "start_array;number 1;end_array;"},
                    TextWithEvents{"InAStretch", "/* { */[/**/1/* , */]/***/",
                                   "start_array;number 1;end_array;"},
                    TextWithEvents{"BetweenKeyAndValue", "{//k\n\"a\"/*:*/:/*v*/1}",
                                   "start_map;key a;number 1;end_map;"},
                    TextWithEvents{"NotInAString", R"("/* // */")", "string /* // */;"},
                    TextWithEvents{"OnlyAComment", "/* nothing */", ""}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Texts, ParserEvents,
    testing::Values(
        TextWithEvents{"ShortEscapes", R"("\"\\\/\b\f\n\r\t")", "string \"\\/\b\f\n\r\t;"},
        TextWithEvents{
            "EscapedCodePoints", R"(["\u0041\u00e9\u20AC","\ud83d\ude00"])",
            "start_array;string A\xC3\xA9\xE2\x82\xAC;string \xF0\x9F\x98\x80;end_array;"},
        TextWithEvents{"EscapesInAKey", R"({"\u0061\tb":null})",
                       "start_map;key a\tb;null;end_map;"},
        TextWithEvents{"EscapedZeroBytes", R"({"a\u0000b":"\u0000c"})",
                       "start_map;key a\0b;string \0c;end_map;"s},
        TextWithEvents{"NonAscii", "[\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\"]",
                       "start_array;string \xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80;end_array;"},
        TextWithEvents{"BytesThatAreNotUtf8", "{\"\xFF\xC0\":\"\x80 \xC3( \xED\xA0\x80 \xE2\x82\"}",
                       "start_map;key \xFF\xC0;string \x80 \xC3( \xED\xA0\x80 \xE2\x82;end_map;"}),
    k_rowName);

class TopLevelNumber : public testing::TestWithParam<const char*> {};

TEST_P(TopLevelNumber, IsHeldBackUntilACharacterFollows) {
    EventLog log;
    CallbackParser parser(&log);
    EXPECT_EQ(parser.parse(std::string(GetParam())), 0);
    EXPECT_EQ(log.events, "");
    EXPECT_EQ(parser.parse(" "s), 0);
    EXPECT_EQ(log.events, "number "s + GetParam() + ";");
}

INSTANTIATE_TEST_SUITE_P(ParserEvents, TopLevelNumber, testing::Values("7", "-1.50", "2e9"));

TEST(TopLevelNumber, OfTwoPiecesIsOneNumber) {
    EXPECT_EQ(eventsOf({"1", "2 "}), "number 12;");
}

TEST(CallbackParser, DeliversALongTextAndKeyWhole) {
    const std::string key(1000, 'k');
    const std::string text(100000, 't');
    const std::string document = "{\"" + key + "\":\"" + text + "\"}";
    const std::string events = "start_map;key " + key + ";string " + text + ";end_map;";
    EXPECT_EQ(eventsOf({document}), events);
    EXPECT_EQ(eventsOf(cut(document, 255)), events);
}

TEST(CallbackParser, CallsBackByTheCall) {
    EventLog log;
    CallbackParser parser(&log);
    parser.parse("[1,"s);
    EXPECT_EQ(log.events, "start_array;number 1;");
    parser.parse(""s);
    EXPECT_EQ(log.events, "start_array;number 1;");
    parser.parse("2,3"s);
    EXPECT_EQ(log.events, "start_array;number 1;number 2;");
    parser.parse("]"s);
    EXPECT_EQ(log.events, "start_array;number 1;number 2;number 3;end_array;");
}

}  // namespace
