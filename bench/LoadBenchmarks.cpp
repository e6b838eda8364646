// Loading a whole table, releasing it, and asking a new manager for one type, each beside its
// floor.

#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
#include "bench/TypeStorage.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <optional>

namespace {

using Bench::LoadFloor;
using Bench::TypeStorage;

TypeStorage& storageOf(const benchmark::State& state) {
    return TypeStorage::of(static_cast<unsigned int>(state.range(0)));
}

void Load(benchmark::State& state) {
    TypeStorage& types = storageOf(state);
    for (auto _ : state) {
        std::optional<RTTI::RTTypeManager> manager(std::in_place);
        manager->setupDeserializer(types.storage, 0);
        benchmark::DoNotOptimize(manager->readAllRTTypes());
        state.PauseTiming();
        manager.reset();
        state.ResumeTiming();
    }
}

void LoadFloorTime(benchmark::State& state) {
    TypeStorage& types = storageOf(state);
    LoadFloor floor(types.plan);
    for (auto _ : state) {
        floor.load(types.storage);
        state.PauseTiming();
        floor.tearDown();
        state.ResumeTiming();
    }
}

void Teardown(benchmark::State& state) {
    TypeStorage& types = storageOf(state);
    for (auto _ : state) {
        state.PauseTiming();
        std::optional<RTTI::RTTypeManager> manager(std::in_place);
        manager->setupDeserializer(types.storage, 0);
        manager->readAllRTTypes();
        state.ResumeTiming();
        manager.reset();
    }
}

void TeardownFloor(benchmark::State& state) {
    TypeStorage& types = storageOf(state);
    LoadFloor floor(types.plan);
    for (auto _ : state) {
        state.PauseTiming();
        floor.load(types.storage);
        state.ResumeTiming();
        floor.tearDown();
    }
}

void LazyFirstType(benchmark::State& state) {
    TypeStorage& types = storageOf(state);
    for (auto _ : state) {
        RTTI::RTTypeManager manager;
        manager.setupDeserializer(types.storage, 0);
        benchmark::DoNotOptimize(manager.getRTType(static_cast<unsigned int>(state.range(0) / 2)));
    }
}

/// The address table alone, which a manager reads before anything else.
void LazyFirstTypeFloor(benchmark::State& state) {
    TypeStorage& types = storageOf(state);
    LoadFloor floor(types.plan);
    for (auto _ : state) {
        floor.readAddressTable(types.storage);
        floor.releaseTables();
    }
}

/// Small tables are loaded more often, so that a sample is never less than 100,000 types.
void everyCount(benchmark::internal::Benchmark* benchmark, int count) {
    benchmark->Arg(count)->Iterations(std::max(100000 / count, 1))->UseRealTime();
}

#define MEASURE(function, name)                                                                    \
    BENCHMARK(function)->Name(name)->Apply([](auto* b) { everyCount(b, 1000); });                  \
    BENCHMARK(function)->Name(name)->Apply([](auto* b) { everyCount(b, 10000); });                 \
    BENCHMARK(function)->Name(name)->Apply([](auto* b) { everyCount(b, 100000); });                \
    BENCHMARK(function)->Name(name)->Apply([](auto* b) { everyCount(b, 1000000); })

MEASURE(Load, "Load");
MEASURE(LoadFloorTime, "Load/floor");
MEASURE(Teardown, "Teardown");
MEASURE(TeardownFloor, "Teardown/floor");
MEASURE(LazyFirstType, "LazyFirstType");
MEASURE(LazyFirstTypeFloor, "LazyFirstType/floor");

} // namespace
