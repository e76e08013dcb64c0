#include <zo/Tessera/Element.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <string>
#include <tuple>
#include <utility>

#include <zo/Exception.h>
#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/TBasicElement.h>

#include "paths/RemoveForms.h"
#include "support/dump.h"
#include "support/parsed.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

using Owner = std::unique_ptr<Element>;

class RemoveElementDeletion : public testing::TestWithParam<RemoveForm> {
protected:
    static void remove(Element& asked, const Owner& pattern) {
        GetParam().remove(asked, pattern, "", "");
    }
};

INSTANTIATE_TEST_SUITE_P(Element, RemoveElementDeletion, testing::ValuesIn(k_removeForms),
                         k_rowName);

/// A string that writes its own end down.
class Mortal : public TBasicElement<std::string> {
public:
    Mortal(const std::string& name, std::string& log) : TBasicElement(name), m_log(log) {}
    ~Mortal() override { m_log += "~" + value() + ";"; }

private:
    std::string& m_log;
};

TEST_P(RemoveElementDeletion, DeletesWhatItRemovesAndNothingElse) {
    std::string log;
    auto list = std::make_unique<Array>();
    for (const char* name : {"x", "a", "x", "x", "b"}) {
        list->push_back(new Mortal(name, log));
    }
    remove(*list, value("x"));
    EXPECT_EQ(log, "~x;~x;~x;");
    list.reset();
    EXPECT_EQ(log, "~x;~x;~x;~a;~b;");
}

class RemoveElementOfItself : public testing::TestWithParam<unsigned long> {};

// The pattern is compared with the items behind it, so it lives until the scan has ended.
TEST_P(RemoveElementOfItself, RemovesItsEqualsToo) {
    const Owner list = parsed(R"(["x", "a", "x", "b", "x"])");
    list->removeElement(list->at(GetParam()), "", "");
    EXPECT_EQ(itemsOf(*list),
              "  etString \"a\" key=\"[2]\" index=2 parent=right\n"
              "  etString \"b\" key=\"[5]\" index=5 parent=right\n");
}

INSTANTIATE_TEST_SUITE_P(AtPlace, RemoveElementOfItself, testing::Values(0UL, 2UL, 4UL));

TEST(RemoveElementPattern, MayStandInsideARemovedItem) {
    const Owner root = parsed(R"({"a": [{"id": [1]}, {"id": [2]}, {"id": [1]}, {"id": [3]}]})");
    root->removeElement(root->get("a[0].id"), "id", "a");
    EXPECT_EQ(itemsOf(root->at("a")),
              "  etObject key=\"[2]\" index=2 parent=right\n"
              "    etArray key=\"id\" index=- parent=right\n"
              "      etNumber 2 key=\"[0]\" index=0 parent=right\n"
              "  etObject key=\"[5]\" index=5 parent=right\n"
              "    etArray key=\"id\" index=- parent=right\n"
              "      etNumber 3 key=\"[0]\" index=0 parent=right\n");
}

/// Answers the comparisons one after the other as the test says.
class Scripted : public TBasicElement<bool> {
public:
    using Answer = std::function<int(int call)>;

    explicit Scripted(Answer answer) : TBasicElement(true), m_answer(std::move(answer)) {}
    int compare(const Element&) const override { return m_answer(++m_calls); }

private:
    Answer m_answer;
    mutable int m_calls = 0;
};

TEST_P(RemoveElementDeletion, KeepsAnItemWhoseComparisonThrowsAnExceptionOfThisLibrary) {
    const Owner list = parsed(R"(["a", "b", "c"])");
    const Owner pattern = std::make_unique<Scripted>([](int call) -> int {
        if (call == 2) {
            throw Exception("no comparison");
        }
        return 0;
    });
    remove(*list, pattern);
    EXPECT_EQ(itemsOf(*list), "  etString \"b\" key=\"[2]\" index=2 parent=right\n");
}

TEST_P(RemoveElementDeletion, AsksThePatternOnceForEachItem) {
    const Owner list = parsed(R"(["a", "b", "c", "d"])");
    int calls = 0;
    const Owner pattern = std::make_unique<Scripted>([&calls](int call) {
        calls = call;
        return call % 2 == 0 ? 0 : -3;
    });
    remove(*list, pattern);
    EXPECT_EQ(calls, 4);
    EXPECT_EQ(itemsOf(*list),
              "  etString \"a\" key=\"[0]\" index=0 parent=right\n"
              "  etString \"c\" key=\"[3]\" index=3 parent=right\n");
}

/// Matches each second item, and writes down where the items stand when it is asked.
class Surveyor : public TBasicElement<bool> {
public:
    explicit Surveyor(std::string& log) : TBasicElement(true), m_log(log) {}
    int compare(const Element& other) const override {
        m_log += other.key() + ";";
        m_match = !m_match;
        return m_match ? 0 : 1;
    }

private:
    std::string& m_log;
    mutable bool m_match = false;
};

