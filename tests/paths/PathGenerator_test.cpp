#include <zo/Tessera/PathGenerator.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <iomanip>
#include <locale>
#include <sstream>
#include <string>
#include <type_traits>

#include <zo/Tessera/Path.h>

#include "support/HostileLocale.h"
#include "support/rowName.h"

using namespace zo::Tessera;

static_assert(!std::is_polymorphic_v<PathGenerator>);
static_assert(!std::is_convertible_v<std::ostream&, PathGenerator>);
static_assert(std::is_same_v<std::underlying_type_t<PathGenerator::EState>, int32_t>);
static_assert(PathGenerator::esInit == 0 && PathGenerator::esObject == 1);
static_assert(PathGenerator::esArray == 2 && PathGenerator::esError == 3);

namespace {

// The two forms that write a key.
struct ByString {
    static void key(PathGenerator& generator, const std::string& name) {
        generator.genObjectProperty(name);
    }
};

struct ByRange {
    static void key(PathGenerator& generator, const std::string& name) {
        const std::string surrounded = "<" + name + ">";  // no zero at the end of the range
        generator.genObjectProperty(zo::StringRef<char>(surrounded.data() + 1, name.size()));
    }
};

template <class Form>
class PathGeneratorKey : public testing::Test {
protected:
    void key(const std::string& name) { Form::key(generator, name); }

