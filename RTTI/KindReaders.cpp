// One reader a kind: each line is a field of the record, in the order of the file.

#include "RTTI/TypeDeserializer.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace RTTI {

using namespace TypeFileFormat;

namespace {

/// `direction` truncated toward zero; the smallest number for NaN and for what does not fit.
int truncatedDirection(double direction) {
    const double truncated = std::trunc(direction);
    constexpr int LOWEST = std::numeric_limits<int>::min();
    constexpr int HIGHEST = std::numeric_limits<int>::max();
    return truncated >= LOWEST && truncated <= HIGHEST ? static_cast<int>(truncated) : LOWEST;
}

} // namespace

/// A name without its terminating zero byte ends with the record, behind which there is one.
inline std::string_view TypeDeserializer::readName() {
    const std::string_view name(m_cursor);
    m_cursor = std::min(m_cursor + name.size(), m_limit) + 1;
    return name;
}

/// The name as an array that a type owns, its zero byte included.
inline char* TypeDeserializer::readOwnedName() {
    const std::string_view name = readName();
    char* const copy = new char[name.size() + 1];
    std::memcpy(copy, name.data(), name.size() + 1);
    return copy;
}

inline void TypeDeserializer::readRTBaseType(RTBaseType& type) {
    m_cursor = std::min(m_cursor + RECORD_HEADER_SIZE, m_limit + 1);
    type.m_name = readOwnedName();
    type.m_flags = readField<unsigned int>();
}

inline void TypeDeserializer::readConstraint(FullConstraints* constraint) {
    if (bytesLeft() < CONSTRAINT_SIZE) [[unlikely]] {
        *constraint = {readField<int>(), readField<int>(), readField<int>()};
        return;
    }
    constraint->si = littleEndianAt<int>(m_cursor);
    constraint->ei = littleEndianAt<int>(m_cursor + 4);
    constraint->dir = littleEndianAt<int>(m_cursor + 8);
    m_cursor += CONSTRAINT_SIZE;
}

/// Most lists are empty.
inline void TypeDeserializer::readConstraintVector(std::vector<FullConstraints>& constraints) {
    constraints.clear();
    if (const auto count = readField<unsigned int>(); count != 0)
        readConstraints(constraints, count);
}

/// The list keeps a count that is negative as a signed number, but nothing is read then.
void TypeDeserializer::readConstraints(std::vector<FullConstraints>& constraints,
                                       unsigned int count) {
    constraints = std::vector<FullConstraints>(count);
    if (static_cast<int>(count) < 1)
        return;
    for (FullConstraints& constraint : constraints)
        readConstraint(&constraint);
}

