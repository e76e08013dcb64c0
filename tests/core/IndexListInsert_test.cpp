#include <zo/IndexList.h>

#include <cstddef>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "indexLists.h"

namespace {

TEST(IndexListInsert, PutsAValueFirst) {
    List list = upTo(3);
    const List::iterator added = list.insert(list.begin(), 7);
    EXPECT_EQ(added, list.begin());
    EXPECT_EQ(dump(list), "7 1 2 3");
}

TEST(IndexListInsert, PutsAValueInTheMiddle) {
    List list = upTo(3);
    const List::iterator added = list.insert(std::next(list.begin(), 2), 7);
    EXPECT_EQ(added, std::next(list.begin(), 2));
    EXPECT_EQ(dump(list), "1 2 7 3");
}

TEST(IndexListInsert, PutsAValueLast) {
    List list = upTo(3);
    const List::iterator added = list.insert(list.end(), 7);
    EXPECT_EQ(added, std::prev(list.end()));
    EXPECT_EQ(dump(list), "1 2 3 7");
}

TEST(IndexListInsert, PutsAValueIntoAnEmptyList) {
    List list;
    EXPECT_EQ(*list.insert(list.begin(), 7), 7);
    EXPECT_EQ(dump(list), "7");
}

TEST(IndexListInsert, TakesAValueOfItsOwn) {
    List list = upTo(2);
    for (int i = 0; i < 20; ++i) {
        list.insert(list.begin(), list[list.size() - 1]);
    }
    EXPECT_EQ(list[0], 2);
    EXPECT_EQ(list.size(), 22U);
}

TEST(IndexListInsert, KeepsAddressesAndIterators) {
    List list = upTo(2);
    const int* const value = &list[1];
    const List::iterator second = std::next(list.begin());
    const List::iterator end = list.end();
    for (int i = 0; i < 1000; ++i) {
        list.insert(second, i);
    }
    EXPECT_EQ(&list[1001], value);
    EXPECT_EQ(&*second, value);
    EXPECT_EQ(list.end(), end);
}

TEST(IndexListInsert, GoesTogetherWithErasing) {
    List list = upTo(4);
    list.insert(list.erase(std::next(list.begin())), 7);
    list.push_back(8);
    EXPECT_EQ(dump(list), "1 7 3 4 8");
}

TEST(IndexListInsert, MakesRoomForMoreThanOnePlaceAtATime) {
    auto list = upTo<FailingList>(1);
    const int made = AllocationCount::s_made;
    for (int value = 0; value < 1000; ++value) {
        list.insert(list.begin(), value);
    }
    EXPECT_LT(AllocationCount::s_made - made, 1020) << "the values and a few more";
}

}  // namespace
