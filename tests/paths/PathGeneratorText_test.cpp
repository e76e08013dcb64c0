#include <zo/Tessera/PathGenerator.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <type_traits>

#include <zo/Tessera/Path.h>

#include "support/HostileLocale.h"
#include "support/rowName.h"

using namespace zo::Tessera;

static_assert(std::is_constructible_v<PathGenerator, std::string&>);
static_assert(!std::is_constructible_v<PathGenerator, const std::string&>);
static_assert(!std::is_constructible_v<PathGenerator, std::string>);
static_assert(!std::is_convertible_v<std::string&, PathGenerator>);

namespace {

using Write = void (*)(PathGenerator& generator);

struct Writing {
    const char* name;
    Write write;
    const char* text;
};

class PathGeneratorText : public testing::TestWithParam<Writing> {};

TEST_P(PathGeneratorText, IsWhatAStreamGets) {
    std::ostringstream out;
    PathGenerator toStream(out);
    GetParam().write(toStream);
    EXPECT_EQ(out.str(), GetParam().text);

    std::string text;
    PathGenerator toText(text);
    GetParam().write(toText);
    EXPECT_EQ(text, GetParam().text);
}

TEST_P(PathGeneratorText, IsAppended) {
    std::string text = "path: ";
    PathGenerator generator(text);
    EXPECT_EQ(text, "path: ");
    GetParam().write(generator);
    EXPECT_EQ(text, "path: " + std::string(GetParam().text));
}

TEST_P(PathGeneratorText, IsTheSameUnderAnyLocale) {
    const HostileLocale locale;
    std::string text;
    PathGenerator generator(text);
    GetParam().write(generator);
    EXPECT_EQ(text, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    PathGenerator, PathGeneratorText,
    testing::Values(Writing{"OfNothing", [](PathGenerator&) {}, ""},
                    Writing{"OfAKey", [](PathGenerator& g) { g.genObjectProperty("a"); }, "a"},
                    Writing{"OfTwoKeys",
                            [](PathGenerator& g) {
                                g.genObjectProperty("a");
                                g.genObjectProperty("b");
                            },
                            "a.b"},
                    Writing{"OfARangeOfCharacters",
                            [](PathGenerator& g) {
                                g.genObjectProperty(zo::StringRef<char>("a.bc", 3));
                                g.genObjectProperty(zo::StringRef<char>("xyz", 2));
                            },
                            "a\\.b.xy"},
                    Writing{"OfAnEmptyRangeFromNowhere",
                            [](PathGenerator& g) {
                                g.genListItem(0);
                                g.genObjectProperty(zo::StringRef<char>(nullptr, 0));
                            },
                            "[0]."},
                    Writing{"OfAnIndexFirst", [](PathGenerator& g) { g.genListItem(2); }, "[2]"},
                    Writing{"OfAnIndexBetweenKeys",
                            [](PathGenerator& g) {
                                g.genObjectProperty("a");
                                g.genListItem(2);
                                g.genObjectProperty("b");
                            },
                            "a[2].b"},
                    Writing{"OfIndexesInARow",
                            [](PathGenerator& g) {
                                g.genListItem(0);
                                g.genListItem(10);
                                g.genListItem(Path::k_noIndex);
                            },
                            "[0][10][*]"},
                    Writing{"OfAKeyAfterAnyItem",
                            [](PathGenerator& g) {
                                g.genListItem(Path::k_noIndex);
                                g.genObjectProperty("a");
                            },
                            "[*].a"},
                    Writing{"OfLargeIndexes",
                            [](PathGenerator& g) {
                                g.genListItem(1234567);
                                g.genListItem(18446744073709551614UL);
                            },
                            "[1234567][18446744073709551614]"},
                    Writing{"OfEachEscape", [](PathGenerator& g) { g.genObjectProperty(".[]*\\"); },
                            "\\.\\[\\]\\*\\\\"},
                    Writing{"OfAKeyLikeAnIndex",
                            [](PathGenerator& g) { g.genObjectProperty("[*]"); }, "\\[\\*\\]"},
                    Writing{"OfKeysWithOtherSigns",
                            [](PathGenerator& g) { g.genObjectProperty("a b\"/\n{}\xff"); },
                            "a b\"/\n{}\xff"},
                    Writing{"OfAnEmptyKeyLast",
                            [](PathGenerator& g) {
                                g.genObjectProperty("a");
                                g.genObjectProperty("");
                            },
                            "a."},
                    Writing{"OfAnEmptyKeyFirst",
                            [](PathGenerator& g) {
                                g.genObjectProperty("");
                                g.genObjectProperty("a");
                            },
                            ".a"}),
    k_rowName);

TEST(PathGeneratorTextBytes, AreTheSameAsInAStream) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string key = std::string(1, static_cast<char>(byte)) + "k";
        std::ostringstream out;
        PathGenerator(out).genObjectProperty(key);
        std::string text;
        PathGenerator(text).genObjectProperty(key);
        const bool escaped = std::string(".[]*\\").find(key[0]) != std::string::npos;
        EXPECT_EQ(text, (escaped ? "\\" : "") + key) << "byte " << byte;
        EXPECT_EQ(text, out.str()) << "byte " << byte;
    }
}

