// Objects of different threads have nothing in common. Run under ThreadSanitizer, which sees what
// no result shows.

#include <gtest/gtest.h>

#include <exception>
#include <locale>
#include <memory>
#include <mutex>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <zo/Tessera.h>

#include "support/EventLog.h"
#include "support/parsed.h"
#include "threads/activities.h"
#include "threads/resultsOfThreads.h"

using namespace zo::Tessera;

namespace {

std::set<std::string> only(const std::string& result) {
    return {result};
}

/// Calls `step` in a thread of its own and waits for it.
template <class Step>
void elsewhere(const Step& step) {
    std::thread(step).join();
}

std::string doEverything() {
    std::string wrong;
    for (const Activity& activity : activities()) {
        const std::string result = activity.run();
        if (result != activity.result) {
            wrong += result + " instead of " + activity.result + "\n";
        }
    }
    return wrong;
}

constexpr char k_shared[] = R"({"list":[{"n":-5},{"n":2.50},{"n":7}],"text":"x","none":null})";
constexpr char k_readings[] =
    R"({"list":[{"n":-5},{"n":2.50},{"n":7}],"text":"x","none":null} list[1].n )"
    "meta.schema.properties.list.items.properties.n -5 2.5 7 1 x 0 no found 0";

std::string readAll(const Element& root) {
    const Element& list = root.get("list");
    const Element& second = list.get("[1].n");
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << compact(root) << ' ' << second.path(nullptr) << ' ' << second.schemaPath(nullptr) << ' '
        << static_cast<int>(list.get("[0].n")) << ' ' << static_cast<double>(second) << ' '
        << static_cast<unsigned long>(list.get("[2].n")) << ' ' << second.compare(list.get("[0].n"))
        << ' ' << static_cast<const std::string&>(root.at("text")) << ' '
        << root.compare(*std::unique_ptr<Element>(root.clone())) << ' '
        << (root.pathExists("list[3]") ? "yes" : "no") << ' '
        << (root.findElement(*value(7), "n", "list") == &list.at(2) ? "found" : "lost") << ' '
        << (second.root().parent() == nullptr ? 0 : 1);
    return out.str();
}

}  // namespace

// The first test, for a library that nothing has used yet.
TEST(Threads, MayAllBeTheFirstToUseTheLibrary) {
    for (const Activity& activity : activities()) {
        EXPECT_EQ(resultsOfThreads(activity.run), only(activity.result));
    }
}

TEST(Threads, DoEverythingAtOnceWithTreesOfTheirOwn) {
    EXPECT_EQ(resultsOfThreads([] {
                  std::string wrong;
                  for (size_t round = 0; round < k_rounds; ++round) {
                      wrong += doEverything();
                  }
                  return wrong;
              }),
              only(""));
}

TEST(Threads, MakeEditAndDestroyATreeInTurn) {
    EXPECT_EQ(resultsOfThreads([] {
                  std::unique_ptr<Element> tree;
                  std::string text;
                  elsewhere([&tree] { tree = parsed(R"({"a":[1,{"b":2}]})"); });
                  elsewhere([&tree] { tree->tryUpdate("a[1].b", *value(3)); });
                  elsewhere([&tree, &text] {
                      text = compact(*tree);
                      tree.reset();
                  });
                  return text;
              }),
              only(R"({"a":[1,{"b":3}]})"));
}

TEST(Threads, ParseThePiecesOfATextInTurn) {
    EventLog listener;
    CallbackParser parser(&listener);
    elsewhere([&parser] { parser.parse("[1.5,2"); });
    elsewhere([&parser] { parser.parse("7]"); });
    EXPECT_EQ(listener.events, "start_array;number 1.5;number 27;end_array;");
}

TEST(Threads, ReadOneTreeWhoseNumbersHaveBothForms) {
    const std::unique_ptr<const Element> tree = parsed(k_shared);
    EXPECT_EQ(readAll(*tree), k_readings);  // derives what the numbers lacked
    EXPECT_EQ(resultsOfThreads([&tree] {
                  std::set<std::string> readings;
                  for (size_t round = 0; round < k_rounds; ++round) {
                      readings.insert(readAll(*tree));
                  }
                  return readings == only(k_readings) ? "same" : *readings.begin();
              }),
              only("same"));
}

TEST(Threads, ShareATreeUnderALock) {
    const std::unique_ptr<Element> tree = parsed(k_shared);
    std::mutex lock;
    EXPECT_EQ(resultsOfThreads([&tree, &lock] {
                  const std::lock_guard<std::mutex> locked(lock);
                  return readAll(*tree);
              }),
              only(k_readings));
    resultsOfThreads([&tree, &lock] {
        const std::lock_guard<std::mutex> locked(lock);
        tree->tryUpdate("list[*]", *value(1));
        return "";
    });
    EXPECT_EQ(tree->get("list").size(), 3 + k_threads);
}

TEST(Threads, ReadTheirOwnCopiesOfAnExceptionThatOneThrew) {
    std::exception_ptr shared;
    elsewhere([&shared] {
        try {
            parsed(R"({"a":{}})")->get("a").getStringValue();
        } catch (...) {
            shared = std::current_exception();
        }
    });
    EXPECT_EQ(resultsOfThreads([&shared]() -> std::string {
                  try {
                      std::rethrow_exception(shared);
                  } catch (const TypeException<EType>& mismatch) {
                      const std::unique_ptr<const zo::Exception> own(mismatch.clone());
                      return own->what();
                  }
              }),
              only("Json type mismatch! Requestet Json type: etString Got Json type: etObject "
                   "Current element: \"a\""));
}
