#include <zo/Tessera/visit.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>

#include "support/inPlace.h"
#include "support/parsed.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using Owner = std::unique_ptr<Element>;
using Answer = std::function<EVisit(const std::string& call)>;

const char* const k_tree = R"({"a": {"b": [1, [], {"c": null}]}, "d": "x"})";

/// The calls of a walk: `+` and the path for an entry, `-` and the path for a leaving, a blank
/// after each; at the end "done" or "stopped". `answer`, if given, answers the calls.
template <class ElementType>
std::string calls(ElementType& top, const Answer& answer = nullptr) {
    std::string log;
    const auto note = [&](const std::string& call) {
        log += call + " ";
        return answer ? answer(call) : evGoOn;
    };
    const bool done = visit(
        top, [&](ElementType&, const Path& path) { return note("+" + path); },
        [&](ElementType&, const Path& path) { return note("-" + path); });
    return log + (done ? "done" : "stopped");
}

/// Gives one answer at one call.
Answer answerAt(const std::string& call, EVisit answer) {
    return [=](const std::string& actual) { return actual == call ? answer : evGoOn; };
}

const char* const k_allCalls =
    "+ +a +a.b +a.b[0] -a.b[0] +a.b[1] -a.b[1] +a.b[2] +a.b[2].c -a.b[2].c -a.b[2] -a.b -a "
    "+d -d - done";

TEST(Visit, EntersAndLeavesEachElementInTheOrderOfTheText) {
    const Owner root = parsed(k_tree);
    EXPECT_EQ(calls(*root), k_allCalls);
    EXPECT_EQ(calls(std::as_const(*root)), k_allCalls);
}

TEST(Visit, GivesTheElementThatThePathLeadsTo) {
    const Owner root = parsed(k_tree);
    std::vector<const Element*> elements;
    const auto check = [&](const Element& element, const Path& path) {
        EXPECT_EQ(&root->get(path), &element);
        EXPECT_EQ(element.path(nullptr), path);
        elements.push_back(&element);
        return evGoOn;
    };
    EXPECT_TRUE(visit(*root, check));
    EXPECT_EQ(elements.size(), 8U);
    EXPECT_TRUE(visit(*root, check, check));
    EXPECT_EQ(elements.size(), 24U);
}

TEST(Visit, BeginsItsPathsAtTheTopOfTheWalk) {
    const Owner root = parsed(k_tree);
    EXPECT_EQ(calls(root->get("a.b")), "+ +[0] -[0] +[1] -[1] +[2] +[2].c -[2].c -[2] - done");
    EXPECT_EQ(calls(root->get("a.b[2].c")), "+ - done");
}

