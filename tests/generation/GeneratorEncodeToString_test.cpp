#include <zo/Tessera/Generator.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/TBasicElement.h>

#include "generation/documentOf.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

// Callers reserve room in a string and rely on its tail being left alone.
struct Over {
    const char* name;
    const char* before;
    const char* after;
};

class GeneratorEncodeOver : public testing::TestWithParam<Over> {};

TEST_P(GeneratorEncodeOver, TheBeginningOfAnElementsString) {
    std::string out = GetParam().before;
    Generator generator(nullptr);
    generator.encode(out, *value("ab"));
    EXPECT_EQ(out, GetParam().after);
}

TEST_P(GeneratorEncodeOver, TheBeginningOfADocumentsString) {
    std::string out = GetParam().before;
    Generator generator(nullptr);
    generator.encode(out, documentOf(value("ab")));
    EXPECT_EQ(out, GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(Generator, GeneratorEncodeOver,
                         testing::Values(Over{"Empty", "", "\"ab\"\n"},
                                         Over{"Shorter", "xyz", "\"ab\"\n"},
                                         Over{"OneShorter", "wxyz", "\"ab\"\n"},
                                         Over{"EquallyLong", "vwxyz", "\"ab\"\n"},
                                         Over{"OneLonger", "uvwxyz", "\"ab\"\nz"},
                                         Over{"Longer", "a longer text", "\"ab\"\nger text"}),
                         k_rowName);

TEST(GeneratorEncodeToString, KeepsATailWithEmbeddedZeros) {
    std::string out("abcdef\0gh", 9);
    Generator(nullptr).encode(out, *value());
    EXPECT_EQ(out, std::string("null\nf\0gh", 9));
}

TEST(GeneratorEncodeToString, MayWriteOverTheVeryTextThatItWrites) {
    TBasicElement<std::string> text("0123456789");
    Generator(nullptr).encode(text.value(), text);
    EXPECT_EQ(text.value(), "\"0123456789\"\n");
}

TEST(GeneratorEncodeToString, BeginsWithWhatIsPending) {
    std::ostringstream former;
    std::string out;
    Generator generator(&former);
    generator.gen_array_open();
    generator.encode(out, *value(1));
    EXPECT_EQ(out, "[\n1");
    EXPECT_EQ(former.str(), "");
}

TEST(GeneratorEncodeToString, LeavesTheTextAloneTheSecondTime) {
    std::string out = "text";
    Generator generator(nullptr);
    EXPECT_EQ(generator.encode(*value(1)), "1\n");
    generator.encode(out, *value(2));
    EXPECT_EQ(out, "text");
    EXPECT_EQ(generator.encode(*value(3)), "");
    EXPECT_EQ(generator.encode(documentOf(value(4))), "");
}

TEST(GeneratorEncodeToString, ReturnsTheText) {
    EXPECT_EQ(Generator(nullptr).encode(*value("ab")), "\"ab\"\n");
    EXPECT_EQ(Generator(nullptr).encode(documentOf(value("ab"))), "\"ab\"\n");
    Generator oneLine(nullptr);
    oneLine.setIndent("");
    EXPECT_EQ(oneLine.encode(*array()), "[]");
}

}  // namespace
