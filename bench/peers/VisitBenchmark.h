#pragma once

#include "bench/EveryCount.h"
#include "bench/TypeStorage.h"
#include "bench/peers/ContentSum.h"
#include "bench/peers/LoadedTypes.h"

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <type_traits>
#include <vector>

namespace Bench {

/// A generated table in the form that a peer opens. Made once a type count and program.
template <typename Peer> const std::vector<char>& encodedTable(unsigned int typeCount) {
    if constexpr (std::is_same_v<Peer, LoadedTypes>) {
        return TypeStorage::of(typeCount).bytes;
    } else {
        static std::map<unsigned int, std::vector<char>> made;
        std::vector<char>& encoded = made[typeCount];
        if (encoded.empty())
            encoded = Peer::encode(TypeStorage::of(typeCount).types());
        return encoded;
    }
}

/// What a visit of a generated table adds up to.
template <bool WithDetails> std::uint64_t expectedSum(unsigned int typeCount) {
    static std::map<unsigned int, std::uint64_t> known;
    const auto found = known.find(typeCount);
    if (found != known.end())
        return found->second;
    ContentSum<WithDetails> content;
    LoadedTypes(TypeStorage::of(typeCount).bytes).visit(content);
    return known[typeCount] = content.sum();
}

/// Opens a table and visits all of it. What was built is released off the clock, as for a load.
template <typename Peer> void openAndVisit(benchmark::State& state) {
    const auto count = static_cast<unsigned int>(state.range(0));
    const std::vector<char>& encoded = encodedTable<Peer>(count);
    std::uint64_t sum = 0;
    for ([[maybe_unused]] auto _ : state) {
        std::optional<Peer> types(std::in_place, encoded);
        ContentSum<Peer::HAS_DETAILS> content;
        types->visit(content);
        sum = content.sum();
        benchmark::DoNotOptimize(sum);
        state.PauseTiming();
        types.reset();
        state.ResumeTiming();
    }
    if (sum != expectedSum<Peer::HAS_DETAILS>(count))
        state.SkipWithError("the visit found other content");
}

} // namespace Bench
