#pragma once

#include "Inspect/declarations/SourceLanguage.h"

#include <cstddef>
#include <string_view>

namespace Inspect {

/// The length of the longest reserved word.
inline constexpr std::size_t LONGEST_RESERVED_WORD = 19;

/// Whether a word is reserved by a language; VHDL's words are asked for in lower case.
bool isReservedWord(SourceLanguage language, std::string_view word);

} // namespace Inspect
