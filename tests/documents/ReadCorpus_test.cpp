#include <zo/Tessera/readDocument.h>

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "documents/strictly.h"

using namespace std::string_view_literals;

// Texts that every strict parser accepts, written down from the grammar.

namespace {

TEST(JsonText, IsAnyValueAmongBlanks) {
    expectAll(true, {"null", "true", "false", "0", "\"\"", "[]", "{}", " \t\r\n[]\n\r\t ", "\r1\r",
                     "\n\"a\"\n", " {} ", "\ttrue", "false\t"});
}

TEST(JsonText, IsAnArray) {
    expectAll(true, {"[ ]", "[\n]", "[1]", "[ 1 ]", "[1,2]", "[ 1 , 2 ]", "[\r\n1\r\n,\t2\n]",
                     "[null,true,false]", "[\"a\",\"b\"]", "[[],[]]", "[{},{}]", "[[[[[]]]]]",
                     "[1,[2,[3]],4]", "[0,-0,\"\",{},[],null]", "[1,1,1,1,1,1,1,1,1,1,1,1]"});
}

TEST(JsonText, IsAnObject) {
    expectAll(true, {"{ }", "{\n}", "{\"a\":1}", "{ \"a\" : 1 }", "{\"a\":1,\"b\":2}",
                     "{\r\n\"a\"\r\n:\r\n1\r\n,\r\n\"b\"\r\n:\r\n2\r\n}", "{\"\":0}", "{\" \":0}",
                     "{\"a\":1,\"a\":2}", "{\"a\":{\"a\":{\"a\":{}}}}", "{\"a\":[]}",
                     "{\"a\":[{\"b\":[]}]}", "{\"a b\":null}", "{\"\\u0000\":1}", "{\"\\\"\":1}",
                     "{\"\xC3\xA9\":1}", "{\"null\":null,\"true\":true}",
                     "{\"1\":1,\"[]\":[],\"{}\":{}}", "{\"/**/\":\"//\"}"});
}

TEST(JsonText, HasNumbers) {
    expectAllValues(true, {"0",
                           "-0",
                           "1",
                           "-1",
                           "9",
                           "10",
                           "1234567890",
                           "-9876543210",
                           "0.0",
                           "-0.0",
                           "0.5",
                           "0.000",
                           "1.0",
                           "10.01",
                           "123.456789",
                           "0e0",
                           "0E0",
                           "1e1",
                           "1E1",
                           "1e+1",
                           "1e-1",
                           "1E+1",
                           "1E-1",
                           "0e+0",
                           "0e-0",
                           "1e00",
                           "1e007",
                           "1e-007",
                           "1.5e10",
                           "1.5E+10",
                           "-1.5e-10",
                           "0.0e0",
                           "9007199254740993",
                           "18446744073709551616",
                           "1e308",
                           "1e309",
                           "-1e309",
                           "1e-400",
                           "123456789012345678901234567890.123456789012345678901234567890",
                           "1e999999999999",
                           "2.2250738585072014e-308",
                           "4.9e-324"});
}

TEST(JsonText, HasStrings) {
    expectAllValues(true,
                    {R"("")",    R"(" ")",       R"("a")",    R"("'")",    R"("/")",
                     R"("a/b")", R"("{}[]:,")",  R"("\"")",   R"("\\")",   R"("\/")",
                     R"("\b")",  R"("\f")",      R"("\n")",   R"("\r")",   R"("\t")",
                     R"("\\n")", R"("\\\\")",    R"("\\\"")", R"("a\"b")", R"("\b\f\n\r\t\"\\\/")",
                     R"("//")",  R"("/* a */")", R"("# a")",  R"("-1")",   R"("null")",
                     R"("&<>")", "\"\x7F\"",     "\"!#[]~\""});
}

TEST(JsonText, HasEscapedCodeUnits) {
    expectAllValues(
        true, {R"("\u0000")",       R"("\u0001")",       R"("\u001F")",       R"("\u0020")",
               R"("\u0022")",       R"("\u005C")",       R"("\u007f")",       R"("\u0080")",
               R"("\u00e9")",       R"("\u07FF")",       R"("\u0800")",       R"("\u20aC")",
               R"("\uABCD")",       R"("\uabcd")",       R"("\uD7FF")",       R"("\uE000")",
               R"("\uFDD0")",       R"("\uFEFF")",       R"("\uFFFE")",       R"("\uffff")",
               R"("\uD800\uDC00")", R"("\ud83d\ude00")", R"("\uDBFF\uDFFF")", R"("\u00411")",
               R"("\u0041\u0042")", R"("\\u0041")",      R"("\\u")",          R"("\\ud800")"});
}

TEST(JsonText, HasCharacters) {
    expectAllValues(true, {"\"\xC2\x80\"",
                           "\"\xC2\xA0\"",
                           "\"\xC3\xA9\"",
                           "\"\xDF\xBF\"",
                           "\"\xE0\xA0\x80\"",
                           "\"\xE2\x80\xA8\xE2\x80\xA9\"",
                           "\"\xE2\x82\xAC\"",
                           "\"\xED\x9F\xBF\"",
                           "\"\xEE\x80\x80\"",
                           "\"\xEF\xB7\x90\"",
                           "\"\xEF\xBB\xBF\"",
                           "\"\xEF\xBF\xBD\"",
                           "\"\xEF\xBF\xBF\"",
                           "\"\xF0\x90\x80\x80\"",
                           "\"\xF0\x9F\x98\x80\"",
                           "\"\xF3\xBF\xBF\xBF\"",
                           "\"\xF4\x8F\xBF\xBF\"",
                           "\"a\xCC\x81\"",
                           "\"\xE6\x97\xA5\xE6\x9C\xAC\"",
                           "\"\xC2\x85\""});
}

TEST(JsonText, MayBeLongAndDeep) {
    const std::string longText(100000, 'a');
    expectAll(true, {std::string(10000, '[') + std::string(10000, ']'), '"' + longText + '"',
                     "{\"" + longText + "\":1}", std::string(100000, '7'),
                     "0." + std::string(100000, '7'), std::string(100000, ' ') + "1"});
    std::string objects;
    for (int i = 0; i < 10000; ++i) {
        objects += "{\"a\":";
    }
    expectAll(true, {objects + "1" + std::string(10000, '}')});
}

}  // namespace
