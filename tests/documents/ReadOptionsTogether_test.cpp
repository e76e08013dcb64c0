#include <zo/Tessera/readDocument.h>

#include <algorithm>
#include <bitset>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "documents/reading.h"

using namespace zo::Tessera;

// All options together: whatever others are set, each refuses what it refuses alone, and the first
// in the text is told.

namespace {

constexpr size_t k_optionCount = 6;
using Refusals = std::bitset<k_optionCount>;

/// An item of an array on a line of its own, that one of the options refuses.
struct Item {
    size_t option;
    const char* text;
    int column;
    const char* pathBelow;
    const char* reason;
};

const std::vector<Item> k_items = {
    {0, "[[[0]]]", 3, "[0][0]", "nested deeper than 3 levels"},
    {1, R"({"a": 1, "a": 2})", 10, ".a", "the object has this key already"},
    {2, " /* c */ 1", 2, "",
     "lexical error: probable comment found in input text, comments are not enabled."},
    {3, "\"a\xFF\"", 3, "", "the text is not UTF-8"},
    {4, " \v 1", 2, "", "a vertical tab or a form feed is no blank"},
};
constexpr size_t k_byteOrderMark = 5;

ReadOptions optionsOf(const Refusals& refuse) {
    ReadOptions options;
    options.greatestDepth = refuse[0] ? 3 : ReadOptions::k_anyDepth;
    options.refuseDuplicateKeys = refuse[1];
    options.refuseComments = refuse[2];
    options.checkUtf8 = refuse[3];
    options.refuseOddBlanks = refuse[4];
    options.skipByteOrderMark = !refuse[k_byteOrderMark];
    return options;
}

/// What is to be told of the `items`, each on a line, by the first option that refuses one.
std::string refusalOf(const std::vector<Item>& items, const Refusals& refuse) {
    if (refuse[k_byteOrderMark]) {
        return R"(Parse error at 1,1 in element "": lexical error: invalid char in json text.)";
    }
    const auto first = std::find_if(items.begin(), items.end(),
                                    [&](const Item& item) { return refuse[item.option]; });
    const auto index = first - items.begin();
    return "Parse error at " + std::to_string(index + 2) + ',' + std::to_string(first->column) +
           " in element \"[" + std::to_string(index) + ']' + first->pathBelow +
           "\": " + first->reason;
}

std::string textOf(const std::vector<Item>& items) {
    std::string text = "\xEF\xBB\xBF[\n";
    for (const Item& item : items) {
        text += item.text;
        text += ",\n";
    }
    return text + "0]";
}

TEST(ReadOptions, RefuseEachItsOwnWhateverTheOthers) {
    std::vector<Item> items = k_items;
    do {
        const std::string text = textOf(items);
        for (unsigned long bits = 1; bits < 1UL << k_optionCount; ++bits) {
            const Refusals refuse(bits);
            EXPECT_EQ(fromMemory(text, optionsOf(refuse)), refusalOf(items, refuse)) << refuse;
        }
    } while (std::next_permutation(items.begin(), items.end(), [](const Item& a, const Item& b) {
        return a.option < b.option;
    }));
}

TEST(ReadOptions, RefuseNothingTogetherWhenAllAreOff) {
    EXPECT_EQ(fromBoth(textOf(k_items), optionsOf(Refusals())),
              R"(etArray key="" index=- parent=none
  etArray key="[0]" index=0 parent=right
    etArray key="[0]" index=0 parent=right
      etArray key="[0]" index=0 parent=right
        etNumber 0 key="[0]" index=0 parent=right
  etObject key="[1]" index=1 parent=right
    etNumber 2 key="a" index=- parent=right
  etNumber 1 key="[2]" index=2 parent=right
  etString "a)"
              "\xFF"
              R"(" key="[3]" index=3 parent=right
  etNumber 1 key="[4]" index=4 parent=right
  etNumber 0 key="[5]" index=5 parent=right
)");
}

TEST(ReadOptions, AcceptTogetherWhatNoneOfThemRefuses) {
    const std::string text = "[[[\"\xC3\xA9\"]], {\"a\": 1, \"b\": {\"a\": 2}}, \"/**/\"]";
    EXPECT_EQ(fromBoth(text, optionsOf(Refusals().set())), fromBoth(text));
}

}  // namespace