// The indexes are raised at each match, before the scan goes on.
TEST_P(RemoveElementDeletion, ShowsThePatternItemsInThePlaceTheyHaveByThen) {
    const Owner attached = parsed(R"(["a", "b", "c", "d"])");
    std::string log;
    remove(*attached, std::make_unique<Surveyor>(log));
    EXPECT_EQ(log, "[0];[2];[3];[5];");
    log.clear();
    const Owner source = parsed(R"(["a", "b", "c"])");
    const Owner unattached(source->clone());
    remove(*unattached, std::make_unique<Surveyor>(log));
    EXPECT_EQ(log, ";[0];[0];");
}

/// Matches the first item that it is asked about, and writes down what the array holds each time.
class Visitor : public TBasicElement<bool> {
public:
    Visitor(const Element& array, std::string& log)
        : TBasicElement(true), m_array(array), m_log(log) {}
    int compare(const Element&) const override {
        for (const Element* const item : m_array.getArrayValue()) {
            m_log += item->getStringValue().value();
        }
        m_log += ";";
        return m_match++;
    }

private:
    const Element& m_array;
    std::string& m_log;
    mutable int m_match = 0;
};

TEST_P(RemoveElementDeletion, ShowsThePatternAnArrayWithoutWhatIsRemovedByThen) {
    const Owner list = parsed(R"(["a", "b", "c"])");
    std::string log;
    remove(*list, std::make_unique<Visitor>(*list, log));
    EXPECT_EQ(log, "abc;bc;bc;");
}

struct Interruption {
    const char* name;
    int call;  // the comparison that throws
    const char* destroyed;
    const char* items;
};

class RemoveElementInterrupted
    : public testing::TestWithParam<std::tuple<RemoveForm, Interruption>> {
protected:
    /// Removes "x" from ["x", "a", "x", "b"] until the comparison that throws.
    template <class Thrown>
    void interruptWith(const Thrown& thrown) {
        const auto& [form, row] = GetParam();
        const int last = row.call;
        std::string log;
        Array list;
        for (const char* name : {"x", "a", "x", "b"}) {
            list.push_back(new Mortal(name, log));
        }
        const Owner pattern = std::make_unique<Scripted>([&thrown, last](int call) {
            if (call == last) {
                throw thrown;
            }
            return call % 2 == 1 ? 0 : 1;
        });
        EXPECT_THROW(form.remove(list, pattern, "", ""), Thrown);
        EXPECT_EQ(log, row.destroyed);
        EXPECT_EQ(itemsOf(list), row.items);
        unsigned long place = 0;
        for (const Element* const item : list) {
            EXPECT_EQ(&list.at(place), item);
            ++place;
        }
        EXPECT_EQ(Element::createNull(&list)->index(), place);
    }
};

TEST_P(RemoveElementInterrupted, HasRemovedWhatMatchedBeforeAndLeavesTheArrayWhole) {
    interruptWith(std::bad_alloc());
    interruptWith(1);
    interruptWith(zo::RuntimeError("no number"));
    interruptWith(zo::Exception("of the core"));
}

INSTANTIATE_TEST_SUITE_P(
    Element, RemoveElementInterrupted,
    testing::Combine(
        testing::ValuesIn(k_removeForms),
        testing::Values(Interruption{"AtTheFirst", 1, "",
                                     "  etString \"x\" key=\"[0]\" index=0 parent=right\n"
                                     "  etString \"a\" key=\"[1]\" index=1 parent=right\n"
                                     "  etString \"x\" key=\"[2]\" index=2 parent=right\n"
                                     "  etString \"b\" key=\"[3]\" index=3 parent=right\n"},
                        Interruption{"BehindAMatch", 2, "~x;",
                                     "  etString \"a\" key=\"[2]\" index=2 parent=right\n"
                                     "  etString \"x\" key=\"[3]\" index=3 parent=right\n"
                                     "  etString \"b\" key=\"[4]\" index=4 parent=right\n"},
                        Interruption{"AtTheSecondMatch", 3, "~x;",
                                     "  etString \"a\" key=\"[2]\" index=2 parent=right\n"
                                     "  etString \"x\" key=\"[3]\" index=3 parent=right\n"
                                     "  etString \"b\" key=\"[4]\" index=4 parent=right\n"},
                        Interruption{"AtTheLast", 4, "~x;~x;",
                                     "  etString \"a\" key=\"[2]\" index=2 parent=right\n"
                                     "  etString \"b\" key=\"[5]\" index=5 parent=right\n"})),
    [](const auto& row) {
        return std::string(std::get<0>(row.param).name) + std::get<1>(row.param).name;
    });

}  // namespace
