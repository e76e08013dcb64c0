#include <zo/Tessera/DomParser.h>

#include <memory>
#include <sstream>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include <zo/Tessera.h>

#include "parsing/Mourned.h"
#include "parsing/PieceBuffer.h"
#include "parsing/whileParsing.h"
#include "support/HostileLocale.h"
#include "support/dump.h"
#include "support/rowName.h"

namespace {

using namespace std::string_literals;
using zo::Tessera::CallbackParserListener;
using zo::Tessera::Dom;
using zo::Tessera::DomParser;

static_assert(std::is_base_of_v<CallbackParserListener, DomParser>);
static_assert(!std::is_copy_constructible_v<DomParser>);
static_assert(!std::is_copy_assignable_v<DomParser>);

std::string treeOf(const Dom& dom) {
    return dom.root() ? dump(*dom.root()) : "no root\n";
}

struct TextWithTree {
    const char* name;
    std::string text;
    std::string tree;
};

void PrintTo(const TextWithTree& row, std::ostream* out) {
    *out << row.name;
}

class DomParserTree : public testing::TestWithParam<TextWithTree> {};

TEST_P(DomParserTree, IsTheSameFromEachEntrance) {
    const auto& [name, text, tree] = GetParam();
    Dom fromString;
    DomParser().parse(fromString, text);
    EXPECT_EQ(treeOf(fromString), tree);

    Dom fromBytes;
    DomParser().parse(fromBytes, text.data(), text.size());
    EXPECT_EQ(treeOf(fromBytes), tree);

    Dom fromStream;
    std::istringstream in(text);
    DomParser parser;
    EXPECT_EQ(&parser.parse(fromStream, in), &in);
    EXPECT_EQ(treeOf(fromStream), tree);
}

TEST_P(DomParserTree, IsTheSameWhereverTheStreamPauses) {
    const auto& [name, text, tree] = GetParam();
    for (size_t length = 1; length < text.size(); ++length) {
        Dom dom;
        DomParser parser;
        PieceBuffer buffer({text.substr(0, length), text.substr(length)});
        std::istream in(&buffer);
        parser.parse(dom, in);
        EXPECT_EQ(treeOf(dom), tree) << "cut after " << length;
    }
}

INSTANTIATE_TEST_SUITE_P(
    OneValue, DomParserTree,
    testing::Values(
        TextWithTree{"Nothing", "", "no root\n"}, TextWithTree{"Blanks", " \t\r\n", "no root\n"},
        TextWithTree{"Comment", "// nothing\n", "no root\n"},
        TextWithTree{"Null", "null", "etNull key=\"\" index=- parent=none\n"},
        TextWithTree{"True", "true", "etBoolean true key=\"\" index=- parent=none\n"},
        TextWithTree{"False", "false", "etBoolean false key=\"\" index=- parent=none\n"},
        TextWithTree{"NumberThatABlankFollows", "7 ", "etNumber 7 key=\"\" index=- parent=none\n"},
        TextWithTree{"NumberAtTheVeryEnd", "7", "no root\n"},
        TextWithTree{"NumberKeepsItsText", "1.50e+03 ",
                     "etNumber 1.50e+03 key=\"\" index=- parent=none\n"},
        TextWithTree{
            "FortyDigits", "-1234567890123456789012345678901234567890 ",
            "etNumber -1234567890123456789012345678901234567890 key=\"\" index=- parent=none\n"},
        TextWithTree{"String", R"("a\tb")", "etString \"a\tb\" key=\"\" index=- parent=none\n"},
        TextWithTree{"StringWithZeroBytes", R"("a\u0000b\u0000")",
                     "etString \"a\0b\0\" key=\"\" index=- parent=none\n"s},
        TextWithTree{"StringThatIsNotUtf8", "\"\xFF\xC3(\"",
                     "etString \"\xFF\xC3(\" key=\"\" index=- parent=none\n"},
        TextWithTree{"EmptyObject", "{}", "etObject key=\"\" index=- parent=none\n"},
        TextWithTree{"EmptyArray", "[]", "etArray key=\"\" index=- parent=none\n"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Nested, DomParserTree,
    testing::Values(
        TextWithTree{"MembersKeepTheirOrder",
                     R"({"z":null,"a":true,"m":1.50,"":"x","o":{"i":{}},"l":[]})",
                     R"(etObject key="" index=- parent=none
  etNull key="z" index=- parent=right
  etBoolean true key="a" index=- parent=right
  etNumber 1.50 key="m" index=- parent=right
  etString "x" key="" index=- parent=right
  etObject key="o" index=- parent=right
    etObject key="i" index=- parent=right
  etArray key="l" index=- parent=right
)"},
        TextWithTree{"ItemsAreCounted", R"([null,[false,[]],2,"x",{"k":[0]}])",
                     R"(etArray key="" index=- parent=none
  etNull key="[0]" index=0 parent=right
  etArray key="[1]" index=1 parent=right
    etBoolean false key="[0]" index=0 parent=right
    etArray key="[1]" index=1 parent=right
  etNumber 2 key="[2]" index=2 parent=right
  etString "x" key="[3]" index=3 parent=right
  etObject key="[4]" index=4 parent=right
    etArray key="k" index=- parent=right
      etNumber 0 key="[0]" index=0 parent=right
)"},
        TextWithTree{"KeysKeepTheirBytes", "{\"a\\u0000b\":1,\"\xFF\":2,\"a.b[0]\":3}",
                     "etObject key=\"\" index=- parent=none\n"
                     "  etNumber 1 key=\"a\0b\" index=- parent=right\n"
                     "  etNumber 2 key=\"\xFF\" index=- parent=right\n"
                     "  etNumber 3 key=\"a.b[0]\" index=- parent=right\n"s},
        // The later value wins in the earlier one's place; it knows its object but not its key.
        TextWithTree{"KeyAgain", R"({"a":1,"b":2,"a":"later"})",
                     R"(etObject key="" index=- parent=none
  etString "later" key="" index=- parent=right held as "a"
  etNumber 2 key="b" index=- parent=right
)"},
        TextWithTree{"KeyAgainWithContainers", R"({"a":[1],"a":{"a":[{"c":3}]},"d":4})",
                     R"(etObject key="" index=- parent=none
  etObject key="" index=- parent=right held as "a"
    etArray key="a" index=- parent=right
      etObject key="[0]" index=0 parent=right
        etNumber 3 key="c" index=- parent=right
  etNumber 4 key="d" index=- parent=right
)"},
        TextWithTree{"CutOffText", R"({"a":[1,{"b":[tr)",
                     R"(etObject key="" index=- parent=none
  etArray key="a" index=- parent=right
    etNumber 1 key="[0]" index=0 parent=right
    etObject key="[1]" index=1 parent=right
      etArray key="b" index=- parent=right
)"}),
    k_rowName);

TEST(DomParserTree, KeepsNumbersInAHostileLocale) {
    const HostileLocale locale;
    Dom dom;
    DomParser().parse(dom, "[1234567,1234567.50]"s);
    EXPECT_EQ(treeOf(dom), R"(etArray key="" index=- parent=none
  etNumber 1234567 key="[0]" index=0 parent=right
  etNumber 1234567.50 key="[1]" index=1 parent=right
)");
}

TEST(DomParser, TakesNumbersAsText) {
    EXPECT_TRUE(DomParser().use_number_callback());
}

TEST(DomParser, ReadsNoFurtherThanTheGivenLength) {
    Dom dom;
    DomParser().parse(dom, "[1]x", 3);
    EXPECT_EQ(treeOf(dom), R"(etArray key="" index=- parent=none
  etNumber 1 key="[0]" index=0 parent=right
)");
}

TEST(DomParser, AnswersOneToEachEvent) {
    Dom dom;
    DomParser parser;
    whileParsing(parser, dom, "", [&parser] {
        EXPECT_EQ(parser.cb_start_map(), 1);
        EXPECT_EQ(parser.cb_map_key("n", 1), 1);
        EXPECT_EQ(parser.cb_null(), 1);
        EXPECT_EQ(parser.cb_map_key("bXX", 1), 1);
        EXPECT_EQ(parser.cb_boolean(false), 1);
        EXPECT_EQ(parser.cb_map_key("list", 4), 1);
        EXPECT_EQ(parser.cb_start_array(), 1);
        EXPECT_EQ(parser.cb_number("1.505", 4), 1);
        EXPECT_EQ(parser.cb_string("a\0bc", 3), 1);
        EXPECT_EQ(parser.cb_end_array(), 1);
        EXPECT_EQ(parser.cb_end_map(), 1);
    });
    EXPECT_EQ(treeOf(dom),
              "etObject key=\"\" index=- parent=none\n"
              "  etNull key=\"n\" index=- parent=right\n"
              "  etBoolean false key=\"b\" index=- parent=right\n"
              "  etArray key=\"list\" index=- parent=right\n"
              "    etNumber 1.50 key=\"[0]\" index=0 parent=right\n"
              "    etString \"a\0b\" key=\"[1]\" index=1 parent=right\n"s);
}

TEST(DomParser, DeletesTheFormerRootBeforeItReads) {
    Dom dom;
    bool gone = false;
    dom.setRoot(std::make_unique<Mourned>(gone));
    DomParser parser;
    bool goneAtFirstRead = false;
    whileParsing(parser, dom, "", [&] { goneAtFirstRead = gone && !dom.root(); });
    EXPECT_TRUE(goneAtFirstRead);
    EXPECT_EQ(dom.root(), nullptr);
}

TEST(DomParser, DeletesTheFormerRootForAnEmptyTextAndAFailedStream) {
    Dom dom;
    dom.setRoot(zo::Tessera::value(1));
    DomParser().parse(dom, ""s);
    EXPECT_EQ(dom.root(), nullptr);

    dom.setRoot(zo::Tessera::value(1));
    std::istringstream in("[2]");
    in.setstate(std::ios_base::failbit);
    DomParser().parse(dom, in);
    EXPECT_EQ(dom.root(), nullptr);
}

TEST(DomParser, LeavesTheDocumentsSettings) {
    Dom dom;
    dom.setIncludeMeta(false);
    dom.setMetaKey("about");
    DomParser().parse(dom, R"({"meta":{},"about":{}})"s);
    EXPECT_FALSE(dom.includeMeta());
    EXPECT_EQ(dom.metaKey(), "about");
    EXPECT_EQ(dom.root()->size(), 2U);
}

TEST(DomParser, ReadsATextThatLivesInTheDocumentItself) {
    const std::string inner = R"(["a text longer than what fits into a small string", 1])";
    const char tree[] = R"(etArray key="" index=- parent=none
  etString "a text longer than what fits into a small string" key="[0]" index=0 parent=right
  etNumber 1 key="[1]" index=1 parent=right
)";
    Dom dom;
    dom.setRoot(zo::Tessera::value(inner));
    DomParser().parse(dom, dom.root()->getStringValue().value());
    EXPECT_EQ(treeOf(dom), tree);

    dom.setRoot(zo::Tessera::value(inner));
    const std::string& text = dom.root()->getStringValue().value();
    DomParser().parse(dom, text.data(), text.size());
    EXPECT_EQ(treeOf(dom), tree);
}

}  // namespace
