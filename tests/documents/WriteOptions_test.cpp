#include <zo/Tessera/writeDocument.h>

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "documents/writtenEverywhere.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

TEST(Compact, IsOneLineWithoutBlanks) {
    WriteOptions options;
    options.compact = true;
    EXPECT_EQ(writtenEverywhere(*parsed(R"({"a":[1,{"b":"x y"},[]],"c":{},"d":null})"), options),
              "{\"a\":[1,{\"b\":\"x y\"},[]],\"c\":{},\"d\":null}\n");
}

struct Indent {
    const char* name;
    std::string indent;
    const char* text;
};

class Indentation : public testing::TestWithParam<Indent> {};

TEST_P(Indentation, StandsBeforeALineOnceForEachLevel) {
    WriteOptions options;
    options.indent = GetParam().indent;
    EXPECT_EQ(writtenEverywhere(*parsed(R"({"a":[1]})"), options), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    WriteOptions, Indentation,
    testing::Values(Indent{"None", "", "{\n\"a\": [\n1\n]\n}\n"},
                    Indent{"OneBlank", " ", "{\n \"a\": [\n  1\n ]\n}\n"},
                    Indent{"Tab", "\t", "{\n\t\"a\": [\n\t\t1\n\t]\n}\n"},
                    Indent{"TabAndBlank", "\t ", "{\n\t \"a\": [\n\t \t 1\n\t ]\n}\n"},
                    Indent{"NineBlanks", "         ",
                           "{\n         \"a\": [\n                  1\n         ]\n}\n"}),
    k_rowName);

class BadIndentation : public testing::TestWithParam<std::string> {};

TEST_P(BadIndentation, IsRefused) {
    WriteOptions options;
    options.indent = GetParam();
    std::ostringstream out;
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(out, *value(), options); }),
              "Indentation may consist of blanks and tabs only");
    EXPECT_EQ(out.str(), "");
}

INSTANTIATE_TEST_SUITE_P(WriteOptions, BadIndentation,
                         testing::Values("--", "  x", "\n", "\r", "\v", "\xC2\xA0",
                                         std::string(1, '\0')));

TEST(SortedKeys, AreInTheOrderOfTheirBytesAtEachLevel) {
    WriteOptions options;
    options.compact = true;
    options.sortKeys = true;
    const auto root = parsed(
        "{\"b\":{\"z\":1,\"y\":[{\"k\":1,\"j\":2}]},\"\xC3\xA9\":1,\"aa\":2,\"a\":3,\"\":4,\"B\":5,"
        "\"~\":6}");
    EXPECT_EQ(writtenEverywhere(*root, options),
              "{\"\":4,\"B\":5,\"a\":3,\"aa\":2,\"b\":{\"y\":[{\"j\":2,\"k\":1}],\"z\":1},\"~\":6,"
              "\"\xC3\xA9\":1}\n");
    EXPECT_EQ(root->getObjectValue().begin()->first, "b");
}

TEST(SortedKeys, LeaveItemsAndEmptyObjectsAsTheyAre) {
    WriteOptions options;
    options.compact = true;
    options.sortKeys = true;
    EXPECT_EQ(writtenEverywhere(*parsed(R"([3,1,{},2])"), options), "[3,1,{},2]\n");
}

TEST(EscapeNonAscii, LeavesAsciiAlone) {
    WriteOptions options;
    options.escapeNonAscii = true;
    const auto root = parsed("{\"\xC3\xA9\":\"a\x7F\xF0\x9F\x98\x80\"}");
    EXPECT_EQ(writtenEverywhere(*root, options),
              "{\n    \"\\u00E9\": \"a\x7F\\uD83D\\uDE00\"\n}\n");
}

TEST(ReplaceInvalidUtf8, TouchesNothingElse) {
    WriteOptions options;
    options.replaceInvalidUtf8 = true;
    const auto root = parsed("{\"k\xFF\":[\"\xC3\xA9\",\"\xC3\"]}");
    EXPECT_EQ(writtenEverywhere(*root, options),
              "{\n    \"k\xEF\xBF\xBD\": [\n        \"\xC3\xA9\",\n        \"\xEF\xBF\xBD\"\n    "
              "]\n}\n");
    EXPECT_EQ(root->getObjectValue().begin()->first, "k\xFF");
}

TEST(FinalNewline, IsLeftOutOnRequest) {
    WriteOptions options;
    options.finalNewline = false;
    EXPECT_EQ(writtenEverywhere(*parsed("[1]"), options), "[\n    1\n]");
    EXPECT_EQ(writtenEverywhere(*parsed("1 "), options), "1");
}

struct Meta {
    bool inDocument;
    std::optional<bool> inOptions;
    const char* text;
};

class MetaMember : public testing::TestWithParam<Meta> {};

TEST_P(MetaMember, IsWrittenIfTheOptionsOrElseTheDocumentSaySo) {
    Dom document;
    document.setRoot(parsed(R"({"meta":1})"));
    document.setIncludeMeta(GetParam().inDocument);
    WriteOptions options;
    options.compact = true;
    options.includeMeta = GetParam().inOptions;
    EXPECT_EQ(writtenEverywhere(document, options), GetParam().text);
    EXPECT_EQ(document.includeMeta(), GetParam().inDocument);
}

const char* const k_withMeta = "{\"meta\":1}\n";

INSTANTIATE_TEST_SUITE_P(WriteOptions, MetaMember,
                         testing::Values(Meta{true, std::nullopt, k_withMeta},
                                         Meta{false, std::nullopt, "{}\n"},
                                         Meta{true, false, "{}\n"}, Meta{false, true, k_withMeta},
                                         Meta{true, true, k_withMeta}, Meta{false, false, "{}\n"}));

TEST(MetaMember, IsAMemberLikeAnyOtherOfAnElement) {
    WriteOptions options;
    options.compact = true;
    options.includeMeta = false;
    EXPECT_EQ(writtenEverywhere(*parsed(R"({"meta":1})"), options), k_withMeta);
}

}  // namespace
