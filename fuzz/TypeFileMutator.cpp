#include "fuzz/TypeFileMutator.h"

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/LittleEndian.h"
#include "RTTI/TypeFileFormat.h"
#include "TypeFile/TypeFileFrame.h"

#include <algorithm>
#include <iterator>

namespace Fuzz {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

constexpr std::size_t MOST_RECORDS = 4096;

std::size_t below(std::mt19937& random, std::size_t limit) { return random() % limit; }

std::string& anyRecord(Parts& parts, std::mt19937& random) {
    return parts.records[below(random, parts.records.size())];
}

template <typename T> void put(std::string& bytes, std::size_t at, T value) {
    putLittleEndian(bytes.data() + at, value);
}

/// A number that means something in one field or another: an id, a count, a marker, a bound.
unsigned int tellingNumber(const Parts& parts, std::mt19937& random) {
    constexpr unsigned int numbers[] = {
        0,          1,          2,          3,
        7,          0xFFFFFFFF, 0xFFFFFFFE, static_cast<unsigned int>(NO_SV_TYPE_ID),
        0x7FFFFFFF, 0x80000000, 0xA00002,   0xA00003,
        0xA00007,   0xB0001,    0xB0003,    0xB0008,
        0x10,       0x01000000};
    if (below(random, 2) == 0)
        return static_cast<unsigned int>(below(random, parts.records.size() + 1));
    return numbers[below(random, std::size(numbers))];
}

void changeNumber(Parts& parts, std::mt19937& random) {
    std::string& record = anyRecord(parts, random);
    if (record.size() < RECORD_HEADER_SIZE + 4)
        return;
    const std::size_t at =
        RECORD_HEADER_SIZE + below(random, record.size() - RECORD_HEADER_SIZE - 3);
    put(record, at, tellingNumber(parts, random));
}

void changeByte(Parts& parts, std::mt19937& random) {
    std::string& record = anyRecord(parts, random);
    if (record.size() > RECORD_HEADER_SIZE)
        record[RECORD_HEADER_SIZE + below(random, record.size() - RECORD_HEADER_SIZE)] =
            static_cast<char>(random());
}

void changeKind(Parts& parts, std::mt19937& random) {
    put(anyRecord(parts, random), RECORD_KIND_OFFSET,
        ClassId::BASE_TYPE + static_cast<unsigned int>(below(random, 26)));
}

void cutOrGrow(Parts& parts, std::mt19937& random) {
    std::string& record = anyRecord(parts, random);
    if (below(random, 2) == 0)
        record.resize(RECORD_HEADER_SIZE + below(random, record.size() - RECORD_HEADER_SIZE + 1));
    else
        record.append(below(random, 64), static_cast<char>(random()));
}

/// A stretch of one record's body into another's.
void splice(Parts& parts, std::mt19937& random) {
    const std::string from = anyRecord(parts, random);
    std::string& to = anyRecord(parts, random);
    const std::size_t begin = below(random, from.size() - RECORD_HEADER_SIZE + 1);
    const std::size_t at = below(random, to.size() - RECORD_HEADER_SIZE + 1);
    to.insert(RECORD_HEADER_SIZE + at, from.substr(RECORD_HEADER_SIZE + begin, below(random, 200)));
}

void changeRecords(Parts& parts, std::mt19937& random) {
    const std::size_t i = below(random, parts.records.size());
    const std::size_t j = below(random, parts.records.size());
    switch (below(random, 4)) {
    case 0: std::swap(parts.records[i], parts.records[j]); return;
    case 1: parts.records[i] = std::string(parts.records[j]); return;
    case 2: parts.records.push_back(std::string(parts.records[i])); return;
    default:
        if (parts.records.size() > 1)
            parts.records.erase(parts.records.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

/// A field that says a size the record does not have.
void claimSize(Parts& parts, std::mt19937& random) {
    std::string& record = anyRecord(parts, random);
    put(record, 0, static_cast<int>(record.size() + below(random, 16)) - 8);
}

} // namespace

unsigned int typeCountOf(const void* data, std::size_t size) {
    OVAT::MemoryBlockManager storage(data, size);
    const TypeFile::TypeFileFrame frame(storage, size);
    return std::min(frame.typeCount(), static_cast<unsigned int>(size / ADDRESS_SIZE));
}

Parts takeApart(const std::uint8_t* data, std::size_t size) {
    OVAT::MemoryBlockManager storage(data, size);
    const TypeFile::TypeFileFrame frame(storage, size);
    Parts parts;
    parts.version = frame.version();
    parts.version.resize(VERSION_SIZE);
    for (const unsigned long long address : frame.addresses()) {
        const TypeFile::RecordFrame record = frame.recordAt(address);
        if (record.hasHead() && parts.records.size() < MOST_RECORDS)
            parts.records.emplace_back(reinterpret_cast<const char*>(data) + address,
                                       static_cast<std::size_t>(record.size()));
    }
    return parts;
}

std::string putTogether(const Parts& parts) {
    std::string file = parts.version;
    file.resize(HEADER_SIZE);
    std::vector<unsigned long long> addresses;
    for (const std::string& record : parts.records) {
        addresses.push_back(file.size());
        file += record;
    }
    put(file, TYPE_COUNT_OFFSET, static_cast<unsigned int>(parts.records.size()));
    put(file, ADDRESS_TABLE_OFFSET, static_cast<unsigned int>(file.size()));
    for (const unsigned long long address : addresses) {
        file.resize(file.size() + ADDRESS_SIZE);
        put(file, file.size() - ADDRESS_SIZE, address);
    }
    return file;
}

void mutate(Parts& parts, std::mt19937& random) {
    using Change = void (*)(Parts&, std::mt19937&);
    constexpr Change changes[] = {changeNumber, changeNumber, changeNumber,  changeByte, changeKind,
                                  cutOrGrow,    splice,       changeRecords, claimSize};
    const std::size_t which = below(random, std::size(changes));
    changes[which](parts, random);
    if (changes[which] != cutOrGrow && changes[which] != splice)
        return;
    for (std::string& record : parts.records)
        put(record, 0, static_cast<int>(record.size()));
}

} // namespace Fuzz
