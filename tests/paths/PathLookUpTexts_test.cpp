#include <zo/Tessera/Path.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/ElementGetter.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/PathParser.h>

#include "support/parsed.h"

using namespace zo::Tessera;

// A look-up follows plain paths without a parser. It must find what a parser with a getter finds,
// and fail as that does.

namespace {

/// What a look-up answers: where the element is, or what was thrown.
template <class LookUp>
std::string answer(const LookUp& lookUp) {
    try {
        const Element* const found = lookUp();
        return found ? "at \"" + found->path(nullptr) + '"' : "nothing";
    } catch (const ParseException& error) {
        return error.what();
    }
}

void expectSameAnswer(const Path& path, const Element& root) {
    const std::string parsed = answer([&] {
        ElementGetter getter(path, root, false);
        PathParser(getter).parse(path);
        return getter.pathExists() ? getter.currentElement() : nullptr;
    });
    ASSERT_EQ(answer([&] { return Path::tryGetElement(path, root); }), parsed)
        << testing::PrintToString(path);
}

void expectSameAnswers(const std::string& start, size_t length, const Element& root) {
    expectSameAnswer(start, root);
    if (length == 0 || testing::Test::HasFatalFailure()) {
        return;
    }
    for (const char c : {'a', '0', '1', '.', '[', ']', '*', '\\', '\xFF', '\0'}) {
        expectSameAnswers(start + c, length - 1, root);
    }
}

class PathLookUpTexts : public testing::Test {
protected:
    PathLookUpTexts()
        : m_root(parsed(R"({"a":[{"a":[[0]],"0":{}}],"0":{"a":{"a":1},".":[0]},"[":{"]":[0]},)"
                        R"("*":{"\\":[0]},"aa":[0,[0,1]]})")) {
        Object& object = m_root->getObjectValue();
        Element::createArray(object.tryAt("0"), std::string(1, '\0'));
        Element::createArray(object.tryAt("0"), "\xFF");
    }

    const std::unique_ptr<Element> m_root;
};

TEST_F(PathLookUpTexts, AreFollowedAsTheParserReadsThem) {
    expectSameAnswers("", 4, *m_root);
}

TEST_F(PathLookUpTexts, AreFollowedBehindSegments) {
    for (const char* const start : {"a[0]", "a[0].a[0]", "0.a", "0\\.", "\\[.\\]", "aa[1]"}) {
        expectSameAnswers(start, 3, *m_root);
    }
}

TEST_F(PathLookUpTexts, MayHaveKeysOfAnyLength) {
    for (size_t length = 1; length < 140; ++length) {
        const std::string key(length, 'k');
        Element::createNull(m_root.get(), key);
        Element::createArray(m_root.get(), key + '.');
        for (const std::string& text : {key, key + "\\.", key + "\\.[0]", key + "\\.]", key + '\\',
                                        "\\" + key, "\\" + key + ".a", key + "\\\xFF"}) {
            expectSameAnswer(text, *m_root);
        }
    }
}

TEST_F(PathLookUpTexts, MayHaveIndexesOfAnyLength) {
    for (size_t zeros = 0; zeros < 70; ++zeros) {
        for (const char* const digits :
             {"", "0", "1", "99999999999999999", "9223372036854775808", "9999999999999999999",
              "18446744073709551615", "18446744073709551616", "100000000000000000000"}) {
            const std::string index = std::string(zeros, '0') + digits;
            for (const std::string& text :
                 {"aa[" + index + ']', "aa[" + index + "][0]", "aa[" + index + "]]",
                  "aa[" + index + 'a', "aa[" + index}) {
                expectSameAnswer(text, *m_root);
            }
        }
    }
}

}  // namespace
