// Each query, asked of every type of a table; the floor is a virtual call that answers at once.

#include "RTTI/RTType.h"
#include "bench/TypeStorage.h"
#include "bench/Work.h"

#include <benchmark/benchmark.h>

namespace {

using namespace RTTI;

template <typename Query> void askEach(benchmark::State& state, const Query& query) {
    const auto& types = Bench::TypeStorage::of(static_cast<unsigned int>(state.range(0))).types();
    for ([[maybe_unused]] auto _ : state) {
        for (const RTBaseType* type : types)
            benchmark::DoNotOptimize(query(*type));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

#define QUERY(name, answer)                                                                        \
    BENCHMARK_CAPTURE(askEach, name, [](const RTBaseType& type) { return answer; })                \
        ->Name("Query/" #name)                                                                     \
        ->RangeMultiplier(10)                                                                      \
        ->Range(1000, 1000000)                                                                     \
        ->UseRealTime()

QUERY(floor, type.GetClassId());
QUERY(getValueEncoding, type.getValueEncoding());
QUERY(getSelf, type.getSelf(false));
QUERY(getSVTypeId, type.getSVTypeId());
QUERY(getValueSize, type.getValueSize());

unsigned int dimensionsOf(const RTBaseType& type) {
    const unsigned int kind = type.GetClassId();
    if (kind != ClassId::DYNAMIC_ARRAY && kind != ClassId::QUEUE && kind != ClassId::ASSOC_ARRAY)
        return 0;
    return static_cast<const RTAbstractArrayType&>(type).getTotalNumDimensions(true);
}
QUERY(getTotalNumDimensions, dimensionsOf(type));

QUERY(populateTypeConstraints, Bench::rangesOf(type));

} // namespace
