#include <zo/Tessera/writeDocument.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>

#include "documents/ScratchFolder.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace fs = std::filesystem;
using Names = std::set<std::string>;

namespace {

/// Files that do not exist yet get what this mask leaves of 0666.
class Mask {
public:
    explicit Mask(mode_t mask) : m_former(umask(mask)) {}
    Mask(const Mask&) = delete;
    Mask& operator=(const Mask&) = delete;
    ~Mask() { umask(m_former); }

private:
    mode_t m_former;
};

/// Writing beyond this size fails, as on a disk that is full.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : m_formerHandler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit{bytes, m_former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_formerHandler);
    }

private:
    void (*m_formerHandler)(int);
    rlimit m_former{};
};

mode_t modeOf(const fs::path& file) {
    struct stat status {};
    EXPECT_EQ(stat(file.c_str(), &status), 0);
    return status.st_mode & 07777;
}

std::string refusal(const fs::path& file, const std::string& reason) {
    return "Cannot write \"" + file.string() + "\": " + reason;
}

class WriteDocumentFile : public testing::Test {
protected:
    WriteDocumentFile() { document.setRoot(value("new")); }

    std::string thrownFor(const fs::path& name) const {
        return thrown<Exception>([&] { writeDocumentFile(name, document); });
    }

    const ScratchFolder folder;
    const fs::path file = folder / "a.json";
    const std::string text = "\"new\"\n";
    Dom document;
};

TEST_F(WriteDocumentFile, MakesAFileAsTheMaskAllows) {
    const Mask mask(027);
    writeDocumentFile(file, document);
    EXPECT_EQ(contentsOf(file), text);
    EXPECT_EQ(modeOf(file), 0640U);
    EXPECT_EQ(folder.names(), Names{"a.json"});
}

TEST_F(WriteDocumentFile, TakesOptions) {
    WriteOptions options;
    options.finalNewline = false;
    writeDocumentFile(file, document, options);
    EXPECT_EQ(contentsOf(file), "\"new\"");
}

TEST_F(WriteDocumentFile, TakesAnyElement) {
    writeDocumentFile(file, *object());
    EXPECT_EQ(contentsOf(file), "{}\n");
}

TEST_F(WriteDocumentFile, ReplacesAllContentsAndKeepsThePermissions) {
    const Mask mask(077);
    putContents(file, "old contents that are longer than what comes");
    chmod(file.c_str(), 0664);
    writeDocumentFile(file, document);
    EXPECT_EQ(contentsOf(file), text);
    EXPECT_EQ(modeOf(file), 0664U);
    EXPECT_EQ(folder.names(), Names{"a.json"});
}

TEST_F(WriteDocumentFile, ReplacesAFileThatMayOnlyBeRead) {
    putContents(file, "old");
    chmod(file.c_str(), 0444);
    writeDocumentFile(file, document);
    EXPECT_EQ(contentsOf(file), text);
    EXPECT_EQ(modeOf(file), 0444U);
}

TEST_F(WriteDocumentFile, LendsNobodysRights) {
    putContents(file, "old");
    chmod(file.c_str(), 06755);
    writeDocumentFile(file, document);
    EXPECT_EQ(modeOf(file), 0755U);
}

TEST_F(WriteDocumentFile, LeavesTheOldContentsToOtherLinks) {
    putContents(file, "old");
    fs::create_hard_link(file, folder / "b.json");
    writeDocumentFile(file, document);
    EXPECT_EQ(contentsOf(file), text);
    EXPECT_EQ(contentsOf(folder / "b.json"), "old");
}

TEST_F(WriteDocumentFile, WritesIntoTheWorkingFolderWithoutAFolderName) {
    const fs::path former = fs::current_path();
    fs::current_path(folder / "");
    writeDocumentFile("a.json", document);
    fs::current_path(former);
    EXPECT_EQ(contentsOf(file), text);
}

TEST_F(WriteDocumentFile, FollowsLinksToTheFileInItsOwnFolder) {
    fs::create_directory(folder / "data");
    fs::create_directory(folder / "links");
    const fs::path target = folder / "data/a.json";
    putContents(target, "old");
    chmod(target.c_str(), 0604);
    fs::create_symlink("../data/a.json", folder / "links/first");
    fs::create_symlink(folder / "links/first", folder / "second");
    writeDocumentFile(folder / "second", document);
    EXPECT_EQ(contentsOf(target), text);
    EXPECT_EQ(modeOf(target), 0604U);
    EXPECT_TRUE(fs::is_symlink(folder / "links/first"));
    EXPECT_TRUE(fs::is_symlink(folder / "second"));
    EXPECT_EQ(folder.names(), (Names{"data", "links", "second"}));
}

