#include <zo/Tessera/Exception.h>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>

#include "support/HostileLocale.h"
#include "support/exceptionText.h"

using namespace zo::Tessera;

namespace {

// What each of the two classes makes of the same key, and says without an element.
template <class Class>
Class make(const Element* element, const std::string& key, const Exception* cause = nullptr) {
    if constexpr (std::is_same_v<Class, PathNotFound>) {
        return PathNotFound(element, "a." + key, key, cause);
    } else {
        return KeyNotFound(element, key, cause);
    }
}

template <class Class>
std::string said(const std::string& key) {
    return std::is_same_v<Class, PathNotFound>
               ? "Path \"a." + key + "\" not found! Key \"" + key + "\"."
               : "Key \"" + key + "\" not found!";
}

template <class Class>
class NotFound : public testing::Test {
    static_assert(std::is_base_of_v<Exception, Class>);
    static_assert(std::is_copy_constructible_v<Class> && std::is_copy_assignable_v<Class>);
    static_assert(std::has_virtual_destructor_v<Class>);
    static_assert(std::is_same_v<decltype(std::declval<const Class&>().clone()), Class*>);
    static_assert(std::is_same_v<decltype(std::declval<const Class&>().key()), const std::string&>);

protected:
    /// {"list": [null]}; its null has the path "list[0]".
    std::unique_ptr<Object> m_root = std::make_unique<Object>();
    Element* m_list = Element::createArray(m_root.get(), "list");
    Element* m_item = Element::createNull(m_list);
};

struct ClassName {
    template <class Class>
    static std::string GetName(int) {
        return std::is_same_v<Class, PathNotFound> ? "PathNotFound" : "KeyNotFound";
    }
};

using Classes = testing::Types<PathNotFound, KeyNotFound>;
TYPED_TEST_SUITE(NotFound, Classes, ClassName);

TYPED_TEST(NotFound, SaysNothingOfTheElementWhenThereIsNone) {
    const auto exception = make<TypeParam>(nullptr, "b");
    EXPECT_EQ(exception.elementPath(), nullptr);
    EXPECT_EQ(exception.key(), "b");
    EXPECT_EQ(textOf(exception), said<TypeParam>("b"));
}

// Callers match on this text, address and all.
TYPED_TEST(NotFound, ShowsTheAddressOfThePathOfItsElement) {
    const auto exception = make<TypeParam>(this->m_item, "b");
    ASSERT_NE(exception.elementPath(), nullptr);
    EXPECT_EQ(*exception.elementPath(), "list[0]");
    EXPECT_EQ(textOf(exception), said<TypeParam>("b") + addressPart(exception));
}

TYPED_TEST(NotFound, ShowsTheAddressOfAnEmptyPathToo) {
    const auto exception = make<TypeParam>(this->m_root.get(), "b");
    ASSERT_NE(exception.elementPath(), nullptr);
    EXPECT_EQ(*exception.elementPath(), "");
    EXPECT_EQ(textOf(exception), said<TypeParam>("b") + addressPart(exception));
}

TYPED_TEST(NotFound, KeepsAnyKeyAsItIs) {
    for (const std::string& key :
         {std::string(), std::string("[2]"), std::string("a\"b"), std::string("x.y\\z\xff"),
          std::string("a\0b", 3), std::string(1000, 'k')}) {
        const auto exception = make<TypeParam>(nullptr, key);
        EXPECT_EQ(exception.key(), key);
        EXPECT_EQ(textOf(exception), said<TypeParam>(key));
    }
}

TYPED_TEST(NotFound, OutlivesItsElement) {
    const auto exception = make<TypeParam>(this->m_item, "b");
    this->m_root.reset();
    ASSERT_NE(exception.elementPath(), nullptr);
    EXPECT_EQ(*exception.elementPath(), "list[0]");
    EXPECT_EQ(textOf(exception), said<TypeParam>("b") + addressPart(exception));
}

// Counts its living copies.
class Cause : public Exception {
public:
    explicit Cause(int& living) : Exception("the cause"), m_living(living) { ++m_living; }
    Cause(const Cause& other) : Exception(other), m_living(other.m_living) { ++m_living; }
    Cause& operator=(const Cause&) = delete;
    ~Cause() override { --m_living; }
    Cause* clone() const override { return new Cause(*this); }

private:
    int& m_living;
};

TYPED_TEST(NotFound, OwnsACopyOfItsCause) {
    int living = 0;
    {
        std::optional<Cause> cause(std::in_place, living);
        const auto exception = make<TypeParam>(this->m_item, "b", &*cause);
        cause.reset();
        EXPECT_EQ(living, 1);
        {
            const TypeParam copy(exception);
            EXPECT_EQ(living, 2);
        }
        EXPECT_EQ(living, 1);
    }
    EXPECT_EQ(living, 0);
}

TYPED_TEST(NotFound, DoesNotShowItsCause) {
    const Exception cause("the cause");
    const auto exception = make<TypeParam>(nullptr, "b", &cause);
    EXPECT_EQ(textOf(exception), said<TypeParam>("b"));
}

TYPED_TEST(NotFound, HasACauseAndNoMessageInItsBase) {
    const Exception cause("the cause");
    std::string text;
    make<TypeParam>(nullptr, "b", &cause).Exception::generateWhat(text);
    EXPECT_EQ(text, "Caused by: the cause");
    make<TypeParam>(nullptr, "b").Exception::generateWhat(text);
    EXPECT_EQ(text, "");
}

TYPED_TEST(NotFound, IsClonedAsItsOwnClass) {
    const Exception cause("the cause");
    auto exception = std::make_unique<TypeParam>(make<TypeParam>(this->m_item, "b", &cause));
    const std::unique_ptr<zo::Exception> clone(
        static_cast<const zo::Exception&>(*exception).clone());
    const std::string* const formerPath = exception->elementPath();
    const zo::Exception& cloned = *clone;
    ASSERT_TRUE(typeid(cloned) == typeid(TypeParam));
    const auto& copy = static_cast<const TypeParam&>(cloned);
    EXPECT_NE(copy.elementPath(), formerPath);
    exception.reset();
    EXPECT_EQ(copy.key(), "b");
    ASSERT_NE(copy.elementPath(), nullptr);
    EXPECT_EQ(*copy.elementPath(), "list[0]");
    EXPECT_EQ(textOf(copy), said<TypeParam>("b") + addressPart(copy));
    std::string base;
    copy.Exception::generateWhat(base);
    EXPECT_EQ(base, "Caused by: the cause");
}

TYPED_TEST(NotFound, IsCopiedWithAPathOfItsOwn) {
    const auto exception = make<TypeParam>(this->m_item, "b");
    const TypeParam copy(exception);
    EXPECT_EQ(copy.key(), "b");
    ASSERT_NE(copy.elementPath(), nullptr);
    EXPECT_NE(copy.elementPath(), exception.elementPath());
    EXPECT_EQ(*copy.elementPath(), "list[0]");
    EXPECT_EQ(textOf(copy), said<TypeParam>("b") + addressPart(copy));
    EXPECT_NE(textOf(copy), textOf(exception));
}

TYPED_TEST(NotFound, IsAssignedEachPart) {
    const Exception cause("the cause");
    const auto source = make<TypeParam>(this->m_item, "b", &cause);
    auto target = make<TypeParam>(nullptr, "former");
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.key(), "b");
    ASSERT_NE(target.elementPath(), nullptr);
    EXPECT_NE(target.elementPath(), source.elementPath());
    EXPECT_EQ(*target.elementPath(), "list[0]");
    EXPECT_EQ(textOf(target), said<TypeParam>("b") + addressPart(target));
    std::string base;
    target.Exception::generateWhat(base);
    EXPECT_EQ(base, "Caused by: the cause");
}

