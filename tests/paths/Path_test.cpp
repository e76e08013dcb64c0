#include <zo/Tessera/Path.h>

#include <gtest/gtest.h>

#include <climits>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_set>
#include <utility>

#include <zo/Tessera/Exception.h>

#include "support/thrown.h"

using namespace zo::Tessera;

static_assert(std::is_base_of_v<std::string, Path>);
static_assert(sizeof(Path) == sizeof(std::string));
static_assert(std::is_convertible_v<const char*, Path>);
static_assert(std::is_convertible_v<const std::string&, Path>);
static_assert(std::is_convertible_v<Path, std::string>);
static_assert(std::is_convertible_v<const Path&, const std::string&>);
static_assert(std::is_same_v<decltype(Path::k_noIndex), const unsigned long>);
static_assert(std::is_same_v<decltype(Path::k_noName), const std::string>);

namespace {

TEST(PathConstants, HaveTheirLiteralValues) {
    EXPECT_EQ(Path::k_noIndex, ULONG_MAX);
    EXPECT_EQ(Path::k_noIndex, 18446744073709551615UL);
    EXPECT_EQ(Path::k_noName, "");
    EXPECT_EQ(Path::k_meta, "meta");
    EXPECT_EQ(Path::k_schema, "schema");
    EXPECT_EQ(Path::k_default, "default");
    EXPECT_EQ(Path::k_metaObjectProperty, "properties");
    EXPECT_EQ(Path::k_metaArrayItem, "items");
    EXPECT_EQ(Path::k_escapeChars, ".[]*\\");
}

TEST(PathConstants, NoIndexHasAnAddressToBindReferencesTo) {
    const unsigned long& index = Path::k_noIndex;
    EXPECT_EQ(&index, &Path::k_noIndex);
}

// Read while the program's own static objects are made: the constants must be there by then.
const std::string k_readAtLoad = Path::k_meta + Path::k_escapeChars + Path::k_metaArrayItem;

TEST(PathConstants, AreThereWhenAProgramsStaticObjectsAreMade) {
    EXPECT_EQ(k_readAtLoad, "meta.[]*\\items");
}

size_t lengthOf(const Path& path) {
    return path.size();
}

TEST(PathValue, IsEmptyByDefault) {
    EXPECT_EQ(Path(), "");
    EXPECT_TRUE(Path().empty());
}

TEST(PathValue, IsMadeOfALiteral) {
    const Path path = "a.list[3]";
    EXPECT_EQ(path, "a.list[3]");
    EXPECT_EQ(lengthOf("a[*]"), 4U);
}

TEST(PathValue, IsMadeOfAStringAndGivesItBack) {
    const std::string text = "a\\.b[0]";
    const Path path = text;
    const std::string back = path;
    EXPECT_EQ(back, text);
    EXPECT_EQ(lengthOf(text), 7U);
}

TEST(PathValue, KeepsEmbeddedZerosAndAnyBytes) {
    const std::string text("\0a\xff\0", 4);
    const Path path(text);
    EXPECT_EQ(path.size(), 4U);
    const std::string back = path;
    EXPECT_EQ(back, text);
}

TEST(PathValue, EndsALiteralAtItsZero) {
    EXPECT_EQ(Path("a\0b"), "a");
}

// The syntax is looked at when a path is used, not before.
TEST(PathValue, NeedNotBeAValidPath) {
    for (const char* const text : {"..", "[", "]", "a[", "[x]", "\\", "*", "a.", " "}) {
        EXPECT_EQ(Path(text), text);
    }
}

TEST(PathValue, ComparesAsTheTextItIs) {
    const Path path("a.b");
    EXPECT_TRUE(path == Path("a.b"));
    EXPECT_TRUE(path == std::string("a.b"));
    EXPECT_TRUE("a.b" == path);
    EXPECT_TRUE(path != Path("a.B"));
    EXPECT_TRUE(path < Path("a.c"));
    EXPECT_TRUE(Path("") < path);
}

TEST(PathValue, CanBeChangedCopiedAndMovedAsAString) {
    Path path("a");
    path += ".b";
    path.append("[0]");
    Path copy(path);
    EXPECT_EQ(copy, "a.b[0]");
    const Path moved(std::move(copy));
    EXPECT_EQ(moved, "a.b[0]");
    path = "c";
    EXPECT_EQ(path, "c");
    path = std::string("d");
    EXPECT_EQ(path, "d");
    path = moved;
    EXPECT_EQ(path, "a.b[0]");
    path = std::string_view("e.f");
    EXPECT_EQ(path, "e.f");
    path = 'g';
    EXPECT_EQ(path, "g");
    path = {};
    EXPECT_EQ(path, "");
}

TEST(PathValue, IsNotMadeOfANullPointer) {
    const char* const none = nullptr;
    const std::string message = "Null pointer exception: path may not be null";
    EXPECT_EQ(thrown<Exception>([&] { const Path path(none); }), message);
    EXPECT_EQ(thrown<Exception>([] { const Path path = nullptr; }), message);
    EXPECT_EQ(thrown<Exception>([&] { lengthOf(none); }), message);
}

TEST(PathValue, HashesAsItsText) {
    EXPECT_EQ(std::hash<Path>()("a.b"), std::hash<std::string>()("a.b"));
    const std::unordered_set<Path> paths = {"a", "b", std::string("a")};
    EXPECT_EQ(paths.size(), 2U);
}

TEST(PathValue, IsWrittenAsAString) {
    std::ostringstream out;
    out << Path("a[1]");
    EXPECT_EQ(out.str(), "a[1]");
}

}  // namespace
