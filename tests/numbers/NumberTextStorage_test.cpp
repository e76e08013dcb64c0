#include <zo/Tessera/NumberText.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include <zo/Tessera/BasicNumber.h>

#include "support/NoMemory.h"
#include "support/NumberOf.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

static_assert(std::is_nothrow_default_constructible_v<NumberText>);
static_assert(std::is_nothrow_move_constructible_v<NumberText>);
static_assert(std::is_nothrow_move_assignable_v<NumberText>);
static_assert(!std::is_convertible_v<std::string_view, NumberText>);

std::string digits(std::size_t count) {
    std::string text;
    for (std::size_t i = 1; i <= count; ++i) {
        text += std::to_string(i % 10);
    }
    return text;
}

const std::string k_longestInside = digits(NumberText::k_mostInside);
const std::string k_shortestOutside = digits(NumberText::k_mostInside + 1);
const std::string k_hundred(100, '7');

/// A text, from its bytes alone or from a string that was asked for.
struct Row {
    const char* name;
    std::string text;
    bool isString;
};

class NumberTextOfLength : public testing::TestWithParam<Row> {
protected:
    NumberTextOfLength() {
        if (GetParam().isString) {
            text.asString();
        }
    }

    const std::string& bytes = GetParam().text;
    NumberText text{bytes};
};

TEST_P(NumberTextOfLength, GivesItsBytesWithAZeroBehindThem) {
    EXPECT_EQ(text.view(), bytes);
    EXPECT_EQ(text.view().data()[bytes.size()], '\0');
    EXPECT_EQ(text.empty(), bytes.empty());
}

TEST_P(NumberTextOfLength, BecomesAStringThatStays) {
    const std::string& string = text.asString();
    EXPECT_EQ(string, bytes);
    EXPECT_EQ(&text.asString(), &string);
    EXPECT_EQ(text.view(), bytes);
    EXPECT_EQ(text.view().data(), string.data());
}

TEST_P(NumberTextOfLength, IsCopiedAndTheCopyIsItsOwn) {
    NumberText copy(text);
    NumberText assigned(k_hundred);
    assigned = text;
    EXPECT_EQ(copy.view(), bytes);
    EXPECT_EQ(assigned.view(), bytes);
    copy.assign("1");
    assigned.assign("2");
    EXPECT_EQ(text.view(), bytes);
}

TEST_P(NumberTextOfLength, IsMovedAndThenEmpty) {
    NumberText moved(std::move(text));
    EXPECT_EQ(moved.view(), bytes);
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.view().data()[0], '\0');
    EXPECT_EQ(text.asString(), "");

    for (const char* const former : {"", "5", k_hundred.c_str()}) {
        NumberText assigned{std::string_view(former)};
        assigned = std::move(moved);
        EXPECT_EQ(assigned.view(), bytes);
        EXPECT_EQ(moved.view(), "");
        moved = std::move(assigned);
    }
    EXPECT_EQ(moved.view(), bytes);
}

TEST_P(NumberTextOfLength, IsAssignedAndMovedToItself) {
    const NumberText& same = text;
    text = same;
    EXPECT_EQ(text.view(), bytes);
    NumberText& itself = text;
    text = std::move(itself);
    EXPECT_EQ(text.view(), bytes);
}

TEST_P(NumberTextOfLength, IsAssignedEachPartOfItself) {
    for (std::size_t begin = 0; begin <= bytes.size(); ++begin) {
        for (const std::size_t length : {std::size_t{0}, std::size_t{1}, bytes.size() - begin}) {
            NumberText part(text);
            if (GetParam().isString) {
                part.asString();
            }
            part.assign(part.view().substr(begin, length));
            ASSERT_EQ(part.view(), bytes.substr(begin, length)) << begin << ", " << length;
            ASSERT_EQ(part.view().data()[part.view().size()], '\0');
        }
    }
}

TEST_P(NumberTextOfLength, IsReplacedByATextOfAnyLength) {
    for (const std::string& next :
         {std::string(), std::string("5"), k_longestInside, k_shortestOutside, k_hundred}) {
        NumberText replaced(text);
        if (GetParam().isString) {
            replaced.asString();
        }
        replaced.assign(next);
        EXPECT_EQ(replaced.view(), next);
        replaced.assign(bytes);
        EXPECT_EQ(replaced.view(), bytes);
        EXPECT_EQ(replaced.asString(), bytes);
    }
}

TEST_P(NumberTextOfLength, IsClearedAndUsedAgain) {
    text.clear();
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.view().data()[0], '\0');
    text.assign(bytes);
    EXPECT_EQ(text.view(), bytes);
}

