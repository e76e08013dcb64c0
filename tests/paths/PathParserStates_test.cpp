#include <zo/Tessera/PathParser.h>

#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "PathEvents.h"
#include "support/rowName.h"

using zo::Tessera::PathParser;

namespace {

// Each row leads to a state, gives one character there, and where the text goes on a "]", which
// tells the state that followed: it ends an index in esArray, and is an error that names the state
// in every other but esError, where nothing is reported any more. The bars stand where the run ends
// when the listener refuses the first error; one that accepts it sees the rest, too. Without a bar
// both see all. For brevity
//     bad '.' at <k> 1,2 in esObject
// stands for
//     error Unexpected character '.' in path at "k" 1,2 parser state esObject
struct Transition {
    const char* name;
    const char* text;
    const char* events;
};

void PrintTo(const Transition& row, std::ostream* out) {
    *out << row.name;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
        text.replace(at, from.size(), to);
        at += to.size();
    }
    return text;
}

std::string spelledOut(std::string events) {
    events = replaced(events, "bad '", "error Unexpected character '");
    events = replaced(events, "bad EOF", "error Unexpexced EOF");
    events = replaced(events, "bad index", "error Unreadable index");
    events = replaced(events, " at <", " in path at \"");
    events = replaced(events, "> ", "\" ");
    return replaced(events, " in es", " parser state es");
}

std::string beforeBar(const std::string& text) {
    return text.substr(0, text.find('|'));
}

std::string afterBar(const std::string& text) {
    const size_t bar = text.find('|');
    return bar == std::string::npos ? "" : text.substr(bar + 1);
}

class PathParserStates : public testing::TestWithParam<Transition> {};

TEST_P(PathParserStates, GoOnForAListenerThatAcceptsErrors) {
    const Transition& row = GetParam();
    EXPECT_EQ(eventsOf(replaced(row.text, "|", ""), Errors::accepted),
              spelledOut(replaced(row.events, " | ", "; ")));
}

TEST_P(PathParserStates, EndForAListenerThatRefusesErrors) {
    const Transition& row = GetParam();
    EXPECT_EQ(eventsOf(replaced(row.text, "|", "")),
              spelledOut(beforeBar(replaced(row.events, " | ", "|"))));
}

TEST_P(PathParserStates, LeaveInTheStreamWhatFollowsTheEnd) {
    const Transition& row = GetParam();
    PathEvents log(Errors::refused);
    std::istringstream in(replaced(row.text, "|", ""));
    PathParser(log).parse(in);
    EXPECT_EQ(restOf(in), afterBar(row.text));
}

const Transition k_atTheStart[] = {
    {"Dot", ".]", "bad ']' at <> 0,1 in esObjectInit | bad EOF at <> 0,2 in esObjectInit"},
    {"OpenBracket", "[]", "bad ']' at <> 0,1 in esArrayInit | bad EOF at <> 0,2 in esArrayInit"},
    {"CloseBracket", "]|]", "bad ']' at <> 0,0 in esInit | bad ']' at <> 0,1 in esInit; finish"},
    {"Digit", "5]", "bad ']' at <5> 0,1 in esObject | key 5; finish"},
    {"Star", "*]", "bad ']' at <*> 0,1 in esObject | key *; finish"},
    {"Other", "x]", "bad ']' at <x> 0,1 in esObject | key x; finish"},
    {"BackslashAtTheEnd", "\\", "key \xff; finish"},
    {"EscapedDot", "\\.]", "bad ']' at <.> 1,2 in esObject | key .; finish"},
    {"EscapedOpenBracket", "\\[]", "bad ']' at <[> 1,2 in esObject | key [; finish"},
    {"EscapedCloseBracket", "\\]]", "bad ']' at <]> 1,2 in esObject | key ]; finish"},
    {"EscapedBackslash", "\\\\]", "bad ']' at <\\> 1,2 in esObject | key \\; finish"},
    {"EscapedDigit", "\\5]", "bad ']' at <5> 1,2 in esObject | key 5; finish"},
    {"EscapedStar", "\\*]", "bad ']' at <*> 1,2 in esObject | key *; finish"},
    {"EscapedOther", "\\x]", "bad ']' at <x> 1,2 in esObject | key x; finish"},
    {"EscapedByteFF", "\\\xff]", "bad ']' at <\xff> 1,2 in esObject | key \xff; finish"},
    {"End", "", "finish"},
    {"ByteFF", "\xff|]", "finish"},
};

