#include "bench/peers/ProtobufTypes.h"

namespace Bench {

using namespace RTTI;

namespace {

void setRange(Protobuf::Range& range, const FullConstraints& constraint) {
    range.set_left(constraint.si);
    range.set_right(constraint.ei);
    range.set_direction(constraint.dir);
}

void setRanges(google::protobuf::RepeatedPtrField<Protobuf::Range>* list,
               const std::vector<FullConstraints>& constraints) {
    for (const FullConstraints& constraint : constraints)
        setRange(*list->Add(), constraint);
}

Protobuf::Member& addMember(google::protobuf::RepeatedPtrField<Protobuf::Member>* list,
                            const RTAggregateType::t_Member& from) {
    Protobuf::Member& member = *list->Add();
    member.set_name(from.m_memberName);
    member.set_type(from.m_typeId);
    setRanges(member.mutable_ranges(), from.m_constraints);
    return member;
}

/// Fills in a message with a type of each kind.
struct Encoder {
    Protobuf::Type& out;

    void operator()(const RTSeqEnumType& type) const {
        Protobuf::SequentialEnum& kind = *out.mutable_sequential_enum();
        kind.set_kind(type.m_enumKind);
        kind.set_encoding(type.m_valueEncoding);
        kind.set_value_size(type.m_valueSize);
        for (const char* literal : type.m_enumeratorNames)
            kind.add_literals(literal);
    }
    void operator()(const RTDiscreteEnumType& type) const {
        Protobuf::DiscreteEnum& kind = *out.mutable_discrete_enum();
        kind.set_base_type(type.m_baseTypeId);
        kind.set_value_size(type.m_valueSize);
        setRanges(kind.mutable_ranges(), type.m_constraints);
        for (const t_enumNameAndValuePair& from : type.m_enumerators) {
            Protobuf::Literal& literal = *kind.add_literals();
            literal.set_name(from.enumName);
            literal.set_value(from.value, type.m_valueSize);
        }
    }
    void operator()(const RTIntType& type) const {
        setRange(*out.mutable_integer()->mutable_range(), type.m_constraint);
    }
    void operator()(const RTFloatType& type) const {
        Protobuf::Real& kind = *out.mutable_real();
        kind.set_kind(type.m_floatKind);
        kind.set_left(type.m_left);
        kind.set_right(type.m_right);
        kind.set_direction(type.m_direction);
    }
    void operator()(const RTStringType&) const { out.mutable_string(); }
    void operator()(const RTPhysicalType& type) const {
        for (const t_unitNameAndValuePair& from : type.m_units) {
            Protobuf::Unit& unit = *out.mutable_physical()->add_units();
            unit.set_name(from.unitName);
            unit.set_value(from.value);
        }
    }
    void operator()(const RTTypedefType& type) const {
        out.mutable_typedef_()->set_data_type(type.m_dataTypeId);
        setRanges(out.mutable_typedef_()->mutable_ranges(), type.m_constraints);
    }
    void operator()(const RTAccessType& type) const {
        Protobuf::Access& kind = *out.mutable_access();
        kind.set_designated_type(type.m_refTypeId);
        kind.set_alignment(type.m_alignment);
        kind.set_value_size(type.m_valueSize);
    }
    void operator()(const RTArrayType& type) const {
        Protobuf::Array& kind = *out.mutable_array();
        kind.set_kind(type.m_arrayKind);
        kind.set_element_type(type.m_elementTypeId);
        kind.mutable_index_types()->Add(type.m_indexTypeIds.begin(), type.m_indexTypeIds.end());
        setRanges(kind.mutable_ranges(), type.m_constraints);
        kind.set_sv_type(type.m_svTypeId);
    }
    void operator()(const RTQueueType& type) const { sequence(*out.mutable_queue(), type); }
    void operator()(const RTDynamicArrayType& type) const {
        sequence(*out.mutable_dynamic_array(), type);
    }
    void operator()(const RTAssocArrayType& type) const {
        Protobuf::AssociativeArray& kind = *out.mutable_associative_array();
        kind.set_element_type(type.m_elementTypeId);
        kind.set_index_type(type.m_indexTypeId);
        kind.set_sv_type(type.m_svTypeId);
    }
    void operator()(const RTRecordType& type) const {
        Protobuf::Record& kind = *out.mutable_record();
        kind.set_kind(type.m_recordKind);
        kind.set_sv_type(type.m_svTypeId);
        for (const RTAggregateType::t_Member* member : type.m_members)
            addMember(kind.mutable_members(), *member);
    }
    void operator()(const RTClassType& type) const {
        Protobuf::Class& kind = *out.mutable_class_();
        kind.set_base_class(type.m_baseClassTypeId);
        kind.set_sv_type(type.m_svTypeId);
        for (const RTAggregateType::t_Member* member : type.m_members)
            addMember(kind.mutable_members(), *member)
                .set_flag(static_cast<const RTClassType::t_ClassMember*>(member)->m_memberFlag);
    }

    static void sequence(Protobuf::Sequence& kind, const RTAbstractArrayType& type) {
        kind.set_element_type(type.m_elementTypeId);
        kind.set_sv_type(type.m_svTypeId);
    }
};

} // namespace

std::vector<char> ProtobufTypes::encode(const TypeList& types) {
    Protobuf::TypeTable table;
    for (const RTBaseType* type : types) {
        Protobuf::Type& out = *table.add_types();
        out.set_name(type->m_name);
        out.set_flags(type->m_flags);
        asItsKind(*type, Encoder{out});
    }
    std::vector<char> encoded(table.ByteSizeLong());
    table.SerializeToArray(encoded.data(), static_cast<int>(encoded.size()));
    return encoded;
}

} // namespace Bench
