#ifndef ZO_TESSERA_TESTS_AGREEMENT_DIFFERENCES_H
#define ZO_TESSERA_TESTS_AGREEMENT_DIFFERENCES_H

#include <string>
#include <vector>

/// A class of texts of which the two libraries may make different things.
struct Difference {
    const char* name;
    bool (*holdsFor)(const std::string& text);
};

/// All of them. Each judges by the look of the text alone, and rather takes in a text too many.
const std::vector<Difference>& differences();

/// The names of the classes that the text belongs to, each followed by a blank.
std::string differencesOf(const std::string& text);

#endif
