#include <zo/Tessera/DomParser.h>

#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera.h>

#include "parsing/parseFailure.h"
#include "parsing/whileParsing.h"
#include "support/dump.h"

namespace {

using namespace std::string_literals;
using zo::Tessera::Dom;
using zo::Tessera::DomParser;
using zo::Tessera::Element;

TEST(MalformedDocument, IsReportedWithTheOpenContainersPath) {
    Dom dom;
    DomParser parser;
    EXPECT_EQ(parseFailure([&] { parser.parse(dom, R"({"a":[1,{"b":[2,x)"s); }),
              R"(lexical error: invalid char in json text.
                       {"a":[1,{"b":[2,x
                     (right here) ------^
 | -1 -1 -1 -1 | path "a[1].b")");
}

TEST(MalformedDocument, IsReportedWithoutPathAtTopLevel) {
    Dom dom;
    DomParser parser;
    EXPECT_EQ(parseFailure([&] { parser.parse(dom, "]"s); }),
              R"(parse error: unallowed token at this point in JSON text
                                       ]
                     (right here) ------^
 | -1 -1 -1 -1 | no path)");
    EXPECT_EQ(dom.root(), nullptr);
}

TEST(MalformedDocument, LeavesWhatWasBuiltInTheDocument) {
    Dom dom;
    DomParser parser;
    EXPECT_NE(parseFailure([&] { parser.parse(dom, R"({"a":[1,{"b":null}],"c":})"s); }),
              "<< nothing thrown >>");
    EXPECT_EQ(dump(*dom.root()), R"(etObject key="" index=- parent=none
  etArray key="a" index=- parent=right
    etNumber 1 key="[0]" index=0 parent=right
    etObject key="[1]" index=1 parent=right
      etNull key="b" index=- parent=right
)");
}

TEST(MalformedDocument, AfterTheRootLeavesTheRoot) {
    Dom dom;
    DomParser parser;
    EXPECT_EQ(parseFailure([&] { parser.parse(dom, "[1] [2]"s); }),
              R"(parse error: trailing garbage
                                   [1] [2]
                     (right here) ------^
 | -1 -1 -1 -1 | no path)");
    EXPECT_EQ(dump(*dom.root()), R"(etArray key="" index=- parent=none
  etNumber 1 key="[0]" index=0 parent=right
)");
}

TEST(SecondParse, GoesOnWithTheFirstTextInAnEmptiedDocument) {
    Dom dom;
    DomParser parser;
    parser.parse(dom, "[1,"s);
    EXPECT_EQ(dump(*dom.root()), R"(etArray key="" index=- parent=none
  etNumber 1 key="[0]" index=0 parent=right
)");
    // The tokeniser is still inside of the array; the tree that held it is gone.
    EXPECT_EQ(parseFailure([&] { parser.parse(dom, "2]"s); }),
              "Unexpected end of array! | -1 -1 -1 -1 | no path");
    EXPECT_EQ(dump(*dom.root()), "etNumber 2 key=\"\" index=- parent=none\n");
}

TEST(SecondParse, FillsTheOtherDocumentThatItIsGiven) {
    Dom first;
    Dom second;
    DomParser parser;
    parser.parse(first, "[1,"s);
    parser.parse(second, "[2],"s);
    EXPECT_EQ(dump(*first.root()), R"(etArray key="" index=- parent=none
  etNumber 1 key="[0]" index=0 parent=right
)");
    EXPECT_EQ(dump(*second.root()), R"(etArray key="" index=- parent=none
  etNumber 2 key="[0]" index=0 parent=right
)");
}

TEST(SecondParse, ReadsANumberThatTheFirstHeldBack) {
    Dom first;
    Dom second;
    DomParser parser;
    parser.parse(first, "7"s);
    EXPECT_EQ(first.root(), nullptr);
    parser.parse(second, " "s);
    EXPECT_EQ(first.root(), nullptr);
    EXPECT_EQ(dump(*second.root()), "etNumber 7 key=\"\" index=- parent=none\n");
}

TEST(SecondParse, AfterAWholeDocumentIsTrailingGarbage) {
    Dom dom;
    DomParser parser;
    parser.parse(dom, "[1]"s);
    EXPECT_EQ(parseFailure([&] { parser.parse(dom, "[2]"s); }),
              R"(parse error: trailing garbage
                                       [2]
                     (right here) ------^
 | -1 -1 -1 -1 | no path)");
    EXPECT_EQ(dom.root(), nullptr);
}

TEST(SecondParse, AfterAMalformedTextIsRefusedAgain) {
    Dom dom;
    DomParser parser;
    const std::string first = parseFailure([&] { parser.parse(dom, "[x"s); });
    EXPECT_EQ(first.substr(0, first.find('\n')), "lexical error: invalid char in json text.");
    // The path is that of no container: a new parse stands at the top level.
    const std::string second = parseFailure([&] { parser.parse(dom, "1]"s); });
    EXPECT_EQ(second.substr(0, second.find('\n')), "lexical error: invalid char in json text.");
    EXPECT_EQ(second.substr(second.rfind('|')), "| no path");
    EXPECT_EQ(dom.root(), nullptr);
}

TEST(PendingKey, OutlivesTheTextThatEndsWithIt) {
    Dom dom;
    DomParser parser;
    parser.parse(dom, R"({"late":)"s);
    // The value becomes the root and leaves the key pending, which the end of the map does not
    // like.
    EXPECT_EQ(parseFailure([&] { parser.parse(dom, "1}"s); }),
              "Unexpected end of map! | -1 -1 -1 -1 | no path");
    EXPECT_EQ(dump(*dom.root()), "etNumber 1 key=\"\" index=- parent=none\n");
}

TEST(PendingKey, NamesTheFirstMemberOfALaterObject) {
    Dom dom;
    DomParser parser;
    parser.parse(dom, R"({"late":)"s);
    whileParsing(parser, dom, "{", [&parser] { parser.cb_null(); });
    EXPECT_EQ(dump(*dom.root()), R"(etObject key="" index=- parent=none
  etNull key="late" index=- parent=right
)");
}

TEST(PendingKey, SurvivesAFailedParse) {
    Dom dom;
    DomParser parser;
    EXPECT_NE(parseFailure([&] { parser.parse(dom, R"({"late":x)"s); }), "<< nothing thrown >>");
    whileParsing(parser, dom, "", [&parser] {
        parser.cb_start_map();
        parser.cb_null();
    });
    EXPECT_EQ(dump(*dom.root()), R"(etObject key="" index=- parent=none
  etNull key="late" index=- parent=right
)");
}

const size_t k_depth = 100000;

std::string repeated(const std::string& text, size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

/// Counts the containers along the first children.
size_t depthOf(const Element* element) {
    size_t depth = 0;
    while (element) {
        ++depth;
        if (element->size() == 0) {
            return depth;
        }
        element = element->type() == zo::Tessera::etArray
                      ? *element->getArrayValue().begin()
                      : element->getObjectValue().begin()->second;
    }
    return depth;
}

TEST(DeepText, OfArraysIsReadAndDeleted) {
    Dom dom;
    DomParser().parse(dom, std::string(k_depth, '[') + std::string(k_depth, ']'));
    EXPECT_EQ(depthOf(dom.root()), k_depth);
}

TEST(DeepText, OfObjectsThatIsCutOffIsReadAndDeleted) {
    Dom dom;
    DomParser().parse(dom, repeated("{\"a\":", k_depth));
    EXPECT_EQ(depthOf(dom.root()), k_depth);
    DomParser().parse(dom, ""s);
    EXPECT_EQ(dom.root(), nullptr);
}

TEST(DeepText, OfBothThatIsMalformedIsReportedWithItsPath) {
    Dom dom;
    DomParser parser;
    const std::string failure =
        parseFailure([&] { parser.parse(dom, repeated("[{\"a\":", k_depth / 2) + "x"); });
    EXPECT_EQ(failure.substr(failure.rfind('|')),
              "| path \"" + repeated("[0].a", k_depth / 2 - 1) + "[0]\"");
    EXPECT_EQ(depthOf(dom.root()), k_depth);
}

}  // namespace
