#pragma once

#include "RTTI/TypeFileFormat.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace TypeFile {

/// What is kept of a record once its bytes are verified. Offsets are relative to its address.
struct TypeFacts {
    unsigned long long address = 0;
    unsigned int kind = 0;                                     ///< 0 where no record can be read.
    unsigned int reference = RTTI::TypeFileFormat::NO_TYPE_ID; ///< Base type, element and so on.
    unsigned int second = 0;      ///< Associative array: index type id. Array: dimension count.
                                  ///< Aggregate: place of its kept members, + 1; 0 for none.
    unsigned int listAt = 0;      ///< Of the first constraint, or of an aggregate's first member.
    unsigned int referenceAt = 0; ///< Of the field that holds `reference`.

    /// Constraints, or members; the smallest takes 9 bytes of the at most 2^31 that a record has.
    unsigned int listCount : 30 = 0;
    unsigned int hasOpenRange : 1 = 0; ///< One of the constraints stands open.
    unsigned int isWhole : 1 = 0;      ///< Every field was there; else those above say nothing.
};
static_assert(sizeof(TypeFacts) == 32, "memory counts: a file can have many millions of types");

/// A type that the constraint walk meets right below another one, with the constraints in between.
struct Part {
    unsigned int typeId;
    unsigned int index;      ///< Of the member; BASE_CLASS, or 0 where there is one part alone.
    unsigned long long idAt; ///< Offset of the type id in the storage.
    unsigned long long rangesAt;
    unsigned int rangeCount;
    bool mayBeOpen; ///< Else every range is known to have bounds.
};

inline constexpr unsigned int BASE_CLASS = 0xFFFFFFFF;

/// What a type is to those that refer to it; UNREAD until its record has been read.
enum class Role : unsigned char { UNREAD, NO_TYPE, LEAF, PASSAGE, RECORD, CLASS };

/// All types of a file. The roles stand apart, since they alone are looked up in any order.
struct TypeTable {
    std::vector<TypeFacts> facts;
    std::vector<Role> roles;

    /// Of types that will be looked at again. A file can have far more members than types, and
    /// memory must not grow with them: most members of real files find room.
    std::vector<Part> members;
    static constexpr std::size_t MEMBERS_KEPT = 1024;
    static constexpr std::size_t MORE_KEPT_PER_TYPE = 2;

    bool hasRoomForMember() const {
        return members.size() < MEMBERS_KEPT + MORE_KEPT_PER_TYPE * facts.size();
    }

    /// Gives the members of the type, which were kept last, back.
    void dropMembers(unsigned int id) {
        if (facts[id].second != 0)
            members.resize(std::exchange(facts[id].second, 0) - 1);
    }

    unsigned int size() const { return static_cast<unsigned int>(facts.size()); }
    const TypeFacts& operator[](std::size_t id) const { return facts[id]; }
};

/// Whether a kind code is one that records can have.
constexpr bool isKind(unsigned int kind) {
    return kind >= RTTI::ClassId::SEQ_ENUM && kind <= RTTI::ClassId::WILDCARD;
}

/// Whether a record of this kind builds an object.
constexpr bool buildsType(unsigned int kind) {
    using namespace RTTI::ClassId;
    return isKind(kind) && kind != CLASS_HANDLE && kind != LOGIC && kind != BIT &&
           kind != ABSTRACT_ARRAY && kind != AGGREGATE;
}

constexpr bool isAggregate(unsigned int kind) {
    return kind == RTTI::ClassId::RECORD || kind == RTTI::ClassId::CLASS;
}

/// Whether the constraint walk goes through a type of this kind to the one that it refers to.
constexpr bool isPassage(unsigned int kind) {
    return kind == RTTI::ClassId::TYPEDEF || kind == RTTI::ClassId::DISCRETE_ENUM ||
           kind == RTTI::ClassId::ARRAY;
}

/// A record that could not be read has a finding of its own, and is no fault of others.
constexpr Role roleOf(unsigned int kind) {
    if (kind == RTTI::ClassId::RECORD)
        return Role::RECORD;
    if (kind == RTTI::ClassId::CLASS)
        return Role::CLASS;
    if (isPassage(kind))
        return Role::PASSAGE;
    return kind == 0 || buildsType(kind) ? Role::LEAF : Role::NO_TYPE;
}

} // namespace TypeFile