TEST(Visit, WritesPathsAsElementsDo) {
    const Owner root = parsed(R"({"": {"": 1, "x": [2]}, "a.b": {"[0]": {"*\\": 3}}, "[": 4})");
    std::string paths;
    visit(*root, [&](const Element& element, const Path& path) {
        EXPECT_EQ(path, element.path(nullptr));
        paths += path + " ";
        return evGoOn;
    });
    EXPECT_EQ(paths, R"(  . .x .x[0] a\.b a\.b.\[0\] a\.b.\[0\].\*\\ \[ )");
}

// The children of a copy do not know their places.
TEST(Visit, FindsThePathsOfWhatIsNotAttached) {
    const Owner copy(parsed(k_tree)->clone());
    EXPECT_EQ(calls(*copy), k_allCalls);
}

TEST(Visit, NeedsNoSecondVisitor) {
    const Owner root = parsed(R"([1, [2]])");
    std::string log;
    EXPECT_TRUE(visit(std::as_const(*root), [&](const Element&, const Path& path) {
        log += path + " ";
        return evGoOn;
    }));
    EXPECT_EQ(log, " [0] [1] [1][0] ");
}

TEST(Visit, RefusesToGoWithoutTheFirst) {
    const Owner root = array();
    const auto leave = [](const Element&, const Path&) { return evGoOn; };
    EXPECT_EQ(thrown<Exception>([&] { visit(*root, nullptr, leave); }),
              "Null pointer exception: visitor may not be null");
    EXPECT_EQ(thrown<Exception>([&] { visit(std::as_const(*root), ConstVisitor()); }),
              "Null pointer exception: visitor may not be null");
}

TEST(Visit, SkipsWhatIsBelowAndLeavesTheElementItself) {
    const Owner root = parsed(k_tree);
    EXPECT_EQ(calls(*root, answerAt("+a.b", evSkip)), "+ +a +a.b -a.b -a +d -d - done");
    EXPECT_EQ(calls(*root, answerAt("+", evSkip)), "+ - done");
    EXPECT_EQ(calls(*root, answerAt("+d", evSkip)), k_allCalls);
}

TEST(Visit, GoesOnWhereALeavingSkips) {
    const Owner root = parsed(k_tree);
    EXPECT_EQ(calls(*root, answerAt("-a.b[0]", evSkip)), k_allCalls);
    EXPECT_EQ(calls(*root, answerAt("-a.b", evSkip)), k_allCalls);
    EXPECT_EQ(calls(*root, answerAt("-", evSkip)), k_allCalls);
}

TEST(Visit, StopsAtOnce) {
    const Owner root = parsed(k_tree);
    EXPECT_EQ(calls(*root, answerAt("+", evStop)), "+ stopped");
    EXPECT_EQ(calls(*root, answerAt("+a.b", evStop)), "+ +a +a.b stopped");
    EXPECT_EQ(calls(*root, answerAt("-a.b[0]", evStop)), "+ +a +a.b +a.b[0] -a.b[0] stopped");
    EXPECT_EQ(calls(*root, answerAt("-a", evStop)),
              "+ +a +a.b +a.b[0] -a.b[0] +a.b[1] -a.b[1] +a.b[2] +a.b[2].c -a.b[2].c -a.b[2] "
              "-a.b -a stopped");
    EXPECT_EQ(calls(*root, answerAt("-", evStop)),
              std::string(k_allCalls).replace(std::string(k_allCalls).find("done"), 4, "stopped"));
}

TEST(Visit, PassesExceptionsOn) {
    const Owner root = parsed(k_tree);
    std::string last;
    const auto upTo = [&](const std::string& end) {
        return [&, end](const std::string& call) {
            last = call;
            return call == end ? throw std::out_of_range(end) : evGoOn;
        };
    };
    EXPECT_THROW(calls(*root, upTo("+a.b[1]")), std::out_of_range);
    EXPECT_EQ(last, "+a.b[1]");
    EXPECT_THROW(calls(*root, upTo("-a.b")), std::out_of_range);
    EXPECT_EQ(last, "-a.b");
}

TEST(ChangingVisit, SetsValues) {
    const Owner root = parsed(R"({"a": ["x", {"b": "y"}]})");
    visit(*root, [](Element& element, const Path& path) {
        if (element.type() == etString) {
            element.setStringValue(path);
        }
        return evGoOn;
    });
    EXPECT_EQ(dump(*root), inPlace(R"({"a": ["a[0]", {"b": "a[1].b"}]})"));
}

TEST(ChangingVisit, WalksWhatAnElementHoldsWhenItWasEntered) {
    const Owner root = parsed(R"({"list": [1, 2, 3], "o": {"old": true}, "empty": []})");
    const std::string log = calls(*root, [&](const std::string& call) {
        if (call == "+list") {
            root->remove("list[0]");
            root->set("list[*].new", value());
        } else if (call == "+o") {
            root->at("o").getObjectValue().clear();
        } else if (call == "+empty") {
            root->set("empty[0]", value());
        }
        return evGoOn;
    });
    EXPECT_EQ(log,
              "+ +list +list[0] -list[0] +list[1] -list[1] +list[2] +list[2].new -list[2].new "
              "-list[2] -list +o -o +empty +empty[0] -empty[0] -empty - done");
}

TEST(ChangingVisit, MayEmptyWhatItLeaves) {
    const Owner root = parsed(R"([[1, [2]], {"a": [3]}])");
    visit(
        *root, [](Element&, const Path&) { return evGoOn; },
        [](Element& element, const Path& path) {
            if (!path.empty() && element.type() == etArray) {
                element.getArrayValue().clear();
            }
            return evGoOn;
        });
    EXPECT_EQ(dump(*root), inPlace(R"([[], {"a": []}])"));
}

}  // namespace
