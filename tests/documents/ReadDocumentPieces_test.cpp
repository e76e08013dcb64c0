#include <zo/Tessera/readDocument.h>

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "documents/reading.h"
#include "support/rowName.h"

using namespace zo::Tessera;
using namespace std::string_view_literals;

// A stream is read in pieces of 64 KiB, wherever in a token or a comment they end: what comes of it
// is what comes of the same text in memory.

namespace {

/// What the text is to be read with: as it is, or checked as strictly as can be.
std::vector<ReadOptions> allOptions() {
    ReadOptions strict;
    strict.refuseComments = true;
    strict.refuseDuplicateKeys = true;
    strict.checkUtf8 = true;
    strict.greatestDepth = 3;
    return {ReadOptions(), strict};
}

/// Puts something before the text so that a piece ends before each of its bytes, one after the
/// other, or behind the last. `filler(length)` has that length.
template <class Filler>
void readWithAPieceEndingAnywhereIn(std::string_view text, size_t pieces, const Filler& filler) {
    for (size_t before = 0; before <= text.size(); ++before) {
        const std::string whole = filler(pieces * k_pieceLength - before) + std::string(text);
        for (const ReadOptions& options : allOptions()) {
            EXPECT_EQ(fromStream(whole, options), fromMemory(whole, options))
                << text << ", " << before << " bytes of it in the first piece";
        }
    }
}

struct TextInPieces {
    const char* name;
    std::string_view text;
};

class ReadDocumentPieces : public testing::TestWithParam<TextInPieces> {};

TEST_P(ReadDocumentPieces, EndAnywhereBehindLines) {
    readWithAPieceEndingAnywhereIn(GetParam().text, 1, [](size_t length) {
        return std::string(100, '\n') + std::string(length - 100, ' ');
    });
}

INSTANTIATE_TEST_SUITE_P(
    Accepted, ReadDocumentPieces,
    testing::Values(TextInPieces{"Object", R"({"ab": [-1.5e+3, true], "c": {"": null}})"},
                    TextInPieces{"Escapes", R"(["\\\"\u00e9\uD83D\uDE00\n", "\\"])"},
                    TextInPieces{"NoHalves", R"(["\\ud800\ud83d\ude00\\"] /*\ud800\*/)"},
                    TextInPieces{"Characters",
                                 "[\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\", \"\xED\x9F\xBF\"]"},
                    TextInPieces{"LineEnds", "[1,\r\n\r2,\n\r3\r\n]\r\n"},
                    TextInPieces{"Comments", "[/***/ 1, // *\r\n 2 /*/ \v*/] // \f/"},
                    TextInPieces{"NumberAlone", "-12.5e-10"}, TextInPieces{"LiteralAlone", "false"},
                    TextInPieces{"DuplicateKeys", R"({"a": {"b": 1}, "a": {"b": 2, "b": 3}})"},
                    TextInPieces{"Depth", "[[[[[]]]]]"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Refused, ReadDocumentPieces,
    testing::Values(
        TextInPieces{"NoToken", "{\"a\": [1, x]}"},
        TextInPieces{"BrokenLiteral", "[true,\r\n falsx]"},
        TextInPieces{"BrokenNumber", "[1,\r\n -1.5ex]"},
        TextInPieces{"BrokenEscape", "{\"ab\": \"c\\u00x\"}"},
        TextInPieces{"ControlCharacter", "[\"ab\\n\tc\"]"},
        TextInPieces{"TwoItems", "[1,\n\"ab\" \"cd\"]"},
        TextInPieces{"WrongKey", "{\"a\": 1, 234: 5}"},
        TextInPieces{"ItemBehindAComment", "{\"a\": 1 /*b*/2}"},
        TextInPieces{"WrongEnd", "[{\"a\": 1]"}, TextInPieces{"BrokenComment", "[1, /x]"},
        TextInPieces{"VerticalTab", "[\"\\\"\", /*\v*/ \v 1]"},
        TextInPieces{"FormFeedInANumber", "[1,\r\n12\f]"},
        TextInPieces{"VerticalTabInAString", "[\"a\\\"\v\"]"},
        TextInPieces{"TextBehind", "[1] // a\r\n \"bc\""},
        TextInPieces{"FirstHalf", R"(["\ud83d\ude00\ud800", 2])"},
        TextInPieces{"FirstHalfBeforeAnEscape", R"(["a\ud800\u0041"])"},
        TextInPieces{"SecondHalf", R"({"\\\udc00": 1})"},
        TextInPieces{"EndInAPair", R"(["\ud83d\ud)"},
        TextInPieces{"ByteOrderMark", "\xEF\xBB\xBF[]"},
        TextInPieces{"EndInACharacter", "[\"\xF0\x9F\x98"},
        TextInPieces{"EndInAComment", "[1] /* a *"},
        TextInPieces{"EndInAnEscape", "{\"ab\": \"\\u12"}, TextInPieces{"EndInALiteral", "[1, tru"},
        TextInPieces{"EndBehindAMinus", "{\"ab\": -"}, TextInPieces{"EndInALineComment", "[1,//"},
        TextInPieces{"ZeroByte", "[1, \"a\0b\"]"sv},
        TextInPieces{"Surrogate", "[1, \"a\xED\xA0\x80\"]"},
        TextInPieces{"OverlongCharacter", "[1, \"a\xF0\x82\x82\xAC\"]"},
        TextInPieces{"CutOffCharacter", "[1, \"a\xF0\x9F\x98\", 2]"},
        TextInPieces{"ContinuationAlone", "[1, \"\xE2\x82\xAC\x80\"]"},
        TextInPieces{"CharacterOutsideAString", "[1, \xE2\x82\xAC]"}),
    k_rowName);

TEST(ReadDocumentPieces, EndAnywhereBehindAByteOrderMark) {
    readWithAPieceEndingAnywhereIn("[1,\r\n x]", 1, [](size_t length) {
        return "\xEF\xBB\xBF" + std::string(length - 3, ' ');
    });
}

TEST(ReadDocumentPieces, EndAnywhereBehindALongString) {
    for (const std::string_view text : {"\"]"sv, "\\u00e9\", -12.50e3, true]"sv, "\\\", 1]"sv,
                                        "\xE2\x82\xAC\", \"\xE2\x82\"]"sv, "a\"\r\n,\r\n x]"sv}) {
        for (const size_t pieces : {size_t{1}, size_t{2}, size_t{5}}) {
            readWithAPieceEndingAnywhereIn(
                text, pieces, [](size_t length) { return "[\"" + std::string(length - 2, 'a'); });
        }
    }
}

TEST(ReadDocumentPieces, EndAnywhereBehindALongCommentOrNumber) {
    for (const size_t pieces : {size_t{1}, size_t{3}}) {
        readWithAPieceEndingAnywhereIn(" \v**/\r\n [1, x", pieces, [](size_t length) {
            return "/*" + std::string(length - 2, '*');
        });
        readWithAPieceEndingAnywhereIn("\r\n[1, 2 x", pieces, [](size_t length) {
            return "//" + std::string(length - 2, '\r');
        });
        readWithAPieceEndingAnywhereIn("7.25e-3, 2 x", pieces, [](size_t length) {
            return "[" + std::string(length - 1, '7');
        });
    }
}

TEST(ReadDocumentPieces, EndAnywhereBetweenReturnsAndFeeds) {
    readWithAPieceEndingAnywhereIn("\r\n\n\r\r\n x", 1, [](size_t length) {
        std::string lines;
        while (lines.size() + 2 <= length) {
            lines += "\r\n";
        }
        return lines + (lines.size() < length ? "\n" : "");
    });
}

// A document whose length is exactly that of pieces, and one more or less.
TEST(ReadDocumentPieces, EndWithTheText) {
    for (const std::string_view text :
         {"12"sv, "\"ab\""sv, "[]"sv, "true"sv, "1 //"sv, ""sv, "[1"sv, "\"a"sv, "1 /*"sv}) {
        for (const size_t pieces : {size_t{1}, size_t{2}}) {
            for (size_t more = 0; more <= 2; ++more) {
                const size_t length = pieces * k_pieceLength - 1 + more;
                const std::string before = std::string(length - text.size(), ' ');
                const std::string whole = before + std::string(text);
                EXPECT_EQ(fromStream(whole), fromMemory(whole)) << text << ", " << length;
            }
        }
    }
}

}  // namespace
