#include <zo/Tessera/Element.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/DomParser.h>
#include <zo/Tessera/Exception.h>

#include "containers/treeTexts.h"
#include "support/FailingNew.h"
#include "support/dump.h"
#include "support/rowName.h"

using namespace zo::Tessera;

// Trees that are read or copied stand in memory that their elements share. However they end, all of
// it goes back.

namespace {

using Owner = std::unique_ptr<Element>;

struct Document {
    const char* name;
    std::string (*text)();
};

class MemoryOfATree : public testing::TestWithParam<std::tuple<Entrance, Document>> {
protected:
    MemoryOfATree() {
        read();  // makes what is made once for all
        before = LiveMemory::now();
    }

    Owner read() const { return std::get<Entrance>(GetParam()).read(text); }

    const std::string text = std::get<Document>(GetParam()).text();
    LiveMemory before{};
};

TEST_P(MemoryOfATree, ComesBackWithTheTree) {
    Owner tree = read();
    EXPECT_GT(LiveMemory::now().blocks, before.blocks);
    tree.reset();
    EXPECT_EQ(LiveMemory::now(), before);
}

TEST_P(MemoryOfATree, OfACopyAndItsSourceComesBackInEitherOrder) {
    for (const bool sourceFirst : {true, false}) {
        Owner source = read();
        Owner copy(source->clone());
        Owner another(copy->clone());
        (sourceFirst ? source : copy).reset();
        EXPECT_EQ(another->compare(sourceFirst ? *copy : *source), 0);
        (sourceFirst ? copy : source).reset();
        another.reset();
        EXPECT_EQ(LiveMemory::now(), before);
    }
}

TEST_P(MemoryOfATree, OfACopyComesBackBeforeTheSource) {
    const Owner source = read();
    const LiveMemory read = LiveMemory::now();
    Owner copy(source->clone());
    EXPECT_GT(LiveMemory::now().blocks, read.blocks);
    copy.reset();
    EXPECT_EQ(LiveMemory::now(), read);
}

std::string label(const testing::TestParamInfo<MemoryOfATree::ParamType>& row) {
    return std::get<Entrance>(row.param).name + std::string(std::get<Document>(row.param).name);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, MemoryOfATree,
    testing::Combine(testing::Values(k_parser, k_readDocument),
                     testing::Values(Document{"One", [] { return itemsText(0); }},
                                     Document{"Ten", [] { return itemsText(9); }},
                                     Document{"Thousand", [] { return itemsText(700); }},
                                     Document{"FiftyThousand", [] { return itemsText(35'000); }},
                                     Document{"Members", [] { return membersText(1000); }},
                                     Document{"Deep", [] { return nestedText(5000); }})),
    label);

/// The order in which the parts of a tree are destroyed, and the rest of it.
struct Order {
    const char* name;
    bool restFirst;
    void (*arrange)(std::vector<Owner>& parts);
};

class MemoryOfParts : public testing::TestWithParam<std::tuple<Entrance, Order>> {};

TEST_P(MemoryOfParts, ComesBackInAnyOrder) {
    const auto& [entrance, order] = GetParam();
    const std::string text = itemsText(1000);
    entrance.read(text);
    const LiveMemory before = LiveMemory::now();
    {
        Owner tree = entrance.read(text);
        std::vector<Owner> parts;
        for (std::size_t index = 0; index < tree->size(); index += 2) {
            parts.push_back(tree->getArrayValue().take(index));
        }
        order.arrange(parts);
        if (order.restFirst) {
            tree.reset();
        }
        for (Owner& part : parts) {
            part.reset();
        }
    }
    EXPECT_EQ(LiveMemory::now(), before);
}

const Order k_inOrder = {"InOrder", false, [](std::vector<Owner>&) {}};
const Order k_backwards = {"Backwards", false, [](std::vector<Owner>& parts) {
                               std::reverse(parts.begin(), parts.end());
                           }};
const Order k_backwardsBehindTheRest = {"BackwardsBehindTheRest", true, k_backwards.arrange};
const Order k_anyhowBehindTheRest = {"AnyhowBehindTheRest", true, [](std::vector<Owner>& parts) {
                                         std::shuffle(parts.begin(), parts.end(), std::mt19937(1));
                                     }};

INSTANTIATE_TEST_SUITE_P(Orders, MemoryOfParts,
                         testing::Combine(testing::Values(k_parser, k_readDocument),
                                          testing::Values(k_inOrder, k_backwards,
                                                          k_backwardsBehindTheRest,
                                                          k_anyhowBehindTheRest)),
                         [](const auto& row) {
                             return std::get<Entrance>(row.param).name +
                                    std::string(std::get<Order>(row.param).name);
                         });

TEST(MemoryOfARefusedText, ComesBackWhereverItEnds) {
    const std::string text = itemsText(200);
    for (const Entrance& entrance : {k_parser, k_readDocument}) {
        EXPECT_THROW(entrance.read("]"), ParseException);
        const LiveMemory before = LiveMemory::now();
        for (std::size_t length = 1; length < text.size(); length += 37) {
            EXPECT_THROW(entrance.read(text.substr(0, length) + '\x01'), ParseException);
            ASSERT_EQ(LiveMemory::now(), before) << entrance.name << ", " << length;
        }
    }
}

TEST(MemoryOfARefusedText, StaysAPartOfADocumentUntilThatGoes) {
    EXPECT_THROW(parsed("]"), ParseException);
    const LiveMemory before = LiveMemory::now();
    {
        Dom document;
        EXPECT_THROW(DomParser().parse(document, itemsText(200) + ']'), ParseException);
        EXPECT_EQ(document.root()->size(), 200U);
        EXPECT_EQ(document.root()->at(199).at("a").type(), etArray);
    }
    EXPECT_EQ(LiveMemory::now(), before);
}

/// How many blocks the tree takes.
long blocksOf(const Owner& tree) {
    const LiveMemory before = LiveMemory::now();
    const Owner copy(tree->clone());
    return LiveMemory::now().blocks - before.blocks;
}

class WantOfMemory : public testing::TestWithParam<Entrance> {
protected:
    // Enough for several slabs: most of the elements have no block of their own.
    static constexpr std::size_t k_items = 150;
    const std::string text = membersText(k_items);
};

TEST_P(WantOfMemory, AnywhereInAReadLosesNothing) {
    ASSERT_LT(blocksOf(GetParam().read(text)), 150);
    const LiveMemory before = LiveMemory::now();
    const long failures = failEachAllocation([] { return Owner(); },
                                             [this](Owner& tree) { tree = GetParam().read(text); },
                                             [&](const Owner& tree) {
                                                 EXPECT_EQ(tree, nullptr);
                                                 ASSERT_EQ(LiveMemory::now(), before);
                                             });
    EXPECT_GT(failures, 15);
    EXPECT_EQ(LiveMemory::now(), before);
}

TEST_P(WantOfMemory, AnywhereInACopyLosesNothing) {
    const Owner source = GetParam().read(text);
    const std::string whole = dump(*source);
    const LiveMemory before = LiveMemory::now();
    const long failures = failEachAllocation([] { return Owner(); },
                                             [&](Owner& copy) { copy.reset(source->clone()); },
                                             [&](const Owner& copy) {
                                                 EXPECT_EQ(copy, nullptr);
                                                 ASSERT_EQ(LiveMemory::now(), before);
                                             });
    EXPECT_GT(failures, 15);
    EXPECT_EQ(LiveMemory::now(), before);
    EXPECT_EQ(dump(*source), whole);
}

INSTANTIATE_TEST_SUITE_P(Entrances, WantOfMemory, testing::Values(k_parser, k_readDocument),
                         k_rowName);

}  // namespace
