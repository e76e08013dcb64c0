#ifndef ZO_TESSERA_TESTS_DOCUMENTS_STRICTLY_H
#define ZO_TESSERA_TESTS_DOCUMENTS_STRICTLY_H

#include <gtest/gtest.h>

#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/readDocument.h>

/// \file
/// What RFC 8259 calls JSON text, and nothing else: no comments, and UTF-8 only.

/// Whether `read` gives a document, and is not refused it.
template <class Read>
bool isAccepted(const Read& read) {
    try {
        return read().root() != nullptr;
    } catch (const zo::Tessera::ParseException&) {
        return false;
    }
}

/// Checks that all of `texts` are accepted, or that all are refused, from memory and from a stream.
inline void expectAll(bool accepted, std::initializer_list<std::string_view> texts,
                      const std::string& before = "", const std::string& behind = "") {
    using namespace zo::Tessera;
    ReadOptions strict;
    strict.refuseComments = true;
    strict.checkUtf8 = true;
    for (const std::string_view middle : texts) {
        const std::string text = before + std::string(middle) + behind;
        EXPECT_EQ(isAccepted([&] { return readDocument(text, strict); }), accepted) << text;
        std::istringstream in(text);
        EXPECT_EQ(isAccepted([&] { return readDocument(in, strict); }), accepted) << text;
    }
}

/// The same for texts of a value, alone and where a value stands in a document.
inline void expectAllValues(bool accepted, std::initializer_list<std::string_view> values) {
    expectAll(accepted, values);
    expectAll(accepted, values, " ", "\n");
    expectAll(accepted, values, "[", "]");
    expectAll(accepted, values, "[0,", ",{}]");
    expectAll(accepted, values, "{\"a\":", ",\"b\":0}");
}

#endif
