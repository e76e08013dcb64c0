#include <zo/IndexList.h>

#include <cstddef>
#include <iterator>
#include <list>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "indexLists.h"

namespace {

static_assert(!std::is_copy_constructible_v<List> && !std::is_copy_assignable_v<List>);
static_assert(std::is_nothrow_move_constructible_v<List>);
static_assert(std::is_nothrow_move_assignable_v<List>);
static_assert(noexcept(std::declval<List&>().clear()));
static_assert(noexcept(std::declval<List&>().swap(std::declval<List&>())));
static_assert(std::is_same_v<List::value_type, int>);
static_assert(std::is_same_v<std::iterator_traits<List::iterator>::iterator_category,
                             std::bidirectional_iterator_tag>);
static_assert(std::is_same_v<decltype(std::declval<const List&>().begin()), List::const_iterator>);
static_assert(std::is_same_v<decltype(std::declval<const List&>()[0]), const int&>);

TEST(IndexList, IsEmptyAtFirst) {
    const List list;
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.size(), 0U);
    EXPECT_EQ(list.begin(), list.end());
}

TEST(IndexList, AppendsInOrder) {
    EXPECT_EQ(dump(upTo(3)), "1 2 3");
    EXPECT_FALSE(upTo(3).empty());
}

TEST(IndexList, AppendsAValueOfItsOwn) {
    List list = upTo(2);
    for (int i = 0; i < 20; ++i) {
        list.push_back(list[0]);
    }
    EXPECT_EQ(list[21], 1);
}

TEST(IndexList, CanBeWalkedBackwards) {
    const List list = upTo(3);
    EXPECT_EQ(*std::prev(list.end()), 3);
    EXPECT_EQ(*std::prev(list.end(), 3), 1);
}

TEST(IndexList, LetsAValueBeChangedByIndexAndByIterator) {
    List list = upTo(3);
    list[1] = 7;
    *list.begin() = 8;
    EXPECT_EQ(dump(list), "8 7 3");
}

TEST(IndexList, EraseOfTheFirstMovesTheOthersUp) {
    List list = upTo(3);
    EXPECT_EQ(*list.erase(list.begin()), 2);
    EXPECT_EQ(dump(list), "2 3");
}

TEST(IndexList, EraseInTheMiddleReturnsTheNext) {
    List list = upTo(4);
    EXPECT_EQ(*list.erase(std::next(list.begin())), 3);
    EXPECT_EQ(dump(list), "1 3 4");
}

TEST(IndexList, CountsOnAfterAnErase) {
    List list = upTo(3);
    list.erase(list.begin());
    list.push_back(4);
    EXPECT_EQ(dump(list), "2 3 4");
}

TEST(IndexList, EraseOfTheLastReturnsTheEnd) {
    List list = upTo(3);
    EXPECT_EQ(list.erase(std::prev(list.end())), list.end());
    EXPECT_EQ(dump(list), "1 2");
}

TEST(IndexList, EraseOfTheOnlyValueLeavesItEmptyAndUsable) {
    List list = upTo(1);
    EXPECT_EQ(list.erase(list.begin()), list.end());
    EXPECT_TRUE(list.empty());
    list.push_back(5);
    EXPECT_EQ(dump(list), "5");
}

TEST(IndexList, ClearErasesAllAndLeavesItUsable) {
    List list = upTo(3);
    list.clear();
    EXPECT_TRUE(list.empty());
    list.push_back(5);
    EXPECT_EQ(dump(list), "5");
}

TEST(IndexList, KeepsAddressesWhileOthersComeAndGo) {
    List list = upTo(2);
    const int* const value = &list[1];
    for (int i = 0; i < 1000; ++i) {
        list.push_back(i);
    }
    EXPECT_EQ(&list[1], value);
    list.erase(list.begin());
    EXPECT_EQ(&list[0], value);
}

TEST(IndexList, KeepsAddressesAndIteratorsWhenMoved) {
    List list = upTo(3);
    const int* const value = &list[1];
    const List::iterator end = list.end();
    const List moved = std::move(list);
    EXPECT_EQ(&moved[1], value);
    EXPECT_EQ(moved.end(), end);
    EXPECT_EQ(dump(moved), "1 2 3");
}

