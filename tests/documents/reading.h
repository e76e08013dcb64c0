#ifndef ZO_TESSERA_TESTS_DOCUMENTS_READING_H
#define ZO_TESSERA_TESTS_DOCUMENTS_READING_H

#include <gtest/gtest.h>

#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>
#include <typeinfo>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/readDocument.h>

#include "support/dump.h"

/// How long the pieces are in which a stream is read.
constexpr std::size_t k_pieceLength = 65536;

/// What the document `1` comes to.
constexpr const char* k_one = "etNumber 1 key=\"\" index=- parent=none\n";

/// What `read`, which gives a document, comes to: the `dump` of its root, or what the
/// `ParseException` says. That its parts make up its text is checked. Anything else gives a text
/// that equals neither.
template <class Read>
std::string outcome(const Read& read) {
    try {
        const zo::Tessera::Dom document = read();
        return document.root() ? dump(*document.root()) : "<< no root >>";
    } catch (const zo::Tessera::ParseException& refusal) {
        EXPECT_EQ(typeid(refusal).name(), typeid(zo::Tessera::ParseException).name());
        EXPECT_EQ(refusal.endLine(), -1);
        EXPECT_EQ(refusal.endColumn(), -1);
        std::string what;
        refusal.generateWhat(what);
        std::string parts = refusal.message();
        if (refusal.line() != -1) {
            parts.insert(0, "Parse error at " + std::to_string(refusal.line()) + ',' +
                                std::to_string(refusal.column()));
        }
        EXPECT_EQ(what, parts);
        return what;
    } catch (const std::exception& other) {
        return std::string("<< ") + typeid(other).name() + ": " + other.what() + " >>";
    }
}

inline std::string fromMemory(std::string_view text, const zo::Tessera::ReadOptions& options = {}) {
    return outcome([&] { return zo::Tessera::readDocument(text, options); });
}

inline std::string fromStream(std::string_view text, const zo::Tessera::ReadOptions& options = {}) {
    return outcome([&] {
        std::istringstream in{std::string(text)};
        return zo::Tessera::readDocument(in, options);
    });
}

/// What the two of them come to, which has to be the same.
inline std::string fromBoth(std::string_view text, const zo::Tessera::ReadOptions& options = {}) {
    std::string result = fromMemory(text, options);
    EXPECT_EQ(fromStream(text, options), result);
    return result;
}

#endif
