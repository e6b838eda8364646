#pragma once

#include "RTTI/RTType.h"

#include <string_view>
#include <vector>

namespace Inspect {

/// The kind of a type in the words of the language standards, such as "packed struct" or "queue".
std::string_view kindOf(const RTTI::RTBaseType& type);

/// The same from the fields of a record. `detail` is the array kind of an array or the record kind
/// of a record, and is ignored for other kinds.
std::string_view kindOf(unsigned int kindCode, unsigned int detail);

/// The result of `kindOf` for a reserved kind code that builds no type.
inline constexpr std::string_view BUILDS_NO_TYPE = "builds no type";

/// What a kind code means by itself, such as "fixed array" or "record, struct or union".
std::string_view kindOf(unsigned int kindCode);

/// All results that `kindOf` can have.
std::vector<std::string_view> allKinds();

/// Whether `pattern` matches `kind`: all of its words or the last ones ("struct" for "packed
/// struct"). Case does not matter, '-' and '_' count as spaces, a last word "type" is ignored, and
/// "enum" is short for "enumeration".
bool matchesKind(std::string_view kind, std::string_view pattern);

} // namespace Inspect
