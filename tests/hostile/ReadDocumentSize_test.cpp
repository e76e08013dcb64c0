#include <zo/Tessera/readDocument.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <streambuf>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/TBasicElement.h>

#include "hostile/DeepDocument.h"

using namespace zo::Tessera;

// Whole documents with single tokens, or blanks, of a size that no document needs. Whatever costs
// the square of it does not come to an end.

namespace {

#ifdef ZO_TESSERA_TESTS_SANITIZED
constexpr size_t k_size = 1'000'000;
#else
constexpr size_t k_size = 20'000'000;
#endif

// Where each of many small ones could cost what stands behind it, or before it.
constexpr size_t k_smallSize = k_size / 10;

std::string longText(std::string_view unit, size_t size = k_size) {
    std::string text;
    text.reserve(size + unit.size());
    while (text.size() < size) {
        text += unit;
    }
    return text;
}

Dom fromStream(const std::string& text, const ReadOptions& options = {}) {
    std::istringstream in(text);
    return readDocument(in, options);
}

/// Whether the document is `[1,2]`, from memory and from a stream.
void expectOneAndTwo(const std::string& text, const ReadOptions& options = {}) {
    for (const bool streamed : {false, true}) {
        const Dom document = streamed ? fromStream(text, options) : readDocument(text, options);
        ASSERT_EQ(document.root()->size(), 2U);
        EXPECT_EQ(document.root()->at(0).getNumberValue().value().toString(), "1");
        EXPECT_EQ(document.root()->at(1).getNumberValue().value().toString(), "2");
    }
}

/// The column at which the text is refused, from memory and from a stream.
size_t refusalColumn(const std::string& text) {
    int columns[2] = {0, 0};
    for (const bool streamed : {false, true}) {
        try {
            streamed ? fromStream(text) : readDocument(text);
        } catch (const ParseException& refusal) {
            columns[streamed ? 1 : 0] = refusal.column();
        }
    }
    EXPECT_EQ(columns[0], columns[1]);
    return static_cast<size_t>(columns[0]);
}

TEST(LongStringOfADocument, IsRead) {
    const std::string string = longText("x");
    EXPECT_TRUE(fromStream("[\"" + string + "\"]").root()->at(0).getStringValue().value() ==
                string);
    EXPECT_TRUE(readDocument("\"" + string + '"').root()->getStringValue().value() == string);
}

TEST(LongStringOfADocument, IsReadOfEscapesAndCharacters) {
    ReadOptions options;
    options.checkUtf8 = true;
    const Dom document = fromStream("\"" + longText("\\u20ac\xE2\x82\xAC") + '"', options);
    const std::string& read = document.root()->getStringValue().value();
    EXPECT_TRUE(read == longText("\xE2\x82\xAC\xE2\x82\xAC").substr(0, read.size()));
    EXPECT_EQ(read.size(), (k_size + 8) / 9 * 6);
}

TEST(LongStringOfADocument, IsRefusedWhereItBreaks) {
    EXPECT_EQ(refusalColumn('"' + longText("x")), k_size + 2);
    EXPECT_EQ(refusalColumn('"' + longText("x") + "\v\""), k_size + 2);
    EXPECT_EQ(refusalColumn('"' + longText("x") + "\"x"), k_size + 3);
}

TEST(LongKeyOfADocument, IsRead) {
    const std::string key = longText("k");
    const Dom document = fromStream("{\"" + key + "\":1,\"" + key + "2\":2}");
    EXPECT_TRUE(document.root()->at(key).key() == key);
    EXPECT_EQ(document.root()->size(), 2U);
}

TEST(LongNumberOfADocument, IsRead) {
    const std::string digits = longText("7");
    EXPECT_TRUE(fromStream(digits).root()->getNumberValue().value().toString() == digits);
    EXPECT_EQ(refusalColumn(digits + "."), k_size + 2);
}

TEST(LongCommentOfADocument, IsSkipped) {
    for (const char* const unit : {"x", "*", "/", "* /", "\v", "\f\v", "\r", "\"", "*\v"}) {
        expectOneAndTwo("[1,/* " + longText(unit, k_smallSize) + " */2]");
    }
    for (const char* const unit : {"x", "/", "*/", "\v", "\f\v", "\""}) {
        expectOneAndTwo("[1,//" + longText(unit, k_smallSize) + "\n2]");
    }
    expectOneAndTwo("/*" + longText("\v") + "*/[1,2]//" + longText("x"));
}

TEST(LongCommentOfADocument, IsRefusedWhereItEndsTheText) {
    EXPECT_EQ(refusalColumn("[1] /*" + longText("\v", k_smallSize)), k_smallSize + 7);
    EXPECT_EQ(refusalColumn("/*" + longText("x")), k_size + 3);
}

TEST(ManyCommentsOfADocument, AreSkipped) {
    for (const char* const unit : {"/**/", "/*\v*/", "//\f\n", "/*\v\f*///\v\n", "//\n/*\v*/ "}) {
        expectOneAndTwo("[1," + longText(unit, k_smallSize) + "2]//\v");
    }
}

TEST(ManyOddBlanksOfADocument, AreSkipped) {
    ReadOptions options;
    options.refuseOddBlanks = false;
    expectOneAndTwo(longText("\v", k_smallSize) + "[1," + longText("\f \v", k_smallSize) + "2]",
                    options);
}

TEST(ManyBlanksOfADocument, AreSkipped) {
    for (const char* const unit : {" ", "\n", "\r\n", "\t \r"}) {
        expectOneAndTwo(longText(unit, k_smallSize) + "[1," + longText(unit, k_smallSize) + "2]" +
                        longText(unit, k_smallSize));
    }
    expectOneAndTwo("[1," + longText(" ") + "2]");
}

/// Notes where its readers want the text.
class Places : public std::streambuf {
public:
    explicit Places(const std::string& text) : m_text(text) {}

