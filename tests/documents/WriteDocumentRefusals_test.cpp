#include <zo/Tessera/writeDocument.h>

#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "documents/ScratchFolder.h"
#include "generation/KindOnly.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

std::unique_ptr<Element> badNumber() {
    auto number = value(0);
    BasicNumber octal;
    octal.set("007");
    number->setNumberValue(octal);
    return number;
}

/// A tree that can be written, but for what stands at `path`.
std::unique_ptr<Element> treeWith(const std::string& json, const Path& path,
                                  const std::unique_ptr<Element>& bad) {
    std::unique_ptr<Element> root = parsed(json);
    root->set(path, *bad);
    return root;
}

struct Refused {
    const char* name;
    const char* json;
    const char* path;  // of what cannot be written, and as it is told
    std::unique_ptr<Element> (*bad)();
    const char* reason;
};

std::unique_ptr<Element> badString() {
    return value("caf\xE9");
}

const char* const k_noNumber = "the text \"007\" is no JSON number";
const char* const k_noUtf8 = "the string is not UTF-8";

const Refused k_refused[] = {
    {"Member", R"({"a":1})", "b", badNumber, k_noNumber},
    {"Item", "[1,2,3]", "[1]", badNumber, k_noNumber},
    {"FirstItem", "[1]", "[0]", badString, k_noUtf8},
    {"DeepItem", R"({"x":0,"a":{"list":[[],{},1]}})", "a.list[3]", badNumber, k_noNumber},
    {"DeepMember", R"([[],[{"a":1}]])", "[1][0].b", badString, k_noUtf8},
    {"BehindContainers", R"({"a":{"b":{"c":[]}},"d":[[1]]})", "e", badString, k_noUtf8},
    {"KeyWithEscapes", R"({"a.b":{}})", "a\\.b.c\\[0\\]", badNumber, k_noNumber},
};

class RefusedElement : public testing::TestWithParam<Refused> {
protected:
    const std::unique_ptr<Element> root =
        treeWith(GetParam().json, GetParam().path, GetParam().bad());
    const std::string message =
        std::string("Cannot write element \"") + GetParam().path + "\": " + GetParam().reason;
};

TEST_P(RefusedElement, IsNamedByItsPathBeforeAByteIsWritten) {
    std::ostringstream out;
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(out, *root); }), message);
    EXPECT_EQ(out.str(), "");
    EXPECT_TRUE(out.good());
}

TEST_P(RefusedElement, IsNamedInEveryLayout) {
    WriteOptions options;
    options.shortArrayWidth = 80;
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(*root, options); }), message);
    options.sortKeys = true;
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(*root, options); }), message);
    options.compact = true;
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(*root, options); }), message);
}

TEST_P(RefusedElement, IsNamedInACopyWhoseChildrenKnowNoPath) {
    const std::unique_ptr<Element> copy(root->clone());
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(*copy); }), message);
}

TEST_P(RefusedElement, LeavesTheFileAsItWas) {
    const ScratchFolder folder;
    putContents(folder / "a.json", "old");
    Dom document;
    document.setRoot(*root);
    EXPECT_EQ(thrown<Exception>([&] { writeDocumentFile(folder / "a.json", document); }), message);
    EXPECT_THROW(writeDocumentFile(folder / "b.json", document), Exception);
    EXPECT_EQ(contentsOf(folder / "a.json"), "old");
    EXPECT_EQ(folder.names(), (std::set<std::string>{"a.json"}));
}

INSTANTIATE_TEST_SUITE_P(WriteDocument, RefusedElement, testing::ValuesIn(k_refused), k_rowName);

TEST(WriteDocument, NamesThePathFromTheRootWrittenAndCapturesTheWholeOne) {
    const auto root = treeWith(R"({"a":{"b":[]}})", "a.b[0]", badNumber());
    try {
        writeDocument(root->at("a"));
        FAIL() << "nothing thrown";
    } catch (const Exception& exception) {
        EXPECT_STREQ(exception.what(),
                     "Cannot write element \"b[0]\": the text \"007\" is no JSON number");
        ASSERT_NE(exception.elementPath(), nullptr);
        EXPECT_EQ(*exception.elementPath(), "a.b[0]");
    }
}

TEST(WriteDocument, NamesTheFirstOfSeveralInTheOrderWritten) {
    const auto root = treeWith(R"({"b":0,"a":0})", "b", badNumber());
    root->set("a", badString());
    WriteOptions options;
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(*root, options); }),
              "Cannot write element \"b\": the text \"007\" is no JSON number");
    options.sortKeys = true;
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(*root, options); }),
              "Cannot write element \"a\": the string is not UTF-8");
}

TEST(WriteDocument, NamesTheMemberOfAKeyThatIsNotUtf8) {
    const std::unique_ptr<Element> root = parsed(R"({"a":[{}]})");
    Element::createNull(&root->get("a[0]"), "\xFF");
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(*root); }),
              "Cannot write element \"a[0].\xFF\": the key is not UTF-8");
}

TEST(WriteDocument, RefusesAKindThatJsonDoesNotHave) {
    Array list;
    list.push_back(new KindOnly(etEmpty));
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(list); }),
              "Cannot write element \"[0]\": JSON has no such kind of element");
}

TEST(WriteDocument, DoesNotMindAMetaMemberThatItLeavesOut) {
    Dom document;
    document.setRoot(treeWith(R"({"a":1})", "meta", badNumber()));
    WriteOptions options;
    options.compact = true;
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(document, options); }),
              "Cannot write element \"meta\": the text \"007\" is no JSON number");
    options.includeMeta = false;
    EXPECT_EQ(writeDocument(document, options), "{\"a\":1}\n");
}

}  // namespace
