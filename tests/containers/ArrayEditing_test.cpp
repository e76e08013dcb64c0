#include <zo/Tessera/Array.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>

#include "LastWords.h"
#include "Witness.h"
#include "support/dump.h"
#include "support/inPlace.h"
#include "support/parsed.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using Owner = std::unique_ptr<Element>;

static_assert(std::is_same_v<decltype(std::declval<Array&>().take(0)), Owner>);

/// An array under a key, so that paths have something to show.
class ArrayEditing : public testing::Test {
protected:
    const Owner root = parsed(R"({"list": [0, "one", [2], {"k": 3}]})");
    Array& list = root->at("list").getArrayValue();
};

TEST_F(ArrayEditing, ErasesTheFirst) {
    list.erase(0);
    EXPECT_EQ(dump(*root), inPlace(R"({"list": ["one", [2], {"k": 3}]})"));
    EXPECT_EQ(list.at(1).at(0).path(nullptr), "list[1][0]");
}

TEST_F(ArrayEditing, ErasesInTheMiddle) {
    list.erase(1);
    EXPECT_EQ(dump(*root), inPlace(R"({"list": [0, [2], {"k": 3}]})"));
}

TEST_F(ArrayEditing, ErasesTheLast) {
    list.erase(3);
    EXPECT_EQ(dump(*root), inPlace(R"({"list": [0, "one", [2]]})"));
    list.push_back(Element::createNull());
    EXPECT_EQ(dump(*root), inPlace(R"({"list": [0, "one", [2], null]})"));
}

TEST_F(ArrayEditing, ErasesUntilNoneIsLeft) {
    for (int i = 0; i < 4; ++i) {
        list.erase(0);
    }
    EXPECT_EQ(dump(*root), inPlace(R"({"list": []})"));
    list.insert(0, value(true));
    EXPECT_EQ(dump(*root), inPlace(R"({"list": [true]})"));
}

TEST_F(ArrayEditing, HasErasedTheItemWhenItDies) {
    std::string seen;
    list.replace(1, new LastWords([&] { seen = dump(*root); }));
    list.erase(1);
    EXPECT_EQ(seen, inPlace(R"({"list": [0, [2], {"k": 3}]})"));
}

TEST_F(ArrayEditing, TakesAnItemOutDetached) {
    const Element* const address = &list.at(2);
    const Owner taken = list.take(2);
    EXPECT_EQ(taken.get(), address);
    EXPECT_EQ(dump(*taken), inPlace("[2]"));
    EXPECT_EQ(dump(*root), inPlace(R"({"list": [0, "one", {"k": 3}]})"));
}

TEST_F(ArrayEditing, TakesTheFirstAndTheLast) {
    EXPECT_EQ(dump(*list.take(0)), inPlace("0"));
    EXPECT_EQ(dump(*list.take(2)), inPlace(R"({"k": 3})"));
    EXPECT_EQ(dump(*root), inPlace(R"({"list": ["one", [2]]})"));
}

TEST_F(ArrayEditing, PutsBackWhatItTook) {
    list.insert(0, list.take(3));
    EXPECT_EQ(dump(*root), inPlace(R"({"list": [{"k": 3}, 0, "one", [2]]})"));
    root->getObjectValue().replace("first", list.take(0));
    EXPECT_EQ(dump(*root), inPlace(R"({"list": [0, "one", [2]], "first": {"k": 3}})"));
}

TEST_F(ArrayEditing, InsertsAtEveryPlace) {
    list.insert(0, value("first"));
    list.insert(2, value("middle"));
    list.insert(6, value("last"));
    EXPECT_EQ(dump(*root),
              inPlace(R"({"list": ["first", 0, "middle", "one", [2], {"k": 3}, "last"]})"));
}

TEST_F(ArrayEditing, InsertsWhatIsHandedOverByPointer) {
    Element* const element = Element::createString("new");
    EXPECT_EQ(&list.insert(1, element), element);
    EXPECT_EQ(&list.at(1), element);
    EXPECT_EQ(dump(*root), inPlace(R"({"list": [0, "new", "one", [2], {"k": 3}]})"));
}

TEST_F(ArrayEditing, InsertsWhatIsHandedOverByOwner) {
    Owner owner = parsed(R"(["new", {"x": null}])");
    const Element* const element = owner.get();
    EXPECT_EQ(&list.insert(4, std::move(owner)), element);
    EXPECT_EQ(owner, nullptr);
    EXPECT_EQ(dump(*root), inPlace(R"({"list": [0, "one", [2], {"k": 3}, ["new", {"x": null}]]})"));
}

TEST_F(ArrayEditing, ReplacesAtEveryPlace) {
    list.replace(0, value("first"));
    list.replace(2, value("middle"));
    list.replace(3, value("last"));
    EXPECT_EQ(dump(*root), inPlace(R"({"list": ["first", "one", "middle", "last"]})"));
}

TEST_F(ArrayEditing, ReplacesByPointerAndByOwner) {
    Element* const element = Element::createNull();
    EXPECT_EQ(&list.replace(1, element), element);
    EXPECT_EQ(&list.at(1), element);
    Owner owner = array();
    const Element* const other = owner.get();
    EXPECT_EQ(&list.replace(3, std::move(owner)), other);
    EXPECT_EQ(owner, nullptr);
    EXPECT_EQ(dump(*root), inPlace(R"({"list": [0, null, [2], []]})"));
}

TEST_F(ArrayEditing, HasReplacedTheItemWhenItDies) {
    std::string seen;
    list.replace(1, new LastWords([&] { seen = dump(*root); }));
    EXPECT_EQ(seen, "");
    list.replace(1, value(true));
    EXPECT_EQ(seen, inPlace(R"({"list": [0, true, [2], {"k": 3}]})"));
}

