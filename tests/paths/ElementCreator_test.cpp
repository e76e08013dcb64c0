#include <zo/Tessera/ElementCreator.h>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "support/dump.h"
#include "support/exceptionText.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

static_assert(std::is_base_of_v<PathParserListener, ElementCreator>);
static_assert(!std::is_copy_constructible_v<ElementCreator>);
static_assert(!std::is_copy_assignable_v<ElementCreator>);
static_assert(
    std::is_same_v<decltype(std::declval<const ElementCreator&>().currentElement()), Element*>);

namespace {

// A string that counts its clones and what lives of them.
class Counted : public TBasicElement<std::string> {
public:
    explicit Counted(const std::string& text) : TBasicElement(text) { ++s_living; }
    Counted(const Counted& other) : TBasicElement(other) { ++s_living; }
    ~Counted() override { --s_living; }
    Counted* clone() const override {
        ++s_clones;
        return new Counted(*this);
    }

    inline static int s_living = 0;
    inline static int s_clones = 0;
};

class ElementCreatorSteps : public testing::Test {
protected:
    ElementCreatorSteps() { Counted::s_clones = 0; }
    void TearDown() override {
        m_root.reset();
        m_value.reset();
        EXPECT_EQ(Counted::s_living, 0);
    }

    std::unique_ptr<Element> m_root = parsed(R"({"o":{"k":null},"list":[true],"n":1})");
    std::unique_ptr<Counted> m_value = std::make_unique<Counted>("new");

