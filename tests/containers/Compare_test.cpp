#include <zo/Tessera/Array.h>
#include <zo/Tessera/Object.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "Witness.h"

using namespace zo::Tessera;

namespace {

std::unique_ptr<Array> arrayOf(std::initializer_list<int> values) {
    auto array = std::make_unique<Array>();
    for (const int number : values) {
        array->push_back(value(number).release());
    }
    return array;
}

std::unique_ptr<Object> objectOf(std::initializer_list<std::pair<const char*, int>> members) {
    auto object = std::make_unique<Object>();
    for (const auto& [key, number] : members) {
        object->insert(key, value(number).release());
    }
    return object;
}

struct ArrayRow {
    const char* name;
    std::initializer_list<int> left;
    std::initializer_list<int> right;
    int expected;
};

TEST(ArrayCompare, LooksAtTheLengthAndThenAtTheFirstDifference) {
    const ArrayRow rows[] = {
        {"both empty", {}, {}, 0},
        {"empty and one", {}, {0}, -1},
        {"length before content", {9}, {1, 1}, -1},
        {"equal", {1, 2}, {1, 2}, 0},
        {"first differs", {1, 9}, {2, 1}, -1},
        {"last differs", {1, 3}, {1, 2}, 1},
    };
    for (const ArrayRow& row : rows) {
        SCOPED_TRACE(row.name);
        const auto left = arrayOf(row.left);
        const auto right = arrayOf(row.right);
        const Element& leftElement = *left;
        const Element& rightElement = *right;
        EXPECT_EQ(left->compare(*right), row.expected);
        EXPECT_EQ(right->compare(*left), -row.expected);
        EXPECT_EQ(leftElement.compare(rightElement), row.expected);
        EXPECT_EQ(rightElement.compare(leftElement), -row.expected);
    }
}

struct ObjectRow {
    const char* name;
    std::initializer_list<std::pair<const char*, int>> left;
    std::initializer_list<std::pair<const char*, int>> right;
    int expected;
};

TEST(ObjectCompare, LooksAtTheSizeAndThenAtTheValuesInOrderOfInsertion) {
    const ObjectRow rows[] = {
        {"both empty", {}, {}, 0},
        {"empty and one", {}, {{"a", 0}}, -1},
        {"size before content", {{"a", 9}}, {{"a", 1}, {"b", 1}}, -1},
        {"equal", {{"a", 1}, {"b", 2}}, {{"a", 1}, {"b", 2}}, 0},
        // Keys are not compared: callers rely on objects that differ in them alone being equal.
        {"other keys", {{"a", 1}}, {{"b", 1}}, 0},
        {"other order", {{"a", 1}, {"b", 2}}, {{"b", 2}, {"a", 1}}, -1},
        {"first differs", {{"z", 1}, {"a", 9}}, {{"z", 2}, {"a", 1}}, -1},
        {"last differs", {{"a", 1}, {"b", 3}}, {{"a", 1}, {"b", 2}}, 1},
    };
    for (const ObjectRow& row : rows) {
        SCOPED_TRACE(row.name);
        const auto left = objectOf(row.left);
        const auto right = objectOf(row.right);
        const Element& leftElement = *left;
        const Element& rightElement = *right;
        EXPECT_EQ(left->compare(*right), row.expected);
        EXPECT_EQ(right->compare(*left), -row.expected);
        EXPECT_EQ(leftElement.compare(rightElement), row.expected);
        EXPECT_EQ(rightElement.compare(leftElement), -row.expected);
    }
}

TEST(ContainerCompare, PutsEveryArrayAfterEveryObject) {
    const auto object = objectOf({{"a", 1}, {"b", 2}});
    const Array array;
    EXPECT_EQ(array.compare(*object), 1);
    EXPECT_EQ(object->compare(array), -1);
}

TEST(ContainerCompare, GoesIntoNestedContainers) {
    const auto tree = [](int number) {
        auto root = std::make_unique<Object>();
        Element::createString("same", root.get(), "s");
        Element* const list = Element::createArray(root.get(), "list");
        Element* const inner = Element::createObject(list);
        inner->getObjectValue().insert("n", value(number).release());
        return root;
    };
    EXPECT_EQ(tree(1)->compare(*tree(1)), 0);
    EXPECT_EQ(tree(1)->compare(*tree(2)), -1);
    EXPECT_EQ(tree(2)->compare(*tree(1)), 1);
}

TEST(ContainerCompare, ComesBackFromANestedPairToTheNextSibling) {
    const auto tree = [](int last) {
        auto root = std::make_unique<Array>();
        Element* const inner = Element::createArray(Element::createArray(root.get()));
        Element::createNull(inner);
        root->push_back(value(last).release());
        return root;
    };
    EXPECT_EQ(tree(1)->compare(*tree(1)), 0);
    EXPECT_EQ(tree(1)->compare(*tree(2)), -1);
}

TEST(ContainerCompare, AsksTheChildrensOwnCompareUntilOneDiffers) {
    std::string log;
    Array left;
    Array right;
    for (const char* const name : {"a", "b", "c"}) {
        left.push_back(new Witness(name, log));
        right.push_back(value(name[0] == 'b' ? "x" : name).release());
    }
    EXPECT_EQ(left.compare(right), -1);
    EXPECT_EQ(log, "compare a;compare b;");
}

TEST(ContainerCompare, AsksAContainersOwnCompareInsideATree) {
    std::string log;
    Object left;
    auto* const list = new ArrayWitness(log);
    left.insert("list", list);
    list->push_back(new Witness("a", log));
    Object right;
    Element::createString("a", Element::createArray(&right, "list"));
    EXPECT_EQ(left.compare(right), 0);
    EXPECT_EQ(log, "compare list 1;compare a;");
}

TEST(ContainerCompare, AsksNoChildWhenComparedWithItself) {
    std::string log;
    Array array;
    array.push_back(new Witness("a", log));
    Object object;
    object.insert("b", new Witness("b", log));
    const Element& arrayElement = array;
    const Element& objectElement = object;
    EXPECT_EQ(arrayElement.compare(arrayElement), 0);
    EXPECT_EQ(objectElement.compare(objectElement), 0);
    EXPECT_EQ(log, "");
}

TEST(ContainerCompare, AsksNoChildWhenTheSizesDiffer) {
    std::string log;
    Array array;
    array.push_back(new Witness("a", log));
    Object object;
    object.insert("b", new Witness("b", log));
    EXPECT_EQ(array.compare(Array::k_empty), 1);
    EXPECT_EQ(object.compare(Object::k_empty), 1);
    EXPECT_EQ(log, "");
}

}  // namespace
