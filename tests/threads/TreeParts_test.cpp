// The elements of a tree that was read share memory, which goes back in whatever threads they end.
// Run under ThreadSanitizer, which sees what no result shows.

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <zo/Tessera.h>

#include "support/parsed.h"
#include "threads/activities.h"

using namespace zo::Tessera;

namespace {

using Owner = std::unique_ptr<Element>;

constexpr std::size_t k_items = 600;

std::string text() {
    std::string items;
    for (std::size_t i = 0; i < k_items; ++i) {
        items += (i == 0 ? "" : ",") + std::string(R"({"a":[1.5,"b"]})");
    }
    return "[" + items + "]";
}

/// Takes every third of the items, from the one at `first` on.
std::vector<Owner> takenFrom(Element& tree, std::size_t first) {
    std::vector<Owner> parts;
    for (std::size_t index = first; index < tree.size(); index += 2) {
        parts.push_back(tree.getArrayValue().take(index));
    }
    return parts;
}

/// Calls the three at once, the first in this thread.
template <class First, class Second, class Third>
void atOnce(const First& first, const Second& second, const Third& third) {
    std::atomic<int> missing(3);
    const auto meet = [&missing] {
        --missing;
        while (missing > 0) {
            std::this_thread::yield();
        }
    };
    std::thread secondThread([&] {
        meet();
        second();
    });
    std::thread thirdThread([&] {
        meet();
        third();
    });
    meet();
    first();
    secondThread.join();
    thirdThread.join();
}

}  // namespace

TEST(PartsOfATree, AreDestroyedInThreeThreadsAtOnce) {
    for (std::size_t round = 0; round < k_rounds; ++round) {
        Owner tree = parsed(text());
        std::vector<Owner> second = takenFrom(*tree, 0);
        std::vector<Owner> third = takenFrom(*tree, 0);
        ASSERT_EQ(second.size() + third.size() + tree->size(), k_items);
        atOnce([&tree] { tree.reset(); }, [&second] { second.clear(); },
               [&third] { third.clear(); });
        EXPECT_EQ(tree, nullptr);
        EXPECT_TRUE(second.empty() && third.empty());
    }
}

TEST(PartsOfATree, AreDestroyedWhileTheParserEnds) {
    for (std::size_t round = 0; round < k_rounds; ++round) {
        auto parser = std::make_unique<DomParser>();
        Dom document;
        parser->parse(document, text());
        Owner tree = document.takeRoot();
        std::vector<Owner> parts = takenFrom(*tree, 0);
        atOnce([&parser] { parser.reset(); }, [&parts] { parts.clear(); },
               [&tree] { tree.reset(); });
        EXPECT_EQ(parser, nullptr);
        EXPECT_TRUE(parts.empty() && tree == nullptr);
    }
}

TEST(PartsOfATree, OfACopyAreDestroyedInThreeThreadsAtOnce) {
    const Owner source = parsed(text());
    for (std::size_t round = 0; round < k_rounds; ++round) {
        Owner tree(source->clone());
        std::vector<Owner> second = takenFrom(*tree, 0);
        std::vector<Owner> third = takenFrom(*tree, 1);
        atOnce([&tree] { tree.reset(); }, [&second] { second.clear(); },
               [&third] { third.clear(); });
        EXPECT_EQ(tree, nullptr);
        EXPECT_TRUE(second.empty() && third.empty());
    }
    EXPECT_EQ(source->size(), k_items);
}

TEST(PartsOfATree, AreEditedInThreeThreadsAtOnce) {
    for (std::size_t round = 0; round < k_rounds; ++round) {
        Owner tree = parsed(text());
        std::vector<Owner> parts = takenFrom(*tree, 0);
        const auto edit = [](Element& element) {
            element.remove("a[0]");
            element.set("a[*]", value(2));
            element.set("c", Owner(element.at("a").clone()));
        };
        atOnce([&] { edit(tree->at(0)); }, [&] { edit(*parts[0]); }, [&] { edit(*parts[1]); });
        EXPECT_EQ(compact(tree->at(0)), R"({"a":["b",2],"c":["b",2]})");
        EXPECT_EQ(compact(*parts[0]), R"({"a":["b",2],"c":["b",2]})");
        EXPECT_EQ(compact(*parts[1]), R"({"a":["b",2],"c":["b",2]})");
    }
}
