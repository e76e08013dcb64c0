#ifndef ZO_TESSERA_TESTS_DOCUMENTS_SCRATCHFOLDER_H
#define ZO_TESSERA_TESTS_DOCUMENTS_SCRATCHFOLDER_H

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>

/// A folder of a test's own, which goes with it.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = std::filesystem::temp_directory_path() / "tessera-test-XXXXXX";
        if (!mkdtemp(name.data())) {
            throw std::runtime_error("no folder can be made like " + name);
        }
        m_path = name;
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    std::filesystem::path operator/(const std::filesystem::path& name) const {
        return m_path / name;
    }

    /// What stands in the folder, hidden files included.
    std::set<std::string> names() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
            names.insert(entry.path().filename());
        }
        return names;
    }

private:
    std::filesystem::path m_path;
};

inline void putContents(const std::filesystem::path& file, const std::string& contents) {
    std::ofstream(file, std::ios::binary) << contents;
}

inline std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        return "<< no such file >>";
    }
    return {std::istreambuf_iterator<char>(in), {}};
}

#endif
