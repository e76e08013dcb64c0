#include <zo/Tessera/Element.h>

#include <memory>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/TBasicElement.h>

#include "BareElement.h"

using namespace zo::Tessera;

namespace {

static_assert(std::is_abstract_v<Element>);
static_assert(std::has_virtual_destructor_v<Element>);
static_assert(!std::is_copy_assignable_v<Element>);

// The getters and setters of a bare element stand in the tables of the getters and setters.

TEST(BareElement, IsDetachedWhenMade) {
    const BareElement element(etEmpty);
    EXPECT_EQ(element.parent(), nullptr);
    EXPECT_EQ(element.key(), "");
    EXPECT_EQ(element.index(), Path::k_noIndex);
}

TEST(BareElement, IsDetachedWhenCopied) {
    Array array;
    const BareElement* const item = new BareElement(etEmpty, &array);
    const BareElement copy(*item);
    EXPECT_EQ(copy.parent(), nullptr);
    EXPECT_EQ(copy.key(), "");
    EXPECT_EQ(copy.index(), Path::k_noIndex);
    EXPECT_EQ(item->parent(), &array);
}

TEST(BareElement, ComparesAsEqualToEverything) {
    const BareElement element(etNumber);
    EXPECT_EQ(element.compare(element), 0);
    EXPECT_EQ(element.compare(Null()), 0);
    EXPECT_EQ(element.compare(TBasicElement<bool>(true)), 0);
    EXPECT_EQ(element.compare(TBasicElement<std::string>("b")), 0);
    EXPECT_EQ(element.compare(Object()), 0);
    EXPECT_EQ(element.compare(Array()), 0);
}

// Kinds are compared as signed values, so "no element" sorts before null.
TEST(BareElement, OfKindEmptySortsBeforeEveryElement) {
    const BareElement empty(etEmpty);
    for (const EType kind : {etNull, etBoolean, etNumber, etString, etObject, etArray}) {
        const std::unique_ptr<const Element> element(Element::create(kind));
        EXPECT_EQ(element->compare(empty), 1) << kind;
    }
}

TEST(BareElement, OfAKindPastTheLastSortsAfterEveryElement) {
    const BareElement past(static_cast<EType>(6));
    for (const EType kind : {etNull, etBoolean, etNumber, etString, etObject, etArray}) {
        const std::unique_ptr<const Element> element(Element::create(kind));
        EXPECT_EQ(element->compare(past), -1) << kind;
    }
}

TEST(BareElement, NamesItsKindAsWritten) {
    EXPECT_EQ(BareElement(etEmpty).typeName(), "etEmpty");
    EXPECT_EQ(BareElement(static_cast<EType>(6)).typeName(), ">>INVALID<<");
}

/// Says to be null and passes children on to an object of its own. A child that replaces a member
/// there keeps this element as its parent.
class Facade : public BareElement {
public:
    Facade() : BareElement(etNull) { Element::createNull(&m_object, "a"); }
    using Element::getObjectValue;
    Object& getObjectValue() override { return m_object; }

private:
    Object m_object;
};

TEST(Key, IsEmptyUnderAParentThatIsNoContainer) {
    Facade facade;
    const Element* const child = Element::createBoolean(true, &facade, "a");
    ASSERT_EQ(child->parent(), &facade);
    EXPECT_EQ(child->key(), "");
}

/// An object that says to be of no kind.
class OddObject : public Object {
public:
    EType type() const override { return static_cast<EType>(6); }
};

TEST(Key, IsEmptyUnderAParentOfAnotherKindThoughThereIsOne) {
    OddObject odd;
    const Element* const child = Element::createArray(&odd, "a");
    ASSERT_EQ(child->parent(), &odd);
    ASSERT_EQ(odd.begin()->first, "a");
    EXPECT_EQ(child->key(), "");
    EXPECT_EQ(child->path(nullptr), "");
}

TEST(ElementPath, LeavesOutAParentThatIsNoContainer) {
    Facade facade;
    Element* const list = Element::createArray(&facade, "a");
    const Element* const item = Element::createNull(list);
    ASSERT_EQ(list->parent(), &facade);
    EXPECT_EQ(list->path(nullptr), "");
    EXPECT_EQ(item->path(nullptr), "[0]");
    EXPECT_EQ(&item->root(), &facade);
}

TEST(AttachingConstructors, AskTheParentsVirtualGetter) {
    Facade facade;
    const Element* const child = Element::createNull(&facade, "new");
    EXPECT_EQ(child->parent(), &facade.getObjectValue());
    EXPECT_EQ(child->key(), "new");
}

}  // namespace
