#include "TypeFile/RecordEncoder.h"

#include "RTTI/LittleEndian.h"
#include "TypeFile/FieldNames.h"

#include <cstring>

namespace TypeFile {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

RecordEncoder::RecordEncoder(std::vector<char>& bytes, std::size_t largestRecord)
    : m_bytes(bytes), m_largestRecord(largestRecord) {}

void RecordEncoder::encode(unsigned int typeId, const RTBaseType& type) {
    const Reference largestBefore = m_largest;
    m_begin = m_bytes.size();
    m_typeId = typeId;
    m_type = &type;
    try {
        at(Field::KIND);
        if (!type.accept(*this))
            refuse("its class has no kind of record");
        const auto size = static_cast<int>(m_bytes.size() - m_begin);
        putLittleEndian(m_bytes.data() + m_begin, size);
    } catch (...) {
        m_bytes.resize(m_begin);
        m_largest = largestBefore;
        throw;
    }
}

void RecordEncoder::begin(unsigned int kind) {
    number(Field::KIND, 0);
    number(Field::KIND, kind);
    at(Field::NAME);
    name(m_type->m_name);
    number(Field::FLAGS, m_type->m_flags);
}

/// The wildcard is the one class without an overload of its own.
bool RecordEncoder::visit(const RTBaseType& type) {
    if (type.GetClassId() != ClassId::WILDCARD)
        return false;
    begin(ClassId::WILDCARD);
    return true;
}

bool RecordEncoder::visit(const RTEnumType&) { return false; }
bool RecordEncoder::visit(const RTClassHandle&) { return false; }
bool RecordEncoder::visit(const RTLogicType&) { return false; }
bool RecordEncoder::visit(const RTBitType&) { return false; }
bool RecordEncoder::visit(const RTAbstractArrayType&) { return false; }
bool RecordEncoder::visit(const RTAggregateType&) { return false; }

bool RecordEncoder::visit(const RTSeqEnumType& type) {
    begin(ClassId::SEQ_ENUM);
    at(Field::RESERVED);
    if (type.m_reservedNumber != 0 || type.m_reservedPointer != nullptr)
        refuse("a record does not hold what is kept in reserve");
    number(Field::ENCODING, static_cast<int>(type.m_valueEncoding));
    number(Field::ENUM_KIND, static_cast<int>(type.m_enumKind));
    count(Field::LITERALS, type.m_enumeratorNames.size());
    for (std::size_t i = 0; i < type.m_enumeratorNames.size(); ++i) {
        at(Field::LITERALS, i, "");
        name(type.m_enumeratorNames[i]);
    }
    number(Field::VALUE_SIZE, type.m_valueSize);
    return true;
}

bool RecordEncoder::visit(const RTDiscreteEnumType& type) {
    begin(ClassId::DISCRETE_ENUM);
    at(Field::BASE_TYPE);
    reference(type.m_baseTypeId);
    count(Field::LITERALS, type.m_enumerators.size());
    if (type.m_valueSize > LARGEST_RECORD_SIZE) {
        at(Field::VALUE_SIZE);
        refuse(std::to_string(type.m_valueSize) + " bytes are more than a record holds");
    }
    number(Field::VALUE_SIZE, type.m_valueSize);
    literals(type);
    constraints(Field::CONSTRAINTS, type.m_constraints);
    return true;
}

void RecordEncoder::literals(const RTDiscreteEnumType& type) {
    const std::size_t count = type.m_enumerators.size();
    at(Field::LITERALS);
    if (count > m_largestRecord / (type.m_valueSize + std::size_t{1})) // A name takes a byte.
        refuse("the record would be larger than " + std::to_string(m_largestRecord) + " bytes");
    for (std::size_t i = 0; i < count; ++i) {
        const t_enumNameAndValuePair& literal = type.m_enumerators[i];
        at(Field::LITERALS, i, Field::NAME);
        name(std::string_view(literal.enumName));
        at(Field::LITERALS, i, Field::VALUE);
        if (literal.value == nullptr && type.m_valueSize != 0)
            refuse("there are no value bytes");
        append(literal.value, type.m_valueSize);
    }
}

bool RecordEncoder::visit(const RTIntType& type) {
    begin(ClassId::INT);
    number(Field::RANGE, type.m_constraint.si);
    number(Field::RANGE, type.m_constraint.ei);
    number(Field::RANGE, type.m_constraint.dir);
    return true;
}

bool RecordEncoder::visit(const RTFloatType& type) {
    begin(ClassId::FLOAT);
    flavour(type.m_floatKind, LAST_FLOAT_KIND);
    number(Field::LEFT, type.m_left);
    number(Field::RIGHT, type.m_right);
    number(Field::DIRECTION, static_cast<double>(type.m_direction));
    return true;
}

bool RecordEncoder::visit(const RTTypedefType& type) {
    begin(ClassId::TYPEDEF);
    at(Field::DATA_TYPE);
    reference(type.m_dataTypeId);
    constraints(Field::CONSTRAINTS, type.m_constraints);
    return true;
}

template <typename Type> bool RecordEncoder::designating(unsigned int kind, const Type& type) {
    begin(kind);
    at(Field::REF_TYPE);
    reference(type.m_refTypeId);
    number(Field::ALIGNMENT, type.m_alignment);
    number(Field::VALUE_SIZE, type.m_valueSize);
    return true;
}

bool RecordEncoder::visit(const RTAccessType& type) { return designating(ClassId::ACCESS, type); }
bool RecordEncoder::visit(const RTFileType& type) { return designating(ClassId::FILE_TYPE, type); }

bool RecordEncoder::visit(const RTCHandle&) {
    begin(ClassId::CHANDLE);
    return true;
}

bool RecordEncoder::visit(const RTStringType&) {
    begin(ClassId::STRING);
    return true;
}

bool RecordEncoder::visit(const RTEventType& type) {
    begin(ClassId::EVENT);
    flavour(type.m_eventKind, LAST_EVENT_KIND);
    return true;
}

bool RecordEncoder::visit(const RTPhysicalType& type) {
    begin(ClassId::PHYSICAL);
    count(Field::UNITS, type.m_units.size());
    for (std::size_t i = 0; i < type.m_units.size(); ++i) {
        at(Field::UNITS, i, Field::NAME);
        name(std::string_view(type.m_units[i].unitName));
        number(Field::VALUE, type.m_units[i].value);
    }
    return true;
}

bool RecordEncoder::visit(const RTArrayType& type) {
    begin(ClassId::ARRAY);
    at(Field::RESERVED);
    if (!type.m_reserved.empty())
        refuse("a record does not hold what is kept in reserve");
    number(Field::ARRAY_KIND, static_cast<unsigned int>(type.m_arrayKind));
    at(Field::ELEMENT_TYPE);
    reference(type.m_elementTypeId);
    count(Field::INDEX_TYPES, type.m_indexTypeIds.size());
    for (std::size_t i = 0; i < type.m_indexTypeIds.size(); ++i) {
        at(Field::INDEX_TYPES, i, "");
        referenceOrNone(type.m_indexTypeIds[i]);
    }
    constraints(Field::CONSTRAINTS, type.m_constraints);
    number(Field::SV_TYPE_ID, type.m_svTypeId);
    return true;
}

bool RecordEncoder::visit(const RTDynamicArrayType& type) {
    begin(ClassId::DYNAMIC_ARRAY);
    at(Field::ELEMENT_TYPE);
    reference(type.m_elementTypeId);
    number(Field::SV_TYPE_ID, type.m_svTypeId);
    return true;
}

bool RecordEncoder::visit(const RTQueueType& type) {
    begin(ClassId::QUEUE);
    at(Field::ELEMENT_TYPE);
    reference(type.m_elementTypeId);
    number(Field::SV_TYPE_ID, type.m_svTypeId);
    return true;
}

bool RecordEncoder::visit(const RTAssocArrayType& type) {
    begin(ClassId::ASSOC_ARRAY);
    at(Field::ELEMENT_TYPE);
    reference(type.m_elementTypeId);
    number(Field::SV_TYPE_ID, type.m_svTypeId);
    at(Field::INDEX_TYPE);
    reference(type.m_indexTypeId);
    return true;
}

bool RecordEncoder::visit(const RTRecordType& type) {
    begin(ClassId::RECORD);
    number(Field::RECORD_KIND, static_cast<unsigned int>(type.m_recordKind));
    count(Field::MEMBERS, type.m_members.size());
    for (std::size_t i = 0; i < type.m_members.size(); ++i)
        memberHead(type.m_members[i], i);
    number(Field::SV_TYPE_ID, type.m_svTypeId);
    return true;
}

bool RecordEncoder::visit(const RTClassType& type) {
    begin(ClassId::CLASS);
    at(Field::BASE_CLASS);
    referenceOrNone(type.m_baseClassTypeId);
    number(Field::SV_TYPE_ID, type.m_svTypeId);
    count(Field::MEMBERS, type.m_members.size());
    for (std::size_t i = 0; i < type.m_members.size(); ++i) {
        memberHead(type.m_members[i], i);
        const auto* member = dynamic_cast<const RTClassType::t_ClassMember*>(type.m_members[i]);
        at(Field::MEMBERS, i, Field::FLAG);
        if (member == nullptr)
            refuse("a class's member is an RTClassType::t_ClassMember, and this one is none");
        number(Field::FLAG, member->m_memberFlag ? 1U : 0U);
    }
    return true;
}

void RecordEncoder::memberHead(const RTAggregateType::t_Member* member, std::size_t index) {
    at(Field::MEMBERS, index, "");
    if (member == nullptr)
        refuse("there is no member");
    at(Field::MEMBERS, index, Field::NAME);
    name(member->m_memberName);
    at(Field::MEMBERS, index, Field::TYPE);
    reference(member->m_typeId);
    constraints(Field::CONSTRAINTS, member->m_constraints);
}

void RecordEncoder::at(const char* field) { m_place = {field, nullptr, 0}; }

void RecordEncoder::at(const char* list, std::size_t index, const char* field) {
    m_place = {field, list, index};
}

void RecordEncoder::append(const void* bytes, std::size_t count) {
    if (count > m_largestRecord - (m_bytes.size() - m_begin))
        refuse("the record would be larger than " + std::to_string(m_largestRecord) + " bytes");
    const char* first = static_cast<const char*>(bytes);
    m_bytes.insert(m_bytes.end(), first, first + count);
}

template <typename T> void RecordEncoder::number(const char* field, T value) {
    m_place.field = field;
    char bytes[sizeof(T)];
    putLittleEndian(bytes, value);
    append(bytes, sizeof(T));
}

/// Whether the items fit shows when they are appended.
void RecordEncoder::count(const char* list, std::size_t value) {
    at(list);
    number(list, static_cast<unsigned int>(value));
}

void RecordEncoder::name(std::string_view text) {
    if (text.find('\0') != std::string_view::npos)
        refuse("there is a zero byte in the name, where a record's names end");
    append(text.data(), text.size());
    append("", 1);
}

/// A null name is the empty one: a record knows no other.
void RecordEncoder::name(const char* text) {
    append(text != nullptr ? text : "", (text != nullptr ? std::strlen(text) : 0) + 1);
}

void RecordEncoder::reference(unsigned int id) {
    if (!m_largest.exists || id > m_largest.to)
        m_largest = {id, m_typeId, m_place, true};
    number(m_place.field, id);
}

/// For the fields that may say that there is no type: nothing is ever looked up there.
void RecordEncoder::referenceOrNone(unsigned int id) {
    if (id != NO_TYPE_ID)
        reference(id);
    else
        number(m_place.field, id);
}

void RecordEncoder::constraints(const char* field, const std::vector<FullConstraints>& ranges) {
    m_place.field = field;
    number(field, static_cast<unsigned int>(ranges.size()));
    for (const FullConstraints& range : ranges) {
        number(field, range.si);
        number(field, range.ei);
        number(field, range.dir);
    }
}

/// A loader drops larger ones.
void RecordEncoder::flavour(int value, int largest) {
    at(Field::FLAVOUR);
    if (value > largest)
        refuse(std::to_string(value) + " is above " + std::to_string(largest) +
               ", the largest that is kept");
    number(Field::FLAVOUR, value);
}

void RecordEncoder::refuse(const std::string& reason) const {
    throw WriteError(m_typeId, m_type->m_name, m_place.text(), reason);
}

} // namespace TypeFile
