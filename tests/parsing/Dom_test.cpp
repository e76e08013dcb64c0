#include <zo/Tessera/Dom.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include <zo/Tessera.h>

#include "parsing/Mourned.h"
#include "parsing/stateOf.h"
#include "support/dump.h"

namespace {

using namespace std::string_literals;
using zo::Tessera::Dom;
using zo::Tessera::DomParser;
using zo::Tessera::Element;

static_assert(std::has_virtual_destructor_v<Dom>);
static_assert(std::is_copy_constructible_v<Dom>);
static_assert(std::is_copy_assignable_v<Dom>);
static_assert(std::is_same_v<decltype(std::declval<Dom&>().root()), Element*>);
static_assert(std::is_same_v<decltype(std::declval<const Dom&>().root()), const Element*>);
static_assert(std::is_same_v<decltype(std::declval<Dom&>().takeRoot()), std::unique_ptr<Element>>);

const char k_text[] = R"({"a":[1.50,{"b":null}],"c":"x"})";

const char k_tree[] = R"(etObject key="" index=- parent=none
  etArray key="a" index=- parent=right
    etNumber 1.50 key="[0]" index=0 parent=right
    etObject key="[1]" index=1 parent=right
      etNull key="b" index=- parent=right
  etString "x" key="c" index=- parent=right
)";

// The children of a copied container are owned but not attached.
const char k_copiedTree[] = R"(etObject key="" index=- parent=none
  etArray key="" index=- parent=none held as "a"
    etNumber 1.50 key="" index=- parent=none
    etObject key="" index=- parent=none
      etNull key="" index=- parent=none held as "b"
  etString "x" key="" index=- parent=none held as "c"
)";

Dom domOf(const std::string& text) {
    Dom dom;
    DomParser().parse(dom, text);
    return dom;
}

/// The document of `k_text` with settings of its own.
class FilledDom : public testing::Test {
protected:
    FilledDom() {
        DomParser().parse(m_dom, k_text, sizeof k_text - 1);
        m_dom.setIncludeMeta(false);
        m_dom.setMetaKey("about");
    }

    Dom m_dom;
};

TEST(DefaultDom, IsEmptyAndWritesItsMetaMember) {
    EXPECT_EQ(stateOf(Dom()), "no root\nwith meta");
    EXPECT_EQ(Dom::k_defaultMetaKey, "meta");
}

TEST(DomSettings, AreKeptAsSet) {
    Dom dom;
    dom.setIncludeMeta(false);
    dom.setMetaKey("\xFF\0k"s);
    EXPECT_FALSE(dom.includeMeta());
    EXPECT_EQ(dom.metaKey(), "\xFF\0k"s);
    dom.setIncludeMeta(true);
    dom.setMetaKey("");
    EXPECT_TRUE(dom.includeMeta());
    EXPECT_EQ(dom.metaKey(), "");
}

TEST(DomDestructor, DeletesTheRoot) {
    bool gone = false;
    auto dom = std::make_unique<Dom>();
    dom->setRoot(new Mourned(gone));
    EXPECT_FALSE(gone);
    dom.reset();
    EXPECT_TRUE(gone);
}

TEST_F(FilledDom, IsCopiedDeeply) {
    const Dom copy(m_dom);
    EXPECT_EQ(stateOf(copy), std::string(k_copiedTree) + "without about");
    m_dom.root()->at("c").setStringValue("changed"s);
    m_dom.setMetaKey("changed");
    EXPECT_EQ(stateOf(copy), std::string(k_copiedTree) + "without about");
}

TEST_F(FilledDom, IsLeftAsItIsByCopying) {
    const Dom copy(m_dom);
    EXPECT_NE(copy.root(), m_dom.root());
    EXPECT_EQ(stateOf(m_dom), std::string(k_tree) + "without about");
}

TEST(DomCopy, OfAnEmptyOneIsEmpty) {
    Dom dom;
    dom.setIncludeMeta(false);
    EXPECT_EQ(stateOf(Dom(dom)), "no root\nwithout meta");
}

TEST_F(FilledDom, IsAssignedDeeply) {
    Dom target;
    EXPECT_EQ(&(target = m_dom), &target);
    EXPECT_EQ(stateOf(target), std::string(k_copiedTree) + "without about");
    EXPECT_NE(target.root(), m_dom.root());
    EXPECT_EQ(stateOf(m_dom), std::string(k_tree) + "without about");
}

TEST_F(FilledDom, IsUnchangedByAssignmentToItself) {
    const Element* const root = m_dom.root();
    const Dom& self = m_dom;
    EXPECT_EQ(&(m_dom = self), &m_dom);
    EXPECT_EQ(m_dom.root(), root);
    EXPECT_EQ(stateOf(m_dom), std::string(k_tree) + "without about");
}

