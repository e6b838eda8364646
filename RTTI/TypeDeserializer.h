#pragma once

#include "OVAT/IBlockManager.h"
#include "RTTI/LittleEndian.h"
#include "RTTI/RTType.h"
#include "RTTI/TypeFileFormat.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
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

    /// A record that is being read, and how many slots were filled when its reading began.
    struct OpenRecord {
        unsigned int typeId;
        std::size_t filledBefore;
        const OpenRecord* outer;
    };

    // Record framing.
    RTBaseType* readRTType(unsigned int typeId);
    void readRecord(unsigned int typeId);
    std::unique_ptr<RTBaseType> readKind(unsigned int kind, const char* record);
    bool comesBackWithoutEnd(unsigned int typeId) const;
    bool enterType(unsigned int typeId, std::unique_ptr<RTBaseType> type);
    void resolveAccess(RTAccessType& access);
    void resolveMembers(RTAggregateType& aggregate);

    // Fields of a record.
    bool fieldFits(std::size_t width) const;
    void advance(std::size_t width);
    template <typename T> T readField(T shortValue = 0);
    std::string_view readName();
    void readRTBaseType(RTBaseType& type);
    void readConstraint(FullConstraints* constraint);
    void readConstraintVector(std::vector<FullConstraints>& constraints);
    int readSVTypeId(const RTBaseType& type, int shortValue);

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
    void readEnumerator(RTDiscreteEnumType& type, unsigned int index, std::size_t valueSize);

    // Trace items; each makes its text only while the trace is on.
    template <typename T>
    void trace(const char* label, const T& value, const char* tail, bool newline);
    void traceConstraint(const FullConstraints& constraint);

    OVAT::IBlockManager& m_blockManager;
    unsigned long long m_baseOffset;
    TypeFileHeader m_header;
    std::vector<RTBaseType*> m_types; ///< Owned; null until the id is read.
    std::vector<unsigned int> m_classTypeIds;
    std::vector<unsigned long long> m_typeAddresses;
    bool m_debug = false;
    const char* m_cursor = nullptr; ///< At most one past the limit.
    const char* m_limit = nullptr;  ///< Last byte of the record.

    const OpenRecord* m_openRecord = nullptr; ///< Innermost record being read.
    std::vector<unsigned int> m_filledSlots;  ///< Filled by the call from outside that goes on.
    std::unique_ptr<TypeDeserializer> m_previous;
};

template <typename T> T TypeDeserializer::readField(T shortValue) {
    const T value = fieldFits(sizeof(T)) ? littleEndianAt<T>(m_cursor) : shortValue;
    advance(sizeof(T));
    return value;
}

template <typename T>
void TypeDeserializer::trace(const char* label, const T& value, const char* tail, bool newline) {
    if (!m_debug) [[likely]]
        return;
    if constexpr (std::is_arithmetic_v<T>)
        printDebugInfo(label, NumberToString(value), tail, newline);
    else
        printDebugInfo(label, std::string(value), tail, newline);
}

} // namespace RTTI
