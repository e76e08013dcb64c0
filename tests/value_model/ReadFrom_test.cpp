#include <zo/Tessera/Element.h>

#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "support/dump.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

struct Unreadable {
    const char* name;
    EType kind;
    const char* message;
};

class ReadFrom : public testing::TestWithParam<Unreadable> {};

TEST_P(ReadFrom, ThrowsAndLeavesElementAndStreamUntouched) {
    Object root;
    Element* const element = Element::create(GetParam().kind, &root, "a");
    const std::string before = dump(root);
    std::istringstream in("1 true");
    EXPECT_EQ(thrown<Exception>([&] { element->readFrom(in); }), GetParam().message);
    EXPECT_TRUE(in.good());
    EXPECT_EQ(in.tellg(), std::istream::pos_type(0));
    std::wistringstream wideIn(L"1 true");
    EXPECT_EQ(thrown<Exception>([&] { element->readFrom(wideIn); }), GetParam().message);
    EXPECT_TRUE(wideIn.good());
    EXPECT_EQ(wideIn.tellg(), std::wistream::pos_type(0));
    EXPECT_EQ(dump(root), before);
}

TEST_P(ReadFrom, NamesNoElementInTheException) {
    const std::unique_ptr<Element> element(Element::create(GetParam().kind));
    std::istringstream in("1");
    try {
        element->readFrom(in);
        FAIL();
    } catch (const Exception& exception) {
        EXPECT_EQ(exception.elementPath(), nullptr);
    }
}

// Callers match on these texts, "srteam" included.
INSTANTIATE_TEST_SUITE_P(
    Elements, ReadFrom,
    testing::Values(
        Unreadable{"Null", etNull, "Reading from srteam not (yet) supported for Tessera::Null."},
        Unreadable{"Boolean", etBoolean,
                   "Reading from srteam not (yet) supported for Tessera::TBasicElement."},
        Unreadable{"Number", etNumber,
                   "Reading from srteam not (yet) supported for Tessera::TBasicElement."},
        Unreadable{"String", etString,
                   "Reading from srteam not (yet) supported for Tessera::TBasicElement."},
        Unreadable{"Object", etObject,
                   "Reading from srteam not (yet) supported for Tessera::Object."},
        Unreadable{"Array", etArray,
                   "Reading from srteam not (yet) supported for Tessera::Array."}),
    k_rowName);

}  // namespace
