// A visit of the whole table, and what stands beside asking a new manager for one type.

#include "bench/peers/BtfTypes.h"
#include "bench/peers/VisitBenchmark.h"

namespace {

using namespace Bench;

unsigned int middleOf(const benchmark::State& state) {
    return static_cast<unsigned int>(state.range(0) / 2);
}

void FindById(benchmark::State& state) {
    const auto& encoded = encodedTable<BtfTypes>(static_cast<unsigned int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        startAfresh(state);
        benchmark::DoNotOptimize(BtfTypes(encoded).nameOf(middleOf(state)));
    }
}

void FindByName(benchmark::State& state) {
    const auto& encoded = encodedTable<BtfTypes>(static_cast<unsigned int>(state.range(0)));
    const std::string name = BtfTypes(encoded).nameOf(middleOf(state));
    unsigned int found = 0;
    for ([[maybe_unused]] auto _ : state) {
        startAfresh(state);
        benchmark::DoNotOptimize(found = BtfTypes(encoded).idOf(name.c_str()));
    }
    if (found > middleOf(state))
        state.SkipWithError("no type of that name was found");
}

const int REGISTERED[] = {
    measureEveryCount("Visit/BTF", openAndVisit<BtfTypes>),
    measureEveryCount("LazyFirstType/BTF", FindById),
    measureEveryCount("LazyFirstType/BTF by name", FindByName),
};

} // namespace
