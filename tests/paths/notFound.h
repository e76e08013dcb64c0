#ifndef ZO_TESSERA_TESTS_PATHS_NOTFOUND_H
#define ZO_TESSERA_TESTS_PATHS_NOTFOUND_H

#include <string>

#include <zo/Tessera/Exception.h>

#include "support/classicText.h"
#include "support/thrown.h"

/// The text of the `PathNotFound` that `action` throws. It shows the current element by an address;
/// the path that is stored there stands in its place.
template <class Action>
std::string notFound(const Action& action) {
    std::string address;
    std::string path;
    std::string text = thrown<zo::Tessera::PathNotFound>([&] {
        try {
            action();
        } catch (const zo::Tessera::PathNotFound& exception) {
            address = classicText(exception.elementPath());
            path = *exception.elementPath();
            throw;
        }
    });
    const size_t at = text.find("\"" + address + "\"");
    return at == std::string::npos ? text : text.replace(at + 1, address.size(), path);
}

#endif
