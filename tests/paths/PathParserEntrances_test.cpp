#include <zo/Tessera/PathParser.h>

#include <algorithm>
#include <ios>
#include <random>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "PathEvents.h"

using zo::Tessera::PathParser;

namespace {

TEST(PathParserStream, IsReturned) {
    PathEvents log(Errors::refused);
    std::istringstream in("a");
    EXPECT_EQ(&PathParser(log).parse(in), &in);
    EXPECT_EQ(&PathParser(log).parse(in), &in);  // not good any more
}

TEST(PathParserStream, CountsAsEmptyUnlessGood) {
    for (const auto state : {std::ios::eofbit, std::ios::failbit, std::ios::badbit}) {
        SCOPED_TRACE(state);
        PathEvents log(Errors::refused);
        std::istringstream in("a.b");
        in.setstate(state);
        PathParser(log).parse(in);
        EXPECT_EQ(log.events, "finish");
        EXPECT_EQ(in.rdstate(), state);
        EXPECT_EQ(restOf(in), "a.b");
    }
}

// The state in which a run over the text leaves the stream.
std::ios::iostate stateAfter(const std::string& text, Errors errors,
                             const std::string& unwanted = "") {
    PathEvents log(errors, unwanted);
    std::istringstream in(text);
    PathParser(log).parse(in);
    return in.rdstate();
}

TEST(PathParserStream, HasFailedAtItsEnd) {
    for (const char* const text : {"", "a", "[0]", "a\\", "a.", "[1", "[1\\"}) {
        EXPECT_EQ(stateAfter(text, Errors::refused), std::ios::eofbit | std::ios::failbit) << text;
    }
    EXPECT_EQ(stateAfter("a..b", Errors::accepted), std::ios::eofbit | std::ios::failbit);
}

TEST(PathParserStream, StaysGoodWhereTheRunEndsBefore) {
    EXPECT_EQ(stateAfter("a\xff", Errors::refused), std::ios::goodbit);
    EXPECT_EQ(stateAfter("[\xff", Errors::accepted), std::ios::goodbit);
    EXPECT_EQ(stateAfter("a..", Errors::refused), std::ios::goodbit);
    EXPECT_EQ(stateAfter("a.", Errors::refused, "key a"), std::ios::goodbit);
    EXPECT_EQ(stateAfter("[0]", Errors::refused, "item 0"), std::ios::goodbit);
}

TEST(PathParserStream, CanHoldManyPathsEachEndedByAByteFF) {
    PathEvents log(Errors::refused);
    PathParser parser(log);
    std::istringstream in(
        "a.b\xff"
        "[2]\xff\xff"
        "c");
    while (in) {
        parser.parse(in);
    }
    EXPECT_EQ(log.events, "key a; key b; finish; item 2; finish; finish; key c; finish");
}

TEST(PathParserStream, IsReadFromWhereItStandsAndCountedFromThere) {
    PathEvents log(Errors::refused);
    std::istringstream in("path: a..b");
    in.ignore(6);
    PathParser(log).parse(in);
    EXPECT_EQ(log.events,
              "key a; error Unexpected character '.' in path at \"\" 1,2 parser state "
              "esObjectInit");
}

/// Gives one character at a time, and breaks after the last one.
class BreakingBuffer : public std::streambuf {
public:
    explicit BreakingBuffer(std::string text) : m_text(std::move(text)) {}

protected:
    int_type underflow() override {
        if (m_next == m_text.size()) {
            throw std::runtime_error("broken");
        }
        char* const c = &m_text[m_next++];
        setg(c, c, c + 1);
        return traits_type::to_int_type(*c);
    }

private:
    std::string m_text;
    size_t m_next = 0;
};

TEST(PathParserStream, EndsWhereItBreaks) {
    PathEvents log(Errors::refused);
    BreakingBuffer buffer("a[12].bc");
    std::istream in(&buffer);
    PathParser(log).parse(in);
    EXPECT_EQ(log.events, "key a; item 12; key bc; finish");
    EXPECT_TRUE(in.bad());
}

TEST(PathParserStream, ThrowsItsOwnFailureWhenToldTo) {
    PathEvents log(Errors::refused);
    std::istringstream in("a.b");
    in.exceptions(std::ios::failbit);
    EXPECT_THROW(PathParser(log).parse(in), std::ios::failure);
    EXPECT_EQ(log.events, "key a");
}

/// A second opinion on a text: what a listener hears of it, and what is left in the stream.
class Model {
public:
    Model(const std::string& text, Errors errors, const std::string& unwanted)
        : m_text(text), m_errors(errors), m_unwanted(unwanted) {
        while (m_goesOn) {
            character();
        }
    }

