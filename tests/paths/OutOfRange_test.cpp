#include <zo/Tessera/Element.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/TBasicElement.h>

#include "paths/RemoveForms.h"
#include "support/NumberOf.h"
#include "support/parsed.h"
#include "support/rowName.h"

using namespace zo::Tessera;

// A number whose text is out of range raises when its binary form is first needed, and from then on
// counts as the binary value it held before: callers look at the text first.

namespace {

using Owner = std::unique_ptr<Element>;

/// The items' texts as `at` reaches them, each with its stored index.
std::string numbersOf(const Element& array) {
    std::string items;
    for (size_t i = 0; i < array.size(); ++i) {
        const Element& item = array.at(i);
        items += item.getNumberValue().value().toString() + " #" + std::to_string(item.index());
        items += "; ";
    }
    return items;
}

struct StaleNumber {
    const char* name;
    const char* text;
    Owner (*stale)();    // what it counts as later
    Owner (*another)();  // near, but not equal
};

const StaleNumber k_staleNumbers[] = {
    {"Unsigned", "12345678901234567890", [] { return value(0U); }, [] { return value(0); }},
    {"Negative", "-123456789012345678", [] { return value(0); }, [] { return value(0U); }},
    {"Double", "1e400", [] { return value(0.0); }, [] { return value(1e308); }},
};

class ItemOutOfRange : public testing::TestWithParam<StaleNumber> {
protected:
    Owner m_list = parsed("[" + std::string(GetParam().text) + ", 7]");
};

TEST_P(ItemOutOfRange, IsSkippedOnceAndThenFoundByTheValueItHeld) {
    const Owner pattern = GetParam().stale();
    EXPECT_EQ(m_list->findElement(*pattern, "", ""), nullptr);
    EXPECT_EQ(m_list->findElement(*pattern, "", ""), &m_list->at(0));
    EXPECT_EQ(m_list->findElement(*GetParam().another(), "", ""), nullptr);
    EXPECT_EQ(m_list->at(0).getNumberValue().value().toString(), GetParam().text);
}

TEST_P(ItemOutOfRange, IsSkippedOnceByAnyPattern) {
    EXPECT_EQ(m_list->findElement(*GetParam().another(), "", ""), nullptr);
    EXPECT_EQ(m_list->findElement(*GetParam().stale(), "", ""), &m_list->at(0));
}

TEST_P(ItemOutOfRange, IsRemovedTheSecondTime) {
    for (const RemoveForm& form : k_removeForms) {
        const Owner list = parsed("[" + std::string(GetParam().text) + ", 7]");
        const Owner pattern = GetParam().stale();
        form.remove(*list, pattern, "", "");
        EXPECT_EQ(numbersOf(*list), std::string(GetParam().text) + " #0; 7 #1; ") << form.name;
        form.remove(*list, pattern, "", "");
        EXPECT_EQ(numbersOf(*list), "7 #2; ") << form.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Element, ItemOutOfRange, testing::ValuesIn(k_staleNumbers), k_rowName);

/// Held 5 before its text was set.
Owner formerFive() {
    BasicNumber number = numberOf(5U);
    number.set("12345678901234567890");
    return value(number);
}

// The first comparison raises, so what it is made with is passed over.
TEST(PatternOutOfRange, FindsWhatEqualsTheValueItHeldButNotAtFirst) {
    const Owner list = parsed("[5, 12345678901234567, 5]");
    const Owner pattern = formerFive();
    EXPECT_EQ(list->findElement(*pattern, "", ""), &list->at(2));
    EXPECT_EQ(list->findElement(*pattern, "", ""), &list->at(0));
}

TEST(PatternOutOfRange, RemovesWhatEqualsTheValueItHeldButNotAtFirst) {
    for (const RemoveForm& form : k_removeForms) {
        const Owner list = parsed("[5, 0, 5, 6]");
        const Owner pattern = formerFive();
        form.remove(*list, pattern, "", "");
        EXPECT_EQ(numbersOf(*list), "5 #0; 0 #1; 6 #4; ") << form.name;
        form.remove(*list, pattern, "", "");
        EXPECT_EQ(numbersOf(*list), "0 #2; 6 #5; ") << form.name;
    }
}

TEST(PatternOutOfRange, IsZeroWhenItWasNothingElseBefore) {
    for (const RemoveForm& form : k_removeForms) {
        const Owner list = parsed("[0, 5, 0]");
        form.remove(*list, value(numberOf("12345678901234567890")), "", "");
        EXPECT_EQ(numbersOf(*list), "0 #0; 5 #1; ") << form.name;
    }
}

// Neither of equal texts is found by the other until both have raised.
TEST(PatternOutOfRange, IsFoundByItsOwnTextTheThirdTime) {
    const Owner list = parsed("[12345678901234567890]");
    const Owner pattern = value(numberOf("12345678901234567890"));
    EXPECT_EQ(list->findElement(*pattern, "", ""), nullptr);  // the item raises
    EXPECT_EQ(list->findElement(*pattern, "", ""), nullptr);  // the pattern does
    EXPECT_EQ(list->findElement(*pattern, "", ""), &list->at(0));
}

}  // namespace
