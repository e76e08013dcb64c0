#include <zo/convert.h>

#include <string>

#include <gtest/gtest.h>

#include "RuntimeErrorText.h"
#include "support/rowName.h"

namespace {

using zo::convert;
using zo::wconvert;

struct Pair {
    const char* name;
    std::wstring wide;
    std::string narrow;
};

class ValidText : public testing::TestWithParam<Pair> {};

TEST_P(ValidText, BecomesNarrow) {
    EXPECT_EQ(convert(GetParam().wide), GetParam().narrow);
}

TEST_P(ValidText, BecomesWide) {
    EXPECT_EQ(wconvert(GetParam().narrow), GetParam().wide);
}

// The first and the last code point of each length, and those beside the surrogates.
const Pair k_valid[] = {
    {"Empty", L"", ""},
    {"Ascii", L"a \x7F", "a \x7F"},
    {"FirstOfTwoBytes", L"\x80", "\xC2\x80"},
    {"LastOfTwoBytes", L"\x7FF", "\xDF\xBF"},
    {"FirstOfThreeBytes", L"\x800", "\xE0\xA0\x80"},
    {"BeforeTheSurrogates", L"\xD7FF", "\xED\x9F\xBF"},
    {"AfterTheSurrogates", L"\xE000", "\xEE\x80\x80"},
    {"LastOfThreeBytes", L"\xFFFF", "\xEF\xBF\xBF"},
    {"FirstOfFourBytes", L"\x10000", "\xF0\x90\x80\x80"},
    {"LastOfAll", L"\x10FFFF", "\xF4\x8F\xBF\xBF"},
    {"ByteOrderMark", L"\xFEFFx", "\xEF\xBB\xBFx"},
    {"Mixed", L"z\xE9\x20AC\x1F600!", "z\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80!"},
    {"EmbeddedNull", std::wstring(L"a\0b", 3), std::string("a\0b", 3)},
};
INSTANTIATE_TEST_SUITE_P(Convert, ValidText, testing::ValuesIn(k_valid), k_rowName);

class InvalidWideText : public testing::TestWithParam<Pair> {};

TEST_P(InvalidWideText, HasReplacementsInIt) {
    EXPECT_EQ(convert(GetParam().wide), GetParam().narrow);
}

const Pair k_invalidWide[] = {
    {"FirstSurrogate", L"<\xD800>", "<\xEF\xBF\xBD>"},
    {"LastSurrogate", L"<\xDFFF>", "<\xEF\xBF\xBD>"},
    {"SurrogatePair", L"\xD83D\xDE00", "\xEF\xBF\xBD\xEF\xBF\xBD"},
    {"BeyondTheLast", {L'<', static_cast<wchar_t>(0x110000), L'>'}, "<\xEF\xBF\xBD>"},
    {"Negative", {L'<', static_cast<wchar_t>(-1), L'>'}, "<\xEF\xBF\xBD>"},
};
INSTANTIATE_TEST_SUITE_P(Convert, InvalidWideText, testing::ValuesIn(k_invalidWide), k_rowName);

class InvalidNarrowText : public testing::TestWithParam<Pair> {};

TEST_P(InvalidNarrowText, HasReplacementsInIt) {
    EXPECT_EQ(wconvert(GetParam().narrow), GetParam().wide);
}

const Pair k_invalidNarrow[] = {
    {"LoneContinuation", L"<\xFFFD>", "<\x80>"},
    {"TwoLoneContinuations", L"<\xFFFD\xFFFD>", "<\x80\xBF>"},
    {"NeverABeginning", L"<\xFFFD>", "<\xFF>"},
    {"CutByAnotherCharacter", L"<\xFFFD>", "<\xE2\x82>"},
    {"CutByTheEnd", L"<\xFFFD", "<\xF0\x9F\x98"},
    {"LoneFirstByteAtTheEnd", L"<\xFFFD", "<\xC3"},
    {"Overlong", L"<\xFFFD>", "<\xC0\x80>"},
    {"Surrogate", L"<\xFFFD>", "<\xED\xA0\x80>"},
    {"BeyondTheLast", L"<\xFFFD>", "<\xF4\x90\x80\x80>"},
    {"TwoCutInARow", L"<\xFFFD\xFFFD>", "<\xE2\x82\xE2\x82>"},
};
INSTANTIATE_TEST_SUITE_P(Convert, InvalidNarrowText, testing::ValuesIn(k_invalidNarrow), k_rowName);

TEST(Convert, ReadsAPointerUpToTheNullCharacter) {
    EXPECT_EQ(convert(L"\xE9t\xE9\0hidden"), "\xC3\xA9t\xC3\xA9");
}

TEST(Convert, RefusesANullPointer) {
    const wchar_t* const none = nullptr;
    EXPECT_EQ(runtimeErrorText([&] { convert(none); }),
              "Null pointer exception: text may not be null");
}

TEST(Convert, ConvertsLongText) {
    const std::wstring wide(1'000'000, L'\x20AC');
    const std::string narrow = convert(wide);
    EXPECT_EQ(narrow.size(), 3'000'000U);
    EXPECT_EQ(wconvert(narrow), wide);
}

}  // namespace
