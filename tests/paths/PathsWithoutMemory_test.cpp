#include <zo/Tessera/Path.h>

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/PathParser.h>
#include <zo/Tessera/TBasicElement.h>

#include "support/NoMemory.h"
#include "support/parsed.h"
#include "support/rowName.h"

using namespace zo::Tessera;

// What a path of short segments leads to is reached without an allocation.

namespace {

// A tree whose every step is of one sort, and how a path writes the step.
struct Sort {
    const char* name;
    const char* key;  // of the members on the way; null for items
    const char* step;
    const char* absent;  // a step that is never there
    const char* dot;     // between two steps
};

class LookUpWithoutMemory : public testing::TestWithParam<Sort> {
protected:
    static constexpr int k_depth = 8;

    LookUpWithoutMemory() {
        m_levels.push_back(m_root.get());
        for (int i = 0; i < k_depth; ++i) {
            if (GetParam().key) {
                m_levels.push_back(Element::createObject(m_levels.back(), GetParam().key));
            } else {
                Element::createNull(m_levels.back());
                m_levels.push_back(Element::createArray(m_levels.back()));
            }
        }
    }

    static Path pathOf(size_t length, const char* last) {
        std::string path;
        for (size_t i = 1; i < length; ++i) {
            path += (i == 1 ? "" : GetParam().dot) + std::string(GetParam().step);
        }
        return path + (length == 1 || *last == '[' ? "" : GetParam().dot) + last;
    }

    std::unique_ptr<Element> m_root = GetParam().key ? object() : array();
    std::vector<Element*> m_levels;
};

TEST_P(LookUpWithoutMemory, FindsWhatIsThere) {
    for (const size_t length : {1U, 4U, 8U}) {
        const Path path = pathOf(length, GetParam().step);
        const Element& root = *m_root;
        std::vector<const Element*> found(8);
        bool exists = false;
        bool ofItsKind = false;
        bool ofAnotherKind = true;
        {
            const NoMemory none;
            exists = m_root->pathExists(path) && Path::pathExists(path, *m_root);
            ofItsKind = m_root->pathExists(path, root.type());
            ofAnotherKind = Path::pathExists(path, *m_root, etNull);
            found[0] = &m_root->get(path);
            found[1] = &root.get(path);
            found[2] = &Path::getElement(path, *m_root);
            found[3] = &Path::getElement(path, root);
            found[4] = Path::tryGetElement(path, *m_root);
            found[5] = Path::tryGetElement(path, root);
            found[6] = Path::tryGetElement(path, *m_root, root.type());
            found[7] = Path::tryGetElement(path, root, root.type());
        }
        EXPECT_TRUE(exists && ofItsKind && !ofAnotherKind) << path;
        EXPECT_THAT(found, testing::Each(m_levels[length])) << path;
    }
}

TEST_P(LookUpWithoutMemory, AnswersWhatIsMissing) {
    for (const size_t length : {1U, 4U, 8U}) {
        const Path path = pathOf(length, GetParam().absent);
        const Element& root = *m_root;
        std::vector<const Element*> found(4, m_root.get());
        bool exists = true;
        {
            const NoMemory none;
            exists = m_root->pathExists(path) || Path::pathExists(path, root) ||
                     m_root->pathExists(path, etNull) || Path::pathExists(path, root, etObject);
            found[0] = Path::tryGetElement(path, *m_root);
            found[1] = Path::tryGetElement(path, root);
            found[2] = Path::tryGetElement(path, *m_root, etNull);
            found[3] = Path::tryGetElement(path, root, etArray);
        }
        EXPECT_FALSE(exists) << path;
        EXPECT_THAT(found, testing::Each(nullptr)) << path;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Path, LookUpWithoutMemory,
    testing::Values(
        Sort{"ByOneLetter", "k", "k", "l", "."},
        Sort{"ByFifteenLetters", "fifteen letters", "fifteen letters", "fifteen letterz", "."},
        Sort{"ByFifteenEscapes", ".[]*\\.[]*\\.[]*\\",
             "\\.\\[\\]\\*\\\\\\.\\[\\]\\*\\\\\\.\\[\\]\\*\\\\",
             "\\.\\[\\]\\*\\\\\\.\\[\\]\\*\\\\\\.\\[\\]\\*\\.", "."},
        Sort{"ByIndexes", nullptr, "[1]", "[2]", ""},
        Sort{"ByIndexesOfFifteenDigits", nullptr, "[000000000000001]", "[000000000000002]", ""},
        Sort{"ByAnIndexWhereAKeyIsNeeded", "k", "k", "[0]", "."},
        Sort{"ByAKeyWhereAnIndexIsNeeded", nullptr, "[1]", ".k", ""}),
    k_rowName);

// Nothing is thrown on the way, which would need memory.
TEST(RemovalWithoutMemory, IsDone) {
    const auto pattern = value("x");
    for (const char* const json : {R"(["x", "a", "x", "b"])", R"([["x"], ["a"], ["x"], ["b"]])"}) {
        const auto list = parsed(json);
        const Path keyPath = list->at(0).type() == etArray ? "[0]" : "";
        {
            const NoMemory none;
            list->removeElement(*pattern, keyPath, "");
        }
        ASSERT_EQ(list->size(), 2U);
        EXPECT_EQ(list->at(0).get(keyPath).getStringValue().value(), "a");
        EXPECT_EQ(list->at(1).get(keyPath).getStringValue().value(), "b");
        EXPECT_EQ(list->at(1).index(), 5U);
    }
}

TEST(SearchWithoutMemory, IsDone) {
    const auto pattern = value("b");
    const auto list = parsed(R"([["a"], ["b"]])");
    const Element* found = nullptr;
    {
        const NoMemory none;
        found = list->findElement(*pattern, "[0]", "");
    }
    EXPECT_EQ(found, &list->at(1));
}

struct Counter : PathParserListener {
    bool cbObjectProperty(const std::string& key) override {
        characters += key.size();
        return true;
    }
    bool cbArrayItem(unsigned long index) override {
        sum += index;
        return true;
    }

    size_t characters = 0;
    unsigned long sum = 0;
};

TEST(ParseWithoutMemory, ReadsSegmentsOfFifteenBytes) {
    const std::string text = "fifteen letters[123456789012345].0123456789\\.\\[\\]\\*\\\\[5]";
    Counter counter;
    {
        const NoMemory none;
        PathParser(counter).parse(text);
    }
    EXPECT_EQ(counter.characters, 30U);
    EXPECT_EQ(counter.sum, 123456789012350U);
}

}  // namespace
