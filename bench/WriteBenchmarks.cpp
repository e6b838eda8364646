// Writing a table that is loaded, and turning it into JSON and back. A load of the same table is
// what they stand beside.

#include "Inspect/json/TypeJsonReader.h"
#include "Inspect/json/TypeJsonWriter.h"
#include "TypeFile/TypeFileWriter.h"
#include "bench/TypeStorage.h"

#include <benchmark/benchmark.h>

#include <sstream>
#include <string>

namespace {

using namespace RTTI;

using Bench::TypeList;

const TypeList& typesOf(const benchmark::State& state) {
    return Bench::TypeStorage::of(static_cast<unsigned int>(state.range(0))).types();
}

std::string jsonOf(const TypeList& types) {
    std::ostringstream text;
    Inspect::TypeJsonWriter writer(text, Inspect::JsonForm::DOCUMENT, "generated");
    for (unsigned int id = 0; id < types.size(); ++id)
        writer.type(id, *types[id]);
    writer.end();
    return text.str();
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
        benchmark::DoNotOptimize(jsonOf(types).data());
}

void ReadJson(benchmark::State& state) {
    const std::string text = jsonOf(typesOf(state));
    for ([[maybe_unused]] auto _ : state) {
        std::istringstream in(text);
        TypeFile::TypeFileWriter writer;
        Inspect::TypeJsonReader reader(
            [&](unsigned int id, const RTBaseType& type) { writer.add(id, type); },
            [&](std::string_view version) { writer.setVersion(version); });
        reader.readDocument(in);
        benchmark::DoNotOptimize(writer.finish().data());
    }
}

BENCHMARK(Write)->RangeMultiplier(10)->Range(1000, 1000000)->UseRealTime();

// JSON of a million types takes seconds: three samples tell as much as eleven.
BENCHMARK(WriteJson)->RangeMultiplier(10)->Range(1000, 100000)->UseRealTime();
BENCHMARK(WriteJson)->Arg(1000000)->Repetitions(3)->UseRealTime();
BENCHMARK(ReadJson)->RangeMultiplier(10)->Range(1000, 100000)->UseRealTime();
BENCHMARK(ReadJson)->Arg(1000000)->Repetitions(3)->UseRealTime();

} // namespace