    std::set<const char*> places;

protected:
    std::streamsize xsgetn(char* to, std::streamsize count) override {
        places.insert(to);
        const size_t length = m_text.copy(to, static_cast<size_t>(count), m_read);
        m_read += length;
        return static_cast<std::streamsize>(length);
    }

private:
    const std::string& m_text;
    size_t m_read = 0;
};

// The tokeniser starts a token again whenever a piece ends within it.
TEST(LongStringOfADocument, IsGatheredBeforeItIsParsed) {
    const std::string text = '"' + longText("x") + '"';
    Places buffer(text);
    std::istream in(&buffer);
    EXPECT_EQ(readDocument(in).root()->getStringValue().value().size(), k_size);
    EXPECT_GE(buffer.places.size(), k_size / 65536 / 4);
}

TEST(ManyBlanksOfADocument, AreNotGathered) {
    const std::string text = "[1," + longText(" ") + "2]" + longText("\n");
    Places buffer(text);
    std::istream in(&buffer);
    EXPECT_EQ(readDocument(in).root()->size(), 2U);
    EXPECT_LE(buffer.places.size(), 2U);
}

TEST(ManyTokensOfADocument, AreNotGathered) {
    const std::string text = "[1" + longText(",\"a\",[0]") + "]";
    Places buffer(text);
    std::istream in(&buffer);
    EXPECT_EQ(readDocument(in).root()->size(), 1 + (text.size() - 3) / 4);
    EXPECT_LE(buffer.places.size(), 10U);
}

TEST(ManyKeysOfADocument, AreToldApart) {
    std::string text = "{\"a\":0";
    size_t count = 0;
    while (text.size() < k_size) {
        text += ",\"" + std::to_string(count++) + "\":{}";
    }
    ReadOptions options;
    options.refuseDuplicateKeys = true;
    EXPECT_EQ(fromStream(text + '}', options).root()->size(), count + 1);
    EXPECT_THROW(fromStream(text + ",\"a\":1}", options), ParseException);
}

TEST(ManyKeysOfADocument, OfOneNameReplaceEachOther) {
    const Dom document = fromStream("{\"a\":0" + longText(",\"b\":[{}]") + ",\"c\":2}");
    EXPECT_EQ(document.root()->size(), 3U);
    EXPECT_EQ(document.root()->at("b").at(0).parent(), &document.root()->at("b"));
}

}  // namespace
