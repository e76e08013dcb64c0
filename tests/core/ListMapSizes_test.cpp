#include <zo/ListMap.h>

#include <cstddef>
#include <functional>
#include <iterator>
#include <memory>
#include <new>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "FailingAllocator.h"
#include "support/rowName.h"

// A map of few entries has no tree, and gets one at the forty-ninth.

namespace {

using LetterMap = zo::ListMap<std::string, int, std::less<std::string>,
                              FailingAllocator<std::pair<const std::string, int>>>;

/// The keys in order. Adds "!" to one that its key does not find, in the const map or the other.
std::string keysOf(LetterMap& map) {
    std::string keys;
    for (LetterMap::iterator entry = map.begin(); entry != map.end(); ++entry) {
        const bool isFound =
            map.find(entry->first) == entry &&
            std::as_const(map).find(entry->first) == LetterMap::const_iterator(entry);
        keys += entry->first + (isFound ? "" : "!");
    }
    return keys.size() == map.size() ? keys : keys + " but size() is " + std::to_string(map.size());
}

/// The map in which each letter has its place as its value.
LetterMap mapOf(const std::string& letters) {
    LetterMap map;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        map.insert({letters.substr(i, 1), static_cast<int>(i)});
    }
    return map;
}

struct Size {
    const char* name;
    const char* letters;
    int allocationsToInsert;
};

constexpr Size k_few = {"Few", "qwe", 1};
constexpr Size k_oneLess = {"OneLess", "qwertyuiopasdfghjklzxcvbnmWERTYUIOPASDFGHJKLZXC", 1};
constexpr Size k_lastWithoutTree = {"LastWithoutTree",
                                    "qwertyuiopasdfghjklzxcvbnmWERTYUIOPASDFGHJKLZXCV", 50};
constexpr Size k_firstWithTree = {"FirstWithTree",
                                  "qwertyuiopasdfghjklzxcvbnmWERTYUIOPASDFGHJKLZXCVB", 2};
constexpr Size k_many = {"Many", "qwertyuiopasdfghjklzxcvbnmWERTYUIOPASDFGHJKLZXCVBNM", 2};

class ListMapOfSize : public testing::TestWithParam<Size> {
protected:
    const std::string letters = GetParam().letters;
    LetterMap map = mapOf(letters);
};

TEST_P(ListMapOfSize, KeepsTheOrderAndFindsEachKeyAlone) {
    EXPECT_EQ(keysOf(map), letters);
    for (const char* const missing : {"", "Q", "qq", "?", "\xFF"}) {
        EXPECT_EQ(map.find(missing), map.end());
        EXPECT_EQ(std::as_const(map).find(missing), std::as_const(map).end());
    }
}

TEST_P(ListMapOfSize, PutsANewKeyLast) {
    const auto [entry, isNew] = map.insert({"?", 99});
    EXPECT_TRUE(isNew);
    EXPECT_EQ(entry, std::prev(map.end()));
    EXPECT_EQ(entry->second, 99);
    EXPECT_EQ(keysOf(map), letters + "?");
}

TEST_P(ListMapOfSize, AppendsAKeyThatIsKnownToBeNew) {
    const LetterMap::iterator entry = map.append("?", 99);
    EXPECT_EQ(entry, std::prev(map.end()));
    EXPECT_EQ(entry->second, 99);
    EXPECT_EQ(keysOf(map), letters + "?");
    EXPECT_FALSE(map.insert({"?", 0}).second);
}

TEST_P(ListMapOfSize, IsAsBeforeWhenAppendRunsOutOfMemory) {
    const int live = AllocationCount::s_live;
    for (int allocations = 0; allocations < GetParam().allocationsToInsert; ++allocations) {
        const AllocationLimit limit(allocations);
        EXPECT_THROW(map.append("?", 99), std::bad_alloc);
        EXPECT_EQ(map.find("?"), map.end());
        EXPECT_EQ(AllocationCount::s_live, live);
    }
    EXPECT_EQ(keysOf(map), letters);
}

TEST_P(ListMapOfSize, KeepsEachExistingKeyAndItsValueAndAllocatesNothing) {
    const AllocationLimit none(0);
    int place = 0;
    for (LetterMap::iterator entry = map.begin(); entry != map.end(); ++entry, ++place) {
        EXPECT_EQ(map.insert(entry->first, 99), std::pair(entry, false));
        EXPECT_EQ(entry->second, place);
    }
    EXPECT_EQ(keysOf(map), letters);
}

TEST_P(ListMapOfSize, IsAsBeforeWhenInsertRunsOutOfMemory) {
    const int live = AllocationCount::s_live;
    int failures = 0;
    for (bool done = false; !done;) {
        try {
            const AllocationLimit limit(failures);
            EXPECT_TRUE(map.insert({"?", 99}).second);
            done = true;
        } catch (const std::bad_alloc&) {
            ++failures;
            EXPECT_EQ(keysOf(map), letters);
            EXPECT_EQ(map.find("?"), map.end());
            EXPECT_EQ(AllocationCount::s_live, live);
        }
    }
    EXPECT_EQ(failures, GetParam().allocationsToInsert);
    EXPECT_EQ(keysOf(map), letters + "?");
}

