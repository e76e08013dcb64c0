#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>
#include <type_traits>

#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

static_assert(BasicNumber::ebNone == 0);
static_assert(BasicNumber::ebLongLong == 1);
static_assert(BasicNumber::ebULongLong == 2);
static_assert(BasicNumber::ebDouble == 3);
static_assert(BasicNumber::ebBigDecimal == 4);
static_assert(sizeof(BasicNumber::EBinaryType) == 4);

struct NamedType {
    const char* name;
    int value;
    const char* text;
    const wchar_t* wideText;
};

class EBinaryTypeNames : public testing::TestWithParam<NamedType> {};

TEST_P(EBinaryTypeNames, AreWrittenToNarrowStreams) {
    std::ostringstream out;
    EXPECT_EQ(&(out << static_cast<BasicNumber::EBinaryType>(GetParam().value)), &out);
    EXPECT_EQ(out.str(), GetParam().text);
    EXPECT_TRUE(out.good());
}

TEST_P(EBinaryTypeNames, AreWrittenToWideStreams) {
    std::wostringstream out;
    EXPECT_EQ(&(out << static_cast<BasicNumber::EBinaryType>(GetParam().value)), &out);
    EXPECT_EQ(out.str(), GetParam().wideText);
    EXPECT_TRUE(out.good());
}

INSTANTIATE_TEST_SUITE_P(
    EBinaryType, EBinaryTypeNames,
    testing::Values(NamedType{"None", 0, "ebNone", L"ebNone"},
                    NamedType{"LongLong", 1, "ebLongLong", L"ebLongLong"},
                    NamedType{"ULongLong", 2, "ebULongLong", L"ebULongLong"},
                    NamedType{"Double", 3, "ebDouble", L"ebDouble"},
                    NamedType{"BigDecimal", 4, "ebBigDecimal", L"ebBigDecimal"},
                    NamedType{"Five", 5, ">>Unknown<<", L">>Unknown<<"},
                    NamedType{"Seven", 7, ">>Unknown<<", L">>Unknown<<"},
                    NamedType{"MinusOne", -1, ">>Unknown<<", L">>Unknown<<"},
                    NamedType{"Largest", 2147483647, ">>Unknown<<", L">>Unknown<<"},
                    NamedType{"Smallest", -2147483647 - 1, ">>Unknown<<", L">>Unknown<<"}),
    k_rowName);

TEST(EBinaryTypeNames, HonourAWidthOfTheStream) {
    std::ostringstream out;
    out << std::setw(10) << BasicNumber::ebDouble << BasicNumber::ebNone;
    EXPECT_EQ(out.str(), "  ebDoubleebNone");
    std::wostringstream wideOut;
    wideOut << std::setw(10) << BasicNumber::ebDouble << BasicNumber::ebNone;
    EXPECT_EQ(wideOut.str(), L"  ebDoubleebNone");
}

}  // namespace
