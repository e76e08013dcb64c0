#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include <zo/Tessera.h>

#include "hostile/million.h"
#include "support/parsed.h"
#include "support/thrown.h"

using namespace zo::Tessera;

// Single tokens and containers of a size that no document needs, and any stranger can send.

namespace {

using Owner = std::unique_ptr<Element>;

Owner readFromStream(const std::string& text) {
    std::istringstream in(text);
    Dom dom;
    in >> dom;
    return dom.takeRoot();
}

std::string textOfNumber(const Element& element) {
    return element.getNumberValue().value().toString();
}

std::string generated(const Element& element) {
    Generator generator(nullptr);
    generator.setIndent("");
    return generator.encode(element);
}

TEST(LongString, IsReadFromAStreamAndWritten) {
    const std::string string(10 * k_million, 'x');
    const Owner root = readFromStream("[\"" + string + "\"]");
    EXPECT_TRUE(root->at(0).getStringValue().value() == string);
    EXPECT_TRUE(generated(*root) == "[\"" + string + "\"]");
}

TEST(LongString, OfEscapesIsReadAndWritten) {
    std::string escapes;
    std::string lines;
    for (size_t i = 0; i < k_million; ++i) {
        escapes += "\\u00e9\\n";
        lines += "\xC3\xA9\n";
    }
    const Owner root = readFromStream("[\"" + escapes + "\"]");
    EXPECT_TRUE(root->at(0).getStringValue().value() == lines);
    EXPECT_TRUE(parsed(generated(*root))->compare(*root) == 0);
}

TEST(LongString, ThatBreaksOffIsNotRead) {
    EXPECT_EQ(readFromStream("[\"" + std::string(k_million, 'x'))->size(), 0U);
}

TEST(LongComment, IsSkipped) {
    const std::string comment(k_million, '*');
    EXPECT_EQ(generated(*readFromStream("[1,/*" + comment + "*/2]")), "[1,2]");
    EXPECT_EQ(generated(*readFromStream("[1,//" + comment + "\n2]")), "[1,2]");
}

TEST(LongBlank, IsSkipped) {
    const std::string blank(k_million, ' ');
    const std::string lines(k_million, '\n');
    const Owner root =
        readFromStream(blank + "{" + lines + "\"a\"" + blank + ":" + lines + "1" + blank + "}");
    EXPECT_EQ(generated(*root), "{\"a\":1}");
}

TEST(LongKey, IsReadFoundAndWritten) {
    const std::string key(k_million, 'k');
    const Owner root = readFromStream("{\"" + key + "\":1,\"" + key + "2\":2}");
    EXPECT_EQ(textOfNumber(root->at(key)), "1");
    EXPECT_EQ(textOfNumber(root->at(key + "2")), "2");
    EXPECT_TRUE(root->at(key).path(nullptr) == key);
    EXPECT_TRUE(generated(*root) == "{\"" + key + "\":1,\"" + key + "2\":2}");
    EXPECT_TRUE(thrown<Exception>([&] { root->at(key + "3"); }) ==
                "Object does not contain \"" + key + "3\"");
}

TEST(LongNumber, IsReadAndWrittenDigitByDigit) {
    const std::string digits = std::string(k_million, '7') + ".3";
    const Owner root = readFromStream("[" + digits + "]");
    EXPECT_TRUE(textOfNumber(root->at(0)) == digits);
    EXPECT_TRUE(generated(*root) == "[" + digits + "]");
}

TEST(ManyMembers, AreKeptInOrderAndFound) {
    Object object;
    for (size_t i = k_million; i-- > 0;) {
        Element::createBoolean(i % 2 == 0, &object, std::to_string(i));
    }
    EXPECT_EQ(object.size(), 1000000U);
    size_t misplaced = 0;
    size_t expected = k_million;
    for (const auto& [key, member] : object) {
        --expected;
        misplaced += key == std::to_string(expected) && &object.at(key) == member ? 0 : 1;
    }
    EXPECT_EQ(misplaced, 0U);
    EXPECT_EQ(object.begin()->first, "999999");
    EXPECT_TRUE(object.find("1000000") == object.end());
    object.clear();
    EXPECT_EQ(object.size(), 0U);
    EXPECT_TRUE(object.find("0") == object.end());
}

TEST(ManyMembers, OfOneKeyReplaceEachOther) {
    std::string text = "{\"first\":0";
    for (size_t i = 1; i <= k_million; ++i) {
        text += ",\"k\":" + std::to_string(i);
    }
    const Owner root = readFromStream(text + ",\"last\":0}");
    EXPECT_EQ(generated(*root), "{\"first\":0,\"k\":1000000,\"last\":0}");
}

TEST(ManyItems, AreRemovedOneInTwo) {
    std::string text = "[0";
    for (size_t i = 1; i < k_million; ++i) {
        text += i % 2 == 0 ? ",0" : ",1";
    }
    const Owner root = readFromStream(text + "]");
    root->removeElement(*value(1), "", "");
    EXPECT_EQ(root->size(), 500000U);
    EXPECT_EQ(root->findElement(*value(1), "", ""), nullptr);
    EXPECT_EQ(textOfNumber(root->at(499999)), "0");
    // Each removal before an item adds one to its stored place.
    EXPECT_EQ(root->at(0).index(), 0U);
    EXPECT_EQ(root->at(1).index(), 3U);
    EXPECT_EQ(root->at(499999).index(), 1499997U);
}

}  // namespace
