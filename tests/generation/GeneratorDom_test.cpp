#include <zo/Tessera/Generator.h>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/DomParser.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "generation/KindOnly.h"
#include "generation/written.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

struct Entrance {
    const char* name;
    std::string (*write)(const Dom&);
};

// Every way to write a document, in line breaks.
const auto k_entrances = testing::Values(
    Entrance{"Print",
             [](const Dom& dom) {
                 return written(Layout::lineBreaks, [&](Generator& g) { g.print(dom); });
             }},
    Entrance{"EncodeToStream",
             [](const Dom& dom) {
                 std::ostringstream out;
                 Generator(nullptr).encode(out, dom);
                 return out.str();
             }},
    Entrance{"EncodeToString",
             [](const Dom& dom) {
                 std::string out;
                 Generator(nullptr).encode(out, dom);
                 return out;
             }},
    Entrance{"EncodeToReturnedString",
             [](const Dom& dom) { return Generator(nullptr).encode(dom); }},
    Entrance{"StreamOperator", [](const Dom& dom) {
                 std::ostringstream out;
                 out << dom;
                 return out.str();
             }});

class DocumentText : public testing::TestWithParam<Entrance> {
protected:
    static Dom read(const std::string& text) {
        Dom dom;
        DomParser().parse(dom, text);
        return dom;
    }
    static std::string write(const Dom& dom) { return GetParam().write(dom); }
};

TEST_P(DocumentText, IncludesTheMetaMemberUnlessToldOtherwise) {
    EXPECT_EQ(write(read(R"({"a":1,"meta":{"v":2},"b":3})")),
              "{\n\"a\": 1,\n\"meta\": {\n\"v\": 2\n},\n\"b\": 3\n}\n");
}

TEST_P(DocumentText, LeavesOutTheMetaMemberWhenTold) {
    Dom dom = read(R"({"a":1,"meta":{"v":2},"b":3})");
    dom.setIncludeMeta(false);
    EXPECT_EQ(write(dom), "{\n\"a\": 1,\n\"b\": 3\n}\n");
    dom.setIncludeMeta(true);
    EXPECT_EQ(write(dom), "{\n\"a\": 1,\n\"meta\": {\n\"v\": 2\n},\n\"b\": 3\n}\n");
}

TEST_P(DocumentText, LeavesOutTheMetaMemberWhereverItStands) {
    Dom first = read(R"({"meta":1,"a":2})");
    first.setIncludeMeta(false);
    EXPECT_EQ(write(first), "{\n\"a\": 2\n}\n");
    Dom last = read(R"({"a":2,"meta":[1]})");
    last.setIncludeMeta(false);
    EXPECT_EQ(write(last), "{\n\"a\": 2\n}\n");
    Dom alone = read(R"({"meta":null})");
    alone.setIncludeMeta(false);
    EXPECT_EQ(write(alone), "{\n\n}\n");
}

TEST_P(DocumentText, LeavesOutTheMemberUnderTheDocumentsOwnMetaKey) {
    Dom dom = read(R"({"about":1,"meta":2})");
    dom.setIncludeMeta(false);
    dom.setMetaKey("about");
    EXPECT_EQ(write(dom), "{\n\"meta\": 2\n}\n");
    dom.setMetaKey("missing");
    EXPECT_EQ(write(dom), "{\n\"about\": 1,\n\"meta\": 2\n}\n");
}

TEST_P(DocumentText, ComparesTheMetaKeyByteForByte) {
    Dom dom = read(R"({"Meta":1,"metadata":2,"met":3,"meta\u0000":4,"":5,"meta":6})");
    dom.setIncludeMeta(false);
    EXPECT_EQ(write(dom),
              "{\n\"Meta\": 1,\n\"metadata\": 2,\n\"met\": 3,\n\"meta\\u0000\": 4,\n\"\": 5\n}\n");
    dom.setMetaKey(std::string("meta\0", 5));
    EXPECT_EQ(write(dom),
              "{\n\"Meta\": 1,\n\"metadata\": 2,\n\"met\": 3,\n\"\": 5,\n\"meta\": 6\n}\n");
    dom.setMetaKey("");
    EXPECT_EQ(write(dom),
              "{\n\"Meta\": 1,\n\"metadata\": 2,\n\"met\": 3,\n\"meta\\u0000\": 4,\n"
              "\"meta\": 6\n}\n");
}

