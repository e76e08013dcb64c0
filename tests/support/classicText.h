#ifndef ZO_TESSERA_TESTS_SUPPORT_CLASSICTEXT_H
#define ZO_TESSERA_TESTS_SUPPORT_CLASSICTEXT_H

#include <locale>
#include <sstream>
#include <string>

/// What a stream writes of `values` one after the other, among them its manipulators, where no
/// locale has a say: as the library's exceptions write numbers and addresses.
template <class... Values>
std::string classicText(const Values&... values) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    (out << ... << values);
    return out.str();
}

#endif
