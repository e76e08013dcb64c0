#include "documents/replaceFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>
#include <utility>

#include <zo/Tessera/Exception.h>

#include "support/errorText.h"

namespace zo::Tessera {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(int error) {
    throw std::system_error(error, std::generic_category());
}

/// Passes a system call's result on, unless that is a failure.
template <class Result>
Result checked(Result result) {
    if (result < 0) {
        fail(errno);
    }
    return result;
}

/// The result of `call`, made again as long as signals interrupt it.
template <class Call>
auto uninterrupted(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (m_number >= 0) {
            ::close(m_number);
        }
    }

    int number() const { return m_number; }

    void close() {
        // Interrupted or not, it is closed: a second call would hit another file.
        if (::close(std::exchange(m_number, -1)) < 0 && errno != EINTR) {
            fail(errno);
        }
    }

private:
    int m_number;
};

/// A new file in a folder, which is removed again unless it is given a name.
class TemporaryFile {
public:
    TemporaryFile(const Descriptor& folder, mode_t mode)
        : m_folder(folder), m_descriptor(create(mode)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!m_named) {
            ::unlinkat(m_folder.number(), m_name.c_str(), 0);
        }
    }

    void setMode(mode_t mode) { checked(::fchmod(m_descriptor.number(), mode)); }

    void write(std::string_view text) {
        while (!text.empty()) {
            const auto written = checked(uninterrupted(
                [&] { return ::write(m_descriptor.number(), text.data(), text.size()); }));
            text.remove_prefix(static_cast<size_t>(written));
        }
    }

    /// All that was written is then on the disk.
    void close() {
        checked(uninterrupted([&] { return ::fsync(m_descriptor.number()); }));
        m_descriptor.close();
    }

    /// Takes the place of the file that has the name.
    void giveName(const fs::path& name) {
        checked(::renameat(m_folder.number(), m_name.c_str(), m_folder.number(), name.c_str()));
        m_named = true;
    }

private:
    int create(mode_t mode) {
        constexpr int k_flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
        for (unsigned int attempt = 0;; ++attempt) {
            m_name = ".tessera-" + std::to_string(::getpid()) + '-' + std::to_string(attempt);
            const int number = uninterrupted(
                [&] { return ::openat(m_folder.number(), m_name.c_str(), k_flags, mode); });
            if (number >= 0 || errno != EEXIST) {
                return checked(number);
            }
        }
    }

    const Descriptor& m_folder;
    std::string m_name;
    Descriptor m_descriptor;
    bool m_named = false;
};

/// The file that `file` stands for, whether or not it exists: links are followed.
fs::path linkTarget(fs::path file) {
    // The system itself follows no more.
    constexpr int k_mostLinks = 40;
    for (int links = 0; links < k_mostLinks && fs::is_symlink(fs::symlink_status(file)); ++links) {
        file = file.parent_path() / fs::read_symlink(file);
    }
    return file;
}

Descriptor openFolder(const fs::path& folder) {
    const char* const name = folder.empty() ? "." : folder.c_str();
    return Descriptor(
        checked(uninterrupted([&] { return ::open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC); })));
}

void flushFolder(const Descriptor& folder) {
    // Some file systems have no such operation.
    if (uninterrupted([&] { return ::fsync(folder.number()); }) < 0 && errno != EINVAL) {
        fail(errno);
    }
}

/// Nothing allocates once the new file has its name: all fails before, but for the last flush.
void replace(const fs::path& file, fs::file_status status, std::string_view text) {
    const fs::path target = linkTarget(file);
    const Descriptor folder = openFolder(target.parent_path());
    const bool exists = fs::exists(status);
    constexpr mode_t k_ownerOnly = 0600;
    constexpr mode_t k_usual = 0666;
    const fs::path name = target.filename();
    TemporaryFile temporary(folder, exists ? k_ownerOnly : k_usual);
    if (exists) {
        // Without the bits that would lend a new owner's rights.
        temporary.setMode(static_cast<mode_t>(status.permissions() & fs::perms::all));
    }
    temporary.write(text);
    temporary.close();
    temporary.giveName(name);
    flushFolder(folder);
}

[[noreturn]] void refuse(const fs::path& file, const std::string& reason) {
    throw Exception("Cannot write \"" + file.string() + "\": " + reason);
}

}  // namespace

void replaceFile(const fs::path& file, std::string_view text) {
    try {
        if (file.native().find('\0') != std::string::npos) {
            fail(EINVAL);
        }
        const fs::file_status status = fs::status(file);
        if (fs::exists(status) && !fs::is_regular_file(status)) {
            refuse(file, "Not a regular file");
        }
        replace(file, status, text);
    } catch (const std::system_error& error) {
        refuse(file, errorText(error.code().value()));
    }
}

}  // namespace zo::Tessera
