#include <zo/Exception.h>

#include <exception>
#include <memory>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

namespace {

using zo::Exception;
using zo::RuntimeError;

static_assert(std::is_base_of_v<std::exception, Exception>);
static_assert(std::is_base_of_v<Exception, RuntimeError>);
static_assert(std::is_copy_constructible_v<Exception> && std::is_copy_assignable_v<Exception>);
static_assert(std::has_virtual_destructor_v<Exception>);
static_assert(!std::is_convertible_v<std::string, Exception>);
static_assert(!std::is_convertible_v<std::string, RuntimeError>);
static_assert(std::is_same_v<decltype(std::declval<const RuntimeError&>().clone()), RuntimeError*>);

/// Says its text in generateWhat alone and counts how often it was asked.
class Counting : public Exception {
public:
    Counting() : Exception("not shown") {}
    void generateWhat(std::string& out) const override {
        out = "text " + std::to_string(++m_asked);
    }
    Counting* clone() const override { return new Counting(*this); }

private:
    mutable int m_asked = 0;
};

/// Cannot build its text, which shows when half of it is there.
class Unspeakable : public Exception {
public:
    Unspeakable() : Exception("not shown") {}
    void generateWhat(std::string& out) const override {
        out = "half a text";
        throw std::bad_alloc();
    }
    Unspeakable* clone() const override { return new Unspeakable(*this); }
};

/// Can say its text once only.
class SaidOnce : public Exception {
public:
    SaidOnce() : Exception("not shown") {}
    void generateWhat(std::string& out) const override {
        out = "said";
        if (std::exchange(m_said, true)) {
            throw std::bad_alloc();
        }
    }

private:
    mutable bool m_said = false;
};

/// Can be cloned as often as told, its clones once less.
class ClonedAtMost : public Exception {
public:
    explicit ClonedAtMost(int times) : Exception("rarely cloned"), m_times(times) {}
    ClonedAtMost* clone() const override {
        if (m_times == 0) {
            throw std::bad_alloc();
        }
        return new ClonedAtMost(m_times - 1);
    }

private:
    int m_times;
};

std::string generated(const Exception& exception) {
    std::string text = "former content";
    exception.generateWhat(text);
    return text;
}

TEST(Exception, ShowsItsMessage) {
    EXPECT_STREQ(Exception("it broke").what(), "it broke");
    EXPECT_EQ(generated(Exception("it broke")), "it broke");
}

TEST(Exception, WithoutMessageAndCauseShowsNothing) {
    EXPECT_STREQ(Exception("").what(), "");
    EXPECT_EQ(generated(Exception("")), "");
}

TEST(Exception, ShowsTheCauseAfterTheMessage) {
    const Exception cause("no room");
    EXPECT_STREQ(Exception("it broke", &cause).what(), "it broke Caused by: no room");
}

TEST(Exception, WithoutMessageBeginsWithTheCause) {
    const Exception cause("no room");
    EXPECT_STREQ(Exception("", &cause).what(), "Caused by: no room");
}

TEST(Exception, ShowsTheWholeChainOfCauses) {
    const RuntimeError first("disk full");
    const Exception second("cannot save", &first);
    EXPECT_STREQ(RuntimeError("cannot quit", &second).what(),
                 "cannot quit Caused by: cannot save Caused by: disk full");
}

TEST(Exception, ShowsACauseByTheTextOfTheCausesClass) {
    const Counting cause;
    EXPECT_STREQ(Exception("outer", &cause).what(), "outer Caused by: text 1");
}

TEST(Exception, KeepsACauseThatIsGone) {
    auto cause = std::make_unique<RuntimeError>("no room");
    const Exception exception("it broke", cause.get());
    cause.reset();
    EXPECT_STREQ(exception.what(), "it broke Caused by: no room");
}

TEST(Exception, ShowsTheTextOfTheDerivedClass) {
    const Counting counting;
    const std::exception& base = counting;
    EXPECT_STREQ(base.what(), "text 1");
}

TEST(Exception, BuildsItsTextAnewAtEachCall) {
    const Counting counting;
    EXPECT_STREQ(counting.what(), "text 1");
    EXPECT_STREQ(counting.what(), "text 2");
}

TEST(Exception, ShowsNothingWhenItsTextCannotBeBuilt) {
    EXPECT_STREQ(Unspeakable().what(), "");
}

TEST(Exception, DoesNotShowAFormerTextWhenTheNextCannotBeBuilt) {
    const SaidOnce exception;
    EXPECT_STREQ(exception.what(), "said");
    EXPECT_STREQ(exception.what(), "");
}

TEST(Exception, AsksForItsTextInAnEmptyString) {
    class Adding : public Exception {
    public:
        Adding() : Exception("not shown") {}
        void generateWhat(std::string& out) const override { out += "added"; }
    };
    const Adding exception;
    EXPECT_STREQ(exception.what(), "added");
    EXPECT_STREQ(exception.what(), "added");
}

TEST(Exception, LeavesTheTargetAloneWhenTheCausesTextCannotBeBuilt) {
    const Unspeakable cause;
    const Exception exception("outer", &cause);
    std::string text = "former content";
    EXPECT_THROW(exception.generateWhat(text), std::bad_alloc);
    EXPECT_EQ(text, "former content");
    EXPECT_STREQ(exception.what(), "");
}

TEST(Exception, IsNotMadeWhenItsCauseCannotBeCloned) {
    const ClonedAtMost cause(0);
    EXPECT_THROW(Exception("it broke", &cause), std::bad_alloc);
}

TEST(Exception, CopyHasMessageAndCauseOfItsOwn) {
    const RuntimeError cause("no room");
    auto original = std::make_unique<Exception>("it broke", &cause);
    const Exception copy(*original);
    original.reset();
    EXPECT_STREQ(copy.what(), "it broke Caused by: no room");
}

TEST(Exception, TextOfTheOriginalStaysWhenACopyIsAsked) {
    const Exception original("it broke");
    const char* const text = original.what();
    const Exception copy(original);
    EXPECT_STREQ(copy.what(), "it broke");
    EXPECT_STREQ(text, "it broke");
    EXPECT_NE(copy.what(), text);
}

TEST(Exception, AssignmentReplacesMessageAndCause) {
    const RuntimeError oldCause("old cause");
    const RuntimeError newCause("new cause");
    Exception target("old", &oldCause);
    target = Exception("new", &newCause);
    EXPECT_STREQ(target.what(), "new Caused by: new cause");
    target = Exception("alone");
    EXPECT_STREQ(target.what(), "alone");
}

TEST(Exception, AssignedToItselfStaysAsItIs) {
    const RuntimeError cause("no room");
    Exception exception("it broke", &cause);
    const Exception& itself = exception;
    exception = itself;
    EXPECT_STREQ(exception.what(), "it broke Caused by: no room");
}

TEST(Exception, StaysAsItIsWhenAssignmentFails) {
    const RuntimeError oldCause("old cause");
    const ClonedAtMost newCause(1);
    const Exception source("new", &newCause);
    Exception target("old", &oldCause);
    EXPECT_THROW(target = source, std::bad_alloc);
    EXPECT_STREQ(target.what(), "old Caused by: old cause");
}

TEST(Exception, CloneIsIndependentOfTheOriginal) {
    const RuntimeError cause("no room");
    auto original = std::make_unique<Exception>("it broke", &cause);
    const std::unique_ptr<Exception> clone(original->clone());
    *original = Exception("changed");
    EXPECT_STREQ(clone->what(), "it broke Caused by: no room");
    original.reset();
    EXPECT_STREQ(clone->what(), "it broke Caused by: no room");
}

TEST(Exception, CloneThroughTheBaseKeepsTheClass) {
    const RuntimeError error("it broke");
    const Exception& base = error;
    const std::unique_ptr<Exception> clone(base.clone());
    EXPECT_NE(dynamic_cast<RuntimeError*>(clone.get()), nullptr);
    EXPECT_STREQ(clone->what(), "it broke");
}

TEST(RuntimeError, IsCaughtByItsOwnTypeAndByItsBases) {
    EXPECT_THROW(throw RuntimeError("it broke"), RuntimeError);
    EXPECT_THROW(throw RuntimeError("it broke"), Exception);
    EXPECT_THROW(throw RuntimeError("it broke"), std::exception);
}

TEST(RuntimeError, CanBeCopiedAndAssigned) {
    const RuntimeError cause("no room");
    const RuntimeError original("it broke", &cause);
    const RuntimeError copy(original);
    RuntimeError target("other");
    target = original;
    EXPECT_STREQ(copy.what(), "it broke Caused by: no room");
    EXPECT_STREQ(target.what(), "it broke Caused by: no room");
}

}  // namespace
