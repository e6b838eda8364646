#include "bench/LoadFloor.h"

#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
#include "RTTI/TypeFileFormat.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <unordered_map>
#include <utility>

namespace Bench {

using namespace RTTI;

namespace {

/// Writes down the reads that it hands on.
class RecordedStorage : public OVAT::IBlockManager {
public:
    struct Read {
        unsigned long long offset;
        long long count;
    };

    explicit RecordedStorage(OVAT::IBlockManager& storage) : m_storage(storage) {}

    bool read(unsigned long long offset, void* buffer, long long count) override {
        m_reads.push_back({offset, count});
        return m_storage.read(offset, buffer, count);
    }
    std::vector<Read> takeReads() { return std::exchange(m_reads, {}); }

private:
    OVAT::IBlockManager& m_storage;
    std::vector<Read> m_reads;
};

/// Appends the sizes of the heap blocks of one type, in the order in which a load makes them.
class BlockLister {
public:
    explicit BlockLister(std::vector<unsigned int>& sizes) : m_sizes(sizes) {}

    void list(const RTBaseType& type);

private:
    void block(std::size_t size) {
        if (size != 0)
            m_sizes.push_back(static_cast<unsigned int>(size));
    }
    void name(const char* text) { block(std::strlen(text) + 1); }
    void name(const std::string& text) {
        static const std::size_t inside = std::string().capacity();
        block(text.size() > inside ? text.size() + 1 : 0);
    }
    template <typename T> void list(const std::vector<T>& vector) {
        // NOLINTNEXTLINE(bugprone-sizeof-expression): the lists of pointers are meant, too.
        block(vector.size() * sizeof(T));
    }
    template <typename Member> void members(const RTAggregateType& type);
    void parts(const RTSeqEnumType& type);
    void parts(const RTDiscreteEnumType& type);
    void parts(const RTPhysicalType& type);

    std::vector<unsigned int>& m_sizes;
};

template <typename Type> const Type& as(const RTBaseType& type) {
    return static_cast<const Type&>(type);
}

std::size_t objectSize(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM: return sizeof(RTSeqEnumType);
    case ClassId::DISCRETE_ENUM: return sizeof(RTDiscreteEnumType);
    case ClassId::INT: return sizeof(RTIntType);
    case ClassId::FLOAT: return sizeof(RTFloatType);
    case ClassId::TYPEDEF: return sizeof(RTTypedefType);
    case ClassId::ACCESS: return sizeof(RTAccessType);
    case ClassId::FILE_TYPE: return sizeof(RTFileType);
    case ClassId::EVENT: return sizeof(RTEventType);
    case ClassId::PHYSICAL: return sizeof(RTPhysicalType);
    case ClassId::ARRAY: return sizeof(RTArrayType);
    case ClassId::RECORD: return sizeof(RTRecordType);
    case ClassId::DYNAMIC_ARRAY: return sizeof(RTDynamicArrayType);
    case ClassId::QUEUE: return sizeof(RTQueueType);
    case ClassId::ASSOC_ARRAY: return sizeof(RTAssocArrayType);
    case ClassId::CLASS: return sizeof(RTClassType);
    default: return sizeof(RTBaseType); // No fields of their own.
    }
}

void BlockLister::list(const RTBaseType& type) {
    block(objectSize(type));
    name(type.m_name);
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM: return parts(as<RTSeqEnumType>(type));
    case ClassId::DISCRETE_ENUM: return parts(as<RTDiscreteEnumType>(type));
    case ClassId::PHYSICAL: return parts(as<RTPhysicalType>(type));
    case ClassId::TYPEDEF: return list(as<RTTypedefType>(type).m_constraints);
    case ClassId::ARRAY:
        list(as<RTArrayType>(type).m_indexTypeIds);
        return list(as<RTArrayType>(type).m_constraints);
    case ClassId::RECORD: return members<RTAggregateType::t_Member>(as<RTAggregateType>(type));
    case ClassId::CLASS: return members<RTClassType::t_ClassMember>(as<RTAggregateType>(type));
    default: return;
    }
}

template <typename Member> void BlockLister::members(const RTAggregateType& type) {
    list(type.m_members);
    for (const RTAggregateType::t_Member* member : type.m_members) {
        block(sizeof(Member));
        name(member->m_memberName);
        list(member->m_constraints);
    }
    list(type.m_memberTypes);
}

