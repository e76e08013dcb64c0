#include <zo/Tessera/ElementCreator.h>
#include <zo/Tessera/Path.h>

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "paths/creating.h"
#include "support/FailingNew.h"
#include "support/dump.h"
#include "support/parsed.h"

using namespace zo::Tessera;

namespace {

// Too long to be kept inside a string, so that each copy allocates.
const std::string k_key = "a key that is too long to be kept inside the string";
const std::string k_text = "a text that is too long to be kept inside the string";

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
    for (const Create create : k_bothCreate) {
        const long failures = failEachAllocation(
            object, [&](auto& root) { create(*root, path, *value); },
            [&](const auto& root) {
                EXPECT_THAT(dump(*root), testing::AnyOf(none, one, two));
                create(*root, path, *value);  // the tree is whole
                EXPECT_EQ(dump(*root), all);
                EXPECT_EQ(dump(*value), valueBefore);
            });
        EXPECT_GT(failures, 0);
    }
}

TEST(OutOfMemory, LeavesTheItemsThatWereCreatedOnTheWay) {
    const Path path = "[*][*]";
    const auto value = makeValue();
    const std::string none = "etArray key=\"\" index=- parent=none\n";
    const std::string one = none + "  etArray key=\"[0]\" index=0 parent=right\n";
    for (const Create create : k_bothCreate) {
        const long failures = failEachAllocation(
            array, [&](auto& root) { create(*root, path, *value); },
            [&](const auto& root) {
                EXPECT_THAT(dump(*root), testing::AnyOf(none, one));
                const size_t size = root->size();
                Element& created = *create(*root, path, *value);
                EXPECT_EQ(&created, &root->at(size).at(0));
                EXPECT_EQ(created.at(0).getStringValue().value(), k_text);
            });
        EXPECT_GT(failures, 0);
    }
}

/// {} or {"<k_key>": [null]}.
std::unique_ptr<Element> makeTarget(bool existing) {
    auto root = object();
    if (existing) {
        Element::createNull(Element::createArray(root.get(), k_key));
    }
    return root;
}

template <class Make, class Run>
void expectAllOrNothing(const Make& make, const Run& run) {
    const std::string before = dump(*make());
    const auto check = [&](const auto& root) { EXPECT_EQ(dump(*root), before); };
    EXPECT_GT(failEachAllocation(make, run, check), 0);
}

TEST(OutOfMemory, ChangesNothingThatExists) {
    const auto value = makeValue();
    const Path path = k_key + "[0]";
    const auto make = [] { return makeTarget(true); };
    for (const Create create : k_bothCreate) {
        expectAllOrNothing(make, [&](auto& root) { create(*root, path, *value); });
    }
}

TEST(OutOfMemory, InsertsACopyOrNothing) {
    const auto value = makeValue();
    for (const bool existing : {false, true}) {
        const auto make = [&] { return makeTarget(existing); };
        expectAllOrNothing(make, [&](auto& root) { root->insertElement(k_key, *value); });
    }
}

// Of what is handed over and not inserted the leak checker tells whether it was deleted.
TEST(OutOfMemory, InsertsWhatIsHandedOverOrNothing) {
    const Path path = k_key;
    for (const bool existing : {false, true}) {
        const std::string before = dump(*makeTarget(existing));
        const auto make = [&] { return std::make_pair(makeTarget(existing), makeValue()); };
        const auto insert = [&](auto& pair) {
            pair.first->insertElement(path, std::move(pair.second));
        };
        const auto check = [&](const auto& pair) {
            EXPECT_EQ(dump(*pair.first), before);
            EXPECT_EQ(pair.second, nullptr);
        };
        // What replaces needs no memory.
        EXPECT_EQ(failEachAllocation(make, insert, check) > 0, !existing);
    }
}

TEST(OutOfMemory, LeavesWhatIsUpdatedFitForAnotherTry) {
    const auto value = makeValue();
    const Path path = k_key;
    for (const bool existing : {false, true}) {
        const auto make = [&] { return makeTarget(existing); };
        const auto update = [&](auto& root) { root->tryUpdate(path, *value); };
        const auto check = [&](const auto& root) {
            update(root);
            EXPECT_EQ(root->at(k_key).compare(*value), 0);
        };
        EXPECT_GT(failEachAllocation(make, update, check), 0);
    }
}

TEST(OutOfMemory, ChangesNothingWhileADefaultIsLookedUp) {
    const Path path = "k";
    const auto make = [] {
        return parsed(R"({"meta": {"schema": {"properties": {"k": {"default": 7}}}}})");
    };
    expectAllOrNothing(make, [&](auto& root) { root->getDefault(path); });
    expectAllOrNothing(make, [&](auto& root) { root->getUsingDefault(path); });
}

