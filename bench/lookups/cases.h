#ifndef ZO_TESSERA_BENCH_LOOKUPS_CASES_H
#define ZO_TESSERA_BENCH_LOOKUPS_CASES_H

#include <optional>
#include <string>
#include <vector>

#include "lookups/Lookup.h"

struct LookupCase {
    std::string name;
    Segments segments;
    std::optional<std::string> value;  // of the string that is there
};

struct LookupDocument {
    std::string name;
    std::string text;
    std::vector<LookupCase> cases;
};

/// The documents, the same at every run, each 8 levels deep along its paths. Objects have 8 or 100
/// members, arrays 10 items, and what is looked for stands in the middle of them.
///   plain    objects; keys such as "order_count" of 5 to 12 bytes
///   escaped  objects; keys such as "order.count/s" of 7 to 14 bytes, with one character to escape
///            in a JSON pointer and one in a path of Tessera
///   indexed  arrays of objects of arrays and so on; plain keys
/// Each has paths of 1, 4 and 8 segments: one that leads to a string ("hit"), one whose last
/// segment is missing and one whose first is. With 1 segment the latter two are the same.
std::vector<LookupDocument> lookupDocuments();

#endif
