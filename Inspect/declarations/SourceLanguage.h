#pragma once

#include "RTTI/RTType.h"

#include <optional>
#include <string_view>

namespace Inspect {

/// A language that types are declared in.
enum class SourceLanguage { VHDL, SYSTEM_VERILOG };

/// The language that a type belongs to. Most kinds occur in only one language; typedefs, and kinds
/// that both languages have, follow the types that they are made of. An integer belongs to VHDL
/// unless it has the name of a SystemVerilog type (SystemVerilog integers are packed arrays); a
/// real belongs to VHDL if its flavour is 0. Types that lead nowhere, or in a circle, count as
/// VHDL. Takes time proportional to the length of the chain of typedefs.
SourceLanguage languageOf(const RTTI::RTBaseType& type);

/// The language of a type as far as its kind tells; none where it is that of the first type that
/// this one refers to. `detail` is the array kind, record kind or kind of an enumeration, or the
/// flavour of a real; of other kinds it does not matter. `name` matters for integers alone.
std::optional<SourceLanguage> languageOfKind(unsigned int kindCode, unsigned int detail,
                                             std::string_view name);

/// What a type is made of is followed through this many types. A loader does not follow longer
/// chains of typedefs either.
inline constexpr int LANGUAGE_CHAIN_LIMIT = 1000;

/// The name of a language, as in its standard.
const char* nameOf(SourceLanguage language);

} // namespace Inspect