TEST_F(ArrayEditing, ReplacesAnItemByWhatItHeld) {
    Owner inner = list.at(3).getObjectValue().take("k");
    list.replace(3, std::move(inner));
    EXPECT_EQ(dump(*root), inPlace(R"({"list": [0, "one", [2], 3]})"));
}

TEST_F(ArrayEditing, ChangesNothingWhereAnItemReplacesItself) {
    const std::string before = dump(*root);
    Element* const item = &list.at(2);
    EXPECT_EQ(&list.replace(2, item), item);
    EXPECT_EQ(dump(*root), before);
}

TEST_F(ArrayEditing, ClearsInOrderAndTakesItemsAgain) {
    std::string log;
    list.replace(0, new Witness("a", log));
    list.replace(3, new Witness("b", log));
    list.clear();
    EXPECT_EQ(log, "~a;~b;");
    EXPECT_EQ(dump(*root), inPlace(R"({"list": []})"));
    list.clear();
    list.push_back(Element::createBoolean(true));
    EXPECT_EQ(dump(*root), inPlace(R"({"list": [true]})"));
}

TEST_F(ArrayEditing, KeepsAddressesOfTheItemsThatStay) {
    const Element* const item = &list.at(2);
    list.erase(0);
    EXPECT_EQ(&list.at(1), item);
    list.insert(0, value(1));
    list.insert(0, value(2));
    EXPECT_EQ(&list.at(3), item);
}

TEST_F(ArrayEditing, RefusesAnIndexWithoutAnItem) {
    const std::string before = dump(*root);
    Owner owner = value(1);
    for (const size_t index : {size_t{4}, size_t{5}, Path::k_noIndex}) {
        const std::string text = "Array does not contain [" + std::to_string(index) + "]";
        EXPECT_EQ(thrown<Exception>([&] { list.erase(index); }), text);
        EXPECT_EQ(thrown<Exception>([&] { list.take(index); }), text);
        EXPECT_EQ(thrown<Exception>([&] { list.replace(index, owner.get()); }), text);
        EXPECT_EQ(thrown<Exception>([&] { list.replace(index, std::move(owner)); }), text);
    }
    EXPECT_EQ(dump(*root), before);
    EXPECT_EQ(dump(*owner), inPlace("1"));
}

TEST_F(ArrayEditing, RefusesToInsertPastTheEnd) {
    const std::string before = dump(*root);
    Owner owner = value(1);
    EXPECT_EQ(thrown<Exception>([&] { list.insert(5, owner.get()); }),
              "Array does not contain [5]");
    EXPECT_EQ(thrown<Exception>([&] { list.insert(Path::k_noIndex, std::move(owner)); }),
              "Array does not contain [18446744073709551615]");
    EXPECT_EQ(dump(*root), before);
    EXPECT_EQ(dump(*owner), inPlace("1"));
}

TEST_F(ArrayEditing, NamesTheArrayThatLacksTheItem) {
    try {
        list.erase(4);
        ADD_FAILURE();
    } catch (const Exception& exception) {
        EXPECT_EQ(*exception.elementPath(), "list");
    }
}

TEST(EmptyArrayEditing, HasNoItems) {
    Array array;
    EXPECT_EQ(thrown<Exception>([&] { array.erase(0); }), "Array does not contain [0]");
    EXPECT_EQ(thrown<Exception>([&] { array.take(0); }), "Array does not contain [0]");
    array.insert(0, value(1));
    EXPECT_EQ(dump(array), inPlace("[1]"));
}

// The items of a copy are not attached: those from the one concerned on are, afterwards.
TEST(CopiedArrayEditing, AttachesTheItemsFromTheErasedOneOn) {
    const Owner source = parsed("[0, 1, 2, 3]");
    Array copy(source->getArrayValue());
    copy.erase(1);
    EXPECT_EQ(dump(copy),
              "etArray key=\"\" index=- parent=none\n"
              "  etNumber 0 key=\"\" index=- parent=none\n"
              "  etNumber 2 key=\"[1]\" index=1 parent=right\n"
              "  etNumber 3 key=\"[2]\" index=2 parent=right\n");
}

TEST(CopiedArrayEditing, AttachesTheItemsFromTheInsertedOneOn) {
    const Owner source = parsed("[0, 1]");
    Array copy(source->getArrayValue());
    copy.insert(1, value("new"));
    EXPECT_EQ(dump(copy),
              "etArray key=\"\" index=- parent=none\n"
              "  etNumber 0 key=\"\" index=- parent=none\n"
              "  etString \"new\" key=\"[1]\" index=1 parent=right\n"
              "  etNumber 1 key=\"[2]\" index=2 parent=right\n");
}

TEST(CopiedArrayEditing, AttachesTheOneThatReplacesAnother) {
    const Owner source = parsed("[0, 1, 2]");
    Array copy(source->getArrayValue());
    copy.replace(1, value("new"));
    copy.replace(2, &copy.at(2));
    EXPECT_EQ(dump(copy),
              "etArray key=\"\" index=- parent=none\n"
              "  etNumber 0 key=\"\" index=- parent=none\n"
              "  etString \"new\" key=\"[1]\" index=1 parent=right\n"
              "  etNumber 2 key=\"[2]\" index=2 parent=right\n");
}

TEST(CopiedArrayEditing, TakesAnItemAndClearsTheRest) {
    const Owner source = parsed("[[1], 2]");
    Array copy(source->getArrayValue());
    EXPECT_EQ(dump(*copy.take(1)), inPlace("2"));
    copy.clear();
    EXPECT_EQ(dump(copy), inPlace("[]"));
}

}  // namespace
