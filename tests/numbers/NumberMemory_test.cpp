#include <zo/Tessera/BasicNumber.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include <zo/DecNumber.h>

#include "support/FailingNew.h"
#include "support/NumberOf.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

// Both too long for a string's own buffer.
const std::string k_former = "-1234567890.123456789012345678901234567890";
const std::string k_text = "0.98765432109876543210987654321098765432109876543210987654321";
const std::wstring k_wideText(k_text.begin(), k_text.end());

struct Setter {
    const char* name;
    std::function<void(BasicNumber&)> set;
};

class SetterOutOfMemory : public testing::TestWithParam<Setter> {};

TEST_P(SetterOutOfMemory, LeavesTheNumberAsItWas) {
    BasicNumber unread;
    const auto prepare = [&] {
        unread = numberOf(k_former);
        return &unread;
    };
    const long failures = failEachAllocation(
        prepare, [](BasicNumber* number) { GetParam().set(*number); },
        [](const BasicNumber* number) {
            EXPECT_EQ(number->toString(), k_former);
            EXPECT_EQ(number->toInt(), -1234567890);
        });
    EXPECT_GE(failures, 1);
    EXPECT_EQ(unread.toString(), k_text);
    EXPECT_EQ(unread.compare(0.98765432109876543), 0);
}

INSTANTIATE_TEST_SUITE_P(
    BasicNumber, SetterOutOfMemory,
    testing::Values(
        Setter{"String", [](BasicNumber& number) { number.set(k_text); }},
        Setter{"Pointer", [](BasicNumber& number) { number.set(k_text.c_str()); }},
        Setter{"PointerAndLength",
               [](BasicNumber& number) { number.set(k_text.c_str(), k_text.size()); }},
        Setter{"WideString", [](BasicNumber& number) { number.set(k_wideText); }},
        Setter{"WidePointer", [](BasicNumber& number) { number.set(k_wideText.c_str()); }},
        Setter{"WidePointerAndLength",
               [](BasicNumber& number) { number.set(k_wideText.c_str(), k_wideText.size()); }},
        Setter{"Number", [other = numberOf(k_text)](BasicNumber& number) { number.set(other); }},
        Setter{"Assignment", [other = numberOf(k_text)](BasicNumber& number) { number = other; }},
        Setter{"DecNumber", [](BasicNumber& number) { number.set(zo::DecNumber(k_text)); }}),
    k_rowName);

}  // namespace
