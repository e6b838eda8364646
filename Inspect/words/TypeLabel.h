#pragma once

#include "Inspect/words/TextStyle.h"
#include "RTTI/RTType.h"

#include <string>

namespace Inspect {

// How the printers that show types beside one another name them. All bytes of names are escaped.

/// Id, kind and name: `12 packed struct "pkt_t"`; without a name id and kind alone. "12 (no type)"
/// where there is none.
std::string labelOf(unsigned int id, const RTTI::RTBaseType* type, const TextStyle& style);

/// A name as it stands in a path: as it is where it has letters, digits and `_`, `$` and `:` alone,
/// else quoted. A null name counts as empty.
std::string pathName(const char* name);

/// The ranges, with commas in between.
std::string rangeList(const std::vector<RTTI::FullConstraints>& ranges);

/// The range of the values of an integer, real, enumeration or physical type: that of the type, or
/// `narrowing` where that is not null. Empty where the type has none, for an enumeration with all
/// of its literals, and for a real that may be any.
std::string valueRangeText(const RTTI::RTBaseType& type, const RTTI::FullConstraints* narrowing);

} // namespace Inspect
