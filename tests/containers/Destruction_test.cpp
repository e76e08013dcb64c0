#include <zo/Tessera/Array.h>
#include <zo/Tessera/Object.h>

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Null.h>

#include "Witness.h"
#include "support/dump.h"

using namespace zo::Tessera;

namespace {

TEST(Destruction, OfAnArrayDeletesTheChildrenInOrder) {
    std::string log;
    {
        Array array;
        for (const char* const name : {"a", "b", "c"}) {
            array.push_back(new Witness(name, log));
        }
    }
    EXPECT_EQ(log, "~a;~b;~c;");
}

TEST(Destruction, OfAnObjectDeletesTheMembersInTheOrderOfInsertion) {
    std::string log;
    {
        Object object;
        for (const char* const name : {"b", "c", "a"}) {
            object.insert(name, new Witness(name, log));
        }
    }
    EXPECT_EQ(log, "~b;~c;~a;");
}

TEST(Destruction, OfANestedTreeFollowsTheText) {
    std::string log;
    {
        Array root;
        root.push_back(new Witness("a", log));
        Object& object = Element::createObject(&root)->getObjectValue();
        object.insert("x", new Witness("b", log));
        Array& inner = Element::createArray(&object, "y")->getArrayValue();
        inner.push_back(new Witness("c", log));
        object.insert("z", new Witness("d", log));
        root.push_back(new Witness("e", log));
    }
    EXPECT_EQ(log, "~a;~b;~c;~d;~e;");
}

TEST(Destruction, DeletesUnattachedChildrenToo) {
    std::string log;
    {
        Array source;
        source.push_back(new Witness("a", log));
        const Array copy(source);
        log.clear();
    }
    EXPECT_EQ(log, "~a;~a;");
}

TEST(Destruction, DoesNotTouchAHolderThatIsNotThere) {
    std::string log;
    auto root = std::make_unique<Object>();
    auto* const child = new Witness("a", log);
    root->insert("a", child);
    const std::unique_ptr<Element> clone(child->clone());
    log.clear();
    root.reset();
    EXPECT_EQ(log, "~a;");
    EXPECT_EQ(dump(*clone), "etString \"a\" key=\"\" index=- parent=none\n");
}

// A class of the caller's own finds its children alive in its destructor.
TEST(Destruction, RunsADerivedContainersDestructorBeforeItsChildrenAreGone) {
    std::string log;
    {
        Object root;
        root.insert("a", new Witness("a", log));
        auto* const list = new ArrayWitness(log);
        root.insert("list", list);
        list->push_back(new Witness("b", log));
        list->push_back(new Witness("c", log));
        root.insert("d", new Witness("d", log));
    }
    EXPECT_EQ(log, "~a;~list 2;~b;~c;~d;");
}

/// Writes down its key when it dies.
class KeyWitness : public Null {
public:
    explicit KeyWitness(std::string& log) : m_log(log) {}
    ~KeyWitness() override { m_log += "~" + key() + ";"; }

private:
    std::string& m_log;
};

TEST(Destruction, LeavesAnElementItsPlaceUntilItIsGone) {
    std::string log;
    {
        Object root;
        root.insert("replaced", new KeyWitness(log));
        root.insert("last", new KeyWitness(log));
        root.insert("replaced", new Null);
        Array& list = Element::createArray(&root, "list")->getArrayValue();
        list.push_back(new KeyWitness(log));
        Element::createArray(&list);
        list.push_back(new KeyWitness(log));
        root.insert("very last", new KeyWitness(log));
    }
    EXPECT_EQ(log, "~replaced;~last;~[0];~[2];~very last;");
}

/// Says to be a container and is none.
class Impostor : public Null {
public:
    Impostor(EType type, std::string& log) : m_type(type), m_log(log) {}
    ~Impostor() override { m_log += "~;"; }
    EType type() const override { return m_type; }

private:
    EType m_type;
    std::string& m_log;
};

TEST(Destruction, AsksNothingOfAChildButItsDestructor) {
    std::string log;
    {
        Array array;
        array.push_back(new Impostor(etArray, log));
        Object object;
        object.insert("a", new Impostor(etObject, log));
    }
    EXPECT_EQ(log, "~;~;");
}

TEST(DerivedElements, AreClonedByTheirOwnClone) {
    std::string log;
    Object root;
    auto* const list = new ArrayWitness(log);
    Element::createArray(&root, "outer")->getArrayValue().push_back(list);
    list->push_back(new Witness("a", log));
    Element::createNull(list);
    const std::unique_ptr<const Object> clone(root.clone());
    EXPECT_EQ(log, "clone list 2;clone a;");
    const Element& clonedList = clone->at("outer").at(0);
    EXPECT_NE(dynamic_cast<const ArrayWitness*>(&clonedList), nullptr);
    EXPECT_NE(dynamic_cast<const Witness*>(&clonedList.at(0)), nullptr);
    EXPECT_EQ(dump(*clone),
              "etObject key=\"\" index=- parent=none\n"
              "  etArray key=\"\" index=- parent=none held as \"outer\"\n"
              "    etArray key=\"\" index=- parent=none\n"
              "      etString \"a\" key=\"\" index=- parent=none\n"
              "      etNull key=\"\" index=- parent=none\n");
}

TEST(DerivedElements, AreClonedInTheOrderOfTheText) {
    std::string log;
    Array root;
    root.push_back(new Witness("a", log));
    Object& inner = Element::createObject(&root)->getObjectValue();
    inner.insert("x", new Witness("b", log));
    root.push_back(new Witness("c", log));
    Array target;
    target.assign(root);
    EXPECT_EQ(log, "clone a;clone b;clone c;");
}

TEST(DerivedElements, AreDeletedByTheirOwnDestructorWhenReplaced) {
    std::string log;
    Object root;
    auto* const list = new ArrayWitness(log);
    root.insert("list", list);
    list->push_back(new Witness("a", log));
    Element::createNull(&root, "list");
    EXPECT_EQ(log, "~list 1;~a;");
}

}  // namespace
