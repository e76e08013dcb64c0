#include <zo/Tessera/Array.h>
#include <zo/Tessera/Object.h>

#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zo/Tessera/Null.h>

#include "support/FailingNew.h"
#include "support/NumberOf.h"
#include "support/dump.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

// Too long to be kept inside a string, so that each copy allocates.
const std::string k_key = "a key that is too long to be kept inside the string";
const std::string k_text = "a text that is too long to be kept inside the string";

/// ["first", ["<k_text>"]]
std::unique_ptr<Array> makeArray() {
    auto array = std::make_unique<Array>();
    Element::createString("first", array.get());
    Element::createString(k_text, Element::createArray(array.get()));
    return array;
}

/// {"first": true, "<k_key>": {"<k_key>": null}}
std::unique_ptr<Object> makeObject() {
    auto object = std::make_unique<Object>();
    Element::createBoolean(true, object.get(), "first");
    Element::createNull(Element::createObject(object.get(), k_key), k_key);
    return object;
}

TEST(OutOfMemory, LeavesAnArrayAsItWasAndTheChildWithTheCaller) {
    const std::string before = dump(*makeArray());
    std::unique_ptr<Element> child;
    const long failures = failEachAllocation(
        [&] {
            child = std::make_unique<Null>();
            return makeArray();
        },
        [&](auto& array) {
            array->push_back(child.get());
            static_cast<void>(child.release());
        },
        [&](const auto& array) { EXPECT_EQ(dump(*array), before); });
    EXPECT_GT(failures, 0);
}

TEST(OutOfMemory, LeavesAnObjectAsItWasAndTheValueWithTheCaller) {
    const std::string newKey = k_key + "!";
    const std::string before = dump(*makeObject());
    std::unique_ptr<Element> child;
    const long failures = failEachAllocation(
        [&] {
            child = std::make_unique<Null>();
            return makeObject();
        },
        [&](auto& object) {
            object->insert(newKey, child.get());
            static_cast<void>(child.release());
        },
        [&](const auto& object) { EXPECT_EQ(dump(*object), before); });
    EXPECT_GT(failures, 0);
}

TEST(OutOfMemory, NeverLosesAMemberThatIsToBeReplaced) {
    const std::string before = dump(*makeObject());
    std::unique_ptr<Element> child;
    failEachAllocation(
        [&] {
            child = std::make_unique<Null>();
            return makeObject();
        },
        [&](auto& object) {
            object->insert(k_key, child.get());
            static_cast<void>(child.release());
        },
        [&](const auto& object) { EXPECT_EQ(dump(*object), before); });
}

struct Factory {
    const char* name;
    Element* (*byKey)(Element* parent, const std::string& key);
    Element* (*appended)(Element* parent);
};

class OutOfMemoryInAFactory : public testing::TestWithParam<Factory> {};

TEST_P(OutOfMemoryInAFactory, LeavesTheObjectAsItWas) {
    const std::string newKey = k_key + "!";
    const std::string before = dump(*makeObject());
    for (const std::string& key : {newKey, k_key}) {
        const long failures = failEachAllocation(
            makeObject, [&](auto& object) { GetParam().byKey(object.get(), key); },
            [&](const auto& object) { EXPECT_EQ(dump(*object), before); });
        EXPECT_GT(failures, 0);
    }
}

TEST_P(OutOfMemoryInAFactory, LeavesTheArrayAsItWas) {
    const std::string before = dump(*makeArray());
    const long failures = failEachAllocation(
        makeArray, [](auto& array) { GetParam().appended(array.get()); },
        [&](const auto& array) { EXPECT_EQ(dump(*array), before); });
    EXPECT_GT(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Containers, OutOfMemoryInAFactory,
    testing::Values(
        Factory{"Null", [](Element* p, const std::string& k) { return Element::createNull(p, k); },
                [](Element* p) { return Element::createNull(p); }},
        Factory{"Boolean",
                [](Element* p, const std::string& k) { return Element::createBoolean(true, p, k); },
                [](Element* p) { return Element::createBoolean(true, p); }},
        Factory{"Number",
                [](Element* p, const std::string& k) {
                    return Element::createNumber(numberOf(k_text), p, k);
                },
                [](Element* p) { return Element::createNumber(numberOf(k_text), p); }},
        Factory{
            "String",
            [](Element* p, const std::string& k) { return Element::createString(k_text, p, k); },
            [](Element* p) { return Element::createString(k_text, p); }},
        Factory{"Object",
                [](Element* p, const std::string& k) { return Element::createObject(p, k); },
                [](Element* p) { return Element::createObject(p); }},
        Factory{"Array",
                [](Element* p, const std::string& k) { return Element::createArray(p, k); },
                [](Element* p) { return Element::createArray(p); }}),
    k_rowName);

TEST(OutOfMemory, LosesNothingOfACloneThatFails) {
    const auto array = makeArray();
    const auto object = makeObject();
    for (const Element* const source :
         {static_cast<const Element*>(array.get()), static_cast<const Element*>(object.get())}) {
        const std::string before = dump(*source);
        const long failures = failEachAllocation([] { return std::unique_ptr<Element>(); },
                                                 [&](auto& clone) { clone.reset(source->clone()); },
                                                 [&](const auto& clone) {
                                                     EXPECT_EQ(clone, nullptr);
                                                     EXPECT_EQ(dump(*source), before);
                                                 });
        EXPECT_GT(failures, 3);
    }
}

TEST(OutOfMemory, LeavesAnAssignedArrayWithTheItemsCopiedByThen) {
    const auto array = makeArray();
    const std::string empty = "etArray key=\"\" index=- parent=none\n";
    const std::string one = empty + "  etString \"first\" key=\"\" index=- parent=none\n";
    EXPECT_GT(failEachAllocation(
                  makeArray, [&](auto& target) { target->assign(*array); },
                  [&](const auto& target) {
                      EXPECT_THAT(dump(*target), testing::AnyOf(dump(*array), empty, one));
                  }),
              3);
}

TEST(OutOfMemory, LeavesAnAssignedObjectWithTheMembersCopiedByThen) {
    const auto object = makeObject();
    const std::string empty = "etObject key=\"\" index=- parent=none\n";
    const std::string one =
        empty + "  etBoolean true key=\"\" index=- parent=none held as \"first\"\n";
    EXPECT_GT(failEachAllocation(
                  makeObject, [&](auto& target) { target->assign(*object); },
                  [&](const auto& target) {
                      EXPECT_THAT(dump(*target), testing::AnyOf(dump(*object), empty, one));
                  }),
              3);
}

// Taking a tree apart must work where nothing is left to allocate.
TEST(OutOfMemory, DoesNotHinderDestruction) {
    auto array = makeArray();
    auto object = makeObject();
    auto cleared = makeObject();
    FailingNew::s_left = 0;
    array.reset();
    object.reset();
    cleared->clear();
    FailingNew::s_left = FailingNew::k_unlimited;
    EXPECT_EQ(cleared->size(), 0U);
}

}  // namespace
