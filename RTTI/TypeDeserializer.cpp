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

/// Whether types of a kind refer to others that may lead back to them: those are resolved once the
/// object is in its slot.
bool isResolvedInItsSlot(unsigned int kind) {
    return kind == ClassId::CLASS || kind == ClassId::RECORD || kind == ClassId::ACCESS;
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

/// Takes back what a call from outside put into the table, unless the call comes to its end.
class TypeDeserializer::LoadScope {
public:
    explicit LoadScope(TypeDeserializer& deserializer)
        : m_deserializer(deserializer), m_firstFilled(deserializer.m_filledSlots.size()),
          m_firstDeferred(deserializer.m_deferred.size()),
          m_classCount(deserializer.m_classTypeIds.size()) {}
    LoadScope(const LoadScope&) = delete;
    LoadScope& operator=(const LoadScope&) = delete;

    ~LoadScope() {
        if (!m_complete)
            takeBack();
        std::vector<unsigned int>& filled = m_deserializer.m_filledSlots;
        filled.resize(m_complete && m_firstFilled != 0 ? filled.size() : m_firstFilled);
        giveBack(filled);
        m_deserializer.m_deferred.resize(m_firstDeferred);
        giveBack(m_deserializer.m_deferred);
    }

    RTBaseType* complete(RTBaseType* result) {
        m_complete = true;
        return result;
    }

private:
    void takeBack() {
        std::vector<unsigned int>& filled = m_deserializer.m_filledSlots;
        for (std::size_t i = m_firstFilled; i < filled.size(); ++i)
            delete std::exchange(m_deserializer.m_types[filled[i]], nullptr);
        m_deserializer.m_classTypeIds.resize(m_classCount);
    }

    TypeDeserializer& m_deserializer;
    std::size_t m_firstFilled;
    std::size_t m_firstDeferred;
    std::size_t m_classCount;
    bool m_complete = false;
};

/// Keeps a record open; at the end cursor and limit are those of the outer record again.
class TypeDeserializer::RecordScope {
public:
    RecordScope(TypeDeserializer& deserializer, unsigned int typeId)
        : m_deserializer(deserializer), m_cursor(deserializer.m_cursor),
          m_limit(deserializer.m_limit), m_record{typeId, chainBefore(deserializer) + 1,
                                                  deserializer.m_filledSlots.size(),
                                                  deserializer.m_openRecord} {
        deserializer.m_openRecord = &m_record;
        ++deserializer.m_depth;
    }
    RecordScope(const RecordScope&) = delete;
    RecordScope& operator=(const RecordScope&) = delete;

    ~RecordScope() {
        --m_deserializer.m_depth;
        m_deserializer.m_openRecord = m_record.outer;
        m_deserializer.m_cursor = m_cursor;
        m_deserializer.m_limit = m_limit;
    }

    /// What is read from here on is read for an object that is in its slot.
    void endChain() { m_record.chain = 0; }

private:
    static unsigned int chainBefore(const TypeDeserializer& deserializer) {
        return deserializer.m_openRecord != nullptr ? deserializer.m_openRecord->chain : 0;
    }

    TypeDeserializer& m_deserializer;
    const char* m_cursor;
    const char* m_limit;
    OpenRecord m_record;
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
    m_types = ZeroedTable<RTBaseType*>(m_header.typeCount());
    readTypeAddressTable();
}

void TypeDeserializer::readTypeAddressTable() {
    m_typeAddresses = ZeroedTable<unsigned long long>(m_header.typeCount());
    trace(nullptr, "** Address table begin **", nullptr, true);
    unsigned long long position = m_header.addressTableOffset();
    for (unsigned int i = 0; i < m_header.typeCount(); ++i) {
        char* const entry = reinterpret_cast<char*>(&m_typeAddresses[i]);
        m_blockManager.read(position, entry, ADDRESS_SIZE);
        m_typeAddresses[i] = littleEndianAt<unsigned long long>(entry);
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
    return scope.complete(readCompletely(typeId));
}

RTBaseType* TypeDeserializer::loadAllTypes() {
    LoadScope scope(*this);
    RTBaseType* type = nullptr;
    for (std::size_t id = 0; id < m_types.size(); ++id) {
        type = readCompletely(static_cast<unsigned int>(id));
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

/// Reads a type and all that it refers to, however deep.
inline RTBaseType* TypeDeserializer::readCompletely(unsigned int typeId) {
    const std::size_t first = m_deferred.size();
    RTBaseType* const type = readRTType(typeId);
    if (m_deferred.size() != first)
        resolveDeferred(first);
    return type;
}

RTBaseType* TypeDeserializer::readRTType(unsigned int typeId) {
    if (typeId >= m_types.size())
        return nullptr;
    if (RTBaseType* known = m_types[typeId])
        return known;
    return canBeReached(typeId) ? readRecord(typeId) : nullptr;
}

inline bool TypeDeserializer::canBeReached(unsigned int typeId) const {
    if (m_openRecord == nullptr)
        return true;
    return m_openRecord->chain < CHAIN_LIMIT && !comesBackWithoutEnd(typeId);
}

/// A record that is being read is read once more only if a slot was filled in between: only then
/// can the second reading come to an end.
inline bool TypeDeserializer::comesBackWithoutEnd(unsigned int typeId) const {
    for (const OpenRecord* open = m_openRecord;
         open != nullptr && open->filledBefore == m_filledSlots.size(); open = open->outer) {
        if (open->typeId == typeId)
            return true;
    }
    return false;
}

RTBaseType* TypeDeserializer::readRecord(unsigned int typeId) {
    RecordScope scope(*this, typeId);
    RTBaseType* const type = buildType(typeId);
    if (type != nullptr && !isTooDeep()) {
        scope.endChain();
        resolveReferences(*type);
    }
    if (isTracing())
        traceRecordEnd(typeId);
    return m_types[typeId];
}

/// Fills the slot. The answer is the object if it refers to types that are resolved from now on,
/// else null. Not part of `readRecord`, whose frame stays on the stack while they are read.
[[gnu::noinline]] RTBaseType* TypeDeserializer::buildType(unsigned int typeId) {
    const unsigned long long address = m_typeAddresses[typeId];
    char word[RECORD_SIZE_SIZE] = {};
    m_blockManager.read(address, word, RECORD_SIZE_SIZE);
    const int size = littleEndianAt<int>(word);
    if (isTracing())
        traceRecordBegin(typeId);
    std::fill(std::begin(word), std::end(word), '\0');
    m_blockManager.read(address + RECORD_KIND_OFFSET, word, RECORD_KIND_SIZE);
    const auto kind = littleEndianAt<unsigned int>(word);

    const RecordBuffers::Buffer record(m_recordBuffers, countOrNone(size));
    if (size > 0)
        m_blockManager.read(address, record.bytes(), size);
    m_limit = record.bytes() + countOrNone(size) - 1;
    return enterType(typeId, kind, readKind(kind, record.bytes()));
}

inline std::unique_ptr<RTBaseType> TypeDeserializer::readKind(unsigned int kind,
                                                              const char* record) {
    switch (kind) {
    case ClassId::SEQ_ENUM: return readRTSeqEnumType(record);
    case ClassId::DISCRETE_ENUM: return readRTDiscreteEnumType(record);
    case ClassId::INT: return readRTIntType(record);
    case ClassId::FLOAT: return readRTFloatType(record);
    case ClassId::TYPEDEF: return readRTTypedefType(record);
    case ClassId::ACCESS: return readRTAccessType(record);
    case ClassId::CHANDLE: return readRTCHandle(record);
    case ClassId::EVENT: return readRTEventType(record);
    case ClassId::FILE_TYPE: return readRTFileType(record);
    case ClassId::PHYSICAL: return readRTPhysicalType(record);
    case ClassId::ARRAY: return readRTArrayType(record);
    case ClassId::RECORD: return readRTRecordType(record);
    case ClassId::DYNAMIC_ARRAY: return readRTDynamicArrayType(record);
    case ClassId::QUEUE: return readRTQueueType(record);
    case ClassId::ASSOC_ARRAY: return readRTAssocArrayType(record);
    case ClassId::CLASS: return readRTClassType(record);
    case ClassId::STRING: return readRTStringType(record);
    case ClassId::WILDCARD: return readRTWildCardType(record);
    default: return nullptr;
    }
}

/// An inner reading of the same record may have filled the slot first; then this object is
/// released, since other types may already point at the one in the slot.
inline RTBaseType* TypeDeserializer::enterType(unsigned int typeId, unsigned int kind,
                                               std::unique_ptr<RTBaseType> type) {
    if (!type || m_types[typeId] != nullptr)
        return nullptr;
    m_filledSlots.push_back(typeId);
    RTBaseType* const entered = m_types[typeId] = type.release();
    if (kind == ClassId::CLASS)
        m_classTypeIds.push_back(typeId);
    if (!isResolvedInItsSlot(kind))
        return nullptr;
    if (isTooDeep())
        m_deferred.push_back(entered);
    return entered;
}

/// Whether what a type refers to has to wait until fewer records are open.
inline bool TypeDeserializer::isTooDeep() const { return m_depth >= NESTING_LIMIT; }

/// Works the list off from its front, so that types are completed in the order in which they were
/// read. Each has the whole depth to itself; what it leaves for later joins the list.
void TypeDeserializer::resolveDeferred(std::size_t first) {
    for (std::size_t next = first; next < m_deferred.size(); ++next)
        resolveReferences(*m_deferred[next]);
    m_deferred.resize(first);
}

/// Not part of `readRecord`, whose frame would be larger for all kinds.
[[gnu::noinline]] void TypeDeserializer::resolveReferences(RTBaseType& type) {
    if (type.GetClassId() == ClassId::ACCESS)
        resolveAccess(static_cast<RTAccessType&>(type));
    else
        resolveMembers(static_cast<RTAggregateType&>(type));
}

inline void TypeDeserializer::resolveAccess(RTAccessType& access) {
    access.m_refType = readRTType(access.m_refTypeId);
}

inline void TypeDeserializer::resolveMembers(RTAggregateType& aggregate) {
    aggregate.m_memberTypes.reserve(aggregate.m_members.size());
    for (const RTAggregateType::t_Member* member : aggregate.m_members)
        aggregate.m_memberTypes.push_back(readRTType(member->m_typeId));
}

} // namespace RTTI
