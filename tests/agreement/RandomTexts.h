#ifndef ZO_TESSERA_TESTS_AGREEMENT_RANDOMTEXTS_H
#define ZO_TESSERA_TESTS_AGREEMENT_RANDOMTEXTS_H

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

/// JSON texts of many shapes. Equal seeds give equal texts.
class RandomTexts {
public:
    explicit RandomTexts(std::uint64_t seed) : m_random(seed) {}

    /// A complete document: nothing in it is read differently by anybody.
    std::string document();
    /// The text with up to four changes: bytes removed, replaced, inserted, copied, the end cut
    /// off.
    std::string mutated(std::string text);

private:
    size_t below(size_t bound) { return static_cast<size_t>(m_random() % bound); }
    const char* oneOf(const std::vector<const char*>& choices);
    std::string blank();
    std::string digits(size_t most);
    std::string number();
    std::string string(size_t mostPieces);
    std::string key(size_t place);
    std::string container(size_t depth);
    std::string value(size_t depth);
    char byte();

    std::mt19937_64 m_random;
};

#endif
