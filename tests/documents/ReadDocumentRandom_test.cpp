#include <zo/Tessera/readDocument.h>

#include <array>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "documents/reading.h"

using namespace zo::Tessera;

// Random texts, most of them malformed, in two pieces that end anywhere: what a stream gives is
// what the same text in memory gives.

namespace {

constexpr unsigned k_seed = 20240229;
constexpr int k_textCount = 2000;

// Few, so that what they make goes wrong late.
constexpr std::array k_parts = {"[1,",      "]",    "}",       ",",       ":",      "1",     "-.5e",
                                "true",     "fal",  "\"a\"",   "\"",      "\\",     "\\u00", "/*",
                                "*/",       "/**/", "//c\n",   "\r\n",    "\n",     " ",     "\v",
                                "\xE2\x82", "\xAC", "\"b\":2", "\\ud83d", "\\ude00"};

class RandomTexts {
public:
    std::string text() {
        constexpr std::array beginnings = {"", "[", "[1 ", "{\"k\":", "{\"k\":1"};
        std::string text = beginnings[below(beginnings.size())];
        for (size_t count = 1 + below(10); count > 0; --count) {
            text += k_parts[below(k_parts.size())];
        }
        return text;
    }

    ReadOptions options() {
        ReadOptions options;
        options.refuseComments = below(4) == 0;
        options.refuseDuplicateKeys = below(2) == 0;
        options.checkUtf8 = below(2) == 0;
        options.refuseOddBlanks = below(2) == 0;
        options.greatestDepth = below(2) == 0 ? ReadOptions::k_anyDepth : below(4);
        return options;
    }

    size_t below(size_t bound) { return m_engine() % bound; }

private:
    std::mt19937 m_engine{k_seed};
};

TEST(RandomTextOfADocument, IsReadAlikeWhateverThePieces) {
    RandomTexts random;
    for (int i = 0; i < k_textCount; ++i) {
        const std::string text = random.text();
        const ReadOptions options = random.options();
        const size_t inFirstPiece = random.below(text.size() + 1);
        const std::string whole = std::string(k_pieceLength - inFirstPiece, ' ') + text;
        EXPECT_EQ(fromStream(whole, options), fromMemory(whole, options))
            << text << ", " << inFirstPiece << " bytes of it in the first piece, seed " << k_seed;
    }
}

}  // namespace
