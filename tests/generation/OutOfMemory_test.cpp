#include <zo/Tessera/Generator.h>

#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>

#include "support/FailingNew.h"

using namespace zo::Tessera;

namespace {

constexpr size_t k_depth = 127;  // one more container needs a further handle of yajl's

/// A generator on one line in which `depth` arrays are open, and its stream.
struct Opened {
    explicit Opened(size_t depth) {
        generator.setIndent("");
        for (size_t i = 0; i < depth; ++i) {
            EXPECT_EQ(generator.gen_array_open(), 0);
        }
    }
    std::string closed(size_t depth) {
        for (size_t i = 0; i < depth; ++i) {
            EXPECT_EQ(generator.gen_array_close(), 0);
        }
        generator.flush();
        return out.str();
    }
    std::ostringstream out;
    Generator generator{&out};
};

std::string brackets(size_t depth) {
    return std::string(depth, '[') + std::string(depth, ']');
}

/// Whether a single value can be written, and is all there is.
bool isAsNew(Opened& opened) {
    return opened.generator.gen_null() == 0 && opened.closed(0) == "null";
}

TEST(OutOfMemory, LeavesTheGeneratorAsItWasOrAsNewWhenItOpensAFurtherHandle) {
    long asNew = 0;
    const long failures =
        failEachAllocation([] { return std::make_unique<Opened>(k_depth); },
                           [](auto& opened) { opened->generator.gen_array_open(); },
                           [&](auto& opened) {
                               if (opened->generator.gen_array_close() == 0) {
                                   EXPECT_EQ(opened->closed(k_depth - 1), brackets(k_depth));
                               } else {
                                   EXPECT_TRUE(isAsNew(*opened));
                                   ++asNew;
                               }
                           });
    EXPECT_GT(failures, asNew);
    EXPECT_GT(asNew, 0);
}

// An event that yajl was not able to finish leaves yajl's count of open containers unknown.
TEST(OutOfMemory, LeavesTheGeneratorAsNewWhenAnEventIsCutShort) {
    const std::string longText(100000, 'x');
    const long failures =
        failEachAllocation([] { return std::make_unique<Opened>(300); },
                           [&](auto& opened) { opened->generator.gen_string(longText); },
                           [&](auto& opened) { EXPECT_TRUE(isAsNew(*opened)); });
    EXPECT_GT(failures, 0);
}

TEST(OutOfMemory, LeavesTheContainersOpenedByThenToBeClosed) {
    const auto openMany = [](auto& opened) {
        for (int i = 0; i < 500; ++i) {
            opened->generator.gen_array_open();
        }
    };
    const long failures =
        failEachAllocation([] { return std::make_unique<Opened>(0); }, openMany,
                           [](auto& opened) {
                               while (opened->generator.gen_array_close() == 0) {
                               }
                               opened->generator.flush();
                               const std::string text = opened->out.str();
                               EXPECT_EQ(text, brackets(text.size() / 2));
                               EXPECT_EQ(opened->generator.gen_null(), text.empty() ? 0 : 4);
                           });
    EXPECT_GT(failures, 10);
}

TEST(OutOfMemory, LeavesTheGeneratorAsItWasWhenItClosesAFurtherHandle) {
    const std::string longText(1000, 'x');
    const long failures = failEachAllocation(
        [&] {
            auto opened = std::make_unique<Opened>(k_depth + 1);
            opened->generator.gen_string(longText);
            return opened;
        },
        [](auto& opened) { opened->generator.gen_array_close(); },
        [&](auto& opened) {
            EXPECT_EQ(opened->closed(k_depth + 1), std::string(k_depth + 1, '[') + '"' + longText +
                                                       '"' + std::string(k_depth + 1, ']'));
        });
    EXPECT_GT(failures, 0);
}

TEST(OutOfMemory, LosesNothingWhileADeepDocumentIsWritten) {
    const std::unique_ptr<Element> root = array();
    Element* deepest = root.get();
    for (int i = 0; i < 299; ++i) {
        deepest = Element::createArray(deepest);
    }
    std::string text;
    const long failures = failEachAllocation(
        [] {
            auto generator = std::make_unique<Generator>(nullptr);
            generator->setIndent("");
            return generator;
        },
        [&](auto& generator) { text = generator->encode(*root); },
        [](auto& generator) {
            // What was gathered by then is still there, and has nowhere to go.
            try {
                generator->flush();
            } catch (const zo::Exception& error) {
                EXPECT_STREQ(error.what(), "Generator: output stream not set!");
                EXPECT_NE(generator->encode(*value()).find('['), std::string::npos);
            }
        });
    EXPECT_GT(failures, 5);
    EXPECT_EQ(text, brackets(300));
}

}  // namespace
