#include <zo/Tessera/Generator.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include <zo/Tessera/BasicNumber.h>

#include "generation/written.h"

using namespace zo::Tessera;

namespace {

// What is shown at a depth must not depend on which side of the token writer's own bound it lies.
class AtLevel : public testing::TestWithParam<int> {
protected:
    std::string inArrays(Layout layout, void (*emit)(Generator&)) const {
        const std::string text = written(layout, [&](Generator& generator) {
            for (int i = 0; i < GetParam(); ++i) {
                generator.gen_array_open();
            }
            emit(generator);
            for (int i = 0; i < GetParam(); ++i) {
                ASSERT_EQ(generator.gen_array_close(), 0);
            }
        });
        const size_t each = layout == Layout::lineBreaks ? 2 : 1;
        const size_t end = layout == Layout::lineBreaks ? 1 : 0;
        const size_t around = each * static_cast<size_t>(GetParam());
        return text.substr(around, text.size() - 2 * around - end);
    }
};

TEST_P(AtLevel, ScalarsAreSeparated) {
    const auto emit = [](Generator& generator) {
        BasicNumber number;
        number.set("1.50");
        EXPECT_EQ(generator.gen_null(), 0);
        EXPECT_EQ(generator.gen_bool(false), 0);
        EXPECT_EQ(generator.gen_integer(-1), 0);
        EXPECT_EQ(generator.gen_double(0.5), 0);
        EXPECT_EQ(generator.gen_number(number), 0);
        EXPECT_EQ(generator.gen_string("s"), 0);
    };
    EXPECT_EQ(inArrays(Layout::lineBreaks, emit), "null,\nfalse,\n-1,\n0.5,\n1.50,\n\"s\"");
    EXPECT_EQ(inArrays(Layout::oneLine, emit), "null,false,-1,0.5,1.50,\"s\"");
}

TEST_P(AtLevel, RefusedEventsAreLost) {
    const auto emit = [](Generator& generator) {
        generator.gen_object_open();
        EXPECT_EQ(generator.gen_array_open(), 1);
        EXPECT_EQ(generator.gen_object_open(), 1);
        EXPECT_EQ(generator.gen_integer(1), 1);
        EXPECT_EQ(generator.gen_string("k"), 0);
        EXPECT_EQ(generator.gen_integer(1), 0);
        EXPECT_EQ(generator.gen_array_open(), 1);
        EXPECT_EQ(generator.gen_object_close(), 0);
    };
    EXPECT_EQ(inArrays(Layout::lineBreaks, emit), "{\n\"k\": 1\n}");
    EXPECT_EQ(inArrays(Layout::oneLine, emit), "{\"k\":1}");
}

TEST_P(AtLevel, SiblingsFollowADeeperChild) {
    const auto emit = [](Generator& generator) {
        for (int i = 0; i < 2; ++i) {
            generator.gen_object_open();
            generator.gen_string("a");
            generator.gen_array_open();
            generator.gen_object_open();
            generator.gen_object_close();
            generator.gen_integer(1);
            generator.gen_array_close();
            generator.gen_string("b");
            generator.gen_integer(2);
            generator.gen_object_close();
        }
    };
    EXPECT_EQ(
        inArrays(Layout::lineBreaks, emit),
        "{\n\"a\": [\n{\n\n},\n1\n],\n\"b\": 2\n},\n{\n\"a\": [\n{\n\n},\n1\n],\n\"b\": 2\n}");
    EXPECT_EQ(inArrays(Layout::oneLine, emit), "{\"a\":[{},1],\"b\":2},{\"a\":[{},1],\"b\":2}");
}

TEST_P(AtLevel, AContainerCanBeTheValueOfAKey) {
    const auto emit = [](Generator& generator) {
        generator.gen_object_open();
        generator.gen_string("a");
        generator.gen_object_open();
        generator.gen_string("b");
        generator.gen_object_open();
        generator.gen_object_close();
        generator.gen_string("c");
        generator.gen_array_open();
        generator.gen_array_close();
        generator.gen_object_close();
        generator.gen_object_close();
    };
    EXPECT_EQ(inArrays(Layout::lineBreaks, emit),
              "{\n\"a\": {\n\"b\": {\n\n},\n\"c\": [\n\n]\n}\n}");
    EXPECT_EQ(inArrays(Layout::oneLine, emit), "{\"a\":{\"b\":{},\"c\":[]}}");
}

TEST_P(AtLevel, EitherCloseIsPassedOn) {
    const auto emit = [](Generator& generator) {
        generator.gen_object_open();
        EXPECT_EQ(generator.gen_array_close(), 0);
        generator.gen_array_open();
        EXPECT_EQ(generator.gen_object_close(), 0);
    };
    EXPECT_EQ(inArrays(Layout::oneLine, emit), "{],[}");
}

TEST_P(AtLevel, AKeyWithoutAValueDoesNotHinderTheClose) {
    const auto emit = [](Generator& generator) {
        generator.gen_object_open();
        generator.gen_string("a");
        EXPECT_EQ(generator.gen_object_close(), 0);
    };
    EXPECT_EQ(inArrays(Layout::lineBreaks, emit), "{\n\"a\"\n}");
    EXPECT_EQ(inArrays(Layout::oneLine, emit), "{\"a\"}");
}

TEST_P(AtLevel, TheLayoutCanBeSwitchedOff) {
    std::ostringstream out;
    Generator generator(&out);
    std::string expected;
    for (int i = 0; i < GetParam(); ++i) {
        generator.gen_array_open();
        expected += "[\n";
    }
    generator.setIndent("");
    generator.gen_integer(1);
    generator.gen_array_open();
    generator.gen_array_close();
    expected += "1,[]";
    for (int i = 0; i < GetParam(); ++i) {
        ASSERT_EQ(generator.gen_array_close(), 0);
        expected += "]";
    }
    generator.flush();
    EXPECT_EQ(out.str(), expected);
}

TEST_P(AtLevel, TheLayoutCanBeSwitchedOn) {
    std::ostringstream out;
    Generator generator(&out);
    generator.setIndent("");
    std::string expected;
    for (int i = 0; i < GetParam(); ++i) {
        generator.gen_array_open();
        expected += "[";
    }
    generator.setIndent("  ");
    generator.gen_integer(1);
    generator.gen_array_open();
    generator.gen_array_close();
    expected += "1,\n[\n\n]";
    for (int i = 0; i < GetParam(); ++i) {
        ASSERT_EQ(generator.gen_array_close(), 0);
        expected += "\n]";
    }
    generator.flush();
    EXPECT_EQ(out.str(), expected + "\n");
}

INSTANTIATE_TEST_SUITE_P(Generator, AtLevel,
                         testing::Values(1, 2, 124, 125, 126, 127, 128, 129, 130, 252, 253, 254,
                                         255, 256, 257, 383, 384, 385),
                         testing::PrintToStringParamName());

}  // namespace
