#pragma once

#include "TypeFile/RecordLayout.h"
#include "TypeFile/RecordParts.h"

#include <array>
#include <bit>
#include <span>
#include <vector>

namespace TypeFile {

/// What a type is to those that refer to it. One whose record could not be read has a finding of
/// its own, and is no fault of others.
enum class Role : unsigned char { UNREADABLE, NO_TYPE, PLAIN, RECORD, CLASS };

/// The roles of types by the kinds of their records, from the first kind on.
inline constexpr auto ROLES = [] {
    using namespace RTTI::ClassId;
    std::array<Role, WILDCARD - SEQ_ENUM + 1> roles{};
    for (unsigned int kind = SEQ_ENUM; kind <= WILDCARD; ++kind)
        roles[kind - SEQ_ENUM] = buildsType(kind) ? Role::PLAIN : Role::NO_TYPE;
    roles[RECORD - SEQ_ENUM] = Role::RECORD;
    roles[CLASS - SEQ_ENUM] = Role::CLASS;
    return roles;
}();

/// The role of a type with a record of this kind.
constexpr Role roleOf(unsigned int kind) {
    return isKind(kind) ? ROLES[kind - RTTI::ClassId::SEQ_ENUM] : Role::NO_TYPE;
}

/// What is looked up of types in any order: one byte each.
struct TypeState {
    Role role : 3 = Role::UNREADABLE;
    bool isNoType : 1 = false;   ///< Its role is NO_TYPE.
    bool isFinished : 1 = false; ///< It and all below it are checked; none leads back to it.
    bool isBound : 1 = false;    ///< Its `steps` may be more than its walk takes.
    bool isUnsound : 1 = false;  ///< It contains itself by value, or cannot be read before itself.

    void setRole(Role ofType) {
        role = ofType;
        isNoType = ofType == Role::NO_TYPE;
    }
};
static_assert(sizeof(TypeState) == 1);

/// The states of several types at once, bit by bit.
class TypeStates {
public:
    void add(TypeState state) {
        const auto bits = std::bit_cast<unsigned char>(state);
        m_all &= bits;
        m_any |= bits;
    }

    // States without a role.
    TypeState all() const { return std::bit_cast<TypeState>(m_all); }
    TypeState any() const { return std::bit_cast<TypeState>(m_any); }

private:
    unsigned char m_all = 0xFF;
    unsigned char m_any = 0;
};

/// What a type asks of others.
struct TypeCounts {
    unsigned int open = 0;  ///< Ranges that it asks of the levels around it.
    unsigned int steps = 0; ///< Of its constraint walk; at most one above the limit.

    bool any() const { return (open | steps) != 0; }
};

/// A type that refers to one that was not finished when its record was read.
struct DeferredType {
    unsigned int typeId;
    unsigned int dimensions; ///< Of an array.
    std::size_t firstPart;   ///< Among those of all types.
};

/// All types of a file, by id.
struct TypeNodes {
    std::vector<unsigned long long> addresses;
    std::vector<TypeState> states;
    std::vector<TypeCounts> counts;

    std::vector<DeferredType> deferred; ///< In the order of their ids, once all are there.
    std::vector<unsigned int> places;   ///< By id: among those deferred.
    std::vector<Part> parts;            ///< Of those deferred, type by type.
    std::vector<LongList> longLists;    ///< Of these parts.

    unsigned int size() const { return static_cast<unsigned int>(addresses.size()); }

    /// Whether a link to this type id leads to an object, as far as is known.
    bool isLinked(unsigned int target) const {
        return target < size() && states[target].role != Role::NO_TYPE;
    }

    /// Whether a reference is none that it should be, now that its target's role is known.
    bool isBroken(unsigned int target, unsigned char link) const {
        if (!isLinked(target))
            return true;
        const Role role = states[target].role;
        return Link::has(link, Link::BASE_CLASS) && role != Role::CLASS && role != Role::UNREADABLE;
    }

    /// What is wrong with a reference that is broken.
    FindingCode brokenCode(unsigned int target) const {
        if (target >= size())
            return FindingCode::TYPE_ID_OUTSIDE_TABLE;
        return isLinked(target) ? FindingCode::BASE_IS_NO_CLASS : FindingCode::LINK_TO_NO_TYPE;
    }

    /// Whether a part of a type holds its target by value: a class is held by its handle.
    bool isByValue(unsigned int target, unsigned char link) const {
        return Link::has(link, Link::WALKED) && isLinked(target) &&
               states[target].role != Role::CLASS;
    }

    /// Whether a target is one of the types that are deferred and not finished yet.
    bool isUnfinished(unsigned int target) const {
        return target < size() && !states[target].isFinished;
    }

    /// The parts of a type that is deferred.
    PartsOfType partsOf(unsigned int typeId) const {
        const DeferredType& type = deferred[places[typeId]];
        std::size_t end = type.firstPart;
        while (!parts[end++].isLast) {
        }
        return {std::span(&parts[type.firstPart], end - type.firstPart), longLists, type.firstPart,
                type.dimensions};
    }
};

} // namespace TypeFile
