#include <zo/Tessera.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <numeric>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/parsed.h"

using namespace zo::Tessera;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

// Arrays and objects as the standard library and what is written for its containers use them.

namespace {

template <class Iterator, class Value, class Reference>
constexpr bool k_goesBothWays =
    std::is_same_v<typename std::iterator_traits<Iterator>::value_type, Value>&& std::is_same_v<
        typename std::iterator_traits<Iterator>::reference, Reference>&&
        std::is_same_v<typename std::iterator_traits<Iterator>::difference_type, std::ptrdiff_t>&&
            std::is_base_of_v<std::bidirectional_iterator_tag,
                              typename std::iterator_traits<Iterator>::iterator_category>;

using Member = std::pair<const std::string, Element*>;

static_assert(k_goesBothWays<Array::iterator, Element*, Element*&>);
static_assert(k_goesBothWays<Array::const_iterator, Element*, Element* const&>);
static_assert(k_goesBothWays<Object::iterator, Member, Member&>);
static_assert(k_goesBothWays<Object::const_iterator, Member, const Member&>);
static_assert(std::is_convertible_v<Array::iterator, Array::const_iterator>);
static_assert(std::is_convertible_v<Object::iterator, Object::const_iterator>);
static_assert(std::is_same_v<Array::value_type, Element*>);
static_assert(std::is_same_v<Object::value_type, Member>);

class Containers : public testing::Test {
protected:
    const std::unique_ptr<Element> m_array = parsed("[3, 1, 2]");
    const std::unique_ptr<Element> m_object = parsed(R"({"b": 3, "a": 1, "c": 2})");
    Array& array = m_array->getArrayValue();
    Object& object = m_object->getObjectValue();
    const Array& constArray = array;
    const Object& constObject = object;
};

TEST_F(Containers, AreRangesOfAForLoop) {
    std::vector<int> items;
    for (const Element* item : constArray) {
        items.push_back(item->as<int>());
    }
    EXPECT_THAT(items, ElementsAre(3, 1, 2));
    for (Element* item : array) {
        item->realAssign(*value(0));
    }
    EXPECT_EQ(testing::PrintToString(array), "[0,0,0]");
}

TEST_F(Containers, GiveTheirMembersToStructuredBindings) {
    std::string read;
    for (const auto& [key, member] : constObject) {
        read += key + '=' + std::to_string(member->as<int>()) + ' ';
    }
    EXPECT_EQ(read, "b=3 a=1 c=2 ");
    for (auto& [key, member] : object) {
        member->realAssign(*value(key == "a" ? 10 : 20));
    }
    EXPECT_EQ(testing::PrintToString(object), R"({"b":20,"a":10,"c":20})");
    const auto [place, isNew] = object.insert("d", Element::createNull());
    EXPECT_TRUE(isNew);
    EXPECT_EQ(place->first, "d");
}

TEST_F(Containers, TellWhetherTheyAreEmpty) {
    EXPECT_FALSE(array.empty());
    EXPECT_FALSE(std::empty(constObject));
    array.clear();
    object.clear();
    EXPECT_TRUE(constArray.empty());
    EXPECT_TRUE(object.empty());
    EXPECT_EQ(std::size(array), 0U);
}

TEST_F(Containers, GiveConstIteratorsWhenAsked) {
    EXPECT_EQ(array.cbegin(), constArray.begin());
    EXPECT_EQ(array.cend(), constArray.end());
    EXPECT_EQ(object.cbegin(), constObject.begin());
    EXPECT_EQ(object.cend(), constObject.end());
    static_assert(std::is_same_v<decltype(array.cbegin()), Array::const_iterator>);
    static_assert(std::is_same_v<decltype(std::cend(object)), Object::const_iterator>);
}

TEST_F(Containers, ServeAlgorithms) {
    const auto isOne = [](const Element* item) { return item->as<int>() == 1; };
    const auto found = std::find_if(array.begin(), array.end(), isOne);
    ASSERT_NE(found, array.end());
    EXPECT_EQ((*found)->index(), 1U);
    EXPECT_EQ(std::count_if(array.cbegin(), array.cend(), isOne), 1);
    EXPECT_EQ(std::accumulate(array.begin(), array.end(), 0,
                              [](int sum, const Element* item) { return sum + item->as<int>(); }),
              6);
    EXPECT_TRUE(std::none_of(object.begin(), object.end(),
                             [](const Member& member) { return member.second->size() == 0; }));
    EXPECT_TRUE(std::equal(array.begin(), array.end(), object.begin(), object.end(),
                           [](const Element* item, const Member& member) {
                               return item->compare(*member.second) == 0;
                           }));
}

TEST_F(Containers, GiveTheirChildrenToOtherContainers) {
    std::vector<const Element*> sorted(array.begin(), array.end());
    std::sort(sorted.begin(), sorted.end(),
              [](const Element* left, const Element* right) { return left->compare(*right) < 0; });
    EXPECT_THAT(sorted, ElementsAre(&array.at(1), &array.at(2), &array.at(0)));
    const std::map<std::string, Element*> members(object.begin(), object.end());
    EXPECT_EQ(members.begin()->first, "a");
    EXPECT_EQ(members.begin()->second, object.tryAt("a"));
}

TEST_F(Containers, AreWalkedBackwards) {
    EXPECT_EQ((*std::prev(array.end()))->as<int>(), 2);
    const auto last = std::make_reverse_iterator(object.end());
    EXPECT_EQ(last->first, "c");
    EXPECT_EQ(std::next(last)->first, "a");
}

TEST_F(Containers, ServeMatchers) {
    EXPECT_THAT(array, SizeIs(3));
    EXPECT_THAT(object, Not(IsEmpty()));
    EXPECT_THAT(Array::k_empty, IsEmpty());
    EXPECT_THAT(array, ElementsAre(&array.at(0), &array.at(1), &array.at(2)));
    EXPECT_THAT(constObject, testing::Contains(Pair("a", object.tryAt("a"))));
}

}  // namespace
