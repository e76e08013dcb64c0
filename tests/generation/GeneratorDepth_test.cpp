#include <zo/Tessera/Generator.h>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <tuple>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>

#include "generation/written.h"

using namespace zo::Tessera;

namespace {

enum class Shape { arrays, objects, inTurn };

// Which bracket stands at which level; the token writer itself ends at 128 levels.
struct Nest {
    Shape shape;
    int depth;
    Layout layout;

    bool isObject(int level) const {
        return shape == Shape::objects || (shape == Shape::inTurn && level % 2 == 1);
    }
    std::string lineBreak() const { return layout == Layout::lineBreaks ? "\n" : ""; }
    std::string opening(int level) const { return (isObject(level) ? "{" : "[") + lineBreak(); }
    std::string closing(int level) const { return lineBreak() + (isObject(level) ? "}" : "]"); }
    std::string comma() const { return "," + lineBreak(); }
    std::string key(const char* name) const {
        return "\"" + std::string(name) + (layout == Layout::lineBreaks ? "\": " : "\":");
    }
};

// Each container holds the next one, and after it a true.
std::string openingHalf(const Nest& nest) {
    std::string text;
    for (int level = 0; level < nest.depth; ++level) {
        text += nest.opening(level);
        if (level + 1 < nest.depth && nest.isObject(level)) {
            text += nest.key("k");
        }
    }
    return text;
}

std::string expectedText(const Nest& nest) {
    std::string text = openingHalf(nest);
    for (int level = nest.depth - 1; level >= 0; --level) {
        if (level + 1 < nest.depth) {
            text += nest.comma() + (nest.isObject(level) ? nest.key("t") : "") + "true";
        }
        text += nest.closing(level);
    }
    return text + nest.lineBreak();
}

std::unique_ptr<Element> tree(const Nest& nest) {
    std::unique_ptr<Element> root = nest.isObject(0) ? object() : array();
    Element* current = root.get();
    for (int level = 0; level + 1 < nest.depth; ++level) {
        const EType kind = nest.isObject(level + 1) ? etObject : etArray;
        Element* next = nullptr;
        if (nest.isObject(level)) {
            next = Element::create(kind, current, "k");
            Element::createBoolean(true, current, "t");
        } else {
            next = Element::create(kind, current);
            Element::createBoolean(true, current);
        }
        current = next;
    }
    return root;
}

class GeneratorDepth : public testing::TestWithParam<std::tuple<Shape, int, Layout>> {
protected:
    const Nest nest{std::get<0>(GetParam()), std::get<1>(GetParam()), std::get<2>(GetParam())};

    static void setLayout(Generator& generator, Layout layout) {
        generator.setIndent(layout == Layout::lineBreaks ? "  " : "");
    }
    void open(Generator& generator, int level) const {
        ASSERT_EQ(nest.isObject(level) ? generator.gen_object_open() : generator.gen_array_open(),
                  0)
            << "level " << level;
    }
    void close(Generator& generator, int level) const {
        ASSERT_EQ(nest.isObject(level) ? generator.gen_object_close() : generator.gen_array_close(),
                  0)
            << "level " << level;
    }
    void down(Generator& generator) const {
        for (int level = 0; level < nest.depth; ++level) {
            open(generator, level);
            if (level + 1 < nest.depth && nest.isObject(level)) {
                ASSERT_EQ(generator.gen_null(), 1) << "level " << level;
                ASSERT_EQ(generator.gen_string("k"), 0) << "level " << level;
            }
        }
    }
    void up(Generator& generator) const {
        for (int level = nest.depth - 1; level >= 0; --level) {
            if (level + 1 < nest.depth) {
                if (nest.isObject(level)) {
                    ASSERT_EQ(generator.gen_string("t"), 0) << "level " << level;
                }
                ASSERT_EQ(generator.gen_bool(true), 0) << "level " << level;
            }
            close(generator, level);
        }
        EXPECT_EQ(generator.gen_array_close(), 4);
        EXPECT_EQ(generator.gen_object_close(), 4);
        EXPECT_EQ(generator.gen_null(), 4);
    }
};

TEST_P(GeneratorDepth, IsNoBoundForSingleEvents) {
    const std::string text = written(nest.layout, [&](Generator& generator) {
        down(generator);
        up(generator);
    });
    EXPECT_TRUE(text == expectedText(nest));
}

TEST_P(GeneratorDepth, LetsTheTextBeFlushedInTheMiddle) {
    std::ostringstream out;
    Generator generator(&out);
    setLayout(generator, nest.layout);
    down(generator);
    generator.flush();
    EXPECT_TRUE(out.str() == openingHalf(nest));
    up(generator);
    generator.flush();
    EXPECT_TRUE(out.str() == expectedText(nest));
}

TEST_P(GeneratorDepth, LetsTheLayoutChangeInTheMiddle) {
    const Nest other{nest.shape, nest.depth,
                     nest.layout == Layout::oneLine ? Layout::lineBreaks : Layout::oneLine};
    std::ostringstream out;
    Generator generator(&out);
    setLayout(generator, nest.layout);
    down(generator);
    setLayout(generator, other.layout);
    up(generator);
    generator.flush();
    EXPECT_TRUE(out.str() ==
                openingHalf(nest) + expectedText(other).substr(openingHalf(other).size()));
}

TEST_P(GeneratorDepth, IsNoBoundForPrint) {
    const std::unique_ptr<Element> root = tree(nest);
    const std::string text =
        written(nest.layout, [&](Generator& g) { EXPECT_EQ(g.print(*root), 0); });
    EXPECT_TRUE(text == expectedText(nest));
}

TEST_P(GeneratorDepth, IsNoBoundForDocuments) {
    Dom dom;
    dom.setIncludeMeta(false);
    dom.setRoot(tree(nest));
    Generator generator(nullptr);
    setLayout(generator, nest.layout);
    EXPECT_TRUE(generator.encode(dom) == expectedText(nest));
}

INSTANTIATE_TEST_SUITE_P(
    Generator, GeneratorDepth,
    testing::Combine(testing::Values(Shape::arrays, Shape::objects, Shape::inTurn),
                     testing::Values(1, 2, 126, 127, 128, 129, 130, 255, 256, 257, 300, 10000),
                     testing::Values(Layout::lineBreaks, Layout::oneLine)),
    [](const auto& row) {
        const Shape shape = std::get<0>(row.param);
        const Layout layout = std::get<2>(row.param);
        return std::string(shape == Shape::arrays    ? "Arrays"
                           : shape == Shape::objects ? "Objects"
                                                     : "InTurn") +
               std::to_string(std::get<1>(row.param)) +
               (layout == Layout::lineBreaks ? "LineBreaks" : "OneLine");
    });

}  // namespace
