#ifndef ZO_TESSERA_BENCH_MADEDOCUMENTS_H
#define ZO_TESSERA_BENCH_MADEDOCUMENTS_H

#include <string>
#include <vector>

struct MadeDocument {
    std::string name;
    std::string text;
};

/// Three documents of the shapes that JSON comes in, the same at every run, each between one and
/// three megabytes long:
///   texts     messages: short texts with escapes and non-ASCII characters
///   objects   a catalogue: many small objects of numbers and nulls
///   decimals  outlines: long arrays of pairs of decimals
std::vector<MadeDocument> madeDocuments();

/// Their names, in their order.
constexpr const char* k_madeDocuments[] = {"texts", "objects", "decimals"};

#endif
