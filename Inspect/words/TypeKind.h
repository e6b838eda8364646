#pragma once

#include "RTTI/RTType.h"

#include <string_view>
#include <vector>

namespace Inspect {

/// The kind of a type in the words of the language standards, such as "packed struct" or "queue".
std::string_view kindOf(const RTTI::RTBaseType& type);

/// The same from the fields of a record. `detail` is the array kind of an array, the record kind of
/// a record, and of no meaning elsewhere.
std::string_view kindOf(unsigned int kindCode, unsigned int detail);

/// `kindOf` for a kind code that is taken and builds no type.
inline constexpr std::string_view BUILDS_NO_TYPE = "builds no type";

/// What a kind code says by itself, such as "fixed array" or "record, struct or union".
std::string_view kindOf(unsigned int kindCode);

/// Every answer that `kindOf` can give.
std::vector<std::string_view> allKinds();

/// Whether `pattern` asks for `kind`: all of its words or the last of them ("struct" for "packed
/// struct"). Case, '-' and '_' for spaces, and a last word "type" make no difference; "enum" is
/// short for "enumeration".
bool matchesKind(std::string_view kind, std::string_view pattern);

} // namespace Inspect
