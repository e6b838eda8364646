#pragma once

#include "RTTI/RTType.h"

namespace Inspect {

/// A language that types are declared in.
enum class SourceLanguage { VHDL, SYSTEM_VERILOG };

/// The language that a type belongs to. Most kinds occur in only one language; typedefs, and kinds
/// that both languages have, follow the types that they are made of. An integer belongs to VHDL
/// unless it has the name of a SystemVerilog type (SystemVerilog integers are packed arrays); a
/// real belongs to VHDL if its flavour is 0. Types that lead nowhere, or in a circle, count as
/// VHDL. Takes time proportional to the length of the chain of typedefs.
SourceLanguage languageOf(const RTTI::RTBaseType& type);

/// The name of a language, as in its standard.
const char* nameOf(SourceLanguage language);

} // namespace Inspect
