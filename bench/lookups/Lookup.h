#ifndef ZO_TESSERA_BENCH_LOOKUPS_LOOKUP_H
#define ZO_TESSERA_BENCH_LOOKUPS_LOOKUP_H

#include <benchmark/benchmark.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// The key of a member, or the place of an item.
using Segment = std::variant<std::string, std::size_t>;
using Segments = std::vector<Segment>;

/// One library's look-up of a path text in a document of its own making.
class Lookup {
public:
    virtual ~Lookup() = default;

    /// The path in the library's syntax; nothing when it has no text for it.
    virtual std::optional<std::string> pathText(const Segments& segments) const = 0;
    /// Reads the JSON text that the look-ups begin at.
    virtual void prepare(const std::string& document) = 0;
    /// The string value at `path`; nothing when there is none. Looks up as `time` does.
    virtual std::optional<std::string> find(const std::string& path) const = 0;
    /// Looks `path` up once per iteration, parsing it each time. `exists` is for libraries whose
    /// fastest call for a path that is there is not the one for a path that may be missing.
    virtual void time(benchmark::State& state, const std::string& path, bool exists) const = 0;
};

/// The loop of every library, around its own call, which gives a pointer or whether it found one.
template <class LookUp>
void timeEach(benchmark::State& state, const LookUp& lookUp) {
    for ([[maybe_unused]] auto iteration : state) {
        auto found = lookUp();
        benchmark::DoNotOptimize(found);
    }
}

/// The path as a JSON pointer, such as `/list/3/a~1b`.
std::string pointerText(const Segments& segments);

struct Library {
    const char* name;
    std::unique_ptr<Lookup> (*make)();
};

/// The libraries that this program was built with, by name.
std::vector<Library> libraries();

/// Each library's source adds it by a constant of this class.
class KnownLibrary {
public:
    explicit KnownLibrary(Library library);
};

#endif
