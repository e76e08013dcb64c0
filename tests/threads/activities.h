#ifndef ZO_TESSERA_TESTS_THREADS_ACTIVITIES_H
#define ZO_TESSERA_TESTS_THREADS_ACTIVITIES_H

#include <cstddef>
#include <string>
#include <vector>

#include <zo/Tessera/Element.h>

/// How often threads do the same: not every round would show a fault.
constexpr std::size_t k_rounds = 20;

/// Something that a thread does with objects of its own, and what comes of it.
struct Activity {
    std::string (*run)();
    const char* result;
};

/// They make use of all parts of the library.
const std::vector<Activity>& activities();

/// JSON text without line breaks.
std::string compact(const zo::Tessera::Element& element);

#endif
