#pragma once

#include <cstdint>
#include <string>

namespace Inspect {

/// A literal's value as a sized SystemVerilog number of `width` bits: hexadecimal, or binary where
/// it has bits X or Z. The bytes are little-endian; of a 4-state type the first half holds the
/// bits' values, the second which of them are unknown: there a value of 0 is Z and 1 is X.
std::string enumValue(const char* bytes, unsigned int size, std::uint64_t width, bool isFourState);

} // namespace Inspect
