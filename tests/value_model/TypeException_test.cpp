#include <zo/Tessera/Exception.h>

#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>

using namespace zo::Tessera;

namespace {

using Mismatch = TypeException<EType>;

static_assert(std::is_base_of_v<Exception, Mismatch>);
static_assert(std::is_copy_constructible_v<Mismatch> && std::is_copy_assignable_v<Mismatch>);
static_assert(std::is_same_v<decltype(std::declval<const Mismatch&>().clone()), Mismatch*>);

TEST(TypeException, NamesBothKindsAndThePath) {
    Object root;
    const Element* const element = Element::createNull(&root, "a b");
    const Mismatch exception(element, etNumber, etString);
    EXPECT_STREQ(exception.what(),
                 "Json type mismatch! Requestet Json type: etNumber Got Json type: etString "
                 "Current element: \"a b\"");
    EXPECT_EQ(exception.requested(), etNumber);
    EXPECT_EQ(exception.found(), etString);
}

TEST(TypeException, StopsAfterTheFoundKindWithoutAnElement) {
    const Mismatch exception(nullptr, etObject, etNull);
    EXPECT_STREQ(exception.what(),
                 "Json type mismatch! Requestet Json type: etObject Got Json type: etNull");
    EXPECT_EQ(exception.elementPath(), nullptr);
}

TEST(TypeException, ShowsTheEmptyPathOfARoot) {
    const Null root;
    EXPECT_STREQ(Mismatch(&root, etArray, etNull).what(),
                 "Json type mismatch! Requestet Json type: etArray Got Json type: etNull "
                 "Current element: \"\"");
}

TEST(TypeException, EscapesThePathAsPathsDo) {
    Object root;
    const Element* const element = Element::createNull(&root, "a.b\"c");
    EXPECT_STREQ(Mismatch(element, etArray, etNull).what(),
                 "Json type mismatch! Requestet Json type: etArray Got Json type: etNull "
                 "Current element: \"a\\.b\"c\"");
}

TEST(TypeException, WritesAValueThatIsNoKindAsInvalid) {
    EXPECT_STREQ(Mismatch(nullptr, static_cast<EType>(6), etEmpty).what(),
                 "Json type mismatch! Requestet Json type: >>INVALID<< Got Json type: etEmpty");
}

TEST(TypeException, ReplacesTheTextItIsGiven) {
    std::string text = "something else";
    Mismatch(nullptr, etObject, etNull).generateWhat(text);
    EXPECT_EQ(text, "Json type mismatch! Requestet Json type: etObject Got Json type: etNull");
}

class CopiedTypeException : public testing::Test {
protected:
    void expectCopy(const Mismatch& copy) {
        EXPECT_EQ(copy.requested(), etBoolean);
        EXPECT_EQ(copy.found(), etArray);
        EXPECT_NE(copy.elementPath(), original->elementPath());
        original.reset();
        EXPECT_STREQ(copy.what(),
                     "Json type mismatch! Requestet Json type: etBoolean Got Json type: etArray "
                     "Current element: \"a\"");
    }

    Object root;
    const Element* const element = Element::createNull(&root, "a");
    std::unique_ptr<Mismatch> original = std::make_unique<Mismatch>(element, etBoolean, etArray);
};

TEST_F(CopiedTypeException, KeepsItsKindsAndAnIndependentPath) {
    expectCopy(Mismatch(*original));
}

TEST_F(CopiedTypeException, KeepsThemWhenAssigned) {
    Mismatch copy(nullptr, etNull, etNull);
    EXPECT_EQ(&(copy = *original), &copy);
    expectCopy(copy);
}

TEST_F(CopiedTypeException, KeepsItsClassWhenClonedThroughABase) {
    const zo::Exception& asBase = *original;
    const std::unique_ptr<const zo::Exception> clone(asBase.clone());
    const zo::Exception& cloned = *clone;
    ASSERT_STREQ(typeid(cloned).name(), typeid(Mismatch).name());
    expectCopy(static_cast<const Mismatch&>(cloned));
}

TEST(TypeException, IsCaughtAsEachOfItsBases) {
    Null null;
    EXPECT_THROW(null.getArrayValue(), Mismatch);
    EXPECT_THROW(null.getArrayValue(), Exception);
    EXPECT_THROW(null.getArrayValue(), zo::Exception);
    EXPECT_THROW(null.getArrayValue(), std::exception);
}

}  // namespace
