#include <zo/Tessera/writeDocument.h>

#include <cstddef>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>

#include "documents/ScratchFolder.h"
#include "support/parsed.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

constexpr size_t k_levels = 100'000;

std::string repeated(const std::string& text, size_t times) {
    std::string result;
    for (size_t i = 0; i < times; ++i) {
        result += text;
    }
    return result;
}

/// `{"a":{"a":...null...}}`, so many levels deep, or as many arrays.
std::string deepObjects(size_t levels) {
    return repeated("{\"a\":", levels) + "null" + repeated("}", levels);
}
std::string deepArrays(size_t levels) {
    return repeated("[", levels) + "null" + repeated("]", levels);
}

WriteOptions compact() {
    WriteOptions options;
    options.compact = true;
    options.finalNewline = false;
    return options;
}

WriteOptions indentedByOne() {
    WriteOptions options;
    options.indent = " ";
    return options;
}

/// Arrays as deep as `levels`, laid out with `indentedByOne`.
std::string arraysOnLines(size_t levels) {
    const auto lineAt = [](size_t depth) {
        return '\n' + std::string(depth < 256 ? depth : 256, ' ');
    };
    std::string text = "[";
    for (size_t depth = 1; depth < levels; ++depth) {
        text += lineAt(depth) + '[';
    }
    text += lineAt(levels) + "null";
    for (size_t depth = levels; depth-- > 0;) {
        text += lineAt(depth) + ']';
    }
    return text + '\n';
}

TEST(WriteDocument, WritesAnyDepthOnOneLine) {
    const std::string objects = deepObjects(k_levels);
    EXPECT_TRUE(writeDocument(*parsed(objects), compact()) == objects);
    const std::string arrays = deepArrays(k_levels);
    EXPECT_TRUE(writeDocument(*parsed(arrays), compact()) == arrays);
}

TEST(WriteDocument, WritesAnyDepthOnManyLines) {
    const std::unique_ptr<Element> root = parsed(deepArrays(k_levels));
    EXPECT_TRUE(writeDocument(*root, indentedByOne()) == arraysOnLines(k_levels));
}

TEST(WriteDocument, WritesAnyDepthWithKeysSortedAndArraysShort) {
    WriteOptions options = indentedByOne();
    options.indent = "";
    options.sortKeys = true;
    options.shortArrayWidth = 80;
    EXPECT_TRUE(writeDocument(*parsed(deepObjects(k_levels)), options) ==
                repeated("{\n\"a\": ", k_levels) + "null" + repeated("\n}", k_levels) + '\n');
    EXPECT_TRUE(writeDocument(*parsed(deepArrays(k_levels)), options) ==
                repeated("[\n", k_levels - 1) + "[null]" + repeated("\n]", k_levels - 1) + '\n');
}

TEST(WriteDocument, WritesAnyDepthIntoAFile) {
    const ScratchFolder folder;
    Dom document;
    document.setRoot(parsed(deepArrays(k_levels)));
    writeDocumentFile(folder / "deep.json", document, compact());
    EXPECT_TRUE(contentsOf(folder / "deep.json") == deepArrays(k_levels));
}

TEST(WriteDocument, NamesThePathOfWhatIsRefusedAtAnyDepth) {
    const std::string text = repeated("[", k_levels) + "\"\xFF\"" + repeated("]", k_levels);
    const std::unique_ptr<Element> root = parsed(text);
    EXPECT_TRUE(thrown<Exception>([&] { writeDocument(*root); }) ==
                "Cannot write element \"" + repeated("[0]", k_levels) +
                    "\": the string is not UTF-8");
}

TEST(DeepestIndent, IsThatOf256Levels) {
    EXPECT_EQ(WriteOptions::k_deepestIndent, 256U);
    for (const size_t levels : {255U, 256U, 257U, 300U}) {
        EXPECT_EQ(writeDocument(*parsed(deepArrays(levels)), indentedByOne()),
                  arraysOnLines(levels));
    }
}

}  // namespace
