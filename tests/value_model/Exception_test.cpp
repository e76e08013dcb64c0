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

static_assert(std::is_base_of_v<zo::Exception, Exception>);
static_assert(std::is_copy_constructible_v<Exception> && std::is_copy_assignable_v<Exception>);
static_assert(std::is_same_v<decltype(std::declval<const Exception&>().clone()), Exception*>);
static_assert(!std::is_convertible_v<std::string, Exception>);
static_assert(!std::is_convertible_v<const Element*, Exception>);

const std::string* const k_noPath = nullptr;

/// What an exception shows: its text, then the path in angle brackets when there is one.
std::string shown(const Exception& exception) {
    const std::string path =
        exception.elementPath() ? " <" + *exception.elementPath() + ">" : std::string();
    return exception.what() + path;
}

/// {"list": [null]}
class Exceptions : public testing::Test {
protected:
    Object root;
    Element* const list = Element::createArray(&root, "list");
    const Element* const item = Element::createNull(list);
    const zo::RuntimeError cause = zo::RuntimeError("the cause");
    const zo::Exception* const noCause = nullptr;
    const Element* const noElement = nullptr;
};

TEST_F(Exceptions, ShowWhatTheirConstructorWasGiven) {
    EXPECT_EQ(shown(Exception(&cause)), "Caused by: the cause");
    EXPECT_EQ(shown(Exception(noCause)), "");
    EXPECT_EQ(shown(Exception("text")), "text");
    EXPECT_EQ(shown(Exception("text", noCause)), "text");
    EXPECT_EQ(shown(Exception("text", &cause)), "text Caused by: the cause");
    EXPECT_EQ(shown(Exception(std::string())), "");
    EXPECT_EQ(shown(Exception(item)), " <list[0]>");
    EXPECT_EQ(shown(Exception(item, noCause)), " <list[0]>");
    EXPECT_EQ(shown(Exception(item, &cause)), "Caused by: the cause <list[0]>");
    EXPECT_EQ(shown(Exception(noElement)), "");
    EXPECT_EQ(shown(Exception(noElement, &cause)), "Caused by: the cause");
    EXPECT_EQ(shown(Exception("text", item)), "text <list[0]>");
    EXPECT_EQ(shown(Exception("text", item, noCause)), "text <list[0]>");
    EXPECT_EQ(shown(Exception("text", item, &cause)), "text Caused by: the cause <list[0]>");
    EXPECT_EQ(shown(Exception("text", noElement)), "text");
    EXPECT_EQ(shown(Exception("text", noElement, &cause)), "text Caused by: the cause");
}

TEST_F(Exceptions, TakeANullLiteralForNeitherCauseNorElement) {
    EXPECT_EQ(shown(Exception(nullptr)), "");
    EXPECT_EQ(shown(Exception("text", nullptr)), "text");
    EXPECT_EQ(shown(Exception(std::string("text"), nullptr)), "text");
    EXPECT_EQ(shown(Exception(item, nullptr)), " <list[0]>");
    EXPECT_EQ(shown(Exception("text", nullptr, nullptr)), "text");
    EXPECT_EQ(shown(Exception("text", nullptr, &cause)), "text Caused by: the cause");
    EXPECT_EQ(shown(Exception("text", item, nullptr)), "text <list[0]>");
}

TEST_F(Exceptions, CaptureAnEmptyPathForARoot) {
    const Exception exception("text", &root);
    ASSERT_NE(exception.elementPath(), k_noPath);
    EXPECT_EQ(*exception.elementPath(), "");
}

TEST_F(Exceptions, TakeAnElementOfAnyClass) {
    const Object& asObject = root;
    EXPECT_EQ(shown(Exception(&asObject)), " <>");
    EXPECT_EQ(shown(Exception("text", &list->getArrayValue())), "text <list>");
}

TEST_F(Exceptions, KeepACopyOfTheirCause) {
    auto shortLived = std::make_unique<Exception>("inner", &cause);
    const Exception exception("outer", shortLived.get());
    shortLived.reset();
    EXPECT_EQ(shown(exception), "outer Caused by: inner Caused by: the cause");
}

