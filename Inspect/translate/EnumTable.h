#pragma once

#include "Inspect/model/TypeTable.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Inspect {

/// A literal and its value: one of the digits 0, 1, x and z a bit, the most significant first.
struct EnumEntry {
    std::string name;
    std::string bits;
};

/// An enumeration as viewers and test benches see it.
struct EnumTable {
    std::uint64_t width = 0; ///< In bits; each entry has as many digits.
    std::vector<EnumEntry> entries;
};

/// The widest enumeration that is translated.
inline constexpr std::uint64_t MOST_ENUM_BITS = 65536;

/// The literals of a SystemVerilog enumeration over a packed type, or those of a VHDL enumeration
/// by their positions. None for other types, for VHDL's bit and std_logic, whose digits viewers
/// show as they are, and for more bits than MOST_ENUM_BITS.
std::optional<EnumTable> enumTableOf(const TypeTable& types, const RTTI::RTBaseType& type);

} // namespace Inspect
