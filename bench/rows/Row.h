#ifndef ZO_TESSERA_BENCH_ROWS_ROW_H
#define ZO_TESSERA_BENCH_ROWS_ROW_H

#include <benchmark/benchmark.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

struct Row {
    std::string name;  // GROUP/ROW/LIBRARY
    benchmark::TimeUnit unit;
    std::function<void(benchmark::State&)> run;
    std::function<bool()> applies = nullptr;  // asked before the row is registered, if given
};

using Rows = std::vector<Row>;

/// What every row that depends on a size reports: the seconds that one element, member or item of
/// `count` takes.
void countEach(benchmark::State& state, std::size_t count);

/// What rows say when a library gives another answer than it should: throws `std::runtime_error`.
void require(bool condition, const std::string& what);

#endif
