#include <zo/Tessera/Object.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/TBasicElement.h>

#include "LastWords.h"
#include "support/dump.h"
#include "support/inPlace.h"
#include "support/parsed.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using Owner = std::unique_ptr<Element>;

static_assert(std::is_same_v<decltype(std::declval<Object&>().take("")), Owner>);
static_assert(std::is_same_v<decltype(std::declval<Object&>().tryAt("")), Element*>);
static_assert(std::is_same_v<decltype(std::declval<const Object&>().tryAt("")), const Element*>);

const std::string k_long = "a key that is too long to be kept inside the string";

class ObjectEditing : public testing::Test {
protected:
    const Owner root = parsed(R"({"o": {"b": 1, "a": [2], "c": {"k": 3}}})");
    Object& object = root->at("o").getObjectValue();
};

TEST_F(ObjectEditing, ErasesAtEveryPlace) {
    EXPECT_TRUE(object.erase("a"));
    EXPECT_EQ(dump(*root), inPlace(R"({"o": {"b": 1, "c": {"k": 3}}})"));
    EXPECT_TRUE(object.erase("b"));
    EXPECT_EQ(dump(*root), inPlace(R"({"o": {"c": {"k": 3}}})"));
    EXPECT_TRUE(object.erase("c"));
    EXPECT_EQ(dump(*root), inPlace(R"({"o": {}})"));
    EXPECT_EQ(object.find("c"), object.end());
}

TEST_F(ObjectEditing, ErasesNothingForAMissingKey) {
    const std::string before = dump(*root);
    EXPECT_FALSE(object.erase("d"));
    EXPECT_FALSE(object.erase(""));
    EXPECT_EQ(dump(*root), before);
}

TEST_F(ObjectEditing, PutsAnErasedKeyLastWhenItComesAgain) {
    object.erase("b");
    object.insert("b", Element::createNull());
    EXPECT_EQ(dump(*root), inPlace(R"({"o": {"a": [2], "c": {"k": 3}, "b": null}})"));
}

TEST_F(ObjectEditing, HasErasedTheMemberWhenItDies) {
    std::string seen;
    object.replace("a", new LastWords([&] { seen = dump(*root); }));
    object.erase("a");
    EXPECT_EQ(seen, inPlace(R"({"o": {"b": 1, "c": {"k": 3}}})"));
}

TEST_F(ObjectEditing, TakesAMemberOutDetached) {
    const Element* const address = &object.at("c");
    const Owner taken = object.take("c");
    EXPECT_EQ(taken.get(), address);
    EXPECT_EQ(dump(*taken), inPlace(R"({"k": 3})"));
    EXPECT_EQ(dump(*root), inPlace(R"({"o": {"b": 1, "a": [2]}})"));
    EXPECT_EQ(dump(*object.take("b")), inPlace("1"));
    EXPECT_EQ(dump(*root), inPlace(R"({"o": {"a": [2]}})"));
}

TEST_F(ObjectEditing, RefusesToTakeWhatIsMissing) {
    const std::string before = dump(*root);
    EXPECT_EQ(thrown<Exception>([&] { object.take("d"); }), "Object does not contain \"d\"");
    EXPECT_EQ(dump(*root), before);
}

TEST_F(ObjectEditing, ReplacesAMemberInItsPlaceAndAttachesIt) {
    Element* const element = Element::createString("new");
    EXPECT_EQ(&object.replace("a", element), element);
    EXPECT_EQ(&object.at("a"), element);
    EXPECT_EQ(dump(*root), inPlace(R"({"o": {"b": 1, "a": "new", "c": {"k": 3}}})"));
}

TEST_F(ObjectEditing, ReplacesByAnOwner) {
    Owner owner = parsed(R"([{"x": null}])");
    const Element* const element = owner.get();
    EXPECT_EQ(&object.replace("b", std::move(owner)), element);
    EXPECT_EQ(owner, nullptr);
    EXPECT_EQ(dump(*root), inPlace(R"({"o": {"b": [{"x": null}], "a": [2], "c": {"k": 3}}})"));
}

TEST_F(ObjectEditing, PutsANewKeyLast) {
    Element* const element = Element::createNull();
    EXPECT_EQ(&object.replace("d", element), element);
    Owner owner = value(true);
    const Element* const other = owner.get();
    EXPECT_EQ(&object.replace("", std::move(owner)), other);
    EXPECT_EQ(owner, nullptr);
    EXPECT_EQ(dump(*root),
              inPlace(R"({"o": {"b": 1, "a": [2], "c": {"k": 3}, "d": null, "": true}})"));
}

TEST_F(ObjectEditing, HasReplacedTheMemberWhenItDies) {
    std::string seen;
    object.replace("a", new LastWords([&] { seen = dump(*root); }));
    EXPECT_EQ(seen, "");
    object.replace("a", value(true));
    EXPECT_EQ(seen, inPlace(R"({"o": {"b": 1, "a": true, "c": {"k": 3}}})"));
}

