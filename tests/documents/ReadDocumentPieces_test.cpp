#include <zo/Tessera/readDocument.h>

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "documents/reading.h"

using namespace zo::Tessera;
using namespace std::string_view_literals;

// A stream is read in pieces of 64 KiB, wherever in a token or a comment they end: what comes of it
// is what comes of the same text in memory.

namespace {

constexpr size_t k_pieceLength = 65536;

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

struct Case {
    const char* name;
    std::string_view text;
};

class ReadDocumentPieces : public testing::TestWithParam<Case> {};

TEST_P(ReadDocumentPieces, EndAnywhereBehindLines) {
    readWithAPieceEndingAnywhereIn(GetParam().text, 1, [](size_t length) {
        return std::string(100, '\n') + std::string(length - 100, ' ');
    });
}

const auto k_name = [](const auto& row) { return std::string(row.param.name); };

INSTANTIATE_TEST_SUITE_P(
    Accepted, ReadDocumentPieces,
    testing::Values(Case{"Object", R"({"ab": [-1.5e+3, true], "c": {"": null}})"},
                    Case{"Escapes", R"(["\\\"\u00e9\uD83D\uDE00\n", "\\"])"},
                    Case{"NoHalves", R"(["\\ud800\ud83d\ude00\\"] /*\ud800\*/)"},
                    Case{"Characters",
                         "[\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\", \"\xED\x9F\xBF\"]"},
                    Case{"LineEnds", "[1,\r\n\r2,\n\r3\r\n]\r\n"},
                    Case{"Comments", "[/***/ 1, // *\r\n 2 /*/ \v*/] // \f/"},
                    Case{"NumberAlone", "-12.5e-10"}, Case{"LiteralAlone", "false"},
                    Case{"DuplicateKeys", R"({"a": {"b": 1}, "a": {"b": 2, "b": 3}})"},
                    Case{"Depth", "[[[[[]]]]]"}),
    k_name);

INSTANTIATE_TEST_SUITE_P(
    Refused, ReadDocumentPieces,
    testing::Values(
        Case{"NoToken", "{\"a\": [1, x]}"}, Case{"BrokenLiteral", "[true,\r\n falsx]"},
        Case{"BrokenNumber", "[1,\r\n -1.5ex]"}, Case{"BrokenEscape", "{\"ab\": \"c\\u00x\"}"},
        Case{"ControlCharacter", "[\"ab\\n\tc\"]"}, Case{"TwoItems", "[1,\n\"ab\" \"cd\"]"},
        Case{"WrongKey", "{\"a\": 1, 234: 5}"}, Case{"ItemBehindAComment", "{\"a\": 1 /*b*/2}"},
        Case{"WrongEnd", "[{\"a\": 1]"}, Case{"BrokenComment", "[1, /x]"},
        Case{"VerticalTab", "[\"\\\"\", /*\v*/ \v 1]"}, Case{"FormFeedInANumber", "[1,\r\n12\f]"},
        Case{"VerticalTabInAString", "[\"a\\\"\v\"]"}, Case{"TextBehind", "[1] // a\r\n \"bc\""},
        Case{"FirstHalf", R"(["\ud83d\ude00\ud800", 2])"},
        Case{"FirstHalfBeforeAnEscape", R"(["a\ud800\u0041"])"},
        Case{"SecondHalf", R"({"\\\udc00": 1})"}, Case{"EndInAPair", R"(["\ud83d\ud)"},
        Case{"ByteOrderMark", "\xEF\xBB\xBF[]"}, Case{"EndInACharacter", "[\"\xF0\x9F\x98"},
        Case{"EndInAComment", "[1] /* a *"}, Case{"EndInAnEscape", "{\"ab\": \"\\u12"},
        Case{"EndInALiteral", "[1, tru"}, Case{"EndBehindAMinus", "{\"ab\": -"},
        Case{"EndInALineComment", "[1,//"}, Case{"ZeroByte", "[1, \"a\0b\"]"sv},
        Case{"Surrogate", "[1, \"a\xED\xA0\x80\"]"},
        Case{"OverlongCharacter", "[1, \"a\xF0\x82\x82\xAC\"]"},
        Case{"CutOffCharacter", "[1, \"a\xF0\x9F\x98\", 2]"},
        Case{"ContinuationAlone", "[1, \"\xE2\x82\xAC\x80\"]"},
        Case{"CharacterOutsideAString", "[1, \xE2\x82\xAC]"}),
    k_name);

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