const Transition k_afterAnIndex[] = {
    {"Dot", "[0].]",
     "item 0; bad ']' at <> 3,4 in esObjectInit | bad EOF at <> 3,5 in esObjectInit"},
    {"OpenBracket", "[0][]",
     "item 0; bad ']' at <> 3,4 in esArrayInit | bad EOF at <> 3,5 in esArrayInit"},
    {"CloseBracket", "[0]]|]",
     "item 0; bad ']' at <> 2,3 in esInit | bad ']' at <> 2,4 in esInit; finish"},
    {"Digit", "[0]5]", "item 0; bad ']' at <5> 3,4 in esObject | key 5; finish"},
    {"Star", "[0]*]", "item 0; bad ']' at <*> 3,4 in esObject | key *; finish"},
    {"Other", "[0]x]", "item 0; bad ']' at <x> 3,4 in esObject | key x; finish"},
    {"BackslashAtTheEnd", "[0]\\", "item 0; key \xff; finish"},
    {"EscapedDot", "[0]\\.]", "item 0; bad ']' at <.> 4,5 in esObject | key .; finish"},
    {"EscapedOpenBracket", "[0]\\[]", "item 0; bad ']' at <[> 4,5 in esObject | key [; finish"},
    {"EscapedCloseBracket", "[0]\\]]", "item 0; bad ']' at <]> 4,5 in esObject | key ]; finish"},
    {"EscapedBackslash", "[0]\\\\]", "item 0; bad ']' at <\\> 4,5 in esObject | key \\; finish"},
    {"EscapedDigit", "[0]\\5]", "item 0; bad ']' at <5> 4,5 in esObject | key 5; finish"},
    {"EscapedStar", "[0]\\*]", "item 0; bad ']' at <*> 4,5 in esObject | key *; finish"},
    {"EscapedOther", "[0]\\x]", "item 0; bad ']' at <x> 4,5 in esObject | key x; finish"},
    {"EscapedByteFF", "[0]\\\xff]", "item 0; bad ']' at <\xff> 4,5 in esObject | key \xff; finish"},
    {"End", "[0]", "item 0; finish"},
    {"ByteFF", "[0]\xff|]", "item 0; finish"},
};

const Transition k_afterADot[] = {
    {"Dot", "k..|]",
     "key k; bad '.' at <> 1,2 in esObjectInit | bad ']' at <> 1,3 in esObjectInit; "
     "bad EOF at <> 1,4 in esObjectInit"},
    {"OpenBracket", "k.[|]",
     "key k; bad '[' at <> 1,2 in esObjectInit | bad ']' at <> 1,3 in esObjectInit; "
     "bad EOF at <> 1,4 in esObjectInit"},
    {"CloseBracket", "k.]|]",
     "key k; bad ']' at <> 1,2 in esObjectInit | bad ']' at <> 1,3 in esObjectInit; "
     "bad EOF at <> 1,4 in esObjectInit"},
    {"Digit", "k.5]", "key k; bad ']' at <5> 2,3 in esObject | key 5; finish"},
    {"Star", "k.*]", "key k; bad ']' at <*> 2,3 in esObject | key *; finish"},
    {"Other", "k.x]", "key k; bad ']' at <x> 2,3 in esObject | key x; finish"},
    {"BackslashAtTheEnd", "k.\\", "key k; key \xff; finish"},
    {"EscapedDot", "k.\\.]", "key k; bad ']' at <.> 3,4 in esObject | key .; finish"},
    {"EscapedOpenBracket", "k.\\[]", "key k; bad ']' at <[> 3,4 in esObject | key [; finish"},
    {"EscapedCloseBracket", "k.\\]]", "key k; bad ']' at <]> 3,4 in esObject | key ]; finish"},
    {"EscapedBackslash", "k.\\\\]", "key k; bad ']' at <\\> 3,4 in esObject | key \\; finish"},
    {"EscapedDigit", "k.\\5]", "key k; bad ']' at <5> 3,4 in esObject | key 5; finish"},
    {"EscapedStar", "k.\\*]", "key k; bad ']' at <*> 3,4 in esObject | key *; finish"},
    {"EscapedOther", "k.\\x]", "key k; bad ']' at <x> 3,4 in esObject | key x; finish"},
    {"EscapedByteFF", "k.\\\xff]", "key k; bad ']' at <\xff> 3,4 in esObject | key \xff; finish"},
    {"End", "k.", "key k; bad EOF at <> 1,2 in esObjectInit"},
    {"ByteFF", "k.\xff|]", "key k; bad EOF at <> 1,2 in esObjectInit"},
};

