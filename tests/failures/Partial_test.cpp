#include <zo/Tessera/Element.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Generator.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>

#include "failures/outOfMemory.h"
#include "failures/richTree.h"
#include "support/parsed.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

std::string json(const Element& root) {
    Generator generator(nullptr);
    generator.setIndent("");
    return generator.encode(root);
}

/// An operation that may stop half way, as its header says.
struct Step {
    const char* name;
    const char* before;
    std::function<void(Element& root)> apply;
    std::vector<std::string> left;  // what failures leave, without a text that needs memory
    const char* after;
};

class OutOfMemoryOnTheWay : public testing::TestWithParam<Step> {};

/// Short names for what needs memory of its own.
std::string expanded(std::string text) {
    for (size_t at = text.find('$'); at != std::string::npos; at = text.find('$', at)) {
        text.replace(at, 1, k_long);
    }
    return text;
}

std::string shortened(std::string text) {
    for (size_t at = text.find(k_long); at != std::string::npos; at = text.find(k_long)) {
        text.replace(at, k_long.size(), "$");
    }
    return text;
}

TEST_P(OutOfMemoryOnTheWay, LeavesWhatTheHeadersNameAndNothingElse) {
    const Step& step = GetParam();
    std::unique_ptr<Element> root;
    std::set<std::string> left;
    failEachAllocation([&] { root = parsed(expanded(step.before)); }, [&] { step.apply(*root); },
                       [&] {
                           left.insert(shortened(json(*root)));
                           expectWhole(*root);
                       });
    EXPECT_THAT(left, testing::UnorderedElementsAreArray(step.left));
    EXPECT_EQ(shortened(json(*root)), step.after);
    expectWhole(*root);
}

const std::unique_ptr<const Element> k_list = parsed(expanded(R"(["$", ["$"], {"$": 1}])"));
const std::unique_ptr<const Element> k_members = parsed(expanded(R"({"a": "$", "$": ["$"]})"));
const std::unique_ptr<const Element> k_x = value("x");

// The former children, or the copies made by then.
const std::vector<std::string> k_listLeft = {R"(["old"])", "[]", R"(["$"])", R"(["$",["$"]])"};
const std::vector<std::string> k_membersLeft = {R"({"old":1})", "{}", R"({"a":"$"})"};
const char* const k_listAfter = R"(["$",["$"],{"$":1}])";
const char* const k_membersAfter = R"({"a":"$","$":["$"]})";

INSTANTIATE_TEST_SUITE_P(
    Assigning, OutOfMemoryOnTheWay,
    testing::Values(Step{"Array", R"(["old"])",
                         [](Element& e) { e.getArrayValue().assign(k_list->getArrayValue()); },
                         k_listLeft, k_listAfter},
                    Step{"SetArrayValue", R"(["old"])",
                         [](Element& e) { e.setArrayValue(k_list->getArrayValue()); }, k_listLeft,
                         k_listAfter},
                    Step{"RealAssignToAnArray", R"(["old"])",
                         [](Element& e) { e.realAssign(*k_list); }, k_listLeft, k_listAfter},
                    Step{"Object", R"({"old": 1})",
                         [](Element& e) { e.getObjectValue().assign(k_members->getObjectValue()); },
                         k_membersLeft, k_membersAfter},
                    Step{"SetObjectValue", R"({"old": 1})",
                         [](Element& e) { e.setObjectValue(k_members->getObjectValue()); },
                         k_membersLeft, k_membersAfter},
                    Step{"RealAssignToAnObject", R"({"old": 1})",
                         [](Element& e) { e.realAssign(*k_members); }, k_membersLeft,
                         k_membersAfter},
                    Step{"ArrayFromInsideItself",
                         R"([["$", 1], 2])",
                         [](Element& e) { e.setArrayValue(e.at(0).getArrayValue()); },
                         {R"([["$",1],2])", "[]", R"(["$"])"},
                         R"(["$",1])"},
                    Step{"ObjectFromInsideItself",
                         R"({"a": {"b": "$", "c": 1}})",
                         [](Element& e) { e.setObjectValue(e.at("a").getObjectValue()); },
                         {R"({"a":{"b":"$","c":1}})", "{}", R"({"b":"$"})"},
                         R"({"b":"$","c":1})"},
                    Step{"ArrayFromAroundIt",
                         R"(["$", [1]])",
                         [](Element& e) { e.at(1).setArrayValue(e.getArrayValue()); },
                         {R"(["$",[1]])", R"(["$",[]])", R"(["$",["$"]])"},
                         R"(["$",["$",["$"]]])"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Creating, OutOfMemoryOnTheWay,
    testing::Values(
        Step{"Members",
             "{}",
             [](Element& e) { Path::createElement(e, expanded("$.b.c"), *k_list); },
             {"{}", R"({"$":{}})", R"({"$":{"b":{}}})"},
             R"({"$":{"b":{"c":["$",["$"],{"$":1}]}}})"},
        Step{"MembersByTryCreateElement",
             "{}",
             [](Element& e) { Path::tryCreateElement(e, expanded("$.b"), *k_x); },
             {"{}", R"({"$":{}})"},
             R"({"$":{"b":"x"}})"},
        Step{"Items",
             "[]",
             [](Element& e) { Path::createElement(e, "[*][*]", *k_x); },
             {"[]", "[[]]"},
             R"([["x"]])"},
        Step{"AndUpdating",
             "{}",
             [](Element& e) { e.tryUpdate(expanded("a.$"), *k_list); },
             {"{}", R"({"a":{}})", R"({"a":{"$":["$",["$"],{"$":1}]}})", R"({"a":{"$":[]}})",
              R"({"a":{"$":["$"]}})", R"({"a":{"$":["$",["$"]]}})"},
             R"({"a":{"$":["$",["$"],{"$":1}]}})"},
        Step{"WhatExistsAndUpdating",
             R"({"a": ["old"]})",
             [](Element& e) { e.tryUpdate("a", *k_list); },
             {R"({"a":["old"]})", R"({"a":[]})", R"({"a":["$"]})", R"({"a":["$",["$"]]})"},
             R"({"a":["$",["$"],{"$":1}]})"},
        Step{"WhereItCannotBeDone",
             "{}",
             [](Element& e) {
                 try {
                     Path::createElement(e, expanded("$.b[0]"), *k_x);
                 } catch (const PathNotFound&) {
                 }
             },
             {"{}", R"({"$":{}})", R"({"$":{"b":{}}})"},
             R"({"$":{"b":{}}})"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(Removing, OutOfMemoryOnTheWay,
                         testing::Values(Step{"ByAKey",
                                              R"([{"$": "x"}, {"$": "y"}, {"$": "x"}])",
                                              [](Element& e) { e.removeElement(*k_x, k_long, ""); },
                                              {R"([{"$":"x"},{"$":"y"},{"$":"x"}])"},
                                              R"([{"$":"y"}])"}),
                         k_rowName);

// A comparison with it raises, which is no match; for want of memory it cannot even raise.
TEST(OutOfMemoryInARemoval, KeepsTheItemThatCannotBeCompared) {
    const std::string huge = "123456789012345678901234567890";
    const auto five = value(5U);
    std::unique_ptr<Element> root;
    std::set<std::string> left;
    const auto prepare = [&] { root = parsed("[5," + huge + ",5]"); };
    const auto remove = [&] { root->removeElement(*five, "", ""); };
    failEachAllocation(prepare, remove, [&] { left.insert(json(*root)); });
    EXPECT_THAT(left, testing::ElementsAre("[" + huge + ",5]"));
    EXPECT_EQ(json(*root), "[" + huge + "]");
}

}  // namespace
