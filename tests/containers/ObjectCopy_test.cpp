#include <zo/Tessera/Object.h>

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "Witness.h"
#include "support/dump.h"

using namespace zo::Tessera;

namespace {

void addTwo(Object& object) {
    Element::createBoolean(true, &object, "b");
    Element::createString("x", &object, "a");
}

const char* const k_twoUnattachedMembers =
    "etObject key=\"\" index=- parent=none\n"
    "  etBoolean true key=\"\" index=- parent=none held as \"b\"\n"
    "  etString \"x\" key=\"\" index=- parent=none held as \"a\"\n";

TEST(ObjectCopy, LeavesTheCopiesUnattachedButFoundByKey) {
    Object source;
    addTwo(source);
    const Object copy(source);
    EXPECT_EQ(dump(copy), k_twoUnattachedMembers);
    EXPECT_EQ(copy.compare(source), 0);
    EXPECT_NE(&copy.at("a"), &source.at("a"));
    EXPECT_EQ(copy.at("a").getStringValue().value(), "x");
}

TEST(ObjectCopy, IsDetachedWhereverTheSourceStands) {
    Array root;
    Element* const source = Element::createObject(&root);
    addTwo(source->getObjectValue());
    EXPECT_EQ(dump(Object(source->getObjectValue())), k_twoUnattachedMembers);
}

TEST(ObjectCopy, IsIndependentOfTheSource) {
    auto source = std::make_unique<Object>();
    addTwo(*source);
    const Object copy(*source);
    source->at("a").setStringValue("changed");
    Element::createNull(source.get(), "c");
    EXPECT_EQ(dump(copy), k_twoUnattachedMembers);
    source.reset();
    EXPECT_EQ(dump(copy), k_twoUnattachedMembers);
}

TEST(ObjectCopy, AttachesWhatIsInsertedLater) {
    Object source;
    addTwo(source);
    Object copy(source);
    const Element* const added = Element::createNull(&copy, "c");
    EXPECT_EQ(added->parent(), &copy);
    EXPECT_EQ(added->key(), "c");
}

TEST(ObjectAssign, ReplacesTheMembersByUnattachedCopies) {
    Object source;
    addTwo(source);
    Object target;
    Element::createNull(&target, "old");
    Element::createNull(&target, "a");
    EXPECT_EQ(&target.assign(source), &target);
    EXPECT_EQ(dump(target), k_twoUnattachedMembers);
    EXPECT_EQ(target.find("old"), target.end());
    EXPECT_EQ(dump(source),
              "etObject key=\"\" index=- parent=none\n"
              "  etBoolean true key=\"b\" index=- parent=right\n"
              "  etString \"x\" key=\"a\" index=- parent=right\n");
}

TEST(ObjectAssign, KeepsThePlaceOfTheTarget) {
    Array root;
    Object& target = Element::createObject(&root)->getObjectValue();
    target.assign(Object());
    EXPECT_EQ(dump(root),
              "etArray key=\"\" index=- parent=none\n"
              "  etObject key=\"[0]\" index=0 parent=right\n");
}

TEST(ObjectAssign, OfItselfChangesNothing) {
    Object object;
    addTwo(object);
    const Element* const member = &object.at("a");
    const std::string before = dump(object);
    EXPECT_EQ(&object.assign(object), &object);
    EXPECT_EQ(dump(object), before);
    EXPECT_EQ(&object.at("a"), member);
}

TEST(ObjectAssign, OfAnEmptyObjectEmptiesTheTarget) {
    Object object;
    addTwo(object);
    object.assign(Object::k_empty);
    EXPECT_EQ(object.size(), 0U);
    EXPECT_EQ(object.find("a"), object.end());
}

TEST(ObjectAssign, DeletesTheFormerMembersInOrder) {
    std::string log;
    Object object;
    object.insert("b", new Witness("b", log));
    object.insert("a", new Witness("a", log));
    object.assign(Object());
    EXPECT_EQ(log, "~b;~a;");
}

TEST(ObjectAssign, ThatCannotCopyAMemberLeavesThoseCopiedSoFar) {
    Object source;
    Element::createString("copied", &source, "b");
    source.insert("a", new Uncopyable);
    Element::createString("never reached", &source, "c");
    Object target;
    Element::createNull(&target, "old");
    EXPECT_THROW(target.assign(source), int);
    EXPECT_EQ(dump(target),
              "etObject key=\"\" index=- parent=none\n"
              "  etString \"copied\" key=\"\" index=- parent=none held as \"b\"\n");
    EXPECT_EQ(target.find("a"), target.end());
    EXPECT_THROW(Object{source}, int);
}

TEST(ObjectAssign, LeavesNoHalfCopiedMember) {
    Object source;
    Element::createString("copied", &source, "b");
    Element* const inner = Element::createObject(&source, "inner");
    Element::createNull(inner, "n");
    inner->getObjectValue().insert("u", new Uncopyable);
    Object target;
    EXPECT_THROW(target.assign(source), int);
    EXPECT_EQ(dump(target),
              "etObject key=\"\" index=- parent=none\n"
              "  etString \"copied\" key=\"\" index=- parent=none held as \"b\"\n");
    EXPECT_EQ(target.find("inner"), target.end());
}

}  // namespace
