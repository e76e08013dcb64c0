#ifndef ZO_TESSERA_TESTS_CONTAINERS_TREETEXTS_H
#define ZO_TESSERA_TESTS_CONTAINERS_TREETEXTS_H

#include <cstddef>
#include <memory>
#include <string>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/readDocument.h>

#include "support/parsed.h"

/// An array of `count` items of all kinds in turn.
inline std::string itemsText(std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        static constexpr const char* k_items[] = {"1.50", "true",
                                                  R"("a text that is too long to be kept inside")",
                                                  "null", R"({"a":[]})"};
        text += (i == 0 ? "" : ",") + std::string(k_items[i % 5]);
    }
    return "[" + text + "]";
}

/// An object of `count` numbers, whose keys are "0", "1", ...
inline std::string membersText(std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += (i == 0 ? "\"" : ",\"") + std::to_string(i) + "\":" + std::to_string(i);
    }
    return "{" + text + "}";
}

/// An array of `count` zeros.
inline std::string zerosText(std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += i == 0 ? "0" : ",0";
    }
    return "[" + text + "]";
}

/// `depth` arrays, each alone in the one before.
inline std::string nestedText(std::size_t depth) {
    return std::string(depth, '[') + std::string(depth, ']');
}

/// A way to read a text.
struct Entrance {
    const char* name;
    std::unique_ptr<zo::Tessera::Element> (*read)(const std::string& text);
};

inline const Entrance k_parser = {"Parser", parsed};
inline const Entrance k_readDocument = {"ReadDocument", [](const std::string& text) {
                                            return zo::Tessera::readDocument(text).takeRoot();
                                        }};

#endif
