#pragma once

#include "Inspect/declarations/SourceLanguage.h"

#include <string_view>

namespace Inspect {

/// Whether a word is reserved by a language; VHDL's words are asked for in lower case.
bool isReservedWord(SourceLanguage language, std::string_view word);

} // namespace Inspect
