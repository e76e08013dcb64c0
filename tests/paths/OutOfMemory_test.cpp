#include <zo/Tessera/ElementCreator.h>
#include <zo/Tessera/ElementGetter.h>
#include <zo/Tessera/Path.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "support/FailingNew.h"
#include "support/dump.h"

using namespace zo::Tessera;

namespace {

// Too long to be kept inside a string, so that each copy allocates.
const std::string k_key = "a key that is too long to be kept inside the string";
const std::string k_text = "a text that is too long to be kept inside the string";

using Create = Element& (*)(Element& root, const Path& path, const Element& value);

Element& tryCreate(Element& root, const Path& path, const Element& value) {
    return *Path::tryCreateElement(root, path, value);
}

constexpr Create k_both[] = {&Path::createElement, &tryCreate};

/// ["<k_text>"], to be copied to the end of the path.
std::unique_ptr<Element> makeValue() {
    auto list = array();
    Element::createString(k_text, list.get());
    return list;
}

const std::string k_insertedText = "etString \"" + k_text + "\" key=\"\" index=- parent=none\n";

TEST(OutOfMemory, LeavesTheMembersThatWereCreatedOnTheWay) {
    const Path path = k_key + "." + k_key + "." + k_key;
    const auto value = makeValue();
    const std::string valueBefore = dump(*value);
    const std::string none = "etObject key=\"\" index=- parent=none\n";
    const std::string one = none + "  etObject key=\"" + k_key + "\" index=- parent=right\n";
    const std::string two = one + "    etObject key=\"" + k_key + "\" index=- parent=right\n";
    const std::string all =
        two + "      etArray key=\"" + k_key + "\" index=- parent=right\n        " + k_insertedText;
    for (const Create create : k_both) {
        const long failures = failEachAllocation(
            object, [&](auto& root) { create(*root, path, *value); },
            [&](const auto& root) {
                EXPECT_THAT(dump(*root), testing::AnyOf(none, one, two));
                create(*root, path, *value);  // the tree is whole
                EXPECT_EQ(dump(*root), all);
                EXPECT_EQ(dump(*value), valueBefore);
            });
        EXPECT_GT(failures, 10);
    }
}

TEST(OutOfMemory, LeavesTheItemsThatWereCreatedOnTheWay) {
    const Path path = "[*][*]";
    const auto value = makeValue();
    const std::string none = "etArray key=\"\" index=- parent=none\n";
    const std::string one = none + "  etArray key=\"[0]\" index=0 parent=right\n";
    for (const Create create : k_both) {
        const long failures = failEachAllocation(
            array, [&](auto& root) { create(*root, path, *value); },
            [&](const auto& root) {
                EXPECT_THAT(dump(*root), testing::AnyOf(none, one));
                const size_t size = root->size();
                Element& created = create(*root, path, *value);
                EXPECT_EQ(&created, &root->at(size).at(0));
                EXPECT_EQ(created.at(0).getStringValue().value(), k_text);
            });
        EXPECT_GT(failures, 5);
    }
}

TEST(OutOfMemory, ChangesNothingThatExists) {
    const auto value = makeValue();
    const Path path = k_key + "[0]";
    const auto make = [] {
        auto root = object();
        Element::createNull(Element::createArray(root.get(), k_key));
        return root;
    };
    const std::string before = dump(*make());
    const auto check = [&](const auto& root) { EXPECT_EQ(dump(*root), before); };
    for (const Create create : k_both) {
        const auto run = [&](auto& root) { create(*root, path, *value); };
        EXPECT_GT(failEachAllocation(make, run, check), 2);
    }
}

// A creator in front of its last step.
struct Pending {
    Pending(std::unique_ptr<Element> tree, const Element& value)
        : root(std::move(tree)), creator("", *root, value, true) {}

