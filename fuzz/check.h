#ifndef ZO_TESSERA_FUZZ_CHECK_H
#define ZO_TESSERA_FUZZ_CHECK_H

#include <cstdio>
#include <cstdlib>
#include <string>

/// Ends the run with a crash, which the fuzzer records together with the input, unless `holds`.
inline void check(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "Does not hold: %s\n", what);
        std::abort();
    }
}

/// As `check`, and shows the two texts where they differ.
inline void checkSame(const std::string& left, const std::string& right, const char* what) {
    if (left != right) {
        std::fprintf(stderr, "Not the same: %s\n<<%s>>\n<<%s>>\n", what, left.c_str(),
                     right.c_str());
        std::abort();
    }
}

#endif
