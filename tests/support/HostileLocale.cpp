#include "support/HostileLocale.h"

#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace {

class CommaAndGroups : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

class WideCommaAndGroups : public std::numpunct<wchar_t> {
    wchar_t do_decimal_point() const override { return L','; }
    wchar_t do_thousands_sep() const override { return L'.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// A folder of this process with a C locale that has a decimal comma, as long as the process lives.
class LocaleFolder {
public:
    LocaleFolder() {
        std::filesystem::create_directories(m_path);
        const std::string command =
            "localedef -i de_DE -f UTF-8 '" + (m_path / "de_DE.UTF-8").string() + "' 2>/dev/null";
        if (std::system(command.c_str()) != 0) {
            std::filesystem::remove_all(m_path);
            throw std::runtime_error("cannot compile a C locale: install the package locales");
        }
    }
    LocaleFolder(const LocaleFolder&) = delete;
    LocaleFolder& operator=(const LocaleFolder&) = delete;
    ~LocaleFolder() { std::filesystem::remove_all(m_path); }

    const char* path() const { return m_path.c_str(); }

private:
    std::filesystem::path m_path =
        std::filesystem::temp_directory_path() / ("tessera-locale-" + std::to_string(getpid()));
};

void setHostileCLocale() {
    static const LocaleFolder folder;
    setenv("LOCPATH", folder.path(), 1);
    const char* const set = std::setlocale(LC_ALL, "de_DE.UTF-8");
    unsetenv("LOCPATH");
    if (!set) {
        throw std::runtime_error("no C locale with a decimal comma");
    }
}

}  // namespace

HostileLocale::HostileLocale() : m_formerCLocale(std::setlocale(LC_ALL, nullptr)) {
    // Unnamed, so that setting it leaves the C locale alone.
    m_formerLocale = std::locale::global(
        std::locale(std::locale(std::locale(), new CommaAndGroups), new WideCommaAndGroups));
    try {
        setHostileCLocale();
    } catch (...) {
        std::locale::global(m_formerLocale);
        throw;
    }
}

HostileLocale::~HostileLocale() {
    std::locale::global(m_formerLocale);
    std::setlocale(LC_ALL, m_formerCLocale.c_str());
}
