#include <zo/Tessera/Generator.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <type_traits>

#include <zo/Tessera/BasicNumber.h>

#include "generation/written.h"
#include "support/rowName.h"

using namespace zo::Tessera;

static_assert(std::has_virtual_destructor_v<Generator>);
static_assert(!std::is_copy_constructible_v<Generator>);
static_assert(!std::is_copy_assignable_v<Generator>);
static_assert(!std::is_convertible_v<std::ostream*, Generator>);

namespace {

// One scalar event and the text of its value, wherever it stands.
struct Scalar {
    const char* name;
    int (*emit)(Generator&);
    const char* text;
};

class GeneratorScalar : public testing::TestWithParam<Scalar> {
protected:
    std::string textOf(Layout layout, void (*around)(Generator&, int (*)(Generator&))) {
        return written(layout, [&](Generator& generator) { around(generator, GetParam().emit); });
    }
    const std::string text = GetParam().text;
};

TEST_P(GeneratorScalar, StandsAloneAndEndsTheLine) {
    const auto alone = [](Generator& generator, int (*emit)(Generator&)) {
        EXPECT_EQ(emit(generator), 0);
    };
    EXPECT_EQ(textOf(Layout::lineBreaks, alone), text + "\n");
    EXPECT_EQ(textOf(Layout::oneLine, alone), text);
}

TEST_P(GeneratorScalar, StandsInAnArrayFirstAndLater) {
    const auto twice = [](Generator& generator, int (*emit)(Generator&)) {
        generator.gen_array_open();
        EXPECT_EQ(emit(generator), 0);
        EXPECT_EQ(emit(generator), 0);
        generator.gen_array_close();
    };
    EXPECT_EQ(textOf(Layout::lineBreaks, twice), "[\n" + text + ",\n" + text + "\n]\n");
    EXPECT_EQ(textOf(Layout::oneLine, twice), "[" + text + "," + text + "]");
}

TEST_P(GeneratorScalar, StandsInAnObjectAfterItsKey) {
    const auto members = [](Generator& generator, int (*emit)(Generator&)) {
        generator.gen_object_open();
        generator.gen_string("a");
        EXPECT_EQ(emit(generator), 0);
        generator.gen_string("b");
        EXPECT_EQ(emit(generator), 0);
        generator.gen_object_close();
    };
    EXPECT_EQ(textOf(Layout::lineBreaks, members),
              "{\n\"a\": " + text + ",\n\"b\": " + text + "\n}\n");
    EXPECT_EQ(textOf(Layout::oneLine, members), "{\"a\":" + text + ",\"b\":" + text + "}");
}

int emitNumber(Generator& generator) {
    BasicNumber number;
    number.set("1.50");
    return generator.gen_number(number);
}

INSTANTIATE_TEST_SUITE_P(
    Generator, GeneratorScalar,
    testing::Values(Scalar{"Null", [](Generator& g) { return g.gen_null(); }, "null"},
                    Scalar{"True", [](Generator& g) { return g.gen_bool(true); }, "true"},
                    Scalar{"False", [](Generator& g) { return g.gen_bool(false); }, "false"},
                    Scalar{"Zero", [](Generator& g) { return g.gen_integer(0); }, "0"},
                    Scalar{"SmallestLong", [](Generator& g) { return g.gen_integer(LONG_MIN); },
                           "-9223372036854775808"},
                    Scalar{"LargestLong", [](Generator& g) { return g.gen_integer(LONG_MAX); },
                           "9223372036854775807"},
                    Scalar{"Double", [](Generator& g) { return g.gen_double(-2.5); }, "-2.5"},
                    Scalar{"Number", emitNumber, "1.50"},
                    Scalar{"String", [](Generator& g) { return g.gen_string("text"); }, "\"text\""},
                    Scalar{"EmptyString", [](Generator& g) { return g.gen_string(""); }, "\"\""},
                    Scalar{"PrintedString", [](Generator& g) { return g.printString("text"); },
                           "\"text\""}),
    k_rowName);

// Containers made of single events. Nothing is ever indented.
struct Layouts {
    const char* name;
    void (*emit)(Generator&);
    const char* lineBreaks;
    const char* oneLine;
};

class GeneratorLayout : public testing::TestWithParam<Layouts> {};

TEST_P(GeneratorLayout, IsThatOfTheTokenWriterWithoutIndent) {
    EXPECT_EQ(written(Layout::lineBreaks, GetParam().emit), GetParam().lineBreaks);
    EXPECT_EQ(written(Layout::oneLine, GetParam().emit), GetParam().oneLine);
}

void emitNothing(Generator&) {}

void emitEmptyObject(Generator& generator) {
    generator.gen_object_open();
    generator.gen_object_close();
}

void emitEmptyArray(Generator& generator) {
    generator.gen_array_open();
    generator.gen_array_close();
}

void emitEmptyContainersInArray(Generator& generator) {
    generator.gen_array_open();
    emitEmptyArray(generator);
    emitEmptyObject(generator);
    generator.gen_array_close();
}

void emitEmptyContainersInObject(Generator& generator) {
    generator.gen_object_open();
    generator.gen_string("a");
    emitEmptyArray(generator);
    generator.gen_string("o");
    emitEmptyObject(generator);
    generator.gen_object_close();
}

void emitNestedArrays(Generator& generator) {
    generator.gen_array_open();
    generator.gen_array_open();
    generator.gen_array_open();
    generator.gen_integer(1);
    generator.gen_array_close();
    generator.gen_integer(2);
    generator.gen_array_close();
    generator.gen_integer(3);
    generator.gen_array_close();
}

void emitMixture(Generator& generator) {
    generator.gen_object_open();
    generator.gen_string("list");
    generator.gen_array_open();
    generator.gen_object_open();
    generator.gen_string("deep");
    generator.gen_bool(true);
    generator.gen_object_close();
    generator.gen_null();
    generator.gen_array_close();
    generator.gen_string("last");
    generator.gen_string("one");
    generator.gen_object_close();
}

void emitUnfinished(Generator& generator) {
    generator.gen_array_open();
    generator.gen_integer(1);
}

INSTANTIATE_TEST_SUITE_P(
    Generator, GeneratorLayout,
    testing::Values(
        Layouts{"Nothing", emitNothing, "", ""},
        Layouts{"EmptyObject", emitEmptyObject, "{\n\n}\n", "{}"},
        Layouts{"EmptyArray", emitEmptyArray, "[\n\n]\n", "[]"},
        Layouts{"EmptyContainersInArray", emitEmptyContainersInArray, "[\n[\n\n],\n{\n\n}\n]\n",
                "[[],{}]"},
        Layouts{"EmptyContainersInObject", emitEmptyContainersInObject,
                "{\n\"a\": [\n\n],\n\"o\": {\n\n}\n}\n", "{\"a\":[],\"o\":{}}"},
        Layouts{"NestedArrays", emitNestedArrays, "[\n[\n[\n1\n],\n2\n],\n3\n]\n", "[[[1],2],3]"},
        Layouts{"Mixture", emitMixture,
                "{\n\"list\": [\n{\n\"deep\": true\n},\nnull\n],\n\"last\": \"one\"\n}\n",
                "{\"list\":[{\"deep\":true},null],\"last\":\"one\"}"},
        // The end of the line comes with the end of the document alone.
        Layouts{"UnfinishedDocument", emitUnfinished, "[\n1", "[1"}),
    k_rowName);

}  // namespace
