#pragma once

#include "Inspect/model/TypeTable.h"

#include <string_view>

namespace Inspect {

/// Whether a type is one of those that VHDL's package STANDARD declares, by name and by content.
/// Bounds that a record does not carry (the range of a physical type, and of its subtypes) make no
/// difference.
bool isPredefinedInVhdl(const RTTI::RTBaseType& type, const TypeLookup& types);

/// The keyword that a SystemVerilog type has by name and by content, such as "logic", "int" or
/// "void"; empty for others.
std::string_view systemVerilogKeyword(const RTTI::RTBaseType& type);

} // namespace Inspect
