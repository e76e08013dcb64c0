#ifndef ZO_TESSERA_BENCH_LIBRARIES_LIBRARY_H
#define ZO_TESSERA_BENCH_LIBRARIES_LIBRARY_H

#include <string>
#include <vector>

#include "Subject.h"
#include "groups/Groups.h"
#include "rows/Row.h"

/// A library that the program was built with. Each source adds its own by a `KnownLibrary`.
struct Library {
    const char* name;
    /// Reads the text; throws when the library refuses it.
    void (*read)(const std::string& text);
    Rows (*documentRows)(const Subject& subject);
    Rows (*groupRows)(const Groups& groups);
};

/// In the order in which their rows run.
std::vector<Library> libraries();
/// The names of those that were not found when the program was built.
std::vector<std::string> missingLibraries();

class KnownLibrary {
public:
    explicit KnownLibrary(const Library& library);
};

#endif
