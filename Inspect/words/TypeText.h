#pragma once

#include "RTTI/RTType.h"

#include <string>
#include <string_view>

namespace Inspect {

/// `text` with all bytes but printable ASCII escaped, so that a terminal shows what is there and
/// does nothing else.
std::string escaped(std::string_view text);

/// `text` escaped, quotes and backslashes as well, in double quotes.
std::string quoted(std::string_view text);

/// A type's name, quoted, or "(no name)".
std::string quotedName(const char* name);

/// A range as the languages write it: "7 downto 0", "0 to 15", "open".
std::string rangeText(const RTTI::FullConstraints& range);

/// A value encoding's name, or its number where it has none.
std::string encodingText(RTTI::ValueEncoding encoding);

/// The enumerator's name of a kind, or its number where it has none.
/// @{
std::string arrayKindText(RTTI::ArrayKind kind);
std::string recordKindText(RTTI::RecordKind kind);
std::string enumKindText(RTTI::EnumKind kind);
/// @}

} // namespace Inspect
