// Verifying a table. A load of the same table is what it stands beside.

#include "TypeFile/TypeFileVerifier.h"
#include "bench/TypeStorage.h"

#include <benchmark/benchmark.h>

namespace {

void Verify(benchmark::State& state) {
    Bench::TypeStorage& types = Bench::TypeStorage::of(static_cast<unsigned int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        const auto findings = TypeFile::verify(types.storage, types.storage.size(), 0);
        if (TypeFile::hasErrors(findings))
            state.SkipWithError("the table has errors");
    }
}

BENCHMARK(Verify)->Name("Verify")->Arg(1000)->Arg(100000)->Arg(1000000)->UseRealTime();

} // namespace
