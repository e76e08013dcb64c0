#include <zo/Tessera/Array.h>
#include <zo/Tessera/Object.h>

#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "support/rowName.h"

using namespace zo::Tessera;

// Trees far deeper than a stack of one frame for each level could bear.

namespace {

const size_t k_depth = 100000;

Element* addChild(Element* parent, EType type) {
    return parent->type() == etArray ? Element::create(type, parent)
                                     : Element::create(type, parent, "k");
}

struct DeepTree {
    std::unique_ptr<Element> root;
    Element* deepest;
};

/// `k_depth` containers, each the only child of the one before, and `bottom` in the last.
DeepTree deepTree(EType even, EType odd, bool bottom) {
    DeepTree tree{std::unique_ptr<Element>(Element::create(even)), nullptr};
    tree.deepest = tree.root.get();
    for (size_t i = 1; i < k_depth; ++i) {
        tree.deepest = addChild(tree.deepest, i % 2 == 0 ? even : odd);
    }
    tree.deepest = addChild(tree.deepest, etBoolean);
    tree.deepest->setBooleanValue(bottom);
    return tree;
}

const Element* onlyChild(const Element& element) {
    if (element.type() == etArray) {
        return *element.getArrayValue().begin();
    }
    return element.type() == etObject ? element.getObjectValue().begin()->second : nullptr;
}

/// How many elements stand in the chain below `root`, and "true" or "false" for the last.
std::string chain(const Element& root) {
    size_t count = 0;
    const Element* last = &root;
    while (const Element* const child = onlyChild(*last)) {
        last = child;
        ++count;
    }
    return std::to_string(count) + (last->operator bool() ? " true" : " false");
}

struct Kinds {
    const char* name;
    EType even;
    EType odd;
};

class DeepTrees : public testing::TestWithParam<Kinds> {
protected:
    static DeepTree make(bool bottom = true) {
        return deepTree(GetParam().even, GetParam().odd, bottom);
    }
};

TEST_P(DeepTrees, AreBuiltAndDestroyed) {
    DeepTree tree = make();
    EXPECT_EQ(chain(*tree.root), "100000 true");
    EXPECT_EQ(&tree.deepest->root(), tree.root.get());
    tree.root.reset();
}

TEST_P(DeepTrees, AreCloned) {
    const DeepTree tree = make();
    const std::unique_ptr<const Element> clone(tree.root->clone());
    EXPECT_EQ(chain(*clone), "100000 true");
}

TEST_P(DeepTrees, AreAssigned) {
    const DeepTree source = make();
    const DeepTree target = make(false);
    target.root->realAssign(*source.root);
    EXPECT_EQ(chain(*target.root), "100000 true");
}

TEST_P(DeepTrees, AreAssignedFromNearTheirOwnBottom) {
    const DeepTree tree = make();
    const Element* source = tree.deepest->parent();
    while (source->type() != tree.root->type()) {
        source = source->parent();
    }
    const std::string expected = chain(*source);
    tree.root->realAssign(*source);
    EXPECT_EQ(chain(*tree.root), expected);
}

TEST_P(DeepTrees, AreCompared) {
    const DeepTree left = make(true);
    const DeepTree right = make(false);
    const std::unique_ptr<const Element> clone(left.root->clone());
    EXPECT_EQ(left.root->compare(*clone), 0);
    EXPECT_EQ(left.root->compare(*right.root), 1);
    EXPECT_EQ(right.root->compare(*left.root), -1);
}

TEST_P(DeepTrees, AreReplacedInsideAnObject) {
    Object object;
    object.insert("deep", make().root.release());
    Element::createNull(&object, "deep");
    EXPECT_EQ(object.at("deep").type(), etNull);
}

TEST_P(DeepTrees, AreClearedOutOfAnObject) {
    Object object;
    object.insert("deep", make().root.release());
    object.clear();
    EXPECT_EQ(object.size(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Containers, DeepTrees,
                         testing::Values(Kinds{"FromAnArray", etArray, etObject},
                                         Kinds{"FromAnObject", etObject, etArray}),
                         k_rowName);

TEST(DeepObjects, AreWritten) {
    const DeepTree tree = deepTree(etObject, etObject, true);
    std::string expected;
    for (size_t i = 0; i < k_depth; ++i) {
        expected += "{ k : ";
    }
    expected += "true";
    for (size_t i = 0; i < k_depth; ++i) {
        expected += ", }";
    }
    std::ostringstream out;
    tree.root->writeTo(out);
    EXPECT_TRUE(out.str() == expected) << "written: " << out.str().size() << " characters";
    std::wostringstream wideOut;
    tree.root->writeTo(wideOut);
    EXPECT_TRUE(wideOut.str() == std::wstring(expected.begin(), expected.end()))
        << "written: " << wideOut.str().size() << " characters";
}

TEST(DeepTree, WritesThePathOfItsBottom) {
    const DeepTree tree = deepTree(etObject, etArray, true);
    std::string expected = "k[0]";
    for (size_t i = 1; i < k_depth / 2; ++i) {
        expected += ".k[0]";
    }
    EXPECT_TRUE(tree.deepest->path(nullptr) == expected);
}

TEST(DeepTree, KeepsAWideTreeInOrderToo) {
    Array array;
    for (size_t i = 0; i < k_depth; ++i) {
        Element::create(etArray, &array);
    }
    const std::unique_ptr<const Array> clone(array.clone());
    EXPECT_EQ(clone->size(), 100000U);
    EXPECT_EQ(array.compare(*clone), 0);
    EXPECT_EQ(array.at(k_depth - 1).index(), 99999U);
}

}  // namespace
