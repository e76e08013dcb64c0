#include <zo/Tessera/readDocument.h>

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "documents/strictly.h"

using namespace std::string_view_literals;

// Texts that every strict parser refuses for bytes that they hold: control characters, blanks that
// are none, what is not UTF-8, comments.

namespace {

TEST(NoJsonText, HasAControlCharacterInAString) {
    for (int code = 0; code < 0x20; ++code) {
        const std::string control(1, static_cast<char>(code));
        expectAllValues(
            false, {"\"" + control + "\"", "\"a" + control + "b\"", "\"\\\\" + control + "\""});
        expectAll(false, {"{\"" + control + "\":1}", "{\"a" + control});
    }
}

TEST(NoJsonText, HasABlankThatIsNone) {
    for (const std::string_view blank :
         {"\v"sv,           "\f"sv,           "\b"sv,           "\a"sv,           "\0"sv,
          "\x1B"sv,         "\x1C"sv,         "\x1F"sv,         "\x7F"sv,         "\xC2\x85"sv,
          "\xC2\xA0"sv,     "\xE1\x9A\x80"sv, "\xE2\x80\x83"sv, "\xE2\x80\x8B"sv, "\xE2\x80\xA8"sv,
          "\xE2\x80\xA9"sv, "\xE2\x81\xA0"sv, "\xE3\x80\x80"sv, "\\n"sv,          "\\"sv,
          "&nbsp;"sv}) {
        const std::string odd(blank);
        expectAll(false,
                  {odd, odd + "1", "1" + odd, "[" + odd + "]", "[1" + odd + ",2]",
                   "[1," + odd + "2]", "[1,2" + odd + "]", "{" + odd + "}", "{" + odd + "\"a\":1}",
                   "{\"a\"" + odd + ":1}", "{\"a\":" + odd + "1}", "{\"a\":1" + odd + "}"});
    }
}

TEST(NoJsonText, IsNotUtf8) {
    for (const std::string_view bytes : {"\x80",
                                         "\xBF",
                                         "\x80\x80",
                                         "\xC2",
                                         "\xDF",
                                         "\xC2(",
                                         "\xC2\xC2",
                                         "\xC3\xA9\xA9",
                                         "\xC0\x80",
                                         "\xC0\xAF",
                                         "\xC1\xBF",
                                         "\xE0",
                                         "\xE0\xA0",
                                         "\xE2\x82",
                                         "\xE2(\xA1",
                                         "\xE2\x82(",
                                         "\xE0\x80\x80",
                                         "\xE0\x9F\xBF",
                                         "\xED\xA0\x80",
                                         "\xED\xAF\xBF",
                                         "\xED\xB0\x80",
                                         "\xED\xBF\xBF",
                                         "\xED\xA0\xBD\xED\xB8\x80",
                                         "\xF0",
                                         "\xF0\x90",
                                         "\xF0\x9F\x98",
                                         "\xF0(\x98\x80",
                                         "\xF0\x9F(\x80",
                                         "\xF0\x9F\x98(",
                                         "\xF0\x80\x80\x80",
                                         "\xF0\x8F\xBF\xBF",
                                         "\xF4\x90\x80\x80",
                                         "\xF5\x80\x80\x80",
                                         "\xF7\xBF\xBF\xBF",
                                         "\xF8\x88\x80\x80\x80",
                                         "\xFB\xBF\xBF\xBF\xBF",
                                         "\xFC\x84\x80\x80\x80\x80",
                                         "\xFD\xBF\xBF\xBF\xBF\xBF",
                                         "\xFE",
                                         "\xFF",
                                         "\xFE\xFF",
                                         "\xFF\xFE",
                                         "\xE9",
                                         "\xA0"}) {
        const std::string odd(bytes);
        expectAll(false, {"\"" + odd + "\"", "[\"a" + odd + "b\"]", "{\"" + odd + "\":1}",
                          "[\"" + odd, odd, "1" + odd, "[" + odd + "]", "[\"\\" + odd + "\"]"});
    }
}

TEST(NoJsonText, IsOfAnotherEncoding) {
    expectAll(false, {"[\0"sv, "[\0]\0"sv, "\0[\0]"sv, "\xFF\xFE[\0]\0"sv, "\xFE\xFF\0[\0]"sv,
                      "[\0\0\0]\0\0\0"sv, "\0\0\xFE\xFF\0\0\0["sv, "\xEF\xBB\xBF", "\xEF\xBB[]",
                      "\xEF[]", "\xEF\xBB\xBF\xEF\xBB\xBF[]", " \xEF\xBB\xBF[]", "[\xEF\xBB\xBF]",
                      "+/v8-[]", "\x0E\xFE\xFF[]"});
}

TEST(NoJsonText, HasAComment) {
    expectAll(false, {"//",
                      "//\n1",
                      "1//",
                      "1 // a\n",
                      "/**/",
                      "/**/1",
                      "1/**/",
                      "[/**/]",
                      "[1/**/]",
                      "[1,//\n2]",
                      "{/**/}",
                      "{\"a\"/**/:1}",
                      "{\"a\":/* b */1}",
                      "/",
                      "/*",
                      "/* a",
                      "1/",
                      "1/*",
                      "[1/]",
                      "[/]",
                      "# a\n1",
                      "1 # a",
                      "<!-- a -->1",
                      "-- a\n1",
                      "; a\n1",
                      "% a\n1",
                      "[] /* a */ []"});
}

TEST(NoJsonText, IsCutOffInTheDepth) {
    const std::string open(10000, '[');
    std::string members;
    for (int i = 0; i < 10000; ++i) {
        members += "{\"a\":[";
    }
    expectAll(false, {open, open + std::string(9999, ']'), open + std::string(10001, ']'),
                      open + "}" + std::string(9999, ']'), members, members + "1"});
}

}  // namespace