    std::ostringstream out;
    PathGenerator generator{out};
};

struct FormName {
    template <class Form>
    static std::string GetName(int) {
        return std::is_same_v<Form, ByString> ? "ByString" : "ByRange";
    }
};

using Forms = testing::Types<ByString, ByRange>;
TYPED_TEST_SUITE(PathGeneratorKey, Forms, FormName);

TYPED_TEST(PathGeneratorKey, ComesFirstWithoutADot) {
    this->key("a");
    EXPECT_EQ(this->out.str(), "a");
}

TYPED_TEST(PathGeneratorKey, ComesAfterAKeyWithADot) {
    this->key("a");
    this->key("b");
    this->key("c d");
    EXPECT_EQ(this->out.str(), "a.b.c d");
}

TYPED_TEST(PathGeneratorKey, ComesAfterAnIndexWithADot) {
    this->key("a");
    this->generator.genListItem(2);
    this->key("b");
    EXPECT_EQ(this->out.str(), "a[2].b");
}

TYPED_TEST(PathGeneratorKey, ComesAfterAFirstIndexWithADot) {
    this->generator.genListItem(0);
    this->key("a");
    EXPECT_EQ(this->out.str(), "[0].a");
}

TYPED_TEST(PathGeneratorKey, ComesAfterAnyItemWithADot) {
    this->generator.genListItem(Path::k_noIndex);
    this->key("a");
    EXPECT_EQ(this->out.str(), "[*].a");
}

TYPED_TEST(PathGeneratorKey, HasTheFiveCharactersOfTheSyntaxEscaped) {
    this->key(".[]*\\");
    EXPECT_EQ(this->out.str(), "\\.\\[\\]\\*\\\\");
}

TYPED_TEST(PathGeneratorKey, HasEachEscapeBesideItsCharacter) {
    this->key("x.y");
    this->key("*");
    this->key("a\\b");
    this->key("[0]");
    this->key("..");
    EXPECT_EQ(this->out.str(), "x\\.y.\\*.a\\\\b.\\[0\\].\\.\\.");
}

TYPED_TEST(PathGeneratorKey, HasNoOtherByteEscaped) {
    const std::string special = ".[]*\\";
    for (int byte = 0; byte < 256; ++byte) {
        std::ostringstream alone;
        PathGenerator first(alone);
        const char character = static_cast<char>(byte);
        TypeParam::key(first, std::string(1, character));
        const bool escaped = special.find(character) != std::string::npos;
        EXPECT_EQ(alone.str(), (escaped ? "\\" : "") + std::string(1, character))
            << "byte " << byte;
    }
}

TYPED_TEST(PathGeneratorKey, KeepsZerosInside) {
    this->key(std::string("a\0.b", 4));
    EXPECT_EQ(this->out.str(), std::string("a\0\\.b", 5));
}

// Such a path does not read back; the generator does not guard against it.
TYPED_TEST(PathGeneratorKey, WritesNothingButItsDotWhenEmpty) {
    this->key("a");
    this->key("");
    EXPECT_EQ(this->out.str(), "a.");
    this->key("b");
    EXPECT_EQ(this->out.str(), "a..b");
}

TYPED_TEST(PathGeneratorKey, CountsAsAKeyThoughEmptyAndFirst) {
    this->key("");
    EXPECT_EQ(this->out.str(), "");
    this->key("a");
    EXPECT_EQ(this->out.str(), ".a");
}

TYPED_TEST(PathGeneratorKey, LeavesItsDotOutAfterAnEmptyFirstKeyAndAnIndexToo) {
    this->key("");
    this->generator.genListItem(1);
    this->key("");
    EXPECT_EQ(this->out.str(), "[1].");
}

TYPED_TEST(PathGeneratorKey, CanBeLong) {
    this->key(std::string(100000, '.'));
    std::string expected;
    for (int i = 0; i < 100000; ++i) {
        expected += "\\.";
    }
    EXPECT_TRUE(this->out.str() == expected);
}

TEST(PathGeneratorRange, MayBeEmptyAndNowhere) {
    std::ostringstream out;
    PathGenerator generator(out);
    generator.genObjectProperty(zo::StringRef<char>(nullptr, 0));
    generator.genObjectProperty(zo::StringRef<char>("abc", 2));
    EXPECT_EQ(out.str(), ".ab");
}

struct Index {
    const char* name;
    unsigned long index;
    const char* decimal;
    const char* hexadecimal;
};

class PathGeneratorIndex : public testing::TestWithParam<Index> {};

TEST_P(PathGeneratorIndex, IsWrittenInBrackets) {
    std::ostringstream out;
    PathGenerator(out).genListItem(GetParam().index);
    EXPECT_EQ(out.str(), GetParam().decimal);
}

TEST_P(PathGeneratorIndex, NeedsNoDotBefore) {
    std::ostringstream out;
    PathGenerator generator(out);
    generator.genObjectProperty("a");
    generator.genListItem(GetParam().index);
    generator.genListItem(GetParam().index);
    EXPECT_EQ(out.str(), "a" + std::string(GetParam().decimal) + GetParam().decimal);
}

// The stream is the caller's, and so is its number base.
TEST_P(PathGeneratorIndex, FollowsTheNumberBaseOfTheStream) {
    std::ostringstream out;
    out << std::hex;
    PathGenerator(out).genListItem(GetParam().index);
    EXPECT_EQ(out.str(), GetParam().hexadecimal);
    EXPECT_EQ(out.flags() & std::ios_base::basefield, std::ios_base::hex);
}

INSTANTIATE_TEST_SUITE_P(PathGenerator, PathGeneratorIndex,
                         testing::Values(Index{"Zero", 0, "[0]", "[0]"},
                                         Index{"Two", 2, "[2]", "[2]"},
                                         Index{"TwoHundredFiftyFive", 255, "[255]", "[ff]"},
                                         Index{"Thousand", 1000, "[1000]", "[3e8]"},
                                         Index{"Million", 1234567, "[1234567]", "[12d687]"},
                                         Index{"Last", 18446744073709551614UL,
                                               "[18446744073709551614]", "[fffffffffffffffe]"},
                                         Index{"AnyItem", 18446744073709551615UL, "[*]", "[*]"}),
                         k_rowName);

TEST(PathGeneratorStream, GroupsNoIndexByItsLocale) {
    const HostileLocale locale;
    std::ostringstream out;  // takes the global locale
    ASSERT_EQ(std::use_facet<std::numpunct<char>>(out.getloc()).grouping(), "\3");
    PathGenerator generator(out);
    generator.genListItem(1000);
    generator.genListItem(18446744073709551614UL);
    generator.genObjectProperty("1000");
    out << std::hex;
    generator.genListItem(65535);
    EXPECT_EQ(out.str(), "[1000][18446744073709551614].1000[ffff]");
    out << std::dec << 1000;  // the caller's own text is
    EXPECT_EQ(out.str(), "[1000][18446744073709551614].1000[ffff]1.000");
}

TEST(PathGeneratorStream, ShowsTheBaseAndLargeLettersWhenAskedTo) {
    std::ostringstream out;
    out << std::hex << std::showbase << std::uppercase;
    PathGenerator(out).genListItem(255);
    EXPECT_EQ(out.str(), "[0XFF]");
    out.str("");
    out << std::oct << std::noshowbase;
    PathGenerator(out).genListItem(8);
    EXPECT_EQ(out.str(), "[10]");
}

// As formatted insertion does: the first character written uses the width up.
TEST(PathGeneratorStream, PadsTheFirstCharacterOfASegmentToTheWidthThatIsSet) {
    std::ostringstream out;
    out << std::setfill('_') << std::setw(5);
    PathGenerator(out).genListItem(7);
    EXPECT_EQ(out.str(), "____[7]");
    EXPECT_EQ(out.width(), 0);
    out.str("");
    out << std::setw(6);
    PathGenerator(out).genObjectProperty("x.y");
    EXPECT_EQ(out.str(), "_____x\\.y");
    EXPECT_EQ(out.width(), 0);
}

TEST(PathGeneratorStream, PadsTheDotOrTheBackslashWhenThatComesFirst) {
    std::ostringstream out;
    PathGenerator generator(out);
    out << std::setfill('_') << std::setw(3);
    generator.genObjectProperty(".");
    out << std::setw(3);
    generator.genObjectProperty("a");
    out << std::setw(3) << std::left;
    generator.genListItem(Path::k_noIndex);
    EXPECT_EQ(out.str(), "__\\.__.a[__*]");
}

TEST(PathGeneratorStream, BeginsAnewWithEachGenerator) {
    std::ostringstream out;
    out << "path ";
    PathGenerator(out).genObjectProperty("a");
    PathGenerator(out).genObjectProperty("b");
    EXPECT_EQ(out.str(), "path ab");
}

struct State {
    const char* name;
    PathGenerator::EState state;
    const char* text;
    const wchar_t* wideText;
};

class PathGeneratorState : public testing::TestWithParam<State> {};

TEST_P(PathGeneratorState, IsWrittenByItsName) {
    std::ostringstream out;
    EXPECT_EQ(&(out << GetParam().state), &out);
    EXPECT_EQ(out.str(), GetParam().text);
}

TEST_P(PathGeneratorState, IsWrittenByItsNameInWideText) {
    std::wostringstream out;
    EXPECT_EQ(&(out << GetParam().state), &out);
    EXPECT_EQ(out.str(), GetParam().wideText);
}

INSTANTIATE_TEST_SUITE_P(
    PathGenerator, PathGeneratorState,
    testing::Values(State{"Init", PathGenerator::esInit, "esInit", L"esInit"},
                    State{"Object", PathGenerator::esObject, "esObject", L"esObject"},
                    State{"Array", PathGenerator::esArray, "esArray", L"esArray"},
                    State{"Error", PathGenerator::esError, "esError", L"esError"},
                    State{"BelowTheFirst", static_cast<PathGenerator::EState>(-1), ">>INVALID<<",
                          L">>INVALID<<"},
                    State{"BeyondTheLast", static_cast<PathGenerator::EState>(4), ">>INVALID<<",
                          L">>INVALID<<"}),
    k_rowName);

}  // namespace
