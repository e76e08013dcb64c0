#include <zo/Tessera/Object.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Null.h>

#include "Witness.h"
#include "support/dump.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

static_assert(std::is_same_v<decltype(Object::k_empty), const Object>);
// Wherever the memory comes from.
static_assert(std::is_same_v<Object::iterator,
                             zo::ListMap<std::string, Element*, std::less<std::string>>::iterator>);

/// The keys in order, for example "b a c ".
std::string keys(const Object& object) {
    std::string text;
    for (const auto& member : object) {
        text += member.first + " ";
    }
    return text;
}

TEST(Object, IsDetachedAndEmptyWhenMade) {
    const Object object;
    EXPECT_EQ(dump(object), "etObject key=\"\" index=- parent=none\n");
    EXPECT_EQ(object.type(), etObject);
    EXPECT_EQ(object.size(), 0U);
    EXPECT_EQ(object.begin(), object.end());
}

TEST(Object, SharesAnEmptyOne) {
    EXPECT_EQ(dump(Object::k_empty), "etObject key=\"\" index=- parent=none\n");
    EXPECT_EQ(Object::k_empty.size(), 0U);
}

TEST(Object, AnswersItsOwnGetterWithItself) {
    Object object;
    EXPECT_EQ(&object.getObjectValue(), &object);
    EXPECT_EQ(&std::as_const(object).getObjectValue(), &object);
}

TEST(ObjectInsert, KeepsTheOrderOfInsertion) {
    Object object;
    for (const char* const key : {"b", "a", "c"}) {
        object.insert(key, new Null);
    }
    EXPECT_EQ(keys(object), "b a c ");
    EXPECT_EQ(object.size(), 3U);
}

TEST(ObjectInsert, AttachesTheValueOfANewKey) {
    Object object;
    Element* const value = Element::createString("x");
    const auto [member, isNew] = object.insert("a", value);
    EXPECT_TRUE(isNew);
    EXPECT_EQ(member, object.begin());
    EXPECT_EQ(member->first, "a");
    EXPECT_EQ(member->second, value);
    EXPECT_EQ(dump(object),
              "etObject key=\"\" index=- parent=none\n"
              "  etString \"x\" key=\"a\" index=- parent=right\n");
}

TEST(ObjectInsert, DistinguishesKeysByEveryByte) {
    Object object;
    const std::string texts[] = {"", "a", "A", std::string("a\0", 2), "a ", "\xFF"};
    for (const std::string& key : texts) {
        EXPECT_TRUE(object.insert(key, new Null).second);
    }
    EXPECT_EQ(object.size(), 6U);
    for (const std::string& key : texts) {
        EXPECT_EQ(object.at(key).key(), key);
    }
}

// Only a new key attaches: what replaces a member stays as it came.
TEST(ObjectInsert, ReplacesTheValueInItsPlaceWithoutAttachingTheNewOne) {
    Object object;
    Element::createNull(&object, "b");
    Element::createNull(&object, "a");
    Element* const value = Element::createString("new");
    const auto [member, isNew] = object.insert("b", value);
    EXPECT_FALSE(isNew);
    EXPECT_EQ(member, object.begin());
    EXPECT_EQ(member->second, value);
    EXPECT_EQ(dump(object),
              "etObject key=\"\" index=- parent=none\n"
              "  etString \"new\" key=\"\" index=- parent=none held as \"b\"\n"
              "  etNull key=\"a\" index=- parent=right\n");
}

TEST(ObjectInsert, DeletesTheReplacedValueOnce) {
    std::string log;
    Object object;
    object.insert("a", new Witness("old", log));
    object.insert("a", new Witness("new", log));
    EXPECT_EQ(log, "~old;");
}

TEST(ObjectInsert, OfTheVeryElementThatIsStoredChangesNothing) {
    std::string log;
    Object object;
    Element* const value = new Witness("x", log);
    object.insert("a", value);
    Element::createNull(&object, "b");
    const std::string before = dump(object);
    const auto [member, isNew] = object.insert("a", value);
    EXPECT_FALSE(isNew);
    EXPECT_EQ(member, object.begin());
    EXPECT_EQ(member->second, value);
    EXPECT_EQ(dump(object), before);
    EXPECT_EQ(log, "");
}

TEST(ObjectInsert, TakesAKeyThatLivesInTheReplacedMember) {
    const std::string longKey = "a key that is too long to be kept inside the string";
    Object object;
    auto* const text = new TBasicElement<std::string>(longKey);
    object.insert(longKey, text);
    object.insert(text->value(), new Null);
    EXPECT_EQ(object.at(longKey).type(), etNull);
    object.insert(object.begin()->first, Element::createBoolean(true));
    EXPECT_EQ(object.at(longKey).type(), etBoolean);
    EXPECT_EQ(object.size(), 1U);
}

TEST(ObjectInsert, RefusesANullValue) {
    Object object;
    Element::createString("kept", &object, "a");
    const std::string before = dump(object);
    EXPECT_EQ(thrown<Exception>([&] { object.insert("new", nullptr); }),
              "Null pointer exception: child may not be null");
    EXPECT_EQ(thrown<Exception>([&] { object.insert("a", nullptr); }),
              "Null pointer exception: child may not be null");
    EXPECT_EQ(dump(object), before);
}

TEST(ObjectAt, GivesTheMember) {
    Object object;
    Element* const a = Element::createNull(&object, "a");
    EXPECT_EQ(&object.at("a"), a);
    EXPECT_EQ(&std::as_const(object).at("a"), a);
}

TEST(ObjectAt, ThrowsForAMissingKey) {
    Object object;
    Element::createNull(&object, "y");
    EXPECT_EQ(thrown<Exception>([&] { object.at("x"); }), "Object does not contain \"x\"");
    EXPECT_EQ(thrown<Exception>([&] { std::as_const(object).at("x"); }),
              "Object does not contain \"x\"");
    EXPECT_EQ(thrown<Exception>([] { Object::k_empty.at(""); }), "Object does not contain \"\"");
    EXPECT_EQ(keys(object), "y ");
}

TEST(ObjectFind, GivesTheMemberOrTheEnd) {
    Object object;
    Element* const a = Element::createNull(&object, "a");
    ASSERT_NE(object.find("a"), object.end());
    EXPECT_EQ(object.find("a")->second, a);
    EXPECT_EQ(object.find("b"), object.end());
    const Object& constObject = object;
    ASSERT_NE(constObject.find("a"), constObject.end());
    EXPECT_EQ(constObject.find("a")->second, a);
    EXPECT_EQ(constObject.find("b"), constObject.end());
}

TEST(ObjectClear, DeletesTheMembersInTheOrderOfInsertion) {
    std::string log;
    Object object;
    for (const char* const key : {"b", "a", "c"}) {
        object.insert(key, new Witness(key, log));
    }
    object.clear();
    EXPECT_EQ(log, "~b;~a;~c;");
    EXPECT_EQ(object.size(), 0U);
    EXPECT_EQ(object.find("a"), object.end());
}

TEST(ObjectClear, LeavesAnObjectThatTakesMembersAgain) {
    Object root;
    Object& object = Element::createObject(&root, "o")->getObjectValue();
    Element::createNull(&object, "a");
    object.clear();
    object.clear();
    Element::createBoolean(true, &object, "c");
    Element::createNull(&object, "a");
    EXPECT_EQ(dump(root),
              "etObject key=\"\" index=- parent=none\n"
              "  etObject key=\"o\" index=- parent=right\n"
              "    etBoolean true key=\"c\" index=- parent=right\n"
              "    etNull key=\"a\" index=- parent=right\n");
}

}  // namespace
