// How fast one element is looked up by a path text, here and in other libraries, and how fast the
// items of an array are searched.
//
//     lookup_bench [--benchmark_...]
//
// The libraries are those of lookups/ that were found when this program was built. The rows:
//   members:{8,100}/{plain,escaped,indexed}/segments:{1,4,8}/{hit,last_missing,first_missing}/NAME
//           one look-up in the document of lookups/cases.h by the library NAME. The text is parsed
//           each time, and kept as the type of string that the library takes. A library whose paths
//           have no escapes has no row of "escaped".
//   removeElement/N  from an array of N items, every second of which matches, with the deletion of
//           those. It is linear in N if the RMS is small; what does not fit into the caches costs
//           about twice as much per item.
//   findElement/N  that has to look at all items, as none matches; linear in N
//
// A look-up that gives another answer than the document holds is reported and not timed. One kind
// of row, on a quiet machine:
//
//     taskset -c 1 lookup_bench --benchmark_filter=members:8/plain --benchmark_repetitions=5
//         --benchmark_enable_random_interleaving --benchmark_report_aggregates_only

#include <benchmark/benchmark.h>

#include <cstdint>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <zo/Tessera.h>

#include "lookups/Lookup.h"
#include "lookups/cases.h"

namespace {

/// Registers the rows of one document and returns how many answers were wrong.
int registerLookups(const LookupDocument& document) {
    std::vector<std::pair<Library, std::shared_ptr<Lookup>>> lookups;
    for (const Library& library : libraries()) {
        lookups.emplace_back(library, library.make());
        lookups.back().second->prepare(document.text);
    }
    int wrong = 0;
    for (const LookupCase& row : document.cases) {
        for (const auto& [library, lookup] : lookups) {
            const std::string name = document.name + '/' + row.name + '/' + library.name;
            const std::optional<std::string> path = lookup->pathText(row.segments);
            if (!path) {
                continue;
            }
            if (const auto found = lookup->find(*path); found != row.value) {
                std::cerr << "lookup_bench: " << name << ": " << *path << " gives "
                          << found.value_or("nothing") << '\n';
                ++wrong;
                continue;
            }
            benchmark::RegisterBenchmark(
                name.c_str(), [lookup = lookup, path = *path, exists = row.value.has_value()](
                                  benchmark::State& state) { lookup->time(state, path, exists); });
        }
    }
    return wrong;
}

using namespace zo::Tessera;
using String = TBasicElement<std::string>;

/// Objects with the members "name" and "kind", which is "even" and "odd" by turns.
std::unique_ptr<Array> arrayOf(std::int64_t count) {
    auto array = std::make_unique<Array>();
    for (std::int64_t i = 0; i < count; ++i) {
        auto* const item = new Object(array.get());
        new String("item " + std::to_string(i), item, "name");
        new String(i % 2 == 0 ? "even" : "odd", item, "kind");
    }
    return array;
}

void removeElement(benchmark::State& state) {
    const String pattern("even");
    const Path keyPath = "kind";
    const auto count = static_cast<size_t>(state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        state.PauseTiming();
        std::unique_ptr<Array> array = arrayOf(state.range(0));
        state.ResumeTiming();
        array->removeElement(pattern, keyPath, Path());
        state.PauseTiming();
        if (array->size() != count / 2) {
            state.SkipWithError("not every second item is removed");
        }
        array.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void findElement(benchmark::State& state) {
    const std::unique_ptr<const Array> array = arrayOf(state.range(0));
    const String pattern("none");
    const Path keyPath = "kind";
    for ([[maybe_unused]] auto iteration : state) {
        if (array->findElement(pattern, keyPath, Path())) {
            state.SkipWithError("an item matches that should not");
        }
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(removeElement)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(findElement)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    try {
        int wrong = 0;
        for (const LookupDocument& document : lookupDocuments()) {
            wrong += registerLookups(document);
        }
        benchmark::RunSpecifiedBenchmarks();
        return wrong == 0 ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "lookup_bench: " << error.what() << '\n';
        return 1;
    }
}
