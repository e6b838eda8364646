#pragma once

#include "OVAT/IBlockManager.h"
#include "RTTI/LittleEndian.h"
#include "RTTI/RTType.h"
#include "RTTI/RecordBuffers.h"
#include "RTTI/TypeFileFormat.h"
#include "RTTI/ZeroedTable.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace RTTI {

/// The header of a type file, as the storage gave it.
struct TypeFileHeader {
    char bytes[TypeFileFormat::HEADER_SIZE] = {};

    /// Whether the version text is the marker of a file without usable types.
    bool isInvalid() const;
    unsigned int typeCount() const;
    unsigned int addressTableOffset() const;
};
static_assert(sizeof(TypeFileHeader) == TypeFileFormat::HEADER_SIZE);

/// Turns the records of one type file into type objects, which it owns.
///
/// Reading recurs: a record that refers to another type has it read at once. Each record is read
/// into a buffer of its own; cursor and limit point into the innermost one. A field that does not
/// lie wholly inside the record has its default, and nothing outside a buffer is ever touched.
///
/// A reference is followed either by the record's reader, before there is an object, or once the
/// object is in its slot: members and designated types. The latter wait in a list where records
/// nest too deep (`NESTING_LIMIT`); the former are null there (`CHAIN_LIMIT`). A reader's link
/// always leads to an object that was in its slot before the reader was done, so that no cycle of
/// links is without a member or an access type.
class TypeDeserializer {
public:
    TypeDeserializer(OVAT::IBlockManager& blockManager, unsigned long long baseOffset);
    ~TypeDeserializer();

    /// Reads the header and, if the file holds types, the address table.
    void readHeader();

    /// Reads one address a type, with one storage read each.
    void readTypeAddressTable();

    /// `RTTypeManager::getRTType`: a whole call from outside, taken back if an exception ends it.
    RTBaseType* loadType(unsigned int typeId);

    /// `RTTypeManager::readAllRTTypes`, likewise.
    RTBaseType* loadAllTypes();

    void setDebugMode(bool debug);
    std::vector<unsigned int>& classTypeIds();

    /// Keeps the types of the deserializer that this one takes the place of.
    void keepAlive(std::unique_ptr<TypeDeserializer> previous);

    /// Writes one trace item, if the trace is on: label, value and tail, a space after each.
    void printDebugInfo(const char* label, const std::string& value, const char* tail,
                        bool newline);

    /// The decimal text of a number, in the stream's default format.
    template <typename T> static const std::string NumberToString(T number);

private:
    class LoadScope;
    class RecordScope;

    /// A record that is open: it is being read, or what its object refers to is.
    struct OpenRecord {
        unsigned int typeId;
        unsigned int chain;       ///< Readers that wait for one another; 0 when this one is done.
        std::size_t filledBefore; ///< How many slots were filled when its reading began.
        const OpenRecord* outer;
    };

    // Record framing.
    RTBaseType* readCompletely(unsigned int typeId);
    RTBaseType* readRTType(unsigned int typeId);
    RTBaseType* readRecord(unsigned int typeId);
    RTBaseType* buildType(unsigned int typeId);
    std::unique_ptr<RTBaseType> readKind(unsigned int kind, const char* record);
    bool canBeReached(unsigned int typeId) const;
    bool comesBackWithoutEnd(unsigned int typeId) const;
    RTBaseType* enterType(unsigned int typeId, unsigned int kind, std::unique_ptr<RTBaseType> type);

    // References that are followed once the object is in its slot.
    bool isTooDeep() const;
    void resolveDeferred(std::size_t first);
    void resolveReferences(RTBaseType& type);
    void resolveAccess(RTAccessType& access);
    void resolveMembers(RTAggregateType& aggregate);

    // Fields of a record.
    std::size_t bytesLeft() const { return static_cast<std::size_t>(m_limit + 1 - m_cursor); }
    template <typename T> T readField(T shortValue = 0);
    std::string_view readName();
    char* readOwnedName();
    void readRTBaseType(RTBaseType& type);
    void readConstraint(FullConstraints* constraint);
    void readConstraintVector(std::vector<FullConstraints>& constraints);
    void readConstraints(std::vector<FullConstraints>& constraints, unsigned int count);

    // One reader a kind. `record` is the start of the record, its header included.
    std::unique_ptr<RTBaseType> readRTSeqEnumType(const char* record);
    std::unique_ptr<RTBaseType> readRTDiscreteEnumType(const char* record);
    std::unique_ptr<RTBaseType> readRTIntType(const char* record);
    std::unique_ptr<RTBaseType> readRTFloatType(const char* record);
    std::unique_ptr<RTBaseType> readRTTypedefType(const char* record);
    std::unique_ptr<RTBaseType> readRTAccessType(const char* record);
    std::unique_ptr<RTBaseType> readRTCHandle(const char* record);
    std::unique_ptr<RTBaseType> readRTEventType(const char* record);
    std::unique_ptr<RTBaseType> readRTFileType(const char* record);
    std::unique_ptr<RTBaseType> readRTPhysicalType(const char* record);
    std::unique_ptr<RTBaseType> readRTArrayType(const char* record);
    std::unique_ptr<RTBaseType> readRTRecordType(const char* record);
    std::unique_ptr<RTBaseType> readRTDynamicArrayType(const char* record);
    std::unique_ptr<RTBaseType> readRTQueueType(const char* record);
    std::unique_ptr<RTBaseType> readRTAssocArrayType(const char* record);
    std::unique_ptr<RTBaseType> readRTClassType(const char* record);
    std::unique_ptr<RTBaseType> readRTStringType(const char* record);
    std::unique_ptr<RTBaseType> readRTWildCardType(const char* record);

