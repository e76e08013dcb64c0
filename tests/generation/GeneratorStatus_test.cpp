#include <zo/Tessera/Generator.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Element.h>

#include "generation/written.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

constexpr int k_accepted = 0;
constexpr int k_keysMustBeStrings = 1;
constexpr int k_complete = 4;
constexpr int k_invalidNumber = 5;

struct Event {
    const char* name;
    int (*emit)(Generator&);
};

const Event k_null{"Null", [](Generator& g) { return g.gen_null(); }};
const Event k_bool{"Bool", [](Generator& g) { return g.gen_bool(true); }};
const Event k_integer{"Integer", [](Generator& g) { return g.gen_integer(1); }};
const Event k_double{"Double", [](Generator& g) { return g.gen_double(1.0); }};
const Event k_number{"Number", [](Generator& g) { return g.gen_number(BasicNumber()); }};
const Event k_objectOpen{"ObjectOpen", [](Generator& g) { return g.gen_object_open(); }};
const Event k_arrayOpen{"ArrayOpen", [](Generator& g) { return g.gen_array_open(); }};
const Event k_string{"String", [](Generator& g) { return g.gen_string("s"); }};
const Event k_printString{"PrintString", [](Generator& g) { return g.printString("s"); }};
const Event k_objectClose{"ObjectClose", [](Generator& g) { return g.gen_object_close(); }};
const Event k_arrayClose{"ArrayClose", [](Generator& g) { return g.gen_array_close(); }};
const Event k_nan{
    "NaN", [](Generator& g) { return g.gen_double(std::numeric_limits<double>::quiet_NaN()); }};
const Event k_infinity{
    "Infinity", [](Generator& g) { return g.gen_double(std::numeric_limits<double>::infinity()); }};
const Event k_minusInfinity{"MinusInfinity", [](Generator& g) {
                                return g.gen_double(-std::numeric_limits<double>::infinity());
                            }};

class WhereAKeyMustCome : public testing::TestWithParam<Event> {};

TEST_P(WhereAKeyMustCome, TheEventIsRefusedAndLost) {
    const auto emit = [](Generator& generator) {
        generator.gen_object_open();
        EXPECT_EQ(GetParam().emit(generator), k_keysMustBeStrings);
        EXPECT_EQ(generator.gen_string("a"), k_accepted);
        EXPECT_EQ(generator.gen_integer(1), k_accepted);
        EXPECT_EQ(GetParam().emit(generator), k_keysMustBeStrings);
        EXPECT_EQ(generator.gen_object_close(), k_accepted);
    };
    EXPECT_EQ(written(Layout::oneLine, emit), "{\"a\":1}");
    EXPECT_EQ(written(Layout::lineBreaks, emit), "{\n\"a\": 1\n}\n");
}

INSTANTIATE_TEST_SUITE_P(Generator, WhereAKeyMustCome,
                         testing::Values(k_null, k_bool, k_integer, k_double, k_number, k_nan,
                                         k_objectOpen, k_arrayOpen),
                         k_rowName);

class AfterTheDocument : public testing::TestWithParam<Event> {};

TEST_P(AfterTheDocument, TheEventIsRefusedAndLost) {
    const auto afterScalar = [](Generator& generator) {
        EXPECT_EQ(generator.gen_null(), k_accepted);
        EXPECT_EQ(GetParam().emit(generator), k_complete);
        EXPECT_EQ(GetParam().emit(generator), k_complete);
    };
    EXPECT_EQ(written(Layout::oneLine, afterScalar), "null");
    EXPECT_EQ(written(Layout::lineBreaks, afterScalar), "null\n");

    const auto afterContainer = [](Generator& generator) {
        generator.gen_array_open();
        EXPECT_EQ(generator.gen_array_close(), k_accepted);
        EXPECT_EQ(GetParam().emit(generator), k_complete);
        EXPECT_EQ(GetParam().emit(generator), k_complete);
    };
    EXPECT_EQ(written(Layout::oneLine, afterContainer), "[]");
    EXPECT_EQ(written(Layout::lineBreaks, afterContainer), "[\n\n]\n");
}

TEST_P(AfterTheDocument, TheEventIsRefusedThoughTheTextHasBeenFlushed) {
    const auto emit = [](Generator& generator) {
        generator.gen_null();
        generator.flush();
        EXPECT_EQ(GetParam().emit(generator), k_complete);
    };
    EXPECT_EQ(written(Layout::oneLine, emit), "null");
}

INSTANTIATE_TEST_SUITE_P(Generator, AfterTheDocument,
                         testing::Values(k_null, k_bool, k_integer, k_double, k_number, k_nan,
                                         k_objectOpen, k_arrayOpen, k_string, k_printString,
                                         k_objectClose, k_arrayClose),
                         k_rowName);

class NumberWithoutText : public testing::TestWithParam<Event> {};

TEST_P(NumberWithoutText, IsRefusedAndLost) {
    const auto emit = [](Generator& generator) {
        EXPECT_EQ(GetParam().emit(generator), k_invalidNumber);
        generator.gen_array_open();
        EXPECT_EQ(GetParam().emit(generator), k_invalidNumber);
        EXPECT_EQ(generator.gen_integer(1), k_accepted);
        EXPECT_EQ(GetParam().emit(generator), k_invalidNumber);
        EXPECT_EQ(generator.gen_array_close(), k_accepted);
    };
    EXPECT_EQ(written(Layout::oneLine, emit), "[1]");
    EXPECT_EQ(written(Layout::lineBreaks, emit), "[\n1\n]\n");
}

