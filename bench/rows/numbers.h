#ifndef ZO_TESSERA_BENCH_ROWS_NUMBERS_H
#define ZO_TESSERA_BENCH_ROWS_NUMBERS_H

// The rows of reading numbers: those of a document, gathered in one array, so that what is read
// anew before each first time is not much more than what is measured.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "Measured.h"
#include "Subject.h"
#include "rows/Row.h"
#include "rows/operations.h"

inline std::size_t countOf(const std::string& numbers) {
    return static_cast<std::size_t>(std::count(numbers.begin(), numbers.end(), ',')) + 1;
}

template <class Library, class Sum>
void firstNumbersRow(benchmark::State& state, const std::string& numbers, const Sum& sum) {
    measureParts(state, [&] {
        typename Library::Document document;
        load<Library>(document, numbers);
        const Measured measured(state);
        benchmark::DoNotOptimize(sum(document));
    });
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(countOf(numbers)));
}

template <class Library, class Sum>
void numbersAgainRow(benchmark::State& state, const std::string& numbers, const Sum& sum) {
    typename Library::Document document;
    load<Library>(document, numbers);
    benchmark::DoNotOptimize(sum(document));
    measureWhole(state, [&] { benchmark::DoNotOptimize(sum(document)); });
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(countOf(numbers)));
}

/// `what` is "integers" or "doubles", `suffix` what follows "first" and "again". A document with
/// few numbers of the kind has no rows of it: they would measure the clock.
template <class Library, class Sum>
void addNumberRows(Rows& rows, const Subject& subject, NumberKind kind, const std::string& what,
                   const std::string& suffix, Sum sum) {
    constexpr std::size_t fewest = 1000;
    const auto applies = [&subject, kind] { return countOf(subject.numbers(kind)) >= fewest; };
    const std::string start = subject.name() + '/' + what;
    const std::string end = suffix + '/' + Library::k_name;
    rows.push_back({start + "_first" + end, benchmark::kMicrosecond,
                    [&subject, kind, sum](benchmark::State& state) {
                        firstNumbersRow<Library>(state, subject.numbers(kind), sum);
                    },
                    applies});
    rows.push_back({start + "_again" + end, benchmark::kMicrosecond,
                    [&subject, kind, sum](benchmark::State& state) {
                        numbersAgainRow<Library>(state, subject.numbers(kind), sum);
                    },
                    applies});
}

template <class Library>
void addNumberRows(Rows& rows, const Subject& subject) {
    addNumberRows<Library>(rows, subject, NumberKind::integers, "integers", "",
                           Library::sumIntegers);
    addNumberRows<Library>(rows, subject, NumberKind::doubles, "doubles", "", Library::sumDoubles);
}

#endif
