#include <zo/Tessera/SchemaPathConverters.h>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <type_traits>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/PathGenerator.h>

#include "support/HostileLocale.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

static_assert(std::is_base_of_v<PathParserListener, ToSchemaPathConverter>);
static_assert(std::is_base_of_v<PathParserListener, FromSchemaPathConverter>);
static_assert(!std::is_convertible_v<PathGenerator&, ToSchemaPathConverter>);
static_assert(!std::is_convertible_v<PathGenerator&, FromSchemaPathConverter>);
static_assert(std::is_same_v<decltype(Path::toSchemaPath("")), Path>);
static_assert(std::is_same_v<decltype(Path::fromSchemaPath("")), Path>);

namespace {

const char* const k_begin = "Schema path must begin with meta.schema!";
const char* const k_expected = "\"properties\" or \"items\" expeced!";
const char* const k_arrays = "Schema path may not contain arrays!";

// What a converter writes of a text, followed by " ! " and the text of the exception, if any:
// over a stream and over a string, which must not differ.
template <class Converter>
std::string converted(const std::string& path) {
    const auto run = [&](PathGenerator& generator) -> std::string {
        try {
            Converter converter(generator);
            std::istringstream in(path);
            PathParser(converter).parse(in);
            return "";
        } catch (const ParseException& exception) {
            std::string text;
            exception.generateWhat(text);
            return " ! " + text;
        }
    };
    std::ostringstream out;
    PathGenerator toStream(out);
    const std::string result = run(toStream);
    std::string text;
    PathGenerator toText(text);
    EXPECT_EQ(run(toText), result);
    EXPECT_EQ(text, out.str());
    return out.str() + result;
}

// `written`, and `error` with " ! " in front unless it is null.
std::string outcome(const char* written, const char* error) {
    return error ? std::string(written) + " ! " + error : written;
}

struct Conversion {
    const char* name;
    const char* path;
    const char* written;
    const char* error = nullptr;
};

class ToSchemaPath : public testing::TestWithParam<Conversion> {};

TEST_P(ToSchemaPath, IsWrittenByTheConverter) {
    EXPECT_EQ(converted<ToSchemaPathConverter>(GetParam().path),
              outcome(GetParam().written, GetParam().error));
}

TEST_P(ToSchemaPath, IsReturnedByThePath) {
    if (GetParam().error) {
        EXPECT_EQ(thrown<ParseException>([] { Path::toSchemaPath(GetParam().path); }),
                  GetParam().error);
    } else {
        EXPECT_EQ(Path::toSchemaPath(GetParam().path), GetParam().written);
    }
}

INSTANTIATE_TEST_SUITE_P(
    SchemaPathConverters, ToSchemaPath,
    testing::Values(
        Conversion{"OfTheRoot", "", "meta.schema"},
        Conversion{"OfAMember", "a", "meta.schema.properties.a"},
        Conversion{"OfMembers", "a.b", "meta.schema.properties.a.properties.b"},
        Conversion{"OfAnItem", "list[3].x", "meta.schema.properties.list.items.properties.x"},
        Conversion{"OfAnyItem", "list[*]", "meta.schema.properties.list.items"},
        Conversion{"OfAnItemOfTheRoot", "[0]", "meta.schema.items"},
        Conversion{"OfItemsInARow", "[0][*][18446744073709551614]",
                   "meta.schema.items.items.items"},
        Conversion{"OfAMemberOfAnItemWithoutADot", "[1]a", "meta.schema.items.properties.a"},
        Conversion{"OfALeadingDot", ".a", "meta.schema.properties.a"},
        Conversion{"OfAnEscapedDot", "x\\.y", "meta.schema.properties.x\\.y"},
        Conversion{"OfEachEscape", "\\.\\[\\]\\*\\\\", "meta.schema.properties.\\.\\[\\]\\*\\\\"},
        Conversion{"OfAStarAsItIs", "a*", "meta.schema.properties.a\\*"},
        Conversion{"OfNeedlessEscapes", "\\a\\ ", "meta.schema.properties.a "},
        Conversion{
            "OfTheWordsOfASchema", "meta.schema.items.properties",
            "meta.schema.properties.meta.properties.schema.properties.items.properties.properties"},
        // what was written before an exception stays
        Conversion{
            "UpToASecondDot", "a..b", "meta.schema.properties.a",
            "Parse error at 1,1-1,2Unexpected character '.' in path at \"\" 1,2 parser state "
            "esObjectInit"},
        Conversion{
            "UpToALetterInAnIndex", "[1][x]", "meta.schema.items",
            "Parse error at 1,3-1,4Unexpected character 'x' in path at \"\" 3,4 parser state "
            "esArrayInit"},
        Conversion{
            "UpToAnEarlyEnd", "a[", "meta.schema.properties.a",
            "Parse error at 1,1-1,2Unexpexced EOF in path at \"\" 1,2 parser state esArrayInit"},
        Conversion{
            "UpToAKeyWithABracket", "a]", "meta.schema",
            "Parse error at 1,0-1,1Unexpected character ']' in path at \"a\" 0,1 parser state "
            "esObject"}),
    k_rowName);

class FromSchemaPath : public testing::TestWithParam<Conversion> {};

TEST_P(FromSchemaPath, IsWrittenByTheConverter) {
    EXPECT_EQ(converted<FromSchemaPathConverter>(GetParam().path),
              outcome(GetParam().written, GetParam().error));
}

TEST_P(FromSchemaPath, IsReturnedByThePath) {
    if (GetParam().error) {
        EXPECT_EQ(thrown<ParseException>([] { Path::fromSchemaPath(GetParam().path); }),
                  GetParam().error);
    } else {
        EXPECT_EQ(Path::fromSchemaPath(GetParam().path), GetParam().written);
    }
}

INSTANTIATE_TEST_SUITE_P(
    SchemaPathConverters, FromSchemaPath,
    testing::Values(
        Conversion{"OfTheSchema", "meta.schema", ""},
        Conversion{"OfAMember", "meta.schema.properties.a", "a"},
        Conversion{"OfMembers", "meta.schema.properties.a.properties.b", "a.b"},
        Conversion{"OfItems", "meta.schema.items", "[*]"},
        Conversion{"OfItemsInARow", "meta.schema.items.items", "[*][*]"},
        Conversion{"OfAMemberOfItems", "meta.schema.properties.list.items.properties.x",
                   "list[*].x"},
        Conversion{"OfAMemberOfItemsFirst", "meta.schema.items.properties.x", "[*].x"},
        Conversion{"OfALeadingDot", ".meta.schema.items", "[*]"},
        Conversion{"OfAnEscapedDot", "meta.schema.properties.x\\.y", "x\\.y"},
        Conversion{"OfEachEscape", "meta.schema.properties.\\.\\[\\]\\*\\\\", "\\.\\[\\]\\*\\\\"},
        Conversion{"OfAStarAsItIs", "meta.schema.properties.*", "\\*"},
        Conversion{"OfNeedlessEscapes", "\\meta.schem\\a.properties.\\a", "a"},
        // after "properties" any key is a member's
        Conversion{"OfAMemberNamedProperties", "meta.schema.properties.properties", "properties"},
        Conversion{"OfAMemberNamedItems", "meta.schema.properties.items.items", "items[*]"},
        Conversion{"OfAMemberNamedMeta", "meta.schema.properties.meta.properties.schema",
                   "meta.schema"},
        // a path that ends early is as good as its beginning
        Conversion{"OfNothing", "", ""}, Conversion{"OfMetaAlone", "meta", ""},
        Conversion{"WithoutAMemberFirst", "meta.schema.properties", ""},
        Conversion{"WithoutAMemberLast", "meta.schema.properties.a.items.properties", "a[*]"}),
    k_rowName);

// Callers match on these texts.
INSTANTIATE_TEST_SUITE_P(
    SchemaPathConvertersRefuse, FromSchemaPath,
    testing::Values(
        Conversion{"AnotherFirstKey", "other", "", k_begin},
        Conversion{"SchemaFirst", "schema.meta", "", k_begin},
        Conversion{"PropertiesFirst", "properties.a", "", k_begin},
        Conversion{"MetaInAnotherCase", "Meta.schema", "", k_begin},
        Conversion{"MetaWithMore", "meta .schema", "", k_begin},
        Conversion{"AnotherSecondKey", "meta.other", "", k_begin},
        Conversion{"MetaTwice", "meta.meta", "", k_begin},
        Conversion{"SchemaInAnotherCase", "meta.SCHEMA", "", k_begin},
        Conversion{"ItemsSecond", "meta.items", "", k_begin},
        Conversion{"AnotherKeyAfterTheSchema", "meta.schema.x", "", k_expected},
        Conversion{"PropertiesInAnotherCase", "meta.schema.Properties.a", "", k_expected},
        Conversion{"ItemsInAnotherCase", "meta.schema.ITEMS", "", k_expected},
        Conversion{"SchemaTwice", "meta.schema.schema", "", k_expected},
        Conversion{"AnotherKeyAfterAMember", "meta.schema.properties.a.b", "a", k_expected},
        Conversion{"AnotherKeyAfterItems", "meta.schema.items.x", "[*]", k_expected},
        Conversion{"TheDefault", "meta.schema.properties.a.default", "a", k_expected},
        Conversion{"AnIndexFirst", "[0]", "", k_arrays},
        Conversion{"AnyItemFirst", "[*].meta", "", k_arrays},
        Conversion{"AnIndexAfterMeta", "meta[0]", "", k_arrays},
        Conversion{"AnIndexAfterTheSchema", "meta.schema[0]", "", k_arrays},
        Conversion{"AnIndexAfterProperties", "meta.schema.properties[0]", "", k_arrays},
        Conversion{"AnIndexAfterAMember", "meta.schema.properties.a[0]", "a", k_arrays},
        Conversion{"AnyItemAfterItems", "meta.schema.items[*]", "[*]", k_arrays},
        Conversion{
            "ASecondDot", "meta.schema.items..a", "[*]",
            "Parse error at 1,17-1,18Unexpected character '.' in path at \"\" 17,18 parser state "
            "esObjectInit"},
        Conversion{"AnEarlyEnd", "meta.schema.properties.a.", "a",
                   "Parse error at 1,24-1,25Unexpexced EOF in path at \"\" 24,25 parser state "
                   "esObjectInit"},
        // the first fault in the text is the one that is told
        Conversion{"AnotherKeyBeforeASecondDot", "other..", "", k_begin},
        Conversion{"AnIndexBeforeALetter", "meta[0][x]", "", k_arrays}),
    k_rowName);

TEST(FromSchemaPathErrors, HaveNoPlaceNoElementAndNoCause) {
    for (const char* const path : {"other", "meta.other", "meta.schema.x", "meta.schema[0]"}) {
        try {
            Path::fromSchemaPath(path);
            ADD_FAILURE() << path;
        } catch (const ParseException& exception) {
            EXPECT_EQ(exception.line(), -1);
            EXPECT_EQ(exception.column(), -1);
            EXPECT_EQ(exception.endLine(), -1);
            EXPECT_EQ(exception.endColumn(), -1);
            EXPECT_EQ(exception.elementPath(), nullptr);
            std::string base = "replaced";
            exception.Exception::generateWhat(base);
            EXPECT_EQ(base, "");
        }
    }
}

class SchemaPathSteps : public testing::Test {
protected:
    std::string m_text;
    PathGenerator m_generator{m_text};
};

TEST_F(SchemaPathSteps, ToTheSchemaGoOnAfterEachSegment) {
    ToSchemaPathConverter converter(m_generator);
    EXPECT_EQ(m_text, "meta.schema");
    EXPECT_TRUE(converter.cbObjectProperty("a.b"));
    EXPECT_EQ(m_text, "meta.schema.properties.a\\.b");
    EXPECT_TRUE(converter.cbArrayItem(Path::k_noIndex));
    EXPECT_TRUE(converter.cbArrayItem(3));
    EXPECT_EQ(m_text, "meta.schema.properties.a\\.b.items.items");
    converter.cbFinish();
    EXPECT_EQ(m_text, "meta.schema.properties.a\\.b.items.items");
    EXPECT_TRUE(converter.cbObjectProperty(""));
    EXPECT_EQ(m_text, "meta.schema.properties.a\\.b.items.items.properties.");
}

TEST_F(SchemaPathSteps, FromTheSchemaGoOnAfterEachKey) {
    FromSchemaPathConverter converter(m_generator);
    EXPECT_TRUE(converter.cbObjectProperty("meta"));
    EXPECT_TRUE(converter.cbObjectProperty("schema"));
    EXPECT_TRUE(converter.cbObjectProperty("properties"));
    EXPECT_EQ(m_text, "");
    EXPECT_TRUE(converter.cbObjectProperty("a.b"));
    EXPECT_EQ(m_text, "a\\.b");
    EXPECT_TRUE(converter.cbObjectProperty("items"));
    EXPECT_EQ(m_text, "a\\.b[*]");
    converter.cbFinish();
    EXPECT_EQ(m_text, "a\\.b[*]");
}

// A refused segment leaves the converter where it was.
TEST_F(SchemaPathSteps, FromTheSchemaCanGoOnAfterARefusal) {
    FromSchemaPathConverter converter(m_generator);
    const auto refuse = [&](const char* key, const char* text) {
        EXPECT_EQ(thrown<ParseException>([&] { converter.cbObjectProperty(key); }), text);
        EXPECT_EQ(thrown<ParseException>([&] { converter.cbArrayItem(0); }), k_arrays);
    };
    refuse("schema", k_begin);
    converter.cbObjectProperty("meta");
    refuse("meta", k_begin);
    converter.cbObjectProperty("schema");
    refuse("a", k_expected);
    converter.cbObjectProperty("items");
    refuse("a", k_expected);
    converter.cbObjectProperty("properties");
    EXPECT_EQ(thrown<ParseException>([&] { converter.cbArrayItem(0); }), k_arrays);
    converter.cbObjectProperty("a");
    EXPECT_EQ(m_text, "[*].a");
}

TEST_F(SchemaPathSteps, ThrowForSyntaxErrors) {
    ToSchemaPathConverter to(m_generator);
    FromSchemaPathConverter from(m_generator);
    for (PathParserListener* const listener :
         {static_cast<PathParserListener*>(&to), static_cast<PathParserListener*>(&from)}) {
        EXPECT_EQ(
            thrown<ParseException>([&] { listener->cbParseError("the message", "tok", 2, 5); }),
            "Parse error at 1,2-1,5the message");
    }
}

// The generator is the caller's, with what it has written already.
TEST_F(SchemaPathSteps, FollowWhatTheGeneratorHasWritten) {
    m_generator.genObjectProperty("x");
    FromSchemaPathConverter from(m_generator);
    EXPECT_EQ(m_text, "x");
    PathParser(from).parse(std::string("meta.schema.properties.a"));
    EXPECT_EQ(m_text, "x.a");
    ToSchemaPathConverter to(m_generator);
    EXPECT_EQ(m_text, "x.a.meta.schema");
    PathParser(to).parse(std::string("[2]"));
    EXPECT_EQ(m_text, "x.a.meta.schema.items");
}

struct Pair {
    const char* name;
    const char* data;
    const char* schema;
};

class SchemaPathPairs : public testing::TestWithParam<Pair> {};

TEST_P(SchemaPathPairs, ConvertThereAndBack) {
    const HostileLocale locale;  // which has no say in them
    EXPECT_EQ(Path::toSchemaPath(GetParam().data), GetParam().schema);
    EXPECT_EQ(Path::fromSchemaPath(GetParam().schema), GetParam().data);
}

INSTANTIATE_TEST_SUITE_P(
    SchemaPathConverters, SchemaPathPairs,
    testing::Values(
        Pair{"Root", "", "meta.schema"}, Pair{"Member", "a", "meta.schema.properties.a"},
        Pair{"AnyItem", "[*]", "meta.schema.items"},
        Pair{"Mixed", "a[*][*].b.c[*]",
             "meta.schema.properties.a.items.items.properties.b.properties.c.items"},
        Pair{"Escapes", "x\\.y.\\[0\\][*].\\*.b\\\\",
             "meta.schema.properties.x\\.y.properties.\\[0\\].items.properties.\\*.properties."
             "b\\\\"},
        Pair{"WordsOfASchema", "meta.schema.properties.items[*]",
             "meta.schema.properties.meta.properties.schema.properties.properties.properties.items."
             "items"},
        Pair{"OtherSigns", "a b\"/\xc3\xa4", "meta.schema.properties.a b\"/\xc3\xa4"}),
    k_rowName);

// An index becomes "*" on the way back: one schema node describes all items.
TEST(SchemaPathPair, LosesItsIndexes) {
    EXPECT_EQ(Path::fromSchemaPath(Path::toSchemaPath("list[3][0].x")), "list[*][*].x");
}

// The same rules give the schema path of an element.
TEST(SchemaPathPair, AgreesWithTheSchemaPathOfAnElement) {
    const std::unique_ptr<Element> root = object();
    Element* const list = Element::createArray(root.get(), "x.y[0]");
    const Element* const member = Element::createNull(Element::createObject(list), "*");
    EXPECT_EQ(Path::toSchemaPath(member->path(nullptr)),
              "meta.schema.properties.x\\.y\\[0\\].items.properties.\\*");
    EXPECT_EQ(member->schemaPath(nullptr),
              "meta.schema.properties.x\\.y\\[0\\].items.properties.\\*");
}

TEST(SchemaPathPair, CanBeLong) {
    std::string data;
    std::string schema = "meta.schema";
    for (int i = 0; i < 10000; ++i) {
        data += i == 0 ? "k[*]" : ".k[*]";
        schema += ".properties.k.items";
    }
    EXPECT_TRUE(Path::toSchemaPath(data) == schema);
    EXPECT_TRUE(Path::fromSchemaPath(schema) == data);
}

}  // namespace
