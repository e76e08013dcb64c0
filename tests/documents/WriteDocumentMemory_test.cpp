#include <zo/Tessera/writeDocument.h>

#include <memory>
#include <set>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>

#include "documents/ScratchFolder.h"
#include "failures/outOfMemory.h"
#include "support/dump.h"
#include "support/parsed.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

/// With texts that need memory of their own, one of which has to be mended.
Dom document() {
    Dom document;
    document.setRoot(parsed("{\"" + k_long + "\":[1,[" + std::string(40, '7') + ",2.5],{\"b\":\"" +
                            k_long + "\xFF\",\"a\":[[[]]]}],\"meta\":\"" + k_long + "\"}"));
    return document;
}

WriteOptions everything() {
    WriteOptions options;
    options.indent = std::string(20, ' ');
    options.shortArrayWidth = 60;
    options.sortKeys = true;
    options.escapeNonAscii = true;
    options.replaceInvalidUtf8 = true;
    options.includeMeta = false;
    return options;
}

TEST(OutOfMemoryInWriteDocument, GivesNoTextAndChangesNothing) {
    const Dom dom = document();
    const WriteOptions options = everything();
    const std::string expected = writeDocument(dom, options);
    const std::string state = dump(*dom.root());
    std::string text;
    const auto check = [&] {
        EXPECT_EQ(text, "");
        EXPECT_EQ(dump(*dom.root()), state);
    };
    EXPECT_GT(failEachAllocation([&] { text.clear(); }, [&] { text = writeDocument(dom, options); },
                                 check),
              10);
    EXPECT_EQ(text, expected);
}

TEST(OutOfMemoryInWriteDocument, WritesNothingToAStream) {
    const Dom dom = document();
    const WriteOptions options = everything();
    const std::string expected = writeDocument(dom, options);
    const std::string blank(expected.size(), '.');
    std::unique_ptr<std::ostringstream> out;
    // Its room lasts for the text, so that what fails is not the stream itself.
    const auto prepare = [&] { out = std::make_unique<std::ostringstream>(blank); };
    const auto check = [&] {
        EXPECT_TRUE(out->good());
        EXPECT_EQ(out->str(), blank);
    };
    EXPECT_GT(failEachAllocation(
                  prepare, [&] { writeDocument(*out, dom, options); }, check),
              10);
    EXPECT_EQ(out->str(), expected);
}

TEST(OutOfMemoryInWriteDocument, LeavesTheFileAndNothingBesideIt) {
    const ScratchFolder folder;
    const std::filesystem::path link = folder / "link.json";
    std::filesystem::create_symlink("a.json", link);
    const Dom dom = document();
    const WriteOptions options = everything();
    const std::set<std::string> names{"a.json", "link.json"};
    const auto prepare = [&] { putContents(folder / "a.json", "old"); };
    const auto check = [&] {
        EXPECT_EQ(contentsOf(folder / "a.json"), "old");
        EXPECT_EQ(folder.names(), names);
    };
    const auto write = [&] { writeDocumentFile(link, dom, options); };
    EXPECT_GT(failEachAllocation(prepare, write, check), 15);
    EXPECT_EQ(contentsOf(folder / "a.json"), writeDocument(dom, options));
    EXPECT_EQ(folder.names(), names);
}

TEST(OutOfMemoryInWriteDocument, IsNotTakenForARefusal) {
    Dom dom = document();
    std::string message;
    const auto write = [&] {
        try {
            writeDocument(dom);
        } catch (const Exception& exception) {
            exception.generateWhat(message);
        }
    };
    const auto check = [&] { EXPECT_EQ(message, ""); };
    EXPECT_GT(failEachAllocation([&] { message.clear(); }, write, check), 10);
    EXPECT_EQ(message, "Cannot write element \"" + k_long + "[2].b\": the string is not UTF-8");
}

}  // namespace
