#include "fuzz/DamagedFiles.h"

#include "OVAT/MemoryBlockManager.h"
#include "TypeFile/TypeFileVerifier.h"
#include "fuzz/QuickLimits.h"
#include "fuzz/RecordEditor.h"
#include "fuzz/TypeFileMutator.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <stdexcept>
#include <utility>

namespace Fuzz {

namespace fs = std::filesystem;

namespace {

Parts partsOf(const std::string& file) {
    return takeApart(reinterpret_cast<const std::uint8_t*>(file.data()), file.size());
}

bool isWhole(const std::string& file) {
    OVAT::MemoryBlockManager storage(file.data(), file.size());
    return !TypeFile::hasErrors(TypeFile::verify(storage, file.size(), 0, quickLimits())) &&
           !partsOf(file).records.empty();
}

std::string withOtherBytes(std::string file, std::mt19937& random) {
    for (std::size_t changes = 1 + below(random, 8); changes != 0; --changes) {
        char& byte = file[below(random, file.size())];
        byte = static_cast<char>(below(random, 2) == 0 ? random() : byte ^ 1 << below(random, 8));
    }
    return file;
}

std::string spliced(const std::string& one, const std::string& other, std::mt19937& random) {
    if (below(random, 4) == 0) {
        const std::size_t at = below(random, std::min(one.size(), other.size()));
        return one.substr(0, at) + other.substr(at);
    }
    Parts parts = partsOf(one);
    append(parts, partsOf(other), random);
    for (std::size_t changes = below(random, 3); changes != 0; --changes)
        mutate(parts, random);
    return putTogether(parts);
}

std::string withOtherReferences(const std::string& file, std::mt19937& random) {
    Parts parts = partsOf(file);
    const auto typeCount = static_cast<unsigned int>(parts.records.size());
    const std::size_t oneIn = 1 + below(random, 8);
    for (std::string& record : parts.records)
        RecordEditor(record, typeCount, random).renumber([&](unsigned int id) {
            return below(random, oneIn) == 0 ? static_cast<unsigned int>(below(random, typeCount))
                                             : id;
        });
    return putTogether(parts);
}

std::set<fs::path> filesAt(const fs::path& path) {
    if (!fs::is_directory(path))
        return {path};
    std::set<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(path))
        if (entry.is_regular_file())
            files.insert(entry.path());
    return files;
}

} // namespace

const char* nameOf(Damage damage) {
    constexpr const char* NAMES[] = {"bytes", "fields", "splices", "references"};
    return NAMES[static_cast<std::size_t>(damage)];
}

DamagedFiles::DamagedFiles(const std::vector<fs::path>& paths, std::uint64_t seed) : m_seed(seed) {
    for (const fs::path& path : paths) {
        for (const fs::path& file : filesAt(path)) {
            if (fs::file_size(file) > LARGEST)
                continue;
            std::ifstream in(file, std::ios::binary);
            std::string bytes{std::istreambuf_iterator<char>(in), {}};
            if (isWhole(bytes))
                m_files.push_back(std::move(bytes));
        }
    }
    if (m_files.empty())
        throw std::runtime_error("there is no small type file to begin with");
}

DamagedFiles::File DamagedFiles::operator[](std::uint64_t number) const {
    std::seed_seq seed{static_cast<std::uint32_t>(m_seed), static_cast<std::uint32_t>(m_seed >> 32),
                       static_cast<std::uint32_t>(number),
                       static_cast<std::uint32_t>(number >> 32)};
    std::mt19937 random(seed);
    const std::string& file = m_files[below(random, m_files.size())];
    const auto damage = static_cast<Damage>(number % static_cast<std::uint64_t>(Damage::COUNT));
    switch (damage) {
    case Damage::BYTES: return {damage, withOtherBytes(file, random)};
    case Damage::FIELDS: return {damage, vary(partsOf(file), random)};
    case Damage::SPLICE:
        return {damage, spliced(file, m_files[below(random, m_files.size())], random)};
    default: return {damage, withOtherReferences(file, random)};
    }
}

} // namespace Fuzz