TEST(PathGeneratorTextTarget, MayBeChangedBetweenSegments) {
    std::string text = "x";
    PathGenerator generator(text);
    generator.genObjectProperty("a");
    EXPECT_EQ(text, "xa");
    text.clear();
    generator.genListItem(1);
    generator.genObjectProperty("b");
    EXPECT_EQ(text, "[1].b");
}

// Each generator counts its own segments, whatever the text holds already.
TEST(PathGeneratorTextTarget, BeginsAnewWithEachGenerator) {
    std::string text = "a.";
    PathGenerator(text).genObjectProperty("b");
    PathGenerator(text).genObjectProperty("c");
    PathGenerator(text).genListItem(3);
    EXPECT_EQ(text, "a.bc[3]");
}

// As if the key had been copied first.
TEST(PathGeneratorTextTarget, MayBeTheKeyItself) {
    std::string text = "a.b";
    PathGenerator generator(text);
    generator.genObjectProperty(text);
    EXPECT_EQ(text, "a.ba\\.b");
    generator.genObjectProperty(text);
    EXPECT_EQ(text, "a.ba\\.b.a\\.ba\\\\\\.b");
}

// These texts have to grow while the key is read.
TEST(PathGeneratorTextTarget, MayBeALongKeyItself) {
    for (const size_t length : {15U, 16U, 1000U}) {
        std::string text(length, '*');
        std::string expected = text;
        for (size_t i = 0; i < length; ++i) {
            expected += "\\*";
        }
        PathGenerator(text).genObjectProperty(text);
        EXPECT_EQ(text, expected);
    }
}

TEST(PathGeneratorTextTarget, MayHoldTheKeyAsAPart) {
    std::string text = "0123456789ab.cd";
    PathGenerator generator(text);
    generator.genObjectProperty(zo::StringRef<char>(text.data() + 11, 4));
    EXPECT_EQ(text, "0123456789ab.cdb\\.cd");
    text.shrink_to_fit();
    generator.genObjectProperty(zo::StringRef<char>(text.data() + 15, 5));
    EXPECT_EQ(text, "0123456789ab.cdb\\.cd.b\\\\\\.cd");
}

TEST(PathGeneratorTextTarget, CanBeLong) {
    std::string text;
    std::string expected;
    PathGenerator generator(text);
    for (int i = 0; i < 10000; ++i) {
        generator.genListItem(7);
        generator.genObjectProperty("k.");
        expected += "[7].k\\.";
    }
    EXPECT_TRUE(text == expected);
}

}  // namespace
