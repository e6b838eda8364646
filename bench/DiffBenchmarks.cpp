// Comparing two tables that are loaded. Loads of both are what it stands beside.

#include "Inspect/diff/TypeDiff.h"
#include "RTTI/RTTypeManager.h"
#include "bench/TypeStorage.h"

#include <benchmark/benchmark.h>

namespace {

/// The types of a table, loaded.
struct Loaded {
    explicit Loaded(unsigned int typeCount) : count(typeCount) {
        manager.setupDeserializer(Bench::TypeStorage::of(count).storage, 0);
        manager.readAllRTTypes();
    }
    Inspect::TypeTable table() {
        return {count, [this](unsigned int id) { return manager.getRTType(id); }};
    }
    unsigned int count;
    RTTI::RTTypeManager manager;
};

/// A table beside one that has a package of types more at its end, so that ids alone do not tell.
void Diff(benchmark::State& state) {
    constexpr unsigned int PACKAGE = 100;
    const auto count = static_cast<unsigned int>(state.range(0));
    Loaded a(count), b(count + PACKAGE);
    for ([[maybe_unused]] auto _ : state) {
        const Inspect::TypeDiff diff(a.table(), b.table());
        if (diff.verdict() != Inspect::DiffVerdict::COMPATIBLE || diff.added().size() != PACKAGE)
            state.SkipWithError("the tables differ in other ways");
    }
}

BENCHMARK(Diff)->Name("Diff")->Arg(1000)->Arg(100000)->Arg(1000000)->UseRealTime();

} // namespace
