// One reader a kind: each line is a field of the record, in the order of the file.

#include "RTTI/TruncatedDirection.h"
#include "RTTI/TypeDeserializer.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace RTTI {

using namespace TypeFileFormat;

namespace {

template <typename T> std::vector<T> listOf(std::size_t count) {
    checkListSize<T>(count);
    return std::vector<T>(count);
}

} // namespace

/// A name without its terminating zero byte ends with the record, behind which there is one.
inline std::string_view TypeDeserializer::readName() {
    const std::string_view name(m_record + m_cursor);
    m_cursor = std::min(m_cursor + name.size() + 1, m_limit);
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
    m_cursor = std::min(RECORD_HEADER_SIZE, m_limit);
    type.m_name = readOwnedName();
    type.m_flags = readField<unsigned int>();
}

inline void TypeDeserializer::readConstraint(FullConstraints* constraint) {
    if (bytesLeft() < CONSTRAINT_SIZE) [[unlikely]] {
        *constraint = {readField<int>(), readField<int>(), readField<int>()};
        return;
    }
    const char* const bytes = m_record + m_cursor;
    constraint->si = littleEndianAt<int>(bytes);
    constraint->ei = littleEndianAt<int>(bytes + 4);
    constraint->dir = littleEndianAt<int>(bytes + 8);
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
    constraints = listOf<FullConstraints>(count);
    if (static_cast<int>(count) < 1)
        return;
    for (FullConstraints& constraint : constraints)
        readConstraint(&constraint);
}

/// The innermost record's object, with what all kinds begin with.
template <typename Type> Type& TypeDeserializer::beginType(const char* heading) {
    auto* const object = new Type;
    m_open.back().object.reset(object);
    Type& type = *object;
    readRTBaseType(type);
    if (isTracing())
        traceTypeHead(heading, type);
    return type;
}

void TypeDeserializer::readRTSeqEnumType() {
    auto& type = beginType<RTSeqEnumType>("** Sequential Enum ");
    type.m_valueEncoding = static_cast<ValueEncoding>(readField<int>());
    type.m_enumKind = static_cast<EnumKind>(readField<int>());
    readEnumeratorNames(type);
    type.m_valueSize = static_cast<unsigned int>(readField<int>(1));
    if (isTracing())
        traceFields(type);
}

void TypeDeserializer::readEnumeratorNames(RTSeqEnumType& type) {
    type.m_enumeratorNames = listOf<char*>(countOrNone(readField<int>()));
    for (char*& name : type.m_enumeratorNames)
        name = readOwnedName();
}

/// Value bytes behind the record's end are 0.
inline void TypeDeserializer::readEnumerator(t_enumNameAndValuePair& enumerator,
                                             std::size_t valueSize) {
    enumerator.enumName = readName();
    enumerator.value = new char[valueSize];
    const std::size_t stored = std::min(valueSize, bytesLeft());
    std::memcpy(enumerator.value, m_record + m_cursor, stored);
    m_cursor += stored;
    if (stored != valueSize)
        std::fill(enumerator.value + stored, enumerator.value + valueSize, '\0');
}

void TypeDeserializer::readEnumerators(RTDiscreteEnumType& type, std::size_t count) {
    type.m_enumerators = listOf<t_enumNameAndValuePair>(count);
    for (t_enumNameAndValuePair& enumerator : type.m_enumerators)
        readEnumerator(enumerator, type.m_valueSize);
}

void TypeDeserializer::readRTDiscreteEnumType() {
    auto& type = beginType<RTDiscreteEnumType>("** Discrete Enum Type ");
    type.m_baseTypeId = readField<unsigned int>();
    follow(type.m_baseTypeId, type.m_baseType, [this, &type] {
        const int count = readField<int>();
        const int valueSize = readField<int>();
        type.m_valueSize = static_cast<unsigned int>(countOrNone(valueSize));
        readEnumerators(type, countOrNone(count));
        readConstraintVector(type.m_constraints);
        if (isTracing())
            traceFields(type, count, valueSize);
    });
}

void TypeDeserializer::readRTIntType() {
    auto& type = beginType<RTIntType>("** Built in Int Type ");
    readConstraint(&type.m_constraint);
    if (isTracing())
        traceConstraint(type.m_constraint);
}