    std::string events;
    std::string left() const { return m_at < m_text.size() ? m_text.substr(m_at) : ""; }

private:
    void character() {
        // The character after a backslash is the end itself when the text has no more.
        const size_t place = m_at;
        const bool over = place >= m_text.size();
        const char c = over ? '\xff' : m_text[place];
        ++m_at;
        if (m_escaped) {
            m_escaped = false;
            m_goesOn = ordinary(c, place);
        } else if (c == '\xff') {
            end(place);
            m_goesOn = false;
        } else if (c == '\\') {
            m_escaped = true;
        } else if (c == '.' || c == '[') {
            m_goesOn = opens(c, place);
        } else if (c == ']') {
            m_goesOn = closes(place);
        } else {
            m_goesOn = ordinary(c, place);
        }
    }

    bool opens(char c, size_t place) {
        const std::string next = c == '.' ? "esObjectInit" : "esArrayInit";
        if (m_state == "esInit") {
            m_state = next;
            m_start = place;
            return true;
        }
        if (m_state == "esObject") {
            m_state = next;
            return segment("key " + taken(place));
        }
        return m_state != "esError" && unexpected(c, place);
    }

    bool closes(size_t place) {
        if (m_state != "esArray") {
            return m_state != "esError" && unexpected(']', place);
        }
        m_state = "esInit";
        std::string index;
        if (m_token == "*" && place - m_start == 1) {
            index = "18446744073709551615";
        } else if (!readable(index)) {
            error("Unreadable index", place);
            index = "18446744073709551614";
        }
        taken(place);
        return segment("item " + index);
    }

    bool ordinary(char c, size_t place) {
        const bool digit = '0' <= c && c <= '9';
        if (m_state == "esInit" || m_state == "esObjectInit") {
            m_state = "esObject";
            m_start = place;
        } else if (m_state == "esArrayInit" && (digit || c == '*')) {
            m_state = "esArray";
            m_start = place;
        } else if (m_state == "esArrayInit" || (m_state == "esArray" && !digit)) {
            return unexpected(c, place);
        } else if (m_state == "esError") {
            return false;
        }
        m_token += c;
        return true;
    }

    void end(size_t place) {
        if (m_state == "esObject") {
            segment("key " + taken(place));
            note("finish");
        } else if (m_state == "esInit") {
            note("finish");
        } else if (m_state != "esError") {
            unexpected('\xff', place);
        }
    }

    // The token as a number without leading zeros, if it is one below 2^64.
    bool readable(std::string& number) const {
        if (m_token.find_first_not_of("0123456789") != std::string::npos) {
            return false;
        }
        const std::string largest = "18446744073709551615";
        number = m_token.substr(std::min(m_token.find_first_not_of('0'), m_token.size() - 1));
        return number.size() < largest.size() ||
               (number.size() == largest.size() && number <= largest);
    }

    std::string taken(size_t place) {
        std::string token;
        token.swap(m_token);
        m_start = place;
        return token;
    }

    bool segment(const std::string& event) {
        note(event);
        return event != m_unwanted;
    }

    bool unexpected(char c, size_t place) {
        return error(
            c == '\xff' ? "Unexpexced EOF" : std::string("Unexpected character '") + c + "'",
            place);
    }

    bool error(const std::string& what, size_t place) {
        note("error " + what + " in path at \"" + m_token + "\" " + std::to_string(m_start) + "," +
             std::to_string(place) + " parser state " + m_state);
        if (m_errors == Errors::refused) {
            m_state = "esError";
            return false;
        }
        return true;
    }

    void note(const std::string& event) { events += events.empty() ? event : "; " + event; }

