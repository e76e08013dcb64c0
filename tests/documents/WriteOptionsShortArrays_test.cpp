#include <zo/Tessera/writeDocument.h>

#include <cstddef>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "documents/writtenEverywhere.h"
#include "support/parsed.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

constexpr size_t k_anyWidth = std::numeric_limits<size_t>::max();

struct Layout {
    const char* name;
    const char* json;
    size_t width;
    const char* text;
};

class ShortArray : public testing::TestWithParam<Layout> {};

TEST_P(ShortArray, StandsOnOneLineIfItFits) {
    WriteOptions options;
    options.indent = "  ";
    options.finalNewline = false;
    options.shortArrayWidth = GetParam().width;
    EXPECT_EQ(writtenEverywhere(*parsed(GetParam().json), options), GetParam().text);
}

// `[1, 23]` takes seven bytes.
INSTANTIATE_TEST_SUITE_P(
    Width, ShortArray,
    testing::Values(Layout{"Exact", "[1,23]", 7, "[1, 23]"},
                    Layout{"Any", "[1,23]", k_anyWidth, "[1, 23]"},
                    Layout{"OneTooFew", "[1,23]", 6, "[\n  1,\n  23\n]"},
                    Layout{"EnoughForTheFirst", "[1,23]", 3, "[\n  1,\n  23\n]"},
                    Layout{"One", "[1]", 1, "[\n  1\n]"}, Layout{"None", "[1]", 0, "[\n  1\n]"},
                    Layout{"OfBytesNotCharacters", "[\"\xC3\xA9\xC3\xA9\"]", 7,
                           "[\n  \"\xC3\xA9\xC3\xA9\"\n]"},
                    Layout{"OfEscapesAsWritten", "[\"\\n\"]", 6, "[\"\\n\"]"},
                    Layout{"OfALongString", "[1,\"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\",2]", 9,
                           "[\n  1,\n  \"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\",\n  2\n]"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Contents, ShortArray,
    testing::Values(
        Layout{"Empty", "[]", 1, "[]"},
        Layout{"EachScalar", R"([null,true,-1.5,"a"])", 80, R"([null, true, -1.5, "a"])"},
        Layout{"EmptyContainers", "[[],{},[]]", 12, "[[], {}, []]"},
        Layout{"EmptyContainerThatDoesNotFit", "[1,[]]", 6, "[\n  1,\n  []\n]"},
        Layout{"FilledArrayFirst", "[[1],2]", 80, "[\n  [1],\n  2\n]"},
        Layout{"FilledArrayLast", "[1,2,[3]]", 80, "[\n  1,\n  2,\n  [3]\n]"},
        Layout{"FilledObject", R"([1,{"a":2}])", 80, "[\n  1,\n  {\n    \"a\": 2\n  }\n]"}),
    k_rowName);

// What stands before an array or behind it does not count.
INSTANTIATE_TEST_SUITE_P(
    Place, ShortArray,
    testing::Values(Layout{"Member", R"({"a long key":[1,2],"b":0})", 6,
                           "{\n  \"a long key\": [1, 2],\n  \"b\": 0\n}"},
                    Layout{"EachForItself", R"({"a":[1,2],"b":[1,2,3],"c":[3]})", 6,
                           "{\n  \"a\": [1, 2],\n  \"b\": [\n    1,\n    2,\n    3\n  ],\n  \"c\": "
                           "[3]\n}"},
                    Layout{"Nested", "[[[1,2]]]", 6, "[\n  [\n    [1, 2]\n  ]\n]"},
                    Layout{"Rows", "[[1,2],[3,4]]", 80, "[\n  [1, 2],\n  [3, 4]\n]"}),
    k_rowName);

}  // namespace
