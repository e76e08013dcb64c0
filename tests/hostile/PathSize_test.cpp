#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <zo/Tessera.h>

#include "hostile/million.h"
#include "support/NumberOf.h"
#include "support/thrown.h"

using namespace zo::Tessera;

// Path texts of a megabyte and more, and what is said about them.

namespace {

using Owner = std::unique_ptr<Element>;

const std::string k_long(k_million, 'k');

TEST(LongPath, OfOneKeyIsCreatedAndFound) {
    const Owner root = object();
    Element& created = root->tryUpdate(k_long, *value(true));
    EXPECT_TRUE(created.path(nullptr) == k_long);
    EXPECT_EQ(&root->get(k_long), &created);
    EXPECT_TRUE(created.schemaPath(nullptr) == "meta.schema.properties." + k_long);
    EXPECT_FALSE(root->pathExists(k_long + "2"));
    EXPECT_TRUE(Path::fromSchemaPath(Path::toSchemaPath(k_long)) == k_long);
}

TEST(LongPath, OfEscapesIsWrittenAndReadBack) {
    const std::string key = repeated(k_million / 5, ".[]*\\");
    const Owner root = object();
    Element* const member = Element::createNull(root.get(), key);
    const Path path = member->path(nullptr);
    EXPECT_TRUE(path == repeated(k_million / 5, "\\.\\[\\]\\*\\\\"));
    EXPECT_EQ(&root->get(path), member);
}

TEST(LongPath, OfManySegmentsIsTurnedIntoASchemaPathAndBack) {
    const std::string path = Path::toSchemaPath(repeated(k_million, "[7]k"));
    EXPECT_TRUE(path == "meta.schema" + repeated(k_million, ".items.properties.k"));
    EXPECT_TRUE(Path::fromSchemaPath(path) == "[*].k" + repeated(k_million - 1, "[*].k"));
}

TEST(LongPath, ThatLeadsNowhereIsReportedWhole) {
    const Owner root = object();
    const Path path = k_long + ".x";
    const std::string text = thrown<PathNotFound>([&] { root->get(path); });
    const std::string start = "Path \"" + path + "\" not found! Key \"" + k_long + "\".";
    EXPECT_TRUE(text.compare(0, start.size(), start) == 0);
}

TEST(LongPath, ThatCannotBeCreatedIsReportedWhole) {
    const Owner root = object();
    const Path path = k_long + "[0]";
    EXPECT_TRUE(thrown<Exception>([&] { root->tryUpdate(path, *value(true)); }) ==
                "Error creating element. Parent: \"\" path: \"" + path + "\"");
}

TEST(LongPath, WithAnErrorBehindItsKeyShowsTheKey) {
    EXPECT_TRUE(thrown<ParseException>([] { object()->get(k_long + "]"); }) ==
                "Parse error at 1,0-1,1000000Unexpected character ']' in path at \"" + k_long +
                    "\" 0,1000000 parser state esObject");
}

TEST(LongIndex, IsUnreadable) {
    const std::string digits(k_million, '7');
    const std::string text = thrown<ParseException>([&] { array()->get("[" + digits + "]"); });
    EXPECT_TRUE(text == "Parse error at 1,1-1,1000001Unreadable index in path at \"" + digits +
                            "\" 1,1000001 parser state esInit");
}

TEST(LongIndex, OfZerosIsRead) {
    const Owner root = array();
    Element* const item = Element::createNull(root.get());
    EXPECT_EQ(&root->get("[" + std::string(k_million, '0') + "]"), item);
}

TEST(ManyUpdates, OfOnePathSetOneElement) {
    const Owner root = object();
    const Path path = "a.b.c";
    const Element* const first = &root->tryUpdate(path, *value(0));
    const Owner number = value(0);
    for (int i = 1; i <= 1'000'000; ++i) {
        number->setNumberValue(numberOf(i));
        root->tryUpdate(path, *number);
    }
    EXPECT_EQ(&root->get(path), first);
    EXPECT_EQ(first->getNumberValue().value().toString(), "1000000");
    EXPECT_EQ(root->get("a.b").size(), 1U);
}

TEST(ManyUpdates, OfNewPathsAreAllKept) {
    const Owner root = object();
    const Owner number = value(7);
    for (size_t i = 0; i < k_million / 10; ++i) {
        root->tryUpdate("a.b" + std::to_string(i), *number);
    }
    EXPECT_EQ(root->get("a").size(), 100000U);
    EXPECT_EQ(root->get("a.b99999").getNumberValue().value().toString(), "7");
}

}  // namespace