    const std::string& m_text;
    const Errors m_errors;
    const std::string& m_unwanted;
    size_t m_at = 0;
    size_t m_start = 0;
    bool m_escaped = false;
    bool m_goesOn = true;
    std::string m_state = "esInit";
    std::string m_token;
};

testing::AssertionResult agree(const std::string& text, Errors errors,
                               const std::string& unwanted = "") {
    const Model model(text, errors, unwanted);
    PathEvents fromMemory(errors, unwanted);
    PathParser(fromMemory).parse(text);
    PathEvents fromStream(errors, unwanted);
    std::istringstream in(text);
    PathParser(fromStream).parse(in);
    const std::string left = restOf(in);
    if (fromMemory.events == model.events && fromStream.events == model.events &&
        left == model.left()) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << testing::PrintToString(text) << "\n  expected: " << model.events
           << "\n  left:     " << testing::PrintToString(model.left())
           << "\n  in memory:   " << fromMemory.events << "\n  from stream: " << fromStream.events
           << "\n  left:     " << testing::PrintToString(left);
}

const std::string k_alphabet = "a1.[]*\\\xff";

/// All texts of the alphabet up to a length, in the order of counting.
class EachText {
public:
    explicit EachText(size_t longest) : m_longest(longest) {}

    const std::string& text() const { return m_text; }
    bool next() {
        for (char& c : m_text) {
            const size_t following = k_alphabet.find(c) + 1;
            if (following < k_alphabet.size()) {
                c = k_alphabet[following];
                return true;
            }
            c = k_alphabet.front();
        }
        m_text += k_alphabet.front();
        return m_text.size() <= m_longest;
    }

private:
    size_t m_longest;
    std::string m_text;
};

TEST(PathParserEntrances, AgreeOnAllShortTexts) {
    size_t count = 0;
    EachText each(5);
    do {
        ASSERT_TRUE(agree(each.text(), Errors::accepted));
        ASSERT_TRUE(agree(each.text(), Errors::refused));
        ++count;
    } while (each.next());
    EXPECT_EQ(count, 37449U);  // 1 + 8 + 64 + 512 + 4096 + 32768
}

TEST(PathParserEntrances, AgreeOnAllShortTextsWhenASegmentIsUnwanted) {
    size_t count = 0;
    EachText each(4);
    do {
        for (const char* const unwanted :
             {"key a", "key a\xff", "item 1", "item 18446744073709551614"}) {
            ASSERT_TRUE(agree(each.text(), Errors::accepted, unwanted));
        }
        ++count;
    } while (each.next());
    EXPECT_EQ(count, 4681U);  // 1 + 8 + 64 + 512 + 4096
}

std::string randomText(std::mt19937& random, const std::vector<std::string>& parts) {
    std::string text;
    for (auto count = random() % 30; count > 0; --count) {
        text += parts[random() % parts.size()];
    }
    return text;
}

class PathParserEntrancesAtRandom : public testing::TestWithParam<unsigned> {};

TEST_P(PathParserEntrancesAtRandom, AgreeOnLongerTexts) {
    // Mostly what paths are made of, so that a run comes far.
    const std::vector<std::string> parts = {"a",
                                            "key",
                                            "a much longer key",
                                            ".x",
                                            ".name",
                                            "[0]",
                                            "[12]",
                                            "[*]",
                                            ".",
                                            "[",
                                            "]",
                                            "1",
                                            "*",
                                            "\\",
                                            "\\.",
                                            "\\[",
                                            "\\]",
                                            "\\*",
                                            "\\\\",
                                            " ",
                                            "[*7]",
                                            "[*]\\",
                                            "\xc3",
                                            "18446744073709551615",
                                            "[18446744073709551616]",
                                            std::string(1, '\0')};
    std::vector<std::string> partsAndEnds = parts;
    partsAndEnds.insert(partsAndEnds.end(), {"\xff", "\\\xff"});

    std::mt19937 random(GetParam());
    for (int i = 0; i < 300; ++i) {
        for (const std::string& text :
             {randomText(random, parts), randomText(random, partsAndEnds)}) {
            ASSERT_TRUE(agree(text, Errors::accepted));
            ASSERT_TRUE(agree(text, Errors::refused));
            ASSERT_TRUE(agree(text, Errors::accepted, "key name"));
            ASSERT_TRUE(agree(text, Errors::accepted, "item 12"));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, PathParserEntrancesAtRandom, testing::Values(1U, 2U, 3U));

}  // namespace