    const std::string m_unchanged =
        "etObject key=\"\" index=- parent=none\n"
        "  etObject key=\"o\" index=- parent=right\n"
        "    etNull key=\"k\" index=- parent=right\n"
        "  etArray key=\"list\" index=- parent=right\n"
        "    etBoolean true key=\"[0]\" index=0 parent=right\n"
        "  etNumber 1 key=\"n\" index=- parent=right\n";
};

TEST_F(ElementCreatorSteps, BeginAtTheRootWithOneCopyOfTheValue) {
    {
        const ElementCreator creator("a", *m_root, *m_value, true);
        EXPECT_TRUE(creator.pathExists());
        EXPECT_EQ(creator.currentElement(), m_root.get());
        EXPECT_EQ(Counted::s_clones, 1);
        EXPECT_EQ(Counted::s_living, 2);
    }
    EXPECT_EQ(Counted::s_living, 1);
    EXPECT_EQ(dump(*m_root), m_unchanged);
}

TEST_F(ElementCreatorSteps, FollowWhatExistsAndLeaveTheValueAlone) {
    {
        ElementCreator creator("o.k", *m_root, *m_value, true);
        EXPECT_TRUE(creator.cbObjectProperty("o"));
        EXPECT_EQ(creator.currentElement(), &m_root->at("o"));
        EXPECT_TRUE(creator.cbObjectProperty("k"));
        creator.cbFinish();
        EXPECT_TRUE(creator.pathExists());
        EXPECT_EQ(creator.currentElement(), &m_root->at("o").at("k"));
        EXPECT_EQ(Counted::s_living, 2);
    }
    EXPECT_EQ(Counted::s_living, 1);
    EXPECT_EQ(dump(*m_root), m_unchanged);
}

TEST_F(ElementCreatorSteps, FollowAnItemThatExists) {
    ElementCreator creator("[0]", m_root->at("list"), *m_value, true);
    EXPECT_TRUE(creator.cbArrayItem(0));
    creator.cbFinish();
    EXPECT_EQ(creator.currentElement(), &m_root->at("list").at(0));
    EXPECT_EQ(dump(*m_root), m_unchanged);
}

TEST_F(ElementCreatorSteps, WaitWithAMissingKeyUntilTheEnd) {
    ElementCreator creator("o.new", *m_root, *m_value, true);
    creator.cbObjectProperty("o");
    EXPECT_TRUE(creator.cbObjectProperty("new"));
    EXPECT_TRUE(creator.pathExists());
    EXPECT_EQ(creator.currentElement(), &m_root->at("o"));
    EXPECT_EQ(dump(*m_root), m_unchanged);
    creator.cbFinish();
    EXPECT_TRUE(creator.pathExists());
    EXPECT_EQ(creator.currentElement(), &m_root->at("o").at("new"));
    EXPECT_EQ(creator.currentElement()->getStringValue().value(), "new");
    EXPECT_EQ(creator.currentElement()->path(nullptr), "o.new");
    EXPECT_EQ(Counted::s_clones, 1);  // the copy itself is in the tree
    EXPECT_EQ(Counted::s_living, 2);
}

TEST_F(ElementCreatorSteps, WaitWithAnItemToAppendUntilTheEnd) {
    ElementCreator creator("[*]", m_root->at("list"), *m_value, true);
    EXPECT_TRUE(creator.cbArrayItem(Path::k_noIndex));
    EXPECT_TRUE(creator.pathExists());
    EXPECT_EQ(creator.currentElement(), &m_root->at("list"));
    EXPECT_EQ(dump(*m_root), m_unchanged);
    creator.cbFinish();
    EXPECT_EQ(creator.currentElement(), &m_root->at("list").at(1));
    EXPECT_EQ(creator.currentElement()->path(nullptr), "list[1]");
    EXPECT_EQ(m_root->at("list").size(), 2U);
    EXPECT_EQ(m_root->at("list").at(1).getStringValue().value(), "new");
}

TEST_F(ElementCreatorSteps, FinishOnce) {
    ElementCreator creator("list[*]", *m_root, *m_value, true);
    creator.cbObjectProperty("list");
    creator.cbArrayItem(Path::k_noIndex);
    creator.cbFinish();
    const std::string after = dump(*m_root);
    creator.cbFinish();
    EXPECT_EQ(dump(*m_root), after);
    EXPECT_EQ(creator.currentElement()->path(nullptr), "list[1]");
}

TEST_F(ElementCreatorSteps, CreateAnObjectForAMissingKeyOnceTheNextSegmentComes) {
    ElementCreator creator("a.b", *m_root, *m_value, true);
    creator.cbObjectProperty("a");
    EXPECT_TRUE(creator.cbObjectProperty("b"));
    ASSERT_EQ(m_root->size(), 4U);
    EXPECT_EQ(creator.currentElement(), &m_root->at("a"));
    EXPECT_EQ(dump(*m_root), m_unchanged + "  etObject key=\"a\" index=- parent=right\n");
    creator.cbFinish();
    EXPECT_EQ(dump(*m_root), m_unchanged +
                                 "  etObject key=\"a\" index=- parent=right\n"
                                 "    etString \"new\" key=\"b\" index=- parent=right\n");
}

TEST_F(ElementCreatorSteps, CreateAnArrayForAnItemToAppendOnceTheNextSegmentComes) {
    Element& list = m_root->at("list");
    ElementCreator creator("[*][*]", list, *m_value, true);
    creator.cbArrayItem(Path::k_noIndex);
    EXPECT_TRUE(creator.cbArrayItem(Path::k_noIndex));
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(creator.currentElement(), &list.at(1));
    EXPECT_EQ(list.at(1).type(), etArray);
    EXPECT_EQ(list.at(1).size(), 0U);
    creator.cbFinish();
    EXPECT_EQ(creator.currentElement()->path(nullptr), "list[1][0]");
    EXPECT_EQ(list.at(1).at(0).getStringValue().value(), "new");
}

// What is created is of the kind of the container that lacked it: callers know the object stays.
TEST_F(ElementCreatorSteps, CannotAppendToAKeyThatWasMissing) {
    for (const bool throwing : {false, true}) {
        const auto root = parsed("{}");
        ElementCreator creator("a[*]", *root, *m_value, throwing);
        creator.cbObjectProperty("a");
        if (throwing) {
            EXPECT_THROW(creator.cbArrayItem(Path::k_noIndex), PathNotFound);
        } else {
            EXPECT_FALSE(creator.cbArrayItem(Path::k_noIndex));
        }
        EXPECT_EQ(creator.pathExists(), throwing);  // an exception tells by itself
        EXPECT_EQ(creator.currentElement(), &root->at("a"));
        creator.cbFinish();
        EXPECT_EQ(dump(*root),
                  "etObject key=\"\" index=- parent=none\n"
                  "  etObject key=\"a\" index=- parent=right\n");
    }
    EXPECT_EQ(Counted::s_living, 1);
}

// The same for an appended item: it is an array, which takes no key.
TEST_F(ElementCreatorSteps, CannotPutAKeyIntoAnItemThatWasMissing) {
    for (const bool throwing : {false, true}) {
        const auto root = parsed("[null]");
        ElementCreator creator("[*].b", *root, *m_value, throwing);
        creator.cbArrayItem(Path::k_noIndex);
        if (throwing) {
            EXPECT_THROW(creator.cbObjectProperty("b"), PathNotFound);
        } else {
            EXPECT_FALSE(creator.cbObjectProperty("b"));
        }
        EXPECT_EQ(creator.pathExists(), throwing);
        EXPECT_EQ(creator.currentElement(), &root->at(1));
        creator.cbFinish();
        EXPECT_EQ(dump(*root),
                  "etArray key=\"\" index=- parent=none\n"
                  "  etNull key=\"[0]\" index=0 parent=right\n"
                  "  etArray key=\"[1]\" index=1 parent=right\n");
    }
    EXPECT_EQ(Counted::s_living, 1);
}

TEST_F(ElementCreatorSteps, ThrowForSyntaxErrorsAndKeepTheValueOutOfTheTree) {
    ElementCreator creator("", *m_root, *m_value, false);
    creator.cbObjectProperty("new");
    EXPECT_EQ(thrown<ParseException>([&] { creator.cbParseError("the message", "tok", 2, 5); }),
              "Parse error at 1,2-1,5the message");
    EXPECT_EQ(dump(*m_root), m_unchanged);
    EXPECT_TRUE(creator.pathExists());
}

TEST_F(ElementCreatorSteps, NameTheTextGivenToTheConstructor) {
    Path text("another [text");
    ElementCreator creator(text, *m_root, *m_value, true);
    text = "changed since";
    try {
        creator.cbArrayItem(7);
        FAIL();
    } catch (const PathNotFound& exception) {
        EXPECT_EQ(exception.path(), "another [text");
        EXPECT_EQ(exception.key(), "[7]");
        EXPECT_EQ(exception.what(),
                  "Path \"another [text\" not found! Key \"[7]\"." + addressPart(exception));
    }
}

TEST_F(ElementCreatorSteps, InsertTheValueAsItWasAtTheBeginning) {
    ElementCreator creator("new", *m_root, *m_value, true);
    m_value->setStringValue("changed since");
    m_value.reset();
    PathParser(creator).parse(std::string("new"));
    EXPECT_EQ(m_root->at("new").getStringValue().value(), "new");
}

struct CreatorRefusal {
    const char* name;
    const char* path;
    const char* key;
    const char* at;
};

class ElementCreatorRefusals : public testing::TestWithParam<CreatorRefusal> {
protected:
    const std::unique_ptr<Element> m_root =
        parsed(R"({"o":{},"list":[true],"n":1,"s":"t","z":null})");
    const std::string m_before = dump(*m_root);
};

TEST_P(ElementCreatorRefusals, EndQuietlyAndChangeNothing) {
    ElementCreator creator(GetParam().path, *m_root, Object::k_empty, false);
    std::istringstream in(GetParam().path);
    PathParser(creator).parse(in);
    EXPECT_FALSE(creator.pathExists());
    EXPECT_EQ(creator.currentElement()->path(nullptr), GetParam().at);
    EXPECT_EQ(dump(*m_root), m_before);
}

TEST_P(ElementCreatorRefusals, ThrowAndChangeNothing) {
    ElementCreator creator(GetParam().path, *m_root, Object::k_empty, true);
    const std::string text = GetParam().path;
    try {
        PathParser(creator).parse(text);
        ADD_FAILURE();
    } catch (const PathNotFound& exception) {
        EXPECT_EQ(exception.path(), text);
        EXPECT_EQ(exception.key(), GetParam().key);
        ASSERT_NE(exception.elementPath(), nullptr);
        EXPECT_EQ(*exception.elementPath(), GetParam().at);
    }
    EXPECT_TRUE(creator.pathExists());
    EXPECT_EQ(creator.currentElement()->path(nullptr), GetParam().at);
    EXPECT_EQ(dump(*m_root), m_before);
}

INSTANTIATE_TEST_SUITE_P(
    ElementCreator, ElementCreatorRefusals,
    testing::Values(CreatorRefusal{"OfAKeyInAnArray", "list.k", "k", "list"},
                    CreatorRefusal{"OfAKeyInANumber", "n.k", "k", "n"},
                    CreatorRefusal{"OfAKeyInAString", "s.k.l", "k", "s"},
                    CreatorRefusal{"OfAKeyInANull", "z.k", "k", "z"},
                    CreatorRefusal{"OfAnIndexInAnObject", "o[0]", "[0]", "o"},
                    CreatorRefusal{"OfAnIndexInTheRoot", "[0]", "[0]", ""},
                    CreatorRefusal{"OfAnIndexInANumber", "n[0]", "[0]", "n"},
                    CreatorRefusal{"OfTheItemAtTheEnd", "list[1]", "[1]", "list"},
                    CreatorRefusal{"OfTheLargestIndex", "list[18446744073709551614]",
                                   "[18446744073709551614]", "list"},
                    // the index "*" is shown as the number that stands for it
                    CreatorRefusal{"OfAnyItemInAnObject", "o[*]", "[18446744073709551615]", "o"},
                    CreatorRefusal{"OfAnyItemInANull", "z[*].k", "[18446744073709551615]", "z"},
                    CreatorRefusal{"BeforeASyntaxError", "n.k..", "k", "n"}),
    k_rowName);

// The application's own kind, which can turn into another while a path is walked.
class Chameleon : public Object {
public:
    Chameleon* clone() const override { return new Chameleon(*this); }
    EType type() const override { return m_type; }
    using Object::getArrayValue;
    Array& getArrayValue() override { return m_items; }