void BlockLister::parts(const RTSeqEnumType& type) {
    list(type.m_enumeratorNames);
    for (const char* literal : type.m_enumeratorNames)
        name(literal);
}

void BlockLister::parts(const RTDiscreteEnumType& type) {
    list(type.m_enumerators);
    for (const t_enumNameAndValuePair& literal : type.m_enumerators) {
        name(literal.enumName);
        block(type.m_valueSize);
    }
    list(type.m_constraints);
}

void BlockLister::parts(const RTPhysicalType& type) {
    list(type.m_units);
    for (const t_unitNameAndValuePair& unit : type.m_units)
        name(unit.unitName);
}

} // namespace

LoadPlan::LoadPlan(OVAT::IBlockManager& storage) {
    RecordedStorage recorded(storage);
    RTTypeManager manager;
    manager.setupDeserializer(recorded, 0);
    const auto tableReads = recorded.takeReads();
    manager.readAllRTTypes();
    const auto reads = recorded.takeReads();

    m_addressTable = tableReads[1].offset;
    m_recordOfType.resize(tableReads.size() - 1);
    m_classCount = static_cast<unsigned int>(manager.getRTClassTypeIds().size());
    std::unordered_map<unsigned long long, unsigned int> typeAt;
    for (unsigned int id = 0; id < typeCount(); ++id) {
        unsigned long long address = 0;
        storage.read(m_addressTable + id * sizeof(address), &address, sizeof(address));
        typeAt[address] = id;
    }
    std::vector<bool> wasRead(typeCount());
    BlockLister lister(m_blockSizes);
    for (std::size_t i = 0; i < reads.size(); i += 3) { // Size, kind, whole record.
        const unsigned int id = typeAt.at(reads[i].offset);
        if (!wasRead[id]) { // A second reading leaves no object.
            wasRead[id] = true;
            lister.list(*manager.getRTType(id));
            m_recordOfType[id] = static_cast<unsigned int>(m_records.size());
        }
        m_records.push_back({reads[i].offset, static_cast<unsigned int>(reads[i + 2].count),
                             static_cast<unsigned int>(m_blockSizes.size())});
    }
}

LoadFloor::LoadFloor(const LoadPlan& plan) : m_plan(plan), m_blocks(plan.blockSizes().size()) {
    m_tables.reserve(3);
}

LoadFloor::~LoadFloor() { tearDown(); }

void LoadFloor::readAddressTable(OVAT::IBlockManager& storage) {
    char header[TypeFileFormat::HEADER_SIZE];
    storage.read(0, header, sizeof(header));
    const std::size_t count = m_plan.typeCount();
    m_tables.push_back(::operator new(count * sizeof(void*)));
    auto* const addresses = static_cast<unsigned long long*>(
        m_tables.emplace_back(::operator new(count * sizeof(unsigned long long))));
    for (std::size_t i = 0; i < count; ++i)
        storage.read(m_plan.addressTable() + i * TypeFileFormat::ADDRESS_SIZE, addresses + i,
                     TypeFileFormat::ADDRESS_SIZE);
    m_tables.push_back(::operator new(m_plan.classCount() * sizeof(unsigned int)));
}

void LoadFloor::load(OVAT::IBlockManager& storage) {
    readAddressTable(storage);
    const unsigned int* const sizes = m_plan.blockSizes().data();
    unsigned int block = 0;
    for (const LoadPlan::Record& record : m_plan.records()) {
        char word[4];
        storage.read(record.address, word, sizeof(word));
        storage.read(record.address + TypeFileFormat::RECORD_KIND_OFFSET, word, sizeof(word));
        void* const buffer = std::malloc(record.size);
        storage.read(record.address, buffer, static_cast<long long>(record.size));
        for (; block < record.blocksEnd; ++block)
            m_blocks[block] = ::operator new(sizes[block]);
        std::free(buffer);
    }
}

void LoadFloor::tearDown() {
    if (m_tables.empty())
        return;
    for (const unsigned int record : m_plan.recordOfType()) {
        unsigned int block = record == 0 ? 0 : m_plan.records()[record - 1].blocksEnd;
        for (; block < m_plan.records()[record].blocksEnd; ++block)
            ::operator delete(m_blocks[block]);
    }
    releaseTables();
}

void LoadFloor::releaseTables() {
    for (void* table : m_tables)
        ::operator delete(table);
    m_tables.clear();
}

} // namespace Bench
