#include "rows/Row.h"

#include <stdexcept>

void countEach(benchmark::State& state, std::size_t count) {
    using benchmark::Counter;
    state.counters["each"] =
        Counter(static_cast<double>(count), Counter::kIsIterationInvariantRate | Counter::kInvert);
}

void require(bool condition, const std::string& what) {
    if (!condition) {
        throw std::runtime_error(what);
    }
}
