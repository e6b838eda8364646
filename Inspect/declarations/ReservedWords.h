#pragma once

#include "Inspect/declarations/SourceLanguage.h"

#include <string_view>

namespace Inspect {

/// Whether a word is reserved by a language, in VHDL in any case.
bool isReservedWord(SourceLanguage language, std::string_view word);

} // namespace Inspect
