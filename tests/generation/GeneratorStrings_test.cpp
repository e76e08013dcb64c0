#include <zo/Tessera/Generator.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Object.h>

#include "generation/written.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

// Each text goes through every entrance for texts; the expected one stands between two quotes.
struct Text {
    const char* name;
    std::string text;
    const char* escaped;
};

class GeneratorText : public testing::TestWithParam<Text> {
protected:
    const std::string quoted = "\"" + std::string(GetParam().escaped) + "\"";
};

TEST_P(GeneratorText, IsEscapedAsASingleEvent) {
    EXPECT_EQ(written(Layout::oneLine, [](Generator& g) { g.gen_string(GetParam().text); }),
              quoted);
    EXPECT_EQ(written(Layout::oneLine, [](Generator& g) { g.printString(GetParam().text); }),
              quoted);
}

TEST_P(GeneratorText, IsEscapedAsAnElement) {
    const std::unique_ptr<Element> text = value(GetParam().text);
    EXPECT_EQ(written(Layout::oneLine, [&](Generator& g) { g.print(*text); }), quoted);
}

TEST_P(GeneratorText, IsEscapedAsAKey) {
    Object object;
    Element::createNull(&object, GetParam().text);
    EXPECT_EQ(written(Layout::oneLine, [&](Generator& g) { g.printObject(object); }),
              "{" + quoted + ":null}");
}

INSTANTIATE_TEST_SUITE_P(
    Generator, GeneratorText,
    testing::Values(
        Text{"Empty", "", ""}, Text{"Quote", "a\"b", "a\\\"b"}, Text{"Backslash", "a\\b", "a\\\\b"},
        Text{"OnlyQuotes", "\"\"", "\\\"\\\""},
        Text{"BackspaceFormFeedLineFeedReturnTab", "\b\f\n\r\t", "\\b\\f\\n\\r\\t"},
        Text{"OtherControlCharacters", "\x01\x1f", "\\u0001\\u001F"},
        Text{"VerticalTabHasNoShortForm", "\v", "\\u000B"},
        Text{"EmbeddedZero", std::string("a\0b", 3), "a\\u0000b"},
        Text{"OnlyAZero", std::string(1, '\0'), "\\u0000"}, Text{"DeleteIsKept", "\x7f", "\x7f"},
        Text{"SolidusIsKept", "</a>", "</a>"}, Text{"ApostropheIsKept", "it's", "it's"},
        Text{"TextThatLooksEscaped", "\\u0041\\n", "\\\\u0041\\\\n"},
        Text{"Utf8IsKept", "\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80",
             "\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80"},
        // Bytes are kept as they are, valid or not: texts in other encodings pass through.
        Text{"LoneContinuationByte", "a\x80z", "a\x80z"},
        Text{"CutOffSequence", "\xe2\x82", "\xe2\x82"},
        Text{"BytesThatAreNeverUtf8", "\xc0\xaf\xfe\xff", "\xc0\xaf\xfe\xff"},
        Text{"EscapeBesideInvalidByte", "\xff\"\n\xff", "\xff\\\"\\n\xff"}),
    k_rowName);

TEST(GeneratorStrings, EveryOtherByteIsWrittenAsItIs) {
    for (int byte = 0x20; byte < 0x100; ++byte) {
        const char character = static_cast<char>(byte);
        if (character == '"' || character == '\\') {
            continue;
        }
        const std::string text(1, character);
        EXPECT_EQ(written(Layout::oneLine, [&](Generator& g) { g.gen_string(text); }),
                  "\"" + text + "\"")
            << "byte " << byte;
    }
}

TEST(GeneratorStrings, EveryControlCharacterIsEscaped) {
    std::string text;
    for (char character = 0; character < 0x20; ++character) {
        text += character;
    }
    EXPECT_EQ(written(Layout::oneLine, [&](Generator& g) { g.gen_string(text); }),
              "\"\\u0000\\u0001\\u0002\\u0003\\u0004\\u0005\\u0006\\u0007"
              "\\b\\t\\n\\u000B\\f\\r\\u000E\\u000F"
              "\\u0010\\u0011\\u0012\\u0013\\u0014\\u0015\\u0016\\u0017"
              "\\u0018\\u0019\\u001A\\u001B\\u001C\\u001D\\u001E\\u001F\"");
}

TEST(GeneratorStrings, ALongTextIsWrittenWhole) {
    const std::string text(1000000, 'x');
    EXPECT_EQ(written(Layout::lineBreaks, [&](Generator& g) { g.gen_string(text); }),
              "\"" + text + "\"\n");
}

}  // namespace
