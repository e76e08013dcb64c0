#include <zo/Tessera/Element.h>

#include <memory>
#include <new>
#include <optional>
#include <ostream>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <zo/DecNumber.h>
#include <zo/Tessera/Array.h>
#include <zo/Tessera/CallbackParser.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/DomParser.h>
#include <zo/Tessera/ElementCreator.h>
#include <zo/Tessera/ElementGetter.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Generator.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/TBasicElement.h>

#include "failures/outOfMemory.h"
#include "failures/richTree.h"
#include "support/EventLog.h"
#include "support/NumberOf.h"

using namespace zo::Tessera;

// Whatever is deleted, cleared or removed here must do without memory: an allocation would end the
// program. What is not deleted is found by the leak checker.

namespace {

constexpr int k_depth = 10'000;

/// Arrays and objects in turn, each beside a text.
std::unique_ptr<Element> deepTree() {
    auto root = array();
    Element* deepest = root.get();
    for (int i = 0; i < k_depth; ++i) {
        if (i % 2 == 0) {
            deepest = Element::createObject(deepest);
        } else {
            Element::createString(k_long, deepest, "before");
            deepest = Element::createArray(deepest, k_long);
        }
    }
    return root;
}

/// Deletes what `owner` owns, without memory.
template <class Owner>
void destroy(Owner& owner) {
    const NoMemory none;
    owner.reset();
}

TEST(WithoutMemory, ElementsOfEachKindAreDeleted) {
    std::vector<std::unique_ptr<Element>> elements;
    elements.push_back(richTree());
    elements.emplace_back(elements.front()->at("list").clone());
    elements.push_back(value(numberOf(k_long)));
    elements.push_back(value(k_long));
    elements.push_back(value(true));
    elements.push_back(value());
    {
        const NoMemory none;
        elements.clear();
    }
    EXPECT_TRUE(elements.empty());
}

TEST(WithoutMemory, DeepTreesAreDeleted) {
    auto tree = deepTree();
    destroy(tree);
    EXPECT_EQ(tree, nullptr);
}

TEST(WithoutMemory, AnObjectIsCleared) {
    Object object;
    for (const char* const key : {"first", "second"}) {
        object.insert(key, deepTree().release());
    }
    {
        const NoMemory none;
        object.clear();
    }
    EXPECT_EQ(object.size(), 0U);
    Element::createNull(&object, "first");
    EXPECT_EQ(object.size(), 1U);
}

TEST(WithoutMemory, ItemsAreRemovedWithAllBelowThem) {
    const auto list = array();
    for (int i = 0; i < 4; ++i) {
        Element* const item = Element::createObject(list.get());
        Element::createNumber(numberOf(i % 2), item, "key");
        item->getObjectValue().insert(k_long, deepTree().release());
    }
    const auto pattern = value(0);
    const Path keyPath = "key";
    const Path here;
    {
        const NoMemory none;
        list->removeElement(*pattern, keyPath, here);
    }
    ASSERT_EQ(list->size(), 2U);
    EXPECT_EQ(list->at(0).at("key").getNumberValue().value().toInt(), 1);
    EXPECT_EQ(list->at(1).at("key").getNumberValue().value().toInt(), 1);
}

TEST(WithoutMemory, DocumentsGiveTheirTreesUp) {
    auto dom = std::make_unique<Dom>();
    dom->setMetaKey(k_long);
    dom->setRoot(deepTree());
    auto first = value(k_long);
    auto second = value(k_long);
    std::unique_ptr<Element> taken;
    {
        const NoMemory none;
        dom->setRoot(std::move(first));
        dom->setRoot(second.release());
        taken = dom->takeRoot();
        dom->setRoot(nullptr);
    }
    EXPECT_NE(taken, nullptr);
    dom->setRoot(std::move(taken));
    destroy(dom);
    EXPECT_EQ(dom, nullptr);
}

TEST(WithoutMemory, NumbersAndPathsAreDeleted) {
    auto number = std::make_unique<BasicNumber>(numberOf(k_long));
    auto decimal = std::make_unique<zo::DecNumber>("1.2345678901234567890123456789");
    auto path = std::make_unique<Path>(k_long);
    destroy(number);
    destroy(decimal);
    destroy(path);
    EXPECT_EQ(path, nullptr);
}

TEST(WithoutMemory, ExceptionsAreDeletedWithTheirCauses) {
    const auto tree = richTree();
    const Element* const element = &tree->at(k_long);
    const Exception first(k_long, element);
    const Exception second(k_long, element, &first);
    std::vector<std::unique_ptr<zo::Exception>> exceptions;
    exceptions.push_back(std::make_unique<zo::RuntimeError>(k_long, &second));
    exceptions.push_back(std::make_unique<TypeException<EType>>(element, etNull, etNull));
    exceptions.push_back(std::make_unique<ParseException>(element, k_long, 1, 2, 3, 4, &second));
    exceptions.push_back(std::make_unique<PathNotFound>(element, k_long, k_long, &second));
    exceptions.push_back(std::make_unique<KeyNotFound>(element, k_long, &second));
    exceptions.push_back(
        std::make_unique<ValueOutOfRange<BasicNumber, int>>(numberOf(k_long), 1, 2, &second));
    for (const auto& exception : exceptions) {
        EXPECT_STRNE(exception->what(), "");
    }
    {
        const NoMemory none;
        exceptions.clear();
    }
    EXPECT_TRUE(exceptions.empty());
}

TEST(WithoutMemory, WalkersAreDeletedWithWhatTheyStillOwn) {
    const auto tree = richTree();
    auto getter = std::make_unique<ElementGetter>(k_long, *tree, true);
    auto creator = std::make_unique<ElementCreator>(k_long, *tree, *tree, true);
    creator->cbObjectProperty(k_long + "?");
    destroy(getter);
    destroy(creator);
    EXPECT_EQ(creator, nullptr);
}

TEST(WithoutMemory, ParsersAreDeletedInTheMiddleOfAText) {
    EventLog log;
    log.errorAnswer = 1;
    auto parser = std::make_unique<CallbackParser>(&log);
    parser->parse("[{\"" + k_long + "\": \"" + k_long);
    auto broken = std::make_unique<CallbackParser>(&log);
    broken->parse(std::string("[x"));
    broken->parse(std::string("[x"));
    Dom dom;
    auto domParser = std::make_unique<DomParser>();
    EXPECT_THROW(domParser->parse(dom, "[{\"" + k_long + "\": [" + "x"), ParseException);
    destroy(parser);
    destroy(broken);
    destroy(domParser);
    EXPECT_NE(dom.root(), nullptr);
}

/// Takes what it has room for, without memory.
class Paper : public std::streambuf {
public:
    Paper() { setp(m_text, m_text + sizeof(m_text)); }
    std::string text() const { return std::string(pbase(), pptr()); }

private:
    char m_text[1000];
};

TEST(WithoutMemory, AGeneratorIsDeletedAfterItHasFlushed) {
    Paper paper;
    std::ostream out(&paper);
    std::string opened;
    auto generator = std::make_unique<Generator>(&out);
    generator->setIndent("");
    for (int i = 0; i < 300; ++i) {
        generator->gen_array_open();
        opened += '[';
    }
    destroy(generator);
    EXPECT_EQ(paper.text(), opened);
}

// The text has nowhere to go, and there is no memory to say so.
TEST(WithoutMemory, AGeneratorIsDeletedAlthoughItCannotFlush) {
    const auto leavePending = [] {
        std::optional<NoMemory> none;
        Generator generator(nullptr);
        generator.gen_string(k_long);
        none.emplace();
    };
    EXPECT_THROW(leavePending(), std::bad_alloc);
}

}  // namespace
