#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "support/dump.h"
#include "support/inPlace.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

// What may not be put into a container, whatever puts it there.

namespace {

using Owner = std::unique_ptr<Element>;

/// A way to put an element into a container of the kind that `json` describes.
struct Entrance {
    const char* name;
    const char* json;
    void (*put)(Element& container, Owner& owner);
    const char* after;  // with a null in it
    const char* nullName = "child";
};

/// Calls with the pointer alone; the owner keeps the element unless that is taken over.
template <class Put>
void putPointer(Owner& owner, const Put& put) {
    put(owner.get());
    static_cast<void>(owner.release());
}

const Entrance k_entrances[] = {
    {"ArrayInsert", "[1, [2]]",
     [](Element& container, Owner& owner) {
         putPointer(owner, [&](Element* e) { container.getArrayValue().insert(1, e); });
     },
     "[1, null, [2]]"},
    {"ArrayInsertByOwner", "[1, [2]]",
     [](Element& container, Owner& owner) {
         container.getArrayValue().insert(2, std::move(owner));
     },
     "[1, [2], null]"},
    {"ArrayReplace", "[1, [2]]",
     [](Element& container, Owner& owner) {
         putPointer(owner, [&](Element* e) { container.getArrayValue().replace(0, e); });
     },
     "[null, [2]]"},
    {"ArrayReplaceByOwner", "[1, [2]]",
     [](Element& container, Owner& owner) {
         container.getArrayValue().replace(0, std::move(owner));
     },
     "[null, [2]]"},
    {"ObjectReplace", R"({"k": 1, "l": [2]})",
     [](Element& container, Owner& owner) {
         putPointer(owner, [&](Element* e) { container.getObjectValue().replace("k", e); });
     },
     R"({"k": null, "l": [2]})"},
    {"ObjectReplaceByOwner", R"({"k": 1, "l": [2]})",
     [](Element& container, Owner& owner) {
         container.getObjectValue().replace("k", std::move(owner));
     },
     R"({"k": null, "l": [2]})"},
    {"ObjectReplaceOfANewKey", R"({"k": 1, "l": [2]})",
     [](Element& container, Owner& owner) {
         putPointer(owner, [&](Element* e) { container.getObjectValue().replace("new", e); });
     },
     R"({"k": 1, "l": [2], "new": null})"},
    {"ObjectReplaceOfANewKeyByOwner", R"({"k": 1, "l": [2]})",
     [](Element& container, Owner& owner) {
         container.getObjectValue().replace("new", std::move(owner));
     },
     R"({"k": 1, "l": [2], "new": null})"},
    {"SetOfAMember", R"({"k": 1, "l": [2]})",
     [](Element& container, Owner& owner) { container.set("k", std::move(owner)); },
     R"({"k": null, "l": [2]})", "element"},
    {"SetOfANewMember", R"({"k": 1, "l": [2]})",
     [](Element& container, Owner& owner) { container.set("new", std::move(owner)); },
     R"({"k": 1, "l": [2], "new": null})", "element"},
    {"SetOfAnItem", "[1, [2]]",
     [](Element& container, Owner& owner) { container.set("[0]", std::move(owner)); },
     "[null, [2]]", "element"},
    {"SetOfANewItem", "[1, [2]]",
     [](Element& container, Owner& owner) { container.set("[*]", std::move(owner)); },
     "[1, [2], null]", "element"},
    {"SetThatCreatesWhatIsMissing", R"({"k": 1, "l": [2]})",
     [](Element& container, Owner& owner) { container.set("new.x[0].y", std::move(owner)); },
     R"({"k": 1, "l": [2], "new": {"x": [{"y": null}]}})", "element"},
};

class AttachRefusal : public testing::TestWithParam<Entrance> {
protected:
    /// The text of the exception; the owner keeps its element.
    std::string refused(Element& container, Owner& owner) {
        const Element* const element = owner.get();
        elementPath = "none";
        const std::string text = thrown<Exception>([&] {
            try {
                GetParam().put(container, owner);
            } catch (const Exception& exception) {
                elementPath = exception.elementPath() ? *exception.elementPath() : elementPath;
                throw;
            }
        });
        EXPECT_EQ(owner.get(), element);
        return text;
    }

