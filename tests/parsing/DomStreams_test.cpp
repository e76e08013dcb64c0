#include <zo/Tessera/Dom.h>

#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera.h>

#include "parsing/parseFailure.h"
#include "support/HostileLocale.h"
#include "support/dump.h"
#include "support/thrown.h"

namespace {

using zo::Tessera::Dom;
using zo::Tessera::Exception;

Dom readDom(const std::string& text) {
    std::istringstream in(text);
    Dom dom;
    EXPECT_EQ(&(in >> dom), &in);
    return dom;
}

std::string written(const Dom& dom) {
    std::ostringstream out;
    EXPECT_EQ(&(out << dom), &out);
    return out.str();
}

TEST(DomReading, FillsTheDocument) {
    std::istringstream in(R"({"a":[1.50]})");
    Dom dom;
    EXPECT_EQ(&(in >> dom), &in);
    EXPECT_EQ(dump(*dom.root()), R"(etObject key="" index=- parent=none
  etArray key="a" index=- parent=right
    etNumber 1.50 key="[0]" index=0 parent=right
)");
}

class TextWithoutAValue : public testing::TestWithParam<const char*> {};

TEST_P(TextWithoutAValue, EmptiesTheDocument) {
    std::istringstream in(GetParam());
    Dom dom;
    dom.setRoot(zo::Tessera::value(1));
    in >> dom;
    EXPECT_EQ(dom.root(), nullptr);
}

// A number may go on behind the end of the text, so it is no value yet.
INSTANTIATE_TEST_SUITE_P(DomReading, TextWithoutAValue,
                         testing::Values("", " \n\t\r ", "// comment", "7"));

TEST(DomReading, OfAFailedStreamEmptiesTheDocument) {
    std::istringstream in("[1]");
    in.setstate(std::ios_base::failbit);
    Dom dom;
    dom.setRoot(zo::Tessera::value(1));
    EXPECT_EQ(&(in >> dom), &in);
    EXPECT_EQ(dom.root(), nullptr);
}

TEST(DomReading, KeepsTheSettings) {
    std::istringstream in("[1]");
    Dom dom;
    dom.setIncludeMeta(false);
    dom.setMetaKey("about");
    in >> dom;
    EXPECT_FALSE(dom.includeMeta());
    EXPECT_EQ(dom.metaKey(), "about");
}

TEST(DomReading, PassesTheParsersExceptionOnAndLeavesWhatWasBuilt) {
    std::istringstream in("[1,}");
    Dom dom;
    EXPECT_EQ(parseFailure([&] { in >> dom; }),
              R"(parse error: unallowed token at this point in JSON text
                                    [1,}
                     (right here) ------^
 | -1 -1 -1 -1 | path "")");
    EXPECT_EQ(dump(*dom.root()), R"(etArray key="" index=- parent=none
  etNumber 1 key="[0]" index=0 parent=right
)");
}

TEST(DomReading, StartsAfreshEachTime) {
    std::istringstream half(R"({"a":)");
    std::istringstream malformed("x");
    std::istringstream whole(R"({"b":2})");
    Dom dom;
    half >> dom;
    EXPECT_THROW(malformed >> dom, zo::Tessera::ParseException);
    whole >> dom;
    EXPECT_EQ(dump(*dom.root()), R"(etObject key="" index=- parent=none
  etNumber 2 key="b" index=- parent=right
)");
}

TEST(DomWriting, OfADocumentWithoutARootIsRefused) {
    std::ostringstream out("before", std::ios_base::ate);
    EXPECT_EQ(thrown<Exception>([&] { out << Dom(); }), "Generator: document has no root!");
    EXPECT_EQ(out.str(), "before");
}

TEST(DomWriting, LeavesTheMetaMemberOutWhenAskedTo) {
    Dom dom = readDom(R"({"meta":{},"a":1})");
    EXPECT_EQ(written(dom), "{\n\"meta\": {\n\n},\n\"a\": 1\n}\n");
    dom.setIncludeMeta(false);
    EXPECT_EQ(written(dom), "{\n\"a\": 1\n}\n");
    dom.setMetaKey("a");
    EXPECT_EQ(written(dom), "{\n\"meta\": {\n\n}\n}\n");
}

TEST(DomWriting, StartsAfreshEachTime) {
    const Dom dom = readDom("[true]");
    std::ostringstream out;
    out << dom << dom;
    EXPECT_EQ(out.str(), "[\ntrue\n]\n[\ntrue\n]\n");
}

const char k_everything[] = R"({"long":1234567890123456789012345678901234567890,)"
                            R"("price":1.50,"e":1e3,"E":-0.0E-07,)"
                            R"("escapes":"q\"b\\s\/\b\f\n\r\t\u0000\u001f",)"
                            R"("code":"\u00e9\u20AC\ud83d\ude00",)"
                            "\"raw\":\"\xC3\xA9\xE2\x82\xAC\xFF\","
                            R"("":[null,true,false,[],{}]})";

const char k_everythingWritten[] =
    "{\n"
    "\"long\": 1234567890123456789012345678901234567890,\n"
    "\"price\": 1.50,\n"
    "\"e\": 1e3,\n"
    "\"E\": -0.0E-07,\n"
    "\"escapes\": \"q\\\"b\\\\s/\\b\\f\\n\\r\\t\\u0000\\u001F\",\n"
    "\"code\": \"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\",\n"
    "\"raw\": \"\xC3\xA9\xE2\x82\xAC\xFF\",\n"
    "\"\": [\nnull,\ntrue,\nfalse,\n[\n\n],\n{\n\n}\n]\n"
    "}\n";

TEST(DomRoundTrip, KeepsNumbersAndTexts) {
    const Dom first = readDom(k_everything);
    EXPECT_EQ(written(first), k_everythingWritten);
    const Dom second = readDom(written(first));
    EXPECT_EQ(dump(*second.root()), dump(*first.root()));
    EXPECT_EQ(written(second), k_everythingWritten);
}

TEST(DomRoundTrip, KeepsNumbersAndTextsInAHostileLocale) {
    const HostileLocale locale;
    EXPECT_EQ(written(readDom(k_everything)), k_everythingWritten);
}

TEST(DomRoundTrip, OfALoneNumberWorksThroughTheLineBreakBehindIt) {
    const Dom first = readDom("1.50 ");
    EXPECT_EQ(written(first), "1.50\n");
    EXPECT_EQ(written(readDom("1.50\n")), "1.50\n");
}

}  // namespace
