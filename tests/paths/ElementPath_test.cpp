#include <zo/Tessera/Path.h>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <sstream>
#include <string>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Object.h>

#include "support/HostileLocale.h"

using namespace zo::Tessera;

namespace {

using WritePath = std::ostream& (*)(std::ostream&, const Element&, const Element*);

std::string collected(WritePath write, const Element& element, const Element* root) {
    std::ostringstream out;
    EXPECT_EQ(&write(out, element, root), &out);
    return out.str();
}

// Both paths of an element, through the operations of `Path` and the members of `Element` alike.
std::string pathOf(const Element& element, const Element* root) {
    const std::string path = collected(&Path::elementPath, element, root);
    EXPECT_EQ(element.path(root), path);
    EXPECT_EQ(collected([](std::ostream& out, const Element& e,
                           const Element* from) -> std::ostream& { return e.path(out, from); },
                        element, root),
              path);
    return path;
}

std::string schemaPathOf(const Element& element, const Element* root) {
    const std::string path = collected(&Path::elementSchemaPath, element, root);
    EXPECT_EQ(element.schemaPath(root), path);
    EXPECT_EQ(
        collected([](std::ostream& out, const Element& e,
                     const Element* from) -> std::ostream& { return e.schemaPath(out, from); },
                  element, root),
        path);
    return path;
}

// {"a": {"list": [null, {"v": true, "w": null}]}, "b": [[null]]}
class ElementPath : public testing::Test {
protected:
    ElementPath() {
        a = Element::createObject(root.get(), "a");
        list = Element::createArray(a, "list");
        Element::createNull(list);
        item = Element::createObject(list);
        v = Element::createBoolean(true, item, "v");
        Element::createNull(item, "w");
        b = Element::createArray(root.get(), "b");
        inner = Element::createArray(b);
        innermost = Element::createNull(inner);
    }

