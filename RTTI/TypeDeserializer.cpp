#include "RTTI/TypeDeserializer.h"

#include <algorithm>
#include <utility>

namespace RTTI {

using namespace TypeFileFormat;

namespace {

/// Lists longer than this are given back when a call from outside ends.
constexpr std::size_t KEPT_LIST_CAPACITY = 1024;

template <typename T> void giveBack(std::vector<T>& list) {
    if (list.empty() && list.capacity() > KEPT_LIST_CAPACITY)
        std::vector<T>().swap(list);
}

} // namespace

bool TypeFileHeader::isInvalid() const {
    return std::equal(std::begin(RTTI_CONSTS::TYPE_FILE_VERSION_STR_INVALID),
                      std::end(RTTI_CONSTS::TYPE_FILE_VERSION_STR_INVALID), bytes);
}

unsigned int TypeFileHeader::typeCount() const {
    return littleEndianAt<unsigned int>(bytes + TYPE_COUNT_OFFSET);
}

unsigned int TypeFileHeader::addressTableOffset() const {
    return littleEndianAt<unsigned int>(bytes + ADDRESS_TABLE_OFFSET);
}

/// A call from outside, which may come from within the storage while another goes on. Unless it
/// comes to its end, the records that it opened are closed, and what it put into the table is taken
/// back.
class TypeDeserializer::LoadScope {
public:
    explicit LoadScope(TypeDeserializer& deserializer)
        : m_deserializer(deserializer), m_record(deserializer.m_record),
          m_cursor(deserializer.m_cursor), m_limit(deserializer.m_limit),
          m_openBefore(deserializer.m_open.size()),
          m_filledBefore(deserializer.m_filledSlots.size()),
          m_classesBefore(deserializer.m_classTypeIds.size()) {}
    LoadScope(const LoadScope&) = delete;
    LoadScope& operator=(const LoadScope&) = delete;

    ~LoadScope() {
        if (!m_complete)
            takeBack();
        m_deserializer.m_record = m_record;
        m_deserializer.m_cursor = m_cursor;
        m_deserializer.m_limit = m_limit;
        if (m_openBefore == 0)
            m_deserializer.m_filledSlots.clear();
        giveBack(m_deserializer.m_filledSlots);
        giveBack(m_deserializer.m_open);
    }

    RTBaseType* complete(RTBaseType* result) {
        m_complete = true;
        return result;
    }

private:
    void takeBack() {
        while (m_deserializer.m_open.size() != m_openBefore)
            m_deserializer.dropRecord();
        std::vector<unsigned int>& filled = m_deserializer.m_filledSlots;
        for (std::size_t i = m_filledBefore; i < filled.size(); ++i)
            delete std::exchange(m_deserializer.m_types[filled[i]], nullptr);
        filled.resize(m_filledBefore);
        m_deserializer.m_classTypeIds.resize(m_classesBefore);
    }

