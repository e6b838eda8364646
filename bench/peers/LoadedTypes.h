#pragma once

#include "OVAT/MemoryBlockManager.h"
#include "bench/AllTypes.h"
#include "bench/peers/KindSwitch.h"

#include <bit>
#include <string_view>
#include <vector>

namespace Bench {

/// This library as one of the peers: a manager, and the visit of all its types.
class LoadedTypes {
public:
    static constexpr bool HAS_DETAILS = true;

    /// `table` must outlive the object.
    explicit LoadedTypes(const std::vector<char>& table) : m_storage(table.data(), table.size()) {
        m_manager.setupDeserializer(m_storage, 0);
    }

    /// Types are loaded as the visit comes to them.
    template <typename Sink> void visit(Sink& sink) {
        for (unsigned int id = 0; const RTTI::RTBaseType* type = m_manager.getRTType(id); ++id)
            asItsKind(*type, TypeVisit<Sink>{sink});
    }

private:
    template <typename Sink> struct TypeVisit;

    OVAT::MemoryBlockManager m_storage;
    RTTI::RTTypeManager m_manager;
};

/// Reports the fields of one type.
template <typename Sink> struct LoadedTypes::TypeVisit {
    Sink& sink;

    void begin(const RTTI::RTBaseType& type) const {
        sink.nextType();
        sink.detail(type.GetClassId());
        sink.name(type.m_name);
        sink.detail(type.m_flags);
    }
    void ranges(const std::vector<RTTI::FullConstraints>& constraints) const {
        for (const RTTI::FullConstraints& range : constraints)
            sink.range(range.si, range.ei, range.dir);
    }
    void member(const RTTI::RTAggregateType::t_Member& member) const {
        sink.name(member.m_memberName);
        ranges(member.m_constraints);
        sink.number(member.m_typeId);
    }

    void operator()(const RTTI::RTSeqEnumType& type) const {
        begin(type);
        sink.number(type.m_valueSize);
        sink.detail(type.m_enumKind);
        sink.detail(type.m_valueEncoding);
        for (const char* literal : type.m_enumeratorNames)
            sink.name(literal);
    }
    void operator()(const RTTI::RTDiscreteEnumType& type) const {
        begin(type);
        ranges(type.m_constraints);
        sink.number(type.m_baseTypeId);
        sink.detail(type.m_valueSize);
        for (const RTTI::t_enumNameAndValuePair& literal : type.m_enumerators) {
            sink.name(literal.enumName);
            sink.name({literal.value, type.m_valueSize});
        }
    }
    void operator()(const RTTI::RTIntType& type) const {
        begin(type);
        sink.detail(type.m_constraint.si);
        sink.detail(type.m_constraint.ei);
        sink.detail(type.m_constraint.dir);
    }
    void operator()(const RTTI::RTFloatType& type) const {
        begin(type);
        sink.detail(type.m_floatKind);
        sink.detail(std::bit_cast<long long>(type.m_left));
        sink.detail(std::bit_cast<long long>(type.m_right));
        sink.detail(type.m_direction);
    }
    void operator()(const RTTI::RTStringType& type) const { begin(type); }
    void operator()(const RTTI::RTPhysicalType& type) const {
        begin(type);
        for (const RTTI::t_unitNameAndValuePair& unit : type.m_units) {
            sink.name(unit.unitName);
            sink.number(unit.value);
        }
    }
    void operator()(const RTTI::RTTypedefType& type) const {
        begin(type);
        ranges(type.m_constraints);
        sink.number(type.m_dataTypeId);
    }
    void operator()(const RTTI::RTAccessType& type) const {
        begin(type);
        sink.number(type.m_refTypeId);
        sink.detail(type.m_alignment);
        sink.detail(type.m_valueSize);
    }
    void operator()(const RTTI::RTArrayType& type) const {
        begin(type);
        for (const unsigned int id : type.m_indexTypeIds)
            sink.number(id);
        ranges(type.m_constraints);
        sink.number(type.m_elementTypeId);
        sink.detail(type.m_arrayKind);
        sink.detail(type.m_svTypeId);
    }
    /// A queue or a dynamic array.
    void operator()(const RTTI::RTAbstractArrayType& type) const {
        begin(type);
        sink.number(type.m_elementTypeId);
        sink.detail(type.m_svTypeId);
    }
    void operator()(const RTTI::RTAssocArrayType& type) const {
        begin(type);
        sink.number(type.m_indexTypeId);
        sink.number(type.m_elementTypeId);
        sink.detail(type.m_svTypeId);
    }
    void operator()(const RTTI::RTRecordType& type) const {
        begin(type);
        for (const RTTI::RTAggregateType::t_Member* each : type.m_members)
            member(*each);
        sink.detail(type.m_recordKind);
        sink.detail(type.m_svTypeId);
    }
    void operator()(const RTTI::RTClassType& type) const {
        begin(type);
        for (const RTTI::RTAggregateType::t_Member* each : type.m_members) {
            member(*each);
            sink.detail(static_cast<const RTTI::RTClassType::t_ClassMember*>(each)->m_memberFlag);
        }
        sink.detail(type.m_baseClassTypeId);
        sink.detail(type.m_svTypeId);
    }
};

} // namespace Bench
