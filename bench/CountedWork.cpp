// The program whose instructions are counted: one piece of work with a generated table.
//
//   counted_work WORK TYPES

#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileVerifier.h"
#include "bench/LoadFloor.h"
#include "bench/TypeStorage.h"
#include "bench/Work.h"

#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <string>

// What happens inside is counted, by how its name begins: compilers make special copies.
extern "C" [[gnu::noinline]] void counted(const std::function<void()>& work) { work(); }

namespace {

using namespace Bench;
using Inspect::SourceLanguage;

void load(TypeStorage& table) {
    RTTI::RTTypeManager manager;
    counted([&] {
        manager.setupDeserializer(table.storage, 0);
        manager.readAllRTTypes();
    });
}

void loadFloor(TypeStorage& table) {
    LoadFloor floor(table.plan);
    counted([&] { floor.load(table.storage); });
}

void differences(TypeStorage& table) {
    constexpr unsigned int PACKAGE = 100;
    const auto count = static_cast<unsigned int>(table.types().size());
    TypeStorage more(count + PACKAGE);
    const auto a = tableOf(table.types());
    const auto b = tableOf(more.types());
    counted([&] { differ(a, b, PACKAGE); });
}

void readJson(TypeStorage& table) {
    const std::string json = jsonOf(table.types());
    counted([&] { buildFromJson(json); });
}

/// Writes the table as text, to nowhere.
template <typename Write> void writeText(TypeStorage& table, const Write& write) {
    const auto types = tableOf(table.types());
    std::ofstream out("/dev/null");
    counted([&] { write(out, types); });
}

template <typename Query> void askEach(TypeStorage& table, const Query& query) {
    const TypeList& types = table.types();
    std::size_t sum = 0;
    counted([&] {
        for (const RTTI::RTBaseType* type : types)
            sum += query(*type);
    });
    std::cout << sum << '\n';
}

const std::map<std::string, void (*)(TypeStorage&)> works = {
    {"load", load},
    {"floor", loadFloor},
    {"verify",
     [](TypeStorage& table) {
         counted([&] { TypeFile::verify(table.storage, table.storage.size(), 0); });
     }},
    {"statistics",
     [](TypeStorage& table) {
         const auto count = static_cast<unsigned int>(table.types().size());
         counted([&] { countTypes(table.storage, count); });
     }},
    {"differences", differences},
    {"write-json",
     [](TypeStorage& table) {
         const TypeList& types = table.types();
         counted([&] { jsonOf(types); });
     }},
    {"read-json", readJson},
    {"dump", [](TypeStorage& table) { writeText(table, dump); }},
    {"vhdl",
     [](TypeStorage& table) {
         writeText(table,
                   [](auto& out, const auto& types) { declare(out, types, SourceLanguage::VHDL); });
     }},
    {"systemverilog",
     [](TypeStorage& table) {
         writeText(table, [](auto& out, const auto& types) {
             declare(out, types, SourceLanguage::SYSTEM_VERILOG);
         });
     }},
    {"encodings",
     [](TypeStorage& table) {
         askEach(table, [](const auto& type) {
             return static_cast<std::size_t>(type.getValueEncoding());
         });
     }},
    {"ranges", [](TypeStorage& table) { askEach(table, rangesOf); }},
};

} // namespace

int main(int argc, char** argv) {
    const auto work = works.find(argc == 3 ? argv[1] : "");
    const int types = argc == 3 ? std::atoi(argv[2]) : 0;
    if (work == works.end() || types <= 0) {
        std::cerr << "counted_work WORK TYPES, where WORK is one of:";
        for (const auto& [name, function] : works)
            std::cerr << ' ' << name;
        std::cerr << '\n';
        return 2;
    }
    work->second(TypeStorage::of(static_cast<unsigned int>(types)));
}
