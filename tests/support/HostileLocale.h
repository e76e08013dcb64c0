#ifndef ZO_TESSERA_TESTS_SUPPORT_HOSTILELOCALE_H
#define ZO_TESSERA_TESTS_SUPPORT_HOSTILELOCALE_H

#include <locale>
#include <string>

/// While it lives, the global locales of C++ and of C both write 1234567.5 as "1.234.567,5".
/// The C locale is compiled with the tests, for the system may have none; if it cannot be set the
/// constructor throws, so that no test passes without it.
class HostileLocale {
public:
    HostileLocale();
    HostileLocale(const HostileLocale&) = delete;
    HostileLocale& operator=(const HostileLocale&) = delete;
    ~HostileLocale();

private:
    std::string m_formerCLocale;
    std::locale m_formerLocale;
};

#endif
