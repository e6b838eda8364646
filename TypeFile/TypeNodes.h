#pragma once

#include "TypeFile/RecordLayout.h"

#include <vector>

namespace TypeFile {

/// What a type is to those that refer to it. One whose record could not be read has a finding of
/// its own, and is no fault of others.
enum class Role : unsigned char { UNREAD, UNREADABLE, NO_TYPE, LEAF, PASSAGE, RECORD, CLASS };

/// The role of a type with a record of this kind.
constexpr Role roleOf(unsigned int kind) {
    if (kind == RTTI::ClassId::RECORD)
        return Role::RECORD;
    if (kind == RTTI::ClassId::CLASS)
        return Role::CLASS;
    if (kind == RTTI::ClassId::TYPEDEF || kind == RTTI::ClassId::DISCRETE_ENUM ||
        kind == RTTI::ClassId::ARRAY)
        return Role::PASSAGE;
    return buildsType(kind) ? Role::LEAF : Role::NO_TYPE;
}

/// A reference of a record, with the ranges that stand behind it.
struct Part {
    unsigned int target;
    unsigned int rangeCount;
    unsigned long long rangesAt; ///< In the storage.
    unsigned char link;
};

/// What a record refers to, in its order: the references that must lead to an object.
struct RecordParts {
    std::vector<Part> parts;
    unsigned int dimensions = 0; ///< Of an array; 0 for other kinds.

    void clear() {
        parts.clear();
        dimensions = 0;
    }
};

/// A reference that is kept because its target, or one below it, had not been read.
struct Reference {
    unsigned int target;
    unsigned char link;
    bool isLast; ///< Of those of a type.
};
static_assert(sizeof(Reference) == 8, "memory counts: a file can have many millions of members");

/// What is looked up of types in any order: one byte each.
struct TypeState {
    Role role : 3 = Role::UNREAD;
    bool isSettled : 1 = false; ///< It and all below it are checked; none leads back to it.
    bool hasFacts : 1 = false;  ///< Its `open` or `steps` is not 0.
    bool isBound : 1 = false;   ///< Its `steps` may be more than its walk takes.
    bool isUnsound : 1 = false; ///< It contains itself by value, or cannot be read before itself.
};
static_assert(sizeof(TypeState) == 1);

/// What is known of a type besides.
struct TypeNode {
    unsigned long long firstReference = 0; ///< Of those that are kept, where it is not settled.
    unsigned int dimensions = 0;           ///< Of an array.
    unsigned int open = 0;                 ///< Ranges that it asks of the levels around it.
    unsigned int steps = 0;                ///< Of its constraint walk; at most one above the limit.
    unsigned char chain = 0; ///< Records that can lead back while this one waits, up to a limit.
};

/// All types of a file, by id.
struct TypeNodes {
    std::vector<unsigned long long> addresses;
    std::vector<TypeState> states;
    std::vector<TypeNode> nodes;
    std::vector<Reference> references; ///< Those that are kept, type by type.

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

    /// Whether a part of a type holds its target by value: a class is held by its handle.
    bool isByValue(unsigned int target, unsigned char link) const {
        return Link::has(link, Link::WALKED) && isLinked(target) &&
               states[target].role != Role::CLASS;
    }

    /// Calls `use` with each reference of a type that is not settled.
    template <typename Use> void forEachReference(unsigned int typeId, Use use) const {
        for (const Reference* next = &references[nodes[typeId].firstReference];; ++next) {
            use(*next);
            if (next->isLast)
                return;
        }
    }
};

} // namespace TypeFile