    TypeDeserializer& m_deserializer;
    const char* m_record;
    std::size_t m_cursor;
    std::size_t m_limit;
    std::size_t m_openBefore;
    std::size_t m_filledBefore;
    std::size_t m_classesBefore;
    bool m_complete = false;
};

TypeDeserializer::TypeDeserializer(OVAT::IBlockManager& blockManager, unsigned long long baseOffset)
    : m_blockManager(blockManager), m_baseOffset(baseOffset) {}

TypeDeserializer::~TypeDeserializer() {
    for (RTBaseType* type : m_types)
        delete type;
}

void TypeDeserializer::readHeader() {
    m_blockManager.read(m_baseOffset, m_header.bytes, HEADER_SIZE);
    if (m_header.isInvalid() || m_header.typeCount() == 0)
        return;
    checkListSize<unsigned long long>(m_header.typeCount());
    m_types.reserve(m_header.typeCount());
    readTypeAddressTable();
    m_types.resize(m_header.typeCount()); // Now that the storage has given as many addresses.
    m_openings.resize(m_header.typeCount());
}

void TypeDeserializer::readTypeAddressTable() {
    m_typeAddresses.reserve(m_header.typeCount());
    trace(nullptr, "** Address table begin **", nullptr, true);
    unsigned long long position = m_header.addressTableOffset();
    for (unsigned int i = 0; i < m_header.typeCount(); ++i) {
        char entry[ADDRESS_SIZE] = {};
        m_blockManager.read(position, entry, ADDRESS_SIZE);
        m_typeAddresses.push_back(littleEndianAt<unsigned long long>(entry));
        if (isTracing())
            traceAddress(i);
        position += ADDRESS_SIZE;
    }
    trace(nullptr, "** Address table end **", nullptr, true);
}

RTBaseType* TypeDeserializer::loadType(unsigned int typeId) {
    if (typeId >= m_types.size())
        return nullptr;
    if (RTBaseType* known = m_types[typeId])
        return known;
    LoadScope scope(*this);
    return scope.complete(readRTType(typeId));
}

RTBaseType* TypeDeserializer::loadAllTypes() {
    LoadScope scope(*this);
    RTBaseType* type = nullptr;
    for (std::size_t id = 0; id < m_types.size(); ++id) {
        type = readRTType(static_cast<unsigned int>(id));
        if (type == nullptr)
            break;
    }
    return scope.complete(type);
}

void TypeDeserializer::setDebugMode(bool debug) { m_debug = debug; }

std::vector<unsigned int>& TypeDeserializer::classTypeIds() { return m_classTypeIds; }

void TypeDeserializer::keepAlive(std::unique_ptr<TypeDeserializer> previous) {
    m_previous = std::move(previous);
}

/// The innermost record has nothing left to be read or followed.
inline void TypeDeserializer::closeRecord() {
    if (m_open.back().object)
        enterType();
    if (isTracing())
        traceRecordEnd(m_open.back().typeId);
    dropRecord();
}

inline void TypeDeserializer::dropRecord() {
    const OpenRecord& record = m_open.back();
    if (record.bytes != nullptr)
        m_recordBuffers.giveBack(record.bytes);
    m_openings[record.typeId] = record.outerOpening;
    m_open.pop_back();
}

/// The type in its slot, read now with all that it refers to.
RTBaseType* TypeDeserializer::readRTType(unsigned int typeId) {
    if (m_types[typeId] != nullptr || !canBeOpened(typeId))
        return m_types[typeId];
    const std::size_t outside = m_open.size();
    openRecord(typeId);
    while (true) {
        if (m_open.back().rest) {
            openRecord(m_open.back().wanted);
            continue;
        }
        closeRecord();
        if (m_open.size() == outside)
            return m_types[typeId];
        takeUpRecord();
    }
}

/// Reads a record up to the first type that it has to wait for, or to its end.
void TypeDeserializer::openRecord(unsigned int typeId) {
    const unsigned int outer = m_openings[typeId];
    const unsigned int timesOpen = outer != 0 ? m_open[outer - 1].timesOpen : 0;
    m_open.emplace_back(typeId, timesOpen + 1, outer, m_filledSlots.size());
    m_openings[typeId] = static_cast<unsigned int>(m_open.size());
    readKind(readBytes(typeId));
}

/// The three reads; the record's kind. In each of them the storage may call back, and open and
/// close other records.
inline unsigned int TypeDeserializer::readBytes(unsigned int typeId) {
    const unsigned long long address = m_typeAddresses[typeId];
    char word[RECORD_SIZE_SIZE] = {};
    m_blockManager.read(address, word, RECORD_SIZE_SIZE);
    const int size = littleEndianAt<int>(word);
    if (isTracing())
        traceRecordBegin(typeId);
    std::fill(std::begin(word), std::end(word), '\0');
    m_blockManager.read(address + RECORD_KIND_OFFSET, word, RECORD_KIND_SIZE);
    const auto kind = littleEndianAt<unsigned int>(word);

    char* const bytes = m_recordBuffers.take(countOrNone(size));
    m_open.back().bytes = bytes;
    m_open.back().size = countOrNone(size);
    if (size > 0)
        m_blockManager.read(address, bytes, size);
    m_record = bytes;
    m_cursor = 0;
    m_limit = countOrNone(size);
    return kind;
}

inline void TypeDeserializer::readKind(unsigned int kind) {
    switch (kind) {
    case ClassId::SEQ_ENUM: return readRTSeqEnumType();
    case ClassId::DISCRETE_ENUM: return readRTDiscreteEnumType();
    case ClassId::INT: return readRTIntType();
    case ClassId::FLOAT: return readRTFloatType();
    case ClassId::TYPEDEF: return readRTTypedefType();
    case ClassId::ACCESS: return readRTAccessType();
    case ClassId::CHANDLE: return readRTCHandle();
    case ClassId::EVENT: return readRTEventType();
    case ClassId::FILE_TYPE: return readRTFileType();
    case ClassId::PHYSICAL: return readRTPhysicalType();
    case ClassId::ARRAY: return readRTArrayType();
    case ClassId::RECORD: return readRTRecordType();
    case ClassId::DYNAMIC_ARRAY: return readRTDynamicArrayType();
    case ClassId::QUEUE: return readRTQueueType();
    case ClassId::ASSOC_ARRAY: return readRTAssocArrayType();
    case ClassId::CLASS: return readRTClassType();
    case ClassId::STRING: return readRTStringType();
    case ClassId::WILDCARD: return readRTWildCardType();
    default: return;
    }
}

/// The type that the innermost record waits for is there, or is none.
void TypeDeserializer::takeUpRecord() {
    OpenRecord& record = m_open.back();
    m_record = record.bytes;
    m_cursor = record.cursor;
    m_limit = record.size;
    *record.link = m_types[record.wanted];
    std::exchange(record.rest, Rest())();
}

} // namespace RTTI
