#include <zo/Tessera/Exception.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <zo/Tessera/Element.h>

#include "failures/outOfMemory.h"
#include "support/NumberOf.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

/// What exceptions are made of.
struct Parts {
    std::string text;
    std::unique_ptr<Element> root = object();
    const Element* element;
    Exception cause;

    explicit Parts(const std::string& initialText)
        : text(initialText), element(Element::createNull(root.get(), text)), cause("C" + text) {}
};

const Parts k_formerParts(k_long);
// Longer, so that none of it fits into the memory of the former.
const Parts k_newParts("new and longer " + k_long);

/// All that the bases hold.
std::string baseState(const zo::Exception& exception) {
    std::string text;
    exception.zo::Exception::generateWhat(text);
    const auto* const ours = dynamic_cast<const Exception*>(&exception);
    return text + (ours && ours->elementPath() ? " at " + *ours->elementPath() : "");
}

std::string fields(const zo::Exception&) {
    return "";
}
std::string fields(const TypeException<EType>& e) {
    return std::to_string(e.requested()) + std::to_string(e.found());
}
std::string fields(const ParseException& e) {
    return e.message() + std::to_string(e.line()) + std::to_string(e.column()) +
           std::to_string(e.endLine()) + std::to_string(e.endColumn());
}
std::string fields(const PathNotFound& e) {
    return e.path() + e.key();
}
std::string fields(const KeyNotFound& e) {
    return e.key();
}
std::string fields(const ValueOutOfRange<std::string, std::string>& e) {
    return e.value() + e.min() + e.max();
}
std::string fields(const ValueOutOfRange<BasicNumber, int>& e) {
    return e.value().toString() + std::to_string(e.min()) + std::to_string(e.max());
}

using Holder = std::unique_ptr<zo::Exception>;

/// An exception class behind its base.
struct Row {
    const char* name;
    std::function<Holder(const Parts&)> make;
    std::function<Holder(const zo::Exception&)> copy;
    std::function<void(zo::Exception&, const zo::Exception&)> assign;
    std::function<std::string(const zo::Exception&)> state;
};

template <class E>
Row row(const char* name, std::unique_ptr<E> (*make)(const Parts&)) {
    return {name, [make](const Parts& parts) -> Holder { return make(parts); },
            [](const zo::Exception& source) -> Holder {
                return std::make_unique<E>(dynamic_cast<const E&>(source));
            },
            [](zo::Exception& target, const zo::Exception& source) {
                dynamic_cast<E&>(target) = dynamic_cast<const E&>(source);
            },
            [](const zo::Exception& exception) {
                return baseState(exception) + " " + fields(dynamic_cast<const E&>(exception));
            }};
}

template <class E, class... Arguments>
std::unique_ptr<E> made(const Arguments&... arguments) {
    return std::make_unique<E>(arguments...);
}

/// A number that differs from that of other parts.
int numberIn(const Parts& p) {
    return static_cast<int>(p.text.size());
}

class OutOfMemoryInAnException : public testing::TestWithParam<Row> {};

TEST_P(OutOfMemoryInAnException, MakesNone) {
    Holder made;
    const auto make = [&] { made = GetParam().make(k_newParts); };
    EXPECT_GT(failEachAllocation([&] { made.reset(); }, make, [&] { EXPECT_EQ(made, nullptr); }),
              1);
    EXPECT_NE(made, nullptr);
}

TEST_P(OutOfMemoryInAnException, CopiesNoneAndKeepsTheSource) {
    const Row& row = GetParam();
    const Holder source = row.make(k_newParts);
    const std::string state = row.state(*source);
    Holder copy;
    const auto prepare = [&] { copy.reset(); };
    const auto check = [&] {
        EXPECT_EQ(copy, nullptr);
        EXPECT_EQ(row.state(*source), state);
    };
    EXPECT_GT(failEachAllocation(
                  prepare, [&] { copy = row.copy(*source); }, check),
              1);
    EXPECT_EQ(row.state(*copy), state);
    EXPECT_GT(failEachAllocation(
                  prepare, [&] { copy.reset(source->clone()); }, check),
              1);
    EXPECT_EQ(row.state(*copy), state);
}

TEST_P(OutOfMemoryInAnException, AssignsAllOrNothing) {
    const Row& row = GetParam();
    const Holder source = row.make(k_newParts);
    const std::string after = row.state(*source);
    const std::string before = row.state(*row.make(k_formerParts));
    ASSERT_NE(before, after);
    Holder target;
    const long failures = failEachAllocation([&] { target = row.make(k_formerParts); },
                                             [&] { row.assign(*target, *source); },
                                             [&] {
                                                 EXPECT_EQ(row.state(*target), before);
                                                 EXPECT_EQ(row.state(*source), after);
                                             });
    EXPECT_GT(failures, 1);
    EXPECT_EQ(row.state(*target), after);
    EXPECT_EQ(row.state(*source), after);
}

TEST_P(OutOfMemoryInAnException, LeavesTheTextThatItCannotReplace) {
    const Holder exception = GetParam().make(k_newParts);
    std::string text;
    EXPECT_GT(failEachAllocation([&] { text = "former"; }, [&] { exception->generateWhat(text); },
                                 [&] { EXPECT_EQ(text, "former"); }),
              0);
    EXPECT_STREQ(exception->what(), text.c_str());
}

