#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Object.h>

#include "Witness.h"
#include "support/NumberOf.h"
#include "support/dump.h"
#include "support/inPlace.h"
#include "support/parsed.h"

using namespace zo::Tessera;

namespace {

using Owner = std::unique_ptr<Element>;

const char* const k_nested =
    R"({"a": [1, {"b.[0]": [[], {}, [2, [3]]]}], "": {"": null}, "z": "x"})";

TEST(Reattach, SetsEveryPlaceInACopiedObject) {
    const Owner copy(parsed(k_nested)->clone());
    ASSERT_NE(dump(*copy), inPlace(k_nested));
    copy->getObjectValue().reattach();
    EXPECT_EQ(dump(*copy), inPlace(k_nested));
    EXPECT_EQ(copy->get("a[1]").at("b.[0]").at(2).at(1).at(0).path(nullptr),
              "a[1].b\\.\\[0\\][2][1][0]");
}

TEST(Reattach, SetsEveryPlaceInACopiedArray) {
    const Owner source = parsed(R"([[[1], 2], {"k": [3, {"l": 4}]}, 5])");
    Array copy(source->getArrayValue());
    copy.reattach();
    EXPECT_EQ(dump(copy), dump(*source));
}

TEST(Reattach, SetsThePlacesAfterAssigning) {
    const Owner root = parsed(R"({"o": {"old": 1}, "list": [0]})");
    const Owner source = parsed(k_nested);
    root->at("o").setObjectValue(source->getObjectValue());
    root->at("list").getArrayValue().assign(source->at("a").getArrayValue());
    root->getObjectValue().reattach();
    EXPECT_EQ(dump(*root), inPlace(std::string(R"({"o": )") + k_nested +
                                   R"(, "list": [1, {"b.[0]": [[], {}, [2, [3]]]}]})"));
}

TEST(Reattach, SetsThePlaceOfWhatReplacedAMember) {
    const Owner root = parsed(R"({"a": 1, "b": 2, "c": 3})");
    root->insertElement("a", value("inserted"));
    Element::createNull(root.get(), "b");
    ASSERT_EQ(dump(*root),
              "etObject key=\"\" index=- parent=none\n"
              "  etString \"inserted\" key=\"\" index=- parent=none held as \"a\"\n"
              "  etNull key=\"\" index=- parent=right held as \"b\"\n"
              "  etNumber 3 key=\"c\" index=- parent=right\n");
    root->getObjectValue().reattach();
    EXPECT_EQ(dump(*root), inPlace(R"({"a": "inserted", "b": null, "c": 3})"));
}

TEST(Reattach, SetsTheIndexesAfterRemovingItems) {
    const Owner root = parsed("[1, 0, 2, 0, 3]");
    root->removeElement(*value(numberOf("0")), "", "");
    ASSERT_EQ(root->at(2).index(), 6U);
    root->getArrayValue().reattach();
    EXPECT_EQ(dump(*root), inPlace("[1, 2, 3]"));
}

TEST(Reattach, LeavesARightTreeAsItIs) {
    const Owner root = parsed(k_nested);
    root->getObjectValue().reattach();
    EXPECT_EQ(dump(*root), inPlace(k_nested));
}

TEST(Reattach, SetsWhatIsBelowAndNothingElse) {
    const Owner copy(parsed(R"({"a": [1, [2]], "b": [3]})")->clone());
    copy->at("a").getArrayValue().reattach();
    EXPECT_EQ(dump(*copy),
              "etObject key=\"\" index=- parent=none\n"
              "  etArray key=\"\" index=- parent=none held as \"a\"\n"
              "    etNumber 1 key=\"[0]\" index=0 parent=right\n"
              "    etArray key=\"[1]\" index=1 parent=right\n"
              "      etNumber 2 key=\"[0]\" index=0 parent=right\n"
              "  etArray key=\"\" index=- parent=none held as \"b\"\n"
              "    etNumber 3 key=\"\" index=- parent=none\n");
}

TEST(Reattach, LeavesTheContainerItsOwnPlace) {
    const Owner root = parsed(R"({"list": [[1]]})");
    root->at("list").at(0).getArrayValue().reattach();
    EXPECT_EQ(dump(*root), inPlace(R"({"list": [[1]]})"));
}

TEST(Reattach, GoesThroughAnApplicationsOwnContainers) {
    std::string log;
    Array source;
    Element* const own = new ArrayWitness(log);
    source.push_back(own);
    Element::createArray(own);
    Element::createNull(&own->at(0));
    Array copy(source);
    copy.reattach();
    EXPECT_EQ(dump(copy), inPlace("[[[null]]]"));
}

TEST(Reattach, OfAnEmptyContainerDoesNothing) {
    Array array;
    array.reattach();
    EXPECT_EQ(dump(array), inPlace("[]"));
    Object object;
    object.reattach();
    EXPECT_EQ(dump(object), inPlace("{}"));
}

TEST(Reattach, MakesACopiedDocumentLikeTheFirst) {
    Dom dom;
    dom.setRoot(parsed(k_nested));
    Dom copy(dom);
    copy.root()->getObjectValue().reattach();
    EXPECT_EQ(dump(*copy.root()), dump(*dom.root()));
}

}  // namespace
