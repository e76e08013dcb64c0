#include <zo/Tessera/Exception.h>

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Object.h>

#include "support/FailingNew.h"

using namespace zo::Tessera;

namespace {

/// An element whose path does not fit inside a string.
class OutOfMemory : public testing::Test {
protected:
    Object root;
    const Element* const element =
        Element::createNull(&root, "a key that is too long to be kept inside the string");
    const std::string message = "a message that is too long to be kept inside the string";
    const zo::RuntimeError cause = zo::RuntimeError("the cause");
};

TEST_F(OutOfMemory, PassesOutOfAnExceptionsConstructorWithoutALeak) {
    const long failures = failEachAllocation(
        [] { return std::unique_ptr<Exception>(); },
        [&](auto& made) { made = std::make_unique<Exception>(message, element, &cause); },
        [](const auto& made) { EXPECT_EQ(made, nullptr); });
    EXPECT_GT(failures, 2);
}

TEST_F(OutOfMemory, PassesOutOfAnExceptionsCopyAndCloneWithoutALeak) {
    const TypeException<EType> original(element, etNumber, etNull);
    const long failedCopies = failEachAllocation(
        [] { return std::unique_ptr<zo::Exception>(); },
        [&](auto& made) { made = std::make_unique<TypeException<EType>>(original); },
        [](const auto& made) { EXPECT_EQ(made, nullptr); });
    EXPECT_GT(failedCopies, 1);
    const long failedClones =
        failEachAllocation([] { return std::unique_ptr<zo::Exception>(); },
                           [&](auto& made) { made.reset(original.clone()); },
                           [](const auto& made) { EXPECT_EQ(made, nullptr); });
    EXPECT_GT(failedClones, 1);
}

TEST_F(OutOfMemory, LeavesBothSidesOfAnAssignmentReadable) {
    const Exception source(message, element, &cause);
    const long failures = failEachAllocation([] { return std::make_unique<Exception>("old"); },
                                             [&](auto& target) { *target = source; },
                                             [&](const auto& target) {
                                                 EXPECT_STREQ(target->what(), "old");
                                                 EXPECT_EQ(target->elementPath(), nullptr);
                                                 EXPECT_EQ(*source.elementPath(), element->key());
                                             });
    EXPECT_GT(failures, 1);
}

}  // namespace
