// This program takes the place of the functions by which a file reaches the disk, to see in which
// order they are called and to have them fail.

#include <zo/Tessera/writeDocument.h>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <set>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>

#include "documents/ScratchFolder.h"
#include "support/rowName.h"
#include "support/thrown.h"

namespace {

/// What is done with the calls made while it lives.
struct Calls {
    Calls() { s_current = this; }
    Calls(const Calls&) = delete;
    Calls& operator=(const Calls&) = delete;
    ~Calls() { s_current = nullptr; }

    /// Notes a call. Whether it is to fail, with `errno` set.
    bool fails(const std::string& call) {
        log += call + ';';
        if (call != failing || timesToFail == 0) {
            return false;
        }
        --timesToFail;
        errno = error;
        return true;
    }

    static inline Calls* s_current = nullptr;

    std::string failing;
    int error = 0;
    int timesToFail = 1;
    size_t mostWritten = ~size_t{0};
    std::string log;
};

template <class Function>
Function* real(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool isToFail(const std::string& call) {
    return Calls::s_current && Calls::s_current->fails(call);
}

struct stat statusOf(int descriptor) {
    struct stat status {};
    fstat(descriptor, &status);
    return status;
}

std::string kindOf(int descriptor) {
    return S_ISDIR(statusOf(descriptor).st_mode) ? "folder" : "file";
}

std::string modeOf(int descriptor) {
    std::ostringstream out;
    out << std::oct << (statusOf(descriptor).st_mode & 07777);
    return out.str();
}

}  // namespace

[[gnu::visibility("default")]] ssize_t write(int descriptor, const void* bytes, size_t count) {
    if (Calls::s_current) {
        count = std::min(count, Calls::s_current->mostWritten);
    }
    return isToFail("write") ? -1 : real(&write, "write")(descriptor, bytes, count);
}

[[gnu::visibility("default")]] int fsync(int descriptor) {
    return isToFail("fsync " + kindOf(descriptor)) ? -1 : real(&fsync, "fsync")(descriptor);
}

// As the system does, it closes even if it fails.
[[gnu::visibility("default")]] int close(int descriptor) {
    const bool fails = Calls::s_current && isToFail("close " + kindOf(descriptor));
    const int error = errno;
    const int result = real(&close, "close")(descriptor);
    errno = fails ? error : errno;
    return fails ? -1 : result;
}

[[gnu::visibility("default")]] int fchmod(int descriptor, mode_t mode) noexcept {
    const std::string former = Calls::s_current ? modeOf(descriptor) : "";
    return isToFail("fchmod from " + former) ? -1 : real(&fchmod, "fchmod")(descriptor, mode);
}

[[gnu::visibility("default")]] int renameat(int folder, const char* name, int newFolder,
                                            const char* newName) noexcept {
    return isToFail("rename") ? -1 : real(&renameat, "renameat")(folder, name, newFolder, newName);
}

[[gnu::visibility("default")]] int unlinkat(int folder, const char* name, int flags) noexcept {
    return isToFail("unlink") ? -1 : real(&unlinkat, "unlinkat")(folder, name, flags);
}

using namespace zo::Tessera;

namespace {

const std::string k_newFile = "write;fsync file;close file;rename;fsync folder;close folder;";
const std::string k_oldFile = "fchmod from 600;" + k_newFile;

class FileCalls : public testing::Test {
protected:
    FileCalls() { document.setRoot(value("new")); }

    const ScratchFolder folder;
    const std::filesystem::path file = folder / "a.json";
    const std::set<std::string> alone{"a.json"};
    Dom document;
};

TEST_F(FileCalls, MakeANewFileSafeBeforeItGetsItsName) {
    Calls calls;
    writeDocumentFile(file, document);
    EXPECT_EQ(calls.log, k_newFile);
}

TEST_F(FileCalls, HideTheNewContentsOfAnExistingFileUntilItHasItsMode) {
    putContents(file, "old");
    Calls calls;
    writeDocumentFile(file, document);
    EXPECT_EQ(calls.log, k_oldFile);
}

TEST_F(FileCalls, GoOnAfterShortWrites) {
    std::string log;
    {
        Calls calls;
        calls.mostWritten = 4;
        writeDocumentFile(file, document);
        log = calls.log;
    }
    EXPECT_EQ(log, "write;" + k_newFile);
    EXPECT_EQ(contentsOf(file), "\"new\"\n");
}

struct Failure {
    const char* name;
    const char* call;
    int error;
    const char* reason;
    const char* log;
};

class FailingCall : public FileCalls, public testing::WithParamInterface<Failure> {
protected:
    /// The message of the failure; `log` is what was called.
    std::string failure() {
        putContents(file, "old");
        Calls calls;
        calls.failing = GetParam().call;
        calls.error = GetParam().error;
        const std::string message = thrown<Exception>([&] { writeDocumentFile(file, document); });
        log = calls.log;
        return message;
    }

