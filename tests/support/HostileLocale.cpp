#include "support/HostileLocale.h"

#include <clocale>
#include <cstdlib>
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

void setHostileCLocale() {
    setenv("LOCPATH", TESSERA_TEST_LOCALES, 1);
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
