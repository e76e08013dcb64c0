#include <zo/Tessera/Dom.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Generator.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "support/HostileLocale.h"
#include "support/dump.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

// The same numbers in every run and on every platform.
class Sequence {
public:
    explicit Sequence(uint32_t seed) : m_state(seed) {}
    uint32_t below(uint32_t bound) {
        m_state = m_state * 1664525U + 1013904223U;
        return static_cast<uint32_t>((static_cast<uint64_t>(m_state) * bound) >> 32U);
    }

private:
    uint32_t m_state;
};

// A text as it stands between quotes in JSON, and the bytes that it means.
struct Piece {
    const char* json;
    const char* bytes;
};

const Piece k_pieces[] = {
    {"word", "word"},
    {" ", " "},
    {"\\\"", "\""},
    {"\\\\", "\\"},
    {"\\/", "/"},
    {"/", "/"},
    {"\\n", "\n"},
    {"\\t", "\t"},
    {"\\b\\f\\r", "\b\f\r"},
    {"\\u0001", "\x01"},
    {"\xc3\xa4\xc3\x9f", "\xc3\xa4\xc3\x9f"},
    {"\\u00e9", "\xc3\xa9"},
    {"\\u20AC", "\xe2\x82\xac"},
    {"\\ud83d\\ude00", "\xf0\x9f\x98\x80"},
    {"\xf0\x9f\x98\x80", "\xf0\x9f\x98\x80"},
    {"{[,:]}", "{[,:]}"},
};

// A JSON text, and what a reader must find in it, in order.
struct Made {
    std::string json;
    std::vector<std::string> keys;
    std::vector<std::string> numbers;
    std::vector<std::string> strings;
};

Made shortTexts() {
    Sequence sequence(1);
    Made made;
    made.json = "{ \"texts\" : [";
    made.keys.push_back("texts");
    for (int i = 0; i < 3000; ++i) {
        std::string text;
        made.json += i == 0 ? "\"" : " , \"";
        for (uint32_t left = sequence.below(8); left > 0; --left) {
            const Piece& piece = k_pieces[sequence.below(std::size(k_pieces))];
            made.json += piece.json;
            text += piece.bytes;
        }
        made.json += "\"";
        made.strings.push_back(text);
    }
    made.json += "] }";
    return made;
}

Made smallObjects() {
    Sequence sequence(2);
    Made made;
    const auto key = [&](const std::string& name) {
        made.json += "\"" + name + "\":";
        made.keys.push_back(name);
    };
    const auto number = [&](const std::string& text) {
        made.json += text;
        made.numbers.push_back(text);
    };
    made.json = "[";
    for (int i = 0; i < 3000; ++i) {
        made.json += i == 0 ? "{" : ",\n{";
        // Not in alphabetical order, and another order in every second object.
        const bool turned = sequence.below(2) == 1;
        key(turned ? "z" : "id");
        number(std::to_string(i));
        made.json += ",";
        key("name");
        made.json += "\"n" + std::to_string(i) + "\",";
        made.strings.push_back("n" + std::to_string(i));
        key(turned ? "id" : "z");
        made.json += turned ? "null," : "[],";
        key("at." + std::to_string(sequence.below(1000)));
        made.json += "{";
        key("x");
        number("-" + std::to_string(sequence.below(1000)));
        made.json += ",";
        key("");
        made.json += "true}}";
    }
    made.json += "]\n";
    return made;
}

Made decimals() {
    Sequence sequence(3);
    Made made;
    made.json = "{\"rows\":[";
    made.keys.push_back("rows");
    const auto digits = [&](uint32_t count) {
        std::string text;
        for (; count > 0; --count) {
            text += static_cast<char>('0' + sequence.below(10));
        }
        return text;
    };
    for (int row = 0; row < 20; ++row) {
        made.json += row == 0 ? "[" : ",[";
        for (int i = 0; i < 1000; ++i) {
            std::string text = sequence.below(2) == 0 ? "-" : "";
            text += static_cast<char>('1' + sequence.below(9));
            text += digits(sequence.below(12)) + "." + digits(1 + sequence.below(20)) + "0";
            if (sequence.below(4) == 0) {
                text += sequence.below(2) == 0 ? "e-0" : "E+";
                text += digits(1);
            }
            made.json += (i == 0 ? "" : ",") + text;
            made.numbers.push_back(text);
        }
        made.json += "]";
    }
    made.json += "]}";
    return made;
}

