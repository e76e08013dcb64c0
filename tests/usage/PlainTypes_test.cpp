#include <zo/Tessera.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "support/parsed.h"

using namespace zo::Tessera;

// What programs write to get plain types out of elements and to make elements of plain types. Most
// of it is tested by being compiled. What does not compile is on the page docs/conversions.md,
// which has a test of its own.

namespace {

/// Whether an element becomes a `T` in every way: `T x = e`, `T x(e)`, `T x{e}`, `f(e)`, `return
/// e`.
template <class From, class T>
constexpr bool k_becomes = std::is_convertible_v<From, T>&& std::is_constructible_v<T, From>&&
    std::is_invocable_r_v<void, void (*)(T), From>;

template <class From, class... Types>
constexpr bool k_becomesEach = (k_becomes<From, Types> && ...);

template <class From, class... Types>
constexpr bool k_becomesNone = ((!std::is_convertible_v<From, Types> &&
                                 !std::is_constructible_v<Types, From>)&&...);

template <class From>
constexpr bool k_becomesThePlainTypes =
    k_becomesEach<From, bool, char, unsigned char, short, unsigned short, int, unsigned int, long,
                  unsigned long, long long, unsigned long long, std::string, const std::string&,
                  BasicNumber, const BasicNumber&>;

static_assert(k_becomesThePlainTypes<Element&>);
static_assert(k_becomesThePlainTypes<const Element&>);
static_assert(k_becomesEach<Element&, std::string&, BasicNumber&>);
static_assert(k_becomesNone<const Element&, std::string&, BasicNumber&>);

// The types that have no operator of their own have several that come as near.
static_assert(k_becomesEach<const Element&, double, float>);
static_assert(k_becomesNone<Element&, double, float>);
static_assert(k_becomesNone<Element&, signed char, wchar_t, char16_t, char32_t, long double>);
static_assert(k_becomesNone<const Element&, signed char, wchar_t, char16_t, char32_t, long double>);
static_assert(k_becomesNone<Element&, void*, const char*, std::nullptr_t, Element*, Dom>);
static_assert(!std::is_convertible_v<Element&, Path>);

// Each concrete class converts as `Element` does.
static_assert(k_becomesEach<Null&, bool, int, std::string>);
static_assert(k_becomesEach<TBasicElement<bool>&, bool, int, std::string>);
static_assert(k_becomesEach<TBasicElement<BasicNumber>&, bool, int, std::string>);
static_assert(k_becomesEach<const TBasicElement<std::string>&, bool, int, double, std::string>);
static_assert(k_becomesEach<Object&, bool, int, std::string>);
static_assert(k_becomesEach<const Array&, bool, int, double, std::string>);

template <class T>
constexpr bool k_isCopiedButNotAssigned =
    std::is_copy_constructible_v<T> && !std::is_copy_assignable_v<T> &&
    !std::is_move_assignable_v<T> && !std::is_assignable_v<T&, Element&> &&
    !std::is_assignable_v<T&, int> && !std::is_assignable_v<T&, std::string>;

static_assert(std::is_abstract_v<Element>);
static_assert(!std::is_copy_assignable_v<Element> && !std::is_assignable_v<Element&, int>);
static_assert(k_isCopiedButNotAssigned<Null>);
static_assert(k_isCopiedButNotAssigned<TBasicElement<bool>>);
static_assert(k_isCopiedButNotAssigned<TBasicElement<BasicNumber>>);
static_assert(k_isCopiedButNotAssigned<TBasicElement<std::string>>);
static_assert(k_isCopiedButNotAssigned<Object>);
static_assert(k_isCopiedButNotAssigned<Array>);

// What a value is made of, or put in, is always said.
static_assert(!std::is_convertible_v<int, BasicNumber> && !std::is_constructible_v<Array, int>);
static_assert(!std::is_convertible_v<std::string, TBasicElement<std::string>>);
static_assert(!std::is_convertible_v<bool, TBasicElement<bool>>);
static_assert(!std::is_convertible_v<Element*, Array> && !std::is_convertible_v<Element*, Dom>);

static_assert(std::is_copy_constructible_v<Dom> && std::is_copy_assignable_v<Dom>);
static_assert(std::is_nothrow_move_constructible_v<Dom> && std::is_nothrow_move_assignable_v<Dom>);
static_assert(std::is_nothrow_move_constructible_v<BasicNumber>);
static_assert(std::is_convertible_v<const char*, Path> && std::is_convertible_v<Path, std::string>);

class PlainTypes : public testing::Test {
protected:
    const std::unique_ptr<Element> root =
        parsed(R"({"n": 5, "b": true, "s": "text", "list": [7, 8], "a": {"b": 9}})");
    Element& n = root->at("n");
    Element& b = root->at("b");
    Element& s = root->at("s");
};

TEST_F(PlainTypes, AreInitialisedWithElements) {
    int whole = n;
    EXPECT_EQ(whole, 5);
    unsigned long index = n;
    EXPECT_EQ(index, 5U);
    std::string copy = s;
    EXPECT_EQ(copy, "text");
    std::string& text = s;
    text += "!";
    EXPECT_EQ(s.as<std::string>(), "text!");
    bool flag = b;
    EXPECT_TRUE(flag);
    double real = std::as_const(n);
    EXPECT_EQ(real, 5.0);
    BasicNumber number = n;
    EXPECT_EQ(number.toString(), "5");
}

template <class T>
T taken(T value) {
    return value;
}

TEST_F(PlainTypes, AreParametersThatElementsArePassedFor) {
    const Element& constNumber = n;
    EXPECT_EQ(taken<char>(n), 5);
    EXPECT_EQ(taken<unsigned char>(n), 5U);
    EXPECT_EQ(taken<short>(n), 5);
    EXPECT_EQ(taken<unsigned short>(n), 5U);
    EXPECT_EQ(taken<int>(n), 5);
    EXPECT_EQ(taken<unsigned int>(n), 5U);
    EXPECT_EQ(taken<long>(n), 5);
    EXPECT_EQ(taken<unsigned long>(n), 5U);
    EXPECT_EQ(taken<long long>(n), 5);
    EXPECT_EQ(taken<unsigned long long>(n), 5U);
    EXPECT_EQ(taken<float>(constNumber), 5.0F);
    EXPECT_EQ(taken<double>(constNumber), 5.0);
    EXPECT_TRUE(taken<bool>(b));
    EXPECT_EQ(taken<std::string>(s), "text");
    EXPECT_EQ(taken<const std::string&>(s), "text");
}

TEST_F(PlainTypes, AreConditions) {
    if (b) {
        SUCCEED();
    } else {
        FAIL();
    }
    EXPECT_FALSE(!b);
    EXPECT_EQ(b && true ? 1 : 2, 1);
    EXPECT_THROW(static_cast<void>(n ? 1 : 2), TypeException<EType>);
}

TEST_F(PlainTypes, ReachChildren) {
    Element& list = root->at("list");
    EXPECT_EQ(list.at(0).as<int>(), 7);
    EXPECT_EQ(list.at(1U).as<int>(), 8);
    EXPECT_EQ(std::as_const(list).at(0).as<int>(), 7);
    EXPECT_EQ(root->get("a.b").as<int>(), 9);
    EXPECT_EQ(root->get("list[1]").as<int>(), 8);
    EXPECT_EQ(root->get(std::string("n")).as<int>(), 5);
    EXPECT_EQ(root->at(std::string("n")).as<int>(), 5);
    EXPECT_EQ(root->getObjectValue().at("n").as<int>(), 5);
}

TEST(ValueOfAPlainType, IsOfTheKindThatItLooksLike) {
    EXPECT_EQ(testing::PrintToString(*value()), "null");
    EXPECT_EQ(testing::PrintToString(*value(true)), "true");
    EXPECT_EQ(testing::PrintToString(*value(0)), "0");
    EXPECT_EQ(testing::PrintToString(*value(0U)), "0");
    EXPECT_EQ(testing::PrintToString(*value(short{1})), "1");
    EXPECT_EQ(testing::PrintToString(*value(std::string().size())), "0");
    EXPECT_EQ(testing::PrintToString(*value(0.5)), "0.5");
    EXPECT_EQ(testing::PrintToString(*value(0.5F)), "0.5");
    EXPECT_EQ(testing::PrintToString(*value("text")), R"("text")");
    EXPECT_EQ(testing::PrintToString(*value(std::string("text"))), R"("text")");
    char changeable[] = "text";
    EXPECT_EQ(testing::PrintToString(*value(changeable)), R"("text")");
}

// What compiles and does another thing than it seems to.

TEST_F(PlainTypes, AreTakenForCodesAndPointers) {
    EXPECT_EQ(testing::PrintToString(*value('a')), "97");
    EXPECT_THROW(value(nullptr), zo::Tessera::Exception);
    EXPECT_THROW(root->get(0), zo::Tessera::Exception);
    EXPECT_THROW(root->set("n", 0), zo::Tessera::Exception);
    EXPECT_EQ(n.as<int>(), 5);
}

TEST_F(PlainTypes, AreWhatAnElementBecomesBesideAPointer) {
    const char* const text = "0123456";
    EXPECT_EQ(std::string(text + n), "56");
    EXPECT_THROW(std::string(text + s), TypeException<EType>);
}

TEST_F(PlainTypes, AreCharactersInBraces) {
    EXPECT_EQ(std::string{n}, "\x05");
    EXPECT_THROW(std::string{s}, TypeException<EType>);
}

}  // namespace
