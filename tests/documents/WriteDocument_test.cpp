#include <zo/Tessera/writeDocument.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "documents/writtenEverywhere.h"
#include "support/HostileLocale.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

Dom documentOf(const std::string& json) {
    Dom document;
    document.setRoot(parsed(json));
    return document;
}

const char* const k_streamFailed = "The stream failed while a document was written";

TEST(WriteDocument, IndentsByFourBlanksAndEndsTheLastLine) {
    const Dom document = documentOf(R"({"name":"Ada","list":[1,{"x":null}],"none":[],"nil":{}})");
    EXPECT_EQ(writtenEverywhere(document), R"({
    "name": "Ada",
    "list": [
        1,
        {
            "x": null
        }
    ],
    "none": [],
    "nil": {}
}
)");
}

struct Lone {
    const char* name;
    const char* json;
    const char* text;
};

class LoneElement : public testing::TestWithParam<Lone> {};

TEST_P(LoneElement, IsADocument) {
    EXPECT_EQ(writtenEverywhere(*parsed(GetParam().json)), GetParam().text);
    EXPECT_EQ(writtenEverywhere(documentOf(GetParam().json)), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    WriteDocument, LoneElement,
    testing::Values(Lone{"Null", "null", "null\n"}, Lone{"True", "true", "true\n"},
                    Lone{"False", "false", "false\n"}, Lone{"Number", "-1.50 ", "-1.50\n"},
                    Lone{"String", "\"a\"", "\"a\"\n"}, Lone{"EmptyArray", "[]", "[]\n"},
                    Lone{"EmptyObject", "{}", "{}\n"},
                    Lone{"ArrayOfOne", "[null]", "[\n    null\n]\n"}),
    k_rowName);

TEST(WriteDocument, WritesAnElementAndWhatIsBelowIt) {
    const std::unique_ptr<Element> root = parsed(R"({"a":{"b":[true]},"c":1})");
    EXPECT_EQ(writtenEverywhere(root->at("a")), "{\n    \"b\": [\n        true\n    ]\n}\n");
}

TEST(WriteDocument, WritesATreeWhoseChildrenAreNotAttached) {
    const std::unique_ptr<Element> root = parsed(R"({"a":[1]})");
    const std::unique_ptr<Element> copy(root->clone());
    ASSERT_EQ(copy->at("a").parent(), nullptr);
    EXPECT_EQ(writtenEverywhere(*copy), "{\n    \"a\": [\n        1\n    ]\n}\n");
}

TEST(WriteDocument, LeavesOutTheMetaMemberOfTheRootIfTheDocumentSaysSo) {
    Dom document = documentOf(R"({"m":1,"a":{"m":2},"meta":3})");
    document.setMetaKey("m");
    document.setIncludeMeta(false);
    EXPECT_EQ(writtenEverywhere(document),
              "{\n    \"a\": {\n        \"m\": 2\n    },\n    \"meta\": 3\n}\n");
    EXPECT_EQ(document.root()->size(), 3U);
}

TEST(WriteDocument, LeavesAnEmptyObjectWhereNothingButMetaStood) {
    Dom document = documentOf(R"({"meta":{"a":1}})");
    document.setIncludeMeta(false);
    EXPECT_EQ(writtenEverywhere(document), "{}\n");
}

TEST(WriteDocument, LooksForNoMetaMemberInAnArray) {
    Dom document = documentOf(R"([{"meta":1}])");
    document.setIncludeMeta(false);
    EXPECT_EQ(writtenEverywhere(document), "[\n    {\n        \"meta\": 1\n    }\n]\n");
}

TEST(WriteDocument, NeedsARoot) {
    std::ostringstream out;
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(out, Dom()); }),
              "Cannot write a document without a root");
    EXPECT_EQ(out.str(), "");
    EXPECT_TRUE(out.good());
}

TEST(WriteDocument, IgnoresAndKeepsHowAStreamIsFormatted) {
    std::ostringstream out;
    out.width(9);
    out.fill('*');
    out.setf(std::ios::hex | std::ios::showbase, std::ios::basefield | std::ios::showbase);
    writeDocument(out, *parsed("[10]"));
    EXPECT_EQ(out.str(), "[\n    10\n]\n");
    EXPECT_EQ(out.width(), 9);
}

TEST(WriteDocument, DependsOnNoLocale) {
    const HostileLocale locale;
    Array list;
    list.push_back(value(1234567).release());
    list.push_back(value(0.5).release());
    std::ostringstream out;
    writeDocument(out, list);
    EXPECT_EQ(out.str(), "[\n    1234567,\n    0.5\n]\n");
}

TEST(WriteDocument, WritesBehindWhatAStreamHolds) {
    std::ostringstream out;
    out << "x";
    writeDocument(writeDocument(out, *parsed("1 ")), *parsed("2 "));
    EXPECT_EQ(out.str(), "x1\n2\n");
}

TEST(WriteDocument, ReportsAStreamThatFails) {
    // A device that is always full, and a text that no stream buffer holds back.
    std::ofstream full("/dev/full");
    ASSERT_TRUE(full.is_open());
    const Dom document = documentOf('"' + std::string(1 << 20, 'a') + '"');
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(full, document); }), k_streamFailed);
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(full, *document.root()); }), k_streamFailed);
}

class SpentStream : public testing::TestWithParam<std::ios::iostate> {};

TEST_P(SpentStream, IsReportedAndLeftAsItIs) {
    std::stringstream out;
    out.setstate(GetParam());
    EXPECT_EQ(thrown<Exception>([&] { writeDocument(out, documentOf("[]")); }), k_streamFailed);
    EXPECT_EQ(out.str(), "");
}

INSTANTIATE_TEST_SUITE_P(WriteDocument, SpentStream,
                         testing::Values(std::ios::badbit, std::ios::failbit, std::ios::eofbit));

TEST(WriteDocument, PassesOnWhatAStreamWasToldToThrow) {
    std::ofstream full("/dev/full");
    full.exceptions(std::ios::badbit);
    const Dom document = documentOf('"' + std::string(1 << 20, 'a') + '"');
    EXPECT_THROW(writeDocument(full, document), std::ios::failure);
}

}  // namespace
