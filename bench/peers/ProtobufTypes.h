#pragma once

#include "bench/peers/LoadedTypes.h"
#include "types.pb.h"

#include <google/protobuf/arena.h>

#include <bit>
#include <stdexcept>
#include <vector>

namespace Bench {

/// A table as a protobuf message, parsed into objects on the heap.
class ProtobufTypes {
public:
    static constexpr bool HAS_DETAILS = true;

    static std::vector<char> encode(const TypeList& types);

    /// The message keeps nothing of `encoded`.
    explicit ProtobufTypes(const std::vector<char>& encoded) { parse(m_table, encoded); }

    template <typename Sink> void visit(Sink& sink) const { visit(m_table, sink); }

    static void parse(Protobuf::TypeTable& table, const std::vector<char>& encoded) {
        if (!table.ParseFromArray(encoded.data(), static_cast<int>(encoded.size())))
            throw std::runtime_error("protobuf does not parse its own table");
    }
    template <typename Sink> static void visit(const Protobuf::TypeTable& table, Sink& sink) {
        for (const Protobuf::Type& type : table.types())
            visitType(type, sink);
    }

private:
    template <typename Sink> static void visitType(const Protobuf::Type& type, Sink& sink);

    Protobuf::TypeTable m_table;
};

/// The same with all objects on one arena, which is protobuf's way to make fewer allocations.
class ProtobufTypesOnArena {
public:
    static constexpr bool HAS_DETAILS = true;

    static std::vector<char> encode(const TypeList& types) { return ProtobufTypes::encode(types); }

    explicit ProtobufTypesOnArena(const std::vector<char>& encoded)
        : m_table(google::protobuf::Arena::CreateMessage<Protobuf::TypeTable>(&m_arena)) {
        ProtobufTypes::parse(*m_table, encoded);
    }

    template <typename Sink> void visit(Sink& sink) const { ProtobufTypes::visit(*m_table, sink); }

private:
    google::protobuf::Arena m_arena;
    Protobuf::TypeTable* m_table;
};

/// Reports the fields of each kind.
template <typename Sink> struct ProtobufVisit {
    Sink& sink;

    template <typename Ranges> void ranges(const Ranges& list) const {
        for (const Protobuf::Range& range : list)
            sink.range(range.left(), range.right(), range.direction());
    }
    void member(const Protobuf::Member& member) const {
        sink.name(member.name());
        ranges(member.ranges());
        sink.number(member.type());
    }

    void operator()(const Protobuf::SequentialEnum& type) const {
        sink.number(type.value_size());
        sink.detail(type.kind());
        sink.detail(type.encoding());
        for (const std::string& literal : type.literals())
            sink.name(literal);
    }
    void operator()(const Protobuf::DiscreteEnum& type) const {
        ranges(type.ranges());
        sink.number(type.base_type());
        sink.detail(type.value_size());
        for (const Protobuf::Literal& literal : type.literals()) {
            sink.name(literal.name());
            sink.name(literal.value());
        }
    }
    void operator()(const Protobuf::Integer& type) const {
        sink.detail(type.range().left());
        sink.detail(type.range().right());
        sink.detail(type.range().direction());
    }
    void operator()(const Protobuf::Real& type) const {
        sink.detail(type.kind());
        sink.detail(std::bit_cast<long long>(type.left()));
        sink.detail(std::bit_cast<long long>(type.right()));
        sink.detail(type.direction());
    }
    void operator()(const Protobuf::String&) const {}
    void operator()(const Protobuf::Physical& type) const {
        for (const Protobuf::Unit& unit : type.units()) {
            sink.name(unit.name());
            sink.number(unit.value());
        }
    }
    void operator()(const Protobuf::Typedef& type) const {
        ranges(type.ranges());
        sink.number(type.data_type());
    }
    void operator()(const Protobuf::Access& type) const {
        sink.number(type.designated_type());
        sink.detail(type.alignment());
        sink.detail(type.value_size());
    }
    void operator()(const Protobuf::Array& type) const {
        for (const unsigned int id : type.index_types())
            sink.number(id);
        ranges(type.ranges());
        sink.number(type.element_type());
        sink.detail(type.kind());
        sink.detail(type.sv_type());
    }
    void operator()(const Protobuf::Sequence& type) const {
        sink.number(type.element_type());
        sink.detail(type.sv_type());
    }
    void operator()(const Protobuf::AssociativeArray& type) const {
        sink.number(type.index_type());
        sink.number(type.element_type());
        sink.detail(type.sv_type());
    }
    void operator()(const Protobuf::Record& type) const {
        for (const Protobuf::Member& each : type.members())
            member(each);
        sink.detail(type.kind());
        sink.detail(type.sv_type());
    }
    void operator()(const Protobuf::Class& type) const {
        for (const Protobuf::Member& each : type.members()) {
            member(each);
            sink.detail(each.flag());
        }
        sink.detail(type.base_class());
        sink.detail(type.sv_type());
    }
};

template <typename Sink> void ProtobufTypes::visitType(const Protobuf::Type& type, Sink& sink) {
    using namespace RTTI;
    const auto visitAs = [&](unsigned int classId, const auto& kind) {
        sink.nextType();
        sink.detail(classId);
        sink.name(type.name());
        sink.detail(type.flags());
        ProtobufVisit<Sink>{sink}(kind);
    };
    switch (type.kind_case()) {
    case Protobuf::Type::kSequentialEnum: return visitAs(ClassId::SEQ_ENUM, type.sequential_enum());
    case Protobuf::Type::kDiscreteEnum:
        return visitAs(ClassId::DISCRETE_ENUM, type.discrete_enum());
    case Protobuf::Type::kInteger: return visitAs(ClassId::INT, type.integer());
    case Protobuf::Type::kReal: return visitAs(ClassId::FLOAT, type.real());
    case Protobuf::Type::kString: return visitAs(ClassId::STRING, type.string());
    case Protobuf::Type::kPhysical: return visitAs(ClassId::PHYSICAL, type.physical());
    case Protobuf::Type::kTypedef: return visitAs(ClassId::TYPEDEF, type.typedef_());
    case Protobuf::Type::kAccess: return visitAs(ClassId::ACCESS, type.access());
    case Protobuf::Type::kArray: return visitAs(ClassId::ARRAY, type.array());
    case Protobuf::Type::kQueue: return visitAs(ClassId::QUEUE, type.queue());
    case Protobuf::Type::kDynamicArray:
        return visitAs(ClassId::DYNAMIC_ARRAY, type.dynamic_array());
    case Protobuf::Type::kAssociativeArray:
        return visitAs(ClassId::ASSOC_ARRAY, type.associative_array());
    case Protobuf::Type::kRecord: return visitAs(ClassId::RECORD, type.record());
    case Protobuf::Type::kClass: return visitAs(ClassId::CLASS, type.class_());
    case Protobuf::Type::KIND_NOT_SET: throw std::runtime_error("a message without a kind");
    }
}

} // namespace Bench
