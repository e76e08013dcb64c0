#ifndef ZO_TESSERA_BENCH_MEASURED_H
#define ZO_TESSERA_BENCH_MEASURED_H

#include <benchmark/benchmark.h>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_TOGGLE_COLLECT
#endif

/// While it lives, callgrind collects, if it was started with --collect-atstart=no.
class Collected {
public:
    Collected() { CALLGRIND_TOGGLE_COLLECT; }
    ~Collected() { CALLGRIND_TOGGLE_COLLECT; }
    Collected(const Collected&) = delete;
    Collected& operator=(const Collected&) = delete;
};

/// The part of an iteration that counts, of a row whose timer stands still otherwise.
/// Benchmark's own manual times would add to the names of the rows, and tell no processor's time.
class Measured {
public:
    explicit Measured(benchmark::State& state) : m_timer(state) {}

private:
    struct Timer {
        explicit Timer(benchmark::State& state) : m_state(state) { m_state.ResumeTiming(); }
        ~Timer() { m_state.PauseTiming(); }
        Timer(const Timer&) = delete;
        Timer& operator=(const Timer&) = delete;

        benchmark::State& m_state;
    };

    Timer m_timer;
    Collected m_collected;  // begins after the timer does and ends before it
};

/// Runs the iterations of a row in which only what `iteration` has under a `Measured` counts.
template <class Iteration>
void measureParts(benchmark::State& state, const Iteration& iteration) {
    for ([[maybe_unused]] auto each : state) {
        state.PauseTiming();
        iteration();
        state.ResumeTiming();
    }
}

/// Runs the iterations of a row that does the same again and again.
template <class Iteration>
void measureWhole(benchmark::State& state, const Iteration& iteration) {
    for ([[maybe_unused]] auto each : state) {
        const Collected collected;
        iteration();
    }
}

#endif
