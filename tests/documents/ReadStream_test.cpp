#include <zo/Tessera/readDocument.h>

#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "documents/reading.h"

using namespace zo::Tessera;

namespace {

constexpr const char* k_text = R"({"a": [1, "b"], "c": 1.50})";
constexpr const char* k_unreadable = "Cannot read the stream";

/// Never has a character at hand, and gives one at a time. Throws in place of the end, if told to.
class SlowBuffer : public std::streambuf {
public:
    explicit SlowBuffer(std::string text, bool throwsAtEnd = false)
        : m_text(std::move(text)), m_throwsAtEnd(throwsAtEnd) {}

    size_t given() const { return m_given; }

protected:
    std::streamsize showmanyc() override { return m_given == m_text.size() ? -1 : 0; }

    int_type underflow() override {
        if (m_given == m_text.size()) {
            if (m_throwsAtEnd) {
                throw std::domain_error("the line is dead");
            }
            return traits_type::eof();
        }
        m_character = m_text[m_given++];
        setg(&m_character, &m_character, &m_character + 1);
        return traits_type::to_int_type(m_character);
    }

private:
    std::string m_text;
    bool m_throwsAtEnd;
    size_t m_given = 0;
    char m_character = 0;
};

std::string fromSlow(const std::string& text) {
    SlowBuffer buffer(text);
    std::istream in(&buffer);
    return outcome([&] { return readDocument(in); });
}

TEST(ReadStream, NeedsNothingAtHand) {
    for (const std::string text :
         {k_text, " 12", "[1,\r\n x]", "[1", "\"\xC3\xA9\"", "1 // a", ""}) {
        EXPECT_EQ(fromSlow(text), fromMemory(text));
    }
    const std::string longText = "[\"" + std::string(200000, 'a') + "\", 1 2]";
    EXPECT_EQ(fromSlow(longText), fromMemory(longText));
}

TEST(ReadStream, BeginsWhereTheStreamStands) {
    std::istringstream in("x\n[1]");
    std::string line;
    std::getline(in, line);
    EXPECT_EQ(outcome([&] { return readDocument(in); }), fromMemory("[1]"));
}

TEST(ReadStream, LeavesTheEndSetAlone) {
    for (const size_t length : {1U, 10U, 65535U, 65536U, 65537U, 131072U}) {
        std::istringstream in("1" + std::string(length - 1, ' '));
        EXPECT_EQ(outcome([&] { return readDocument(in); }), k_one);
        EXPECT_EQ(in.rdstate(), std::ios::eofbit);
    }
}

TEST(ReadStream, LeavesTheStreamsSettings) {
    std::istringstream in("1");
    in.exceptions(std::ios::badbit);
    in.unsetf(std::ios::skipws);
    in.width(7);
    const std::ios::fmtflags flags = in.flags();
    readDocument(in);
    EXPECT_EQ(in.exceptions(), std::ios::badbit);
    EXPECT_EQ(in.flags(), flags);
    EXPECT_EQ(in.width(), 7);
}

TEST(ReadStream, FindsNothingInOneThatWasReadToItsEnd) {
    std::istringstream in("1");
    readDocument(in);
    EXPECT_EQ(outcome([&] { return readDocument(in); }),
              "Parse error at 1,1 in element \"\": unexpected end of text before a document");
}

TEST(ReadStream, RefusesAMalformedTextBeforeTheRestIsRead) {
    SlowBuffer buffer("[1, x" + std::string(200000, ' '));
    std::istream in(&buffer);
    EXPECT_EQ(outcome([&] { return readDocument(in); }),
              "Parse error at 1,5 in element \"[1]\": lexical error: invalid char in json text.");
    EXPECT_EQ(buffer.given(), 65536U);
}

TEST(ReadStream, RefusesOneThatHasFailed) {
    for (const std::ios::iostate state :
         {std::ios::failbit, std::ios::badbit, std::ios::failbit | std::ios::eofbit}) {
        std::istringstream in("1");
        in.setstate(state);
        EXPECT_EQ(outcome([&] { return readDocument(in); }), k_unreadable);
        EXPECT_EQ(in.rdstate(), state);
    }
    std::istream nowhere(nullptr);
    EXPECT_EQ(outcome([&] { return readDocument(nowhere); }), k_unreadable);
}

TEST(ReadStream, RefusesOneThatFailsOnTheWay) {
    // Even if what came before would have been a document, or no document.
    for (const std::string text : {"", "1", "[1, ", "[x", "[1] ", "1 2"}) {
        SlowBuffer buffer(text, true);
        std::istream in(&buffer);
        EXPECT_EQ(outcome([&] { return readDocument(in); }), k_unreadable) << text;
        EXPECT_TRUE(in.bad());
    }
    SlowBuffer buffer(std::string(200000, ' '), true);
    std::istream in(&buffer);
    EXPECT_EQ(outcome([&] { return readDocument(in); }), k_unreadable);
}

TEST(ReadStream, PassesOnWhatTheBufferThrows) {
    SlowBuffer buffer("[1", true);
    std::istream in(&buffer);
    in.exceptions(std::ios::badbit);
    EXPECT_THROW(readDocument(in), std::domain_error);
    EXPECT_TRUE(in.bad());
}

TEST(ReadStream, DoesNotHaveTheStreamThrowAtItsEnd) {
    for (const std::ios::iostate told :
         {std::ios::failbit, std::ios::eofbit, std::ios::failbit | std::ios::eofbit}) {
        std::istringstream in(k_text);
        in.exceptions(told);
        EXPECT_EQ(outcome([&] { return readDocument(in); }), fromMemory(k_text));
        EXPECT_EQ(in.rdstate(), std::ios::eofbit);
        EXPECT_EQ(in.exceptions(), told);
    }
}

TEST(ReadStream, RestoresWhatTheStreamThrowsForAfterARefusal) {
    std::istringstream in("[1, x" + std::string(70000, ' '));
    in.exceptions(std::ios::failbit | std::ios::eofbit);
    EXPECT_THROW(readDocument(in), ParseException);
    EXPECT_EQ(in.exceptions(), std::ios::failbit | std::ios::eofbit);
}

TEST(ReadStream, ReportsABadOneOnlyIfItIsTold) {
    std::istringstream in(k_text);
    in.exceptions(std::ios::badbit);
    EXPECT_EQ(outcome([&] { return readDocument(in); }), fromMemory(k_text));
    EXPECT_EQ(in.rdstate(), std::ios::eofbit);
}

TEST(ReadStream, LeavesOneThatHasFailedItsExceptions) {
    std::istringstream in(k_text);
    in.exceptions(std::ios::goodbit);
    in.setstate(std::ios::badbit);
    try {
        in.exceptions(std::ios::badbit | std::ios::failbit);
    } catch (const std::ios::failure&) {
        // It tells at once that it has failed.
    }
    EXPECT_EQ(outcome([&] { return readDocument(in); }), k_unreadable);
    EXPECT_EQ(in.exceptions(), std::ios::badbit | std::ios::failbit);
}

/// Ends a process of its own, whose standard input is `text`: well, if that is read from
/// `std::cin`.
[[noreturn]] void readStandardInput(const std::string& text) {
    int ends[2] = {};
    const bool isReady =
        ::pipe(ends) == 0 && ::dup2(ends[0], STDIN_FILENO) == STDIN_FILENO &&
        ::write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size()) &&
        ::close(ends[1]) == 0;
    const bool isRead =
        isReady && outcome([] { return readDocument(std::cin); }) == fromMemory(text);
    std::_Exit(isRead && std::cin.rdstate() == std::ios::eofbit ? EXIT_SUCCESS : EXIT_FAILURE);
}

TEST(ReadStreamDeathTest, ReadsStandardInput) {
    EXPECT_EXIT(readStandardInput(k_text), testing::ExitedWithCode(EXIT_SUCCESS), "");
    EXPECT_EXIT(readStandardInput("[\"" + std::string(60000, 'a') + "\"]\n"),
                testing::ExitedWithCode(EXIT_SUCCESS), "");
}

TEST(ReadStreamDeathTest, ReadsStandardInputApartFromStdio) {
    EXPECT_EXIT(
        {
            std::ios::sync_with_stdio(false);
            readStandardInput(k_text);
        },
        testing::ExitedWithCode(EXIT_SUCCESS), "");
}

}  // namespace
