// Verifying a table. A load of the same table is what it stands beside: in memory that earlier
// rounds have left, and in memory that is fetched from the operating system, as by a program that
// opens its first table.

#include "TypeFile/TypeFileVerifier.h"
#include "bench/EveryCount.h"
#include "bench/TypeStorage.h"

#include <benchmark/benchmark.h>

namespace {

void verifyEach(benchmark::State& state, bool isAfresh) {
    Bench::TypeStorage& types = Bench::TypeStorage::of(static_cast<unsigned int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        if (isAfresh)
            Bench::startAfresh(state);
        const auto findings = TypeFile::verify(types.storage, types.storage.size(), 0);
        if (TypeFile::hasErrors(findings))
            state.SkipWithError("the table has errors");
    }
}

void Verify(benchmark::State& state) { verifyEach(state, false); }
void OpeningVerify(benchmark::State& state) { verifyEach(state, true); }

BENCHMARK(Verify)->Name("Verify")->Arg(1000)->Arg(100000)->Arg(1000000)->UseRealTime();

const int REGISTERED = Bench::measureEveryCount("Opening/verify", OpeningVerify);

} // namespace
