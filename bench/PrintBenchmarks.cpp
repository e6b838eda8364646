// Types as text: the dump of a table beside writing the same bytes, and its declarations, which a
// load stands beside.

#include "bench/TypeStorage.h"
#include "bench/Work.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

namespace {

using namespace Inspect;

/// A file without a name, as a stream writes to it.
class ScratchFile {
public:
    std::ostream& stream() {
        m_stream.open("/proc/self/fd/" + std::to_string(fileno(m_file.get())), std::ios::binary);
        return m_stream;
    }

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close> m_file{std::tmpfile()};
    std::ofstream m_stream;
};

TypeTable tableOf(const benchmark::State& state) {
    return Bench::tableOf(
        Bench::TypeStorage::of(static_cast<unsigned int>(state.range(0))).types());
}

void Dump(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        ScratchFile file;
        std::ostream& out = file.stream();
        Bench::dump(out, tableOf(state));
        if (!out.flush())
            state.SkipWithError("the file cannot be written");
    }
}

/// The bytes of the dump, in the pieces in which a type comes on average.
void DumpFloor(benchmark::State& state) {
    const TypeTable table = tableOf(state);
    std::ostringstream text;
    Bench::dump(text, table);
    const std::string bytes = text.str();
    const std::size_t piece = bytes.size() / table.count;
    for ([[maybe_unused]] auto _ : state) {
        ScratchFile file;
        std::ostream& out = file.stream();
        for (std::size_t at = 0; at < bytes.size(); at += piece)
            out << std::string_view(bytes).substr(at, piece);
        if (!out.flush())
            state.SkipWithError("the file cannot be written");
    }
}

void Declarations(benchmark::State& state, SourceLanguage language) {
    for ([[maybe_unused]] auto _ : state) {
        ScratchFile file;
        Bench::declare(file.stream(), tableOf(state), language);
    }
}

// A table of 100,000 types takes a second, and one more type costs what the others do.
BENCHMARK(Dump)->Arg(1000)->Arg(100000)->Repetitions(3)->UseRealTime();
BENCHMARK(DumpFloor)->Name("Dump/floor")->Arg(1000)->Arg(100000)->Repetitions(3)->UseRealTime();
BENCHMARK_CAPTURE(Declarations, vhdl, SourceLanguage::VHDL)
    ->Arg(1000)
    ->Arg(100000)
    ->Repetitions(3)
    ->UseRealTime();
BENCHMARK_CAPTURE(Declarations, sv, SourceLanguage::SYSTEM_VERILOG)
    ->Arg(1000)
    ->Arg(100000)
    ->Repetitions(3)
    ->UseRealTime();

} // namespace
