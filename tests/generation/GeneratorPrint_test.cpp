#include <zo/Tessera/Generator.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "generation/KindOnly.h"
#include "generation/written.h"

using namespace zo::Tessera;

namespace {

std::string printed(Layout layout, const Element& element) {
    return written(layout, [&](Generator& g) { EXPECT_EQ(g.print(element), 0); });
}

void expectPrinted(const Element& element, const std::string& lineBreaks,
                   const std::string& oneLine) {
    EXPECT_EQ(printed(Layout::lineBreaks, element), lineBreaks);
    EXPECT_EQ(printed(Layout::oneLine, element), oneLine);
}

std::unique_ptr<Element> sampleObject() {
    std::unique_ptr<Element> root = object();
    Element::createString("two", root.get(), "z");
    Element::createNumber(BasicNumber(), root.get(), "a");
    Element* const list = Element::createArray(root.get(), "list");
    Element::createBoolean(false, list);
    Element::createNull(Element::createObject(list), "");
    return root;
}

TEST(GeneratorPrint, WritesScalars) {
    BasicNumber number;
    number.set("1.50");
    expectPrinted(Null(), "null\n", "null");
    expectPrinted(TBasicElement<bool>(true), "true\n", "true");
    expectPrinted(TBasicElement<bool>(false), "false\n", "false");
    expectPrinted(TBasicElement<BasicNumber>(number), "1.50\n", "1.50");
    expectPrinted(TBasicElement<std::string>("a\"b"), "\"a\\\"b\"\n", "\"a\\\"b\"");
}

TEST(GeneratorPrint, WritesEmptyContainers) {
    expectPrinted(Object(), "{\n\n}\n", "{}");
    expectPrinted(Array(), "[\n\n]\n", "[]");
    expectPrinted(Object::k_empty, "{\n\n}\n", "{}");
    expectPrinted(Array::k_empty, "[\n\n]\n", "[]");
}

TEST(GeneratorPrint, WritesMembersInInsertionOrderAndItemsInTheirs) {
    expectPrinted(*sampleObject(),
                  "{\n\"z\": \"two\",\n\"a\": 0,\n\"list\": [\nfalse,\n{\n\"\": null\n}\n]\n}\n",
                  "{\"z\":\"two\",\"a\":0,\"list\":[false,{\"\":null}]}");
}

TEST(GeneratorPrint, WritesAMemberUnderTheKeyThatHoldsIt) {
    Object root;
    Element::createNumber(BasicNumber(), &root, "first");
    Element::createNull(&root, "second");
    root.insert("first", value(true).release());  // takes the place, with no key of its own
    expectPrinted(root, "{\n\"first\": true,\n\"second\": null\n}\n",
                  "{\"first\":true,\"second\":null}");
}

TEST(GeneratorPrint, WritesUnattachedCopies) {
    const std::unique_ptr<Element> copy(sampleObject()->clone());
    EXPECT_EQ(printed(Layout::oneLine, *copy),
              "{\"z\":\"two\",\"a\":0,\"list\":[false,{\"\":null}]}");
}

TEST(GeneratorPrint, WritesAPartOfATree) {
    const std::unique_ptr<Element> root = sampleObject();
    EXPECT_EQ(printed(Layout::oneLine, root->at("list").at(1)), "{\"\":null}");
    EXPECT_EQ(printed(Layout::oneLine, root->at("z")), "\"two\"");
}

TEST(GeneratorPrint, FillsAContainerOpenedByAnEvent) {
    const auto emit = [](Generator& generator) {
        generator.gen_array_open();
        EXPECT_EQ(generator.print(*sampleObject()), 0);
        EXPECT_EQ(generator.print(*value()), 0);
        generator.gen_array_close();
    };
    EXPECT_EQ(written(Layout::oneLine, emit),
              "[{\"z\":\"two\",\"a\":0,\"list\":[false,{\"\":null}]},null]");
}

TEST(GeneratorPrint, OneContainerCanBePrintedAsSuch) {
    const std::unique_ptr<Element> root = sampleObject();
    const Object& members = root->getObjectValue();
    const Array& items = root->at("list").getArrayValue();
    const auto object = [&](Generator& g) { EXPECT_EQ(g.printObject(members), 0); };
    const auto array = [&](Generator& g) { EXPECT_EQ(g.printArray(items), 0); };
    EXPECT_EQ(written(Layout::oneLine, object),
              "{\"z\":\"two\",\"a\":0,\"list\":[false,{\"\":null}]}");
    EXPECT_EQ(written(Layout::lineBreaks, array), "[\nfalse,\n{\n\"\": null\n}\n]\n");
    EXPECT_EQ(written(Layout::oneLine, array), "[false,{\"\":null}]");
    EXPECT_EQ(written(Layout::lineBreaks, [](Generator& g) { g.printObject(Object()); }),
              "{\n\n}\n");
    EXPECT_EQ(written(Layout::lineBreaks, [](Generator& g) { g.printArray(Array()); }), "[\n\n]\n");
}

TEST(GeneratorPrint, OfNoKindWritesNothing) {
    expectPrinted(KindOnly(etEmpty), "", "");
    expectPrinted(KindOnly(6), "", "");
    expectPrinted(KindOnly(-2), "", "");
}

TEST(GeneratorPrint, OfNoKindAnswersZeroWhateverCameBefore) {
    const auto emit = [](Generator& generator) {
        generator.gen_object_open();
        EXPECT_EQ(generator.gen_null(), 1);
        EXPECT_EQ(generator.print(KindOnly(etEmpty)), 0);
        generator.gen_object_close();
        EXPECT_EQ(generator.gen_null(), 4);
        EXPECT_EQ(generator.print(KindOnly(6)), 0);
    };
    EXPECT_EQ(written(Layout::oneLine, emit), "{}");
}

TEST(GeneratorPrint, LeavesOutAnItemOfNoKind) {
    Array items;
    Element::createNull(&items);
    items.push_back(new KindOnly(etEmpty));
    Element::createBoolean(true, &items);
    expectPrinted(items, "[\nnull,\ntrue\n]\n", "[null,true]");
}

// Only the value is left out: the key has been written when its value turns out to be nothing.
TEST(GeneratorPrint, KeepsTheKeyOfAMemberOfNoKind) {
    Object members;
    Element::createNull(&members, "a");
    members.insert("odd", new KindOnly(6));
    expectPrinted(members, "{\n\"a\": null,\n\"odd\"\n}\n", "{\"a\":null,\"odd\"}");
}

// An application's element that shows another object's members.
class View : public KindOnly {
public:
    explicit View(Object& shown) : KindOnly(etObject), m_shown(shown) {}

    using Element::getObjectValue;
    Object& getObjectValue() override { return m_shown; }

private:
    Object& m_shown;
};

TEST(GeneratorPrint, AsksAnObjectForItsMembers) {
    const std::unique_ptr<Element> shown = sampleObject();
    expectPrinted(View(shown->getObjectValue()),
                  "{\n\"z\": \"two\",\n\"a\": 0,\n\"list\": [\nfalse,\n{\n\"\": null\n}\n]\n}\n",
                  "{\"z\":\"two\",\"a\":0,\"list\":[false,{\"\":null}]}");
}

}  // namespace
