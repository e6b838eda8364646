#pragma once

#include "Inspect/model/TypeTable.h"

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

/// The elements of a type that has a width.
PackedElement packedElementOf(const TypeTable& types, unsigned int id,
                              const RTTI::RTBaseType& type);

} // namespace Inspect
