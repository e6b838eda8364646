#include "fuzz/TypeFileMutator.h"

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/LittleEndian.h"
#include "RTTI/TypeFileFormat.h"
#include "TypeFile/TypeFileFrame.h"
#include "fuzz/RecordEditor.h"

#include <algorithm>
#include <iterator>

namespace Fuzz {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

constexpr std::size_t MOST_RECORDS = 4096;

std::string& anyRecord(Parts& parts, std::mt19937& random) {
    return parts.records[below(random, parts.records.size())];
}

template <typename T> void put(std::string& bytes, std::size_t at, T value) {
    putLittleEndian(bytes.data() + at, value);
}

RecordEditor editorOf(std::string& record, const Parts& parts, std::mt19937& random) {
    return {record, static_cast<unsigned int>(parts.records.size()), random};
}

/// What the layouts say of a field decides how it changes.
void changeField(Parts& parts, std::mt19937& random) {
    editorOf(anyRecord(parts, random), parts, random).changeField();
}

void copyEntry(Parts& parts, std::mt19937& random) {
    std::string from = anyRecord(parts, random);
    std::string& to = anyRecord(parts, random);
    editorOf(to, parts, random).takeEntryOf(editorOf(from, parts, random));
}

/// Any bytes, wherever fields begin and end.
void changeByte(Parts& parts, std::mt19937& random) {
    std::string& record = anyRecord(parts, random);
    if (record.size() > RECORD_HEADER_SIZE)
        record[RECORD_HEADER_SIZE + below(random, record.size() - RECORD_HEADER_SIZE)] =
            static_cast<char>(random());
}

void cutOrGrow(Parts& parts, std::mt19937& random) {
    std::string& record = anyRecord(parts, random);
    if (below(random, 2) == 0)
        record.resize(RECORD_HEADER_SIZE + below(random, record.size() - RECORD_HEADER_SIZE + 1));
    else
        record.append(below(random, 64), static_cast<char>(random()));
    put(record, 0, static_cast<unsigned int>(record.size()));
}

template <typename IdOf> void renumber(Parts& parts, std::mt19937& random, IdOf idOf) {
    for (std::string& record : parts.records)
        editorOf(record, parts, random).renumber(idOf);
}

/// Two types change places; now and then those that refer to them do not notice.
void swapTypes(Parts& parts, std::mt19937& random) {
    const auto one = static_cast<unsigned int>(below(random, parts.records.size()));
    const auto other = static_cast<unsigned int>(below(random, parts.records.size()));
    std::swap(parts.records[one], parts.records[other]);
    if (below(random, 4) != 0)
        renumber(parts, random, [&](unsigned int id) {
            return id == one ? other : id == other ? one : id;
        });
}

void copyType(Parts& parts, std::mt19937& random) {
    parts.records.push_back(std::string(anyRecord(parts, random)));
}

/// The ids of the types behind it become smaller by one.
void dropType(Parts& parts, std::mt19937& random) {
    const std::size_t dropped = below(random, parts.records.size());
    if (parts.records.size() == 1)
        return;
    renumber(parts, random, [&](unsigned int id) { return id > dropped ? id - 1 : id; });
    parts.records.erase(parts.records.begin() + static_cast<std::ptrdiff_t>(dropped));
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
    constexpr Change OTHERS[] = {copyEntry, changeByte, cutOrGrow, swapTypes, copyType, dropType};
    const Change change =
        below(random, 3) != 0 ? changeField : OTHERS[below(random, std::size(OTHERS))];
    change(parts, random);
}

std::string vary(Parts parts, std::mt19937& random) {
    for (unsigned int changes = 1 + random() % 4; changes != 0; --changes)
        mutate(parts, random);
    std::string file = putTogether(parts);
    if (random() % 16 == 0)
        changeFrame(file, random);
    return file;
}

void append(Parts& parts, Parts others, std::mt19937& random) {
    const auto shift = static_cast<unsigned int>(parts.records.size());
    renumber(others, random, [&](unsigned int id) { return id + shift; });
    std::move(others.records.begin(), others.records.end(), std::back_inserter(parts.records));
}

void changeFrame(std::string& file, std::mt19937& random) {
    const auto count = littleEndianAt<unsigned int>(file.data() + TYPE_COUNT_OFFSET);
    const auto table = littleEndianAt<unsigned int>(file.data() + ADDRESS_TABLE_OFFSET);
    const auto entry = [&] { return table + below(random, count) * ADDRESS_SIZE; };
    switch (below(random, 6)) {
    case 0:
        return put(file, TYPE_COUNT_OFFSET,
                   count + 2 - static_cast<unsigned int>(below(random, 5)));
    case 1:
        return put(file, ADDRESS_TABLE_OFFSET,
                   table + 8 - static_cast<unsigned int>(below(random, 17)));
    case 2: return put(file, entry(), static_cast<unsigned long long>(random()));
    case 3: return put(file, entry(), static_cast<unsigned long long>(below(random, file.size())));
    default: { // One record for two types.
        const auto address = littleEndianAt<unsigned long long>(file.data() + entry());
        return put(file, entry(), address);
    }
    }
}

} // namespace Fuzz
