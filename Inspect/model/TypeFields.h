#pragma once

#include "Inspect/model/TypeReferences.h"
#include "RTTI/RTType.h"
#include "TypeFile/FieldNames.h"

#include <string_view>
#include <vector>

namespace Inspect {

/// A word of bits.
struct Bits {
    unsigned int bits;
};

/// A SystemVerilog type id. Those from 0 on are ids that a compiler gave away; the negative ones
/// say something about the type.
struct SVTypeId {
    int id;
};

/// What the value of a literal of a discrete enumeration is made of.
struct RawValue {
    std::string_view bytes;
};

inline std::string_view textOf(const char* name) {
    return name != nullptr ? std::string_view(name) : std::string_view();
}

/// Gives the fields of a type to a sink, in one order for all types of a class:
///
///     value(field, v)          a field of the type, or of the part that was begun last
///     link(role, position, id) a reference, likewise; also where the id says "no type"
///     part(field, name)        begins an entry of a list: a literal, a unit or a member
///
/// Fields have the names that they have in the JSON form. Class and name are left out. What has
/// lists of equal length and the same values gives the same number of links, whatever is in them. A
/// member that is missing is one without a name.
template <typename Sink> class FieldWalk {
public:
    explicit FieldWalk(Sink& sink) : m_sink(sink) {}

    void of(const RTTI::RTBaseType& type);

private:
    void seqEnum(const RTTI::RTSeqEnumType& type);
    void discreteEnum(const RTTI::RTDiscreteEnumType& type);
    void real(const RTTI::RTFloatType& type);
    void physical(const RTTI::RTPhysicalType& type);
    void array(const RTTI::RTArrayType& type);
    void members(const RTTI::RTAggregateType& type);

    template <typename Type> void designating(const Type& type, LinkRole role) {
        m_sink.link(role, 0, type.m_refTypeId);
        m_sink.value(TypeFile::Field::ALIGNMENT, type.m_alignment);
        m_sink.value(TypeFile::Field::VALUE_SIZE, type.m_valueSize);
    }

    void container(const RTTI::RTAbstractArrayType& type) {
        m_sink.link(LinkRole::ELEMENT, 0, type.m_elementTypeId);
        m_sink.value(TypeFile::Field::SV_TYPE_ID, SVTypeId{type.m_svTypeId});
    }

    Sink& m_sink;
};

template <typename Sink> void FieldWalk<Sink>::seqEnum(const RTTI::RTSeqEnumType& type) {
    m_sink.value(TypeFile::Field::ENCODING, type.m_valueEncoding);
    m_sink.value(TypeFile::Field::ENUM_KIND, type.m_enumKind);
    m_sink.value(TypeFile::Field::VALUE_SIZE, type.m_valueSize);
    for (const char* name : type.m_enumeratorNames)
        m_sink.part(TypeFile::Field::LITERALS, textOf(name));
}

template <typename Sink> void FieldWalk<Sink>::discreteEnum(const RTTI::RTDiscreteEnumType& type) {
    m_sink.link(LinkRole::BASE_TYPE, 0, type.m_baseTypeId);
    m_sink.value(TypeFile::Field::VALUE_SIZE, type.m_valueSize);
    m_sink.value(TypeFile::Field::CONSTRAINTS, type.m_constraints);
    for (const RTTI::t_enumNameAndValuePair& literal : type.m_enumerators) {
        m_sink.part(TypeFile::Field::LITERALS, literal.enumName);
        if (literal.value != nullptr)
            m_sink.value(TypeFile::Field::VALUE, RawValue{{literal.value, type.m_valueSize}});
    }
}

template <typename Sink> void FieldWalk<Sink>::real(const RTTI::RTFloatType& type) {
    m_sink.value(TypeFile::Field::FLAVOUR, type.m_floatKind);
    m_sink.value(TypeFile::Field::LEFT, type.m_left);
    m_sink.value(TypeFile::Field::RIGHT, type.m_right);
    m_sink.value(TypeFile::Field::DIRECTION, type.m_direction);
}

template <typename Sink> void FieldWalk<Sink>::physical(const RTTI::RTPhysicalType& type) {
    for (const RTTI::t_unitNameAndValuePair& unit : type.m_units) {
        m_sink.part(TypeFile::Field::UNITS, unit.unitName);
        m_sink.value(TypeFile::Field::VALUE, unit.value);
    }
}

template <typename Sink> void FieldWalk<Sink>::array(const RTTI::RTArrayType& type) {
    m_sink.value(TypeFile::Field::ARRAY_KIND, type.m_arrayKind);
    m_sink.link(LinkRole::ELEMENT, 0, type.m_elementTypeId);
    m_sink.value(TypeFile::Field::INDEX_TYPES,
                 static_cast<unsigned int>(type.m_indexTypeIds.size()));
    for (std::size_t i = 0; i < type.m_indexTypeIds.size(); ++i)
        m_sink.link(LinkRole::INDEX, static_cast<unsigned int>(i), type.m_indexTypeIds[i]);
    m_sink.value(TypeFile::Field::CONSTRAINTS, type.m_constraints);
    m_sink.value(TypeFile::Field::SV_TYPE_ID, SVTypeId{type.m_svTypeId});
}

template <typename Sink> void FieldWalk<Sink>::members(const RTTI::RTAggregateType& type) {
    using ClassMember = RTTI::RTClassType::t_ClassMember;
    m_sink.value(TypeFile::Field::SV_TYPE_ID, SVTypeId{type.m_svTypeId});
    const bool isClass = type.GetClassId() == RTTI::ClassId::CLASS;
    for (std::size_t i = 0; i < type.m_members.size(); ++i) {
        const RTTI::RTAggregateType::t_Member* member = type.m_members[i];
        m_sink.part(TypeFile::Field::MEMBERS,
                    member != nullptr ? textOf(member->m_memberName) : "");
        m_sink.link(LinkRole::MEMBER, static_cast<unsigned int>(i),
                    member != nullptr ? member->m_typeId : RTTI::TypeFileFormat::NO_TYPE_ID);
        if (member == nullptr)
            continue;
        m_sink.value(TypeFile::Field::CONSTRAINTS, member->m_constraints);
        if (const auto* own = isClass ? dynamic_cast<const ClassMember*>(member) : nullptr)
            m_sink.value(TypeFile::Field::FLAG, static_cast<unsigned int>(own->m_memberFlag));
    }
}

template <typename Sink> void FieldWalk<Sink>::of(const RTTI::RTBaseType& type) {
    using namespace RTTI;
    m_sink.value(TypeFile::Field::FLAGS, Bits{type.m_flags});
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM: return seqEnum(static_cast<const RTSeqEnumType&>(type));
    case ClassId::DISCRETE_ENUM: return discreteEnum(static_cast<const RTDiscreteEnumType&>(type));
    case ClassId::INT:
        return m_sink.value(TypeFile::Field::RANGE,
                            static_cast<const RTIntType&>(type).m_constraint);
    case ClassId::FLOAT: return real(static_cast<const RTFloatType&>(type));
    case ClassId::TYPEDEF: {
        const auto& alias = static_cast<const RTTypedefType&>(type);
        m_sink.link(LinkRole::ALIASED, 0, alias.m_dataTypeId);
        return m_sink.value(TypeFile::Field::CONSTRAINTS, alias.m_constraints);
    }
    case ClassId::ACCESS:
        return designating(static_cast<const RTAccessType&>(type), LinkRole::DESIGNATED);
    case ClassId::FILE_TYPE:
        return designating(static_cast<const RTFileType&>(type), LinkRole::FILE_ELEMENT);
    case ClassId::EVENT:
        return m_sink.value(TypeFile::Field::FLAVOUR,
                            static_cast<const RTEventType&>(type).m_eventKind);
    case ClassId::PHYSICAL: return physical(static_cast<const RTPhysicalType&>(type));
    case ClassId::ARRAY: return array(static_cast<const RTArrayType&>(type));
    case ClassId::DYNAMIC_ARRAY:
    case ClassId::QUEUE: return container(static_cast<const RTAbstractArrayType&>(type));
    case ClassId::ASSOC_ARRAY:
        container(static_cast<const RTAssocArrayType&>(type));
        return m_sink.link(LinkRole::INDEX, 0,
                           static_cast<const RTAssocArrayType&>(type).m_indexTypeId);
    case ClassId::RECORD:
        m_sink.value(TypeFile::Field::RECORD_KIND,
                     static_cast<const RTRecordType&>(type).m_recordKind);
        return members(static_cast<const RTRecordType&>(type));
    case ClassId::CLASS:
        m_sink.link(LinkRole::BASE_CLASS, 0,
                    static_cast<const RTClassType&>(type).m_baseClassTypeId);
        return members(static_cast<const RTClassType&>(type));
    default: return;
    }
}

template <typename Sink> void visitFields(const RTTI::RTBaseType& type, Sink& sink) {
    FieldWalk<Sink>(sink).of(type);
}

} // namespace Inspect