void collect(const Element& element, Made& found) {
    switch (element.type()) {
        case etNumber:
            found.numbers.push_back(element.getNumberValue().value().toString());
            break;
        case etString:
            found.strings.push_back(element.getStringValue().value());
            break;
        case etArray:
            for (const Element* item : element.getArrayValue()) {
                collect(*item, found);
            }
            break;
        case etObject:
            for (const auto& [key, member] : element.getObjectValue()) {
                found.keys.push_back(key);
                collect(*member, found);
            }
            break;
        default:
            break;
    }
}

void expectFound(const Dom& dom, const Made& made) {
    Made found;
    collect(*dom.root(), found);
    EXPECT_TRUE(found.keys == made.keys);
    EXPECT_TRUE(found.numbers == made.numbers);
    EXPECT_TRUE(found.strings == made.strings);
}

struct Document {
    const char* name;
    Made (*make)();
    const char* beginning;  // of the text that is written
};

class RealDocument : public testing::TestWithParam<Document> {
protected:
    const Made made = GetParam().make();

    static void read(Dom& dom, const std::string& text) {
        std::istringstream in(text);
        in >> dom;
        ASSERT_NE(dom.root(), nullptr);
    }
    static std::string write(const Dom& dom) {
        std::ostringstream out;
        out << dom;
        return out.str();
    }
};

TEST_P(RealDocument, ComesBackFromItsTextUnchanged) {
    Dom first;
    read(first, made.json);
    expectFound(first, made);

    const std::string text = write(first);
    EXPECT_EQ(text.substr(0, std::string(GetParam().beginning).size()), GetParam().beginning);

    Dom second;
    read(second, text);
    expectFound(second, made);
    EXPECT_EQ(second.root()->compare(*first.root()), 0);
    EXPECT_TRUE(second == first);
    EXPECT_TRUE(dump(*second.root()) == dump(*first.root()));
    EXPECT_TRUE(write(second) == text);
}

TEST_P(RealDocument, ComesBackFromOneLineToo) {
    Dom first;
    read(first, made.json);
    Generator generator(nullptr);
    generator.setIndent("");
    const std::string text = generator.encode(first);
    EXPECT_EQ(text.find('\n'), std::string::npos);

    Dom second;
    read(second, text);
    expectFound(second, made);
    EXPECT_EQ(second.root()->compare(*first.root()), 0);
}

TEST_P(RealDocument, IsTheSameInAnyLocale) {
    Dom usual;
    read(usual, made.json);
    const std::string text = write(usual);
    const HostileLocale locale;
    Dom foreign;
    read(foreign, made.json);
    expectFound(foreign, made);
    EXPECT_TRUE(write(foreign) == text);
    EXPECT_EQ(foreign.root()->compare(*usual.root()), 0);
}

TEST_P(RealDocument, IsWrittenAlikeFromACopy) {
    Dom dom;
    read(dom, made.json);
    const Dom copy(dom);
    EXPECT_TRUE(write(copy) == write(dom));
}

INSTANTIATE_TEST_SUITE_P(Generation, RealDocument,
                         testing::Values(Document{"ShortTexts", shortTexts, "{\n\"texts\": [\n\""},
                                         Document{"SmallObjects", smallObjects,
                                                  "[\n{\n\"id\": 0,\n\"name\": \"n0\",\n\"z\": "},
                                         Document{"Decimals", decimals, "{\n\"rows\": [\n[\n"}),
                         k_rowName);

}  // namespace
