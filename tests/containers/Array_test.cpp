#include <zo/Tessera/Array.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>

#include "Witness.h"
#include "support/dump.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

static_assert(std::is_same_v<decltype(Array::k_empty), const Array>);
static_assert(std::is_same_v<decltype(*std::declval<Array&>().begin()), Element*&>);

void addTwo(Array& array) {
    Element::createBoolean(true, &array);
    Element::createString("x", &array);
}

const char* const k_twoUnattachedItems =
    "etArray key=\"\" index=- parent=none\n"
    "  etBoolean true key=\"\" index=- parent=none\n"
    "  etString \"x\" key=\"\" index=- parent=none\n";

TEST(Array, IsDetachedAndEmptyWhenMade) {
    const Array array;
    EXPECT_EQ(dump(array), "etArray key=\"\" index=- parent=none\n");
    EXPECT_EQ(array.type(), etArray);
    EXPECT_EQ(array.size(), 0U);
    EXPECT_EQ(array.begin(), array.end());
}

TEST(Array, SharesAnEmptyOne) {
    EXPECT_EQ(dump(Array::k_empty), "etArray key=\"\" index=- parent=none\n");
    EXPECT_EQ(Array::k_empty.size(), 0U);
}

TEST(Array, AnswersItsOwnGetterWithItself) {
    Array array;
    EXPECT_EQ(&array.getArrayValue(), &array);
    EXPECT_EQ(&std::as_const(array).getArrayValue(), &array);
}

TEST(ArrayPushBack, AttachesEachChildAtItsPosition) {
    Array array;
    for (int i = 0; i < 3; ++i) {
        array.push_back(Element::createNull());
    }
    EXPECT_EQ(array.size(), 3U);
    EXPECT_EQ(dump(array),
              "etArray key=\"\" index=- parent=none\n"
              "  etNull key=\"[0]\" index=0 parent=right\n"
              "  etNull key=\"[1]\" index=1 parent=right\n"
              "  etNull key=\"[2]\" index=2 parent=right\n");
}

TEST(ArrayPushBack, TakesTheChildOverAsItIs) {
    Array array;
    Element* const child = Element::createString("x");
    array.push_back(child);
    EXPECT_EQ(&array.at(0), child);
    EXPECT_EQ(child->parent(), &array);
}

TEST(ArrayPushBack, CountsUnattachedChildrenToo) {
    Array source;
    addTwo(source);
    Array array(source);
    const Element* const added = Element::createNull(&array);
    EXPECT_EQ(added->index(), 2U);
}

TEST(ArrayPushBack, RefusesANullChild) {
    Array array;
    Element::createNull(&array);
    EXPECT_EQ(thrown<Exception>([&] { array.push_back(nullptr); }),
              "Null pointer exception: child may not be null");
    EXPECT_EQ(dump(array),
              "etArray key=\"\" index=- parent=none\n"
              "  etNull key=\"[0]\" index=0 parent=right\n");
}

TEST(ArrayIteration, GivesTheChildrenInOrder) {
    Array array;
    Element* const first = Element::createNull(&array);
    Element* const second = Element::createNull(&array);
    EXPECT_EQ(std::vector<Element*>(array.begin(), array.end()),
              (std::vector<Element*>{first, second}));
    const Array& constArray = array;
    EXPECT_EQ(std::vector<Element*>(constArray.begin(), constArray.end()),
              (std::vector<Element*>{first, second}));
}

TEST(ArrayIteration, KeepsAChildsAddressWhileOthersAreAdded) {
    Array array;
    const Element* const first = Element::createNull(&array);
    for (int i = 0; i < 1000; ++i) {
        Element::createNull(&array);
    }
    EXPECT_EQ(&array.at(0), first);
    EXPECT_EQ(array.at(1000).index(), 1000U);
    EXPECT_EQ(array.size(), 1001U);
}

