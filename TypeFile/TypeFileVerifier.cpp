#include "TypeFile/TypeFileVerifier.h"

#include "OVAT/Counted.h"
#include "RTTI/TypeFileFormat.h"
#include "TypeFile/FindingList.h"
#include "TypeFile/GroupVerifier.h"
#include "TypeFile/PartVerifier.h"
#include "TypeFile/RecordOrder.h"
#include "TypeFile/RecordVerifier.h"
#include "TypeFile/StorageWindow.h"
#include "TypeFile/TypeFileFrame.h"
#include "TypeFile/WalkCounter.h"

#include <algorithm>

namespace TypeFile {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;
using OVAT::counted;

namespace {

/// Records are read once, in the order of the storage, in blocks that stay in a cache.
constexpr std::size_t SWEEP_BLOCK = 65536;

/// Those with something to say about what they lead to are read again, in any order.
constexpr std::size_t JUMP_BLOCK = 2048;

} // namespace

/// One verification: each record by itself, then what types lead to, then how long walks are.
class Verification {
public:
    Verification(OVAT::IBlockManager& storage, unsigned long long storageSize,
                 unsigned long long baseOffset, const VerifyLimits& limits, std::size_t block)
        : m_frame(storage, storageSize, baseOffset), m_sweep(storage, storageSize, block),
          m_jumps(storage, storageSize, JUMP_BLOCK), m_size(storageSize), m_limits(limits),
          m_findings(limits.maxFindings), m_steps(limits.maxWalkSteps),
          m_records(m_sweep, m_jumps, m_types, m_findings),
          m_parts(m_jumps, m_types, m_records, m_findings, m_steps) {}

    /// Checks what comes before the records. False if they cannot be found.
    bool begin() { return checkHeader() && readTable(); }

    void verifyAll();

    /// Checks types with all that they lead to, unless that was done before.
    void verify(const std::vector<unsigned int>& typeIds);

    std::vector<Finding> takeFindings() { return m_findings.take(); }

private:
    bool checkHeader();
    bool readTable();
    std::size_t readRecords(std::size_t place);
    void verifyDeferred();
    bool isTooLarge() const { return m_recordBytes > m_limits.maxRecordBytes; }
    void addTooLarge();
    [[gnu::always_inline]] inline void readRecord(unsigned int typeId, unsigned long long end);
    [[gnu::always_inline]] inline bool readFrame(unsigned int typeId);
    void addOutside(unsigned int typeId);
    void addWrongSize(unsigned int typeId, int found);
    void addCut(unsigned int typeId, unsigned int size);
    [[gnu::always_inline]] inline bool overlaps(unsigned int typeId, unsigned long long end);
    [[gnu::cold]] void addOverlap(unsigned int typeId, const char* other);
    [[gnu::cold]] void addWrongKind(unsigned int typeId);
    void share(unsigned int typeId, unsigned int other);
    void placeDeferred();
    void addForFile(FindingCode code, const char* field, unsigned long long offset,
                    std::string text) {
        m_findings.add(code, NO_TYPE_ID, field, offset, std::move(text));
    }

    TypeFileFrame m_frame;
    StorageWindow m_sweep;
    StorageWindow m_jumps;
    unsigned long long m_size;
    const VerifyLimits m_limits;
    FindingList m_findings;
    WalkSteps m_steps;
    TypeNodes m_types;
    RecordOrder m_order;
    RecordVerifier m_records;
    PartVerifier m_parts;
    std::vector<bool> m_isRead;          ///< By id, where types are verified one by one.
    std::vector<unsigned int> m_waiting; ///< Types to be read, each maybe more than once.
    unsigned long long m_tableEnd = 0;
    unsigned long long m_recordBytes = 0;