    /// The same for an element that another container owns.
    std::string refused(Element& container, Element& element) {
        Owner owner(&element);
        const std::string text = refused(container, owner);
        static_cast<void>(owner.release());
        return text;
    }

    Owner container() const { return parsed(GetParam().json); }

    std::string elementPath;  // the one that the last exception named
};

INSTANTIATE_TEST_SUITE_P(Containers, AttachRefusal, testing::ValuesIn(k_entrances), k_rowName);

TEST_P(AttachRefusal, IsForNull) {
    const Owner target = container();
    Owner none;
    EXPECT_EQ(refused(*target, none),
              std::string("Null pointer exception: ") + GetParam().nullName + " may not be null");
    EXPECT_EQ(dump(*target), inPlace(GetParam().json));
}

TEST_P(AttachRefusal, IsForAnElementOfAnotherTree) {
    const Owner target = container();
    const Owner other = parsed(R"({"a": [0, {"b": true}]})");
    EXPECT_EQ(refused(*target, other->get("a[1].b")), "Element has a parent already");
    EXPECT_EQ(elementPath, "a[1].b");
    EXPECT_EQ(dump(*target), inPlace(GetParam().json));
    EXPECT_EQ(dump(*other), inPlace(R"({"a": [0, {"b": true}]})"));
}

TEST_P(AttachRefusal, IsForAnotherChildOfTheSameContainer) {
    const Owner target = container();
    const bool isArray = target->type() == etArray;
    Element& sibling = isArray ? target->at(1) : target->at("l");
    EXPECT_EQ(refused(*target, sibling), "Element has a parent already");
    EXPECT_EQ(elementPath, isArray ? "[1]" : "l");
    EXPECT_EQ(refused(*target, sibling.at(0)), "Element has a parent already");
    EXPECT_EQ(dump(*target), inPlace(GetParam().json));
}

TEST_P(AttachRefusal, IsForTheContainerItself) {
    const Owner target = container();
    EXPECT_EQ(refused(*target, *target), "Element cannot be put into itself");
    EXPECT_EQ(elementPath, "");
    EXPECT_EQ(dump(*target), inPlace(GetParam().json));
}

TEST_P(AttachRefusal, IsForAContainerAroundTheTarget) {
    const Owner root = parsed(std::string(R"([[{"in": )") + GetParam().json + "}]]");
    Element& target = root->get("[0][0].in");
    EXPECT_EQ(refused(target, *root), "Element cannot be put into itself");
    EXPECT_EQ(elementPath, "");
    EXPECT_EQ(refused(target, root->at(0)), "Element has a parent already");
    EXPECT_EQ(refused(target, target), "Element has a parent already");
    EXPECT_EQ(elementPath, "[0][0].in");
    EXPECT_EQ(dump(*root), inPlace(std::string(R"([[{"in": )") + GetParam().json + "}]]"));
}

TEST_P(AttachRefusal, IsNotForAnElementThatNobodyHolds) {
    const Owner target = container();
    Owner owner = value();
    GetParam().put(*target, owner);
    EXPECT_EQ(owner, nullptr);
    EXPECT_EQ(dump(*target), inPlace(GetParam().after));
}

TEST(AttachRefusalOfAnEmptyContainer, IsForItself) {
    const Owner list = array();
    EXPECT_EQ(thrown<Exception>([&] { list->getArrayValue().insert(0, list.get()); }),
              "Element cannot be put into itself");
    const Owner members = object();
    EXPECT_EQ(thrown<Exception>([&] { members->getObjectValue().replace("k", members.get()); }),
              "Element cannot be put into itself");
    EXPECT_EQ(dump(*list), inPlace("[]"));
    EXPECT_EQ(dump(*members), inPlace("{}"));
}

// Nothing in a copy knows its parent; the way that a path takes still shows what stands around.
TEST(AttachRefusalOfACopiedTree, IsForWhatThePathLeadsThrough) {
    Owner root(parsed(R"({"a": {"b": {}}})")->clone());
    const std::string before = dump(*root);
    Element& tree = *root;
    for (const char* const path : {"a.b.c", "a.b", "a.x", "a.b.c.d[0]", "a.x.y"}) {
        EXPECT_EQ(thrown<Exception>([&] { tree.set(path, std::move(root)); }),
                  "Element cannot be put into itself")
            << path;
    }
    EXPECT_EQ(dump(*root), before);
}

}  // namespace
