#pragma once

#include "Inspect/words/Text.h"

#include <cstdint>
#include <string>

namespace Inspect {

// The bytes of a literal's value are little-endian; of a 4-state type the first half holds the
// bits' values, the second which of them are unknown: there a value of 0 is Z and 1 is X.

/// A literal's value as the digits 0, 1, x and z, the most significant first. At most `width`; what
/// the bytes do not reach is 0 and not written.
std::string enumBits(const char* bytes, unsigned int size, std::uint64_t width, bool isFourState);

/// Writes the value as a sized SystemVerilog number of `width` bits: hexadecimal, or binary where
/// it has bits X or Z.
void writeEnumValue(Text& out, const char* bytes, unsigned int size, std::uint64_t width,
                    bool isFourState);

} // namespace Inspect