TEST_F(ObjectEditing, ReplacesAMemberByWhatItHeld) {
    object.replace("c", object.at("c").getObjectValue().take("k"));
    EXPECT_EQ(dump(*root), inPlace(R"({"o": {"b": 1, "a": [2], "c": 3}})"));
}

TEST_F(ObjectEditing, MovesAMemberToAnotherKey) {
    object.replace("b", object.take("c"));
    EXPECT_EQ(dump(*root), inPlace(R"({"o": {"b": {"k": 3}, "a": [2]}})"));
}

TEST_F(ObjectEditing, ForgetsThePlaceThatAnElementHadElsewhere) {
    object.replace("a", object.at("a").getArrayValue().take(0));
    EXPECT_EQ(dump(*root), inPlace(R"({"o": {"b": 1, "a": 2, "c": {"k": 3}}})"));
    Array list;
    list.push_back(object.take("a").release());
    EXPECT_EQ(dump(list), inPlace("[2]"));
}

TEST_F(ObjectEditing, ChangesNothingWhereAMemberReplacesItself) {
    const std::string before = dump(*root);
    Element* const member = &object.at("a");
    EXPECT_EQ(&object.replace("a", member), member);
    EXPECT_EQ(dump(*root), before);
}

TEST_F(ObjectEditing, SetsThePlaceOfAMemberThatReplacesItself) {
    Element* const member = Element::createString("new");
    object.insert("a", member);
    ASSERT_EQ(member->parent(), nullptr);
    object.replace("a", member);
    EXPECT_EQ(dump(*root), inPlace(R"({"o": {"b": 1, "a": "new", "c": {"k": 3}}})"));
}

TEST_F(ObjectEditing, TellsWhetherThereIsAMember) {
    EXPECT_TRUE(object.contains("a"));
    EXPECT_FALSE(object.contains("A"));
    EXPECT_FALSE(object.contains(""));
    object.erase("a");
    EXPECT_FALSE(object.contains("a"));
}

TEST_F(ObjectEditing, TriesToReachAMember) {
    EXPECT_EQ(object.tryAt("a"), &object.at("a"));
    EXPECT_EQ(object.tryAt("d"), nullptr);
    const Object& constant = object;
    EXPECT_EQ(constant.tryAt("a"), &object.at("a"));
    EXPECT_EQ(constant.tryAt("d"), nullptr);
}

/// An object whose one member, a string, holds its own key.
class KeyInTheMember : public testing::Test {
protected:
    KeyInTheMember() { object.insert(k_long, m_text); }

    const std::string& inValue() const { return m_text->value(); }
    const std::string& inEntry() const { return object.begin()->first; }

    Object object;

private:
    TBasicElement<std::string>* const m_text = new TBasicElement<std::string>(k_long);
};

TEST_F(KeyInTheMember, MayNameWhatIsErased) {
    EXPECT_TRUE(object.erase(inValue()));
    EXPECT_EQ(object.size(), 0U);
    object.insert(k_long, Element::createNull());
    EXPECT_TRUE(object.erase(inEntry()));
    EXPECT_EQ(object.size(), 0U);
}

TEST_F(KeyInTheMember, MayNameWhatIsTaken) {
    const Owner taken = object.take(inValue());
    EXPECT_EQ(taken->type(), etString);
    object.insert(k_long, Element::createNull());
    EXPECT_EQ(object.take(inEntry())->type(), etNull);
    EXPECT_EQ(object.size(), 0U);
}

TEST_F(KeyInTheMember, MayNameWhatIsReplaced) {
    object.replace(inValue(), value(true));
    EXPECT_EQ(dump(object), inPlace("{\"" + k_long + "\": true}"));
    object.replace(inEntry(), value(1));
    EXPECT_EQ(dump(object), inPlace("{\"" + k_long + "\": 1}"));
}

TEST(NewKey, MayStandInTheElementItself) {
    auto* const text = new TBasicElement<std::string>("key");
    Object object;
    object.replace(text->value(), text);
    EXPECT_EQ(dump(object), inPlace(R"({"key": "key"})"));
}

// The members of a copy are not attached, and are found by key all the same.
TEST(CopiedObjectEditing, FindsMembersByKey) {
    const Owner source = parsed(R"({"a": 1, "b": 2, "c": 3})");
    Object copy(source->getObjectValue());
    EXPECT_TRUE(copy.erase("a"));
    EXPECT_EQ(dump(*copy.take("b")), inPlace("2"));
    copy.insert("d", Element::createNull());
    EXPECT_EQ(dump(copy),
              "etObject key=\"\" index=- parent=none\n"
              "  etNumber 3 key=\"\" index=- parent=none held as \"c\"\n"
              "  etNull key=\"d\" index=- parent=right\n");
    copy.replace("c", value(4));
    EXPECT_EQ(dump(copy), inPlace(R"({"c": 4, "d": null})"));
}

}  // namespace
