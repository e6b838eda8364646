// One reader a kind: each line is a field of the record, in the order of the file.

#include "RTTI/OwnedName.h"
#include "RTTI/TypeDeserializer.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace RTTI {

using namespace TypeFileFormat;

namespace {

constexpr unsigned int FIRST_ARRAY_KIND = ARRAY_KIND_INVALID;
constexpr const char* arrayKindStrings[] = {"ARRAY_KIND_INVALID",
                                            "VHDL_ARRAY",
                                            "VLOG_FIXED_UNPACKED_ARRAY",
                                            "VLOG_FIXED_PACKED_ARRAY",
                                            "VLOG_DYNAMIC_ARRAY",
                                            "VLOG_ASSOCIATIVE_ARRAY",
                                            "VLOG_QUEUE",
                                            "BYTE_UNPADDED_ARRAY"};

constexpr unsigned int FIRST_RECORD_KIND = RECORD_KIND_INVALID;
constexpr const char* recordKindStrings[] = {
    "RECORD_KIND_INVALID",        "VHDL_RECORD",
    "VLOG_UNPACKED_STRUCT",       "VLOG_PACKED_STRUCT",
    "VLOG_PACKED_TAGGED_UNION",   "VLOG_UNPACKED_TAGGED_UNION",
    "VLOG_PACKED_UNTAGGED_UNION", "VLOG_UNPACKED_UNTAGGED_UNION",
    "BYTE_UNPADDED_STRUCT"};

constexpr const char* enumKindStrings[] = {"INVALID_ENUM",   "VLOG_BUILTIN_ENUM",
                                           "VHDL_BIT_ENUM",  "VHDL_STD_LOGIC_ENUM",
                                           "VHDL_CHAR_ENUM", "VHDL_OTHER_ENUM"};

constexpr const char* ValueEncodingStrings[] = {"4-State", "2-State", "Byte", "Unpadded-Byte"};

/// The name at `index`, or `unknown` for an index outside the table (a negative one wraps).
template <std::size_t N>
const char* nameIn(const char* const (&names)[N], unsigned int index, const char* unknown) {
    return index < N ? names[index] : unknown;
}

/// `direction` truncated toward zero; the smallest number for NaN and for what does not fit.
int truncatedDirection(double direction) {
    const double truncated = std::trunc(direction);
    constexpr int LOWEST = std::numeric_limits<int>::min();
    constexpr int HIGHEST = std::numeric_limits<int>::max();
    return truncated >= LOWEST && truncated <= HIGHEST ? static_cast<int>(truncated) : LOWEST;
}

std::size_t countOrNone(int count) { return static_cast<std::size_t>(std::max(count, 0)); }

} // namespace

bool TypeDeserializer::fieldFits(std::size_t width) const {
    return static_cast<std::size_t>(m_limit + 1 - m_cursor) >= width;
}

void TypeDeserializer::advance(std::size_t width) {
    m_cursor += std::min(width, static_cast<std::size_t>(m_limit + 1 - m_cursor));
}

/// A name without its terminating zero byte ends with the record.
std::string_view TypeDeserializer::readName() {
    const auto left = static_cast<std::size_t>(m_limit + 1 - m_cursor);
    const void* end = left != 0 ? std::memchr(m_cursor, '\0', left) : nullptr;
    const auto length =
        end != nullptr ? static_cast<std::size_t>(static_cast<const char*>(end) - m_cursor) : left;
    const std::string_view name(m_cursor, length);
    advance(length + 1);
    return name;
}

void TypeDeserializer::readRTBaseType(RTBaseType& type) {
    advance(RECORD_HEADER_SIZE);
    char* const name = copyOfName(readName());
    delete[] type.m_name;
    type.m_name = name;
    type.m_flags = readField<unsigned int>();
    trace("Type name = ", type.m_name, nullptr, false);
    trace(", flags = ", type.m_flags, " ** ", true);
}

