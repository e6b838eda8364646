#pragma once

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <algorithm>

namespace Bench {

inline constexpr int TYPE_COUNTS[] = {1000, 10000, 100000, 1000000};

/// Gives free memory back to the operating system, off the clock. What follows finds memory as a
/// program does that has just started, which is when it opens a table.
inline void startAfresh(benchmark::State& state) {
    state.PauseTiming();
    malloc_trim(0);
    state.ResumeTiming();
}

/// Registers a function for each type count. Small tables are taken more often, so that no sample
/// is of less than 100,000 types.
inline int measureEveryCount(const char* name, void (*function)(benchmark::State&)) {
    for (const int count : TYPE_COUNTS)
        benchmark::RegisterBenchmark(name, function)
            ->Arg(count)
            ->Iterations(std::max(100000 / count, 1))
            ->UseRealTime();
    return 0;
}

} // namespace Bench