/// The bits go from the record to the field: on the way through a register of 32-bit x86, a
/// signalling NaN would become another one.
inline void TypeDeserializer::readBound(double& bound) {
    const auto bits = readField<unsigned long long>();
    std::memcpy(&bound, &bits, sizeof bound);
}

void TypeDeserializer::readRTFloatType() {
    auto& type = beginType<RTFloatType>("** Built in Real Type ");
    const int floatKind = readField<int>();
    type.m_floatKind = floatKind <= LAST_FLOAT_KIND ? floatKind : 0;
    readBound(type.m_left);
    readBound(type.m_right);
    type.m_direction =
        truncatedDirection(readField<double>()).value_or(std::numeric_limits<int>::min());
    if (isTracing())
        traceFields(type);
}

void TypeDeserializer::readRTTypedefType() {
    auto& type = beginType<RTTypedefType>("** Typedef Type ");
    type.m_dataTypeId = readField<unsigned int>();
    trace("** Data Type Id = ", type.m_dataTypeId, " ** ", true);
    follow(type.m_dataTypeId, type.m_dataType, [this, &type] {
        readConstraintVector(type.m_constraints);
        if (isTracing())
            traceConstraints(type.m_constraints);
    });
}

template <typename Type> Type& TypeDeserializer::readReference(const char* heading) {
    auto& type = beginType<Type>(heading);
    type.m_refTypeId = readField<unsigned int>();
    type.m_alignment = readField<unsigned int>();
    type.m_valueSize = readField<unsigned int>();
    if (isTracing())
        traceReference(type.m_refTypeId, type.m_alignment, type.m_valueSize);
    return type;
}

/// The designated type is followed once the access type is in the table: it may lead back here.
void TypeDeserializer::readRTAccessType() {
    auto& type = readReference<RTAccessType>("** Access Type ");
    if (enterType())
        follow(type.m_refTypeId, type.m_refType, [] {});
}

void TypeDeserializer::readRTFileType() {
    auto& type = readReference<RTFileType>("** File Type ");
    follow(type.m_refTypeId, type.m_refType, [] {});
}

/// Traced with the string's heading, and so is every chandle in the traces that exist.
void TypeDeserializer::readRTCHandle() { beginType<RTCHandle>("** Built in String Type "); }

void TypeDeserializer::readRTEventType() {
    auto& type = beginType<RTEventType>("** Built in Event Type ");
    const int eventKind = readField<int>();
    type.m_eventKind = eventKind <= LAST_EVENT_KIND ? eventKind : 0;
}

void TypeDeserializer::readRTStringType() { beginType<RTStringType>("** Built in String Type "); }

void TypeDeserializer::readRTWildCardType() { beginType<RTWildCardType>("** WildCard Type "); }

void TypeDeserializer::readRTPhysicalType() {
    auto& type = beginType<RTPhysicalType>("** Physical Type ");
    const int count = readField<int>();
    type.m_units = listOf<t_unitNameAndValuePair>(countOrNone(count));
    for (t_unitNameAndValuePair& unit : type.m_units) {
        unit.unitName = readName();
        unit.value = readField<long long>();
    }
    if (isTracing())
        traceFields(type, count);
}

void TypeDeserializer::readRTArrayType() {
    auto& type = beginType<RTArrayType>("** Array Type ");
    type.m_arrayKind = static_cast<ArrayKind>(readField<unsigned int>());
    type.m_elementTypeId = readField<unsigned int>();
    if (isTracing())
        traceKindAndElement(type);
    follow(type.m_elementTypeId, type.m_elementType, [this, &type] {
        readDimensions(type);
        if (isTracing())
            traceDimensions(type);
    });
}

void TypeDeserializer::readDimensions(RTArrayType& type) {
    type.m_indexTypeIds = listOf<unsigned int>(countOrNone(readField<int>()));
    for (unsigned int& id : type.m_indexTypeIds)
        id = readField<unsigned int>();
    readConstraintVector(type.m_constraints);
    type.m_svTypeId = readField<int>(NO_SV_TYPE_ID);
}