TEST_F(FilledDom, IsEmptiedByAssignmentOfAnEmptyOne) {
    m_dom = Dom();
    EXPECT_EQ(stateOf(m_dom), "no root\nwith meta");
}

TEST_F(FilledDom, DeletesTheTargetsFormerRootWhenAssigned) {
    bool gone = false;
    Dom target;
    target.setRoot(new Mourned(gone));
    target = m_dom;
    EXPECT_TRUE(gone);
}

TEST(SetRootPointer, TakesTheElementOverAndDeletesTheFormerRoot) {
    bool gone = false;
    Dom dom;
    dom.setRoot(new Mourned(gone));
    auto root = zo::Tessera::value("x");
    const Element* const address = root.get();
    dom.setRoot(root.release());
    EXPECT_TRUE(gone);
    EXPECT_EQ(dom.root(), address);
}

TEST_F(FilledDom, IsEmptiedByANullRootButKeepsItsSettings) {
    m_dom.setRoot(nullptr);
    EXPECT_EQ(stateOf(m_dom), "no root\nwithout about");
    m_dom.setRoot(nullptr);
    EXPECT_EQ(m_dom.root(), nullptr);
}

TEST(SetRootPointer, IsHarmlessWithTheCurrentRoot) {
    bool gone = false;
    Dom dom;
    dom.setRoot(new Mourned(gone));
    Element* const root = dom.root();
    dom.setRoot(root);
    EXPECT_FALSE(gone);
    EXPECT_EQ(dom.root(), root);
}

TEST(SetRootOwner, TakesTheElementOverAndDeletesTheFormerRoot) {
    bool gone = false;
    Dom dom;
    dom.setRoot(std::make_unique<Mourned>(gone));
    auto root = zo::Tessera::array();
    const Element* const address = root.get();
    dom.setRoot(std::move(root));
    EXPECT_TRUE(gone);
    EXPECT_EQ(dom.root(), address);
}

TEST_F(FilledDom, IsEmptiedByAnOwnerOfNothing) {
    m_dom.setRoot(std::unique_ptr<Element>());
    EXPECT_EQ(m_dom.root(), nullptr);
}

TEST(SetRootReference, CopiesTheElementAndDeletesTheFormerRoot) {
    bool gone = false;
    Dom dom;
    dom.setRoot(new Mourned(gone));
    const Dom source = domOf(R"([{"k":1}])");
    dom.setRoot(*source.root());
    EXPECT_TRUE(gone);
    EXPECT_NE(dom.root(), source.root());
    EXPECT_EQ(dump(*dom.root()), R"(etArray key="" index=- parent=none
  etObject key="" index=- parent=none
    etNumber 1 key="" index=- parent=none held as "k"
)");
}

TEST_F(FilledDom, TakesACopyOfAPartOfItself) {
    m_dom.setRoot(static_cast<const Element&>(m_dom.root()->at("a").at(1UL)));
    EXPECT_EQ(stateOf(m_dom), R"(etObject key="" index=- parent=none
  etNull key="" index=- parent=none held as "b"
without about)");
}

TEST_F(FilledDom, TakesACopyOfItsOwnRoot) {
    m_dom.setRoot(*m_dom.root());
    EXPECT_EQ(stateOf(m_dom), std::string(k_copiedTree) + "without about");
}

TEST_F(FilledDom, IsLeftEmptyByTakingTheRoot) {
    const Element* const address = m_dom.root();
    const std::unique_ptr<Element> root = m_dom.takeRoot();
    EXPECT_EQ(root.get(), address);
    EXPECT_EQ(stateOf(m_dom), "no root\nwithout about");
    EXPECT_EQ(dump(*root), k_tree);
}

TEST(TakeRoot, LeavesTheTreeToTheCallerWhenTheDocumentGoes) {
    bool gone = false;
    auto dom = std::make_unique<Dom>();
    dom->setRoot(new Mourned(gone));
    std::unique_ptr<Element> root = dom->takeRoot();
    dom.reset();
    EXPECT_FALSE(gone);
    root.reset();
    EXPECT_TRUE(gone);
}

TEST(TakeRoot, GivesNothingFromAnEmptyDocument) {
    EXPECT_EQ(Dom().takeRoot(), nullptr);
}

TEST(DomTree, OfGreatDepthIsCopiedComparedAndDeleted) {
    const Dom dom = domOf(std::string(100000, '[') + std::string(100000, ']'));
    const Dom other = domOf(std::string(100000, '[') + "1" + std::string(100000, ']'));
    Dom copy(dom);
    EXPECT_TRUE(copy == dom);
    EXPECT_TRUE(other != dom);
    copy = other;
    EXPECT_TRUE(copy == other);
    copy.setRoot(*dom.root());
    EXPECT_TRUE(copy == dom);
    EXPECT_NE(copy.takeRoot(), nullptr);
}

}  // namespace