TEST_P(NumberTextOfLength, IsAsBeforeWhenThereIsNoMemoryForALongerOne) {
    const std::string longer(1000, '8');
    {
        const NoMemory none;
        EXPECT_THROW(text.assign(longer), std::bad_alloc);
    }
    EXPECT_EQ(text.view(), bytes);
    EXPECT_EQ(text.asString(), bytes);
}

INSTANTIATE_TEST_SUITE_P(
    NumberText, NumberTextOfLength,
    testing::Values(Row{"None", "", false}, Row{"NoneAsAString", "", true}, Row{"One", "5", false},
                    Row{"OneAsAString", "5", true},
                    Row{"OneLessThanFit", k_longestInside.substr(1), false},
                    Row{"AsManyAsFit", k_longestInside, false},
                    Row{"AsManyAsFitAsAString", k_longestInside, true},
                    Row{"OneMoreThanFit", k_shortestOutside, false}, Row{"Many", k_hundred, false},
                    Row{"ZeroBytes", std::string("1\0002\0", 4), false},
                    Row{"ZeroBytesAsAString", std::string("1\0002\0", 4), true}),
    k_rowName);

TEST(NumberText, TakesMemoryForWhatDoesNotFitAlone) {
    const std::string& fitting = k_longestInside;
    {
        const NoMemory none;
        NumberText text(fitting);
        NumberText copy(text);
        text.assign(fitting);
        copy = text;
        EXPECT_THROW(NumberText{k_shortestOutside}, std::bad_alloc);
    }
    const LiveMemory before = LiveMemory::now();
    const NumberText outside(k_shortestOutside);
    EXPECT_EQ(LiveMemory::now().blocks - before.blocks, 2) << "a string and its bytes";
}

TEST(NumberText, StaysAsItIsWhenThereIsNoMemoryForAString) {
    const NumberText text("2.50");
    const char* const bytes = text.view().data();
    {
        const NoMemory none;
        EXPECT_THROW(text.asString(), std::bad_alloc);
    }
    EXPECT_EQ(text.view().data(), bytes);
    EXPECT_EQ(text.asString(), "2.50");
}

TEST(NumberText, GivesAllItsMemoryBack) {
    const LiveMemory before = LiveMemory::now();
    {
        NumberText text(k_hundred);
        NumberText other("5");
        other.asString();
        text = std::move(other);
        other = NumberText(k_shortestOutside);
        other.assign("1");
        const NumberText copy(text);
        copy.asString();
        text.clear();
    }
    EXPECT_EQ(LiveMemory::now(), before);
}

TEST(NumberText, IsOneStringOfANumberWhateverElseIsRead) {
    const BasicNumber number = numberOf("2.50");
    const std::string& text = number.toString();
    EXPECT_EQ(number.text(), "2.50");
    EXPECT_EQ(number.text().data(), text.data());
    EXPECT_EQ(number.toDouble(), 2.5);
    EXPECT_EQ(number.as<std::string>(), "2.50");
    EXPECT_EQ(&number.toString(), &text);
    EXPECT_EQ(text, "2.50");
}

TEST(NumberText, OfANumberIsReadWithoutMemory) {
    const BasicNumber read = numberOf(k_longestInside);
    const BasicNumber made = numberOf(-5);
    const NoMemory none;
    EXPECT_TRUE(read.text() == k_longestInside);
    EXPECT_TRUE(made.text() == "-5");
    EXPECT_TRUE(BasicNumber(read).text() == read.text());
}

TEST(NumberText, OfANumberIsCopiedFromAStringAndItsBytes) {
    const BasicNumber asked = numberOf(k_hundred);
    EXPECT_EQ(asked.toString(), k_hundred);
    BasicNumber copy(asked);
    EXPECT_EQ(copy.toString(), k_hundred);
    EXPECT_NE(&copy.toString(), &asked.toString());
    copy = numberOf("1.50");
    EXPECT_EQ(copy.text(), "1.50");
    const BasicNumber moved(std::move(copy));
    EXPECT_EQ(moved.text(), "1.50");
    EXPECT_EQ(copy.text(), "");
}

TEST(NumberText, OfANumberIsAskedForAgainAfterAWantOfMemory) {
    const BasicNumber number = numberOf("2.50");
    {
        const NoMemory none;
        EXPECT_THROW(number.toString(), std::bad_alloc);
    }
    EXPECT_EQ(number.toString(), "2.50");
}

}  // namespace
