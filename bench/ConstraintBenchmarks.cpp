// The constraint walk. Its floor makes the same virtual calls and appends without any frames.

#include "RTTI/ConstraintStack.h"
#include "RTTI/RTType.h"
#include "TypeFile/TypeBuilding.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <utility>

namespace {

using namespace RTTI;
using Ranges = std::vector<FullConstraints>;

/// A type that does nothing but what every walk does: one virtual call a level, one append a range.
struct FloorType {
    virtual ~FloorType() = default;
    virtual void walk(Ranges& out) const = 0;
};
struct FloorScalar : FloorType {
    void walk(Ranges&) const override {}
};
struct FloorArray : FloorType {
    FullConstraints range{7, 0, 0};
    const FloorType* element = nullptr;
    void walk(Ranges& out) const override {
        out.push_back(range);
        element->walk(out);
    }
};
struct FloorTypedef : FloorType {
    const FloorType* data = nullptr;
    void walk(Ranges& out) const override { data->walk(out); }
};
struct FloorRecord : FloorType {
    std::vector<const FloorType*> members;
    void walk(Ranges& out) const override {
        for (const FloorType* member : members)
            member->walk(out);
    }
};

constexpr int MEMBERS = 100;
constexpr int DEPTH = 5;

template <typename Walk> void repeat(benchmark::State& state, int ranges, const Walk& walk) {
    Ranges out;
    for ([[maybe_unused]] auto _ : state) {
        out.clear();
        walk(out);
        benchmark::DoNotOptimize(out.data());
    }
    if (out.size() != static_cast<std::size_t>(ranges))
        state.SkipWithError("the walk found other ranges");
    state.SetItemsProcessed(state.iterations() * ranges);
}

void walkFresh(const RTBaseType& type, Ranges& out) {
    Brakel_tolv::ConstraintStack<FullConstraints> stack;
    type.populateTypeConstraints(stack, out);
}

void fill(RTArrayType& array, const RTBaseType& element) {
    array.m_elementType = &element;
    array.m_indexTypeIds = {0};
    array.m_constraints = {{7, 0, 0}};
}

void RecordOfArrays(benchmark::State& state) {
    const RTIntType scalar;
    std::vector<std::unique_ptr<RTArrayType>> arrays;
    RTRecordType record;
    for (int i = 0; i < MEMBERS; ++i) {
        fill(*arrays.emplace_back(std::make_unique<RTArrayType>()), scalar);
        TypeFile::addMember(record, "m", 0);
        record.m_memberTypes.push_back(arrays.back().get());
    }
    repeat(state, MEMBERS, [&](Ranges& out) { walkFresh(record, out); });
}

void RecordOfArraysFloor(benchmark::State& state) {
    const FloorScalar scalar;
    std::vector<std::unique_ptr<FloorArray>> arrays;
    FloorRecord record;
    for (int i = 0; i < MEMBERS; ++i) {
        arrays.emplace_back(std::make_unique<FloorArray>())->element = &scalar;
        record.members.push_back(arrays.back().get());
    }
    const FloorType* type = &record;
    benchmark::DoNotOptimize(type);
    repeat(state, MEMBERS, [&](Ranges& out) { type->walk(out); });
}

/// Typedef, array, typedef, array, typedef, and the scalar at the end. The ranges are given by the
/// arrays or, where they leave them open, by the typedefs around them.
void Chain(benchmark::State& state, bool areOpen) {
    const RTIntType scalar;
    RTTypedefType aliases[DEPTH / 2 + 1];
    RTArrayType arrays[DEPTH / 2];
    aliases[DEPTH / 2].m_dataType = &scalar;
    for (int i = DEPTH / 2 - 1; i >= 0; --i) {
        fill(arrays[i], aliases[i + 1]);
        aliases[i].m_dataType = &arrays[i];
        if (areOpen)
            aliases[i].m_constraints = std::exchange(arrays[i].m_constraints, {{0, 0, -2}});
    }
    repeat(state, DEPTH / 2, [&](Ranges& out) { walkFresh(aliases[0], out); });
}

void ChainFloor(benchmark::State& state) {
    const FloorScalar scalar;
    FloorTypedef aliases[DEPTH / 2 + 1];
    FloorArray arrays[DEPTH / 2];
    aliases[DEPTH / 2].data = &scalar;
    for (int i = DEPTH / 2 - 1; i >= 0; --i) {
        arrays[i].element = &aliases[i + 1];
        aliases[i].data = &arrays[i];
    }
    const FloorType* type = &aliases[0];
    benchmark::DoNotOptimize(type);
    repeat(state, DEPTH / 2, [&](Ranges& out) { type->walk(out); });
}

BENCHMARK(RecordOfArrays)->Name("Constraints/record of 100 arrays")->UseRealTime();
BENCHMARK(RecordOfArraysFloor)->Name("Constraints/record of 100 arrays/floor")->UseRealTime();
BENCHMARK_CAPTURE(Chain, own, false)->Name("Constraints/chain of depth 5")->UseRealTime();
BENCHMARK_CAPTURE(Chain, open, true)->Name("Constraints/chain of open arrays")->UseRealTime();
BENCHMARK(ChainFloor)->Name("Constraints/chain of depth 5/floor")->UseRealTime();

} // namespace
