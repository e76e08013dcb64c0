#include <zo/Tessera/PrintTo.h>

#include <iterator>
#include <limits>
#include <memory>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "failures/outOfMemory.h"
#include "generation/KindOnly.h"
#include "support/NumberOf.h"
#include "support/dump.h"
#include "support/parsed.h"
#include "support/rowName.h"

using namespace zo::Tessera;
using testing::PrintToString;

namespace {

const char* const k_json = R"({"a":[1.50,-0,true,null,{}],"b.c":"d\"é","e":{"f":[]}})";

TEST(PrintTo, ShowsATreeAsCompactJson) {
    const std::unique_ptr<Element> root = parsed(k_json);
    EXPECT_EQ(PrintToString(*root), k_json);
    EXPECT_EQ(PrintToString(static_cast<const Element&>(*root)), k_json);
    EXPECT_EQ(PrintToString(root->get("a[0]")), "1.50");
}

TEST(PrintTo, IsFoundForEachConcreteClass) {
    EXPECT_EQ(PrintToString(Null()), "null");
    EXPECT_EQ(PrintToString(TBasicElement<bool>(false)), "false");
    EXPECT_EQ(PrintToString(TBasicElement<BasicNumber>(numberOf("1e2"))), "1e2");
    EXPECT_EQ(PrintToString(TBasicElement<std::string>("1\n")), R"("1\n")");
    EXPECT_EQ(PrintToString(parsed(k_json)->getObjectValue()), k_json);
    EXPECT_EQ(PrintToString(parsed("[[1], 2]")->getArrayValue()), "[[1],2]");
    EXPECT_EQ(PrintToString(Array::k_empty), "[]");
    EXPECT_EQ(PrintToString(Object::k_empty), "{}");
}

TEST(PrintTo, ShowsANumberAsAnElementThatHoldsIt) {
    EXPECT_EQ(PrintToString(BasicNumber()), "0");
    EXPECT_EQ(PrintToString(numberOf("1.50")), "1.50");
    EXPECT_EQ(PrintToString(numberOf(0.1)), "0.1");
    EXPECT_EQ(PrintToString(numberOf(1234567.0)), "1234567");
    EXPECT_EQ(PrintToString(numberOf("007")), R"(<the text "007" is no JSON number>)");
}

TEST(PrintTo, ShowsAPathBetweenQuotes) {
    EXPECT_EQ(PrintToString(Path("list[3].b")), R"("list[3].b")");
    EXPECT_EQ(PrintToString(Path("x\\.y")), R"("x\\.y")");
    EXPECT_EQ(PrintToString(Path()), R"("")");
    EXPECT_EQ(PrintToString(Path("\xFF")), "\"\xEF\xBF\xBD\"");
}

TEST(PrintTo, ShowsADocumentsRootAndTheSettingsThatAreNotUsual) {
    Dom document;
    EXPECT_EQ(PrintToString(document), "<no root>");
    document.setRoot(parsed(R"({"meta": {}, "a": 1})"));
    EXPECT_EQ(PrintToString(document), R"({"meta":{},"a":1})");
    document.setIncludeMeta(false);
    EXPECT_EQ(PrintToString(document), R"({"meta":{},"a":1} <includeMeta: false>)");
    document.setMetaKey("in\"fo");
    EXPECT_EQ(PrintToString(document),
              R"({"meta":{},"a":1} <includeMeta: false> <metaKey: "in\"fo">)");
}

TEST(PrintTo, IsFoundThroughAnOwningPointerButNotThroughAnother) {
    const std::unique_ptr<Element> number = value(5);
    std::ostringstream address;
    address << static_cast<const void*>(number.get());
    EXPECT_EQ(PrintToString(number), "(ptr = " + address.str() + ", value = 5)");
    EXPECT_EQ(PrintToString(std::unique_ptr<Element>()), "(nullptr)");
    EXPECT_EQ(PrintToString(number.get()), address.str());
}

TEST(PrintTo, ServesFailureMessages) {
    static Dom left;
    static Dom right;
    left.setRoot(parsed(R"({"a": 1})"));
    right.setRoot(parsed(R"({"a": 2})"));
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(left, right), R"({"a":1})");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(left, right), R"({"a":2})");
    EXPECT_NONFATAL_FAILURE(EXPECT_THAT(*left.root(), testing::Property(&Element::type, etArray)),
                            R"({"a":1})");
    EXPECT_NONFATAL_FAILURE(EXPECT_TRUE(left == right) << testing::PrintToString(*left.root()),
                            R"({"a":1})");
}

