// Counting what is in a type file, as `rtti stats` does: it is verified, its records are counted,
// and the types that are listed are loaded. A load of all types is what it stands beside.

#include "Inspect/views/TypeStatistics.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileVerifier.h"
#include "bench/TypeStorage.h"

#include <benchmark/benchmark.h>

#include <sstream>

namespace {

void Statistics(benchmark::State& state) {
    constexpr unsigned int TOP = 10;
    const auto count = static_cast<unsigned int>(state.range(0));
    OVAT::MemoryBlockManager& storage = Bench::TypeStorage::of(count).storage;
    for ([[maybe_unused]] auto _ : state) {
        if (TypeFile::hasErrors(TypeFile::verify(storage, storage.size(), 0)))
            state.SkipWithError("the table has errors");
        RTTI::RTTypeManager manager;
        manager.setupDeserializer(storage, 0);
        const Inspect::TypeTable types{count,
                                       [&](unsigned int id) { return manager.getRTType(id); }};
        std::ostringstream out;
        writeStatistics(out, types, {}, Inspect::statisticsOf(storage, storage.size(), 0, TOP), TOP,
                        Inspect::TextStyle::plain());
    }
}

BENCHMARK(Statistics)->Arg(1000)->Arg(100000)->Arg(1000000)->UseRealTime();

} // namespace
