#include <zo/Tessera/Element.h>

#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/TBasicElement.h>

#include "support/NumberOf.h"
#include "support/dump.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

template <class T>
constexpr bool isCopiedButNeverAssigned() {
    return std::is_copy_constructible_v<T> && std::is_base_of_v<Element, T> &&
           !std::is_copy_assignable_v<T> && !std::is_move_assignable_v<T> &&
           std::has_virtual_destructor_v<T> &&
           std::is_same_v<decltype(std::declval<const T&>().clone()), T*>;
}

static_assert(isCopiedButNeverAssigned<Null>());
static_assert(isCopiedButNeverAssigned<TBasicElement<bool>>());
static_assert(isCopiedButNeverAssigned<TBasicElement<BasicNumber>>());
static_assert(isCopiedButNeverAssigned<TBasicElement<std::string>>());
static_assert(isCopiedButNeverAssigned<Object>());
static_assert(isCopiedButNeverAssigned<Array>());

// Nothing becomes an element by accident, nor a child by passing a parent.
static_assert(!std::is_convertible_v<bool, TBasicElement<bool>>);
static_assert(!std::is_convertible_v<std::string, TBasicElement<std::string>>);
static_assert(!std::is_convertible_v<Element*, Null>);
static_assert(!std::is_convertible_v<Element*, Object>);
static_assert(!std::is_convertible_v<Element*, Array>);

template <class T>
Element* copyOf(const Element& source) {
    return new T(static_cast<const T&>(source));
}

struct Source {
    const char* name;
    Element* (*make)();
    Element* (*copy)(const Element& source);
    const char* text;  // the detached copy as dumped
};

const Source k_sources[] = {
    {"Null", [] { return Element::createNull(); }, copyOf<Null>,
     "etNull key=\"\" index=- parent=none\n"},
    {"Boolean", [] { return Element::createBoolean(true); }, copyOf<TBasicElement<bool>>,
     "etBoolean true key=\"\" index=- parent=none\n"},
    {"Number", [] { return Element::createNumber(numberOf("1.50")); },
     copyOf<TBasicElement<BasicNumber>>, "etNumber 1.50 key=\"\" index=- parent=none\n"},
    {"String", [] { return Element::createString("text"); }, copyOf<TBasicElement<std::string>>,
     "etString \"text\" key=\"\" index=- parent=none\n"},
    {"Object",
     [] {
         Element* const object = Element::createObject();
         Element* const list = Element::createArray(object, "list");
         Element::createBoolean(true, list);
         Element::createNull(object, "n");
         return object;
     },
     copyOf<Object>,
     "etObject key=\"\" index=- parent=none\n"
     "  etArray key=\"\" index=- parent=none held as \"list\"\n"
     "    etBoolean true key=\"\" index=- parent=none\n"
     "  etNull key=\"\" index=- parent=none held as \"n\"\n"},
    {"Array",
     [] {
         Element* const array = Element::createArray();
         Element* const object = Element::createObject(array);
         Element::createString("x", object, "s");
         Element::createNull(array);
         return array;
     },
     copyOf<Array>,
     "etArray key=\"\" index=- parent=none\n"
     "  etObject key=\"\" index=- parent=none\n"
     "    etString \"x\" key=\"\" index=- parent=none held as \"s\"\n"
     "  etNull key=\"\" index=- parent=none\n"},
};

class Copying : public testing::TestWithParam<Source> {
protected:
    void expectCopy(const Element& copy, const Element& source) {
        EXPECT_NE(&copy, &source);
        EXPECT_STREQ(typeid(copy).name(), typeid(source).name());
        EXPECT_EQ(copy.parent(), nullptr);
        EXPECT_EQ(copy.key(), "");
        EXPECT_EQ(copy.index(), Path::k_noIndex);
        EXPECT_EQ(dump(copy), GetParam().text);
        EXPECT_EQ(copy.compare(source), 0);
    }
};

TEST_P(Copying, GivesADetachedElementOfTheSameClass) {
    const std::unique_ptr<const Element> source(GetParam().make());
    const std::unique_ptr<const Element> clone(source->clone());
    expectCopy(*clone, *source);
    const std::unique_ptr<const Element> copy(GetParam().copy(*source));
    expectCopy(*copy, *source);
}

TEST_P(Copying, DetachesTheCopyOfAMember) {
    Object parent;
    Element* const source = GetParam().make();
    parent.insert("member", source);
    const std::string before = dump(parent);
    const std::unique_ptr<const Element> clone(source->clone());
    expectCopy(*clone, *source);
    const std::unique_ptr<const Element> copy(GetParam().copy(*source));
    expectCopy(*copy, *source);
    EXPECT_EQ(dump(parent), before);
}

TEST_P(Copying, DetachesTheCopyOfAnItem) {
    Array parent;
    Element* const source = GetParam().make();
    parent.push_back(source);
    const std::string before = dump(parent);
    const std::unique_ptr<const Element> clone(source->clone());
    expectCopy(*clone, *source);
    const std::unique_ptr<const Element> copy(GetParam().copy(*source));
    expectCopy(*copy, *source);
    EXPECT_EQ(dump(parent), before);
}

TEST_P(Copying, OutlivesItsSource) {
    std::unique_ptr<const Element> source(GetParam().make());
    const std::unique_ptr<const Element> clone(source->clone());
    source.reset();
    EXPECT_EQ(dump(*clone), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Elements, Copying, testing::ValuesIn(k_sources), k_rowName);

TEST(Copying, IsIndependentOfItsSource) {
    TBasicElement<std::string> source("before");
    const TBasicElement<std::string> copy(source);
    source.value() = "after";
    EXPECT_EQ(copy.value(), "before");
}

TEST(Copying, KeepsBothFormsOfANumber) {
    const TBasicElement<BasicNumber> source(numberOf(7U));
    const TBasicElement<BasicNumber> copy(source);
    EXPECT_EQ(copy.value().type(), BasicNumber::ebULongLong);
    EXPECT_EQ(copy.value().toString(), "7");
}

}  // namespace
