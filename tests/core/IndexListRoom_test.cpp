#include <zo/IndexList.h>

#include <iterator>
#include <new>
#include <string>

#include <gtest/gtest.h>

#include "indexLists.h"
#include "support/rowName.h"

// The places of the first two values need room once, and from there on for twice as many.

namespace {

struct Step {
    const char* name;
    int size;
    const char* before;
    const char* appended;
    const char* inserted;
    int allocations;
};

class IndexListOfSize : public testing::TestWithParam<Step> {
protected:
    FailingList list = upTo<FailingList>(GetParam().size);

    /// Lets each allocation of `add` fail in turn, until that finishes.
    template <class Add>
    void failEachAllocation(const Add& add) {
        int failures = 0;
        for (bool done = false; !done;) {
            try {
                const AllocationLimit limit(failures);
                add();
                done = true;
            } catch (const std::bad_alloc&) {
                ++failures;
                EXPECT_EQ(dump(list), GetParam().before);
            }
        }
        EXPECT_EQ(failures, GetParam().allocations);
    }
};

TEST_P(IndexListOfSize, IsAsBeforeWhenAppendingRunsOutOfMemory) {
    failEachAllocation([this] { list.push_back(9); });
    EXPECT_EQ(dump(list), GetParam().appended);
}

TEST_P(IndexListOfSize, IsAsBeforeWhenInsertingRunsOutOfMemory) {
    failEachAllocation([this] { list.insert(list.begin(), 9); });
    EXPECT_EQ(dump(list), GetParam().inserted);
}

TEST_P(IndexListOfSize, GoesOnAfterAFailureAndGivesAllItsMemoryBack) {
    const int live = AllocationCount::s_live;
    {
        auto another = upTo<FailingList>(GetParam().size);
        EXPECT_THROW(
            {
                const AllocationLimit limit(GetParam().allocations - 1);
                another.push_back(9);
            },
            std::bad_alloc);
        another.push_back(9);
        EXPECT_EQ(dump(another), GetParam().appended);
        another.erase(std::prev(another.end()));
        EXPECT_EQ(dump(another), GetParam().before);
        for (int value = 0; value < 100; ++value) {
            another.push_back(value);
        }
        EXPECT_EQ(another[another.size() - 1], 99);
    }
    EXPECT_EQ(AllocationCount::s_live, live);
}

INSTANTIATE_TEST_SUITE_P(
    IndexList, IndexListOfSize,
    testing::Values(Step{"Empty", 0, "", "9", "9", 2}, Step{"One", 1, "1", "1 9", "9 1", 1},
                    Step{"TwoWhichFillTheRoom", 2, "1 2", "1 2 9", "9 1 2", 2},
                    Step{"Three", 3, "1 2 3", "1 2 3 9", "9 1 2 3", 1},
                    Step{"FourWhichFillTheRoom", 4, "1 2 3 4", "1 2 3 4 9", "9 1 2 3 4", 2}),
    k_rowName);

TEST(IndexListRoom, ThatWasReservedLetsPlacesBeAddedWithoutMore) {
    auto list = upTo<FailingList>(3);
    list.reserve(10);
    const int made = AllocationCount::s_made;
    for (int value = 4; value <= 10; ++value) {
        list.push_back(value);
    }
    EXPECT_EQ(AllocationCount::s_made - made, 7) << "the values alone";
    EXPECT_EQ(dump(list), "1 2 3 4 5 6 7 8 9 10");
}

TEST(IndexListRoom, ThatThereIsNoMemoryForLeavesTheListAsBefore) {
    auto list = upTo<FailingList>(3);
    {
        const AllocationLimit none(0);
        EXPECT_THROW(list.reserve(10), std::bad_alloc);
        list.reserve(4);
    }
    EXPECT_EQ(dump(list), "1 2 3");
}

TEST(IndexListRoom, OfTwoIsUsedAgain) {
    FailingList list;
    list.push_back(1);
    list.push_back(2);
    list.clear();
    const int made = AllocationCount::s_made;
    list.push_back(3);
    list.push_back(4);
    EXPECT_EQ(AllocationCount::s_made - made, 2) << "the values alone";
    EXPECT_EQ(dump(list), "3 4");
}

}  // namespace