    EType m_type = etObject;
    Array m_items;
};

// Callers match on this text.
TEST(ElementCreatorUnderChange, FinishesInNoOtherKindThanAContainer) {
    Chameleon changing;
    {
        ElementCreator creator("k", changing, Counted("new"), false);
        EXPECT_TRUE(creator.cbObjectProperty("k"));
        for (const EType type : {etEmpty, etNull, etBoolean, etNumber, etString}) {
            changing.m_type = type;
            EXPECT_EQ(thrown<Exception>([&] { creator.cbFinish(); }), "Ivalid type!");
            EXPECT_EQ(creator.currentElement(), &changing);
            EXPECT_TRUE(creator.pathExists());
        }
        EXPECT_EQ(Counted::s_living, 1);
    }
    EXPECT_EQ(Counted::s_living, 0);
    EXPECT_EQ(changing.size(), 0U);
    EXPECT_EQ(changing.m_items.size(), 0U);
}

TEST(ElementCreatorUnderChange, NamesNoElementWhenTheKindIsNoContainer) {
    Chameleon changing;
    ElementCreator creator("k", changing, Counted("new"), true);
    creator.cbObjectProperty("k");
    changing.m_type = etNull;
    try {
        creator.cbFinish();
        FAIL();
    } catch (const Exception& exception) {
        EXPECT_EQ(exception.elementPath(), nullptr);
    }
    changing.m_type = etObject;  // the value still waits
    creator.cbFinish();
    EXPECT_EQ(creator.currentElement()->getStringValue().value(), "new");
    EXPECT_EQ(creator.currentElement()->path(nullptr), "k");
}

// The kind at the end decides, not the one that lacked the segment.
TEST(ElementCreatorUnderChange, AppendsAMissingKeyToWhatHasBecomeAnArray) {
    Chameleon changing;
    ElementCreator creator("k", changing, Counted("new"), true);
    creator.cbObjectProperty("k");
    changing.m_type = etArray;
    creator.cbFinish();
    ASSERT_EQ(changing.m_items.size(), 1U);
    EXPECT_EQ(creator.currentElement(), &changing.m_items.at(0));
    EXPECT_EQ(changing.m_items.at(0).getStringValue().value(), "new");
    EXPECT_EQ(changing.size(), 0U);
}

TEST(ElementCreatorUnderChange, InsertsAnItemIntoWhatHasBecomeAnObject) {
    Chameleon changing;
    changing.m_type = etArray;
    ElementCreator creator("[*]", changing, Counted("new"), true);
    creator.cbArrayItem(Path::k_noIndex);
    changing.m_type = etObject;
    creator.cbFinish();
    EXPECT_EQ(dump(changing),
              "etObject key=\"\" index=- parent=none\n"
              "  etString \"new\" key=\"\" index=- parent=right\n");
    EXPECT_EQ(creator.currentElement(), &changing.at(""));
}

}  // namespace