    // The record that was read last.
    unsigned int m_recordSize = 0; ///< 0 where it is not in the storage.
    unsigned int m_kind = 0;
    RecordParts m_record;
};

/// Any version will do, since the loader takes any; but a file of zeros has none.
bool Verification::checkHeader() {
    const unsigned long long base = m_frame.baseOffset();
    if (!m_frame.hasHeader()) {
        addForFile(FindingCode::HEADER_OUTSIDE_STORAGE, Field::HEADER, base,
                   "The header takes 40 bytes, and the storage ends at " + hexText(m_size) + ".");
        return false;
    }
    if (!m_frame.hasVersionText())
        addForFile(FindingCode::VERSION_NOT_TEXT, Field::VERSION, base,
                   "There is no printable text that ends within 32 bytes.");
    if (!m_frame.isMarkedUnusable())
        return true;
    addForFile(FindingCode::MARKED_UNUSABLE, Field::VERSION, base,
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
        addForFile(FindingCode::TABLE_OUTSIDE_STORAGE, Field::ADDRESS_TABLE_OFFSET,
                   base + ADDRESS_TABLE_OFFSET,
                   "The table of " + counted(typeCount, "type") + " takes " +
                       counted(m_frame.tableSize(), "byte") + " at " + hexText(table) +
                       ", and the storage ends at " + hexText(m_size) + ".");
        return false;
    }
    if (table < base + HEADER_SIZE && base < table + m_frame.tableSize())
        addForFile(FindingCode::TABLE_OVERLAPS_HEADER, Field::ADDRESS_TABLE_OFFSET,
                   base + ADDRESS_TABLE_OFFSET,
                   "The table at " + hexText(table) + " shares bytes with the header.");
    m_tableEnd = table + m_frame.tableSize();
    m_types.addresses = m_frame.addresses();
    m_types.states.resize(typeCount);
    m_types.counts.resize(typeCount);
    m_order = RecordOrder(m_types.addresses);
    return true;
}

/// In the order of their addresses, so that overlaps are those of neighbours, and each byte of the
/// storage is looked at once.
void Verification::verifyAll() {
    for (std::size_t place = 0; place < m_types.size();)
        place = readRecords(place);
    if (isTooLarge())
        addTooLarge();
    verifyDeferred();
}

/// Types are read before what they lead to, so that most of them are deferred.
void Verification::verify(const std::vector<unsigned int>& typeIds) {
    m_isRead.resize(m_types.size());
    m_waiting.assign(typeIds.begin(), typeIds.end());
    while (!m_waiting.empty() && !isTooLarge()) {
        const unsigned int typeId = m_waiting.back();
        m_waiting.pop_back();
        if (typeId >= m_types.size() || m_isRead[typeId])
            continue;
        const std::size_t place = m_order.placeFrom(m_types.addresses[typeId]);
        const std::size_t next = readRecords(place);
        for (std::size_t i = place; i < next; ++i)
            m_isRead[m_order.idAt(i)] = true;
        for (const Part& part : m_record.all().parts)
            m_waiting.push_back(part.target);
    }
    if (isTooLarge())
        return addTooLarge();
    verifyDeferred();
    for (const DeferredType& type : m_types.deferred)
        m_types.states[type.typeId].isFinished = true; // Nothing read later is below it.
    m_types.deferred.clear();
    m_types.parts.clear();
    m_types.longLists.clear();
}

void Verification::verifyDeferred() {
    if (m_types.deferred.empty())
        return;
    placeDeferred();
    GroupVerifier(m_types, m_parts, m_records).verify();
    WalkCounter(m_types, m_findings, m_limits, m_steps, m_frame.tableOffset()).verify();
}

void Verification::addTooLarge() {
    addForFile(FindingCode::LOAD_TOO_LARGE, Field::ADDRESS_TABLE, m_frame.tableOffset(),
               "The records take " + counted(m_recordBytes, "byte") +
                   ", each counted once for each type, and the limit is " +
                   std::to_string(m_limits.maxRecordBytes) + ".");
}

/// Size and kind, if the record is all there.
bool Verification::readFrame(unsigned int typeId) {
    const unsigned long long address = m_types.addresses[typeId];
    const RecordFrame frame = recordFrameAt(m_sweep, address);
    if (frame.isWhole()) {
        m_recordSize = static_cast<unsigned int>(frame.claimedSize);
        m_kind = frame.kind;
        return true;
    }
    if (!frame.hasHead())
        addOutside(typeId);
    else if (frame.claimedSize < static_cast<int>(RECORD_HEADER_SIZE))
        addWrongSize(typeId, frame.claimedSize);
    else
        addCut(typeId, static_cast<unsigned int>(frame.claimedSize));
    return false;
}

/// Whether the record shares bytes with the next one, which begins at `end`, with the header or
/// with the table. Its body is then passed over, so that nothing is looked at twice.
bool Verification::overlaps(unsigned int typeId, unsigned long long end) {
    const unsigned long long begin = m_types.addresses[typeId];
    const auto meets = [&](unsigned long long from, unsigned long long to) {
        return begin < to && from < begin + m_recordSize;
    };
    const bool meetsHeader = meets(m_frame.baseOffset(), m_frame.baseOffset() + HEADER_SIZE);
    const bool meetsTable = meets(m_frame.tableOffset(), m_tableEnd);
    if (!meetsHeader && !meetsTable && begin + m_recordSize <= end)
        return false;
    addOverlap(typeId, meetsHeader  ? "the header"
                       : meetsTable ? "the address table"
                                    : "the record that follows");
    return true;
}

void Verification::addOverlap(unsigned int typeId, const char* other) {
    m_findings.add(
        FindingCode::RECORD_OVERLAP, typeId, Field::RECORD_SIZE, m_types.addresses[typeId],
        "The record of " + std::to_string(m_recordSize) + " bytes shares some with " + other + ".");
}

void Verification::readRecord(unsigned int typeId, unsigned long long end) {
    m_record.clear();
    m_recordSize = 0;
    Role role = Role::UNREADABLE;
    if (readFrame(typeId)) {
        m_recordBytes += m_recordSize;
        role = roleOf(m_kind);
        if (role == Role::NO_TYPE)
            addWrongKind(typeId);
        if (!overlaps(typeId, end) && role != Role::NO_TYPE)
            m_records.verify(typeId, m_recordSize, m_kind, m_record);
    }
    m_types.states[typeId].setRole(role);
    m_parts.verify(typeId, m_record.all());
}

/// Those of all types that share the record at this place. Gives the place of the next one.
std::size_t Verification::readRecords(std::size_t place) {
    const unsigned int first = m_order.idAt(place);
    const std::size_t next = m_order.placeBehind(place);
    readRecord(first, next < m_order.size() ? m_order.addressAt(next) : m_size);
    for (std::size_t i = place + 1; i < next; ++i)
        share(m_order.idAt(i), first);
    return next;
}

void Verification::addOutside(unsigned int typeId) {
    m_findings.add(FindingCode::RECORD_OUTSIDE_STORAGE, typeId, Field::ADDRESS,
                   m_frame.entryOffset(typeId),
                   "The record begins at " + hexText(m_types.addresses[typeId]) +
                       ", and the storage ends at " + hexText(m_size) + ".");
}

void Verification::addWrongSize(unsigned int typeId, int found) {
    m_findings.add(FindingCode::RECORD_SIZE_INVALID, typeId, Field::RECORD_SIZE,
                   m_types.addresses[typeId],
                   "Found " + std::to_string(found) +
                       ", and a record has at least 8 bytes for size and kind.");
}

void Verification::addCut(unsigned int typeId, unsigned int size) {
    const unsigned long long address = m_types.addresses[typeId];
    m_findings.add(FindingCode::RECORD_OUTSIDE_STORAGE, typeId, Field::RECORD_SIZE, address,
                   "The record takes " + counted(size, "byte") + ", and the storage ends after " +
                       std::to_string(m_size - address) + ".");
}

void Verification::addWrongKind(unsigned int typeId) {
    const unsigned long long offset = m_types.addresses[typeId] + RECORD_KIND_OFFSET;
    if (isKind(m_kind))
        m_findings.add(FindingCode::KIND_WITHOUT_TYPE, typeId, Field::KIND, offset,
                       "No type is built from a record of kind " + hexText(m_kind) + ".");
    else
        m_findings.add(FindingCode::KIND_UNKNOWN, typeId, Field::KIND, offset,
                       "Found " + hexText(m_kind) +
                           ", expected a kind from 0xa0000003 to 0xa0000019.");
}

/// Lets them be found by id. Records are not always read in the order of the ids.
void Verification::placeDeferred() {
    std::vector<DeferredType>& deferred = m_types.deferred;
    const auto byId = [](const DeferredType& left, const DeferredType& right) {
        return left.typeId < right.typeId;
    };
    if (!std::is_sorted(deferred.begin(), deferred.end(), byId))
        std::sort(deferred.begin(), deferred.end(), byId);
    m_types.places.resize(m_types.size());
    for (unsigned int place = 0; place < deferred.size(); ++place)
        m_types.places[deferred[place].typeId] = place;
}

/// The record that was read last is this type's as well. Where sharing makes a load too large, it
/// would also take too long to look at the parts once a type.
void Verification::share(unsigned int typeId, unsigned int other) {
    m_recordBytes += m_recordSize;
    m_types.states[typeId].setRole(m_types.states[other].role);
    if (m_recordBytes > m_limits.maxRecordBytes)
        m_record.clear();
    if (m_record.isEmpty() || m_types.states[other].isFinished) {
        m_parts.verify(typeId, m_record.all());
    } else {
        m_types.deferred.push_back(m_types.deferred.back()); // That of the other type, or a copy.
        m_types.deferred.back().typeId = typeId;
    }
    if (!m_findings.hasRoom(FindingCode::RECORD_SHARED))
        return m_findings.leaveOut(FindingCode::RECORD_SHARED);
    m_findings.add(FindingCode::RECORD_SHARED, typeId, Field::ADDRESS, m_frame.entryOffset(typeId),
                   "Type " + std::to_string(other) + " has its record at the same address.");
}

std::vector<Finding> verify(OVAT::IBlockManager& storage, unsigned long long storageSize,
                            unsigned long long baseOffset, const VerifyLimits& limits) {
    Verification verification(storage, storageSize, baseOffset, limits, SWEEP_BLOCK);
    if (verification.begin())
        verification.verifyAll();
    return verification.takeFindings();
}

TypeVerifier::TypeVerifier(OVAT::IBlockManager& storage, unsigned long long storageSize,
                           unsigned long long baseOffset, const VerifyLimits& limits)
    : m_verification(
          std::make_unique<Verification>(storage, storageSize, baseOffset, limits, JUMP_BLOCK)),
      m_hasTable(m_verification->begin()) {}

TypeVerifier::~TypeVerifier() = default;

std::vector<Finding> TypeVerifier::verify(const std::vector<unsigned int>& typeIds) {
    if (m_hasTable)
        m_verification->verify(typeIds);
    return m_verification->takeFindings();
}

bool hasErrors(const std::vector<Finding>& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::ERROR; });
}

} // namespace TypeFile