    const std::unique_ptr<Element> root = object();
    Element* a = nullptr;
    Element* list = nullptr;
    Element* item = nullptr;
    Element* v = nullptr;
    Element* b = nullptr;
    Element* inner = nullptr;
    Element* innermost = nullptr;
};

TEST_F(ElementPath, OfTheTopIsEmpty) {
    EXPECT_EQ(pathOf(*root, nullptr), "");
    EXPECT_EQ(pathOf(*root, root.get()), "");
    EXPECT_EQ(pathOf(*root, a), "");
    EXPECT_EQ(schemaPathOf(*root, nullptr), "meta.schema");
    EXPECT_EQ(schemaPathOf(*root, root.get()), "meta.schema");
}

TEST_F(ElementPath, BeginsAtTheTopWithoutARoot) {
    EXPECT_EQ(pathOf(*a, nullptr), "a");
    EXPECT_EQ(pathOf(*list, nullptr), "a.list");
    EXPECT_EQ(pathOf(*item, nullptr), "a.list[1]");
    EXPECT_EQ(pathOf(*v, nullptr), "a.list[1].v");
    EXPECT_EQ(pathOf(*innermost, nullptr), "b[0][0]");
}

TEST_F(ElementPath, OfTheSchemaDropsIndexes) {
    EXPECT_EQ(schemaPathOf(*a, nullptr), "meta.schema.properties.a");
    EXPECT_EQ(schemaPathOf(*list, nullptr), "meta.schema.properties.a.properties.list");
    EXPECT_EQ(schemaPathOf(*item, nullptr), "meta.schema.properties.a.properties.list.items");
    EXPECT_EQ(schemaPathOf(*v, nullptr),
              "meta.schema.properties.a.properties.list.items.properties.v");
    EXPECT_EQ(schemaPathOf(*innermost, nullptr), "meta.schema.properties.b.items.items");
}

TEST_F(ElementPath, BeginsBelowAnAncestor) {
    EXPECT_EQ(pathOf(*v, root.get()), "a.list[1].v");
    EXPECT_EQ(pathOf(*v, a), "list[1].v");
    EXPECT_EQ(pathOf(*v, list), "[1].v");
    EXPECT_EQ(pathOf(*v, item), "v");
    EXPECT_EQ(pathOf(*innermost, b), "[0][0]");
    EXPECT_EQ(pathOf(*innermost, inner), "[0]");
}

TEST_F(ElementPath, OfTheSchemaBeginsBelowAnAncestorToo) {
    EXPECT_EQ(schemaPathOf(*v, root.get()),
              "meta.schema.properties.a.properties.list.items.properties.v");
    EXPECT_EQ(schemaPathOf(*v, a), "meta.schema.properties.list.items.properties.v");
    EXPECT_EQ(schemaPathOf(*v, list), "meta.schema.items.properties.v");
    EXPECT_EQ(schemaPathOf(*v, item), "meta.schema.properties.v");
    EXPECT_EQ(schemaPathOf(*innermost, inner), "meta.schema.items");
}

// The walk stops where a parent is the root: an element is no parent of itself.
TEST_F(ElementPath, DoesNotStopAtTheElementItself) {
    EXPECT_EQ(pathOf(*v, v), "a.list[1].v");
    EXPECT_EQ(pathOf(*item, item), "a.list[1]");
    EXPECT_EQ(schemaPathOf(*item, item), "meta.schema.properties.a.properties.list.items");
}

TEST_F(ElementPath, BeginsAtTheTopForAStranger) {
    const std::unique_ptr<Element> stranger = object();
    EXPECT_EQ(pathOf(*v, stranger.get()), "a.list[1].v");
    EXPECT_EQ(pathOf(*v, b), "a.list[1].v");  // of the same tree, but no ancestor
    EXPECT_EQ(pathOf(*a, v), "a");            // a descendant
    EXPECT_EQ(schemaPathOf(*v, stranger.get()),
              "meta.schema.properties.a.properties.list.items.properties.v");
}

TEST_F(ElementPath, OfADetachedCopyBeginsAtTheCopy) {
    const std::unique_ptr<Element> copy(list->clone());
    EXPECT_EQ(pathOf(*copy, nullptr), "");
    EXPECT_EQ(pathOf(*copy, root.get()), "");
    EXPECT_EQ(schemaPathOf(*copy, nullptr), "meta.schema");
}

TEST_F(ElementPath, OfACopiedChildIsEmptyForItIsNotAttached) {
    const std::unique_ptr<Element> copy(a->clone());
    EXPECT_EQ(pathOf(copy->at("list"), nullptr), "");
    EXPECT_EQ(pathOf(copy->at("list").at(1), copy.get()), "");
    EXPECT_EQ(schemaPathOf(copy->at("list").at(1), nullptr), "meta.schema");
}

TEST_F(ElementPath, OfAMemberThatWasInsertedInPlaceOfAnotherIsEmpty) {
    Element* const replaced = value(1).release();
    item->getObjectValue().insert("v", replaced);
    ASSERT_EQ(&item->at("v"), replaced);
    EXPECT_EQ(pathOf(*replaced, nullptr), "");
    EXPECT_EQ(schemaPathOf(*replaced, nullptr), "meta.schema");
}

// Made with its parent, a replacement knows the parent but not its own key.
TEST_F(ElementPath, OfAMemberThatWasMadeInPlaceOfAnotherEndsInAnEmptyKey) {
    const Element* const replaced = Element::createNull(item, "v");
    EXPECT_EQ(pathOf(*replaced, nullptr), "a.list[1].");
    EXPECT_EQ(pathOf(*replaced, item), "");
    EXPECT_EQ(schemaPathOf(*replaced, item), "meta.schema.properties.");
}

TEST_F(ElementPath, OfAMemberOfNoNameIsWrittenAsIs) {
    Element* const unnamed = Element::createObject(root.get(), "");
    const Element* const below = Element::createNull(unnamed, "x");
    EXPECT_EQ(pathOf(*unnamed, nullptr), "");
    EXPECT_EQ(pathOf(*below, nullptr), ".x");
    EXPECT_EQ(schemaPathOf(*below, nullptr), "meta.schema.properties..properties.x");
}

TEST_F(ElementPath, EscapesTheCharactersOfTheSyntaxInKeys) {
    const Element* const all = Element::createNull(item, ".[]*\\");
    EXPECT_EQ(pathOf(*all, item), "\\.\\[\\]\\*\\\\");
    EXPECT_EQ(pathOf(*all, nullptr), "a.list[1].\\.\\[\\]\\*\\\\");
    EXPECT_EQ(schemaPathOf(*all, item), "meta.schema.properties.\\.\\[\\]\\*\\\\");
    const Element* const likeAnIndex = Element::createNull(item, "[0]");
    EXPECT_EQ(pathOf(*likeAnIndex, item), "\\[0\\]");
}

TEST_F(ElementPath, KeepsOtherCharactersInKeys) {
    const std::string key("sp ace\"/\n\0\xc3\xa4\xff", 13);
    const Element* const odd = Element::createNull(item, key);
    EXPECT_EQ(pathOf(*odd, item), key);
    EXPECT_EQ(schemaPathOf(*odd, item), "meta.schema.properties." + key);
}

TEST_F(ElementPath, IsAddedToWhatTheStreamHolds) {
    std::ostringstream out;
    out << "at ";
    Path::elementPath(out, *v, nullptr);
    Path::elementSchemaPath(out, *inner, b);
    EXPECT_EQ(out.str(), "at a.list[1].vmeta.schema.items");
}

// The application's own container kinds: their children have a place without a name.
class OddArray : public Array {
public:
    EType type() const override { return static_cast<EType>(6); }
};

TEST(ElementPathOfOtherKinds, LeavesOutTheStepBelowAParentOfNoContainerKind) {
    OddArray odd;
    Element* const child = Element::createObject(&odd);
    const Element* const grandchild = Element::createNull(child, "x");
    ASSERT_EQ(child->parent(), &odd);
    EXPECT_EQ(pathOf(*child, nullptr), "");
    EXPECT_EQ(pathOf(*grandchild, nullptr), "x");
    EXPECT_EQ(schemaPathOf(*child, nullptr), "meta.schema");
    EXPECT_EQ(schemaPathOf(*grandchild, nullptr), "meta.schema.properties.x");
}

class ElementPathOfLargeIndexes : public testing::Test {
protected:
    ElementPathOfLargeIndexes() {
        Element* const list = Element::createArray(root.get(), "list");
        for (int i = 0; i < 1235; ++i) {
            last = Element::createNull(list);
        }
    }