TEST_P(OutOfMemoryInAnException, HasAnEmptyWhatUntilThereIsMemoryAgain) {
    const Holder exception = GetParam().make(k_newParts);
    const std::string text = exception->what();
    ASSERT_NE(text, "");
    const char* what = nullptr;
    {
        const NoMemory none;
        what = exception->what();
    }
    EXPECT_STREQ(what, "");
    EXPECT_EQ(exception->what(), text);
}

INSTANTIATE_TEST_SUITE_P(
    Exception, OutOfMemoryInAnException,
    testing::Values(
        row<zo::Exception>("Core",
                           [](const Parts& p) { return made<zo::Exception>(p.text, &p.cause); }),
        row<zo::RuntimeError>("CoreRuntimeError",
                              [](const Parts& p) {
                                  return made<zo::RuntimeError>(p.text, &p.cause);
                              }),
        row<Exception>("Base",
                       [](const Parts& p) { return made<Exception>(p.text, p.element, &p.cause); }),
        row<TypeException<EType>>("TypeException",
                                  [](const Parts& p) {
                                      return made<TypeException<EType>>(
                                          p.element, EType(numberIn(p)), EType(numberIn(p) + 1));
                                  }),
        row<ParseException>("ParseException",
                            [](const Parts& p) {
                                const int n = numberIn(p);
                                return made<ParseException>(p.element, p.text, n, n + 1, n + 2,
                                                            n + 3, &p.cause);
                            }),
        row<PathNotFound>("PathNotFound",
                          [](const Parts& p) {
                              return made<PathNotFound>(p.element, p.text, p.text + "key",
                                                        &p.cause);
                          }),
        row<KeyNotFound>("KeyNotFound",
                         [](const Parts& p) {
                             return made<KeyNotFound>(p.element, p.text, &p.cause);
                         }),
        row<ValueOutOfRange<std::string, std::string>>(
            "TextOutOfRange",
            [](const Parts& p) {
                return made<ValueOutOfRange<std::string, std::string>>(p.text, p.text + "min",
                                                                       p.text + "max", &p.cause);
            }),
        row<ValueOutOfRange<BasicNumber, int>>("NumberOutOfRange",
                                               [](const Parts& p) {
                                                   return made<ValueOutOfRange<BasicNumber, int>>(
                                                       numberOf(p.text), numberIn(p),
                                                       numberIn(p) + 1, &p.cause);
                                               })),
    k_rowName);

TEST(OutOfMemoryInAParseException, InitialisesAllFieldsOrNone) {
    std::unique_ptr<ParseException> exception;
    const auto prepare = [&] {
        exception = std::make_unique<ParseException>("former", 1, 2, 3, 4);
    };
    const auto init = [&] { exception->init(k_long, 5, 6, 7, 8); };
    const auto check = [&] { EXPECT_EQ(fields(*exception), "former1234"); };
    EXPECT_GT(failEachAllocation(prepare, init, check), 0);
    EXPECT_EQ(fields(*exception), k_long + "5678");
}

TEST(OutOfMemoryInTheBase, PassesOutOfEachConstructor) {
    const std::string& text = k_newParts.text;
    const Element* const element = k_newParts.element;
    const Exception* const cause = &k_newParts.cause;
    std::unique_ptr<Exception> exception;
    const std::vector<std::function<void()>> constructors = {
        [&] { exception = std::make_unique<Exception>(cause); },
        [&] { exception = std::make_unique<Exception>(text); },
        [&] { exception = std::make_unique<Exception>(text, cause); },
        [&] { exception = std::make_unique<Exception>(element); },
        [&] { exception = std::make_unique<Exception>(element, cause); },
        [&] { exception = std::make_unique<Exception>(text, element); },
        [&] { exception = std::make_unique<Exception>(nullptr); },
        [&] { exception = std::make_unique<Exception>(text, nullptr); },
        [&] { exception = std::make_unique<Exception>(element, nullptr); }};
    const auto prepare = [&] { exception.reset(); };
    const auto check = [&] { EXPECT_EQ(exception, nullptr); };
    for (const auto& construct : constructors) {
        EXPECT_GT(failEachAllocation(prepare, construct, check), 0);
        EXPECT_NE(exception, nullptr);
    }
}

/// Shows the clone of it that became the cause of another.
struct Shown : ParseException {
    using ParseException::ParseException;
    Shown* clone() const override { return s_clone = new Shown(*this); }

    inline static Shown* s_clone = nullptr;
};

// The cause goes in the middle of the assignment.
TEST(AssignmentOfAnException, TakesEveryFieldOfItsOwnCause) {
    const Shown inner(k_newParts.element, k_newParts.text, 5, 6, 7, 8);
    ParseException outer(k_formerParts.text, 1, 2, 3, 4, &inner);
    outer = *Shown::s_clone;
    EXPECT_EQ(fields(outer), k_newParts.text + "5678");
    EXPECT_EQ(*outer.elementPath(), k_newParts.text);
}

}  // namespace
