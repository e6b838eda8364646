#pragma once

#include "bench/peers/LoadedTypes.h"
#include "types_generated.h"

#include <bit>
#include <limits>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace Bench {

/// A table as a FlatBuffer, verified once and then read in place.
class FlatTypes {
public:
    static constexpr bool HAS_DETAILS = true;

    static std::vector<char> encode(const TypeList& types);

    /// `encoded` must outlive the object.
    explicit FlatTypes(const std::vector<char>& encoded) {
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(encoded.data());
        flatbuffers::Verifier::Options options;
        options.max_tables = std::numeric_limits<flatbuffers::uoffset_t>::max();
        flatbuffers::Verifier verifier(bytes, encoded.size(), options);
        if (!Flat::VerifyTypeTableBuffer(verifier))
            throw std::runtime_error("FlatBuffers does not verify its own table");
        m_table = Flat::GetTypeTable(bytes);
    }

    template <typename Sink> void visit(Sink& sink) const {
        for (const Flat::Type* type : *m_table->types())
            visitType(*type, sink);
    }

private:
    template <typename Sink> static void visitType(const Flat::Type& type, Sink& sink);

    const Flat::TypeTable* m_table = nullptr;
};

/// Reports the fields of each kind. An empty list is not in the buffer at all.
template <typename Sink> struct FlatVisit {
    Sink& sink;

    static std::string_view text(const flatbuffers::String* string) {
        return {string->c_str(), string->size()};
    }
    template <typename List, typename Action>
    static void forEach(const List* list, const Action& action) {
        if (list != nullptr)
            for (const auto each : *list)
                action(each);
    }
    void ranges(const flatbuffers::Vector<const Flat::Range*>* list) const {
        forEach(list, [this](const Flat::Range* range) {
            sink.range(range->left(), range->right(), range->direction());
        });
    }
    void member(const Flat::Member& member) const {
        sink.name(text(member.name()));
        ranges(member.ranges());
        sink.number(member.type());
    }
    template <typename Sequence> void sequence(const Sequence& type) const {
        sink.number(type.element_type());
        sink.detail(type.sv_type());
    }

    void operator()(const Flat::SequentialEnum& type) const {
        sink.number(type.value_size());
        sink.detail(type.kind());
        sink.detail(type.encoding());
        forEach(type.literals(),
                [this](const flatbuffers::String* each) { sink.name(text(each)); });
    }
    void operator()(const Flat::DiscreteEnum& type) const {
        ranges(type.ranges());
        sink.number(type.base_type());
        sink.detail(type.value_size());
        forEach(type.literals(), [this](const Flat::Literal* literal) {
            sink.name(text(literal->name()));
            sink.name({reinterpret_cast<const char*>(literal->value()->data()),
                       literal->value()->size()});
        });
    }
    void operator()(const Flat::Integer& type) const {
        sink.detail(type.range()->left());
        sink.detail(type.range()->right());
        sink.detail(type.range()->direction());
    }
    void operator()(const Flat::Real& type) const {
        sink.detail(type.kind());
        sink.detail(std::bit_cast<long long>(type.left()));
        sink.detail(std::bit_cast<long long>(type.right()));
        sink.detail(type.direction());
    }
    void operator()(const Flat::String&) const {}
    void operator()(const Flat::Physical& type) const {
        forEach(type.units(), [this](const Flat::Unit* unit) {
            sink.name(text(unit->name()));
            sink.number(unit->value());
        });
    }
    void operator()(const Flat::Typedef& type) const {
        ranges(type.ranges());
        sink.number(type.data_type());
    }
    void operator()(const Flat::Access& type) const {
        sink.number(type.designated_type());
        sink.detail(type.alignment());
        sink.detail(type.value_size());
    }
    void operator()(const Flat::Array& type) const {
        forEach(type.index_types(), [this](unsigned int id) { sink.number(id); });
        ranges(type.ranges());
        sink.number(type.element_type());
        sink.detail(type.kind());
        sink.detail(type.sv_type());
    }
    void operator()(const Flat::Queue& type) const { sequence(type); }
    void operator()(const Flat::DynamicArray& type) const { sequence(type); }
    void operator()(const Flat::AssociativeArray& type) const {
        sink.number(type.index_type());
        sequence(type);
    }
    void operator()(const Flat::Record& type) const {
        forEach(type.members(), [this](const Flat::Member* each) { member(*each); });
        sink.detail(type.kind());
        sink.detail(type.sv_type());
    }
    void operator()(const Flat::Class& type) const {
        forEach(type.members(), [this](const Flat::Member* each) {
            member(*each);
            sink.detail(each->flag());
        });
        sink.detail(type.base_class());
        sink.detail(type.sv_type());
    }
};

template <typename Sink> void FlatTypes::visitType(const Flat::Type& type, Sink& sink) {
    using namespace RTTI;
    const auto visitAs = [&](unsigned int classId, const auto& kind) {
        sink.nextType();
        sink.detail(classId);
        sink.name(FlatVisit<Sink>::text(type.name()));
        sink.detail(type.flags());
        FlatVisit<Sink>{sink}(kind);
    };
    switch (type.kind_type()) {
    case Flat::Kind_SequentialEnum:
        return visitAs(ClassId::SEQ_ENUM, *type.kind_as_SequentialEnum());
    case Flat::Kind_DiscreteEnum:
        return visitAs(ClassId::DISCRETE_ENUM, *type.kind_as_DiscreteEnum());
    case Flat::Kind_Integer: return visitAs(ClassId::INT, *type.kind_as_Integer());
    case Flat::Kind_Real: return visitAs(ClassId::FLOAT, *type.kind_as_Real());
    case Flat::Kind_String: return visitAs(ClassId::STRING, *type.kind_as_String());
    case Flat::Kind_Physical: return visitAs(ClassId::PHYSICAL, *type.kind_as_Physical());
    case Flat::Kind_Typedef: return visitAs(ClassId::TYPEDEF, *type.kind_as_Typedef());
    case Flat::Kind_Access: return visitAs(ClassId::ACCESS, *type.kind_as_Access());
    case Flat::Kind_Array: return visitAs(ClassId::ARRAY, *type.kind_as_Array());
    case Flat::Kind_Queue: return visitAs(ClassId::QUEUE, *type.kind_as_Queue());
    case Flat::Kind_DynamicArray:
        return visitAs(ClassId::DYNAMIC_ARRAY, *type.kind_as_DynamicArray());
    case Flat::Kind_AssociativeArray:
        return visitAs(ClassId::ASSOC_ARRAY, *type.kind_as_AssociativeArray());
    case Flat::Kind_Record: return visitAs(ClassId::RECORD, *type.kind_as_Record());
    case Flat::Kind_Class: return visitAs(ClassId::CLASS, *type.kind_as_Class());
    case Flat::Kind_NONE: throw std::runtime_error("a FlatBuffer's type without a kind");
    }
}

} // namespace Bench
