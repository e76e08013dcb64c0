#ifndef ZO_TESSERA_BENCH_ROWS_DOCUMENTS_H
#define ZO_TESSERA_BENCH_ROWS_DOCUMENTS_H

// The rows of whole documents: see peers_bench.cpp.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <optional>
#include <string>

#include "Measured.h"
#include "Subject.h"
#include "heapMeter.h"
#include "rows/Row.h"
#include "rows/lookups.h"
#include "rows/numbers.h"
#include "rows/operations.h"

inline void countBytes(benchmark::State& state, const Subject& subject) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(subject.text().size()));
}

inline void countHeap(benchmark::State& state, const Subject& subject, const HeapUse& use) {
    const auto bytes = static_cast<double>(use.bytes);
    const auto elements = static_cast<double>(subject.elements());
    state.counters["heap_bytes"] = bytes;
    state.counters["peak_bytes"] = static_cast<double>(use.peak);
    state.counters["blocks"] = static_cast<double>(use.blocks);
    state.counters["elements"] = elements;
    state.counters["bytes_per_element"] = bytes / elements;
}

template <class Library>
HeapUse heapUseOf(const std::string& text) {
    std::optional<typename Library::Document> document;
    Input<Library> input(text);
    const HeapMeter meter;
    Library::read(document.emplace(), input);
    return meter.use();
}

template <class Library>
void readRow(benchmark::State& state, const Subject& subject) {
    const HeapUse use = heapUseOf<Library>(subject.text());
    measureParts(state, [&] {
        Input<Library> input(subject.text());
        std::optional<typename Library::Document> document;
        const Measured measured(state);
        Library::read(document.emplace(), input);
    });
    countBytes(state, subject);
    countHeap(state, subject, use);
}

template <class Library>
void readDestroyRow(benchmark::State& state, const Subject& subject) {
    measureParts(state, [&] {
        Input<Library> input(subject.text());
        const Measured measured(state);
        typename Library::Document document;
        Library::read(document, input);
    });
    countBytes(state, subject);
}

template <class Library>
void destroyRow(benchmark::State& state, const Subject& subject) {
    measureParts(state, [&] {
        std::optional<typename Library::Document> document;
        load<Library>(document.emplace(), subject.text());
        const Measured measured(state);
        document.reset();
    });
    countBytes(state, subject);
}

template <class Library>
void writeRow(benchmark::State& state, const Subject& subject) {
    const auto& document = loaded<Library>(subject);
    measureWhole(state, [&] { benchmark::DoNotOptimize(Library::write(document)); });
    countBytes(state, subject);
}

template <class Library>
void compactRow(benchmark::State& state, const Subject& subject) {
    const auto& document = loaded<Library>(subject);
    measureWhole(state, [&] { benchmark::DoNotOptimize(Library::writeCompact(document)); });
    countBytes(state, subject);
}

template <class Library>
void roundTripRow(benchmark::State& state, const Subject& subject) {
    measureParts(state, [&] {
        Input<Library> input(subject.text());
        const Measured measured(state);
        if constexpr (k_has<RoundTrip, Library>) {
            benchmark::DoNotOptimize(Library::roundTrip(input));
        } else {
            typename Library::Document document;
            Library::read(document, input);
            benchmark::DoNotOptimize(Library::writeCompact(document));
        }
    });
    countBytes(state, subject);
}

template <class Library>
void copyRow(benchmark::State& state, const Subject& subject) {
    const auto& document = loaded<Library>(subject);
    measureParts(state, [&] {
        std::optional<typename Library::Document> other;
        const Measured measured(state);
        Library::copy(document, other.emplace());
    });
    countBytes(state, subject);
}

template <class Library>
void compareRow(benchmark::State& state, const Subject& subject) {
    const auto& document = loaded<Library>(subject);
    typename Library::Document other;
    Library::copy(document, other);
    require(Library::equal(document, other), "a copy differs");
    measureWhole(state, [&] { benchmark::DoNotOptimize(Library::equal(document, other)); });
    countBytes(state, subject);
}

template <class Library>
void iterateRow(benchmark::State& state, const Subject& subject) {
    const auto& document = loaded<Library>(subject);
    require(Library::totals(document).elements == subject.elements(), "another number of elements");
    measureWhole(state, [&] { benchmark::DoNotOptimize(Library::totals(document)); });
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(subject.elements()));
}

template <class Library>
Rows documentRows(const Subject& subject) {
    Rows rows;
    const auto add = [&](const char* what, void (*run)(benchmark::State&, const Subject&)) {
        rows.push_back({subject.name() + '/' + what + '/' + Library::k_name,
                        benchmark::kMillisecond,
                        [run, &subject](benchmark::State& state) { run(state, subject); }});
    };
    constexpr bool isTree = k_has<Iterate, Library>;
    add("read", readRow<Library>);
    add("read_destroy", readDestroyRow<Library>);
    if constexpr (k_has<Write, Library>) {
        add("write", writeRow<Library>);
    }
    if constexpr (k_has<WriteCompact, Library>) {
        add("compact", compactRow<Library>);
    }
    if constexpr (k_has<WriteCompact, Library> && isTree) {
        add("round_trip", roundTripRow<Library>);
    }
    if constexpr (k_has<Copy, Library>) {
        add("copy", copyRow<Library>);
    }
    if constexpr (k_has<Equal, Library>) {
        add("compare", compareRow<Library>);
    }
    if constexpr (isTree && !k_has<DestroysAtOnce, Library>) {
        add("destroy", destroyRow<Library>);
    }
    if constexpr (isTree) {
        add("iterate", iterateRow<Library>);
    }
    if constexpr (k_has<SumIntegers, Library>) {
        addNumberRows<Library>(rows, subject);
    }
    if constexpr (k_has<Find, Library>) {
        addLookupRows<Library>(rows, subject);
    }
    return rows;
}

#endif