const Transition k_inAKey[] = {
    {"Dot", "k.]", "key k; bad ']' at <> 1,2 in esObjectInit | bad EOF at <> 1,3 in esObjectInit"},
    {"OpenBracket", "k[]",
     "key k; bad ']' at <> 1,2 in esArrayInit | bad EOF at <> 1,3 in esArrayInit"},
    {"CloseBracket", "k]|]",
     "bad ']' at <k> 0,1 in esObject | bad ']' at <k> 0,2 in esObject; key k; finish"},
    {"Digit", "k5]", "bad ']' at <k5> 0,2 in esObject | key k5; finish"},
    {"Star", "k*]", "bad ']' at <k*> 0,2 in esObject | key k*; finish"},
    {"Other", "kx]", "bad ']' at <kx> 0,2 in esObject | key kx; finish"},
    {"BackslashAtTheEnd", "k\\", "key k\xff; finish"},
    {"EscapedDot", "k\\.]", "bad ']' at <k.> 0,3 in esObject | key k.; finish"},
    {"EscapedOpenBracket", "k\\[]", "bad ']' at <k[> 0,3 in esObject | key k[; finish"},
    {"EscapedCloseBracket", "k\\]]", "bad ']' at <k]> 0,3 in esObject | key k]; finish"},
    {"EscapedBackslash", "k\\\\]", "bad ']' at <k\\> 0,3 in esObject | key k\\; finish"},
    {"EscapedDigit", "k\\5]", "bad ']' at <k5> 0,3 in esObject | key k5; finish"},
    {"EscapedStar", "k\\*]", "bad ']' at <k*> 0,3 in esObject | key k*; finish"},
    {"EscapedOther", "k\\x]", "bad ']' at <kx> 0,3 in esObject | key kx; finish"},
    {"EscapedByteFF", "k\\\xff]", "bad ']' at <k\xff> 0,3 in esObject | key k\xff; finish"},
    {"End", "k", "key k; finish"},
    {"ByteFF", "k\xff|]", "key k; finish"},
};

const Transition k_afterAnOpenBracket[] = {
    {"Dot", "[.|]",
     "bad '.' at <> 0,1 in esArrayInit | bad ']' at <> 0,2 in esArrayInit; "
     "bad EOF at <> 0,3 in esArrayInit"},
    {"OpenBracket", "[[|]",
     "bad '[' at <> 0,1 in esArrayInit | bad ']' at <> 0,2 in esArrayInit; "
     "bad EOF at <> 0,3 in esArrayInit"},
    {"CloseBracket", "[]|]",
     "bad ']' at <> 0,1 in esArrayInit | bad ']' at <> 0,2 in esArrayInit; "
     "bad EOF at <> 0,3 in esArrayInit"},
    {"Digit", "[5]", "item 5; finish"},
    {"Star", "[*]", "item 18446744073709551615; finish"},
    {"Other", "[x|]",
     "bad 'x' at <> 0,1 in esArrayInit | bad ']' at <> 0,2 in esArrayInit; "
     "bad EOF at <> 0,3 in esArrayInit"},
    // The end itself is the character after the backslash: an error, and the end comes once more.
    {"BackslashAtTheEnd", "[\\",
     "bad EOF at <> 0,2 in esArrayInit | bad EOF at <> 0,3 in esArrayInit"},
    {"EscapedDot", "[\\.|]",
     "bad '.' at <> 0,2 in esArrayInit | bad ']' at <> 0,3 in esArrayInit; "
     "bad EOF at <> 0,4 in esArrayInit"},
    {"EscapedOpenBracket", "[\\[|]",
     "bad '[' at <> 0,2 in esArrayInit | bad ']' at <> 0,3 in esArrayInit; "
     "bad EOF at <> 0,4 in esArrayInit"},
    {"EscapedCloseBracket", "[\\]|]",
     "bad ']' at <> 0,2 in esArrayInit | bad ']' at <> 0,3 in esArrayInit; "
     "bad EOF at <> 0,4 in esArrayInit"},
    {"EscapedBackslash", "[\\\\|]",
     "bad '\\' at <> 0,2 in esArrayInit | bad ']' at <> 0,3 in esArrayInit; "
     "bad EOF at <> 0,4 in esArrayInit"},
    {"EscapedDigit", "[\\5]", "item 5; finish"},
    {"EscapedStar", "[\\*]", "item 18446744073709551615; finish"},
    {"EscapedOther", "[\\x|]",
     "bad 'x' at <> 0,2 in esArrayInit | bad ']' at <> 0,3 in esArrayInit; "
     "bad EOF at <> 0,4 in esArrayInit"},
    {"EscapedByteFF", "[\\\xff|]",
     "bad EOF at <> 0,2 in esArrayInit | bad ']' at <> 0,3 in esArrayInit; "
     "bad EOF at <> 0,4 in esArrayInit"},
    {"End", "[", "bad EOF at <> 0,1 in esArrayInit"},
    {"ByteFF", "[\xff|]", "bad EOF at <> 0,1 in esArrayInit"},
};