    // What several kinds share.
    template <typename Type>
    std::unique_ptr<Type> beginType(const char* record, const char* heading);
    template <typename Type>
    std::unique_ptr<Type> readReference(const char* record, const char* heading);
    void readMemberHead(RTAggregateType::t_Member& member);
    void readEnumeratorNames(RTSeqEnumType& type);
    void readDimensions(RTArrayType& type);
    void readMembers(RTClassType& type);
    void readEnumerators(RTDiscreteEnumType& type, std::size_t count);
    void readEnumerator(t_enumNameAndValuePair& enumerator, std::size_t valueSize);

    // The trace. Nothing of it is made while it is off, nor ever in the frame of a reader, which
    // nests with others; where several items follow one another, one test is enough for them all.
    bool isTracing() const;
    template <typename T> void trace(const char* label, T value, const char* tail, bool newline);
    template <typename T>
    [[gnu::noinline]] void printNumber(const char* label, T number, const char* tail, bool newline);
    [[gnu::noinline]] void printText(const char* label, std::string_view text, const char* tail,
                                     bool newline);
    void traceAddress(unsigned int typeId);
    void traceRecordBegin(unsigned int typeId);
    void traceRecordEnd(unsigned int typeId);
    void traceTypeHead(const char* heading, const RTBaseType& type);
    void traceConstraint(const FullConstraints& constraint);
    void traceConstraints(const std::vector<FullConstraints>& constraints);
    void traceFields(const RTSeqEnumType& type);
    void traceFields(const RTDiscreteEnumType& type, int count, int valueSize);
    void traceEnumerator(const t_enumNameAndValuePair& enumerator, unsigned int index,
                         std::size_t valueSize);
    void traceFields(const RTFloatType& type);
    void traceFields(const RTPhysicalType& type, int count);
    void traceReference(unsigned int typeId, unsigned int alignment, unsigned int valueSize);
    void traceKindAndElement(const RTArrayType& type);
    void traceDimensions(const RTArrayType& type);
    void traceKind(const RTRecordType& type);
    void traceMember(const RTAggregateType::t_Member& member);

    OVAT::IBlockManager& m_blockManager;
    unsigned long long m_baseOffset;
    TypeFileHeader m_header;
    ZeroedTable<RTBaseType*> m_types; ///< Owned; null until the id is read.
    std::vector<unsigned int> m_classTypeIds;
    ZeroedTable<unsigned long long> m_typeAddresses;
    bool m_debug = false;
    const char* m_cursor = nullptr; ///< At most one past the limit.
    const char* m_limit = nullptr;  ///< Last byte of the record.

    RecordBuffers m_recordBuffers;
    const OpenRecord* m_openRecord = nullptr; ///< The innermost one.
    unsigned int m_depth = 0;                 ///< How many records are open.
    std::vector<unsigned int> m_filledSlots;  ///< Filled by the call from outside that goes on.

    /// Types whose references are followed later, in the order of their reading.
    std::vector<RTBaseType*> m_deferred;
    std::unique_ptr<TypeDeserializer> m_previous;
};

/// A number of list entries; none for a negative one.
inline std::size_t countOrNone(int count) { return static_cast<std::size_t>(std::max(count, 0)); }

template <typename T> T TypeDeserializer::readField(T shortValue) {
    if (m_limit - m_cursor < static_cast<std::ptrdiff_t>(sizeof(T)) - 1) [[unlikely]] {
        m_cursor = m_limit + 1;
        return shortValue;
    }
    const T value = littleEndianAt<T>(m_cursor);
    m_cursor += sizeof(T);
    return value;
}

inline bool TypeDeserializer::isTracing() const {
#ifdef RTTI_WITHOUT_TRACE // Only to measure what the trace costs while it is off.
    return false;
#else
    return m_debug;
#endif
}

template <typename T>
void TypeDeserializer::trace(const char* label, T value, const char* tail, bool newline) {
    static_assert(std::is_trivially_copyable_v<T>, "nothing is copied while the trace is off");
    if (!isTracing()) [[likely]]
        return;
    if constexpr (std::is_arithmetic_v<T>)
        printNumber(label, value, tail, newline);
    else
        printText(label, value, tail, newline);
}

} // namespace RTTI