struct Unwritable {
    const char* name;
    Element* (*make)();
    const char* shown;
};

class UnwritableElements : public testing::TestWithParam<Unwritable> {};

TEST_P(UnwritableElements, StandBesideWhatIsShown) {
    const std::unique_ptr<Element> root = parsed(R"({"a": [0, 1], "c": true})");
    root->get("a").getArrayValue().replace(0, GetParam().make());
    EXPECT_EQ(PrintToString(*root),
              std::string(R"({"a":[)") + GetParam().shown + R"(,1],"c":true})");
}

INSTANTIATE_TEST_SUITE_P(
    PrintTo, UnwritableElements,
    testing::Values(Unwritable{"Text", [] { return Element::createNumber(numberOf("1.")); },
                               R"(<the text "1." is no JSON number>)"},
                    Unwritable{"TextNotUtf8",
                               [] { return Element::createNumber(numberOf("\xFF")); },
                               "<the text \"\xEF\xBF\xBD\" is no JSON number>"},
                    Unwritable{"NaN",
                               [] {
                                   return Element::createNumber(
                                       numberOf(std::numeric_limits<double>::quiet_NaN()));
                               },
                               "<JSON has no such number>"},
                    Unwritable{"StringNotUtf8", [] { return Element::createString("caf\xE9"); },
                               "\"caf\xEF\xBF\xBD\""},
                    Unwritable{"NoKind", []() -> Element* { return new KindOnly(7); },
                               "<JSON has no such kind of element>"}),
    k_rowName);

TEST(PrintTo, ShowsAKeyThatIsNotUtf8) {
    Object object;
    object.insert("\xFF", Element::createNull());
    EXPECT_EQ(PrintToString(object), "{\"\xEF\xBF\xBD\":null}");
}

// An application's own element may say that it is an object, and throw when it is asked for it.
TEST(PrintTo, ShowsTheTextOfAnException) {
    const KindOnly liar(etObject);
    EXPECT_EQ(PrintToString(static_cast<const Element&>(liar)),
              "<Json type mismatch! Requestet Json type: etObject Got Json type: etObject "
              "Current element: \"\">");
}

/// Throws what has no text.
class Thrower : public KindOnly {
public:
    Thrower() : KindOnly(etArray) {}
    const Array& getArrayValue() const override { throw 1; }
};

TEST(PrintTo, SaysThatAnExceptionHasNoText) {
    const Thrower thrower;
    EXPECT_EQ(PrintToString(static_cast<const Element&>(thrower)),
              "<an exception that has no text>");
}

// What reads an integer text out of range for the first time uses its exception up.
TEST(PrintTo, LeavesCachesAlone) {
    const BasicNumber number = numberOf("123456789012345678901");
    const std::unique_ptr<Element> element = value(number);
    EXPECT_EQ(PrintToString(number), "123456789012345678901");
    EXPECT_EQ(PrintToString(*element), "123456789012345678901");
    EXPECT_THROW(number.type(), zo::Tessera::Exception);
    EXPECT_THROW(element->getNumberValue().value().type(), zo::Tessera::Exception);
}

TEST(PrintTo, GoesToAnyDepth) {
    const std::string deep = std::string(20000, '[') + std::string(20000, ']');
    EXPECT_EQ(PrintToString(*parsed(deep)), deep);
}

TEST(PrintTo, PassesWhatTheStreamWasToldToThrow) {
    std::ostringstream out;
    out.setstate(std::ios::badbit);
    EXPECT_NO_THROW(PrintTo(*value(5), &out));
    EXPECT_THROW(out.exceptions(std::ios::badbit), std::ios::failure);
    EXPECT_THROW(PrintTo(*value(5), &out), std::ios::failure);
    EXPECT_EQ(out.str(), "");
}

/// Takes what fits into its own room.
class RoomForAMessage : public std::streambuf {
public:
    RoomForAMessage() { setp(std::begin(m_room), std::end(m_room)); }
    std::string text() const { return {pbase(), pptr()}; }

private:
    char m_room[100] = "";
};

TEST(PrintTo, SaysThatMemoryRanOut) {
    const std::unique_ptr<Element> root = parsed("{\"" + k_long + "\":[1,[2.5],{}]}");
    const std::string state = dump(*root);
    RoomForAMessage room;
    std::ostream out(&room);
    {
        const NoMemory noMemory;
        PrintTo(*root, &out);
    }
    EXPECT_EQ(room.text(), "<std::bad_alloc>");
    EXPECT_EQ(dump(*root), state);
}

}  // namespace
