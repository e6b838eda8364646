// Importing what front ends write: a tree beside reading it line by line, a wave beside writing
// that wave, and beside writing the type file that it gives. The types of a wave are handed over
// one by one, as the program takes them.

#include "Import/Importer.h"
#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileWriter.h"
#include "tests/support/GhwBuilder.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

/// A tree as large as that of a verification library, with as many types.
constexpr std::size_t TREE_BYTES = 49'000'000;
constexpr unsigned int TREE_TYPES = 3300;

constexpr unsigned int WAVE_TYPES = 100'000;

template <typename... Values>
void appendLine(std::string& text, const char* format, Values... values) {
    char line[256];
    text.append(line,
                static_cast<std::size_t>(std::snprintf(line, sizeof line, format, values...)));
    text += '\n';
}

/// The addresses of the type with this number, and of what belongs to it.
unsigned long addressOf(unsigned int number, unsigned int part = 0) {
    return 0x55a74d000000UL + number * 0x100UL + part;
}

/// Structs of vectors: each has a member of the struct in front of it.
void appendStruct(std::string& text, unsigned int number) {
    appendLine(text, "    3:1: STRUCTDTYPE 0x%lx {c%ual} @dt=this@(w8)  p::t%u [PACKED]",
               addressOf(number), number, number);
    for (unsigned int part = 1; part <= 4; ++part)
        appendLine(text, "    3:1:1: MEMBERDTYPE 0x%lx {c%uax} @dt=this@(w8)  m%u refdt=0x%lx(w8)",
                   addressOf(number, part), number, part,
                   part == 1 && number > 0 ? addressOf(number - 1) : addressOf(number, 9));
    appendLine(text,
               "    3:1: BASICDTYPE 0x%lx {c%ual} @dt=this@(w8)  logic kwd=logic range=[%u:0]",
               addressOf(number, 9), number, number % 64 + 1);
}

std::string makeTree() {
    std::string text = "Verilator Tree Dump (format 0x3900) from <e0> to <e990586>\n"
                       "     NETLIST 0x1 {a0aa}  $root [1ps/1ps]\n"
                       "    1: PACKAGE 0x6 {c1aj}  p  L3 [LIB] [1ps]\n";
    for (unsigned int number = 0; number < TREE_TYPES; ++number)
        appendLine(
            text, "    1:2: TYPEDEF 0x%lx {c%uaj} @dt=0x%lx@(w8)  t%u -> STRUCTDTYPE 0x%lx {c%ual}",
            addressOf(number, 15), number, addressOf(number), number, addressOf(number), number);
    text += "    1: MODULE 0x7 {c1ai}  top  L2 [1ps]\n";
    // Most of a tree are statements and expressions.
    for (unsigned int number = 0; text.size() < TREE_BYTES; ++number)
        appendLine(text,
                   "    1:2:3:1:2:1: VARREF 0x%lx {dm%ubx} @dt=0x%lx@(w8)  value_%u [RV] <- VAR "
                   "0x%lx {dm%ubn} @dt=0x%lx@(w8)  value_%u [VSTATIC]  VAR",
                   addressOf(number, 20), number % 999, addressOf(number % TREE_TYPES), number,
                   addressOf(number, 21), number % 99, addressOf(number % TREE_TYPES), number);
    text += "    3: TYPETABLE 0x2 {a0aa}\n";
    for (unsigned int number = 0; number < TREE_TYPES; ++number)
        appendStruct(text, number);
    return text + "    3: CONSTPOOL 0x4 {a0aa}\n";
}

/// Types of one kind after the other: an array of the subtype in front of it, and so on.
std::string makeWave() {
    constexpr unsigned int INTEGER = 25, ARRAY = 31, RECORD = 32, SUBTYPE = 34, ENUM = 23;
    GhwBuilder wave;
    std::vector<std::string> names = {"a", "b", "c", "integer"};
    for (unsigned int number = 0; number < WAVE_TYPES; ++number)
        names.push_back("type_" + std::to_string(number));
    wave.names(names);
    wave.type(INTEGER, {4});
    for (unsigned int number = 2; number <= WAVE_TYPES; ++number) {
        const unsigned int name = number + 3;
        switch (number % 4) {
        case 0: wave.type(ENUM, {name, 3, 1, 2, 3}); break;
        case 1: wave.type(RECORD, {name, 3, 1, number - 1, 2, 1, 3, number - 2}); break;
        case 2: wave.type(SUBTYPE, {name, 1}).range(INTEGER, 0, number); break;
        default: wave.type(ARRAY, {name, number - 1, 1, 1}); break;
        }
    }
    return wave.file();
}

const std::string& tree() {
    static const std::string text = makeTree();
    return text;
}

const std::string& wave() {
    static const std::string bytes = makeWave();
    return bytes;
}

void importFrom(std::istream& stream, const Import::TypeTable::TakeType& take) {
    Import::Input input(stream, "bench");
    Import::Notes notes;
    Import::Importer importer({}, notes);
    importer.read(input);
    importer.finish(take);
}

