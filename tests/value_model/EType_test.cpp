#include <zo/Tessera/Element.h>

#include <iomanip>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

// The values are stored and printed by applications.
static_assert(etEmpty == -1);
static_assert(etNull == 0);
static_assert(etBoolean == 1);
static_assert(etNumber == 2);
static_assert(etString == 3);
static_assert(etObject == 4);
static_assert(etArray == 5);
static_assert(std::is_same_v<std::underlying_type_t<EType>, int>);

struct NamedType {
    const char* name;
    int value;
    const char* text;
    const wchar_t* wideText;
};

class ETypeNames : public testing::TestWithParam<NamedType> {};

TEST_P(ETypeNames, AreWrittenToNarrowStreams) {
    std::ostringstream out;
    EXPECT_EQ(&(out << static_cast<EType>(GetParam().value)), &out);
    EXPECT_EQ(out.str(), GetParam().text);
}

TEST_P(ETypeNames, AreWrittenToWideStreams) {
    std::wostringstream out;
    EXPECT_EQ(&(out << static_cast<EType>(GetParam().value)), &out);
    EXPECT_EQ(out.str(), GetParam().wideText);
}

INSTANTIATE_TEST_SUITE_P(
    EType, ETypeNames,
    testing::Values(NamedType{"Empty", -1, "etEmpty", L"etEmpty"},
                    NamedType{"Null", 0, "etNull", L"etNull"},
                    NamedType{"Boolean", 1, "etBoolean", L"etBoolean"},
                    NamedType{"Number", 2, "etNumber", L"etNumber"},
                    NamedType{"String", 3, "etString", L"etString"},
                    NamedType{"Object", 4, "etObject", L"etObject"},
                    NamedType{"Array", 5, "etArray", L"etArray"},
                    // 6 is the last entry of the table, 7 and -2 are beside it.
                    NamedType{"Six", 6, ">>INVALID<<", L">>INVALID<<"},
                    NamedType{"Seven", 7, ">>INVALID<<", L">>INVALID<<"},
                    NamedType{"MinusTwo", -2, ">>INVALID<<", L">>INVALID<<"},
                    NamedType{"Largest", 2147483647, ">>INVALID<<", L">>INVALID<<"},
                    NamedType{"Smallest", -2147483647 - 1, ">>INVALID<<", L">>INVALID<<"}),
    k_rowName);

TEST(ETypeNames, HonourAWidthOfTheStream) {
    std::ostringstream out;
    out << std::setw(8) << etNull << etArray;
    EXPECT_EQ(out.str(), "  etNulletArray");
}

struct KindName {
    EType type;
    const char* name;
};

class TypeName : public testing::TestWithParam<KindName> {};

TEST_P(TypeName, IsTheEnumeratorsName) {
    const std::unique_ptr<const Element> element(Element::create(GetParam().type));
    EXPECT_EQ(element->typeName(), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(
    Element, TypeName,
    testing::Values(KindName{etNull, "etNull"}, KindName{etBoolean, "etBoolean"},
                    KindName{etNumber, "etNumber"}, KindName{etString, "etString"},
                    KindName{etObject, "etObject"}, KindName{etArray, "etArray"}),
    k_rowName);

}  // namespace
