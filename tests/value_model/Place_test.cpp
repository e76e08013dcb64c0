#include <zo/Tessera/Element.h>

#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>

#include "support/HostileLocale.h"

using namespace zo::Tessera;

namespace {

static_assert(std::is_same_v<decltype(std::declval<Element&>().parent()), Element*>);
static_assert(std::is_same_v<decltype(std::declval<const Element&>().parent()), const Element*>);
static_assert(std::is_same_v<decltype(std::declval<Element&>().root()), Element&>);
static_assert(std::is_same_v<decltype(std::declval<const Element&>().root()), const Element&>);

/// {"a": {"list": [null, null, {"x.y": null}]}}
class PlaceInTheTree : public testing::Test {
protected:
    Object root;
    Element* const a = Element::createObject(&root, "a");
    Element* const list = Element::createArray(a, "list");
    Element* const first = Element::createNull(list);
    Element* const second = Element::createNull(list);
    Element* const third = Element::createObject(list);
    Element* const leaf = Element::createNull(third, "x.y");
};

TEST_F(PlaceInTheTree, ParentIsTheHoldingContainer) {
    EXPECT_EQ(root.parent(), nullptr);
    EXPECT_EQ(a->parent(), &root);
    EXPECT_EQ(third->parent(), list);
    EXPECT_EQ(std::as_const(*leaf).parent(), third);
}

TEST_F(PlaceInTheTree, KeyIsTheMemberNameOrTheIndexInBrackets) {
    EXPECT_EQ(root.key(), "");
    EXPECT_EQ(a->key(), "a");
    EXPECT_EQ(first->key(), "[0]");
    EXPECT_EQ(third->key(), "[2]");
}

TEST_F(PlaceInTheTree, KeyIsNotEscaped) {
    EXPECT_EQ(leaf->key(), "x.y");
}

TEST_F(PlaceInTheTree, IndexIsNoneOutsideOfAnArray) {
    EXPECT_EQ(root.index(), Path::k_noIndex);
    EXPECT_EQ(a->index(), Path::k_noIndex);
    EXPECT_EQ(first->index(), 0U);
    EXPECT_EQ(second->index(), 1U);
    EXPECT_EQ(third->index(), 2U);
    EXPECT_EQ(leaf->index(), Path::k_noIndex);
}

TEST_F(PlaceInTheTree, RootIsTheTopFromEverywhere) {
    EXPECT_EQ(&root.root(), &root);
    EXPECT_EQ(&a->root(), &root);
    EXPECT_EQ(&leaf->root(), &root);
    EXPECT_EQ(&std::as_const(*leaf).root(), &root);
    EXPECT_EQ(&std::as_const(root).root(), &root);
}

struct PathRow {
    const char* name;
    const Element* element;
    const Element* ancestor;
    const char* path;
    const char* schemaPath;
};

TEST_F(PlaceInTheTree, PathIsWrittenFromBelowTheAncestor) {
    const Null stranger;
    const PathRow rows[] = {
        {"root", &root, nullptr, "", "meta.schema"},
        {"member", a, nullptr, "a", "meta.schema.properties.a"},
        {"leaf", leaf, nullptr, "a.list[2].x\\.y",
         "meta.schema.properties.a.properties.list.items.properties.x\\.y"},
        {"below root", leaf, &root, "a.list[2].x\\.y",
         "meta.schema.properties.a.properties.list.items.properties.x\\.y"},
        {"below a", leaf, a, "list[2].x\\.y", "meta.schema.properties.list.items.properties.x\\.y"},
        {"below list", leaf, list, "[2].x\\.y", "meta.schema.items.properties.x\\.y"},
        {"below parent", leaf, third, "x\\.y", "meta.schema.properties.x\\.y"},
        {"below itself", list, list, "a.list", "meta.schema.properties.a.properties.list"},
        {"below a stranger", list, &stranger, "a.list", "meta.schema.properties.a.properties.list"},
        {"below a sibling", third, first, "a.list[2]",
         "meta.schema.properties.a.properties.list.items"},
    };
    for (const PathRow& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.element->path(row.ancestor), row.path);
        EXPECT_EQ(row.element->schemaPath(row.ancestor), row.schemaPath);
        std::ostringstream path;
        EXPECT_EQ(&row.element->path(path, row.ancestor), &path);
        EXPECT_EQ(path.str(), row.path);
        std::ostringstream schemaPath;
        EXPECT_EQ(&row.element->schemaPath(schemaPath, row.ancestor), &schemaPath);
        EXPECT_EQ(schemaPath.str(), row.schemaPath);
    }
}

TEST_F(PlaceInTheTree, PathOfAnUnattachedCopyBeginsAtTheCopy) {
    const Object copy(root);
    const Element& copyOfA = copy.at("a");
    EXPECT_EQ(copyOfA.path(nullptr), "");
    EXPECT_EQ(copyOfA.key(), "");
    EXPECT_EQ(&copyOfA.root(), &copyOfA);
}

TEST(Place, IsWrittenWithoutDigitGroupsUnderAnyLocale) {
    Array array;
    for (int i = 0; i < 1234; ++i) {
        Element::createNull(&array);
    }
    const Element* const last = Element::createNull(&array);
    const HostileLocale hostile;
    EXPECT_EQ(last->key(), "[1234]");
    EXPECT_EQ(last->path(nullptr), "[1234]");
    std::ostringstream out;
    last->path(out, nullptr);
    EXPECT_EQ(out.str(), "[1234]");
}

}  // namespace
