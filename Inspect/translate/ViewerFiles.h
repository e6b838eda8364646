#pragma once

#include "Inspect/model/TypeTable.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// Takes one of the files that a translation consists of: its name, without a directory, and its
/// text. Names differ, also where upper and lower case are the same.
using FileSink = std::function<void(const std::string& name, const std::string& text)>;

// The enumerations of a file for waveform viewers: SystemVerilog's with the bits of each literal,
// VHDL's with positions, except bit and std_logic. Loads all types.

/// A translate filter file for GTKWave for each enumeration: a line `VALUE NAME` for each literal
/// in binary and in hexadecimal. The two have different numbers of digits, except at one bit, where
/// they are the same. A literal with X is there in binary alone: GTKWave has one hexadecimal digit
/// for all that is unknown in four bits.
void writeGtkwaveFilters(const TypeTable& types, const FileSink& sink);

/// A type whose values a filter process takes apart.
struct FilterType {
    std::string name;     ///< As the files call it, without control characters.
    std::string argument; ///< What leads to it in the table: its name, or else its id.
    std::string file;     ///< A name for a file, without a suffix.
};

/// The enumerations, packed structs and unions of a file, and the named arrays of these. Loads all
/// types.
std::vector<FilterType> filterTypes(const TypeTable& types);

/// A mapping file for Surfer for each enumeration.
void writeSurferMappings(const TypeTable& types, const FileSink& sink);

} // namespace Inspect
