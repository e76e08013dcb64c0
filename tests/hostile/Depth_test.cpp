#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include <zo/Tessera.h>

#include "hostile/DeepDocument.h"
#include "hostile/eachNesting.h"
#include "hostile/onSmallStack.h"
#include "support/parsed.h"

using namespace zo::Tessera;

// What is done to whole trees, far deeper than a stack of one frame for each level could bear.

namespace {

using Owner = std::unique_ptr<Element>;

/// Writes down when it dies.
class Mortal : public TBasicElement<bool> {
public:
    Mortal(bool& dead, Element* parent) : TBasicElement(true, parent), m_dead(dead) {}
    Mortal(bool& dead, Element* parent, const std::string& key)
        : TBasicElement(true, parent, key), m_dead(dead) {}
    Mortal(const Mortal&) = delete;
    ~Mortal() override { m_dead = true; }

private:
    bool& m_dead;
};

/// A tree with an element in its innermost container that tells when it dies.
Owner mortalTree(const DeepDocument& document, bool& dead) {
    Owner root = parsed(document.opening());
    Element& innermost = deepestOf(*root);
    if (innermost.type() == etArray) {
        new Mortal(dead, &innermost);
    } else {
        new Mortal(dead, &innermost, "k");
    }
    return root;
}

class Depth : public ForEachNesting {};

TEST_P(Depth, IsNoBoundForReading) {
    onSmallStack([this] {
        const std::string text = document.text();
        EXPECT_TRUE(textOf(*parsed(text)) == text);
    });
}

TEST_P(Depth, IsNoBoundForCopyingAndComparing) {
    onSmallStack([this] {
        Dom dom;
        dom.setRoot(parsed(document.text()));
        const Dom copy(dom);
        EXPECT_TRUE(textOf(*copy.root()) == document.text());
        EXPECT_TRUE(copy == dom);
        deepestOf(*dom.root()).setBooleanValue(false);
        EXPECT_TRUE(copy != dom);
        EXPECT_EQ(copy.root()->compare(*dom.root()), 1);
        EXPECT_EQ(dom.root()->compare(*copy.root()), -1);
    });
}

TEST_P(Depth, IsNoBoundForWriting) {
    onSmallStack([this] {
        Dom dom;
        dom.setRoot(parsed(document.text()));
        Generator oneLine(nullptr);
        oneLine.setIndent("");
        EXPECT_TRUE(oneLine.encode(dom) == document.text());
        std::stringstream lines;
        lines << dom;
        EXPECT_TRUE(lines.str() == document.text("true", Layout::lineBreaks));
        Dom readBack;
        lines >> readBack;
        EXPECT_TRUE(readBack == dom);
    });
}

TEST_P(Depth, IsNoBoundForDestroying) {
    bool dead = false;
    onSmallStack([&] {
        Owner root = mortalTree(document, dead);
        EXPECT_FALSE(dead);
        root.reset();
    });
    EXPECT_TRUE(dead);
}

INSTANTIATE_TEST_SUITE_P(Hostile, Depth,
                         testing::Values(Nesting::arrays, Nesting::objects, Nesting::inTurn),
                         nestingName);

TEST(Depth, IsNoBoundForConstructingCopies) {
    onSmallStack([] {
        const Owner source = parsed(k_mixed.text());
        const Object object(source->at(0).getObjectValue());
        EXPECT_EQ(object.compare(source->at(0)), 0);
    });
}

TEST(Depth, IsNoBoundForAssigning) {
    onSmallStack([] {
        const Owner source = parsed(k_mixed.text());
        Array array;
        EXPECT_TRUE(textOf(array.assign(source->getArrayValue())) == k_mixed.text());
    });
}

TEST(Depth, IsNoBoundForSetters) {
    onSmallStack([] {
        const Owner source = parsed(k_mixed.text());
        const Owner target = object();
        target->setObjectValue(source->at(0).getObjectValue());
        EXPECT_EQ(target->compare(source->at(0)), 0);
    });
}

TEST(Depth, IsNoBoundForAssigningAPartOfItself) {
    onSmallStack([] {
        const Owner root = parsed(k_mixed.text());
        root->realAssign(root->at(0).at("k"));
        EXPECT_TRUE("[{\"k\":" + textOf(*root) + "}]" == k_mixed.text());
    });
}

TEST(Depth, IsNoBoundForEmptyingADocument) {
    bool dead = false;
    onSmallStack([&] {
        Dom dom;
        dom.setRoot(mortalTree(k_mixed, dead));
        EXPECT_FALSE(dead);
        dom.setRoot(nullptr);
        EXPECT_TRUE(dead);
    });
}

TEST(Depth, IsNoBoundForClearing) {
    bool dead = false;
    onSmallStack([&] {
        Object object;
        object.insert("deep", mortalTree(k_mixed, dead).release());
        EXPECT_FALSE(dead);
        object.clear();
        EXPECT_TRUE(dead);
    });
}

TEST(Depth, IsNoBoundForReplacing) {
    bool dead = false;
    onSmallStack([&] {
        Object object;
        object.insert("deep", mortalTree(k_mixed, dead).release());
        EXPECT_FALSE(dead);
        Element::createNull(&object, "deep");
        EXPECT_TRUE(dead);
    });
}

TEST(Depth, IsNoBoundForRemovingFromAnArray) {
    bool dead = false;
    onSmallStack([&] {
        Array array;
        array.push_back(mortalTree(k_mixed, dead).release());
        Element::createNull(&array);
        EXPECT_FALSE(dead);
        array.removeElement(array.at(0), "", "");
        EXPECT_TRUE(dead);
        EXPECT_EQ(array.size(), 1U);
    });
}

std::string diagnosticForm() {
    std::string text;
    for (size_t i = 0; i < k_depth; ++i) {
        text += "{ k : ";
    }
    text += "true";
    for (size_t i = 0; i < k_depth; ++i) {
        text += ", }";
    }
    return text;
}

// An array's form shows addresses in place of what is below.
TEST(Depth, IsNoBoundForTheDiagnosticForm) {
    onSmallStack([] {
        const Owner root = parsed(DeepDocument(Nesting::objects).text());
        std::ostringstream out;
        root->writeTo(out);
        EXPECT_TRUE(out.str() == diagnosticForm());
    });
}

TEST(Depth, IsNoBoundForTheWideDiagnosticForm) {
    onSmallStack([] {
        const Owner root = parsed(DeepDocument(Nesting::objects).text());
        std::wostringstream out;
        root->writeTo(out);
        const std::string expected = diagnosticForm();
        EXPECT_TRUE(out.str() == std::wstring(expected.begin(), expected.end()));
    });
}

}  // namespace