    const std::string expected = "Cannot write \"" + file.string() + "\": " + GetParam().reason;
    std::string log;
};

class CallThatFailsBeforeTheRename : public FailingCall {};

TEST_P(CallThatFailsBeforeTheRename, IsReportedAndLeavesTheOldFileAlone) {
    EXPECT_EQ(failure(), expected);
    EXPECT_EQ(log, GetParam().log);
    EXPECT_EQ(contentsOf(file), "old");
    EXPECT_EQ(folder.names(), alone);
}

INSTANTIATE_TEST_SUITE_P(
    Each, CallThatFailsBeforeTheRename,
    testing::Values(Failure{"Fchmod", "fchmod from 600", EPERM, "Operation not permitted",
                            "fchmod from 600;unlink;close file;close folder;"},
                    Failure{"Write", "write", ENOSPC, "No space left on device",
                            "fchmod from 600;write;unlink;close file;close folder;"},
                    Failure{"FlushOfTheFile", "fsync file", EIO, "Input/output error",
                            "fchmod from 600;write;fsync file;unlink;close file;close folder;"},
                    Failure{"Close", "close file", EDQUOT, "Disk quota exceeded",
                            "fchmod from 600;write;fsync file;close file;unlink;close folder;"},
                    Failure{
                        "Rename", "rename", EACCES, "Permission denied",
                        "fchmod from 600;write;fsync file;close file;rename;unlink;close folder;"}),
    k_rowName);

class CallThatFailsAfterTheRename : public FailingCall {};

TEST_P(CallThatFailsAfterTheRename, IsReportedWithTheNewFileInPlace) {
    EXPECT_EQ(failure(), expected);
    EXPECT_EQ(log, k_oldFile);
    EXPECT_EQ(contentsOf(file), "\"new\"\n");
    EXPECT_EQ(folder.names(), alone);
}

INSTANTIATE_TEST_SUITE_P(Each, CallThatFailsAfterTheRename,
                         testing::Values(Failure{"FlushOfTheFolder", "fsync folder", EIO,
                                                 "Input/output error", ""}),
                         k_rowName);

class CallThatNeedNotSucceed : public FailingCall {};

TEST_P(CallThatNeedNotSucceed, IsMadeAgainIfThatHelps) {
    EXPECT_EQ(failure(), "<< nothing thrown >>");
    EXPECT_EQ(log, GetParam().log);
    EXPECT_EQ(contentsOf(file), "\"new\"\n");
    EXPECT_EQ(folder.names(), alone);
}

INSTANTIATE_TEST_SUITE_P(
    Each, CallThatNeedNotSucceed,
    testing::Values(
        Failure{"InterruptedWrite", "write", EINTR, "",
                "fchmod from 600;write;write;fsync file;close file;rename;fsync folder;close "
                "folder;"},
        Failure{"InterruptedFlush", "fsync file", EINTR, "",
                "fchmod from 600;write;fsync file;fsync file;close file;rename;fsync folder;close "
                "folder;"},
        Failure{"InterruptedFlushOfTheFolder", "fsync folder", EINTR, "",
                "fchmod from 600;write;fsync file;close file;rename;fsync folder;fsync "
                "folder;close folder;"},
        Failure{"InterruptedClose", "close file", EINTR, "",
                "fchmod from 600;write;fsync file;close file;rename;fsync folder;close folder;"},
        Failure{"FlushThatTheFolderDoesNotKnow", "fsync folder", EINVAL, "",
                "fchmod from 600;write;fsync file;close file;rename;fsync folder;close folder;"}),
    k_rowName);

}  // namespace
