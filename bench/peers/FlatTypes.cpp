#include "bench/peers/FlatTypes.h"

namespace Bench {

using namespace RTTI;
using flatbuffers::FlatBufferBuilder;
using flatbuffers::Offset;

namespace {

template <typename Table> using List = Offset<flatbuffers::Vector<Offset<Table>>>;
using RangeList = Offset<flatbuffers::Vector<const Flat::Range*>>;

Flat::Range rangeOf(const FullConstraints& constraint) {
    return {constraint.si, constraint.ei, constraint.dir};
}

/// Makes one table of each kind, with what it refers to before it. Empty lists are left out.
struct Encoder {
    FlatBufferBuilder& builder;
    Flat::Kind& kindType;
    Offset<void>& kind;

    RangeList ranges(const std::vector<FullConstraints>& constraints) const {
        std::vector<Flat::Range> list;
        list.reserve(constraints.size());
        for (const FullConstraints& constraint : constraints)
            list.push_back(rangeOf(constraint));
        return list.empty() ? RangeList() : builder.CreateVectorOfStructs(list);
    }
    template <typename Table> List<Table> list(const std::vector<Offset<Table>>& offsets) const {
        return offsets.empty() ? List<Table>() : builder.CreateVector(offsets);
    }
    template <typename Table> void become(Flat::Kind type, Offset<Table> table) const {
        kindType = type;
        kind = table.Union();
    }
    Offset<Flat::Member> member(const RTAggregateType::t_Member& from, bool flag) const {
        return Flat::CreateMember(builder, builder.CreateString(from.m_memberName), from.m_typeId,
                                  ranges(from.m_constraints), flag);
    }

    void operator()(const RTSeqEnumType& type) const {
        std::vector<Offset<flatbuffers::String>> literals;
        for (const char* literal : type.m_enumeratorNames)
            literals.push_back(builder.CreateString(literal));
        become(Flat::Kind_SequentialEnum,
               Flat::CreateSequentialEnum(builder, type.m_enumKind, type.m_valueEncoding,
                                          type.m_valueSize, list(literals)));
    }
    void operator()(const RTDiscreteEnumType& type) const {
        std::vector<Offset<Flat::Literal>> literals;
        for (const t_enumNameAndValuePair& from : type.m_enumerators) {
            const auto* const bytes = reinterpret_cast<const std::uint8_t*>(from.value);
            const auto name = builder.CreateString(from.enumName);
            literals.push_back(
                Flat::CreateLiteral(builder, name, builder.CreateVector(bytes, type.m_valueSize)));
        }
        const auto constraints = ranges(type.m_constraints);
        become(Flat::Kind_DiscreteEnum,
               Flat::CreateDiscreteEnum(builder, type.m_baseTypeId, type.m_valueSize,
                                        list(literals), constraints));
    }
    void operator()(const RTIntType& type) const {
        const Flat::Range range = rangeOf(type.m_constraint);
        become(Flat::Kind_Integer, Flat::CreateInteger(builder, &range));
    }
    void operator()(const RTFloatType& type) const {
        become(Flat::Kind_Real, Flat::CreateReal(builder, type.m_floatKind, type.m_left,
                                                 type.m_right, type.m_direction));
    }
    void operator()(const RTStringType&) const {
        become(Flat::Kind_String, Flat::CreateString(builder));
    }
    void operator()(const RTPhysicalType& type) const {
        std::vector<Offset<Flat::Unit>> units;
        for (const t_unitNameAndValuePair& unit : type.m_units)
            units.push_back(
                Flat::CreateUnit(builder, builder.CreateString(unit.unitName), unit.value));
        become(Flat::Kind_Physical, Flat::CreatePhysical(builder, list(units)));
    }
    void operator()(const RTTypedefType& type) const {
        become(Flat::Kind_Typedef,
               Flat::CreateTypedef(builder, type.m_dataTypeId, ranges(type.m_constraints)));
    }
    void operator()(const RTAccessType& type) const {
        become(Flat::Kind_Access,
               Flat::CreateAccess(builder, type.m_refTypeId, type.m_alignment, type.m_valueSize));
    }
    void operator()(const RTArrayType& type) const {
        const auto constraints = ranges(type.m_constraints);
        become(Flat::Kind_Array, Flat::CreateArray(builder, type.m_arrayKind, type.m_elementTypeId,
                                                   builder.CreateVector(type.m_indexTypeIds),
                                                   constraints, type.m_svTypeId));
    }
    void operator()(const RTQueueType& type) const {
        become(Flat::Kind_Queue, Flat::CreateQueue(builder, type.m_elementTypeId, type.m_svTypeId));
    }
    void operator()(const RTDynamicArrayType& type) const {
        become(Flat::Kind_DynamicArray,
               Flat::CreateDynamicArray(builder, type.m_elementTypeId, type.m_svTypeId));
    }
    void operator()(const RTAssocArrayType& type) const {
        become(Flat::Kind_AssociativeArray,
               Flat::CreateAssociativeArray(builder, type.m_elementTypeId, type.m_indexTypeId,
                                            type.m_svTypeId));
    }
    void operator()(const RTRecordType& type) const {
        std::vector<Offset<Flat::Member>> members;
        for (const RTAggregateType::t_Member* from : type.m_members)
            members.push_back(member(*from, false));
        become(Flat::Kind_Record,
               Flat::CreateRecord(builder, type.m_recordKind, list(members), type.m_svTypeId));
    }
    void operator()(const RTClassType& type) const {
        std::vector<Offset<Flat::Member>> members;
        for (const RTAggregateType::t_Member* from : type.m_members)
            members.push_back(
                member(*from, static_cast<const RTClassType::t_ClassMember*>(from)->m_memberFlag));
        become(Flat::Kind_Class,
               Flat::CreateClass(builder, type.m_baseClassTypeId, list(members), type.m_svTypeId));
    }
};

} // namespace

std::vector<char> FlatTypes::encode(const TypeList& types) {
    FlatBufferBuilder builder;
    std::vector<Offset<Flat::Type>> offsets;
    for (const RTBaseType* type : types) {
        Flat::Kind kindType = Flat::Kind_NONE;
        Offset<void> kind;
        asItsKind(*type, Encoder{builder, kindType, kind});
        const auto name = builder.CreateString(type->m_name);
        offsets.push_back(Flat::CreateType(builder, name, type->m_flags, kindType, kind));
    }
    builder.Finish(Flat::CreateTypeTable(builder, builder.CreateVector(offsets)));
    const auto* const bytes = reinterpret_cast<const char*>(builder.GetBufferPointer());
    return {bytes, bytes + builder.GetSize()};
}

} // namespace Bench
