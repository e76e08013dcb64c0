#include <zo/Tessera/Element.h>

#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Generator.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>

#include "containers/treeTexts.h"
#include "support/NoMemory.h"
#include "support/dump.h"
#include "support/inPlace.h"
#include "support/rowName.h"

using namespace zo::Tessera;

// An element is its owner's, wherever its memory comes from.

namespace {

using Owner = std::unique_ptr<Element>;

/// A large tree, of which most stands in memory of its own. Its member "part" is the last.
Owner largeTree() {
    std::string text = membersText(100);
    text.back() = ',';
    return parsed(text + R"("part":{"list":[1,"two",{"three":3}]}})");
}

Owner takeMember(Element& object, const char* key) {
    return object.getObjectValue().take(key);
}

std::string textOf(const Element& element) {
    Generator generator(nullptr);
    generator.setIndent("");
    return generator.encode(element);
}

const char* const k_part = R"({"list":[1,"two",{"three":3}]})";

struct Taking {
    const char* name;
    Owner (*take)();
};

class TakenElement : public testing::TestWithParam<Taking> {
protected:
    TakenElement() {
        GetParam().take();  // makes what is made once for all
        before = LiveMemory::now();
        taken = GetParam().take();
    }

    LiveMemory before{};
    Owner taken;
};

TEST_P(TakenElement, LivesOnWithoutItsDocument) {
    EXPECT_EQ(textOf(*taken), k_part);
    EXPECT_EQ(taken->parent(), nullptr);
}

TEST_P(TakenElement, IsEditedWithoutItsDocument) {
    taken->set("list[2].three", value("drei"));
    taken->remove("list[0]");
    taken->set("list[*]", value(4));
    taken->getObjectValue().replace("list", takeMember(*taken, "list"));
    taken->set("more", array());
    EXPECT_EQ(dump(*taken), inPlace(R"({"list":["two",{"three":"drei"},4],"more":[]})"));
}

TEST_P(TakenElement, GivesAllItsMemoryBack) {
    taken->set("list[2].three", value("drei"));
    taken->remove("list[0]");
    taken.reset();
    EXPECT_EQ(LiveMemory::now(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Elements, TakenElement,
    testing::Values(
        Taking{"FromAnObject", [] { return takeMember(*largeTree(), "part"); }},
        Taking{
            "FromAnArray",
            [] {
                return parsed("[" + itemsText(100) + "," + k_part + "]")->getArrayValue().take(1);
            }},
        Taking{"FromACopy", [] { return takeMember(*Owner(largeTree()->clone()), "part"); }},
        Taking{"FromADocument",
               [] {
                   Dom document;
                   document.setRoot(takeMember(*largeTree(), "part"));
                   return document.takeRoot();
               }},
        Taking{"AsACopy", [] { return Owner(largeTree()->at("part").clone()); }}),
    k_rowName);

/// Elements by hand in a tree that was read, of a tree in a tree by hand, and of one in another.
Owner mixedTree() {
    Owner tree = largeTree();
    Owner other = largeTree();
    Owner byHand = object();
    byHand->set("read", takeMember(*other, "part"));
    byHand->set("made", value("by hand"));
    tree->set("part.list[0]", std::move(byHand));
    tree->getObjectValue().replace("7", takeMember(*other, "8"));
    tree->get("part.list").getArrayValue().insert(1, array());
    tree->get("part.list[1]").getArrayValue().push_back(takeMember(*other, "9").release());
    tree->set("copy", tree->at("part"));
    return tree;
}

TEST(MixedTree, IsWhole) {
    const Owner tree = mixedTree();
    EXPECT_EQ(dump(*takeMember(*tree, "part")),
              inPlace(R"({"list":[{"read":{"list":[1,"two",{"three":3}]},"made":"by hand"},[9],)"
                      R"("two",{"three":3}]})"));
    EXPECT_EQ(static_cast<int>(tree->at("7")), 8);
    EXPECT_EQ(tree->size(), 101U);
    EXPECT_EQ(tree->get("copy.list[1][0]").compare(*value(9)), 0);
}

TEST(MixedTree, GivesAllItsMemoryBackTogetherOrInParts) {
    mixedTree();
    const LiveMemory before = LiveMemory::now();
    mixedTree();
    EXPECT_EQ(LiveMemory::now(), before);
    {
        Owner tree = mixedTree();
        const Owner read = takeMember(tree->get("part.list[0]"), "read");
        const Owner moved = takeMember(*tree, "7");
        const Owner copied = tree->get("copy.list").getArrayValue().take(0);
        const Owner part = takeMember(*tree, "part");
        tree.reset();
        EXPECT_EQ(dump(*read), inPlace(k_part));
    }
    EXPECT_EQ(LiveMemory::now(), before);
}

/// An element of the application's, with a tree that dies with it.
class Keeper : public Null {
public:
    explicit Keeper(Owner kept) : m_kept(std::move(kept)) {}

private:
    Owner m_kept;
};

TEST(TreeMemory, ComesBackWhenTreesDieWhileOthersDo) {
    const auto keepersInTrees = [] {
        Owner inner = largeTree();
        inner->set("part.list[0]", std::make_unique<Keeper>(takeMember(*largeTree(), "part")));
        Owner outer = largeTree();
        Array& list = outer->get("part.list").getArrayValue();
        list.insert(1, std::make_unique<Keeper>(takeMember(*inner, "part")));
        list.insert(0, std::make_unique<Keeper>(std::move(inner)));
        return outer;
    };
    keepersInTrees();
    const LiveMemory before = LiveMemory::now();
    keepersInTrees();
    EXPECT_EQ(LiveMemory::now(), before);
}

#if defined(__SANITIZE_ADDRESS__)
#define ZO_TESSERA_TESTS_WATCHED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZO_TESSERA_TESTS_WATCHED
#endif
#endif

#ifdef ZO_TESSERA_TESTS_WATCHED
TEST(DeletedElementDeathTest, IsSeenInUseWhileItsDocumentLives) {
    for (const Entrance& entrance : {k_parser, k_readDocument}) {
        const Owner tree = entrance.read(membersText(100));
        const Element& element = tree->at("80");
        tree->getObjectValue().erase("80");
        EXPECT_DEATH(element.index(), "use-after-poison");
        EXPECT_EQ(tree->size(), 99U);
    }
}

TEST(DeletedElementDeathTest, IsSeenDeletedTwiceWhileItsDocumentLives) {
    const Owner tree = parsed(membersText(100));
    Element* const element = tree->getObjectValue().take("80").release();
    delete element;
    EXPECT_DEATH(delete element, "use-after-poison");
}

TEST(DeletedElementDeathTest, IsSeenInUseWhileACopyLives) {
    const Owner copy(parsed(membersText(100))->clone());
    const Element& element = copy->at("80");
    copy->remove("80");
    EXPECT_DEATH(element.index(), "use-after-poison");
}
#endif

}  // namespace
