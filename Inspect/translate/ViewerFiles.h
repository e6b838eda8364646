#pragma once

#include "Inspect/model/TypeTable.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// Receives one of the files of a translation: its name, without a directory, and its text. Names
/// differ even if case is ignored.
using FileSink = std::function<void(const std::string& name, const std::string& text)>;

// The enumerations of a file for waveform viewers: SystemVerilog's with the bits of each literal,
// VHDL's with positions, except bit and std_logic. Loads all types.

/// A translate filter file for GTKWave for each enumeration: a line `VALUE NAME` for each literal
/// in binary and in hexadecimal. The two have different numbers of digits, except for a single bit,
/// where they are the same. A literal with X is written only in binary: GTKWave has one hexadecimal
/// digit for anything unknown in four bits.
void writeGtkwaveFilters(const TypeTable& types, const FileSink& sink);

/// A type whose values a filter process takes apart.
struct FilterType {
    std::string name;     ///< As the files call it, without control characters.
    std::string argument; ///< How to find it in the table: by its name, or else by its id.
    std::string file;     ///< A name for a file, without a suffix.
};

/// The enumerations, packed structs and unions of a file, and the named arrays of these. Loads all
/// types.
std::vector<FilterType> filterTypes(const TypeTable& types);

/// A mapping file for Surfer for each enumeration.
void writeSurferMappings(const TypeTable& types, const FileSink& sink);

} // namespace Inspect