TYPED_TEST(NotFound, LosesItsElementWhenOneWithoutIsAssigned) {
    const Exception cause("the cause");
    auto target = make<TypeParam>(this->m_item, "former", &cause);
    target = make<TypeParam>(nullptr, "b");
    EXPECT_EQ(target.elementPath(), nullptr);
    EXPECT_EQ(textOf(target), said<TypeParam>("b"));
    std::string base = "replaced";
    target.Exception::generateWhat(base);
    EXPECT_EQ(base, "");
}

TYPED_TEST(NotFound, IsUnchangedWhenAssignedToItself) {
    const Exception cause("the cause");
    auto exception = make<TypeParam>(this->m_item, "b", &cause);
    const std::string* const path = exception.elementPath();
    const TypeParam& itself = exception;
    exception = itself;
    EXPECT_EQ(exception.elementPath(), path);
    EXPECT_EQ(textOf(exception), said<TypeParam>("b") + addressPart(exception));
    std::string base;
    exception.Exception::generateWhat(base);
    EXPECT_EQ(base, "Caused by: the cause");
}

// The key is the one that a look-up writes; neither its index nor the address is grouped.
TYPED_TEST(NotFound, SaysTheSameUnderAnyLocale) {
    std::optional<TypeParam> exception;
    std::string text;
    {
        const HostileLocale locale;
        try {
            Path::getElement("[1234567]", *this->m_list);
            ADD_FAILURE();
        } catch (const PathNotFound& missing) {
            exception.emplace(make<TypeParam>(this->m_item, missing.key()));
        }
        exception->generateWhat(text);
    }
    EXPECT_EQ(text, said<TypeParam>("[1234567]") + addressPart(*exception));
}

