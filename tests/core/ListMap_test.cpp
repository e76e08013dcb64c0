#include <zo/ListMap.h>

#include <cstddef>
#include <functional>
#include <iterator>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "FailingAllocator.h"

namespace {

using Map = zo::ListMap<std::string, int>;
using FailingMap =
    zo::ListMap<std::string, int, std::less<>, FailingAllocator<std::pair<const std::string, int>>>;

static_assert(!std::is_copy_constructible_v<Map> && !std::is_copy_assignable_v<Map>);
static_assert(std::is_nothrow_move_constructible_v<Map>);
static_assert(std::is_nothrow_move_assignable_v<Map>);
static_assert(noexcept(std::declval<Map&>().clear()));
static_assert(noexcept(std::declval<Map&>().swap(std::declval<Map&>())));
static_assert(std::is_same_v<Map::value_type, std::pair<const std::string, int>>);
static_assert(std::is_same_v<std::iterator_traits<Map::iterator>::iterator_category,
                             std::bidirectional_iterator_tag>);
static_assert(std::is_same_v<decltype(std::declval<const Map&>().begin()), Map::const_iterator>);
static_assert(std::is_same_v<decltype(std::declval<const Map&>().find("")), Map::const_iterator>);

/// The entries in order, for example "b=1 a=2". Adds "!" to an entry that its key does not find.
template <class AnyMap>
std::string entriesOf(const AnyMap& map) {
    std::string text;
    std::size_t count = 0;
    for (auto entry = map.begin(); entry != map.end(); ++entry, ++count) {
        text += (count == 0 ? "" : " ") + entry->first + "=" + std::to_string(entry->second);
        text += map.find(entry->first) == entry ? "" : "!";
    }
    return count == map.size() ? text : text + " but size() is " + std::to_string(map.size());
}

Map sample() {
    Map map;
    map.insert({"b", 1});
    map.insert({"a", 2});
    map.insert({"c", 3});
    return map;
}

TEST(ListMap, IsEmptyAtFirst) {
    const Map map;
    EXPECT_TRUE(map.empty());
    EXPECT_EQ(map.size(), 0U);
    EXPECT_EQ(map.begin(), map.end());
    EXPECT_EQ(map.find(""), map.end());
}

TEST(ListMap, KeepsTheOrderOfInsertion) {
    EXPECT_EQ(entriesOf(sample()), "b=1 a=2 c=3");
    EXPECT_FALSE(sample().empty());
}

TEST(ListMap, CanBeWalkedBackwards) {
    const Map map = sample();
    EXPECT_EQ(std::prev(map.end())->first, "c");
    EXPECT_EQ(std::prev(map.end(), 3)->first, "b");
}

TEST(ListMap, InsertReportsTheNewEntry) {
    Map map = sample();
    const auto [entry, isNew] = map.insert({"aa", 4});
    EXPECT_TRUE(isNew);
    EXPECT_EQ(entry, std::prev(map.end()));
    EXPECT_EQ(entry->first, "aa");
    EXPECT_EQ(entry->second, 4);
    EXPECT_EQ(entriesOf(map), "b=1 a=2 c=3 aa=4");
}

TEST(ListMap, KeepsAnExistingKeyInPlace) {
    Map map = sample();
    const auto [entry, isNew] = map.insert({"b", 9});
    EXPECT_FALSE(isNew);
    EXPECT_EQ(entry, map.begin());
    EXPECT_EQ(entriesOf(map), "b=1 a=2 c=3");
}

TEST(ListMap, InsertsAnEntryOfItsOwnWithoutChange) {
    Map map = sample();
    EXPECT_FALSE(map.insert(*map.begin()).second);
    EXPECT_EQ(entriesOf(map), "b=1 a=2 c=3");
}

TEST(ListMap, FindsByKeyOnly) {
    Map map = sample();
    EXPECT_EQ(map.find("a")->second, 2);
    EXPECT_EQ(map.find("A"), map.end());
    EXPECT_EQ(map.find(""), map.end());
    EXPECT_EQ(map.find(std::string("a\0", 2)), map.end());
}

TEST(ListMap, LetsAValueBeChangedThroughAnIterator) {
    Map map = sample();
    map.find("a")->second = 7;
    map.begin()->second = 8;
    EXPECT_EQ(entriesOf(map), "b=8 a=7 c=3");
}

TEST(ListMap, UsesItsOwnOrderToTellKeysApart) {
    struct ShorterFirst {
        bool operator()(const std::string& a, const std::string& b) const {
            return a.size() < b.size();
        }
    };
    zo::ListMap<std::string, int, ShorterFirst> map;
    EXPECT_TRUE(map.insert({"ab", 1}).second);
    EXPECT_FALSE(map.insert({"xy", 2}).second);
    EXPECT_EQ(map.find("??")->first, "ab");
}

TEST(ListMap, EraseAtAPlaceReturnsTheNext) {
    Map map = sample();
    EXPECT_EQ(map.erase(map.find("a"))->first, "c");
    EXPECT_EQ(entriesOf(map), "b=1 c=3");
    EXPECT_EQ(map.find("a"), map.end());
    EXPECT_EQ(map.erase(map.find("c")), map.end());
    EXPECT_EQ(map.erase(map.begin()), map.end());
    EXPECT_EQ(entriesOf(map), "");
}

TEST(ListMap, EraseByKeyCountsTheErased) {
    Map map = sample();
    EXPECT_EQ(map.erase("x"), 0U);
    EXPECT_EQ(entriesOf(map), "b=1 a=2 c=3");
    EXPECT_EQ(map.erase("b"), 1U);
    EXPECT_EQ(map.erase("b"), 0U);
    EXPECT_EQ(entriesOf(map), "a=2 c=3");
}

TEST(ListMap, EraseTakesTheVeryKeyOfTheEntry) {
    Map map;
    map.insert({"a key that is too long to be kept inside a string", 1});
    map.insert({"other", 2});
    EXPECT_EQ(map.erase(map.begin()->first), 1U);
    EXPECT_EQ(entriesOf(map), "other=2");
}

TEST(ListMap, PutsAnErasedKeyLastWhenItComesAgain) {
    Map map = sample();
    map.erase("b");
    map.insert({"b", 4});
    EXPECT_EQ(entriesOf(map), "a=2 c=3 b=4");
}

TEST(ListMap, ClearErasesAllAndLeavesItUsable) {
    Map map = sample();
    map.clear();
    EXPECT_TRUE(map.empty());
    EXPECT_EQ(map.find("a"), map.end());
    map.insert({"a", 5});
    EXPECT_EQ(entriesOf(map), "a=5");
}

TEST(ListMap, KeepsAddressesWhileOthersComeAndGo) {
    Map map = sample();
    const Map::value_type* const entry = &*map.find("a");
    for (int i = 0; i < 1000; ++i) {
        map.insert({"k" + std::to_string(i), i});
    }
    map.erase("b");
    EXPECT_EQ(&*map.find("a"), entry);
}

TEST(ListMap, KeepsAddressesAndIteratorsWhenMoved) {
    Map map = sample();
    const Map::iterator place = map.find("a");
    const Map::iterator end = map.end();
    Map moved = std::move(map);
    EXPECT_EQ(moved.find("a"), place);
    EXPECT_EQ(moved.end(), end);
    EXPECT_EQ(entriesOf(moved), "b=1 a=2 c=3");
}

TEST(ListMap, MoveAssignmentReplacesTheEntries) {
    Map map;
    map.insert({"old", 0});
    Map source = sample();
    const Map::iterator place = source.find("c");
    map = std::move(source);
    EXPECT_EQ(map.find("c"), place);
    EXPECT_EQ(entriesOf(map), "b=1 a=2 c=3");
}

TEST(ListMap, CanBeAssignedToAfterAMove) {
    Map map = sample();
    const Map moved = std::move(map);
    map = Map();
    map.insert({"new", 1});
    EXPECT_EQ(entriesOf(map), "new=1");
}

TEST(ListMap, SwapExchangesTheEntriesWithTheirAddresses) {
    Map map = sample();
    Map other;
    other.insert({"x", 9});
    const Map::iterator place = map.find("a");
    map.swap(other);
    EXPECT_EQ(entriesOf(map), "x=9");
    EXPECT_EQ(entriesOf(other), "b=1 a=2 c=3");
    EXPECT_EQ(other.find("a"), place);
}

TEST(ListMap, InsertOfAnExistingKeyAllocatesNothing) {
    FailingMap map;
    const FailingMap::value_type entry("b", 1);
    map.insert(entry);
    const AllocationLimit limit(0);
    EXPECT_FALSE(map.insert(entry).second);
}

TEST(ListMap, ReturnsAllItsMemory) {
    const int live = AllocationCount::s_live;
    {
        FailingMap map;
        map.insert({"a", 1});
        map.insert({"b", 2});
        map.erase("a");
        map.insert({"c", 3});
    }
    EXPECT_EQ(AllocationCount::s_live, live);
}

TEST(ListMap, DoesNotDeleteWhatItsValuesPointTo) {
    int value = 1;
    {
        zo::ListMap<std::string, int*> map;
        map.insert({"a", &value});
        map.insert({"b", &value});
        map.erase("a");
    }
    EXPECT_EQ(value, 1);
}

TEST(ListMap, IsTakenApartFromTheEntryInsertedFirstOn) {
    zo::ListMap<std::string, int> map;
    map.insert({"b", 1});
    map.insert({"a", 2});
    EXPECT_EQ(map.takeFirst(), 1);
    ASSERT_EQ(map.size(), 1U);
    EXPECT_EQ(map.begin()->first, "a");
    EXPECT_EQ(map.takeFirst(), 2);
    EXPECT_TRUE(map.empty());
    EXPECT_TRUE(map.insert({"b", 3}).second);
    EXPECT_EQ(map.find("b")->second, 3);
}

}  // namespace
