#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/visit.h>

#include "failures/outOfMemory.h"
#include "failures/richTree.h"
#include "support/NumberOf.h"
#include "support/dump.h"
#include "support/parsed.h"
#include "support/rowName.h"

using namespace zo::Tessera;

// Editing without memory: it is as if it had not been tried, and what was to be put in is still its
// owner's.

namespace {

using Owner = std::unique_ptr<Element>;

Array& listOf(Element& root) {
    return root.at("list").getArrayValue();
}

/// What is put in.
Owner newElement() {
    return parsed(R"({"x": [")" + k_long + R"("]})");
}

/// An operation that puts an element into a tree, or a copy of it.
struct Edit {
    const char* name;
    void (*apply)(Element& root, Owner& owner);
};

class OutOfMemoryInAnEdit : public testing::TestWithParam<Edit> {};

TEST_P(OutOfMemoryInAnEdit, IsAsIfItHadNotBeenTried) {
    const std::string before = dump(*richTree());
    const std::string elementBefore = dump(*newElement());
    const Owner whole = richTree();
    Owner wholeOwner = newElement();
    GetParam().apply(*whole, wholeOwner);
    const std::string after = dump(*whole);
    ASSERT_NE(after, before);
    Owner root;
    Owner owner;
    const auto prepare = [&] {
        root = richTree();
        owner = newElement();
    };
    const auto check = [&] {
        EXPECT_EQ(dump(*root), before);
        ASSERT_NE(owner, nullptr);
        EXPECT_EQ(dump(*owner), elementBefore);
        expectWhole(*root);
        GetParam().apply(*root, owner);
        EXPECT_EQ(dump(*root), after);
    };
    EXPECT_GT(failEachAllocation(
                  prepare, [&] { GetParam().apply(*root, owner); }, check),
              0);
    EXPECT_EQ(dump(*root), after);
}

INSTANTIATE_TEST_SUITE_P(
    Containers, OutOfMemoryInAnEdit,
    testing::Values(Edit{"InsertFirst",
                         [](Element& e, Owner& owner) { listOf(e).insert(0, std::move(owner)); }},
                    Edit{"InsertLast",
                         [](Element& e, Owner& owner) { listOf(e).insert(4, std::move(owner)); }},
                    Edit{"ReplaceMember",
                         [](Element& e, Owner& owner) {
                             e.getObjectValue().replace(k_long, std::move(owner));
                         }},
                    Edit{"ReplaceOfANewKey",
                         [](Element& e, Owner& owner) {
                             e.getObjectValue().replace(k_newKey, std::move(owner));
                         }}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    SetByPath, OutOfMemoryInAnEdit,
    testing::Values(
        Edit{"Member", [](Element& e, Owner& owner) { e.set(k_long, std::move(owner)); }},
        Edit{"NewMember", [](Element& e, Owner& owner) { e.set(k_newKey, std::move(owner)); }},
        Edit{"Item", [](Element& e, Owner& owner) { e.set("list[1]", std::move(owner)); }},
        Edit{"NewItem", [](Element& e, Owner& owner) { e.set("list[*]", std::move(owner)); }},
        Edit{"WhatIsMissingInAnObject",
             [](Element& e, Owner& owner) {
                 e.set(k_newKey + "[0]." + k_newKey + "[*][0]", std::move(owner));
             }},
        Edit{"WhatIsMissingInAnArray",
             [](Element& e, Owner& owner) {
                 e.set("list[*]." + k_newKey + '.' + k_newKey, std::move(owner));
             }},
        Edit{"CopyOfAnElement", [](Element& e, Owner& owner) { e.set("list[1]", *owner); }},
        Edit{"CopyWhereMuchIsMissing",
             [](Element& e, Owner& owner) { e.set("list[*]." + k_newKey + "[*]", *owner); }},
        Edit{"RemoveMember", [](Element& e, Owner&) { e.remove(k_long); }},
        Edit{"RemoveItemOfAMember", [](Element& e, Owner&) { e.remove(k_long + ".inner[1]"); }}),
    k_rowName);

/// An operation that needs no memory.
class EditWithoutMemory : public testing::TestWithParam<Edit> {};

TEST_P(EditWithoutMemory, Succeeds) {
    const Owner root = richTree();
    Owner owner = newElement();
    const std::string before = dump(*root);
    {
        const NoMemory none;
        GetParam().apply(*root, owner);
    }
    EXPECT_NE(dump(*root), before);
    expectWhole(*root);
}

INSTANTIATE_TEST_SUITE_P(
    Containers, EditWithoutMemory,
    testing::Values(Edit{"EraseItem", [](Element& e, Owner&) { listOf(e).erase(1); }},
                    Edit{"TakeItem", [](Element& e, Owner& owner) { owner = listOf(e).take(1); }},
                    Edit{"ReplaceItem",
                         [](Element& e, Owner& owner) { listOf(e).replace(1, std::move(owner)); }},
                    Edit{"Clear", [](Element& e, Owner&) { listOf(e).clear(); }},
                    Edit{"EraseMember",
                         [](Element& e, Owner&) { e.getObjectValue().erase(k_long); }},
                    Edit{"TakeMember",
                         [](Element& e, Owner& owner) { owner = e.getObjectValue().take(k_long); }},
                    Edit{"ReplaceMemberOfAShortKey",
                         [](Element& e, Owner& owner) {
                             e.getObjectValue().replace("text", std::move(owner));
                         }}),
    k_rowName);

TEST(OutOfMemoryInReattach, MayBeMadeUpFor) {
    const std::string right = dump(*richTree());
    Owner root;
    const auto prepare = [&] { root.reset(richTree()->clone()); };
    const auto reattach = [&] { root->getObjectValue().reattach(); };
    const auto check = [&] {
        expectWhole(*root);
        reattach();
        EXPECT_EQ(dump(*root), right);
    };
    EXPECT_GT(failEachAllocation(prepare, reattach, check), 0);
    EXPECT_EQ(dump(*root), right);
}

TEST(OutOfMemoryInVisit, LeavesTheTreeAsItIs) {
    const Owner root = richTree();
    const std::string before = dump(*root);
    long left = 0;
    const ConstVisitor enter = [](const Element&, const Path&) { return evGoOn; };
    const ConstVisitor leave = [&](const Element&, const Path&) {
        ++left;
        return evGoOn;
    };
    const auto walk = [&] { EXPECT_TRUE(visit(std::as_const(*root), enter, leave)); };
    const auto check = [&] { EXPECT_LT(left, 21); };
    EXPECT_GT(failEachAllocation([&] { left = 0; }, walk, check), 0);
    EXPECT_EQ(left, 21);
    EXPECT_EQ(dump(*root), before);
}

/// Numbers that need memory: one for its text, one for the exception that its text raises.
Owner numbers() {
    Owner list = array();
    for (const long long number : {-9223372036854775806LL, -9223372036854775807LL}) {
        Element::createNumber(numberOf(number), list.get());
    }
    Element::createNumber(numberOf("99999999999999999999"), list.get());
    return list;
}

TEST(OutOfMemoryInPrepareForSharing, MayBeMadeUpFor) {
    Owner root;
    const auto prepare = [&] { root = numbers(); };
    const auto check = [&] {
        root->prepareForSharing();
        EXPECT_EQ(dump(*root), dump(*numbers()));
    };
    EXPECT_GT(failEachAllocation(
                  prepare, [&] { root->prepareForSharing(); }, check),
              0);
}

TEST(PreparedForSharing, NumbersAreReadWithoutMemory) {
    const Owner root = numbers();
    const BasicNumber& first = root->at(0);
    const BasicNumber& last = root->at(2);
    root->prepareForSharing();
    const std::string* text = nullptr;
    BasicNumber::EBinaryType type = BasicNumber::ebNone;
    {
        const NoMemory none;
        text = &first.toString();
        type = last.type();
    }
    EXPECT_EQ(*text, "-9223372036854775806");
    EXPECT_EQ(type, BasicNumber::ebULongLong);
}

}  // namespace
