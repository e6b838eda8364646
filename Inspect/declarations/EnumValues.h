#pragma once

#include "RTTI/RTType.h"

#include <optional>
#include <string>

namespace Inspect {

/// The bits of a packed type: those of its dimensions and of what they hold. None for types that
/// are not packed, that are too deep to count, or that have more bits than a number of 32 bits.
std::optional<unsigned int> packedWidth(const RTTI::RTBaseType* type);

/// A literal's value as a sized SystemVerilog number of `width` bits: hexadecimal, or binary where
/// it has bits X or Z. The bytes are little-endian; of a 4-state type the first half holds the
/// bits' values, the second which of them are unknown: there a value of 0 is Z and 1 is X.
std::string enumValue(const char* bytes, unsigned int size, unsigned int width, bool isFourState);

} // namespace Inspect