TEST_P(ListMapOfSize, GoesOnAfterAFailedInsert) {
    EXPECT_THROW(
        {
            const AllocationLimit limit(GetParam().allocationsToInsert - 1);
            map.insert({"?", 99});
        },
        std::bad_alloc);
    EXPECT_FALSE(map.insert({"q", 99}).second);
    EXPECT_EQ(map.erase("w"), 1U);
    EXPECT_TRUE(map.insert({"w", 1}).second);
    EXPECT_TRUE(map.insert({"!", 1}).second);
    EXPECT_EQ(map.find("?"), map.end());
    EXPECT_EQ(map.find("!"), std::prev(map.end()));
    EXPECT_EQ(map.find("w"), std::prev(map.end(), 2));
    EXPECT_EQ(map.size(), letters.size() + 1);
}

TEST_P(ListMapOfSize, ErasesEachKeyAlone) {
    for (std::size_t place = 0; place < letters.size(); ++place) {
        LetterMap others = mapOf(letters);
        const std::string key = letters.substr(place, 1);
        EXPECT_EQ(others.erase(key), 1U);
        EXPECT_EQ(others.erase(key), 0U);
        EXPECT_EQ(others.find(key), others.end());
        EXPECT_EQ(keysOf(others), std::string(letters).erase(place, 1));
    }
}

TEST_P(ListMapOfSize, EraseAtAPlaceReturnsTheNext) {
    EXPECT_EQ(map.erase(map.find("w"))->first, "e");
    EXPECT_EQ(map.erase(std::prev(map.end())), map.end());
    EXPECT_EQ(keysOf(map), "q" + letters.substr(2, letters.size() - 3));
}

TEST_P(ListMapOfSize, IsErasedToNothingAndGrowsAgain) {
    for (std::string left = letters; !left.empty();) {
        left.erase(0, 1);
        map.erase(map.begin());
        ASSERT_EQ(keysOf(map), left);
    }
    const std::string anew(letters.rbegin(), letters.rend());
    for (std::size_t count = 1; count <= anew.size(); ++count) {
        EXPECT_TRUE(map.insert({anew.substr(count - 1, 1), 0}).second);
        ASSERT_EQ(keysOf(map), anew.substr(0, count));
    }
}

TEST_P(ListMapOfSize, IsClearedAndGrowsAgain) {
    map.clear();
    EXPECT_EQ(keysOf(map), "");
    EXPECT_EQ(map.find("q"), map.end());
    for (const char letter : letters) {
        EXPECT_TRUE(map.insert({std::string(1, letter), 0}).second);
    }
    EXPECT_EQ(keysOf(map), letters);
}

TEST_P(ListMapOfSize, StaysAMapWhileItIsTakenApart) {
    EXPECT_EQ(map.takeFirst(), 0);
    EXPECT_EQ(map.takeFirst(), 1);
    const std::string left = letters.substr(2);
    EXPECT_EQ(keysOf(map), left);
    EXPECT_EQ(map.find("q"), map.end());
    EXPECT_FALSE(map.insert({"e", 99}).second);
    EXPECT_TRUE(map.insert({"q", 99}).second);
    EXPECT_EQ(keysOf(map), left + "q");
    EXPECT_EQ(map.erase("e"), 1U);
    const std::string more = "0123456789+-*/()[]{}<>.,:;!?#&%$~^_|=@`'\"\\ QqwW\t\n\r\v\f";
    std::string added;
    for (const char sign : more) {
        if (map.insert({std::string(1, sign), 0}).second) {
            added += sign;
        }
    }
    EXPECT_GT(map.size(), 48U);
    EXPECT_EQ(keysOf(map), left.substr(1) + "q" + added);
}

TEST_P(ListMapOfSize, KeepsAddressesAndIteratorsWhileItGrowsAndShrinks) {
    const LetterMap::iterator place = map.find("w");
    const LetterMap::value_type* const entry = &*place;
    const LetterMap::iterator end = map.end();
    for (int i = 0; i < 100; ++i) {
        map.insert({std::to_string(i), i});
    }
    for (int i = 0; i < 100; ++i) {
        map.erase(std::to_string(i));
    }
    EXPECT_EQ(map.find("w"), place);
    EXPECT_EQ(&*place, entry);
    EXPECT_EQ(map.end(), end);
    EXPECT_EQ(keysOf(map), letters);
}

TEST_P(ListMapOfSize, GivesAllItsMemoryBack) {
    const int live = AllocationCount::s_live;
    {
        LetterMap another = mapOf(letters);
        another.erase("w");
        another.takeFirst();
        another.insert({"?", 0});
    }
    EXPECT_EQ(AllocationCount::s_live, live);
}

TEST_P(ListMapOfSize, IsMovedAndSwappedWithOneOfAnySize) {
    for (const Size& size : {k_few, k_lastWithoutTree, k_firstWithTree, k_many}) {
        LetterMap first = mapOf(letters);
        LetterMap second = mapOf(size.letters);
        const LetterMap::iterator place = first.find("w");
        first.swap(second);
        EXPECT_EQ(keysOf(first), size.letters);
        EXPECT_EQ(keysOf(second), letters);
        EXPECT_EQ(second.find("w"), place);

        first = std::move(second);
        EXPECT_EQ(keysOf(first), letters);
        EXPECT_EQ(first.find("w"), place);
        EXPECT_TRUE(first.insert({"?", 0}).second);
        EXPECT_EQ(keysOf(first), letters + "?");
    }
}

INSTANTIATE_TEST_SUITE_P(ListMap, ListMapOfSize,
                         testing::Values(k_few, k_oneLess, k_lastWithoutTree, k_firstWithTree,
                                         k_many),
                         k_rowName);

}  // namespace
