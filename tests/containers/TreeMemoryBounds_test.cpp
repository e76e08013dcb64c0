#include <zo/Tessera/Element.h>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/DomParser.h>
#include <zo/Tessera/Object.h>

#include "containers/treeTexts.h"
#include "support/NoMemory.h"
#include "support/rowName.h"

using namespace zo::Tessera;

// What is given back to the memory that a tree shares is not handed out again before all of it is
// given back. Yet a tree takes little more than its elements need, however long it is edited.

namespace {

using Owner = std::unique_ptr<Element>;

class BoundsOfMemory : public testing::TestWithParam<Entrance> {
protected:
    static Owner read(const std::string& text) { return GetParam().read(text); }

    /// The bytes that are live when `edit` was called ten times, and ten thousand times.
    template <class Edit>
    static std::pair<long, long> bytesOfRounds(const Edit& edit) {
        long afterTen = 0;
        for (std::size_t round = 0; round < 10'000; ++round) {
            edit(round);
            if (round == 9) {
                afterTen = LiveMemory::now().bytes;
            }
        }
        return {afterTen, LiveMemory::now().bytes};
    }

    /// Checks that hardly more bytes are live then.
    template <class Edit>
    static void expectNoGrowth(const Edit& edit) {
        const long before = LiveMemory::now().bytes;
        const auto [afterTen, afterAll] = bytesOfRounds(edit);
        EXPECT_LT(afterAll, afterTen + 4096);
        EXPECT_LT(afterAll, before + 100'000);
    }
};

TEST_P(BoundsOfMemory, HoldWhileEachMemberIsReplacedAgainAndAgain) {
    const Owner tree = read(membersText(20));
    Object& object = tree->getObjectValue();
    expectNoGrowth([&object](std::size_t round) {
        for (int i = 0; i < 20; ++i) {
            object.replace(std::to_string(i), value(static_cast<unsigned long>(round)));
        }
    });
    EXPECT_EQ(static_cast<int>(tree->at("19")), 9999);
}

TEST_P(BoundsOfMemory, HoldWhileItemsAreErasedAndAppendedAgainAndAgain) {
    const Owner tree = read(itemsText(100));
    Array& array = tree->getArrayValue();
    expectNoGrowth([&array](std::size_t) {
        array.erase(0);
        Element::createString("a text that is too long to be kept inside", &array);
    });
    EXPECT_EQ(tree->size(), 100U);
}

TEST_P(BoundsOfMemory, HoldWhileMembersAreErasedAndInsertedAgainAndAgain) {
    const Owner tree = read(membersText(100));
    Object& object = tree->getObjectValue();
    expectNoGrowth([&object](std::size_t round) {
        object.erase(std::to_string(round));
        Element::createArray(&object, std::to_string(round + 100));
    });
    EXPECT_EQ(tree->size(), 100U);
}

TEST_P(BoundsOfMemory, HoldWhileCopiesComeAndGo) {
    const Owner tree = read("[" + itemsText(100) + "]");
    const Owner pattern = read(itemsText(20));
    Array& array = tree->getArrayValue();
    expectNoGrowth([&](std::size_t) {
        if (array.size() > 5) {
            array.erase(1);
        }
        array.push_back(pattern->clone());
    });
    EXPECT_EQ(tree->size(), 6U);
}

TEST_P(BoundsOfMemory, HoldWhileAMemberIsSetToWhatIsReadAgainAndAgain) {
    const Owner tree = read(membersText(100));
    expectNoGrowth([&tree](std::size_t) { tree->set("5", read("[1,[2,3],\"x\"]")); });
    EXPECT_EQ(tree->at("5").size(), 3U);
}

TEST_P(BoundsOfMemory, HoldForEachSizeOfATree) {
    read(itemsText(5));
    for (std::size_t count = 0; count <= 300; ++count) {
        const std::string text = zerosText(count);
        const long start = LiveMemory::now().bytes;
        Owner byHand = array();
        for (std::size_t i = 0; i < count; ++i) {
            Element::createNumber(BasicNumber(), byHand.get());
        }
        const long bytesByHand = LiveMemory::now().bytes - start;
        byHand.reset();
        const Owner tree = read(text);
        EXPECT_LT(LiveMemory::now().bytes - start, 5 * bytesByHand / 2 + 4096) << count;
    }
}

TEST_P(BoundsOfMemory, HoldForAThousandSmallDocuments) {
    std::vector<Owner> documents(1000);
    read("[]");
    const long before = LiveMemory::now().bytes;
    for (Owner& document : documents) {
        document = read(R"({"a":1})");
    }
    EXPECT_LT(LiveMemory::now().bytes - before, 500'000) << "no slab, which takes 4096 bytes";
}

TEST_P(BoundsOfMemory, HoldForWhatASurvivorKeepsAliveOfALargeTree) {
    const std::string text = membersText(20'000);
    read(text);
    const long before = LiveMemory::now().bytes;
    for (const char* const key : {"0", "5", "10", "50", "100", "500", "1000", "10000", "19999"}) {
        Owner tree = read(text);
        EXPECT_GT(LiveMemory::now().bytes - before, 3'000'000);
        const Owner survivor = tree->getObjectValue().take(key);
        tree.reset();
        EXPECT_LE(LiveMemory::now().bytes - before, 65'536 + 256) << key;
        EXPECT_EQ(std::to_string(static_cast<int>(*survivor)), key);
    }
}

INSTANTIATE_TEST_SUITE_P(Entrances, BoundsOfMemory, testing::Values(k_parser, k_readDocument),
                         k_rowName);

}  // namespace
