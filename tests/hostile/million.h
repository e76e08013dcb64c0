#ifndef ZO_TESSERA_TESTS_HOSTILE_MILLION_H
#define ZO_TESSERA_TESTS_HOSTILE_MILLION_H

#include <cstddef>
#include <string>

inline constexpr std::size_t k_million = 1'000'000;

/// A number of a million digits.
inline const std::string k_sevens(k_million, '7');

/// The text as often as `count` says.
inline std::string repeated(std::size_t count, const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

#endif