TEST(ArrayCopy, LeavesTheCopiesUnattached) {
    Array source;
    addTwo(source);
    const Array copy(source);
    EXPECT_EQ(dump(copy), k_twoUnattachedItems);
    EXPECT_EQ(copy.compare(source), 0);
    EXPECT_NE(&copy.at(0), &source.at(0));
}

TEST(ArrayCopy, IsDetachedWhereverTheSourceStands) {
    Object root;
    Element* const source = Element::createArray(&root, "a");
    addTwo(source->getArrayValue());
    EXPECT_EQ(dump(Array(source->getArrayValue())), k_twoUnattachedItems);
}

TEST(ArrayCopy, IsIndependentOfTheSource) {
    auto source = std::make_unique<Array>();
    addTwo(*source);
    const Array copy(*source);
    source->at(1).setStringValue("changed");
    Element::createNull(source.get());
    EXPECT_EQ(dump(copy), k_twoUnattachedItems);
    source.reset();
    EXPECT_EQ(dump(copy), k_twoUnattachedItems);
}

TEST(ArrayAssign, ReplacesTheChildrenByUnattachedCopies) {
    Array source;
    addTwo(source);
    Array target;
    Element::createNull(&target);
    EXPECT_EQ(&target.assign(source), &target);
    EXPECT_EQ(dump(target), k_twoUnattachedItems);
    EXPECT_EQ(dump(source),
              "etArray key=\"\" index=- parent=none\n"
              "  etBoolean true key=\"[0]\" index=0 parent=right\n"
              "  etString \"x\" key=\"[1]\" index=1 parent=right\n");
}

TEST(ArrayAssign, KeepsThePlaceOfTheTarget) {
    Object root;
    Array source;
    Array& target = Element::createArray(&root, "t")->getArrayValue();
    target.assign(source);
    EXPECT_EQ(dump(root),
              "etObject key=\"\" index=- parent=none\n"
              "  etArray key=\"t\" index=- parent=right\n");
}

TEST(ArrayAssign, OfItselfChangesNothing) {
    Array array;
    addTwo(array);
    const Element* const first = &array.at(0);
    const std::string before = dump(array);
    EXPECT_EQ(&array.assign(array), &array);
    EXPECT_EQ(dump(array), before);
    EXPECT_EQ(&array.at(0), first);
}

TEST(ArrayAssign, OfAnEmptyArrayEmptiesTheTarget) {
    Array array;
    addTwo(array);
    array.assign(Array::k_empty);
    EXPECT_EQ(array.size(), 0U);
    EXPECT_EQ(Element::createNull(&array)->index(), 0U);
}

TEST(ArrayAssign, DeletesTheFormerChildrenInOrder) {
    std::string log;
    Array array;
    array.push_back(new Witness("a", log));
    array.push_back(new Witness("b", log));
    array.assign(Array());
    EXPECT_EQ(log, "~a;~b;");
}

TEST(ArrayAssign, ThatCannotCopyAChildLeavesThoseCopiedSoFar) {
    Array source;
    Element::createString("copied", &source);
    source.push_back(new Uncopyable);
    Element::createString("never reached", &source);
    Array target;
    Element::createNull(&target);
    Element::createNull(&target);
    EXPECT_THROW(target.assign(source), int);
    EXPECT_EQ(dump(target),
              "etArray key=\"\" index=- parent=none\n"
              "  etString \"copied\" key=\"\" index=- parent=none\n");
    EXPECT_THROW(Array{source}, int);
}

TEST(ArrayAssign, LeavesNoHalfCopiedChild) {
    Array source;
    Element::createString("copied", &source);
    Element* const inner = Element::createArray(&source);
    Element::createNull(inner);
    inner->getArrayValue().push_back(new Uncopyable);
    Array target;
    EXPECT_THROW(target.assign(source), int);
    EXPECT_EQ(dump(target),
              "etArray key=\"\" index=- parent=none\n"
              "  etString \"copied\" key=\"\" index=- parent=none\n");
}

}  // namespace
