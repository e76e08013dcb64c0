#include <zo/Tessera/ElementGetter.h>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/DomParser.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "support/dump.h"
#include "support/exceptionText.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

static_assert(std::is_base_of_v<PathParserListener, ElementGetter>);
static_assert(
    std::is_same_v<decltype(std::declval<ElementGetter&>().currentElement()), const Element*>);

namespace {

const char* const k_smallDocument =
    R"({"a":[10,20],"o":{"x.y":true,"deep":{"k":"v"}},"n":1,"s":"text","b":true,"z":null})";

class ElementGetterSteps : public testing::Test {
protected:
    ElementGetterSteps() {
        Dom dom;
        DomParser().parse(dom, k_smallDocument);
        m_root = dom.takeRoot();
    }

    std::unique_ptr<Element> m_root;
};

TEST_F(ElementGetterSteps, BeginAtTheRoot) {
    const ElementGetter getter("a", *m_root, true);
    EXPECT_TRUE(getter.pathExists());
    EXPECT_EQ(getter.currentElement(), m_root.get());
}

TEST_F(ElementGetterSteps, GoToMembersAndItems) {
    ElementGetter getter("a[1]", *m_root, true);
    EXPECT_TRUE(getter.cbObjectProperty("a"));
    EXPECT_EQ(getter.currentElement(), &m_root->at("a"));
    EXPECT_TRUE(getter.cbArrayItem(1));
    EXPECT_EQ(getter.currentElement(), &m_root->at("a").at(1));
    EXPECT_TRUE(getter.pathExists());
}

// A key reaches the listener without escapes.
TEST_F(ElementGetterSteps, TakeKeysAsTheyAre) {
    ElementGetter getter("", m_root->at("o"), false);
    EXPECT_FALSE(getter.cbObjectProperty("x\\.y"));
    ElementGetter plain("", m_root->at("o"), false);
    EXPECT_TRUE(plain.cbObjectProperty("x.y"));
    EXPECT_EQ(plain.currentElement(), &m_root->at("o").at("x.y"));
}

TEST_F(ElementGetterSteps, AreNotEndedByFinish) {
    ElementGetter getter("o.deep", *m_root, true);
    EXPECT_TRUE(getter.cbObjectProperty("o"));
    getter.cbFinish();
    EXPECT_TRUE(getter.pathExists());
    EXPECT_EQ(getter.currentElement(), &m_root->at("o"));
    EXPECT_TRUE(getter.cbObjectProperty("deep"));
    EXPECT_EQ(getter.currentElement(), &m_root->at("o").at("deep"));
}

TEST_F(ElementGetterSteps, StayAtTheElementThatLacksTheKey) {
    ElementGetter getter("o.none", *m_root, false);
    EXPECT_TRUE(getter.cbObjectProperty("o"));
    EXPECT_FALSE(getter.cbObjectProperty("none"));
    EXPECT_FALSE(getter.pathExists());
    EXPECT_EQ(getter.currentElement(), &m_root->at("o"));
    getter.cbFinish();
    EXPECT_FALSE(getter.pathExists());
    EXPECT_EQ(getter.currentElement(), &m_root->at("o"));
}

TEST_F(ElementGetterSteps, RememberAMissingSegment) {
    ElementGetter getter("", *m_root, false);
    EXPECT_FALSE(getter.cbArrayItem(0));
    EXPECT_TRUE(getter.cbObjectProperty("n"));
    EXPECT_EQ(getter.currentElement(), &m_root->at("n"));
    EXPECT_FALSE(getter.pathExists());
}

TEST_F(ElementGetterSteps, GoOnFromTheSameElementAfterAnException) {
    ElementGetter getter("none", *m_root, true);
    EXPECT_THROW(getter.cbObjectProperty("none"), PathNotFound);
    EXPECT_TRUE(getter.pathExists());  // it is the exception that tells
    EXPECT_EQ(getter.currentElement(), m_root.get());
    EXPECT_TRUE(getter.cbObjectProperty("n"));
}

// The text is for the message alone, and no part of what is walked.
TEST_F(ElementGetterSteps, NameTheTextGivenToTheConstructor) {
    Path text("another [text");
    ElementGetter getter(text, *m_root, true);
    text = "changed since";
    try {
        getter.cbObjectProperty("none");
        FAIL();
    } catch (const PathNotFound& exception) {
        EXPECT_EQ(exception.path(), "another [text");
        EXPECT_EQ(exception.key(), "none");
    }
}

// All that it tells; a cause would come last.
std::string whole(const ParseException& exception) {
    std::string base;
    exception.Exception::generateWhat(base);
    std::ostringstream out;
    out << exception.what() << ' ' << exception.line() << ' ' << exception.column() << ' '
        << exception.endLine() << ' ' << exception.endColumn()
        << (exception.elementPath() ? " with a path" : "") << base;
    return out.str();
}

// "*" names no item that could be looked up: said even where missing segments are answered quietly.
TEST_F(ElementGetterSteps, RefuseAnyItemWhateverTheKind) {
    for (const bool throwing : {false, true}) {
        for (const char* const key : {"a", "o", "n", "s", "b", "z"}) {
            const Element& element = m_root->at(key);
            ElementGetter getter("[*]", element, throwing);
            try {
                getter.cbArrayItem(Path::k_noIndex);
                ADD_FAILURE() << key;
            } catch (const ParseException& exception) {
                EXPECT_EQ(whole(exception), "Index must be set! -1 -1 -1 -1");
            }
            EXPECT_TRUE(getter.pathExists());
            EXPECT_EQ(getter.currentElement(), &element);
        }
    }
}

TEST_F(ElementGetterSteps, ThrowForSyntaxErrorsWhetherMissingSegmentsThrowOrNot) {
    for (const bool throwing : {false, true}) {
        ElementGetter getter("", *m_root, throwing);
        try {
            getter.cbParseError("the message", "tok", 2, 5);
            ADD_FAILURE();
        } catch (const ParseException& exception) {
            EXPECT_EQ(whole(exception), "Parse error at 1,2-1,5the message 1 2 1 5");
        }
        EXPECT_TRUE(getter.pathExists());
    }
}

struct Run {
    const char* name;
    const char* path;
    const char* reached;  // the path of currentElement() at the end
    const char* missing;  // the segment that is not there
};

class ElementGetterRuns : public testing::TestWithParam<Run> {
protected:
    ElementGetterRuns() {
        Dom dom;
        DomParser().parse(dom, k_smallDocument);
        m_root = dom.takeRoot();
    }

