#include <zo/Tessera/Element.h>

#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "containers/treeTexts.h"
#include "support/NoMemory.h"

using namespace zo::Tessera;

namespace {

using Owner = std::unique_ptr<Element>;

/// A class of the application's, aligned to more than `operator new` cares for unasked.
class Aligned : public Null {
public:
    Aligned* clone() const override { return new Aligned(*this); }
    bool isInPlace() const {
        return reinterpret_cast<std::uintptr_t>(&m_wide) % alignof(Wide) == 0;
    }

private:
    struct alignas(64) Wide {
        char bytes[64];
    };
    Wide m_wide{};
};
static_assert(alignof(Aligned) == 64);

/// One with the alignment that any memory of `operator new` has.
class Broad : public Null {
public:
    Broad* clone() const override { return new Broad(*this); }
    bool isInPlace() const {
        return reinterpret_cast<std::uintptr_t>(&m_broad) % alignof(long double) == 0;
    }

private:
    long double m_broad = 0.5L;
};
static_assert(alignof(Broad) == __STDCPP_DEFAULT_NEW_ALIGNMENT__);

template <class T>
class OwnElement : public testing::Test {};
using OwnClasses = testing::Types<Aligned, Broad>;
struct OwnClassName {
    template <class T>
    static std::string GetName(int) {
        return alignof(T) == 64 ? "Aligned" : "Broad";
    }
};
TYPED_TEST_SUITE(OwnElement, OwnClasses, OwnClassName);

TYPED_TEST(OwnElement, IsAlignedAndDeletedByAnArrayOfAnyOrigin) {
    parsed(itemsText(100));
    const LiveMemory before = LiveMemory::now();
    {
        const Owner tree = parsed(itemsText(100));
        for (int i = 0; i < 20; ++i) {
            auto* const element = new TypeParam();
            EXPECT_TRUE(element->isInPlace());
            tree->getArrayValue().push_back(element);
        }
        const Owner copy(tree->clone());
        for (unsigned long index = 100; index < 120; ++index) {
            EXPECT_TRUE(dynamic_cast<const TypeParam&>(copy->at(index)).isInPlace());
        }
        tree->getArrayValue().erase(110);
    }
    EXPECT_EQ(LiveMemory::now(), before);
}

TYPED_TEST(OwnElement, IsAlignedByEachFormOfNew) {
    std::vector<Owner> elements;
    for (int i = 0; i < 20; ++i) {
        auto* const element = new TypeParam();
        elements.emplace_back(element);
        EXPECT_TRUE(element->isInPlace());
        auto* const another = new (std::nothrow) TypeParam();
        elements.emplace_back(another);
        EXPECT_TRUE(another->isInPlace());
    }
}

TEST(NewElement, ComesFromEachFormOfNew) {
    const LiveMemory before = LiveMemory::now();
    delete new Null();
    delete new (std::nothrow) Array();
    delete static_cast<Element*>(new TBasicElement<std::string>("a string"));
    EXPECT_EQ(LiveMemory::now(), before);

    alignas(Object) unsigned char place[sizeof(Object)];
    auto* const object = new (place) Object();
    EXPECT_EQ(static_cast<void*>(object), place);
    Element::createNull(object, "a");
    EXPECT_EQ(object->size(), 1U);
    object->~Object();
    EXPECT_EQ(LiveMemory::now(), before);
}

TEST(NewElement, IsNullOrAnExceptionWithoutMemory) {
    Element* element = nullptr;
    const NoMemory none;
    EXPECT_EQ(element = new (std::nothrow) Null(), nullptr);
    EXPECT_THROW(element = new Null(), std::bad_alloc);
    EXPECT_THROW(element = new Aligned(), std::bad_alloc);
    EXPECT_THROW(element = Element::createNull(), std::bad_alloc);
    EXPECT_EQ(element, nullptr);
}

/// Its constructor throws the int 1.
template <class Base>
class Unmakeable : public Base {
public:
    Unmakeable() { throw 1; }
};

template <class Make>
void expectLosesNothing(const Make& make) {
    const LiveMemory before = LiveMemory::now();
    EXPECT_THROW(make(), int);
    EXPECT_EQ(LiveMemory::now(), before);
}

TEST(NewElement, LosesNothingWhenItsConstructorThrows) {
    expectLosesNothing([] { new Unmakeable<Null>(); });
    expectLosesNothing([] { new (std::nothrow) Unmakeable<Null>(); });
    expectLosesNothing([] { new Unmakeable<Aligned>(); });
    expectLosesNothing([] { new (std::nothrow) Unmakeable<Aligned>(); });
    alignas(Null) unsigned char place[sizeof(Unmakeable<Null>)];
    expectLosesNothing([&place] { new (place) Unmakeable<Null>(); });
}

}  // namespace