TEST_P(NumberWithoutText, LeavesItsKeyWaitingForAValue) {
    const auto emit = [](Generator& generator) {
        generator.gen_object_open();
        generator.gen_string("a");
        EXPECT_EQ(GetParam().emit(generator), k_invalidNumber);
        EXPECT_EQ(generator.gen_integer(1), k_accepted);
        generator.gen_object_close();
    };
    EXPECT_EQ(written(Layout::oneLine, emit), "{\"a\":1}");
}

INSTANTIATE_TEST_SUITE_P(Generator, NumberWithoutText,
                         testing::Values(k_nan, k_infinity, k_minusInfinity), k_rowName);

// A close that finds nothing open must not reach the token writer, whose depth would wrap.
class CloseTooMany : public testing::TestWithParam<Event> {};

TEST_P(CloseTooMany, IsRefusedBeforeTheDocumentAndHarmsNothing) {
    const auto emit = [](Generator& generator) {
        EXPECT_EQ(GetParam().emit(generator), k_complete);
        EXPECT_EQ(GetParam().emit(generator), k_complete);
        EXPECT_EQ(generator.gen_array_open(), k_accepted);
        EXPECT_EQ(generator.gen_null(), k_accepted);
        EXPECT_EQ(generator.gen_array_close(), k_accepted);
    };
    EXPECT_EQ(written(Layout::oneLine, emit), "[null]");
    EXPECT_EQ(written(Layout::lineBreaks, emit), "[\nnull\n]\n");
}

TEST_P(CloseTooMany, IsRefusedAfterNestedContainersHoweverOften) {
    const auto emit = [](Generator& generator) {
        generator.gen_array_open();
        generator.gen_array_open();
        generator.gen_array_close();
        generator.gen_array_close();
        for (int i = 0; i < 1000; ++i) {
            ASSERT_EQ(GetParam().emit(generator), k_complete);
        }
    };
    EXPECT_EQ(written(Layout::oneLine, emit), "[[]]");
}

// Brackets are the caller's: a close writes its own one, whatever was opened.
TEST_P(CloseTooMany, ButEachOpenContainerCanBeClosedByEitherClose) {
    const std::string bracket =
        GetParam().emit == k_objectClose.emit ? std::string("}") : std::string("]");
    const auto emit = [](Generator& generator) {
        generator.gen_array_open();
        generator.gen_object_open();
        EXPECT_EQ(GetParam().emit(generator), k_accepted);
        EXPECT_EQ(generator.gen_integer(1), k_accepted);
        EXPECT_EQ(GetParam().emit(generator), k_accepted);
        EXPECT_EQ(generator.gen_integer(2), k_complete);
    };
    EXPECT_EQ(written(Layout::oneLine, emit), "[{" + bracket + ",1" + bracket);
    EXPECT_EQ(written(Layout::lineBreaks, emit), "[\n{\n\n" + bracket + ",\n1\n" + bracket + "\n");
}

INSTANTIATE_TEST_SUITE_P(Generator, CloseTooMany, testing::Values(k_objectClose, k_arrayClose),
                         k_rowName);

TEST(GeneratorStatus, AKeyWithoutAValueDoesNotHinderTheClose) {
    const auto emit = [](Generator& generator) {
        generator.gen_object_open();
        generator.gen_string("a");
        EXPECT_EQ(generator.gen_object_close(), k_accepted);
    };
    EXPECT_EQ(written(Layout::oneLine, emit), "{\"a\"}");
    EXPECT_EQ(written(Layout::lineBreaks, emit), "{\n\"a\"\n}\n");
}

TEST(GeneratorStatus, PrintTellsOfItsLastEventAlone) {
    const std::unique_ptr<Element> list = array();
    Element::createNull(list.get());
    const auto emit = [&](Generator& generator) {
        generator.gen_object_open();
        EXPECT_EQ(generator.print(*value()), k_keysMustBeStrings);
        EXPECT_EQ(generator.print(*value(true)), k_keysMustBeStrings);
        EXPECT_EQ(generator.print(*value(1)), k_keysMustBeStrings);
        EXPECT_EQ(generator.print(*value("a")), k_accepted);
        EXPECT_EQ(generator.print(*list), k_accepted);
        EXPECT_EQ(generator.gen_object_close(), k_accepted);
        EXPECT_EQ(generator.print(*list), k_complete);
        EXPECT_EQ(generator.print(*object()), k_complete);
        EXPECT_EQ(generator.print(*value("a")), k_complete);
    };
    EXPECT_EQ(written(Layout::oneLine, emit), "{\"a\":[null]}");
}

// No status is looked at on the way: what follows the refused opening goes to the outer object.
TEST(GeneratorStatus, AnObjectWhereAKeyMustComeIsRefusedEventByEvent) {
    const std::unique_ptr<Element> inner = object();
    Element::createBoolean(true, inner.get(), "in");
    const auto emit = [&](Generator& generator) {
        generator.gen_object_open();
        EXPECT_EQ(generator.print(*inner), k_accepted);
        EXPECT_EQ(generator.gen_object_close(), k_complete);
    };
    EXPECT_EQ(written(Layout::oneLine, emit), "{\"in\":true}");
}

}  // namespace
