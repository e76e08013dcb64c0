// Another library's opinion: outside of the classes of text in which the two are meant to differ,
// both accept the same texts and read the same from them.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "agreement/RandomTexts.h"
#include "agreement/differences.h"
#include "agreement/readings.h"

namespace {

constexpr std::uint64_t k_documents = 2000;
constexpr int k_damagedOfEach = 5;

/// Compares the readings of texts outside of the classes of differences.
class Comparison {
public:
    void add(const std::string& text) {
        if (!differencesOf(text).empty()) {
            return;
        }
        const std::string reading = ourReading(text);
        ASSERT_EQ(reading, theirReading(text)) << text;
        ++(reading == "refused" ? refused : accepted);
    }

    size_t accepted = 0;
    size_t refused = 0;
};

}  // namespace

TEST(Agreement, IsCompleteOnDocuments) {
    for (std::uint64_t seed = 1; seed <= k_documents; ++seed) {
        SCOPED_TRACE(seed);
        const std::string text = RandomTexts(seed).document();
        ASSERT_EQ(differencesOf(text), "") << text;
        ASSERT_EQ(ourReading(text), theirReading(text)) << text;
        ASSERT_NE(ourReading(text), "refused") << text;
    }
}

TEST(Agreement, HoldsForWhatWeWrite) {
    for (std::uint64_t seed = 1; seed <= k_documents; ++seed) {
        SCOPED_TRACE(seed);
        const std::string text = RandomTexts(seed).document();
        ASSERT_EQ(theirReading(writtenByUs(text)), theirReading(text)) << text;
    }
}

TEST(Agreement, HoldsForWhatTheyWrite) {
    for (std::uint64_t seed = 1; seed <= k_documents; ++seed) {
        SCOPED_TRACE(seed);
        const std::string text = RandomTexts(seed).document();
        ASSERT_EQ(ourReading(writtenByThem(text) + "\n"), ourReading(text)) << text;
    }
}

TEST(Agreement, HoldsForDamagedDocuments) {
    Comparison comparison;
    for (std::uint64_t seed = 1; seed <= k_documents; ++seed) {
        SCOPED_TRACE(seed);
        RandomTexts random(seed);
        const std::string document = random.document();
        for (int count = 0; count < k_damagedOfEach; ++count) {
            comparison.add(random.mutated(document));
        }
        ASSERT_FALSE(HasFatalFailure());
    }
    // Enough of both to mean something.
    EXPECT_GT(comparison.accepted, 1000U);
    EXPECT_GT(comparison.refused, 1000U);
}

TEST(Agreement, HoldsForAllSequencesOfFiveTokens) {
    const std::vector<std::string> tokens = {"[", "]", "{", "}", ",", ":", "\"a\"", "1 "};
    std::vector<std::string> texts = {""};
    for (int length = 1; length <= 5; ++length) {
        std::vector<std::string> longer;
        for (const std::string& text : texts) {
            for (const std::string& token : tokens) {
                longer.push_back(text + token);
            }
        }
        texts.swap(longer);
    }
    Comparison comparison;
    for (const std::string& text : texts) {
        comparison.add(text);
        ASSERT_FALSE(HasFatalFailure());
    }
    EXPECT_EQ(comparison.accepted, 8U);
    EXPECT_EQ(comparison.refused, 20408U);
}