TEST_F(WriteDocumentFile, MakesTheFileThatALinkLacks) {
    fs::create_symlink("a.json", folder / "link");
    writeDocumentFile(folder / "link", document);
    EXPECT_EQ(contentsOf(file), text);
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
}

TEST_F(WriteDocumentFile, LeavesAloneWhatACrashLeftBehind) {
    const std::string left = ".tessera-" + std::to_string(getpid()) + "-0";
    putContents(folder / left, "left");
    writeDocumentFile(file, document);
    EXPECT_EQ(contentsOf(file), text);
    EXPECT_EQ(contentsOf(folder / left), "left");
    EXPECT_EQ(folder.names(), (Names{left, "a.json"}));
}

TEST_F(WriteDocumentFile, TakesTheLongestName) {
    const std::string name(255, 'a');
    writeDocumentFile(folder / name, document);
    EXPECT_EQ(contentsOf(folder / name), text);
    const fs::path tooLong = folder / (name + "a");
    EXPECT_EQ(thrownFor(tooLong), refusal(tooLong, "File name too long"));
    EXPECT_EQ(folder.names(), Names{name});
}

TEST_F(WriteDocumentFile, NeedsTheFolder) {
    EXPECT_EQ(thrownFor(folder / "no/a.json"),
              refusal(folder / "no/a.json", "No such file or directory"));
    EXPECT_EQ(thrownFor(folder / "a.json/"),
              refusal(folder / "a.json/", "No such file or directory"));
    EXPECT_EQ(thrownFor(""), refusal("", "No such file or directory"));
    EXPECT_EQ(folder.names(), Names{});
}

TEST_F(WriteDocumentFile, NeedsAFolderThatIsOne) {
    putContents(file, "old");
    EXPECT_EQ(thrownFor(file / "b.json"), refusal(file / "b.json", "Not a directory"));
    EXPECT_EQ(contentsOf(file), "old");
}

TEST_F(WriteDocumentFile, RefusesALinkToItself) {
    fs::create_symlink("a.json", file);
    EXPECT_EQ(thrownFor(file), refusal(file, "Too many levels of symbolic links"));
    EXPECT_TRUE(fs::is_symlink(file));
}

TEST_F(WriteDocumentFile, RefusesANameThatTheSystemWouldCutOff) {
    const fs::path name = folder / std::string("a.json\0.txt", 11);
    EXPECT_EQ(thrownFor(name), refusal(name, "Invalid argument"));
    EXPECT_EQ(folder.names(), Names{});
}

TEST_F(WriteDocumentFile, RefusesWhatIsNoRegularFile) {
    fs::create_directory(folder / "folder");
    EXPECT_EQ(thrownFor(folder / "folder"), refusal(folder / "folder", "Not a regular file"));
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(thrownFor(folder / "pipe"), refusal(folder / "pipe", "Not a regular file"));
    fs::create_symlink("pipe", folder / "link");
    EXPECT_EQ(thrownFor(folder / "link"), refusal(folder / "link", "Not a regular file"));
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
    EXPECT_EQ(folder.names(), (Names{"folder", "link", "pipe"}));
}

TEST_F(WriteDocumentFile, KeepsTheOldContentsIfTheDiskTakesNoMore) {
    putContents(file, "old");
    document.setRoot(value(std::string(100'000, 'a')));
    {
        const FileSizeLimit limit(4096);
        EXPECT_EQ(thrownFor(file), refusal(file, "File too large"));
        EXPECT_EQ(thrownFor(folder / "b.json"), refusal(folder / "b.json", "File too large"));
    }
    EXPECT_EQ(contentsOf(file), "old");
    EXPECT_EQ(folder.names(), Names{"a.json"});
}

TEST_F(WriteDocumentFile, NeedsARoot) {
    putContents(file, "old");
    document.setRoot(nullptr);
    EXPECT_EQ(thrownFor(file), "Cannot write a document without a root");
    EXPECT_EQ(contentsOf(file), "old");
}

}  // namespace
