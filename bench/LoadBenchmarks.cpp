// Loading a whole table, releasing it, and asking a new manager for one type, each beside its
// floor.

#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/RecordSearch.h"
#include "TypeFile/TypeFileVerifier.h"
#include "bench/EveryCount.h"
#include "bench/TypeStorage.h"

#include <benchmark/benchmark.h>

#include <optional>

namespace {

using Bench::LoadFloor;
using Bench::TypeStorage;

TypeStorage& storageOf(const benchmark::State& state) {
    return TypeStorage::of(static_cast<unsigned int>(state.range(0)));
}

void loadEach(benchmark::State& state, bool isAfresh) {
    TypeStorage& types = storageOf(state);
    for ([[maybe_unused]] auto _ : state) {
        if (isAfresh)
            Bench::startAfresh(state);
        std::optional<RTTI::RTTypeManager> manager(std::in_place);
        manager->setupDeserializer(types.storage, 0);
        benchmark::DoNotOptimize(manager->readAllRTTypes());
        state.PauseTiming();
        manager.reset();
        state.ResumeTiming();
    }
}

void Load(benchmark::State& state) { loadEach(state, false); }
void OpeningLoad(benchmark::State& state) { loadEach(state, true); }

void LoadFloorTime(benchmark::State& state) {
    TypeStorage& types = storageOf(state);
    LoadFloor floor(types.plan);
    for ([[maybe_unused]] auto _ : state) {
        floor.load(types.storage);
        state.PauseTiming();
        floor.tearDown();
        state.ResumeTiming();
    }
}

void Teardown(benchmark::State& state) {
    TypeStorage& types = storageOf(state);
    for ([[maybe_unused]] auto _ : state) {
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
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        floor.load(types.storage);
        state.ResumeTiming();
        floor.tearDown();
    }
}

void LazyFirstType(benchmark::State& state) {
    TypeStorage& types = storageOf(state);
    for ([[maybe_unused]] auto _ : state) {
        Bench::startAfresh(state);
        RTTI::RTTypeManager manager;
        manager.setupDeserializer(types.storage, 0);
        benchmark::DoNotOptimize(manager.getRTType(static_cast<unsigned int>(state.range(0) / 2)));
    }
}

/// A type in the middle, verified with what it leads to before it is loaded.
void OneVerifiedType(benchmark::State& state) {
    TypeStorage& types = storageOf(state);
    const auto id = static_cast<unsigned int>(state.range(0) / 2);
    for ([[maybe_unused]] auto _ : state) {
        Bench::startAfresh(state);
        TypeFile::TypeVerifier verifier(types.storage, types.storage.size(), 0);
        if (TypeFile::hasErrors(verifier.verify({id})))
            state.SkipWithError("the type has errors");
        RTTI::RTTypeManager manager;
        manager.setupDeserializer(types.storage, 0);
        benchmark::DoNotOptimize(manager.getRTType(id));
    }
}

void FindReferences(benchmark::State& state) {
    TypeStorage& types = storageOf(state);
    const auto id = static_cast<unsigned int>(state.range(0) / 2);
    for ([[maybe_unused]] auto _ : state) {
        Bench::startAfresh(state);
        const TypeFile::RecordSearch records(types.storage, types.storage.size(), 0);
        if (records.referringTo(id).empty())
            state.SkipWithError("nothing refers to the type");
    }
}

/// The address table alone, which a manager reads before anything else.
void LazyFirstTypeFloor(benchmark::State& state) {
    TypeStorage& types = storageOf(state);
    LoadFloor floor(types.plan);
    for ([[maybe_unused]] auto _ : state) {
        Bench::startAfresh(state);
        floor.readAddressTable(types.storage);
        floor.releaseTables();
    }
}

const int REGISTERED[] = {
    Bench::measureEveryCount("Load", Load),
    Bench::measureEveryCount("Load/floor", LoadFloorTime),
    Bench::measureEveryCount("Opening/load", OpeningLoad),
    Bench::measureEveryCount("Teardown", Teardown),
    Bench::measureEveryCount("Teardown/floor", TeardownFloor),
    Bench::measureEveryCount("LazyFirstType", LazyFirstType),
    Bench::measureEveryCount("LazyFirstType/floor", LazyFirstTypeFloor),
    Bench::measureEveryCount("LazyFirstType/verified", OneVerifiedType),
    Bench::measureEveryCount("FindReferences", FindReferences),
};

} // namespace