void TypeDeserializer::readRTDynamicArrayType() {
    auto& type = beginType<RTDynamicArrayType>("** SV Dynamic Array Type ");
    type.m_elementTypeId = readField<unsigned int>();
    trace("** Element Type Id = ", type.m_elementTypeId, "**", true);
    follow(type.m_elementTypeId, type.m_elementType, [this, &type] {
        type.m_svTypeId = readField<int>();
        trace("** Dynamic Array SV Type Id = ", type.m_svTypeId, " ** ", true);
    });
}

/// Traced in the reverse order of the fields, after the element type.
void TypeDeserializer::readRTQueueType() {
    auto& type = beginType<RTQueueType>("** SV Queue Type ");
    type.m_elementTypeId = readField<unsigned int>();
    type.m_svTypeId = readField<int>();
    follow(type.m_elementTypeId, type.m_elementType, [this, &type] {
        trace("** Queue SV Type Id = ", type.m_svTypeId, " ** ", true);
        trace("** Element Type Id = ", type.m_elementTypeId, "**", true);
    });
}

void TypeDeserializer::readRTAssocArrayType() {
    auto& type = beginType<RTAssocArrayType>("** SV Associative Array Type ");
    type.m_elementTypeId = readField<unsigned int>();
    follow(type.m_elementTypeId, type.m_elementType, [this, &type] {
        trace("** Element Type Id = ", type.m_elementTypeId, "**", true);
        type.m_svTypeId = readField<int>();
        trace("** Associative Array SV Type Id = ", type.m_svTypeId, " ** ", true);
        type.m_indexTypeId = readField<unsigned int>();
        follow(type.m_indexTypeId, type.m_indexType,
               [this, &type] { trace("** Index Type Id = ", type.m_indexTypeId, "**", true); });
    });
}

/// Follows the members of an aggregate, which is in its slot: they may lead back to it.
void TypeDeserializer::followMembers(RTAggregateType& aggregate, std::size_t first) {
    if (first == 0)
        aggregate.m_memberTypes = std::vector<const RTBaseType*>(aggregate.m_members.size());
    for (std::size_t i = first; i < aggregate.m_members.size(); ++i) {
        if (!isKnown(aggregate.m_members[i]->m_typeId, aggregate.m_memberTypes[i])) {
            m_open.back().rest = [this, &aggregate, i] { followMembers(aggregate, i + 1); };
            return;
        }
    }
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

void TypeDeserializer::readRTRecordType() {
    auto& type = beginType<RTRecordType>("** Record Type ");
    type.m_recordKind = static_cast<RecordKind>(readField<unsigned int>());
    if (isTracing())
        traceKind(type);
    type.m_members = listOf<RTAggregateType::t_Member*>(countOrNone(readField<int>()));
    for (RTAggregateType::t_Member*& member : type.m_members) {
        member = new RTAggregateType::t_Member;
        readMemberHead(*member);
    }
    type.m_svTypeId = readField<int>(NO_SV_TYPE_ID);
    if (type.m_svTypeId != NO_SV_TYPE_ID)
        trace("** Struct with SV Type Id = ", type.m_svTypeId, " ** ", true);
    if (enterType())
        followMembers(type, 0);
}

void TypeDeserializer::readRTClassType() {
    auto& type = beginType<RTClassType>("** Class Type ");
    type.m_baseClassTypeId = readField<unsigned int>();
    follow(type.m_baseClassTypeId, type.m_baseClass, [this, &type] {
        type.m_svTypeId = readField<int>();
        trace("** Class with SV Type Id = ", type.m_svTypeId, " ** ", true);
        trace("** Class derived from ", type.m_baseClassTypeId, " ** ", true);
        readMembers(type);
        if (enterType()) {
            m_classTypeIds.push_back(m_open.back().typeId);
            followMembers(type, 0);
        }
    });
}

void TypeDeserializer::readMembers(RTClassType& type) {
    type.m_members = listOf<RTAggregateType::t_Member*>(countOrNone(readField<int>()));
    for (RTAggregateType::t_Member*& member : type.m_members) {
        auto* const classMember = new RTClassType::t_ClassMember;
        member = classMember;
        readMemberHead(*classMember);
        classMember->m_memberFlag = readField<unsigned int>() != 0;
    }
}

} // namespace RTTI
