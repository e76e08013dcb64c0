#include <zo/Tessera/writeDocument.h>

#include <gtest/gtest.h>

#include <zo/Tessera/Dom.h>

#include "documents/writtenEverywhere.h"
#include "support/parsed.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

using Choice = void (*)(WriteOptions&);

// Every option with another value than its own.
const Choice k_compact = [](WriteOptions& options) { options.compact = true; };
const Choice k_indent = [](WriteOptions& options) { options.indent = "\t"; };
const Choice k_short = [](WriteOptions& options) { options.shortArrayWidth = 9; };
const Choice k_sorted = [](WriteOptions& options) { options.sortKeys = true; };
const Choice k_ascii = [](WriteOptions& options) { options.escapeNonAscii = true; };
const Choice k_replace = [](WriteOptions& options) { options.replaceInvalidUtf8 = true; };
const Choice k_noEnd = [](WriteOptions& options) { options.finalNewline = false; };
const Choice k_noMeta = [](WriteOptions& options) { options.includeMeta = false; };

const char* const k_valid = "{\"b\":[1,2],\"a\":\"\xC3\xA9\",\"meta\":[]}";
const char* const k_notUtf8 = "{\"b\":[1,2],\"a\":\"\xC3\xA9\xFF\",\"meta\":[]}";

struct Pair {
    const char* name;
    Choice first;
    Choice second;
    const char* text;
};

class OptionPair : public testing::TestWithParam<Pair> {};

TEST_P(OptionPair, GivesWhatBothAskFor) {
    const bool replaces = GetParam().first == k_replace || GetParam().second == k_replace;
    Dom document;
    document.setRoot(parsed(replaces ? k_notUtf8 : k_valid));
    WriteOptions options;
    options.indent = " ";
    GetParam().first(options);
    GetParam().second(options);
    EXPECT_EQ(writtenEverywhere(document, options), GetParam().text);
}

