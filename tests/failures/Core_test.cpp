#include <zo/ListMap.h>

#include <list>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <zo/DecNumber.h>
#include <zo/IndexList.h>
#include <zo/convert.h>

#include "failures/outOfMemory.h"

namespace {

using Map = zo::ListMap<std::string, int>;
using List = zo::IndexList<std::string>;

std::string contents(const Map& map) {
    std::string text;
    for (const auto& [key, value] : map) {
        const auto found = map.find(key);
        text += found != map.end() && &found->second == &value ? key + std::to_string(value) + ";"
                                                               : "lost " + key;
    }
    return text;
}

std::string contents(const List& list) {
    std::string text;
    size_t place = 0;
    for (const std::string& value : list) {
        text += &list[place++] == &value ? value + ";" : "lost " + value;
    }
    return text;
}

TEST(OutOfMemoryInAListMap, MakesNone) {
    std::unique_ptr<Map> map;
    const auto make = [&] { map = std::make_unique<Map>(); };
    EXPECT_EQ(failEachAllocation([&] { map.reset(); }, make, [&] { EXPECT_EQ(map, nullptr); }), 2);
    EXPECT_TRUE(map->empty());
}

TEST(OutOfMemoryInAListMap, InsertsAllOrNothing) {
    Map map;
    const auto prepare = [&] {
        map = Map();
        map.insert({"b", 1});
    };
    const auto insert = [&] { map.insert({k_long, 2}); };
    EXPECT_GT(failEachAllocation(prepare, insert, [&] { EXPECT_EQ(contents(map), "b1;"); }), 1);
    EXPECT_EQ(contents(map), "b1;" + k_long + "2;");
}

TEST(OutOfMemoryInAListMap, HindersNoSearchAndNoRemoval) {
    Map map;
    for (const char* const key : {"e", "d", "c", "b", "a"}) {
        map.insert({k_long + key, 1});
    }
    const std::string c = k_long + "c";
    Map other;
    bool found = false;
    int first = 0;
    {
        const NoMemory none;
        found = map.find(c) != map.end();
        map.erase(c);
        map.erase(map.begin());
        first = map.takeFirst();
        other.swap(map);
        Map moved(std::move(other));
        moved.clear();
        other = std::move(moved);
    }
    EXPECT_TRUE(found);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(contents(map) + contents(other), "");
    other.insert({"again", 2});
    EXPECT_EQ(contents(other), "again2;");
}

TEST(OutOfMemoryInAnIndexList, MakesNone) {
    std::unique_ptr<List> list;
    const auto make = [&] { list = std::make_unique<List>(); };
    EXPECT_EQ(failEachAllocation([&] { list.reset(); }, make, [&] { EXPECT_EQ(list, nullptr); }),
              2);
    EXPECT_TRUE(list->empty());
}

TEST(OutOfMemoryInAnIndexList, AppendsAllOrNothing) {
    List list;
    const auto prepare = [&] {
        list = List();
        list.push_back("b");
    };
    const auto append = [&] { list.push_back(k_long); };
    EXPECT_GT(failEachAllocation(prepare, append, [&] { EXPECT_EQ(contents(list), "b;"); }), 1);
    EXPECT_EQ(contents(list), "b;" + k_long + ";");
}

TEST(OutOfMemoryInAnIndexList, HindersNoRemoval) {
    zo::IndexList<int> list;
    for (const int value : {1, 2, 3, 4, 5, 6}) {
        list.push_back(value);
    }
    std::list<int> taken;
    int first = 0;
    int atPlace = 0;
    {
        const NoMemory none;
        list.erase(list.begin());
        list.extract(list.begin(), taken);
        list.recount();
        atPlace = list[1];
        first = list.takeFirst();
        list.clear();
    }
    EXPECT_EQ(taken, std::list<int>{2});
    EXPECT_EQ(atPlace, 4);
    EXPECT_EQ(first, 3);
    EXPECT_TRUE(list.empty());
}

std::string textOf(const zo::DecNumber& number) {
    std::ostringstream out;
    number.writeTo(out);
    return out.str();
}

const std::string k_formerDecimal = "-1234567890.1234567890123456789";
const std::string k_newDecimal = "9876543210.9876543210987654321";

TEST(OutOfMemoryInADecNumber, MakesNone) {
    std::unique_ptr<zo::DecNumber> number;
    const auto prepare = [&] { number.reset(); };
    const auto check = [&] { EXPECT_EQ(number, nullptr); };
    const auto fromText = [&] { number = std::make_unique<zo::DecNumber>(k_newDecimal); };
    EXPECT_GT(failEachAllocation(prepare, fromText, check), 1);
    EXPECT_EQ(textOf(*number), k_newDecimal);
    const auto fromNumber = [&] { number = std::make_unique<zo::DecNumber>(1234567890123456789); };
    EXPECT_GT(failEachAllocation(prepare, fromNumber, check), 1);
    EXPECT_EQ(textOf(*number), "1234567890123456789");
}

TEST(OutOfMemoryInADecNumber, AssignsAllOrNothing) {
    const zo::DecNumber source(k_newDecimal);
    zo::DecNumber target(k_formerDecimal);
    const auto check = [&] { EXPECT_EQ(textOf(target), k_formerDecimal); };
    const auto prepare = [&] { target = zo::DecNumber(k_formerDecimal); };
    std::unique_ptr<zo::DecNumber> longer;
    const auto makeShort = [&] { longer = std::make_unique<zo::DecNumber>("1e5"); };
    const auto checkShort = [&] { EXPECT_EQ(textOf(*longer), "100000"); };
    EXPECT_GT(failEachAllocation(
                  makeShort, [&] { *longer = source; }, checkShort),
              0);
    EXPECT_EQ(textOf(*longer), k_newDecimal);
    EXPECT_GT(failEachAllocation(
                  prepare, [&] { target = zo::DecNumber(k_newDecimal); }, check),
              0);
    EXPECT_EQ(textOf(target), k_newDecimal);
}

TEST(OutOfMemoryInADecNumber, IsNeverAWrongConversion) {
    const zo::DecNumber number(k_formerDecimal);
    long integer = 0;
    double floating = 0;
    const auto check = [&] { EXPECT_EQ(textOf(number), k_formerDecimal); };
    const auto toLong = [&] { integer = static_cast<long>(number); };
    EXPECT_GT(failEachAllocation([] {}, toLong, check), 0);
    EXPECT_EQ(integer, -1234567890);
    const auto toDouble = [&] { floating = static_cast<double>(number); };
    EXPECT_GT(failEachAllocation([] {}, toDouble, check), 0);
    EXPECT_EQ(floating, -1234567890.1234567);
}

TEST(OutOfMemoryInADecNumber, PassesOutOfWriting) {
    const zo::DecNumber number("1.23456789012345678901234567890e-99");
    std::string text;
    const auto write = [&] {
        std::ostringstream out;
        out.exceptions(std::ios::badbit);
        number.writeTo(out);
        text = out.str();
    };
    const auto prepare = [&] { text.clear(); };
    EXPECT_GT(failEachAllocation(prepare, write, [&] { EXPECT_EQ(text, ""); }), 1);
    EXPECT_EQ(text, "1.2345678901234567890123456789e-99");
}

TEST(OutOfMemoryInAConversionOfText, IsNeverAnotherText) {
    const std::wstring wide(k_long.begin(), k_long.end());
    std::string narrow;
    const auto prepare = [&] { narrow.clear(); };
    const auto check = [&] { EXPECT_EQ(narrow, ""); };
    EXPECT_GT(failEachAllocation(
                  prepare, [&] { narrow = zo::convert(wide); }, check),
              0);
    EXPECT_EQ(narrow, k_long);
    EXPECT_GT(failEachAllocation(
                  prepare, [&] { narrow = zo::convert(wide.c_str()); }, check),
              0);
    EXPECT_EQ(narrow, k_long);
    std::wstring back;
    const auto prepareBack = [&] { back.clear(); };
    const auto checkBack = [&] { EXPECT_EQ(back, L""); };
    EXPECT_GT(failEachAllocation(
                  prepareBack, [&] { back = zo::wconvert(k_long); }, checkBack),
              1);
    EXPECT_EQ(back, wide);
}

}  // namespace