void TypeDeserializer::readConstraint(FullConstraints* constraint) {
    constraint->si = readField<int>();
    constraint->ei = readField<int>();
    constraint->dir = readField<int>();
    traceConstraint(*constraint);
}

void TypeDeserializer::readConstraintVector(std::vector<FullConstraints>& constraints) {
    const auto count = readField<unsigned int>();
    constraints.assign(count, FullConstraints());
    if (static_cast<int>(count) < 1)
        return;
    for (unsigned int i = 0; i < count; ++i) {
        trace(" ++  constraint[ ", i, "]", false);
        readConstraint(&constraints[i]);
    }
}

int TypeDeserializer::readSVTypeId(const RTBaseType& type, int shortValue) {
    const int svTypeId = readField<int>(shortValue);
    type.setSVTypeId(svTypeId);
    return svTypeId;
}

template <typename Type>
std::unique_ptr<Type> TypeDeserializer::beginType(const char* record, const char* heading) {
    auto type = std::make_unique<Type>();
    m_cursor = record;
    trace(nullptr, heading, nullptr, false);
    readRTBaseType(*type);
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTSeqEnumType(const char* record) {
    auto type = beginType<RTSeqEnumType>(record, "** Sequential Enum ");
    type->m_valueEncoding = static_cast<ValueEncoding>(readField<int>());
    trace("  Encoding: ",
          nameIn(ValueEncodingStrings, static_cast<unsigned int>(type->m_valueEncoding),
                 "<Bad Encoding>"),
          nullptr, true);
    type->m_enumKind = static_cast<EnumKind>(readField<int>());
    trace("  Kind: ",
          nameIn(enumKindStrings, static_cast<unsigned int>(type->m_enumKind), "<Bad Kind>"),
          nullptr, true);
    readEnumeratorNames(*type);
    const int valueSize = readField<int>(1);
    type->m_valueSize = static_cast<unsigned int>(valueSize);
    trace("**  Size: ", valueSize, nullptr, true);
    return type;
}

void TypeDeserializer::readEnumeratorNames(RTSeqEnumType& type) {
    const std::size_t count = countOrNone(readField<int>());
    type.m_enumeratorNames.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        type.m_enumeratorNames.push_back(copyOfName(readName()));
        trace("** Enumerator[", static_cast<unsigned int>(i), "] = ", false);
        trace(nullptr, type.m_enumeratorNames.back(), nullptr, true);
    }
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTDiscreteEnumType(const char* record) {
    auto type = beginType<RTDiscreteEnumType>(record, "** Discrete Enum Type ");
    type->m_baseTypeId = readField<unsigned int>();
    type->m_baseType = readRTType(type->m_baseTypeId);
    const int count = readField<int>();
    const int valueSize = readField<int>();
    type->m_valueSize = static_cast<unsigned int>(countOrNone(valueSize));
    trace("** Base Type ID = ", type->m_baseTypeId, " ** ", true);
    trace("** Number of enumerators = ", static_cast<unsigned int>(count), " ** ", true);
    trace("** Size of enumerators = ", valueSize, " ** ", true);
    type->m_enumerators.reserve(countOrNone(count));
    for (int i = 0; i < count; ++i)
        readEnumerator(*type, static_cast<unsigned int>(i), type->m_valueSize);
    readConstraintVector(type->m_constraints);
    return type;
}

void TypeDeserializer::readEnumerator(RTDiscreteEnumType& type, unsigned int index,
                                      std::size_t valueSize) {
    const std::string_view name = readName();
    t_enumNameAndValuePair& enumerator = type.m_enumerators.emplace_back();
    enumerator.enumName = name;
    enumerator.value = new char[valueSize]();
    const std::size_t stored =
        std::min(valueSize, static_cast<std::size_t>(m_limit + 1 - m_cursor));
    std::copy_n(m_cursor, stored, enumerator.value);
    advance(valueSize);
    if (!m_debug) [[likely]]
        return;
    trace("** Enumerator[", index, "] = ", false);
    trace(nullptr, name, " (value, byte by byte = ", false);
    for (std::size_t i = 0; i < valueSize; ++i)
        trace("", static_cast<int>(static_cast<signed char>(enumerator.value[i])), " ", false);
    trace(nullptr, ")", nullptr, true);
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTIntType(const char* record) {
    auto type = beginType<RTIntType>(record, "** Built in Int Type ");
    readConstraint(&type->m_constraint);
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTFloatType(const char* record) {
    auto type = beginType<RTFloatType>(record, "** Built in Real Type ");
    const int floatKind = readField<int>();
    type->m_floatKind = floatKind <= LAST_FLOAT_KIND ? floatKind : 0;
    type->m_left = readField<double>();
    type->m_right = readField<double>();
    type->m_direction = truncatedDirection(readField<double>());
    trace("** constraints : left=", type->m_left, nullptr, false);
    trace(", right=", type->m_right, nullptr, false);
    trace(", dir=", type->m_direction, nullptr, true);
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTTypedefType(const char* record) {
    auto type = beginType<RTTypedefType>(record, "** Typedef Type ");
    type->m_dataTypeId = readField<unsigned int>();
    trace("** Data Type Id = ", type->m_dataTypeId, " ** ", true);
    type->m_dataType = readRTType(type->m_dataTypeId);
    readConstraintVector(type->m_constraints);
    return type;
}

template <typename Type>
std::unique_ptr<Type> TypeDeserializer::readReference(const char* record, const char* heading) {
    auto type = beginType<Type>(record, heading);
    type->m_refTypeId = readField<unsigned int>();
    trace("** Ref Type Id = ", type->m_refTypeId, " ** ", true);
    type->m_alignment = readField<unsigned int>();
    trace("** Alignment = ", type->m_alignment, " ** ", true);
    type->m_valueSize = readField<unsigned int>();
    trace("** Value Size = ", type->m_valueSize, " ** ", true);
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
    trace("** Number of units = ", static_cast<unsigned int>(count), " ** ", true);
    type->m_units.reserve(countOrNone(count));
    for (int i = 0; i < count; ++i) {
        t_unitNameAndValuePair& unit = type->m_units.emplace_back();
        unit.unitName = readName();
        unit.value = readField<long long>();
        trace("** Unit[", i, "] = ", false);
        trace(nullptr, std::string_view(unit.unitName), " value = ", false);
        trace(nullptr, unit.value, " ", false); // All units stand on one line.
    }
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTArrayType(const char* record) {
    auto type = beginType<RTArrayType>(record, "** Array Type ");
    type->m_arrayKind = static_cast<ArrayKind>(readField<unsigned int>());
    trace("** Array Kind = ",
          nameIn(arrayKindStrings, type->m_arrayKind - FIRST_ARRAY_KIND, "ARRAY_KIND_UNKNOWN"),
          " ** ", true);
    type->m_elementTypeId = readField<unsigned int>();
    trace("** Element Type Id = ", type->m_elementTypeId, " ** ", true);
    type->m_elementType = readRTType(type->m_elementTypeId);
    const int dimensions = readField<int>();
    type->m_indexTypeIds.reserve(countOrNone(dimensions));
    for (int i = 0; i < dimensions; ++i) {
        type->m_indexTypeIds.push_back(readField<unsigned int>());
        trace("** indexId[", i, "] = ", false);
        trace(nullptr, type->m_indexTypeIds.back(), " ** ", true);
    }
    readConstraintVector(type->m_constraints);
    const int svTypeId = readSVTypeId(*type, NO_SV_TYPE_ID);
    if (svTypeId != NO_SV_TYPE_ID)
        trace("** Array SV Type Id = ", svTypeId, " ** ", true);
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTDynamicArrayType(const char* record) {
    auto type = beginType<RTDynamicArrayType>(record, "** SV Dynamic Array Type ");
    type->m_elementTypeId = readField<unsigned int>();
    trace("** Element Type Id = ", type->m_elementTypeId, "**", true);
    type->m_elementType = readRTType(type->m_elementTypeId);
    const int svTypeId = readSVTypeId(*type, 0);
    trace("** Dynamic Array SV Type Id = ", svTypeId, " ** ", true);
    return type;
}

/// Traced in the reverse order of the fields, after the element type.
std::unique_ptr<RTBaseType> TypeDeserializer::readRTQueueType(const char* record) {
    auto type = beginType<RTQueueType>(record, "** SV Queue Type ");
    type->m_elementTypeId = readField<unsigned int>();
    const int svTypeId = readSVTypeId(*type, 0);
    type->m_elementType = readRTType(type->m_elementTypeId);
    trace("** Queue SV Type Id = ", svTypeId, " ** ", true);
    trace("** Element Type Id = ", type->m_elementTypeId, "**", true);
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTAssocArrayType(const char* record) {
    auto type = beginType<RTAssocArrayType>(record, "** SV Associative Array Type ");
    type->m_elementTypeId = readField<unsigned int>();
    type->m_elementType = readRTType(type->m_elementTypeId);
    trace("** Element Type Id = ", type->m_elementTypeId, "**", true);
    const int svTypeId = readSVTypeId(*type, 0);
    trace("** Associative Array SV Type Id = ", svTypeId, " ** ", true);
    type->m_indexTypeId = readField<unsigned int>();
    type->m_indexType = readRTType(type->m_indexTypeId);
    trace("** Index Type Id = ", type->m_indexTypeId, "**", true);
    return type;
}

/// Name, type id and constraints: all of a record's member, the beginning of a class's.
void TypeDeserializer::readMemberHead(RTAggregateType::t_Member& member) {
    member.m_memberName = copyOfName(readName());
    member.m_typeId = readField<unsigned int>();
    trace("** Member Name = ", member.m_memberName, "", false);
    trace("Member Type Id = ", member.m_typeId, "", false);
    trace(nullptr, "constraints ", " ** ", true);
    readConstraintVector(member.m_constraints);
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTRecordType(const char* record) {
    auto type = beginType<RTRecordType>(record, "** Record Type ");
    type->m_recordKind = static_cast<RecordKind>(readField<unsigned int>());
    trace("** Record Kind = ",
          nameIn(recordKindStrings, type->m_recordKind - FIRST_RECORD_KIND, "RECORD_KIND_UNKNOWN"),
          " ** ", true);
    const int count = readField<int>();
    type->m_members.reserve(countOrNone(count));
    for (int i = 0; i < count; ++i) {
        auto member = std::make_unique<RTAggregateType::t_Member>();
        readMemberHead(*member);
        type->m_members.push_back(member.release());
    }
    const int svTypeId = readSVTypeId(*type, NO_SV_TYPE_ID);
    if (svTypeId != NO_SV_TYPE_ID)
        trace("** Struct with SV Type Id = ", svTypeId, " ** ", true);
    return type;
}

std::unique_ptr<RTBaseType> TypeDeserializer::readRTClassType(const char* record) {
    auto type = beginType<RTClassType>(record, "** Class Type ");
    type->m_baseClassTypeId = readField<unsigned int>();
    if (type->m_baseClassTypeId != NO_TYPE_ID)
        type->m_baseClass = readRTType(type->m_baseClassTypeId);
    const int svTypeId = readSVTypeId(*type, 0);
    trace("** Class with SV Type Id = ", svTypeId, " ** ", true);
    trace("** Class derived from ", type->m_baseClassTypeId, " ** ", true);
    const int count = readField<int>();
    type->m_members.reserve(countOrNone(count));
    for (int i = 0; i < count; ++i) {
        auto member = std::make_unique<RTClassType::t_ClassMember>();
        readMemberHead(*member);
        member->m_memberFlag = readField<unsigned int>() != 0;
        type->m_members.push_back(member.release());
    }
    return type;
}

} // namespace RTTI