// clang-format off
const Pair k_pairs[] = {
    {"CompactIndent", k_compact, k_indent,
     "{\"b\":[1,2],\"a\":\"\xC3\xA9\",\"meta\":[]}\n"},
    {"CompactShort", k_compact, k_short,
     "{\"b\":[1,2],\"a\":\"\xC3\xA9\",\"meta\":[]}\n"},
    {"CompactSorted", k_compact, k_sorted,
     "{\"a\":\"\xC3\xA9\",\"b\":[1,2],\"meta\":[]}\n"},
    {"CompactAscii", k_compact, k_ascii,
     "{\"b\":[1,2],\"a\":\"\\u00E9\",\"meta\":[]}\n"},
    {"CompactReplace", k_compact, k_replace,
     "{\"b\":[1,2],\"a\":\"\xC3\xA9\xEF\xBF\xBD\",\"meta\":[]}\n"},
    {"CompactNoEnd", k_compact, k_noEnd,
     "{\"b\":[1,2],\"a\":\"\xC3\xA9\",\"meta\":[]}"},
    {"CompactNoMeta", k_compact, k_noMeta,
     "{\"b\":[1,2],\"a\":\"\xC3\xA9\"}\n"},
    {"IndentShort", k_indent, k_short,
     "{\n\t\"b\": [1, 2],\n\t\"a\": \"\xC3\xA9\",\n\t\"meta\": []\n}\n"},
    {"IndentSorted", k_indent, k_sorted,
     "{\n\t\"a\": \"\xC3\xA9\",\n\t\"b\": [\n\t\t1,\n\t\t2\n\t],\n\t\"meta\": []\n}\n"},
    {"IndentAscii", k_indent, k_ascii,
     "{\n\t\"b\": [\n\t\t1,\n\t\t2\n\t],\n\t\"a\": \"\\u00E9\",\n\t\"meta\": []\n}\n"},
    {"IndentReplace", k_indent, k_replace,
     "{\n\t\"b\": [\n\t\t1,\n\t\t2\n\t],\n\t\"a\": \"\xC3\xA9\xEF\xBF\xBD\",\n\t\"meta\": []\n}\n"},
    {"IndentNoEnd", k_indent, k_noEnd,
     "{\n\t\"b\": [\n\t\t1,\n\t\t2\n\t],\n\t\"a\": \"\xC3\xA9\",\n\t\"meta\": []\n}"},
    {"IndentNoMeta", k_indent, k_noMeta,
     "{\n\t\"b\": [\n\t\t1,\n\t\t2\n\t],\n\t\"a\": \"\xC3\xA9\"\n}\n"},
    {"ShortSorted", k_short, k_sorted,
     "{\n \"a\": \"\xC3\xA9\",\n \"b\": [1, 2],\n \"meta\": []\n}\n"},
    {"ShortAscii", k_short, k_ascii,
     "{\n \"b\": [1, 2],\n \"a\": \"\\u00E9\",\n \"meta\": []\n}\n"},
    {"ShortReplace", k_short, k_replace,
     "{\n \"b\": [1, 2],\n \"a\": \"\xC3\xA9\xEF\xBF\xBD\",\n \"meta\": []\n}\n"},
    {"ShortNoEnd", k_short, k_noEnd,
     "{\n \"b\": [1, 2],\n \"a\": \"\xC3\xA9\",\n \"meta\": []\n}"},
    {"ShortNoMeta", k_short, k_noMeta,
     "{\n \"b\": [1, 2],\n \"a\": \"\xC3\xA9\"\n}\n"},
    {"SortedAscii", k_sorted, k_ascii,
     "{\n \"a\": \"\\u00E9\",\n \"b\": [\n  1,\n  2\n ],\n \"meta\": []\n}\n"},
    {"SortedReplace", k_sorted, k_replace,
     "{\n \"a\": \"\xC3\xA9\xEF\xBF\xBD\",\n \"b\": [\n  1,\n  2\n ],\n \"meta\": []\n}\n"},
    {"SortedNoEnd", k_sorted, k_noEnd,
     "{\n \"a\": \"\xC3\xA9\",\n \"b\": [\n  1,\n  2\n ],\n \"meta\": []\n}"},
    {"SortedNoMeta", k_sorted, k_noMeta,
     "{\n \"a\": \"\xC3\xA9\",\n \"b\": [\n  1,\n  2\n ]\n}\n"},
    {"AsciiReplace", k_ascii, k_replace,
     "{\n \"b\": [\n  1,\n  2\n ],\n \"a\": \"\\u00E9\\uFFFD\",\n \"meta\": []\n}\n"},
    {"AsciiNoEnd", k_ascii, k_noEnd,
     "{\n \"b\": [\n  1,\n  2\n ],\n \"a\": \"\\u00E9\",\n \"meta\": []\n}"},
    {"AsciiNoMeta", k_ascii, k_noMeta,
     "{\n \"b\": [\n  1,\n  2\n ],\n \"a\": \"\\u00E9\"\n}\n"},
    {"ReplaceNoEnd", k_replace, k_noEnd,
     "{\n \"b\": [\n  1,\n  2\n ],\n \"a\": \"\xC3\xA9\xEF\xBF\xBD\",\n \"meta\": []\n}"},
    {"ReplaceNoMeta", k_replace, k_noMeta,
     "{\n \"b\": [\n  1,\n  2\n ],\n \"a\": \"\xC3\xA9\xEF\xBF\xBD\"\n}\n"},
    {"NoEndNoMeta", k_noEnd, k_noMeta,
     "{\n \"b\": [\n  1,\n  2\n ],\n \"a\": \"\xC3\xA9\"\n}"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(WriteOptions, OptionPair, testing::ValuesIn(k_pairs), k_rowName);

TEST(WriteOptions, HaveNoSayInHowAnOnlyLineIsIndented) {
    WriteOptions options;
    options.compact = true;
    options.indent = "--";
    EXPECT_EQ(writtenEverywhere(*parsed("[1]"), options), "[1]\n");
}

TEST(WriteOptions, WorkAllTogether) {
    Dom document;
    document.setRoot(parsed(k_notUtf8));
    WriteOptions options;
    for (const Choice choose :
         {k_indent, k_short, k_sorted, k_ascii, k_replace, k_noEnd, k_noMeta}) {
        choose(options);
    }
    EXPECT_EQ(writtenEverywhere(document, options),
              "{\n\t\"a\": \"\\u00E9\\uFFFD\",\n\t\"b\": [1, 2]\n}");
}

}  // namespace