template <typename Type>
std::unique_ptr<Type> TypeDeserializer::beginType(const char* record, const char* heading) {
    auto type = std::make_unique_for_overwrite<Type>();
    m_cursor = record;
    readRTBaseType(*type);
    if (isTracing())
        traceTypeHead(heading, *type);
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTSeqEnumType(const char* record) {
    auto type = beginType<RTSeqEnumType>(record, "** Sequential Enum ");
    type->m_valueEncoding = static_cast<ValueEncoding>(readField<int>());
    type->m_enumKind = static_cast<EnumKind>(readField<int>());
    readEnumeratorNames(*type);
    type->m_valueSize = static_cast<unsigned int>(readField<int>(1));
    if (isTracing())
        traceFields(*type);
    return type;
}

void TypeDeserializer::readEnumeratorNames(RTSeqEnumType& type) {
    type.m_enumeratorNames = std::vector<char*>(countOrNone(readField<int>()));
    for (char*& name : type.m_enumeratorNames)
        name = readOwnedName();
}

/// Value bytes behind the record's end are 0.
inline void TypeDeserializer::readEnumerator(t_enumNameAndValuePair& enumerator,
                                             std::size_t valueSize) {
    enumerator.enumName = readName();
    enumerator.value = new char[valueSize];
    const std::size_t stored = std::min(valueSize, bytesLeft());
    std::memcpy(enumerator.value, m_cursor, stored);
    m_cursor += stored;
    if (stored != valueSize)
        std::fill(enumerator.value + stored, enumerator.value + valueSize, '\0');
}

/// By itself, so that the frame of the reader stays small while other types are read.
[[gnu::noinline]] void TypeDeserializer::readEnumerators(RTDiscreteEnumType& type,
                                                         std::size_t count) {
    type.m_enumerators = std::vector<t_enumNameAndValuePair>(count);
    for (t_enumNameAndValuePair& enumerator : type.m_enumerators)
        readEnumerator(enumerator, type.m_valueSize);
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTDiscreteEnumType(const char* record) {
    auto type = beginType<RTDiscreteEnumType>(record, "** Discrete Enum Type ");
    type->m_baseTypeId = readField<unsigned int>();
    type->m_baseType = readRTType(type->m_baseTypeId);
    const int count = readField<int>();
    const int valueSize = readField<int>();
    type->m_valueSize = static_cast<unsigned int>(countOrNone(valueSize));
    readEnumerators(*type, countOrNone(count));
    readConstraintVector(type->m_constraints);
    if (isTracing())
        traceFields(*type, count, valueSize);
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTIntType(const char* record) {
    auto type = beginType<RTIntType>(record, "** Built in Int Type ");
    readConstraint(&type->m_constraint);
    if (isTracing())
        traceConstraint(type->m_constraint);
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTFloatType(const char* record) {
    auto type = beginType<RTFloatType>(record, "** Built in Real Type ");
    const int floatKind = readField<int>();
    type->m_floatKind = floatKind <= LAST_FLOAT_KIND ? floatKind : 0;
    type->m_left = readField<double>();
    type->m_right = readField<double>();
    type->m_direction = truncatedDirection(readField<double>());
    if (isTracing())
        traceFields(*type);
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTTypedefType(const char* record) {
    auto type = beginType<RTTypedefType>(record, "** Typedef Type ");
    type->m_dataTypeId = readField<unsigned int>();
    trace("** Data Type Id = ", type->m_dataTypeId, " ** ", true);
    type->m_dataType = readRTType(type->m_dataTypeId);
    readConstraintVector(type->m_constraints);
    if (isTracing())
        traceConstraints(type->m_constraints);
    return type;
}

template <typename Type>
std::unique_ptr<Type> TypeDeserializer::readReference(const char* record, const char* heading) {
    auto type = beginType<Type>(record, heading);
    type->m_refTypeId = readField<unsigned int>();
    type->m_alignment = readField<unsigned int>();
    type->m_valueSize = readField<unsigned int>();
    if (isTracing())
        traceReference(type->m_refTypeId, type->m_alignment, type->m_valueSize);
    return type;
}

/// The designated type is resolved once the access type is in the table: it may lead back here.
std::unique_ptr<RTBaseType> TypeDeserializer::readRTAccessType(const char* record) {
    return readReference<RTAccessType>(record, "** Access Type ");
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTFileType(const char* record) {
    auto type = readReference<RTFileType>(record, "** File Type ");
    type->m_refType = readRTType(type->m_refTypeId);
    return type;
}

/// Traced with the string's heading, and so is every chandle in the traces that exist.
std::unique_ptr<RTBaseType> TypeDeserializer::readRTCHandle(const char* record) {
    return beginType<RTCHandle>(record, "** Built in String Type ");
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTEventType(const char* record) {
    auto type = beginType<RTEventType>(record, "** Built in Event Type ");
    const int eventKind = readField<int>();
    type->m_eventKind = eventKind <= LAST_EVENT_KIND ? eventKind : 0;
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTStringType(const char* record) {
    return beginType<RTStringType>(record, "** Built in String Type ");
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTWildCardType(const char* record) {
    return beginType<RTWildCardType>(record, "** WildCard Type ");
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTPhysicalType(const char* record) {
    auto type = beginType<RTPhysicalType>(record, "** Physical Type ");
    const int count = readField<int>();
    type->m_units = std::vector<t_unitNameAndValuePair>(countOrNone(count));
    for (t_unitNameAndValuePair& unit : type->m_units) {
        unit.unitName = readName();
        unit.value = readField<long long>();
    }
    if (isTracing())
        traceFields(*type, count);
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTArrayType(const char* record) {
    auto type = beginType<RTArrayType>(record, "** Array Type ");
    type->m_arrayKind = static_cast<ArrayKind>(readField<unsigned int>());
    type->m_elementTypeId = readField<unsigned int>();
    if (isTracing())
        traceKindAndElement(*type);
    type->m_elementType = readRTType(type->m_elementTypeId);
    readDimensions(*type);
    if (isTracing())
        traceDimensions(*type);
    return type;
}

/// By itself, so that the frame of the reader stays small while the element type is read.
[[gnu::noinline]] void TypeDeserializer::readDimensions(RTArrayType& type) {
    type.m_indexTypeIds = std::vector<unsigned int>(countOrNone(readField<int>()));
    for (unsigned int& id : type.m_indexTypeIds)
        id = readField<unsigned int>();
    readConstraintVector(type.m_constraints);
    type.m_svTypeId = readField<int>(NO_SV_TYPE_ID);
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTDynamicArrayType(const char* record) {
    auto type = beginType<RTDynamicArrayType>(record, "** SV Dynamic Array Type ");
    type->m_elementTypeId = readField<unsigned int>();
    trace("** Element Type Id = ", type->m_elementTypeId, "**", true);
    type->m_elementType = readRTType(type->m_elementTypeId);
    type->m_svTypeId = readField<int>();
    trace("** Dynamic Array SV Type Id = ", type->m_svTypeId, " ** ", true);
    return type;
}

/// Traced in the reverse order of the fields, after the element type.
std::unique_ptr<RTBaseType> TypeDeserializer::readRTQueueType(const char* record) {
    auto type = beginType<RTQueueType>(record, "** SV Queue Type ");
    type->m_elementTypeId = readField<unsigned int>();
    type->m_svTypeId = readField<int>();
    type->m_elementType = readRTType(type->m_elementTypeId);
    trace("** Queue SV Type Id = ", type->m_svTypeId, " ** ", true);
    trace("** Element Type Id = ", type->m_elementTypeId, "**", true);
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTAssocArrayType(const char* record) {
    auto type = beginType<RTAssocArrayType>(record, "** SV Associative Array Type ");
    type->m_elementTypeId = readField<unsigned int>();
    type->m_elementType = readRTType(type->m_elementTypeId);
    trace("** Element Type Id = ", type->m_elementTypeId, "**", true);
    type->m_svTypeId = readField<int>();
    trace("** Associative Array SV Type Id = ", type->m_svTypeId, " ** ", true);
    type->m_indexTypeId = readField<unsigned int>();
    type->m_indexType = readRTType(type->m_indexTypeId);
    trace("** Index Type Id = ", type->m_indexTypeId, "**", true);
    return type;
}

/// Name, type id and constraints: all of a record's member, the beginning of a class's.
[[gnu::always_inline]] inline void
TypeDeserializer::readMemberHead(RTAggregateType::t_Member& member) {
    member.m_memberName = readOwnedName();
    member.m_typeId = readField<unsigned int>();
    readConstraintVector(member.m_constraints);
    if (isTracing())
        traceMember(member);
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTRecordType(const char* record) {
    auto type = beginType<RTRecordType>(record, "** Record Type ");
    type->m_recordKind = static_cast<RecordKind>(readField<unsigned int>());
    if (isTracing())
        traceKind(*type);
    type->m_members = std::vector<RTAggregateType::t_Member*>(countOrNone(readField<int>()));
    for (RTAggregateType::t_Member*& member : type->m_members) {
        member = new RTAggregateType::t_Member;
        readMemberHead(*member);
    }
    type->m_svTypeId = readField<int>(NO_SV_TYPE_ID);
    if (type->m_svTypeId != NO_SV_TYPE_ID)
        trace("** Struct with SV Type Id = ", type->m_svTypeId, " ** ", true);
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTClassType(const char* record) {
    auto type = beginType<RTClassType>(record, "** Class Type ");
    type->m_baseClassTypeId = readField<unsigned int>();
    if (type->m_baseClassTypeId != NO_TYPE_ID)
        type->m_baseClass = readRTType(type->m_baseClassTypeId);
    type->m_svTypeId = readField<int>();
    trace("** Class with SV Type Id = ", type->m_svTypeId, " ** ", true);
    trace("** Class derived from ", type->m_baseClassTypeId, " ** ", true);
    readMembers(*type);
    return type;
}

/// By itself, so that the frame of the reader stays small while the base class is read.
[[gnu::noinline]] void TypeDeserializer::readMembers(RTClassType& type) {
    type.m_members = std::vector<RTAggregateType::t_Member*>(countOrNone(readField<int>()));
    for (RTAggregateType::t_Member*& member : type.m_members) {
        auto* const classMember = new RTClassType::t_ClassMember;
        member = classMember;
        readMemberHead(*classMember);
        classMember->m_memberFlag = readField<unsigned int>() != 0;
    }
}

} // namespace RTTI
