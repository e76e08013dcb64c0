#ifndef ZO_TESSERA_BENCH_GROUPS_PATHDOCUMENTS_H
#define ZO_TESSERA_BENCH_GROUPS_PATHDOCUMENTS_H

#include <list>
#include <string>
#include <vector>

#include "Subject.h"
#include "paths.h"

struct PathCase {
    std::string row;
    std::vector<LookupPath> paths;  // a single one
};

struct PathDocument {
    Subject subject;
    std::vector<PathCase> cases;
};

/// The documents of looking up one path, the same at every run, each 8 levels deep along its paths.
/// Objects have 8 or 100 members, arrays 10 items, and what is looked for stands in the middle of
/// them.
///   paths:plain:N    objects; keys such as "order_count" of 5 to 12 bytes
///   paths:escaped:N  objects; keys such as "order.count/s" of 7 to 14 bytes, with one character to
///                    escape in a JSON pointer and one in a path of Tessera
///   paths:indexed:N  arrays of objects of arrays and so on; plain keys
/// Each has paths of 1, 4 and 8 segments: one that leads to a string ("hit:1"), one whose last
/// segment is missing and one whose first is. With 1 segment the latter two are the same.
std::list<PathDocument> pathDocuments();

#endif