// Which handler takes it when the application throws it.
TYPED_TEST(NotFound, IsCaughtByEachOfItsBases) {
    const auto raise = [this] { throw make<TypeParam>(this->m_item, "b"); };
    EXPECT_THROW(raise(), TypeParam);
    EXPECT_THROW(raise(), Exception);
    EXPECT_THROW(raise(), zo::Exception);
    EXPECT_THROW(raise(), std::exception);
}

TEST(PathNotFoundFields, AreThePathAndTheKey) {
    static_assert(
        std::is_same_v<decltype(std::declval<const PathNotFound&>().path()), const std::string&>);
    const std::string path("a\0\"[2].b", 8);
    PathNotFound exception(nullptr, path, "[2]");
    EXPECT_EQ(exception.path(), path);
    EXPECT_EQ(exception.key(), "[2]");
    EXPECT_EQ(textOf(exception), "Path \"" + path + "\" not found! Key \"[2]\".");
    const PathNotFound other(nullptr, "x.y", "y");
    exception = other;
    EXPECT_EQ(exception.path(), "x.y");
    EXPECT_EQ(PathNotFound(exception).path(), "x.y");
}

TEST(PathNotFoundFields, MayBothBeEmpty) {
    EXPECT_EQ(textOf(PathNotFound(nullptr, "", "")), "Path \"\" not found! Key \"\".");
    EXPECT_EQ(textOf(KeyNotFound(nullptr, "")), "Key \"\" not found!");
}

// A walker throws it inside the library: it must arrive by its own type, with the element gone.
TEST(PathNotFoundFromTheLibrary, ArrivesWhole) {
    std::unique_ptr<zo::Exception> caught;
    try {
        Object root;
        Element::createArray(&root, "list");
        Path::getElement("list[2]", root);
    } catch (const zo::Exception& exception) {
        EXPECT_TRUE(typeid(exception) == typeid(PathNotFound));
        caught.reset(exception.clone());
    }
    const auto* const exception = dynamic_cast<const PathNotFound*>(caught.get());
    ASSERT_NE(exception, nullptr);
    EXPECT_EQ(exception->path(), "list[2]");
    EXPECT_EQ(exception->key(), "[2]");
    ASSERT_NE(exception->elementPath(), nullptr);
    EXPECT_EQ(*exception->elementPath(), "list");
    EXPECT_EQ(textOf(*exception),
              "Path \"list[2]\" not found! Key \"[2]\"." + addressPart(*exception));
    std::string base;
    exception->Exception::generateWhat(base);
    EXPECT_EQ(base, "");  // no cause
}

TEST(PathNotFoundFromTheLibrary, ArrivesTheSameUnderAnyLocale) {
    const Object root;
    std::optional<PathNotFound> caught;
    std::string text;
    {
        const HostileLocale locale;
        try {
            Path::getElement("[1234567]", root);
            ADD_FAILURE();
        } catch (const PathNotFound& exception) {
            caught.emplace(exception);
        }
        caught->generateWhat(text);
    }
    EXPECT_EQ(text, "Path \"[1234567]\" not found! Key \"[1234567]\"." + addressPart(*caught));
}

template <class Handler>
bool arrivesAs() {
    const Object root;
    try {
        Path::getElement("a", root);
    } catch (const Handler&) {
        return true;
    } catch (...) {
    }
    return false;
}

TEST(PathNotFoundFromTheLibrary, IsCaughtByItselfAndEachOfItsBases) {
    EXPECT_TRUE(arrivesAs<PathNotFound>());
    EXPECT_TRUE(arrivesAs<Exception>());
    EXPECT_TRUE(arrivesAs<zo::Exception>());
    EXPECT_FALSE(arrivesAs<KeyNotFound>());
    EXPECT_FALSE(arrivesAs<ParseException>());
}

}  // namespace
