#ifndef ZO_TESSERA_TESTS_DOCUMENTS_WRITTENEVERYWHERE_H
#define ZO_TESSERA_TESTS_DOCUMENTS_WRITTENEVERYWHERE_H

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include <zo/Tessera/writeDocument.h>

/// The text that `writeDocument` gives for a `Dom` or an `Element`, checked to be the same in a
/// stream and in a string.
template <class Root>
std::string writtenEverywhere(const Root& root, const zo::Tessera::WriteOptions& options = {}) {
    const std::string text = writeDocument(root, options);
    std::ostringstream out;
    EXPECT_EQ(&writeDocument(out, root, options), &out);
    EXPECT_EQ(out.str(), text);
    return text;
}

#endif
