#include <zo/Tessera/Path.h>

#include <istream>
#include <memory>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zo/Tessera/ElementCreator.h>
#include <zo/Tessera/ElementGetter.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/PathGenerator.h>
#include <zo/Tessera/PathParser.h>
#include <zo/Tessera/SchemaPathConverters.h>

#include "failures/outOfMemory.h"
#include "support/dump.h"

using namespace zo::Tessera;

namespace {

/// Writes the segments down without memory, and accepts errors.
class Segments : public PathParserListener {
public:
    Segments() { text.reserve(1000); }

    bool cbObjectProperty(const std::string& key) override {
        text.append("key ").append(key).append(";");
        return true;
    }
    bool cbArrayItem(unsigned long index) override {
        text.append("item ").append(1, static_cast<char>('0' + index % 10)).append(";");
        return true;
    }
    void cbFinish() override { text.append("finish"); }
    bool cbParseError(const std::string& message, const std::string&, unsigned long,
                      unsigned long) override {
        text.append(message, 0, 10).append(";");
        return true;
    }

    std::string text;
};

const std::string k_pathText = "short." + k_long + "[2]]." + k_long;
const std::string k_segments =
    "key short;key " + k_long + ";item 2;Unexpected;key " + k_long + ";finish";

TEST(OutOfMemoryInAPathParser, EndsTheRunBehindWhatWasReported) {
    std::unique_ptr<Segments> segments;
    const auto prepare = [&] { segments = std::make_unique<Segments>(); };
    const auto check = [&] { EXPECT_THAT(k_segments, testing::StartsWith(segments->text)); };
    const auto parse = [&] { PathParser(*segments).parse(k_pathText); };
    EXPECT_GT(failEachAllocation(prepare, parse, check), 1);
    EXPECT_EQ(segments->text, k_segments);
    std::unique_ptr<std::istringstream> in;
    const auto open = [&] {
        prepare();
        in = std::make_unique<std::istringstream>(k_pathText);
    };
    const auto parseStream = [&] { PathParser(*segments).parse(*in); };
    EXPECT_GT(failEachAllocation(open, parseStream, check), 1);
    EXPECT_EQ(segments->text, k_segments);
}

TEST(OutOfMemoryInAPathGenerator, LeavesATextAndThePlaceInItAsTheyWere) {
    std::string text;
    std::unique_ptr<PathGenerator> generator;
    const auto begin = [&] {
        text = "";
        generator = std::make_unique<PathGenerator>(text);
        generator->genObjectProperty(std::string("a"));
    };
    const auto writeKey = [&] { generator->genObjectProperty(k_long); };
    const auto retryKey = [&] {
        EXPECT_EQ(text, "a");
        writeKey();
        EXPECT_EQ(text, "a." + k_long);
    };
    EXPECT_GT(failEachAllocation(begin, writeKey, retryKey), 1);
    const auto writeItem = [&] { generator->genListItem(12345678901234567890UL); };
    const auto retryItem = [&] {
        EXPECT_EQ(text, "a");
        writeItem();
        EXPECT_EQ(text, "a[12345678901234567890]");
    };
    EXPECT_GT(failEachAllocation(begin, writeItem, retryItem), 1);
}

TEST(OutOfMemoryInAPathGenerator, LeavesAStreamWithTheBeginning) {
    std::unique_ptr<std::ostringstream> out;
    const auto prepare = [&] {
        out = std::make_unique<std::ostringstream>();
        out->exceptions(std::ios::badbit);
    };
    const std::string whole = k_long + "[12345678901234567890]";
    const auto write = [&] {
        PathGenerator generator(*out);
        generator.genObjectProperty(k_long);
        generator.genListItem(12345678901234567890UL);
    };
    const auto check = [&] { EXPECT_THAT(whole, testing::StartsWith(out->str())); };
    EXPECT_GT(failEachAllocation(prepare, write, check), 2);
    EXPECT_EQ(out->str(), whole);
}

TEST(OutOfMemoryInAnElementPath, LeavesAStreamWithTheBeginning) {
    const auto root = object();
    const Element* const element =
        Element::createNull(Element::createObject(root.get(), "first " + k_long), k_long);
    std::unique_ptr<std::ostringstream> out;
    const auto prepare = [&] {
        out = std::make_unique<std::ostringstream>();
        out->exceptions(std::ios::badbit);
    };
    const std::string path = "first " + k_long + "." + k_long;
    const auto check = [&] { EXPECT_THAT(path, testing::StartsWith(out->str())); };
    const auto write = [&] { element->path(*out, nullptr); };
    EXPECT_GT(failEachAllocation(prepare, write, check), 3);
    EXPECT_EQ(out->str(), path);
}

TEST(OutOfMemoryInAConverterToSchemaPaths, LeavesWhatWasWritten) {
    std::string text;
    std::unique_ptr<PathGenerator> generator;
    const auto begin = [&] {
        text = "";
        text.shrink_to_fit();
        generator = std::make_unique<PathGenerator>(text);
    };
    const auto write = [&] {
        ToSchemaPathConverter converter(*generator);
        converter.cbObjectProperty(k_long);
        converter.cbArrayItem(0);
    };
    const auto check = [&] {
        EXPECT_THAT(text, testing::AnyOf("", "meta", "meta.schema", "meta.schema.properties",
                                         "meta.schema.properties." + k_long));
    };
    EXPECT_GT(failEachAllocation(begin, write, check), 2);
    EXPECT_EQ(text, "meta.schema.properties." + k_long + ".items");
}

TEST(OutOfMemoryInAConverterFromSchemaPaths, LeavesItFitForAnotherTry) {
    std::string text;
    std::unique_ptr<PathGenerator> generator;
    std::unique_ptr<FromSchemaPathConverter> converter;
    const auto begin = [&] {
        text = "";
        generator = std::make_unique<PathGenerator>(text);
        converter = std::make_unique<FromSchemaPathConverter>(*generator);
        for (const char* const key : {"meta", "schema", "properties"}) {
            converter->cbObjectProperty(key);
        }
    };
    const auto write = [&] { converter->cbObjectProperty(k_long); };
    const auto retry = [&] {
        EXPECT_EQ(text, "");
        write();
        converter->cbObjectProperty("items");
        EXPECT_EQ(text, k_long + "[*]");
    };
    EXPECT_GT(failEachAllocation(begin, write, retry), 1);
}

TEST(OutOfMemoryInAnElementGetter, LeavesItWhereItWas) {
    const auto root = object();
    Element* const inner = Element::createObject(root.get(), k_long);
    std::unique_ptr<ElementGetter> getter;
    const auto make = [&] { getter = std::make_unique<ElementGetter>(k_pathText, *root, true); };
    EXPECT_GT(
        failEachAllocation([&] { getter.reset(); }, make, [&] { EXPECT_EQ(getter, nullptr); }), 1);
    getter->cbObjectProperty(k_long);
    const auto check = [&] {
        EXPECT_TRUE(getter->pathExists());
        EXPECT_EQ(getter->currentElement(), inner);
    };
    int reported = 0;
    const auto fail = [&] {
        try {
            getter->cbObjectProperty(k_long);
        } catch (const PathNotFound&) {
            ++reported;
        }
    };
    EXPECT_GT(failEachAllocation([] {}, fail, check), 1);
    EXPECT_EQ(reported, 2);
}

TEST(OutOfMemoryInAnElementCreator, IsFollowedByAnotherTryOfTheSameSegment) {
    const std::string none = "etObject key=\"\" index=- parent=none\n";
    const std::string first = none + "  etObject key=\"" + k_long + "\" index=- parent=right\n";
    const std::string second = first + "    etObject key=\"b\" index=- parent=right\n";
    const std::string all = second + "      etNull key=\"c\" index=- parent=right\n";
    const auto value = zo::Tessera::value();
    std::unique_ptr<Element> root = object();
    std::unique_ptr<ElementCreator> creator;
    const auto make = [&] {
        creator = std::make_unique<ElementCreator>(k_pathText, *root, *value, true);
    };
    EXPECT_GT(
        failEachAllocation([&] { creator.reset(); }, make, [&] { EXPECT_EQ(creator, nullptr); }),
        2);
    const auto begin = [&] {
        creator.reset();
        root = object();
        make();
        creator->cbObjectProperty(k_long);
    };
    const auto goOn = [&] { creator->cbObjectProperty("b"); };
    const auto finish = [&] {
        EXPECT_THAT(dump(*root), testing::AnyOf(none, first));
        EXPECT_TRUE(creator->pathExists());
        goOn();
        EXPECT_EQ(dump(*root), first);
        creator->cbObjectProperty("c");
        creator->cbFinish();
        EXPECT_EQ(dump(*root), all);
    };
    EXPECT_GT(failEachAllocation(begin, goOn, finish), 1);
}

TEST(OutOfMemoryInAPath, LeavesTheTextThatCannotBeReplaced) {
    Path path;
    const auto prepare = [&] {
        path = "former";
        path.shrink_to_fit();
    };
    const auto check = [&] { EXPECT_EQ(path, "former"); };
    const Path other = k_long;
    EXPECT_EQ(failEachAllocation(
                  prepare, [&] { path = other; }, check),
              1);
    EXPECT_EQ(path, k_long);
    EXPECT_EQ(failEachAllocation(
                  prepare, [&] { path = k_long; }, check),
              1);
    EXPECT_EQ(failEachAllocation(
                  prepare, [&] { path = k_long.c_str(); }, check),
              1);
    EXPECT_EQ(path, k_long);
}

}  // namespace