    std::unique_ptr<Element> root;
    ElementCreator creator;
};

TEST(OutOfMemory, LeavesTheValueWithTheCreatorThatCannotInsertIt) {
    const auto value = makeValue();
    const std::string empty = "etObject key=\"\" index=- parent=none\n";
    const std::string full =
        empty + "  etArray key=\"" + k_key + "\" index=- parent=right\n    " + k_insertedText;
    const long failures = failEachAllocation(
        [&] {
            auto pending = std::make_unique<Pending>(object(), *value);
            pending->creator.cbObjectProperty(k_key);
            return pending;
        },
        [](auto& pending) { pending->creator.cbFinish(); },
        [&](const auto& pending) {
            EXPECT_EQ(dump(*pending->root), empty);
            EXPECT_EQ(pending->creator.currentElement(), pending->root.get());
            pending->creator.cbFinish();
            EXPECT_EQ(dump(*pending->root), full);
        });
    EXPECT_GT(failures, 1);
}

TEST(OutOfMemory, LeavesTheValueWithTheCreatorThatCannotAppendIt) {
    const auto value = makeValue();
    const std::string empty = "etArray key=\"\" index=- parent=none\n";
    const std::string full =
        empty + "  etArray key=\"[0]\" index=0 parent=right\n    " + k_insertedText;
    const long failures = failEachAllocation(
        [&] {
            auto pending = std::make_unique<Pending>(array(), *value);
            pending->creator.cbArrayItem(Path::k_noIndex);
            return pending;
        },
        [](auto& pending) { pending->creator.cbFinish(); },
        [&](const auto& pending) {
            EXPECT_EQ(dump(*pending->root), empty);
            EXPECT_EQ(pending->creator.currentElement(), pending->root.get());
            pending->creator.cbFinish();
            EXPECT_EQ(dump(*pending->root), full);
        });
    EXPECT_GT(failures, 0);
}

TEST(OutOfMemory, LosesNothingWhileAMissingPathIsReported) {
    const Path path = k_key + "." + k_key;
    const auto root = object();
    Element::createNull(root.get(), k_key);
    const std::string before = dump(*root);
    const std::vector<void (*)(Element&, const Path&)> operations = {
        [](Element& from, const Path& text) { Path::getElement(text, from); },
        [](Element& from, const Path& text) { Path::createElement(from, text, Object::k_empty); },
        [](Element& from, const Path& text) {
            Path::tryCreateElement(from, text, Object::k_empty);
        }};
    for (const auto operation : operations) {
        long reported = 0;
        const long failures = failEachAllocation([] { return 0; },
                                                 [&](int) {
                                                     try {
                                                         operation(*root, path);
                                                     } catch (const Exception&) {
                                                         ++reported;
                                                     }
                                                 },
                                                 [&](int) { EXPECT_EQ(dump(*root), before); });
        EXPECT_GT(failures, 2);
        EXPECT_EQ(reported, 1);
    }
}

// An exception about an element with a long path, caused by another.
std::unique_ptr<PathNotFound> makeException() {
    const auto root = object();
    const Exception cause(k_text);
    return std::make_unique<PathNotFound>(Element::createNull(root.get(), k_key), k_text, k_key,
                                          &cause);
}

TEST(OutOfMemory, LosesNothingOfAnExceptionThatIsMade) {
    const auto root = object();
    const Element* const element = Element::createNull(root.get(), k_key);
    const Exception cause(k_text);
    std::unique_ptr<PathNotFound> exception;
    const long failures = failEachAllocation(
        [] { return 0; },
        [&](int) { exception = std::make_unique<PathNotFound>(element, k_text, k_key, &cause); },
        [&](int) { EXPECT_EQ(exception, nullptr); });
    EXPECT_GT(failures, 5);
    ASSERT_NE(exception, nullptr);
    EXPECT_EQ(exception->path(), k_text);
}

TEST(OutOfMemory, LosesNothingOfAnExceptionThatIsCloned) {
    const auto exception = makeException();
    std::unique_ptr<PathNotFound> clone;
    const long failures =
        failEachAllocation([] { return 0; }, [&](int) { clone.reset(exception->clone()); },
                           [&](int) { EXPECT_EQ(clone, nullptr); });
    EXPECT_GT(failures, 5);
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(*clone->elementPath(), k_key);
    EXPECT_EQ(*exception->elementPath(), k_key);
}

TEST(OutOfMemory, LeavesTheTextThatAnExceptionCannotReplace) {
    const auto exception = makeException();
    std::string expected;
    exception->generateWhat(expected);
    ASSERT_THAT(expected, testing::StartsWith("Path \"" + k_text + "\" not found! Key \"" + k_key +
                                              "\". Current element: \"0x"));
    const long failures =
        failEachAllocation([] { return std::string("former"); },
                           [&](std::string& text) {
                               exception->generateWhat(text);
                               EXPECT_EQ(text, expected);
                           },
                           [](const std::string& text) { EXPECT_EQ(text, "former"); });
    EXPECT_GT(failures, 0);
}

TEST(OutOfMemory, LeavesWhatEmpty) {
    const auto exception = makeException();
    FailingNew::s_left = 0;
    const char* const text = exception->what();
    FailingNew::s_left = FailingNew::k_unlimited;
    EXPECT_STREQ(text, "");
}

/// Every allocation fails while it lives.
class NoMemory {
public:
    NoMemory() { FailingNew::s_left = 0; }
    NoMemory(const NoMemory&) = delete;
    NoMemory& operator=(const NoMemory&) = delete;
    ~NoMemory() { FailingNew::s_left = FailingNew::k_unlimited; }
};

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
    OutOfMemory, LookUpWithoutMemory,
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
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