    const std::unique_ptr<Element> root = object();
    const Element* last = nullptr;
};

TEST_F(ElementPathOfLargeIndexes, AreNotGroupedByAnyLocale) {
    const HostileLocale locale;
    EXPECT_EQ(pathOf(*last, nullptr), "list[1234]");
    EXPECT_EQ(pathOf(*last->parent(), nullptr), "list");
    EXPECT_EQ(schemaPathOf(*last, nullptr), "meta.schema.properties.list.items");
}

TEST_F(ElementPathOfLargeIndexes, FollowTheNumberBaseOfTheCallersStream) {
    std::ostringstream out;
    out << std::hex;
    Path::elementPath(out, *last, nullptr);
    EXPECT_EQ(out.str(), "list[4d2]");
    out.str("");
    last->path(out, nullptr);
    EXPECT_EQ(out.str(), "list[4d2]");
    EXPECT_EQ(last->path(nullptr), "list[1234]");
}

constexpr int k_deep = 100000;

std::string repeated(const std::string& text) {
    std::string all;
    for (int i = 0; i < k_deep; ++i) {
        all += text;
    }
    return all;
}

TEST(ElementPathOfDeepTrees, IsWrittenThroughArrays) {
    const std::unique_ptr<Element> root = array();
    Element* innermost = root.get();
    for (int i = 0; i < k_deep; ++i) {
        innermost = Element::createArray(innermost);
    }
    EXPECT_TRUE(pathOf(*innermost, nullptr) == repeated("[0]"));
    EXPECT_TRUE(schemaPathOf(*innermost, nullptr) == "meta.schema" + repeated(".items"));
    EXPECT_EQ(pathOf(*innermost, innermost->parent()), "[0]");
}

TEST(ElementPathOfDeepTrees, IsWrittenThroughObjects) {
    const std::unique_ptr<Element> root = object();
    Element* innermost = root.get();
    for (int i = 0; i < k_deep; ++i) {
        innermost = Element::createObject(innermost, "k.");
    }
    EXPECT_TRUE("." + pathOf(*innermost, nullptr) == repeated(".k\\."));
    EXPECT_TRUE(schemaPathOf(*innermost, root.get()) ==
                "meta.schema" + repeated(".properties.k\\."));
}

}  // namespace
