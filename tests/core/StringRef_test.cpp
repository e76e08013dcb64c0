#include <zo/StringRef.h>

#include <string>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

using zo::StringRef;

static_assert(std::is_trivially_copyable_v<StringRef<char>>);
static_assert(std::is_convertible_v<std::string, StringRef<char>>);
static_assert(!std::is_convertible_v<const char*, StringRef<char>>);

TEST(StringRef, RefersToPartOfAText) {
    const char* const text = "abcdef";
    const StringRef<char> part(text + 1, 3);
    EXPECT_EQ(part.data(), text + 1);
    EXPECT_EQ(part.size(), 3U);
    EXPECT_EQ(std::string(part.begin(), part.end()), "bcd");
}

TEST(StringRef, RefersToAWholeStringWithItsNullCharacters) {
    const std::string text("a\0b", 3);
    const StringRef<char> whole = text;
    EXPECT_EQ(whole.data(), text.data());
    EXPECT_EQ(whole.size(), 3U);
    EXPECT_EQ(std::string(whole.begin(), whole.end()), text);
}

TEST(StringRef, RefersToWideText) {
    const std::wstring text = L"wide";
    const StringRef<wchar_t> whole(text);
    EXPECT_EQ(std::wstring(whole.begin(), whole.end()), L"wide");
}

TEST(StringRef, MayBeEmptyAndNull) {
    const StringRef<char> none(nullptr, 0);
    EXPECT_EQ(none.size(), 0U);
    EXPECT_EQ(none.begin(), none.end());
}

}  // namespace
