#ifndef ZO_TESSERA_BENCH_GROWTH_H
#define ZO_TESSERA_BENCH_GROWTH_H

// What the rows of growth_bench share.

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <memory>
#include <string>

#include <zo/Tessera.h>

#include "rows/Row.h"

using Owner = std::unique_ptr<zo::Tessera::Element>;
using benchmark::State;

inline std::size_t sizeOf(const State& state) {
    return static_cast<std::size_t>(state.range(0));
}

/// Runs the row's iterations. `prepare` makes what an iteration needs and `work`, which alone is
/// measured, takes it; it is gone before the next one begins.
template <class Prepare, class Work>
void measure(State& state, const Prepare& prepare, const Work& work) {
    for ([[maybe_unused]] auto iteration : state) {
        auto subject = prepare();
        const std::clock_t start = std::clock();
        work(subject);
        const auto ticks = static_cast<double>(std::clock() - start);
        state.SetIterationTime(ticks / CLOCKS_PER_SEC);
    }
    countEach(state, sizeOf(state));
}

std::string repeated(std::size_t count, const std::string& text);
/// The tree of the text.
Owner read(const std::string& text);

void registerRow(const char* name, void (*row)(State&), std::int64_t smaller, std::int64_t larger);
/// The rows of growthOfSearch.cpp.
void registerSearchRows();

#endif
