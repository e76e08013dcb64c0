#include <zo/Tessera/Dom.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include <zo/Tessera/Element.h>

#include "parsing/Mourned.h"
#include "parsing/stateOf.h"
#include "support/dump.h"
#include "support/inPlace.h"
#include "support/parsed.h"

using zo::Tessera::Dom;
using zo::Tessera::Element;

namespace {

static_assert(std::is_nothrow_move_constructible_v<Dom>);
static_assert(std::is_nothrow_move_assignable_v<Dom>);

const char* const k_json = R"({"a": [1.50, {"b": null}], "c": "x"})";

class MovedDom : public testing::Test {
protected:
    MovedDom() {
        source.setRoot(parsed(k_json));
        source.setIncludeMeta(false);
        source.setMetaKey("a key that is too long to be kept inside the string");
    }

    const std::string state =
        inPlace(k_json) + "without a key that is too long to be kept inside the string";
    Dom source;
};

TEST_F(MovedDom, HandsTreeAndSettingsOver) {
    const Element* const root = source.root();
    const Dom target(std::move(source));
    EXPECT_EQ(target.root(), root);
    EXPECT_EQ(stateOf(target), state);
}

TEST_F(MovedDom, HandsThemOverByAssignment) {
    const Element* const root = source.root();
    Dom target;
    EXPECT_EQ(&(target = std::move(source)), &target);
    EXPECT_EQ(target.root(), root);
    EXPECT_EQ(stateOf(target), state);
}

TEST_F(MovedDom, IsLeftAsANewDocument) {
    const Dom target(std::move(source));
    EXPECT_EQ(stateOf(source), stateOf(Dom()));
    Dom other;
    source.setRoot(parsed("[]"));
    source.setIncludeMeta(false);
    source.setMetaKey("short");
    other = std::move(source);
    EXPECT_EQ(stateOf(source), stateOf(Dom()));
    EXPECT_EQ(stateOf(other), inPlace("[]") + "without short");
}

TEST_F(MovedDom, MayBeUsedAgain) {
    Dom target(std::move(source));
    source = std::move(target);
    EXPECT_EQ(stateOf(source), state);
    target.setRoot(parsed("[]"));
    EXPECT_EQ(stateOf(target), inPlace("[]") + "with meta");
}

TEST_F(MovedDom, IsUnchangedByAssignmentToItself) {
    const Element* const root = source.root();
    Dom& self = source;
    source = std::move(self);
    EXPECT_EQ(source.root(), root);
    EXPECT_EQ(stateOf(source), state);
}

TEST_F(MovedDom, DeletesTheTargetsFormerRoot) {
    bool gone = false;
    Dom target;
    target.setRoot(new Mourned(gone));
    target = std::move(source);
    EXPECT_TRUE(gone);
    EXPECT_EQ(stateOf(target), state);
}

TEST_F(MovedDom, EmptiesTheTargetWhenEmpty) {
    source = Dom();
    EXPECT_EQ(stateOf(source), "no root\nwith meta");
}

TEST_F(MovedDom, DeletesItsRootOnce) {
    bool gone = false;
    {
        Dom first;
        first.setRoot(new Mourned(gone));
        const Dom second(std::move(first));
        first = Dom();
        EXPECT_FALSE(gone);
    }
    EXPECT_TRUE(gone);
}

}  // namespace
