// Types as text: the dump of a table beside writing the same bytes, and its declarations, which a
// load stands beside.

#include "Inspect/words/Text.h"
#include "bench/TypeStorage.h"
#include "bench/Work.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

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

/// What `write` writes of a table.
template <typename Write> std::string textOf(const TypeTable& table, Write write) {
    std::ostringstream text;
    write(text, table);
    return text.str();
}

/// The bytes of the dump, in the pieces in which a type comes on average.
void DumpFloor(benchmark::State& state) {
    const TypeTable table = tableOf(state);
    const std::string bytes = textOf(table, Bench::dump);
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

/// The words and numbers of a text, and what stands between them.
std::vector<std::string_view> piecesOf(std::string_view text) {
    const auto isInWord = [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
    };
    std::vector<std::string_view> pieces;
    for (auto at = text.begin(); at != text.end();) {
        const bool isWord = isInWord(*at);
        const auto end =
            std::find_if(at, text.end(), [&](char c) { return isInWord(c) != isWord; });
        pieces.push_back(text.substr(static_cast<std::size_t>(at - text.begin()),
                                     static_cast<std::size_t>(end - at)));
        at = end;
    }
    return pieces;
}

/// The same text with all that has to be found out about it known: only its pieces are put together
/// and written.
void writePieces(benchmark::State& state, const std::string& text) {
    const std::vector<std::string_view> pieces = piecesOf(text);
    for ([[maybe_unused]] auto _ : state) {
        ScratchFile file;
        Text out(file.stream());
        for (const std::string_view piece : pieces)
            out << piece;
        out.flush();
    }
}

void DumpPieces(benchmark::State& state) {
    writePieces(state, textOf(tableOf(state), Bench::dump));
}

void Declarations(benchmark::State& state, SourceLanguage language) {
    for ([[maybe_unused]] auto _ : state) {
        ScratchFile file;
        Bench::declare(file.stream(), tableOf(state), language);
    }
}

void DeclarationPieces(benchmark::State& state, SourceLanguage language) {
    writePieces(state, textOf(tableOf(state), [=](std::ostream& out, const TypeTable& table) {
                    Bench::declare(out, table, language);
                }));
}

/// A table of 100,000 types takes a second, and one more type costs what the others do.
void measure(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1000)->Arg(100000)->UseRealTime();
}

BENCHMARK(Dump)->Apply(measure);
BENCHMARK(DumpFloor)->Name("Dump/floor")->Apply(measure);
BENCHMARK(DumpPieces)->Name("Dump/pieces")->Apply(measure);
BENCHMARK_CAPTURE(Declarations, vhdl, SourceLanguage::VHDL)->Apply(measure);
BENCHMARK_CAPTURE(Declarations, sv, SourceLanguage::SYSTEM_VERILOG)->Apply(measure);
BENCHMARK_CAPTURE(DeclarationPieces, vhdl, SourceLanguage::VHDL)
    ->Name("Declarations/vhdl/pieces")
    ->Apply(measure);
BENCHMARK_CAPTURE(DeclarationPieces, sv, SourceLanguage::SYSTEM_VERILOG)
    ->Name("Declarations/sv/pieces")
    ->Apply(measure);

} // namespace
