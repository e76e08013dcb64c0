#include <zo/Tessera/writeDocument.h>

#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "documents/writtenEverywhere.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

/// What stands between the quotes of a string, which is checked to be written alike as a key.
std::string quoted(const std::string& text, WriteOptions options = {}) {
    options.compact = true;
    options.finalNewline = false;
    const std::string asValue = writtenEverywhere(*value(text), options);
    Object object;
    Element::createNull(&object, text);
    EXPECT_EQ(writtenEverywhere(object, options), '{' + asValue + ":null}");
    return asValue.substr(1, asValue.size() - 2);
}

std::string escaped(const std::string& text) {
    WriteOptions options;
    options.escapeNonAscii = true;
    return quoted(text, options);
}

std::string replaced(const std::string& text) {
    WriteOptions options;
    options.replaceInvalidUtf8 = true;
    return quoted(text, options);
}

struct Text {
    const char* name;
    std::string text;
    const char* written;
    const char* inAscii;
};

class WrittenText : public testing::TestWithParam<Text> {};

TEST_P(WrittenText, IsEscapedWhereJsonAsksForIt) {
    EXPECT_EQ(quoted(GetParam().text), GetParam().written);
}

TEST_P(WrittenText, IsAsciiOnRequest) {
    EXPECT_EQ(escaped(GetParam().text), GetParam().inAscii);
}

// The first and the last character of each length, and those beside the surrogates.
const Text k_texts[] = {
    {"Empty", "", "", ""},
    {"Plain", "Ada Lovelace", "Ada Lovelace", "Ada Lovelace"},
    {"Quote", "a\"b", "a\\\"b", "a\\\"b"},
    {"Backslash", "\\u0041\\", "\\\\u0041\\\\", "\\\\u0041\\\\"},
    {"NamedControls", "\b\f\n\r\t", "\\b\\f\\n\\r\\t", "\\b\\f\\n\\r\\t"},
    {"OtherControls", "\x01\x0B\x1F", "\\u0001\\u000B\\u001F", "\\u0001\\u000B\\u001F"},
    {"Zero", std::string("a\0b", 3), "a\\u0000b", "a\\u0000b"},
    {"BlankAndDelete", " \x7F", " \x7F", " \x7F"},
    {"Solidus", "</a>", "</a>", "</a>"},
    {"FirstOfTwoBytes", "\xC2\x80", "\xC2\x80", "\\u0080"},
    {"LastOfTwoBytes", "\xDF\xBF", "\xDF\xBF", "\\u07FF"},
    {"FirstOfThreeBytes", "\xE0\xA0\x80", "\xE0\xA0\x80", "\\u0800"},
    {"BeforeTheSurrogates", "\xED\x9F\xBF", "\xED\x9F\xBF", "\\uD7FF"},
    {"AfterTheSurrogates", "\xEE\x80\x80", "\xEE\x80\x80", "\\uE000"},
    {"LineSeparator", "\xE2\x80\xA8", "\xE2\x80\xA8", "\\u2028"},
    {"LastOfThreeBytes", "\xEF\xBF\xBF", "\xEF\xBF\xBF", "\\uFFFF"},
    {"FirstOfFourBytes", "\xF0\x90\x80\x80", "\xF0\x90\x80\x80", "\\uD800\\uDC00"},
    {"LastOfAll", "\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF", "\\uDBFF\\uDFFF"},
    {"Mixed", "z\xC3\xA9\n\xF0\x9F\x98\x80!", "z\xC3\xA9\\n\xF0\x9F\x98\x80!",
     "z\\u00E9\\n\\uD83D\\uDE00!"},
    {"BehindEightBytes",
     "12345678\xC3\xA9"
     "12345678\"",
     "12345678\xC3\xA9"
     "12345678\\\"",
     "12345678\\u00E9"
     "12345678\\\""},
};
INSTANTIATE_TEST_SUITE_P(WriteDocument, WrittenText, testing::ValuesIn(k_texts), k_rowName);

struct Invalid {
    const char* name;
    std::string text;
    const char* replaced;
};

class InvalidText : public testing::TestWithParam<Invalid> {};

TEST_P(InvalidText, IsRefused) {
    EXPECT_EQ(thrown<Exception>([] { writeDocument(*value(GetParam().text)); }),
              "Cannot write element \"\": the string is not UTF-8");
}

TEST_P(InvalidText, IsRefusedAsAKey) {
    Object object;
    Element::createNull(&object, GetParam().text);
    EXPECT_THROW(writeDocument(object), Exception);
}

TEST_P(InvalidText, IsReplacedOnRequest) {
    EXPECT_EQ(replaced(GetParam().text), GetParam().replaced);
}

const Invalid k_invalidTexts[] = {
    {"ContinuationAlone", "<\x80>", "<\xEF\xBF\xBD>"},
    {"NeverAByte", "<\xFF>", "<\xEF\xBF\xBD>"},
    {"FirstByteAlone", "<\xC3>", "<\xEF\xBF\xBD>"},
    {"CutOffAtTheEnd", "<\xE2\x82", "<\xEF\xBF\xBD"},
    {"CutOffWithin", "<\xF0\x9F\x98>", "<\xEF\xBF\xBD>"},
    {"OverlongSolidus", "<\xC0\xAF>", "<\xEF\xBF\xBD>"},
    {"OverlongOfThreeBytes", "<\xE0\x9F\xBF>", "<\xEF\xBF\xBD>"},
    {"OverlongOfFourBytes", "<\xF0\x8F\xBF\xBF>", "<\xEF\xBF\xBD>"},
    {"FirstSurrogate", "<\xED\xA0\x80>", "<\xEF\xBF\xBD>"},
    {"LastSurrogate", "<\xED\xBF\xBF>", "<\xEF\xBF\xBD>"},
    {"BeyondTheLast", "<\xF4\x90\x80\x80>", "<\xEF\xBF\xBD>"},
    {"Latin1AmongEightBytes", "caf\xE9 noir", "caf\xEF\xBF\xBD noir"},
    {"Latin1BehindEightBytes", "12345678\xE9", "12345678\xEF\xBF\xBD"},
    {"BesideWhatIsEscaped", "\"\xFF\xC3\xA9\n", "\\\"\xEF\xBF\xBD\xC3\xA9\\n"},
};
INSTANTIATE_TEST_SUITE_P(WriteDocument, InvalidText, testing::ValuesIn(k_invalidTexts), k_rowName);

}  // namespace