void importBytes(const std::string& bytes, const Import::TypeTable::TakeType& take) {
    std::istringstream stream(bytes);
    importFrom(stream, take);
}

void lookAt(const RTTI::RTBaseType& type) { benchmark::DoNotOptimize(&type); }

std::vector<char> typeFileOf(const std::string& bytes) {
    TypeFile::TypeFileWriter writer;
    importBytes(bytes, [&](const auto& type) { writer.add(type); });
    return writer.finish();
}

/// The types that are imported, all at the same time.
class ImportedTypes {
public:
    explicit ImportedTypes(const std::string& bytes)
        : m_file(typeFileOf(bytes)), m_storage(m_file.data(), m_file.size()) {
        m_manager.setupDeserializer(m_storage, 0);
        m_manager.readAllRTTypes();
    }

    void addTo(TypeFile::TypeFileWriter& writer) {
        for (unsigned int id = 0; const RTTI::RTBaseType* type = m_manager.getRTType(id); ++id)
            writer.add(*type);
    }

private:
    std::vector<char> m_file;
    OVAT::MemoryBlockManager m_storage;
    RTTI::RTTypeManager m_manager;
};

void ImportTree(benchmark::State& state) {
    tree();
    for ([[maybe_unused]] auto _ : state)
        importBytes(tree(), lookAt);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * tree().size()));
}

void ReadTreeLines(benchmark::State& state) {
    tree();
    for ([[maybe_unused]] auto _ : state) {
        std::istringstream stream(tree());
        std::string line;
        while (std::getline(stream, line))
            benchmark::DoNotOptimize(line.data());
    }
}

void ImportWave(benchmark::State& state) {
    wave();
    for ([[maybe_unused]] auto _ : state)
        importBytes(wave(), lookAt);
}

/// All the way to the bytes of a type file.
void ImportWaveAndWrite(benchmark::State& state) {
    wave();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(typeFileOf(wave()).data());
}

/// A path for a file of a benchmark.
std::string scratch(const char* name) {
    return (std::filesystem::temp_directory_path() / name).string() + std::to_string(getpid());
}

/// As the program does: from a file into a file.
void ImportWaveFile(benchmark::State& state) {
    const std::string from = scratch("rtti-bench-wave"), to = scratch("rtti-bench-types");
    std::ofstream(from, std::ios::binary) << wave();
    for ([[maybe_unused]] auto _ : state) {
        std::ifstream stream(from, std::ios::binary);
        TypeFile::TypeFileWriter writer;
        importFrom(stream, [&](const auto& type) { writer.add(type); });
        writer.finishFile(to);
    }
    std::filesystem::remove(from);
    std::filesystem::remove(to);
}

/// The file that comes of it, of types that are there.
void WriteTypeFileOfWave(benchmark::State& state) {
    ImportedTypes types(wave());
    const std::string to = scratch("rtti-bench-types");
    for ([[maybe_unused]] auto _ : state) {
        TypeFile::TypeFileWriter writer;
        types.addTo(writer);
        writer.finishFile(to);
    }
    std::filesystem::remove(to);
}

/// The wave, by a program that knows nothing of a design.
void WriteWave(benchmark::State& state) {
    const std::string to = scratch("rtti-bench-wave");
    for ([[maybe_unused]] auto _ : state)
        std::ofstream(to, std::ios::binary) << makeWave();
    std::filesystem::remove(to);
}

void WriteTypesOfWave(benchmark::State& state) {
    ImportedTypes types(wave());
    for ([[maybe_unused]] auto _ : state) {
        TypeFile::TypeFileWriter writer;
        types.addTo(writer);
        benchmark::DoNotOptimize(writer.finish().data());
    }
}

/// What becomes of the same types when they are read back.
void LoadTypesOfWave(benchmark::State& state) {
    const std::vector<char> bytes = typeFileOf(wave());
    OVAT::MemoryBlockManager storage(bytes.data(), bytes.size());
    for ([[maybe_unused]] auto _ : state) {
        std::optional<RTTI::RTTypeManager> manager(std::in_place);
        manager->setupDeserializer(storage, 0);
        benchmark::DoNotOptimize(manager->readAllRTTypes());
        state.PauseTiming();
        manager.reset();
        state.ResumeTiming();
    }
}

BENCHMARK(ImportTree)->Name("Import/tree")->UseRealTime();
BENCHMARK(ReadTreeLines)->Name("Import/tree/floor")->UseRealTime();
BENCHMARK(ImportWave)->Name("Import/wave")->UseRealTime();
BENCHMARK(ImportWaveAndWrite)->Name("Import/wave/write")->UseRealTime();
BENCHMARK(LoadTypesOfWave)->Name("Import/wave/load")->UseRealTime();
BENCHMARK(WriteTypesOfWave)->Name("Import/wave/floor")->UseRealTime();
BENCHMARK(ImportWaveFile)->Name("Import/wave/file")->UseRealTime();
BENCHMARK(WriteTypeFileOfWave)->Name("Import/wave/file/floor")->UseRealTime();
BENCHMARK(WriteWave)->Name("Import/wave/file/wave")->UseRealTime();

} // namespace
