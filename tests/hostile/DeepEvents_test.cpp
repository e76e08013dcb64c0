#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>

#include <zo/Tessera/Generator.h>

#include "generation/written.h"
#include "hostile/DeepDocument.h"
#include "hostile/eachNesting.h"
#include "hostile/onSmallStack.h"

using namespace zo::Tessera;

// The generator's single events, driven as deep as the trees are.

namespace {

constexpr int k_keysMustBeStrings = 1;
constexpr int k_documentIsComplete = 4;
constexpr int k_noNumber = 5;

/// Drives a generator down and up again, and counts the events whose status is not the expected
/// one.
class Driver {
public:
    Driver(Generator& generator, const DeepDocument& document)
        : m_generator(generator), m_document(document) {}

    /// Opens all containers, with an event that is refused in each.
    void down() {
        for (size_t level = 0; level < k_depth; ++level) {
            const bool isArray = m_document.isArray(level);
            expect(0, isArray ? m_generator.gen_array_open() : m_generator.gen_object_open());
            if (!isArray) {
                expect(k_keysMustBeStrings, m_generator.gen_null());
            }
            if (level + 1 < k_depth) {
                key(level);
                expect(k_noNumber, m_generator.gen_double(std::numeric_limits<double>::infinity()));
            }
        }
    }

    void value() {
        key(k_depth - 1);
        expect(0, m_generator.gen_bool(true));
    }

    void up() {
        for (size_t level = k_depth; level-- > 0;) {
            expect(0, m_document.isArray(level) ? m_generator.gen_array_close()
                                                : m_generator.gen_object_close());
        }
    }

    /// Closes more than was opened.
    void further() {
        for (size_t level = 0; level < k_depth; ++level) {
            expect(k_documentIsComplete, m_generator.gen_array_close());
            expect(k_documentIsComplete, m_generator.gen_object_close());
        }
        expect(k_documentIsComplete, m_generator.gen_array_open());
    }

    size_t unexpected = 0;

private:
    void key(size_t level) {
        if (!m_document.isArray(level)) {
            expect(0, m_generator.gen_string("k"));
        }
    }
    void expect(int status, int found) { unexpected += found == status ? 0 : 1; }

    Generator& m_generator;
    const DeepDocument& m_document;
};

class DeepEvents : public ForEachNesting {
protected:
    void expectText(Layout layout) const {
        const std::string text = written(layout, [this](Generator& generator) {
            Driver driver(generator, document);
            driver.down();
            driver.value();
            driver.up();
            driver.further();
            EXPECT_EQ(driver.unexpected, 0U);
        });
        EXPECT_TRUE(text == document.text("true", layout));
    }
};

TEST_P(DeepEvents, AreWrittenInOneLine) {
    onSmallStack([this] { expectText(Layout::oneLine); });
}

TEST_P(DeepEvents, AreWrittenWithLineBreaks) {
    onSmallStack([this] { expectText(Layout::lineBreaks); });
}

INSTANTIATE_TEST_SUITE_P(Hostile, DeepEvents,
                         testing::Values(Nesting::arrays, Nesting::objects, Nesting::inTurn),
                         nestingName);

TEST(DeepEvents, AreFlushedAtTheBottom) {
    onSmallStack([] {
        std::ostringstream out;
        Generator generator(&out);
        generator.setIndent("");
        Driver driver(generator, k_mixed);
        driver.down();
        generator.flush();
        EXPECT_TRUE(out.str() == k_mixed.opening());
        driver.value();
        driver.up();
        generator.flush();
        EXPECT_TRUE(out.str() == k_mixed.text());
        EXPECT_EQ(driver.unexpected, 0U);
    });
}

TEST(DeepEvents, ChangeTheirLayoutAtTheBottom) {
    onSmallStack([] {
        const std::string text = written(Layout::oneLine, [](Generator& generator) {
            Driver driver(generator, k_mixed);
            driver.down();
            generator.setIndent("  ");
            driver.value();
            driver.up();
            EXPECT_EQ(driver.unexpected, 0U);
        });
        EXPECT_TRUE(text == k_mixed.opening() + k_mixed.lastKey(Layout::lineBreaks) + "true" +
                                k_mixed.closing(Layout::lineBreaks));
    });
}

TEST(DeepEvents, MayBeLeftUnfinished) {
    onSmallStack([] {
        std::ostringstream out;
        {
            Generator generator(&out);
            generator.setIndent("");
            Driver(generator, k_mixed).down();
        }
        EXPECT_TRUE(out.str() == k_mixed.opening());
    });
}

}  // namespace
