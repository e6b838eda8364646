#include "TypeFile/TypeFileVerifier.h"

#include "RTTI/LittleEndian.h"
#include "TypeFile/FindingList.h"
#include "TypeFile/RecordVerifier.h"
#include "TypeFile/ReferenceVerifier.h"
#include "TypeFile/StorageWindow.h"
#include "TypeFile/TypeFileFrame.h"
#include "TypeFile/TypeParts.h"
#include "TypeFile/WalkVerifier.h"
#include "TypeFile/WalksThroughClasses.h"

#include <algorithm>

namespace TypeFile {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

/// Table and records are read once, in the order of the storage, in blocks that stay in a cache.
constexpr std::size_t SWEEP_BLOCK = 65536;

/// Members are read again in the order in which types lead to one another, a block a jump.
constexpr std::size_t JUMP_BLOCK = 2048;

/// One verification. The steps come in the order of the file, each relying on those before.
class Verification {
public:
    Verification(OVAT::IBlockManager& storage, unsigned long long storageSize,
                 unsigned long long baseOffset, const VerifyLimits& limits)
        : m_frame(storage, storageSize, baseOffset), m_sweep(storage, storageSize, SWEEP_BLOCK),
          m_jumps(storage, storageSize, JUMP_BLOCK), m_size(storageSize), m_limits(limits),
          m_findings(limits.maxFindings), m_records(m_sweep, m_types, m_findings),
          m_parts(m_jumps, m_types), m_references(m_types, m_findings, m_limits),
          m_walks(m_types, m_parts, m_findings, m_limits) {}

    std::vector<Finding> run() {
        if (checkHeader() && readTable()) {
            readRecords();
            verifyReferences();
        }
        return m_findings.take();
    }

private:
    bool checkHeader();
    bool readTable();
    void readRecords();
    void readRecord(unsigned int typeId, unsigned long long end);
    void settle(unsigned int typeId);
    bool readFrame(unsigned int typeId, unsigned int& size);
    bool overlaps(unsigned int typeId, unsigned int size, unsigned long long end);
    bool checkKind(unsigned int typeId);
    void share(unsigned int typeId, unsigned int other);
    void verifyReferences();
    void addForFile(FindingCode code, const char* field, unsigned long long offset,
                    std::string text) {
        m_findings.add(code, NO_TYPE_ID, field, offset, std::move(text));
    }