// A look-up needs memory for an escape in a key as long as this.
const std::string k_longKey(100, 'k');

/// Four objects with the texts x, a, x and b under `k_longKey`.
std::unique_ptr<Element> makeList() {
    auto list = array();
    for (const char* const text : {"x", "a", "x", "b"}) {
        Element::createString(text, Element::createObject(list.get()), k_longKey);
    }
    return list;
}

/// Their texts as `at` reaches them, each with its stored index.
std::string textsOf(const Element& list) {
    std::string items;
    for (size_t i = 0; i < list.size(); ++i) {
        const Element& item = list.at(i);
        items += item.at(k_longKey).getStringValue().value() + std::to_string(item.index());
    }
    return items;
}

TEST(OutOfMemory, KeepsTheArrayWholeFromWhichSomeWereRemoved) {
    const auto pattern = value("x");
    const Path keyPath = '\\' + k_longKey;
    std::set<std::string> left;
    const auto remove = [&](auto& list) { list->removeElement(*pattern, keyPath, ""); };
    const auto check = [&](const auto& list) {
        left.insert(textsOf(*list));
        remove(list);
        EXPECT_EQ(textsOf(*list), "a2b5");
    };
    failEachAllocation(makeList, remove, check);
    EXPECT_THAT(left, testing::ElementsAre("a2b5", "a2x3b4", "x0a1x2b3"));
}

// A creator in front of its last step.
struct Pending {
    Pending(std::unique_ptr<Element> tree, const Element& value)
        : root(std::move(tree)), creator("", *root, value, true) {}

    std::unique_ptr<Element> root;
    ElementCreator creator;
};

TEST(OutOfMemory, LeavesTheValueWithTheCreatorThatCannotAttachIt) {
    const auto value = makeValue();
    const std::string emptyObject = "etObject key=\"\" index=- parent=none\n";
    const std::string emptyArray = "etArray key=\"\" index=- parent=none\n";
    const std::string member = "  etArray key=\"" + k_key + "\" index=- parent=right\n    ";
    const std::string item = "  etArray key=\"[0]\" index=0 parent=right\n    ";
    for (const bool appends : {false, true}) {
        const auto begin = [&] {
            auto pending = std::make_unique<Pending>(appends ? array() : object(), *value);
            appends ? pending->creator.cbArrayItem(Path::k_noIndex)
                    : pending->creator.cbObjectProperty(k_key);
            return pending;
        };
        const auto finish = [](auto& pending) { pending->creator.cbFinish(); };
        const std::string& empty = appends ? emptyArray : emptyObject;
        const auto check = [&](const auto& pending) {
            EXPECT_EQ(dump(*pending->root), empty);
            EXPECT_EQ(pending->creator.currentElement(), pending->root.get());
            finish(pending);
            EXPECT_EQ(dump(*pending->root), empty + (appends ? item : member) + k_insertedText);
        };
        EXPECT_GT(failEachAllocation(begin, finish, check), 0);
    }
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
        const auto run = [&](int) {
            try {
                operation(*root, path);
            } catch (const Exception&) {
                ++reported;
            }
        };
        const auto check = [&](int) { EXPECT_EQ(dump(*root), before); };
        EXPECT_GT(failEachAllocation([] { return 0; }, run, check), 0);
        EXPECT_EQ(reported, 2);
    }
}

// An exception about an element with a long path, caused by another.
std::unique_ptr<PathNotFound> makeException() {
    const auto root = object();
    const Exception cause(k_text);
    return std::make_unique<PathNotFound>(Element::createNull(root.get(), k_key), k_text, k_key,
                                          &cause);
}

// What a failed attempt leaves behind is for the leak checker to find.
const auto k_noSubject = [] { return 0; };
const auto k_leaksAreFound = [](int) {};

TEST(OutOfMemory, LosesNothingOfAnExceptionThatIsMade) {
    const auto root = object();
    const Element* const element = Element::createNull(root.get(), k_key);
    const Exception cause(k_text);
    std::unique_ptr<PathNotFound> exception;
    const auto make = [&](int) {
        exception = std::make_unique<PathNotFound>(element, k_text, k_key, &cause);
    };
    EXPECT_GT(failEachAllocation(k_noSubject, make, k_leaksAreFound), 0);
    EXPECT_EQ(exception->path(), k_text);
}

TEST(OutOfMemory, LosesNothingOfAnExceptionThatIsCloned) {
    const auto exception = makeException();
    std::unique_ptr<PathNotFound> clone;
    const auto make = [&](int) { clone.reset(exception->clone()); };
    EXPECT_GT(failEachAllocation(k_noSubject, make, k_leaksAreFound), 0);
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
    const char* text = nullptr;
    {
        const NoMemory none;
        text = exception->what();
    }
    EXPECT_STREQ(text, "");
}

}  // namespace
