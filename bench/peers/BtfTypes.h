#pragma once

#include "bench/peers/LoadedTypes.h"

#include <bpf/btf.h>

#include <memory>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace Bench {

/// A table as BTF, the kernel's format for types, opened with libbpf.
///
/// Type `id` of the table is BTF's type `id` + 1, and behind those stand its helpers:
///
///     sequential enumeration   ENUM
///     discrete enumeration     TYPEDEF, its ranges, ARRAY: index type an ENUM, element the base
///     integer, real, string    INT, FLOAT, FWD
///     physical type            ENUM64 of the units
///     typedef                  TYPEDEF, its ranges, the aliased type
///     array                    TYPEDEF, an ARRAY for each index type, its ranges, the element type
///     queue, dynamic array     TYPEDEF, ARRAY without an index type
///     associative array        TYPEDEF, ARRAY
///     access type              TYPEDEF, PTR
///     record, class            STRUCT; each member's ranges stand before its type
///
/// A range is an ARRAY whose index type is a nameless ENUM of its bounds and direction; equal
/// ranges share the ENUM. BTF has no place for flags, kinds, encodings, SystemVerilog type ids,
/// alignments, the bounds of integers and reals, the flags of members and base classes: the details
/// of a visit.
class BtfTypes {
public:
    static constexpr bool HAS_DETAILS = false;

    static std::vector<char> encode(const TypeList& types);

    /// Opening copies `encoded`. The last helper, a STRUCT, has the number of types as its size.
    explicit BtfTypes(const std::vector<char>& encoded)
        : m_btf(btf__new(encoded.data(), static_cast<unsigned int>(encoded.size()))) {
        if (!m_btf)
            throw std::runtime_error("libbpf does not open its own table");
        m_typeCount = btf__type_by_id(m_btf.get(), btf__type_cnt(m_btf.get()) - 1)->size;
    }

    template <typename Sink> void visit(Sink& sink) const {
        for (unsigned int id = 1; id <= m_typeCount; ++id)
            visitType(*btf__type_by_id(m_btf.get(), id), sink);
    }

    /// The name of a type of the table.
    const char* nameOf(unsigned int typeId) const {
        return text(btf__type_by_id(m_btf.get(), typeId + 1)->name_off);
    }

    /// The id of the table's first type with this name.
    unsigned int idOf(const char* name) const {
        return static_cast<unsigned int>(btf__find_by_name(m_btf.get(), name)) - 1;
    }

private:
    const char* text(unsigned int offset) const { return btf__str_by_offset(m_btf.get(), offset); }
    template <typename Sink> void visitType(const btf_type& type, Sink& sink) const;
    template <typename Sink> void visitTarget(unsigned int id, Sink& sink) const;
    template <typename Sink> void visitLiterals(const btf_type& type, Sink& sink) const;
    template <typename Sink> void visitUnits(const btf_type& type, Sink& sink) const;
    template <typename Sink> void visitMembers(const btf_type& type, Sink& sink) const;

    struct Free {
        void operator()(btf* opened) const { btf__free(opened); }
    };
    std::unique_ptr<btf, Free> m_btf;
    unsigned int m_typeCount = 0;
};

template <typename Sink> void BtfTypes::visitType(const btf_type& type, Sink& sink) const {
    sink.nextType();
    sink.name(text(type.name_off));
    switch (btf_kind(&type)) {
    case BTF_KIND_TYPEDEF: return visitTarget(type.type, sink);
    case BTF_KIND_STRUCT: return visitMembers(type, sink);
    case BTF_KIND_ENUM64: return visitUnits(type, sink);
    case BTF_KIND_ENUM:
        sink.number(type.size);
        for (unsigned int i = 0; i < btf_vlen(&type); ++i)
            sink.name(text(btf_enum(&type)[i].name_off));
        return;
    default: return; // Nothing that a table has.
    }
}

/// Follows the helpers from a reference to the type of the table that it leads to.
template <typename Sink> void BtfTypes::visitTarget(unsigned int id, Sink& sink) const {
    const btf_type* literals = nullptr;
    while (id > m_typeCount) {
        const btf_type& helper = *btf__type_by_id(m_btf.get(), id);
        if (btf_is_ptr(&helper)) {
            id = helper.type;
            continue;
        }
        const struct btf_array& array = *btf_array(&helper);
        id = array.type;
        if (array.index_type > m_typeCount) {
            const btf_type& index = *btf__type_by_id(m_btf.get(), array.index_type);
            const struct btf_enum* const values = btf_enum(&index);
            if (index.name_off == 0)
                sink.range(values[0].val, values[1].val, values[2].val);
            else
                literals = &index;
        } else if (array.index_type != 0) {
            sink.number(array.index_type - 1);
        }
    }
    sink.number(id - 1); // No type of BTF is 0, and no type of a table is NO_TYPE_ID.
    if (literals != nullptr)
        visitLiterals(*literals, sink);
}

template <typename Sink> void BtfTypes::visitLiterals(const btf_type& type, Sink& sink) const {
    for (unsigned int i = 0; i < btf_vlen(&type); ++i) {
        const struct btf_enum& literal = btf_enum(&type)[i];
        sink.name(text(literal.name_off));
        sink.name({reinterpret_cast<const char*>(&literal.val), sizeof(literal.val)});
    }
}

template <typename Sink> void BtfTypes::visitUnits(const btf_type& type, Sink& sink) const {
    for (unsigned int i = 0; i < btf_vlen(&type); ++i) {
        const struct btf_enum64& unit = btf_enum64(&type)[i];
        sink.name(text(unit.name_off));
        sink.number(static_cast<long long>(btf_enum64_value(&unit)));
    }
}

template <typename Sink> void BtfTypes::visitMembers(const btf_type& type, Sink& sink) const {
    for (unsigned int i = 0; i < btf_vlen(&type); ++i) {
        const btf_member& member = btf_members(&type)[i];
        sink.name(text(member.name_off));
        visitTarget(member.type, sink);
    }
}

} // namespace Bench
