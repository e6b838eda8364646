// Counting what is in a type file. A load of all types is what it stands beside.

#include "bench/TypeStorage.h"
#include "bench/Work.h"

#include <benchmark/benchmark.h>

namespace {

void Statistics(benchmark::State& state) {
    const auto count = static_cast<unsigned int>(state.range(0));
    OVAT::MemoryBlockManager& storage = Bench::TypeStorage::of(count).storage;
    for ([[maybe_unused]] auto _ : state) {
        if (!Bench::countTypes(storage, count))
            state.SkipWithError("the table has errors");
    }
}

BENCHMARK(Statistics)->Arg(1000)->Arg(100000)->Arg(1000000)->UseRealTime();

} // namespace
