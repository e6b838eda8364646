#pragma once

#include "RTTI/TypeFileFormat.h"

#include <vector>

namespace TypeFile {

/// What is kept of a record once its bytes are verified. Offsets are relative to its address.
struct TypeFacts {
    unsigned long long address = 0;
    unsigned int kind = 0;   ///< 0 where no record can be read.
    unsigned int bodyAt = 0; ///< Of the first field that belongs to the kind.
    unsigned int reference = RTTI::TypeFileFormat::NO_TYPE_ID; ///< Base type, element and so on.
    unsigned int second = 0;      ///< Associative array: index type id. Array: dimension count.
    unsigned int listAt = 0;      ///< Of the first constraint, or of an aggregate's first member.
    unsigned int listCount = 0;   ///< Constraints, or members.
    unsigned int referenceAt = 0; ///< Of the field that holds `reference`.
    bool isWhole = false;         ///< Every field was there; else the fields above say nothing.
};

using TypeTable = std::vector<TypeFacts>;

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

} // namespace TypeFile
