// Comparing two tables that are loaded. Loads of both are what it stands beside.

#include "bench/TypeStorage.h"
#include "bench/Work.h"

#include <benchmark/benchmark.h>

namespace {

/// A table beside one that has a package of types more at its end, so that ids alone do not tell.
void Diff(benchmark::State& state) {
    constexpr unsigned int PACKAGE = 100;
    const auto count = static_cast<unsigned int>(state.range(0));
    const auto a = Bench::tableOf(Bench::TypeStorage::of(count).types());
    const auto b = Bench::tableOf(Bench::TypeStorage::of(count + PACKAGE).types());
    for ([[maybe_unused]] auto _ : state) {
        if (!Bench::differ(a, b, PACKAGE))
            state.SkipWithError("the tables differ in other ways");
    }
}

BENCHMARK(Diff)->Name("Diff")->Arg(1000)->Arg(100000)->Arg(1000000)->UseRealTime();

} // namespace
