#include <zo/Tessera/readDocument.h>

#include <sys/stat.h>

#include <filesystem>
#include <iterator>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "documents/ScratchFolder.h"
#include "documents/reading.h"

using namespace zo::Tessera;
namespace fs = std::filesystem;

namespace {

std::string fromFile(const fs::path& file, const ReadOptions& options = {}) {
    return outcome([&] { return readDocumentFile(file, options); });
}

std::string cannotRead(const fs::path& file, const std::string& reason) {
    return "Cannot read \"" + file.string() + "\": " + reason;
}

size_t openFiles() {
    return static_cast<size_t>(std::distance(fs::directory_iterator("/proc/self/fd"), {}));
}

class ReadFile : public testing::Test {
protected:
    /// A file of the folder that holds `text`.
    fs::path put(const std::string& name, const std::string& text) const {
        putContents(folder / name, text);
        return folder / name;
    }

    ScratchFolder folder;
};

TEST_F(ReadFile, GivesTheDocument) {
    const std::string text = "{\"a\": [1,\r\n \"b\"], \"c\": -1.50e3}\n";
    EXPECT_EQ(fromFile(put("a.json", text)), fromMemory(text));
    EXPECT_EQ(fromFile(put("a.json", "1")), "etNumber 1 key=\"\" index=- parent=none\n");
}

TEST_F(ReadFile, TakesAnyName) {
    EXPECT_EQ(fromFile(put("\xC3\xA9 \"b", "1")), "etNumber 1 key=\"\" index=- parent=none\n");
    EXPECT_EQ(fromFile(put("none", "null")), "etNull key=\"\" index=- parent=none\n");
}

TEST_F(ReadFile, GivesADocumentOfManyPieces) {
    std::string text = "[0";
    for (int i = 0; i < 50000; ++i) {
        text += ",\r\n\"abcdef\"";
    }
    EXPECT_EQ(fromFile(put("a.json", text + "]")), fromMemory(text + "]"));
    const fs::path file = put("a.json", text + "}");
    EXPECT_EQ(fromFile(file), "Parse error at 50001,9 in \"" + file.string() +
                                  "\", element \"\": parse error: after array element, I expect "
                                  "',' or ']'");
}

TEST_F(ReadFile, NamesTheFileThatIsMalformed) {
    const fs::path file = put("a b.json", "{\"list\": [0,\n1,\n     \"a\", x");
    const std::string name = '"' + file.string() + '"';
    EXPECT_EQ(fromFile(file),
              "Parse error at 3,11 in " + name +
                  ", element \"list[3]\": lexical error: invalid char in json text.");
    put("a b.json", "");
    EXPECT_EQ(fromFile(file), "Parse error at 1,1 in " + name +
                                  ", element \"\": unexpected end of text before a document");
    put("a b.json", "[] []");
    EXPECT_EQ(fromFile(file),
              "Parse error at 1,4 in " + name + ", element \"\": text behind the document");
    put("a b.json", "[1, /* a");
    EXPECT_EQ(fromFile(file), "Parse error at 1,9 in " + name +
                                  ", element \"[1]\": unexpected end of text within a comment");
}

TEST_F(ReadFile, ObeysItsOptions) {
    ReadOptions options;
    options.checkUtf8 = true;
    const fs::path file = put("a.json", "[\"\xFF\"]");
    EXPECT_EQ(fromFile(file, options), "Parse error at 1,3 in \"" + file.string() +
                                           "\", element \"[0]\": the text is not UTF-8");
    EXPECT_EQ(fromFile(file), fromMemory("[\"\xFF\"]"));
    EXPECT_EQ(fromFile(put("b.json", "\xEF\xBB\xBF[]")), fromMemory("[]"));
}

TEST_F(ReadFile, RefusesOneThatCannotBeRead) {
    EXPECT_EQ(fromFile(folder / "none"), cannotRead(folder / "none", "No such file or directory"));
    EXPECT_EQ(fromFile(folder / ""), cannotRead(folder / "", "Is a directory"));
    EXPECT_EQ(fromFile(put("a", "1") / "b"), cannotRead(folder / "a" / "b", "Not a directory"));
    EXPECT_EQ(fromFile(""), cannotRead("", "No such file or directory"));
    // Not the file whose name ends before the zero.
    const std::string zero("a\0b", 3);
    EXPECT_EQ(fromFile(folder / zero), cannotRead(folder / zero, "Invalid argument"));
    const fs::path longName = folder / std::string(300, 'a');
    EXPECT_EQ(fromFile(longName), cannotRead(longName, "File name too long"));
}

TEST_F(ReadFile, RefusesOneThatFailsOnTheWay) {
    // Nothing is mapped at its beginning.
    EXPECT_EQ(fromFile("/proc/self/mem"), cannotRead("/proc/self/mem", "Input/output error"));
}

TEST_F(ReadFile, ClosesTheFile) {
    const fs::path good = put("good.json", "[1]");
    const fs::path bad = put("bad.json", "[1");
    const size_t before = openFiles();
    for (int i = 0; i < 3; ++i) {
        fromFile(good);
        fromFile(bad);
        fromFile(folder / "none");
    }
    EXPECT_EQ(openFiles(), before);
}

TEST_F(ReadFile, LeavesTheFileAlone) {
    const fs::path file = put("a.json", "[1]");
    fs::permissions(file, fs::perms::owner_read);
    fromFile(file);
    EXPECT_EQ(contentsOf(file), "[1]");
}

/// A pipe that has a name, into which another thread writes.
TEST_F(ReadFile, ReadsAPipe) {
    for (const std::string& text :
         {std::string("[1, 2]"), std::string("[1, x]"), "[\"" + std::string(200000, 'a') + "\"]"}) {
        const fs::path pipe = folder / "pipe";
        ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
        std::thread writer([&] {
            std::ofstream out(pipe, std::ios::binary);
            out << text.substr(0, text.size() / 2) << std::flush << text.substr(text.size() / 2);
        });
        std::string expected = fromMemory(text);
        const size_t place = expected.find(" in element");
        if (place != std::string::npos) {
            expected.insert(place + 4, '"' + pipe.string() + "\", ");
        }
        EXPECT_EQ(fromFile(pipe), expected);
        writer.join();
        fs::remove(pipe);
    }
}

}  // namespace
