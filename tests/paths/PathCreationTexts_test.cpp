#include <zo/Tessera/Path.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "paths/creating.h"
#include "paths/notFound.h"
#include "support/dump.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

struct CreatingPath {
    const char* name;
    const char* before;
    std::string path;
    std::string children;  // of the root, afterwards
    std::string reached;   // the result, as path() writes it
};

class PathCreationText : public testing::TestWithParam<CreatingPath> {};

TEST_P(PathCreationText, LeadsToWhatIsCreated) {
    const std::unique_ptr<Element> one = value(1);
    for (const Create create : k_bothCreate) {
        const std::unique_ptr<Element> root = parsed(GetParam().before);
        Element* const element = create(*root, GetParam().path, *one);
        ASSERT_NE(element, nullptr);
        EXPECT_EQ(element->path(nullptr), GetParam().reached);
        const std::string text = dump(*root);
        EXPECT_EQ(text.substr(text.find('\n') + 1), GetParam().children);
    }
}

const char* const k_a = "  etNumber 1 key=\"a\" index=- parent=right\n";
const char* const k_aff = "  etNumber 1 key=\"a\xff\" index=- parent=right\n";

INSTANTIATE_TEST_SUITE_P(
    PathCreation, PathCreationText,
    testing::Values(
        // a backslash with nothing behind it escapes the end, which is kept as a byte 0xFF
        CreatingPath{"ABackslashAtTheEnd", "{}", "a\\", k_aff, "a\xff"},
        CreatingPath{"ABackslashAlone", "{}", "\\",
                     "  etNumber 1 key=\"\xff\" index=- parent=right\n", "\xff"},
        CreatingPath{"ABackslashAfterADot", "{}", "a.\\",
                     "  etObject key=\"a\" index=- parent=right\n"
                     "    etNumber 1 key=\"\xff\" index=- parent=right\n",
                     "a.\xff"},
        // two of them are one of the key
        CreatingPath{"TwoBackslashesAtTheEnd", "{}", "a\\\\",
                     "  etNumber 1 key=\"a\\\" index=- parent=right\n", "a\\\\"},
        CreatingPath{"AnEscapedByteFF", "{}", "a\\\xff", k_aff, "a\xff"},
        // without a backslash the byte ends the text
        CreatingPath{"AByteFF", "{}", "a\xff", k_a, "a"},
        CreatingPath{"AByteFFBeforeAKey", "{}", "a\xff.b", k_a, "a"},
        CreatingPath{"AByteFFBeforeAnError", "{}", "a\xff[[..", k_a, "a"},
        CreatingPath{"AByteFFFirst", "{}",
                     "\xff"
                     "a.b",
                     "", ""},
        CreatingPath{"AByteFFAfterAnItem", "[]", "[*]\xff[*]",
                     "  etNumber 1 key=\"[0]\" index=0 parent=right\n", "[0]"},
        // the number that stands for "*"
        CreatingPath{"TheNumberOfAnyItem", "[]", "[18446744073709551615]",
                     "  etNumber 1 key=\"[0]\" index=0 parent=right\n", "[0]"},
        CreatingPath{"TheNumberOfAnyItemAfterZeros", "[]", "[0018446744073709551615]",
                     "  etNumber 1 key=\"[0]\" index=0 parent=right\n", "[0]"},
        CreatingPath{"TheNumberOfAnyItemTwice", "[7]",
                     "[18446744073709551615][18446744073709551615]",
                     "  etNumber 7 key=\"[0]\" index=0 parent=right\n"
                     "  etArray key=\"[1]\" index=1 parent=right\n"
                     "    etNumber 1 key=\"[0]\" index=0 parent=right\n",
                     "[1][0]"}),
    k_rowName);

TEST(PathCreationTexts, MayEndAtAByteFFWhereNoPathEnds) {
    const std::unique_ptr<Element> root = object();
    for (const Create create : k_bothCreate) {
        EXPECT_EQ(thrown<ParseException>([&] { create(*root, "a.\xff", Object::k_empty); }),
                  "Parse error at 1,1-1,2Unexpexced EOF in path at \"\" 1,2 parser state "
                  "esObjectInit");
    }
    EXPECT_EQ(root->size(), 0U);
}

TEST(PathCreationTexts, NameTheLastPlaceByTheNumberBelowThatOfAnyItem) {
    const std::unique_ptr<Element> root = parsed("[7]");
    EXPECT_EQ(
        notFound([&] { Path::createElement(*root, "[18446744073709551614]", Object::k_empty); }),
        "Path \"[18446744073709551614]\" not found! Key \"[18446744073709551614]\". "
        "Current element: \"\"");
    EXPECT_EQ(root->size(), 1U);
}

TEST(PathCreationTexts, LookNothingUpByTheNumberOfAnyItem) {
    const std::unique_ptr<Element> root = parsed("[7]");
    for (const char* const path : {"[18446744073709551615]", "[018446744073709551615]", "[*]"}) {
        EXPECT_EQ(thrown<ParseException>([&] { Path::getElement(path, *root); }),
                  "Index must be set!");
        EXPECT_EQ(thrown<ParseException>([&] { Path::tryGetElement(path, *root); }),
                  "Index must be set!");
        EXPECT_EQ(thrown<ParseException>([&] { Path::pathExists(path, *root); }),
                  "Index must be set!");
    }
}

// The root's path is written with escapes, the text as it was given.
TEST(PathCreationTexts, AreToldAfterTheRootsOwnPath) {
    const std::unique_ptr<Element> top = parsed(R"({"x.y": {"[*]": [null, ["\\"]]}})");
    Element& root = top->at("x.y").at("[*]").at(1);
    EXPECT_EQ(
        thrown<Exception>([&] { Path::tryCreateElement(root, "k\\.\"\\l", Object::k_empty); }),
        "Error creating element. Parent: \"x\\.y.\\[\\*\\][1]\" path: \"k\\.\"\\l\"");
    EXPECT_EQ(
        thrown<Exception>([&] { Path::tryCreateElement(root.at(0), "[0]\xff[", Object::k_empty); }),
        "Error creating element. Parent: \"x\\.y.\\[\\*\\][1][0]\" path: \"[0]\xff[\"");
}

}  // namespace
