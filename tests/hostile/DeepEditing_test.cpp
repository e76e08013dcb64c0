#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

#include <zo/Tessera.h>

#include "hostile/DeepDocument.h"
#include "hostile/eachNesting.h"
#include "hostile/onSmallStack.h"
#include "support/parsed.h"
#include "support/thrown.h"

using namespace zo::Tessera;

// Editing at depths that a stack of one frame for each level could not bear.

namespace {

using Owner = std::unique_ptr<Element>;

Owner emptyContainer(bool isArray) {
    return isArray ? array() : object();
}

class DeepEditing : public ForEachNesting {};

// Both kinds are there, and a million levels take their time.
INSTANTIATE_TEST_SUITE_P(Hostile, DeepEditing, testing::Values(Nesting::inTurn), nestingName);

TEST_P(DeepEditing, ReattachesACopy) {
    onSmallStack([this] {
        const Owner root(parsed(document.text())->clone());
        Element& deepest = deepestOf(*root);
        ASSERT_EQ(deepest.parent(), nullptr);
        if (root->type() == etArray) {
            root->getArrayValue().reattach();
        } else {
            root->getObjectValue().reattach();
        }
        EXPECT_TRUE(deepest.path(nullptr) == document.path());
        EXPECT_EQ(&deepest.root(), root.get());
    });
}

TEST_P(DeepEditing, VisitsEveryLevel) {
    onSmallStack([this] {
        const Owner root = parsed(document.text());
        size_t entered = 0;
        size_t left = 0;
        std::string deepestPath;
        const auto enter = [&](Element& element, const Path& path) {
            ++entered;
            if (element.type() == etBoolean) {
                deepestPath = path;
                element.setBooleanValue(false);
            }
            return evGoOn;
        };
        const auto leave = [&](Element&, const Path&) {
            ++left;
            return evGoOn;
        };
        EXPECT_TRUE(visit(*root, enter, leave));
        EXPECT_EQ(entered, k_depth + 1);
        EXPECT_EQ(left, k_depth + 1);
        EXPECT_TRUE(deepestPath == document.path());
        EXPECT_TRUE(textOf(*root) == document.text("false"));
    });
}

TEST_P(DeepEditing, PreparesTheDeepestNumber) {
    onSmallStack([this] {
        const Owner root = parsed(document.text("99999999999999999999"));
        root->prepareForSharing();
        const BasicNumber& number = deepestOf(*root);
        EXPECT_EQ(number.type(), BasicNumber::ebULongLong);
    });
}

TEST_P(DeepEditing, SetsWhatIsThere) {
    onSmallStack([this] {
        const Owner root = parsed(document.text());
        const Path path = document.path();
        const Element& result = root->set(path, value(false));
        EXPECT_EQ(&result, &deepestOf(*root));
        EXPECT_TRUE(textOf(*root) == document.text("false"));
        EXPECT_TRUE(result.path(nullptr) == path);
    });
}

TEST_P(DeepEditing, CreatesAllThatIsMissing) {
    onSmallStack([this] {
        const Owner root = emptyContainer(document.isArray(0));
        const Path path = document.path();
        const Element& result = root->set(path, value(true));
        EXPECT_TRUE(textOf(*root) == document.text());
        EXPECT_EQ(&result, &deepestOf(*root));
        EXPECT_TRUE(result.path(nullptr) == path);
    });
}

TEST_P(DeepEditing, CreatesNothingWhereTheLastStepIsRefused) {
    onSmallStack([this] {
        const Owner root = emptyContainer(document.isArray(0));
        Owner owner = value(true);
        try {
            root->set(document.path() + "[1]", std::move(owner));
            ADD_FAILURE();
        } catch (const PathNotFound& exception) {
            EXPECT_EQ(exception.key(), "[1]");
            EXPECT_EQ(*exception.elementPath(), "");
        }
        EXPECT_EQ(root->size(), 0U);
        EXPECT_EQ(owner->parent(), nullptr);
    });
}

TEST_P(DeepEditing, RemovesTheDeepestAndTheHighest) {
    onSmallStack([this] {
        const Owner root = parsed(document.text());
        EXPECT_TRUE(root->remove(document.path()));
        EXPECT_FALSE(root->remove(document.path()));
        EXPECT_TRUE(textOf(*root) == document.opening() + document.closing());
        EXPECT_TRUE(root->remove(document.isArray(0) ? "[0]" : "k"));
        EXPECT_EQ(root->size(), 0U);
    });
}

TEST(DeepTreeEditing, RefusesTheTopOfTheTreeAtItsBottom) {
    onSmallStack([] {
        Owner root = parsed(k_mixed.opening() + k_mixed.closing());
        Object& innermost = deepestOf(*root).getObjectValue();
        EXPECT_EQ(thrown<Exception>([&] { innermost.replace("k", std::move(root)); }),
                  "Element cannot be put into itself");
        EXPECT_TRUE(textOf(*root) == k_mixed.opening() + k_mixed.closing());
    });
}

TEST(DeepTreeEditing, BuildsDownwardsStepByStep) {
    onSmallStack([] {
        const Owner root = array();
        Element* innermost = root.get();
        for (size_t i = 1; i < k_depth; ++i) {
            innermost = &innermost->getArrayValue().insert(0, array());
        }
        innermost->getArrayValue().insert(0, value(true));
        EXPECT_TRUE(textOf(*root) == DeepDocument(Nesting::arrays).text());
    });
}

TEST(DeepTreeEditing, BuildsUpwardsStepByStep) {
    onSmallStack([] {
        Owner root = value(true);
        for (size_t i = 0; i < k_depth; ++i) {
            Owner around = object();
            around->getObjectValue().replace("k", std::move(root));
            root = std::move(around);
        }
        EXPECT_TRUE(textOf(*root) == DeepDocument(Nesting::objects).text());
    });
}

TEST(DeepTreeEditing, TakesADeepTreeOutAndPutsItBack) {
    onSmallStack([] {
        const Owner root = parsed(k_mixed.text());
        Owner taken = root->getArrayValue().take(0);
        EXPECT_EQ(root->size(), 0U);
        root->getArrayValue().insert(0, std::move(taken));
        EXPECT_TRUE(textOf(*root) == k_mixed.text());
        root->getArrayValue().erase(0);
        EXPECT_EQ(root->size(), 0U);
    });
}

TEST(WideEditing, KeepsTheOrderOfManyItems) {
    onSmallStack([] {
        const Owner root = array();
        Array& list = root->getArrayValue();
        for (size_t i = 0; i < k_depth; ++i) {
            list.insert(list.size(), value(static_cast<unsigned long>(i)));
        }
        list.erase(0);
        list.insert(0, value("first"));
        list.take(k_depth / 2);
        EXPECT_EQ(list.size(), k_depth - 1);
        EXPECT_EQ(list.at(k_depth - 2).index(), k_depth - 2);
        EXPECT_EQ(static_cast<unsigned long>(list.at(k_depth - 2)), k_depth - 1);
        size_t seen = 0;
        visit(*root, [&](Element&, const Path&) {
            ++seen;
            return evGoOn;
        });
        EXPECT_EQ(seen, k_depth);
    });
}

TEST(WideEditing, ReattachesManyMembers) {
    onSmallStack([] {
        const Owner source = object();
        for (size_t i = 0; i < k_depth; ++i) {
            Element::createNull(source.get(), std::to_string(i));
        }
        Object copy(source->getObjectValue());
        copy.reattach();
        size_t right = 0;
        for (const auto& [key, member] : copy) {
            right += member->parent() == &copy && member->key() == key ? 1 : 0;
        }
        EXPECT_EQ(right, k_depth);
    });
}

}  // namespace
