// Writing a table that is loaded, and turning it into JSON and back. A load of the same table is
// what they stand beside.

#include "TypeFile/TypeFileWriter.h"
#include "bench/TypeStorage.h"
#include "bench/Work.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using namespace RTTI;

using Bench::TypeList;

const TypeList& typesOf(const benchmark::State& state) {
    return Bench::TypeStorage::of(static_cast<unsigned int>(state.range(0))).types();
}

void Write(benchmark::State& state) {
    const TypeList& types = typesOf(state);
    for ([[maybe_unused]] auto _ : state) {
        TypeFile::TypeFileWriter writer;
        for (const RTBaseType* type : types)
            writer.add(*type);
        benchmark::DoNotOptimize(writer.finish().data());
    }
}

void WriteJson(benchmark::State& state) {
    const TypeList& types = typesOf(state);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(Bench::jsonOf(types).data());
}

void ReadJson(benchmark::State& state) {
    const std::string text = Bench::jsonOf(typesOf(state));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(Bench::buildFromJson(text));
}

BENCHMARK(Write)->RangeMultiplier(10)->Range(1000, 1000000)->UseRealTime();

// JSON of a million types takes seconds: three samples tell as much as eleven.
BENCHMARK(WriteJson)->RangeMultiplier(10)->Range(1000, 100000)->UseRealTime();
BENCHMARK(WriteJson)->Arg(1000000)->Repetitions(3)->UseRealTime();
BENCHMARK(ReadJson)->RangeMultiplier(10)->Range(1000, 100000)->UseRealTime();
BENCHMARK(ReadJson)->Arg(1000000)->Repetitions(3)->UseRealTime();

} // namespace
