#include <zo/Tessera/Element.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/TBasicElement.h>

#include "support/NumberOf.h"

using namespace zo::Tessera;

// Paths far deeper than a stack of one frame for each step could bear.

namespace {

using Owner = std::unique_ptr<Element>;

const size_t k_depth = 50000;

/// {"k": [{"k": [... `bottom` ...]}]}: `k_depth` steps from the root to the bottom.
struct Deep {
    explicit Deep(int bottom) : root(object()), deepest(root.get()) {
        for (size_t i = 1; i < k_depth / 2; ++i) {
            deepest = Element::createObject(Element::createArray(deepest, "k"));
        }
        deepest = Element::createNumber(numberOf(bottom), Element::createArray(deepest, "k"));
    }

    Owner root;
    Element* deepest;
};

/// The path of its bottom.
std::string deepPath() {
    std::string path = "k[0]";
    for (size_t i = 1; i < k_depth / 2; ++i) {
        path += ".k[0]";
    }
    return path;
}

const Path k_path = deepPath();

/// Two of them, and a null between.
Owner deepList() {
    Owner list = array();
    list->getArrayValue().push_back(Deep(1).root.release());
    Element::createNull(list.get());
    list->getArrayValue().push_back(Deep(2).root.release());
    return list;
}

TEST(DeepPaths, AreWrittenAndLookedUp) {
    const Deep tree(1);
    EXPECT_TRUE(tree.deepest->path(nullptr) == k_path);
    EXPECT_TRUE(tree.deepest->path(tree.root.get()) == k_path);
    EXPECT_EQ(&tree.root->get(k_path), tree.deepest);
    EXPECT_TRUE(tree.root->pathExists(k_path));
    EXPECT_TRUE(tree.root->pathExists(k_path, etNumber));
    EXPECT_FALSE(tree.root->pathExists(k_path, etArray));
    EXPECT_FALSE(tree.root->pathExists(k_path + ".k"));
}

TEST(DeepPaths, AreReportedWhenTheirEndIsMissing) {
    const Deep tree(1);
    try {
        tree.root->get(k_path + ".x");
        ADD_FAILURE();
    } catch (const PathNotFound& exception) {
        EXPECT_EQ(exception.key(), "x");
        EXPECT_TRUE(exception.path() == k_path + ".x");
        EXPECT_TRUE(*exception.elementPath() == k_path);
    }
}

TEST(DeepPaths, AreTurnedIntoSchemaPathsAndBack) {
    const std::string path = Path::toSchemaPath(k_path);
    EXPECT_EQ(path.substr(0, 42), "meta.schema.properties.k.items.properties.");
    EXPECT_EQ(path.size(), 11U + k_depth / 2 * (13 + 6));
    std::string back = "k[*]";
    for (size_t i = 1; i < k_depth / 2; ++i) {
        back += ".k[*]";
    }
    EXPECT_TRUE(Path::fromSchemaPath(path) == back);
    EXPECT_THROW(object()->getDefault(k_path), PathNotFound);
}

TEST(DeepPaths, LeadToTheArrayThatIsSearched) {
    const Deep tree(1);
    const Path arrayPath = k_path.substr(0, k_path.size() - 3);
    EXPECT_EQ(tree.root->findElement(*value(1), "", arrayPath), tree.deepest);
    tree.root->removeElement(*value(1), "", arrayPath);
    EXPECT_TRUE(tree.root->pathExists(arrayPath, etArray));
    EXPECT_FALSE(tree.root->pathExists(k_path));
}

TEST(DeepPaths, LeadToTheValueThatIsSearchedFor) {
    const Owner list = deepList();
    EXPECT_EQ(list->findElement(*value(2), k_path, ""), &list->at(2));
    EXPECT_EQ(list->findElement(*value(3), k_path, ""), nullptr);
    list->removeElement(*value(1), k_path, "");
    EXPECT_EQ(list->size(), 2U);
    EXPECT_TRUE(list->at(1).pathExists(k_path));
}

TEST(DeepPaths, AreCreatedByAnUpdate) {
    std::string keys = "k";
    for (size_t i = 1; i < k_depth; ++i) {
        keys += ".k";
    }
    const Owner root = object();
    Element& bottom = root->tryUpdate(keys, *value("text"));
    EXPECT_EQ(bottom.getStringValue().value(), "text");
    EXPECT_EQ(&root->get(keys), &bottom);
    EXPECT_TRUE(bottom.path(nullptr) == keys);
    EXPECT_EQ(&root->tryUpdate(keys, *value("other")), &bottom);
    EXPECT_EQ(bottom.getStringValue().value(), "other");
}

TEST(DeepItems, AreFoundAndRemoved) {
    const Owner list = deepList();
    const Deep pattern(2);
    EXPECT_EQ(list->findElement(*pattern.root, "", ""), &list->at(2));
    list->removeElement(*pattern.root, "", "");
    EXPECT_EQ(list->size(), 2U);
    EXPECT_EQ(list->findElement(*pattern.root, "", ""), nullptr);
    list->removeElement(list->at(0), "", "");  // the item itself
    EXPECT_EQ(list->size(), 1U);
    EXPECT_EQ(list->at(0).type(), etNull);
}

TEST(DeepValues, UpdateWhatIsThereAndWhatIsNot) {
    const Owner root = object();
    const Deep one(1);
    const Deep two(2);
    Element& updated = root->tryUpdate("a.b", *one.root);
    EXPECT_EQ(updated.get(k_path).getNumberValue().value().toString(), "1");
    EXPECT_EQ(&root->tryUpdate("a.b", *two.root), &updated);
    EXPECT_EQ(root->get("a.b." + k_path).getNumberValue().value().toString(), "2");
}

TEST(DeepValues, AreInsertedAndReplaced) {
    const Owner root = object();
    const Element& inserted = root->insertElement("a.b", *Deep(1).root);
    EXPECT_TRUE(inserted.pathExists(k_path));
    EXPECT_EQ(
        root->insertElement("a.b", Deep(2).root).get(k_path).getNumberValue().value().toString(),
        "2");
    EXPECT_EQ(root->size(), 1U);
}

}  // namespace
