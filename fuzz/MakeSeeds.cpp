// Makes seeds of type files: for each type a file of it and what it refers to, if that is small.
//
//   make_seeds OUT_FOLDER FILE...

#include "RTTI/TypeFileFormat.h"
#include "fuzz/RecordEditor.h"
#include "fuzz/TypeFileMutator.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t LARGEST_SEED = 512;

/// A type of a file, and all that it leads to, renumbered from 0 on.
Fuzz::Parts partsOf(const Fuzz::Parts& file, unsigned int typeId) {
    std::mt19937 random;
    const auto typeCount = static_cast<unsigned int>(file.records.size());
    std::vector<unsigned int> newIds(typeCount, RTTI::TypeFileFormat::NO_TYPE_ID);
    std::vector<unsigned int> wanted{typeId};
    Fuzz::Parts parts{file.version, {}};
    newIds[typeId] = 0;
    for (std::size_t next = 0; next < wanted.size(); ++next) {
        std::string record = file.records[wanted[next]];
        Fuzz::RecordEditor(record, typeCount, random).renumber([&](unsigned int id) {
            if (newIds[id] == RTTI::TypeFileFormat::NO_TYPE_ID) {
                newIds[id] = static_cast<unsigned int>(wanted.size());
                wanted.push_back(id);
            }
            return newIds[id];
        });
        parts.records.push_back(std::move(record));
    }
    return parts;
}

void makeSeeds(const fs::path& folder, const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    const Fuzz::Parts file =
        Fuzz::takeApart(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    for (unsigned int id = 0; id < file.records.size(); ++id) {
        const std::string seed = Fuzz::putTogether(partsOf(file, id));
        if (seed.size() > LARGEST_SEED)
            continue;
        std::ofstream out(folder / std::to_string(std::hash<std::string>()(seed)),
                          std::ios::binary);
        out << seed;
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "Usage: make_seeds OUT_FOLDER FILE...\n";
        return 2;
    }
    fs::create_directories(argv[1]);
    for (int i = 2; i < argc; ++i)
        makeSeeds(argv[1], argv[i]);
    return 0;
}
