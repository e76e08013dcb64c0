#include <zo/Tessera/BasicNumber.h>

#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>

#include "failures/outOfMemory.h"
#include "support/NumberOf.h"

using namespace zo::Tessera;

namespace {

// Too long for a string's own buffer.
const std::string k_formerText = "-1234567890.123456789012345678901234567890";
constexpr double k_third = -1.0 / 3;

const std::string k_thirdText = "-0.3333333333333333";

TEST(OutOfMemoryInSetExact, LeavesTheNumberAsItWas) {
    BasicNumber number;
    const auto set = [&] { number.setExact(k_third); };
    EXPECT_GT(failEachAllocation([&] { number.set(k_formerText); }, set,
                                 [&] { EXPECT_EQ(number.as<std::string>(), k_formerText); }),
              1);
    EXPECT_EQ(number.as<std::string>(), k_thirdText);
    EXPECT_GT(failEachAllocation([&] { number.set(42); }, set,
                                 [&] {
                                     EXPECT_EQ(number.type(), BasicNumber::ebLongLong);
                                     EXPECT_EQ(number.toInt(), 42);
                                 }),
              1);
    EXPECT_EQ(number.as<std::string>(), k_thirdText);
}

TEST(OutOfMemoryInSetExact, ArrivesInPlaceOfARefusal) {
    BasicNumber number;
    bool refused = false;
    const auto set = [&] {
        try {
            number.setExact(std::nan(""));
        } catch (const Exception&) {
            refused = true;
        }
    };
    const auto prepare = [&] {
        number.set(k_formerText);
        refused = false;
    };
    const auto check = [&] {
        EXPECT_FALSE(refused);
        EXPECT_EQ(number.as<std::string>(), k_formerText);
    };
    EXPECT_GT(failEachAllocation(prepare, set, check), 0);
    EXPECT_TRUE(refused);
    EXPECT_EQ(number.as<std::string>(), k_formerText);
}

TEST(OutOfMemoryInExactValue, MakesNone) {
    std::unique_ptr<Element> element;
    const auto prepare = [&] { element.reset(); };
    const auto make = [&] { element = exactValue(k_third); };
    EXPECT_GT(failEachAllocation(prepare, make, [&] { EXPECT_EQ(element, nullptr); }), 1);
    EXPECT_EQ(element->as<double>(), k_third);
}

TEST(OutOfMemoryInAnExactConversion, GivesNoText) {
    std::optional<std::string> text;
    const auto prepare = [&] { text.reset(); };
    const auto check = [&] { EXPECT_EQ(text, std::nullopt); };
    for (const BasicNumber& number :
         {numberOf(k_formerText), numberOf(k_third), numberOf(-9223372036854775807LL),
          numberOf(18446744073709551615ULL)}) {
        const std::string expected = number.as<std::string>();
        const auto convert = [&] { text = number.as<std::string>(); };
        EXPECT_GT(failEachAllocation(prepare, convert, check), 0) << expected;
        EXPECT_EQ(text, expected);
        const auto tryToConvert = [&] { text = number.tryAs<std::string>(); };
        EXPECT_GT(failEachAllocation(prepare, tryToConvert, check), 0) << expected;
        EXPECT_EQ(text, expected);
    }
}

// Each in each form, and some that are refused.
std::vector<BasicNumber> variousNumbers() {
    std::vector<BasicNumber> numbers = {numberOf(k_formerText), numberOf("1e3"), numberOf("1e400"),
                                        numberOf("-1e-400"),    numberOf("abc"), numberOf(42),
                                        numberOf(42U),          numberOf(0.5),   numberOf(k_third),
                                        numberOf(HUGE_VAL)};
    for (size_t i = numbers.size(); i-- > 0;) {
        const BasicNumber& derived = numbers.emplace_back(BasicNumber(numbers[i]));
        derived.toString();
        try {
            derived.type();
        } catch (const Exception&) {  // raises once only
        }
    }
    return numbers;
}

template <class T>
void expectNoAllocation(const BasicNumber& number, const Element& element) {
    const std::optional<T> expected = number.tryAs<T>();
    std::optional<T> fromNumber;
    std::optional<T> fromElement;
    {
        const NoMemory none;
        fromNumber = number.tryAs<T>();
        fromElement = element.tryAs<T>();
    }
    EXPECT_EQ(fromNumber, expected);
    EXPECT_EQ(fromElement, expected);
}

TEST(OutOfMemoryInAnExactConversion, HindersNoneToABuiltInType) {
    for (const BasicNumber& number : variousNumbers()) {
        const std::unique_ptr<const Element> element = value(number);
        expectNoAllocation<char>(number, *element);
        expectNoAllocation<int>(number, *element);
        expectNoAllocation<unsigned int>(number, *element);
        expectNoAllocation<long long>(number, *element);
        expectNoAllocation<unsigned long long>(number, *element);
        expectNoAllocation<float>(number, *element);
        expectNoAllocation<double>(number, *element);
        expectNoAllocation<long double>(number, *element);
    }
}

TEST(OutOfMemoryInAnExactConversion, ArrivesInPlaceOfARefusal) {
    const BasicNumber number = numberOf(k_formerText);
    bool refused = false;
    const auto convert = [&] {
        try {
            number.as<int>();
        } catch (const ValueOutOfRange<BasicNumber, int>&) {
            refused = true;
        }
    };
    const auto check = [&] {
        EXPECT_FALSE(refused);
        EXPECT_EQ(number.as<std::string>(), k_formerText);
    };
    EXPECT_GT(failEachAllocation([&] { refused = false; }, convert, check), 0);
    EXPECT_TRUE(refused);
}

}  // namespace
