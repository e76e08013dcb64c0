#include <zo/ListMapKey.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <zo/ListMap.h>

namespace {

using TextKey = zo::ListMapKey<std::string, std::less<std::string>>;

// All texts of up to three of the lowest, a middle and the highest character, each by itself and
// behind beginnings that reach just before, up to and beyond what is compared as one number.
std::vector<std::string> manyTexts() {
    std::vector<std::string> tails{""};
    for (size_t i = 0; tails[i].size() < 3; ++i) {
        for (const char c : {'\0', 'a', '\xFF'}) {
            tails.push_back(tails[i] + c);
        }
    }
    std::vector<std::string> texts;
    for (const char* const head :
         {"", "abc", "abcdef", "abcdefg", "abcdefgh", "abcdefghi", "abcdefghijklmno"}) {
        for (const std::string& tail : tails) {
            texts.push_back(head + tail);
        }
    }
    return texts;
}

TEST(ListMapKey, OrdersTextsAsTheTextsThemselves) {
    for (const std::string& left : manyTexts()) {
        for (const std::string& right : manyTexts()) {
            ASSERT_EQ(TextKey(left) < TextKey(right), left < right)
                << testing::PrintToString(left) << " and " << testing::PrintToString(right);
        }
    }
}

TEST(ListMapKey, ComparesTextsThatAreSoughtAsTheTextsThemselves) {
    for (const std::string& left : manyTexts()) {
        // Nothing behind the text may count.
        const std::string longer = left + "\xFF";
        const TextKey::Sought sought(std::string_view(longer).substr(0, left.size()));
        for (const std::string& right : manyTexts()) {
            ASSERT_EQ(sought < TextKey(right), left < right)
                << testing::PrintToString(left) << " and " << testing::PrintToString(right);
            ASSERT_EQ(TextKey(right) < sought, right < left)
                << testing::PrintToString(right) << " and " << testing::PrintToString(left);
            ASSERT_EQ(sought == right, left == right)
                << testing::PrintToString(left) << " and " << testing::PrintToString(right);
        }
    }
}

TEST(ListMapKey, OrdersOtherKeysByTheirComparison) {
    using Descending = zo::ListMapKey<int, std::greater<int>>;
    const int one = 1;
    const int two = 2;
    EXPECT_TRUE(Descending(two) < Descending(one));
    EXPECT_FALSE(Descending(one) < Descending(two));
    EXPECT_FALSE(Descending(one) < Descending(one));
}

TEST(ListMapKey, FindsEachOfManySimilarTextsInAMap) {
    const std::vector<std::string> texts = manyTexts();
    zo::ListMap<std::string, size_t> map;
    for (size_t i = 0; i < texts.size(); ++i) {
        map.insert({texts[i], i});
    }
    for (const std::string& text : texts) {
        const auto found = map.find(text);
        ASSERT_NE(found, map.end()) << testing::PrintToString(text);
        EXPECT_EQ(found->first, text);
        EXPECT_EQ(map.find(text + "b"), map.end()) << testing::PrintToString(text);
    }
}

}  // namespace