TEST(IndexList, MoveAssignmentReplacesTheValues) {
    List list = upTo(5);
    List source = upTo(3);
    const int* const value = &source[2];
    list = std::move(source);
    EXPECT_EQ(&list[2], value);
    EXPECT_EQ(dump(list), "1 2 3");
}

TEST(IndexList, CanBeAssignedToAfterAMove) {
    List list = upTo(3);
    const List moved = std::move(list);
    list = upTo(1);
    EXPECT_EQ(dump(list), "1");
}

TEST(IndexList, SwapExchangesTheValuesWithTheirAddresses) {
    List list = upTo(3);
    List other = upTo(1);
    const int* const value = &list[2];
    list.swap(other);
    EXPECT_EQ(dump(list), "1");
    EXPECT_EQ(dump(other), "1 2 3");
    EXPECT_EQ(&other[2], value);
}

TEST(IndexList, EraseAllocatesNothing) {
    auto list = upTo<FailingList>(5);
    const AllocationLimit limit(0);
    list.erase(std::next(list.begin(), 2));
    EXPECT_EQ(dump(list), "1 2 4 5");
}

TEST(IndexList, ClearKeepsTheRoomForThePlaces) {
    auto list = upTo<FailingList>(5);
    list.clear();
    const int made = AllocationCount::s_made;
    for (int value = 1; value <= 5; ++value) {
        list.push_back(value);
    }
    EXPECT_EQ(AllocationCount::s_made - made, 5) << "the values alone";
}

TEST(IndexList, ReturnsAllItsMemory) {
    const int live = AllocationCount::s_live;
    {
        auto list = upTo<FailingList>(5);
        list.erase(list.begin());
        list.push_back(6);
    }
    EXPECT_EQ(AllocationCount::s_live, live);
}

#ifndef NDEBUG
TEST(IndexListDeathTest, AssertsThatAnIndexIsThere) {
    const List list = upTo(3);
    EXPECT_DEATH(list[3], "index < m_contents->m_slots.size");
}
#endif

TEST(IndexList, DoesNotDeleteWhatItsValuesPointTo) {
    int value = 1;
    {
        zo::IndexList<int*> list;
        list.push_back(&value);
        list.push_back(&value);
        list.erase(list.begin());
    }
    EXPECT_EQ(value, 1);
}

TEST(IndexList, HandsValuesOverWithTheirNodesAndCountsAnewWhenTold) {
    List list;
    for (const int value : {1, 2, 3, 4}) {
        list.push_back(value);
    }
    const int* const kept = &list[3];
    std::list<int> taken{0};

    list.extract(std::next(list.begin()), taken);
    list.extract(std::next(list.begin()), taken);
    EXPECT_THAT(list, testing::ElementsAre(1, 4));
    list.recount();

    EXPECT_THAT(taken, testing::ElementsAre(0, 2, 3));
    EXPECT_THAT(list, testing::ElementsAre(1, 4));
    EXPECT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0], 1);
    EXPECT_EQ(&list[1], kept);
    list.push_back(5);
    EXPECT_EQ(list[2], 5);
}

TEST(IndexList, HandsTheLastValueOverAndIsEmpty) {
    List list;
    list.push_back(1);
    std::list<int> taken;
    list.extract(list.begin(), taken);
    list.recount();
    EXPECT_TRUE(list.empty());
    EXPECT_THAT(taken, testing::ElementsAre(1));
}

TEST(IndexList, IsTakenApartFromTheFirstValueOn) {
    List list;
    list.push_back(3);
    list.push_back(1);
    list.push_back(2);
    EXPECT_EQ(list.takeFirst(), 3);
    EXPECT_EQ(std::vector<int>(list.begin(), list.end()), (std::vector<int>{1, 2}));
    EXPECT_EQ(list.takeFirst(), 1);
    EXPECT_EQ(list.takeFirst(), 2);
    EXPECT_TRUE(list.empty());
    list.push_back(4);
    EXPECT_EQ(list[0], 4);
}

}  // namespace
