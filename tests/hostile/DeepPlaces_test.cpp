#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <zo/Tessera.h>

#include "hostile/DeepDocument.h"
#include "hostile/eachNesting.h"
#include "hostile/million.h"
#include "hostile/onSmallStack.h"
#include "support/parsed.h"
#include "support/thrown.h"

using namespace zo::Tessera;

// Paths of as many steps as the trees are deep: written, looked up, created, searched and reported.

namespace {

using Owner = std::unique_ptr<Element>;

const DeepDocument k_objects(Nesting::objects);

class DeepPlace : public ForEachNesting {};

TEST_P(DeepPlace, HasAPathThatLeadsBackToIt) {
    onSmallStack([this] {
        const Owner root = parsed(document.text());
        Element& deepest = deepestOf(*root);
        const std::string path = deepest.path(nullptr);
        EXPECT_TRUE(path == document.path());
        EXPECT_TRUE(deepest.schemaPath(nullptr) == document.schemaPath());
        EXPECT_EQ(&deepest.root(), root.get());
        EXPECT_EQ(&root->get(path), &deepest);
        EXPECT_FALSE(root->pathExists(path + ".k"));
    });
}

INSTANTIATE_TEST_SUITE_P(Hostile, DeepPlace,
                         testing::Values(Nesting::arrays, Nesting::objects, Nesting::inTurn),
                         nestingName);

TEST(DeepPlace, IsNamedByAnExceptionAndItsCopies) {
    onSmallStack([] {
        const Owner root = parsed(k_mixed.text());
        const std::string expected =
            "Json type mismatch! Requestet Json type: etString Got Json type: etBoolean "
            "Current element: \"" +
            k_mixed.path() + "\"";
        const TypeException<EType> original(&deepestOf(*root), etString, etBoolean);
        EXPECT_TRUE(original.what() == expected);
        const TypeException<EType> copy(original);
        EXPECT_TRUE(copy.what() == expected);
        const std::unique_ptr<const TypeException<EType>> clone(copy.clone());
        EXPECT_TRUE(clone->what() == expected);
        EXPECT_TRUE(thrown<TypeException<EType>>([&] { deepestOf(*root).getObjectValue(); }) ==
                    "Json type mismatch! Requestet Json type: etObject Got Json type: etBoolean "
                    "Current element: \"" +
                        k_mixed.path() + "\"");
    });
}

TEST(DeepPlace, IsNamedWhereALookUpEnds) {
    onSmallStack([] {
        const Owner root = parsed(k_mixed.text());
        try {
            root->get(k_mixed.path() + ".x");
            ADD_FAILURE();
        } catch (const PathNotFound& exception) {
            EXPECT_EQ(exception.key(), "x");
            EXPECT_TRUE(exception.path() == k_mixed.path() + ".x");
            EXPECT_TRUE(*exception.elementPath() == k_mixed.path());
        }
    });
}

TEST(DeepPlace, IsCreatedMemberByMember) {
    onSmallStack([] {
        const Owner root = object();
        const Path path = k_objects.path();
        const Element* const created = Path::tryCreateElement(*root, path, *value(true));
        EXPECT_TRUE(textOf(*root) == k_objects.text());
        EXPECT_EQ(created, &deepestOf(*root));
        EXPECT_EQ(&root->tryUpdate(path, *value(false)), created);
        EXPECT_TRUE(textOf(*root) == k_objects.text("false"));
    });
}

TEST(DeepPlace, IsCreatedItemByItem) {
    onSmallStack([] {
        const Owner root = array();
        Path::tryCreateElement(*root, repeated(k_depth, "[*]"), *value(true));
        EXPECT_TRUE(textOf(*root) == DeepDocument(Nesting::arrays).text());
    });
}

// The last member becomes an object, as the ones before, and so has no items.
TEST(DeepPlace, IsLeftWithAllThatWasCreatedBeforeTheFailure) {
    onSmallStack([] {
        const Owner root = object();
        const Path path = k_objects.innermostPath() + "[*]";
        EXPECT_TRUE(thrown<Exception>([&] { Path::tryCreateElement(*root, path, *value(true)); }) ==
                    "Error creating element. Parent: \"\" path: \"" + path + "\"");
        EXPECT_TRUE(textOf(*root) == k_objects.opening() + k_objects.closing());
    });
}

TEST(DeepPlace, IsNamedWhereItsCreationFails) {
    onSmallStack([] {
        const Owner root = array();
        const Path path = repeated(k_depth - 1, "[*]") + ".x";
        try {
            Path::createElement(*root, path, *value(true));
            ADD_FAILURE();
        } catch (const PathNotFound& exception) {
            EXPECT_EQ(exception.key(), "x");
            EXPECT_TRUE(exception.path() == path);
            EXPECT_TRUE(*exception.elementPath() == repeated(k_depth - 1, "[0]"));
        }
        EXPECT_TRUE(textOf(*root) == DeepDocument(Nesting::arrays).text(""));
    });
}

TEST(DeepPlace, IsReachedInEachItemThatIsSearched) {
    onSmallStack([] {
        const Owner list = array();
        Element::createNull(list.get());
        list->getArrayValue().push_back(parsed(k_mixed.text()).release());
        const Path path = k_mixed.path();
        EXPECT_EQ(list->findElement(*value(true), path, ""), &list->at(1));
        EXPECT_EQ(list->findElement(*value(false), path, ""), nullptr);
        list->removeElement(*value(true), path, "");
        EXPECT_EQ(list->size(), 1U);
        EXPECT_EQ(list->at(0).type(), etNull);
    });
}

TEST(DeepPlace, IsWhereAnArrayIsSearched) {
    onSmallStack([] {
        const Owner root = parsed(k_mixed.text("[false,true]"));
        const Path path = k_mixed.path();
        EXPECT_EQ(root->findElement(*value(true), "", path), &root->get(path).at(1));
        root->removeElement(*value(false), "", path);
        EXPECT_TRUE(textOf(*root) == k_mixed.text("[true]"));
    });
}

TEST(DeepPattern, IsFoundAndRemoved) {
    onSmallStack([] {
        const Owner list = array();
        Element::createArray(list.get());
        list->getArrayValue().push_back(parsed(k_mixed.text()).release());
        const Owner pattern = parsed(k_mixed.text());
        EXPECT_EQ(list->findElement(*pattern, "", ""), &list->at(1));
        deepestOf(*pattern).setBooleanValue(false);
        EXPECT_EQ(list->findElement(*pattern, "", ""), nullptr);
        deepestOf(*pattern).setBooleanValue(true);
        list->removeElement(*pattern, "", "");
        EXPECT_EQ(list->size(), 1U);
    });
}

}  // namespace
