#pragma once

#include "Inspect/model/TypeTable.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Inspect {

/// What a packed type consists of behind its typedefs and arrays. Of scalars, and of enumerations
/// that are too wide to be translated, all bits of the array are one vector.
struct PackedElement {
    enum class Kind { VECTOR, ENUMERATION, STRUCT, UNION };
    Kind kind = Kind::VECTOR;               ///< Of all bits of an array of scalars.
    const RTTI::RTBaseType* type = nullptr; ///< The enumeration, struct or union.
    unsigned int typeId = RTTI::TypeFileFormat::NO_TYPE_ID;
    std::uint64_t width = 0;                       ///< Of one element.
    std::vector<RTTI::FullConstraints> dimensions; ///< Outermost first; none for a VECTOR.
};

/// A member of a packed struct or union, with its bits in there.
struct PackedMember {
    std::size_t index; ///< In the list of all members.
    const char* name;
    unsigned int typeId;
    const RTTI::RTBaseType* type;
    std::uint64_t offset; ///< Of the least significant bit.
    std::uint64_t width;
};

/// The members of a packed struct or union that have a width. Those of a tagged union without a
/// value have none.
std::vector<PackedMember> packedMembersOf(const TypeTable& types, const RTTI::RTRecordType& record);

/// The elements of a type that has a width.
PackedElement packedElementOf(const TypeTable& types, unsigned int id,
                              const RTTI::RTBaseType& type);

} // namespace Inspect