TEST_P(DocumentText, LeavesOutAMetaMemberThatReplacedAnother) {
    Dom dom = read(R"({"meta":1,"a":2,"meta":3})");
    dom.setIncludeMeta(false);
    EXPECT_EQ(write(dom), "{\n\"a\": 2\n}\n");
}

TEST_P(DocumentText, KeepsAMemberOfTheSameNameFurtherDown) {
    Dom dom = read(R"({"meta":1,"a":{"meta":2},"l":[{"meta":3}]})");
    dom.setIncludeMeta(false);
    EXPECT_EQ(write(dom), "{\n\"a\": {\n\"meta\": 2\n},\n\"l\": [\n{\n\"meta\": 3\n}\n]\n}\n");
}

TEST_P(DocumentText, KeepsEverythingUnderARootArray) {
    Dom dom = read(R"([{"meta":1},"meta"])");
    dom.setIncludeMeta(false);
    EXPECT_EQ(write(dom), "[\n{\n\"meta\": 1\n},\n\"meta\"\n]\n");
}

TEST_P(DocumentText, CanBeAScalar) {
    for (const bool includeMeta : {true, false}) {
        Dom dom;
        dom.setIncludeMeta(includeMeta);
        dom.setRoot(value("meta"));
        EXPECT_EQ(write(dom), "\"meta\"\n");
        dom.setRoot(value());
        EXPECT_EQ(write(dom), "null\n");
    }
}

TEST_P(DocumentText, IsEmptyForARootOfNoKind) {
    for (const bool includeMeta : {true, false}) {
        Dom dom;
        dom.setIncludeMeta(includeMeta);
        dom.setRoot(std::make_unique<KindOnly>(etEmpty));
        EXPECT_EQ(write(dom), "");
    }
}

TEST_P(DocumentText, NeedsARoot) {
    for (const bool includeMeta : {true, false}) {
        Dom dom;
        dom.setIncludeMeta(includeMeta);
        EXPECT_EQ(thrown<Exception>([&] { write(dom); }), "Generator: document has no root!");
    }
}

TEST_P(DocumentText, NeedsARootAgainOnceItIsTaken) {
    Dom dom = read("[]");
    const std::unique_ptr<Element> taken = dom.takeRoot();
    EXPECT_EQ(thrown<Exception>([&] { write(dom); }), "Generator: document has no root!");
}

INSTANTIATE_TEST_SUITE_P(Generator, DocumentText, k_entrances, k_rowName);

TEST(DocumentStatus, IsThatOfTheLastEvent) {
    Dom dom;
    dom.setRoot(object());
    std::ostringstream out;
    Generator generator(&out);
    EXPECT_EQ(generator.print(dom), 0);
    EXPECT_EQ(generator.print(dom), 4);
    dom.setIncludeMeta(false);
    EXPECT_EQ(generator.print(dom), 4);
    dom.setRoot(std::make_unique<KindOnly>(6));
    EXPECT_EQ(generator.print(dom), 0);
    generator.flush();
    EXPECT_EQ(out.str(), "{\n\n}\n");
}

TEST(DocumentStatus, ADocumentWithoutARootWritesNothing) {
    std::ostringstream out;
    Generator generator(&out);
    EXPECT_EQ(thrown<Exception>([&] { generator.print(Dom()); }),
              "Generator: document has no root!");
    EXPECT_EQ(generator.gen_null(), 0);
    generator.flush();
    EXPECT_EQ(out.str(), "null\n");
}

TEST(DocumentStreamOperator, ReturnsTheStreamAndWritesUnformatted) {
    Dom dom;
    dom.setRoot(value(255));
    std::ostringstream out;
    out << std::hex;
    out.width(10);
    EXPECT_EQ(&(out << dom), &out);
    EXPECT_EQ(out.str(), "255\n");
    EXPECT_EQ(out.width(), 10);
}

TEST(DocumentStreamOperator, MakesAGeneratorForEachDocument) {
    Dom dom;
    dom.setRoot(array());
    std::ostringstream out;
    out << dom << dom << "end";
    EXPECT_EQ(out.str(), "[\n\n]\n[\n\n]\nend");
}

TEST(DocumentStreamOperator, WithoutARootLeavesTheStreamUntouched) {
    std::ostringstream out;
    out << "before";
    EXPECT_EQ(thrown<Exception>([&] { out << Dom(); }), "Generator: document has no root!");
    EXPECT_EQ(out.str(), "before");
    EXPECT_TRUE(out.good());
}

}  // namespace
