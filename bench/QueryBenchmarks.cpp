// Each query, asked of every type of a table. The floor is a virtual call that answers at once;
// those that walk stand beside a plain recursion, too.

#include "RTTI/RTType.h"
#include "bench/PlainQueries.h"
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

#define QUERY_AS(name, title, answer)                                                              \
    BENCHMARK_CAPTURE(askEach, name, [](const RTBaseType& type) { return answer; })                \
        ->Name("Query/" title)                                                                     \
        ->RangeMultiplier(10)                                                                      \
        ->Range(1000, 1000000)                                                                     \
        ->UseRealTime()
#define QUERY(name, answer) QUERY_AS(name, #name, answer)
#define PLAIN_QUERY(name, answer) QUERY_AS(name##Plain, #name "/plain", answer)

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

PLAIN_QUERY(getValueEncoding, Bench::plainEncodingOf(type));
PLAIN_QUERY(populateTypeConstraints, Bench::plainRangesOf(type));

} // namespace