    TypeFileFrame m_frame;
    StorageWindow m_sweep;
    StorageWindow m_jumps;
    unsigned long long m_size;
    const VerifyLimits& m_limits;
    FindingList m_findings;
    TypeTable m_types;
    RecordVerifier m_records;
    TypeParts m_parts;
    ReferenceVerifier m_references;
    WalkVerifier m_walks;
    unsigned long long m_recordBytes = 0;
    unsigned long long m_lastSize = 0; ///< Of the record that was read last.
};

/// Any version will do, since the loader takes any; but a file of zeros has none.
bool Verification::checkHeader() {
    const unsigned long long base = m_frame.baseOffset();
    if (!m_frame.hasHeader()) {
        addForFile(FindingCode::HEADER_OUTSIDE_STORAGE, "header", base,
                   "The header takes 40 bytes, and the storage ends at " + hexText(m_size) + ".");
        return false;
    }
    if (!m_frame.hasVersionText())
        addForFile(FindingCode::VERSION_NOT_TEXT, "version", base,
                   "There is no printable text that ends within 32 bytes.");
    if (!m_frame.isMarkedUnusable())
        return true;
    addForFile(FindingCode::MARKED_UNUSABLE, "version", base,
               "The writer marked the file as one that holds no usable types.");
    return false;
}

bool Verification::readTable() {
    const unsigned int typeCount = m_frame.typeCount();
    const unsigned long long base = m_frame.baseOffset();
    const unsigned long long table = m_frame.tableOffset();
    if (typeCount == 0)
        return true;
    if (!m_frame.hasTable()) {
        addForFile(FindingCode::TABLE_OUTSIDE_STORAGE, "address table offset",
                   base + ADDRESS_TABLE_OFFSET,
                   "The table of " + std::to_string(typeCount) + " types takes " +
                       std::to_string(m_frame.tableSize()) + " bytes at " + hexText(table) +
                       ", and the storage ends at " + hexText(m_size) + ".");
        return false;
    }
    if (table < base + HEADER_SIZE && base < table + m_frame.tableSize())
        addForFile(FindingCode::TABLE_OVERLAPS_HEADER, "address table offset",
                   base + ADDRESS_TABLE_OFFSET,
                   "The table at " + hexText(table) + " shares bytes with the header.");
    m_types.facts.resize(typeCount);
    m_types.roles.resize(typeCount);
    m_references.begin();
    m_walks.begin();
    const std::vector<unsigned long long> addresses = m_frame.addresses();
    for (unsigned int id = 0; id < typeCount; ++id)
        m_types.facts[id].address = addresses[id];
    return true;
}

/// In the order of their addresses, so that overlaps are those of neighbours, and each byte of the
/// storage is looked at once.
void Verification::readRecords() {
    std::vector<unsigned int> order(m_types.size());
    for (unsigned int id = 0; id < order.size(); ++id)
        order[id] = id;
    const auto isBefore = [this](unsigned int left, unsigned int right) {
        return m_types[left].address < m_types[right].address;
    };
    if (!std::is_sorted(order.begin(), order.end(), isBefore))
        std::stable_sort(order.begin(), order.end(), isBefore);
    for (std::size_t first = 0; first < order.size();) {
        std::size_t next = first + 1;
        while (next < order.size() && !isBefore(order[first], order[next]))
            ++next;
        readRecord(order[first], next < order.size() ? m_types[order[next]].address : m_size);
        settle(order[first]);
        for (std::size_t i = first + 1; i < next; ++i)
            share(order[i], order[first]);
        first = next;
    }
    if (m_recordBytes > m_limits.maxRecordBytes)
        addForFile(FindingCode::LOAD_TOO_LARGE, "address table", m_frame.tableOffset(),
                   "The records take " + std::to_string(m_recordBytes) +
                       " bytes, each counted once a type, and the limit is " +
                       std::to_string(m_limits.maxRecordBytes) + ".");
}

void Verification::readRecord(unsigned int typeId, unsigned long long end) {
    unsigned int size = 0;
    m_lastSize = 0;
    if (!readFrame(typeId, size))
        return;
    m_lastSize = size;
    m_recordBytes += size;
    const bool isOfKind = checkKind(typeId);
    if (!overlaps(typeId, size, end) && isOfKind)
        m_records.verify(typeId, size);
}

/// Checks what the record leads to, as far as that has been read.
void Verification::settle(unsigned int typeId) {
    m_types.roles[typeId] = roleOf(m_types[typeId].kind);
    m_references.settle(typeId);
    if (m_walks.settle(typeId) && isAggregate(m_types[typeId].kind))
        m_types.dropMembers(typeId);
}

/// Size and kind. A record that is not all there leaves its kind 0.
bool Verification::readFrame(unsigned int typeId, unsigned int& size) {
    TypeFacts& type = m_types.facts[typeId];
    if (type.address > m_size || m_size - type.address < RECORD_HEADER_SIZE) {
        m_findings.add(FindingCode::RECORD_OUTSIDE_STORAGE, typeId, "address",
                       m_frame.entryOffset(typeId),
                       "The record begins at " + hexText(type.address) +
                           ", and the storage ends at " + hexText(m_size) + ".");
        return false;
    }
    const char* frame = m_sweep.at(type.address, RECORD_HEADER_SIZE);
    const int found = littleEndianAt<int>(frame);
    if (found < static_cast<int>(RECORD_HEADER_SIZE)) {
        m_findings.add(FindingCode::RECORD_SIZE_INVALID, typeId, "record size", type.address,
                       "Found " + std::to_string(found) +
                           ", and a record has at least 8 bytes for size and kind.");
        return false;
    }
    size = static_cast<unsigned int>(found);
    if (m_size - type.address < size) {
        m_findings.add(FindingCode::RECORD_OUTSIDE_STORAGE, typeId, "record size", type.address,
                       "The record takes " + std::to_string(size) +
                           " bytes, and the storage ends after " +
                           std::to_string(m_size - type.address) + ".");
        return false;
    }
    type.kind = littleEndianAt<unsigned int>(frame + RECORD_KIND_OFFSET);
    return true;
}

/// Whether the record shares bytes with the next one, which begins at `end`, with the header or
/// with the table. Its body is then passed over, so that nothing is looked at twice.
bool Verification::overlaps(unsigned int typeId, unsigned int size, unsigned long long end) {
    const unsigned long long begin = m_types[typeId].address;
    const auto meets = [&](unsigned long long from, unsigned long long to) {
        return begin < to && from < begin + size;
    };
    const char* other = meets(m_frame.baseOffset(), m_frame.baseOffset() + HEADER_SIZE)
                            ? "the header"
                        : meets(m_frame.tableOffset(), m_frame.entryOffset(m_frame.typeCount()))
                            ? "the address table"
                        : begin + size > end ? "the record that follows"
                                             : nullptr;
    if (other != nullptr)
        m_findings.add(FindingCode::RECORD_OVERLAP, typeId, "record size", begin,
                       "The record of " + std::to_string(size) + " bytes shares some with " +
                           other + ".");
    return other != nullptr;
}

bool Verification::checkKind(unsigned int typeId) {
    const TypeFacts& type = m_types[typeId];
    if (buildsType(type.kind))
        return true;
    if (isKind(type.kind))
        m_findings.add(FindingCode::KIND_WITHOUT_TYPE, typeId, "kind",
                       type.address + RECORD_KIND_OFFSET,
                       "No type is built from a record of kind " + hexText(type.kind) + ".");
    else
        m_findings.add(FindingCode::KIND_UNKNOWN, typeId, "kind", type.address + RECORD_KIND_OFFSET,
                       "Found " + hexText(type.kind) +
                           ", expected a kind from 0xa0000003 to 0xa0000019.");
    return false;
}

void Verification::share(unsigned int typeId, unsigned int other) {
    m_types.facts[typeId] = m_types.facts[other];
    m_types.roles[typeId] = m_types.roles[other];
    m_recordBytes += m_lastSize;
    m_findings.add(FindingCode::RECORD_SHARED, typeId, "address", m_frame.entryOffset(typeId),
                   "Type " + std::to_string(other) + " has its record at the same address.");
}

/// The walks through classes are counted only where every way down has an end.
void Verification::verifyReferences() {
    const bool allEnd = m_references.verify();
    const bool isFinite = m_walks.verify();
    if (allEnd && isFinite &&
        std::count(m_types.roles.begin(), m_types.roles.end(), Role::CLASS) != 0)
        WalksThroughClasses(m_types, m_parts, m_walks.costs(), m_findings, m_limits).verify();
}

} // namespace

std::vector<Finding> verify(OVAT::IBlockManager& storage, unsigned long long storageSize,
                            unsigned long long baseOffset, const VerifyLimits& limits) {
    return Verification(storage, storageSize, baseOffset, limits).run();
}

bool hasErrors(const std::vector<Finding>& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::ERROR; });
}

} // namespace TypeFile