TEST_F(Exceptions, ShowACausesTextByItsOwnClass) {
    const TypeException<EType> inner(item, etNumber, etNull);
    EXPECT_STREQ(Exception("outer", &inner).what(),
                 "outer Caused by: Json type mismatch! Requestet Json type: etNumber "
                 "Got Json type: etNull Current element: \"list[0]\"");
}

TEST_F(Exceptions, CopyAnIndependentPath) {
    auto original = std::make_unique<Exception>("text", item, &cause);
    const Exception copy(*original);
    ASSERT_NE(copy.elementPath(), k_noPath);
    EXPECT_NE(copy.elementPath(), original->elementPath());
    original.reset();
    EXPECT_EQ(shown(copy), "text Caused by: the cause <list[0]>");
}

TEST_F(Exceptions, CopyTheAbsenceOfAPath) {
    const Exception original("text");
    EXPECT_EQ(Exception(original).elementPath(), k_noPath);
    const std::unique_ptr<const Exception> clone(original.clone());
    EXPECT_EQ(clone->elementPath(), k_noPath);
}

TEST_F(Exceptions, CloneTheirOwnClassWithAnIndependentPath) {
    auto original = std::make_unique<Exception>("text", item, &cause);
    const zo::Exception& asBase = *original;
    const std::unique_ptr<const zo::Exception> clone(asBase.clone());
    const zo::Exception& cloned = *clone;
    ASSERT_STREQ(typeid(cloned).name(), typeid(Exception).name());
    const Exception& exception = static_cast<const Exception&>(cloned);
    EXPECT_NE(exception.elementPath(), original->elementPath());
    original.reset();
    EXPECT_EQ(shown(exception), "text Caused by: the cause <list[0]>");
}

TEST_F(Exceptions, AssignTextCauseAndPath) {
    Exception target("old", list);
    const Exception source("text", item, &cause);
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(shown(target), "text Caused by: the cause <list[0]>");
    EXPECT_NE(target.elementPath(), source.elementPath());
    EXPECT_EQ(shown(source), "text Caused by: the cause <list[0]>");
}

TEST_F(Exceptions, AssignAPathToOneWithoutAndTheReverse) {
    Exception target("old");
    target = Exception("text", item);
    EXPECT_EQ(shown(target), "text <list[0]>");
    target = Exception("bare");
    EXPECT_EQ(shown(target), "bare");
}

TEST_F(Exceptions, StayAsTheyAreWhenAssignedToThemselves) {
    Exception exception("text", item, &cause);
    const std::string* const path = exception.elementPath();
    const Exception& same = exception;
    EXPECT_EQ(&(exception = same), &exception);
    EXPECT_EQ(exception.elementPath(), path);
    EXPECT_EQ(shown(exception), "text Caused by: the cause <list[0]>");
}

TEST_F(Exceptions, KeepThePathOfAnElementThatIsGone) {
    auto array = std::make_unique<Array>();
    Element::createNull(array.get());
    const Exception exception("text", &array->at(0));
    array.reset();
    EXPECT_EQ(shown(exception), "text <[0]>");
}

TEST_F(Exceptions, KeepThePathOfTheTimeTheyWereMade) {
    const auto child = std::make_unique<Null>();
    const Exception before("text", child.get());
    EXPECT_EQ(shown(before), "text <>");
    auto member = std::make_unique<Null>();
    const Exception detached("text", member.get());
    const Element* const attached = member.get();
    root.insert("later", member.release());
    EXPECT_EQ(shown(detached), "text <>");
    EXPECT_EQ(shown(Exception("text", attached)), "text <later>");
}

TEST(ThrownException, ReportsAnElementThatDiesOnTheWayToTheCatch) {
    const auto fail = [] {
        const std::unique_ptr<Element> dying(Element::createObject());
        Element::createString("x", dying.get(), "name")->getBooleanValue();
    };
    try {
        fail();
        FAIL();
    } catch (const zo::Exception& exception) {
        EXPECT_STREQ(exception.what(),
                     "Json type mismatch! Requestet Json type: etBoolean Got Json type: etString "
                     "Current element: \"name\"");
    }
}

}  // namespace
