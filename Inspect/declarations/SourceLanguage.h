#pragma once

#include "RTTI/RTType.h"

namespace Inspect {

/// A language that types are declared in.
enum class SourceLanguage { VHDL, SYSTEM_VERILOG };

/// The language that a type belongs to. Most kinds occur in one language alone; typedefs, and kinds
/// that both languages have, follow what they are made of. An integer is VHDL's, unless its name is
/// one of SystemVerilog's, whose integers are packed arrays; a real is VHDL's where its flavour is
/// 0. Types that lead nowhere, or in a circle, count as VHDL. Costs the length of a chain of
/// typedefs.
SourceLanguage languageOf(const RTTI::RTBaseType& type);

/// A language's name, as its standard has it.
const char* nameOf(SourceLanguage language);

} // namespace Inspect