const Transition k_inAnIndex[] = {
    {"Dot", "[1.|]", "bad '.' at <1> 1,2 in esArray | item 1; finish"},
    {"OpenBracket", "[1[|]", "bad '[' at <1> 1,2 in esArray | item 1; finish"},
    {"CloseBracket", "[1]]", "item 1; bad ']' at <> 2,3 in esInit | finish"},
    {"Digit", "[15]", "item 15; finish"},
    {"Star", "[1*|]", "bad '*' at <1> 1,2 in esArray | item 1; finish"},
    {"Other", "[1x|]", "bad 'x' at <1> 1,2 in esArray | item 1; finish"},
    {"BackslashAtTheEnd", "[1\\", "bad EOF at <1> 1,3 in esArray | bad EOF at <1> 1,4 in esArray"},
    {"EscapedDot", "[1\\.|]", "bad '.' at <1> 1,3 in esArray | item 1; finish"},
    {"EscapedOpenBracket", "[1\\[|]", "bad '[' at <1> 1,3 in esArray | item 1; finish"},
    {"EscapedCloseBracket", "[1\\]|]", "bad ']' at <1> 1,3 in esArray | item 1; finish"},
    {"EscapedBackslash", "[1\\\\|]", "bad '\\' at <1> 1,3 in esArray | item 1; finish"},
    {"EscapedDigit", "[1\\5]", "item 15; finish"},
    {"EscapedStar", "[1\\*|]", "bad '*' at <1> 1,3 in esArray | item 1; finish"},
    {"EscapedOther", "[1\\x|]", "bad 'x' at <1> 1,3 in esArray | item 1; finish"},
    {"EscapedByteFF", "[1\\\xff|]", "bad EOF at <1> 1,3 in esArray | item 1; finish"},
    {"End", "[1", "bad EOF at <1> 1,2 in esArray"},
    {"ByteFF", "[1\xff|]", "bad EOF at <1> 1,2 in esArray"},
};

// esError: only after this error does a refused run go on, for an index is reported all the same,
// and it ends at the next character, whatever that is.
const Transition k_afterARefusedIndex[] = {
    {"Dot", "[*7].|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <> 4,5 in esObjectInit; bad EOF at <> 4,6 in esObjectInit"},
    {"OpenBracket", "[*7][|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <> 4,5 in esArrayInit; bad EOF at <> 4,6 in esArrayInit"},
    {"CloseBracket", "[*7]]|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <> 3,4 in esInit; bad ']' at <> 3,5 in esInit; finish"},
    {"Digit", "[*7]5|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <5> 4,5 in esObject; key 5; finish"},
    {"Star", "[*7]*|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <*> 4,5 in esObject; key *; finish"},
    {"Other", "[*7]x|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <x> 4,5 in esObject; key x; finish"},
    {"BackslashAtTheEnd", "[*7]\\",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "key \xff; finish"},
    {"EscapedDot", "[*7]\\.|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <.> 5,6 in esObject; key .; finish"},
    {"EscapedOpenBracket", "[*7]\\[|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <[> 5,6 in esObject; key [; finish"},
    {"EscapedCloseBracket", "[*7]\\]|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <]> 5,6 in esObject; key ]; finish"},
    {"EscapedBackslash", "[*7]\\\\|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <\\> 5,6 in esObject; key \\; finish"},
    {"EscapedDigit", "[*7]\\5|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <5> 5,6 in esObject; key 5; finish"},
    {"EscapedStar", "[*7]\\*|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <*> 5,6 in esObject; key *; finish"},
    {"EscapedOther", "[*7]\\x|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <x> 5,6 in esObject; key x; finish"},
    {"EscapedByteFF", "[*7]\\\xff|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "bad ']' at <\xff> 5,6 in esObject; key \xff; finish"},
    {"End", "[*7]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "finish"},
    {"ByteFF", "[*7]\xff|]",
     "bad index at <*7> 1,3 in esInit; item 18446744073709551614 | "
     "finish"},
};

INSTANTIATE_TEST_SUITE_P(AtTheStart, PathParserStates, testing::ValuesIn(k_atTheStart), k_rowName);
INSTANTIATE_TEST_SUITE_P(AfterAnIndex, PathParserStates, testing::ValuesIn(k_afterAnIndex),
                         k_rowName);
INSTANTIATE_TEST_SUITE_P(AfterADot, PathParserStates, testing::ValuesIn(k_afterADot), k_rowName);
INSTANTIATE_TEST_SUITE_P(InAKey, PathParserStates, testing::ValuesIn(k_inAKey), k_rowName);
INSTANTIATE_TEST_SUITE_P(AfterAnOpenBracket, PathParserStates,
                         testing::ValuesIn(k_afterAnOpenBracket), k_rowName);
INSTANTIATE_TEST_SUITE_P(InAnIndex, PathParserStates, testing::ValuesIn(k_inAnIndex), k_rowName);
INSTANTIATE_TEST_SUITE_P(AfterARefusedIndex, PathParserStates,
                         testing::ValuesIn(k_afterARefusedIndex), k_rowName);

}  // namespace
