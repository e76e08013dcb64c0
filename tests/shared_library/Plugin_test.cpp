// An application and its plug-ins are built with hidden symbols and share one library: what one of
// them throws, each of the others must know.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "shared_library/exceptions.h"
#include "support/EventLog.h"

using namespace zo::Tessera;

namespace {

using Library = std::unique_ptr<void, int (*)(void*)>;

class Plugin : public testing::Test {
protected:
    Plugin() : m_library(dlopen(TESSERA_TEST_PLUGIN, RTLD_NOW | RTLD_LOCAL), &dlclose) {
        void* const function = m_library ? dlsym(m_library.get(), "edgePlugin") : nullptr;
        if (function == nullptr) {
            throw std::runtime_error(dlerror());
        }
        m_plugin = reinterpret_cast<const EdgePlugin* (*)()>(function)();
    }

    const EdgePlugin& plugin() const { return *m_plugin; }

    /// Calls `check` with each exception as the program and as the plug-in know it.
    template <class Check>
    void forEachException(const Check& check) const {
        const std::vector<EdgeException> ours = edgeExceptions();
        ASSERT_EQ(plugin().exceptions.size(), ours.size());
        for (size_t i = 0; i < ours.size(); ++i) {
            SCOPED_TRACE(ours[i].name);
            check(ours[i], plugin().exceptions[i]);
        }
    }

private:
    Library m_library;
    const EdgePlugin* m_plugin = nullptr;
};

TEST_F(Plugin, SharesEachExceptionClassWithTheProgram) {
    forEachException([](const EdgeException& ours, const EdgeException& theirs) {
        EXPECT_EQ(ours.type, theirs.type);
        EXPECT_NE(ours.arrivesFrom, theirs.arrivesFrom);
    });
}

TEST_F(Plugin, CatchesWhatTheLibraryThrowsByItsOwnClass) {
    forEachException([](const EdgeException& ours, const EdgeException& theirs) {
        EXPECT_TRUE(ours.arrivesFrom(theirs.provoke));
        EXPECT_TRUE(theirs.arrivesFrom(theirs.provoke));
        EXPECT_TRUE(theirs.arrivesFrom(ours.provoke));
    });
}

TEST_F(Plugin, ThrowsWhatTheProgramCatchesByItsOwnClass) {
    forEachException([](const EdgeException& ours, const EdgeException& theirs) {
        EXPECT_TRUE(ours.arrivesFrom(theirs.make));
    });
}

TEST_F(Plugin, CatchesWhatTheProgramThrowsByItsOwnClass) {
    forEachException([](const EdgeException& ours, const EdgeException& theirs) {
        EXPECT_TRUE(theirs.arrivesFrom(ours.make));
    });
}

TEST_F(Plugin, CatchesWhatAListenerOfTheProgramThrowsThroughTheLibrary) {
    forEachException([this](const EdgeException& ours, const EdgeException& theirs) {
        EventLog listener;
        listener.atEvent = [&ours] {
            ours.make();
            return 1;
        };
        EXPECT_TRUE(theirs.arrivesFrom([this, &listener] { plugin().parse(listener, "[true]"); }));
        EXPECT_EQ(listener.events, "start_array;");
    });
}

TEST_F(Plugin, DoesNotTakeOneExceptionClassForAnother) {
    forEachException([this](const EdgeException& ours, const EdgeException&) {
        for (const EdgeException& theirs : plugin().exceptions) {
            EXPECT_EQ(ours.arrivesFrom(theirs.make), ours.type == theirs.type) << theirs.name;
        }
    });
}

TEST_F(Plugin, KnowsTheKindsOfElementsThatTheProgramMade) {
    EXPECT_EQ(plugin().kindOf(*value()), "null");
    EXPECT_EQ(plugin().kindOf(*value(true)), "boolean");
    EXPECT_EQ(plugin().kindOf(*value(1)), "number");
    EXPECT_EQ(plugin().kindOf(*value("text")), "string");
    EXPECT_EQ(plugin().kindOf(*object()), "object");
    EXPECT_EQ(plugin().kindOf(*array()), "array");
}

TEST_F(Plugin, MakesElementsThatTheProgramKnowsAndDeletes) {
    const std::unique_ptr<Element> made(plugin().makeArray());
    EXPECT_NE(dynamic_cast<Array*>(made.get()), nullptr);
    EXPECT_EQ(dynamic_cast<Object*>(made.get()), nullptr);
}

}  // namespace