    std::unique_ptr<Element> m_root;
};

TEST_P(ElementGetterRuns, EndQuietly) {
    const std::string before = dump(*m_root);
    ElementGetter getter(GetParam().path, *m_root, false);
    std::istringstream in(GetParam().path);
    PathParser(getter).parse(in);
    EXPECT_EQ(getter.pathExists(), GetParam().missing == nullptr);
    EXPECT_EQ(getter.currentElement()->path(nullptr), GetParam().reached);
    EXPECT_EQ(dump(*m_root), before);
}

TEST_P(ElementGetterRuns, ThrowWhatIsMissing) {
    ElementGetter getter(GetParam().path, *m_root, true);
    const std::string text = GetParam().path;
    try {
        PathParser(getter).parse(text);
        EXPECT_EQ(GetParam().missing, nullptr);
    } catch (const PathNotFound& exception) {
        ASSERT_NE(GetParam().missing, nullptr);
        EXPECT_EQ(exception.path(), text);
        EXPECT_EQ(exception.key(), GetParam().missing);
        ASSERT_NE(exception.elementPath(), nullptr);
        EXPECT_EQ(*exception.elementPath(), GetParam().reached);
        EXPECT_EQ(exception.what(), "Path \"" + text + "\" not found! Key \"" + GetParam().missing +
                                        "\"." + addressPart(exception));
    }
    EXPECT_TRUE(getter.pathExists());
    EXPECT_EQ(getter.currentElement()->path(nullptr), GetParam().reached);
}

INSTANTIATE_TEST_SUITE_P(
    ElementGetter, ElementGetterRuns,
    testing::Values(
        Run{"OfNothing", "", "", nullptr}, Run{"OfAMember", "n", "n", nullptr},
        Run{"OfAMissingMember", "m", "", "m"}, Run{"OfAMemberInAnotherCase", "N", "", "N"},
        Run{"OfMembersInMembers", "o.deep.k", "o.deep.k", nullptr},
        Run{"OfAMissingMemberInTheMiddle", "o.none.k", "o", "none"},
        Run{"OfAMissingMemberAtTheEnd", "o.deep.none", "o.deep", "none"},
        Run{"OfAnEscapedKey", "o.x\\.y", "o.x\\.y", nullptr},
        Run{"OfAnEscapedKeyThatIsMissing", "o.x\\]y", "o", "x]y"},
        Run{"OfTheFirstItem", "a[0]", "a[0]", nullptr},
        Run{"OfTheLastItem", "a[1]", "a[1]", nullptr},
        Run{"OfAnItemWithZerosBefore", "a[001]", "a[1]", nullptr},
        Run{"OfTheItemAtTheEnd", "a[2]", "a", "[2]"},
        Run{"OfAnItemAtTheEndWithZerosBefore", "a[002]", "a", "[2]"},
        Run{"OfTheLargestIndex", "a[18446744073709551614]", "a", "[18446744073709551614]"},
        Run{"OfAMemberOfAnItem", "a[1].k", "a[1]", "k"}, Run{"OfAKeyInAnArray", "a.k", "a", "k"},
        Run{"OfAnIndexAsAKeyInAnArray", "a.0", "a", "0"},
        Run{"OfAnIndexInAnObject", "o[0]", "o", "[0]"},
        Run{"OfAnIndexInTheRoot", "[0].a", "", "[0]"}, Run{"OfAKeyInANumber", "n.k", "n", "k"},
        Run{"OfAnIndexInANumber", "n[0]", "n", "[0]"}, Run{"OfAKeyInAString", "s.k", "s", "k"},
        Run{"OfAnIndexInAString", "s[0]", "s", "[0]"}, Run{"OfAKeyInABoolean", "b.k", "b", "k"},
        Run{"OfAnIndexInABoolean", "b[0]", "b", "[0]"}, Run{"OfAKeyInANull", "z.k", "z", "k"},
        Run{"OfAnIndexInANull", "z[0]", "z", "[0]"},
        // what follows a missing segment is not read
        Run{"WithAnyItemAfterAMissingKey", "none[*]", "", "none"},
        Run{"WithAnErrorAfterAMissingKey", "none..k", "", "none"},
        Run{"WithAnErrorAfterAMissingItem", "a[2]]", "a", "[2]"}),
    k_rowName);

// The application's own kind: an object that says to be something else.
class Disguised : public Object {
public:
    explicit Disguised(EType type) : m_type(type) {}
    Disguised(const Disguised&) = default;
    Disguised* clone() const override { return new Disguised(*this); }
    EType type() const override { return m_type; }

private:
    EType m_type;
};

TEST(ElementGetterOfOtherKinds, AsksForTheKindBeforeItLooksInside) {
    Disguised object(etObject);
    const Element* const member = Element::createNull(&object, "k");
    ElementGetter getter("k", object, false);
    EXPECT_TRUE(getter.cbObjectProperty("k"));
    EXPECT_EQ(getter.currentElement(), member);

    for (const EType type : {etEmpty, etNull, etString, etArray, static_cast<EType>(6)}) {
        Disguised other(type);
        Element::createNull(&other, "k");
        ElementGetter refused("k", other, false);
        EXPECT_FALSE(refused.cbObjectProperty("k")) << type;
        EXPECT_EQ(refused.currentElement(), &other);
    }
}

// An object that says to be an array, and is then asked for one by its getter.
TEST(ElementGetterOfOtherKinds, PassesWhatTheGetterOfTheKindThrows) {
    const Disguised object(etArray);
    ElementGetter getter("[0]", object, false);
    EXPECT_EQ(thrown<TypeException<EType>>([&] { getter.cbArrayItem(0); }),
              "Json type mismatch! Requestet Json type: etObject Got Json type: etArray "
              "Current element: \"\"");
    EXPECT_TRUE(getter.pathExists());
    EXPECT_EQ(getter.currentElement(), &object);
}

}  // namespace
