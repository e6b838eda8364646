#pragma once

#include "Inspect/diff/TypeDiff.h"
#include "Inspect/words/TextStyle.h"

#include <ostream>

namespace Inspect {

/// Writes a line for each type that was removed, for each change of a type and for each type that
/// was added, then the verdict with its rule, and how many types there are of each.
void printDiffText(std::ostream& out, const TypeDiff& diff, const TextStyle& style);

/// Writes one JSON object with the verdict, the same lists, one entry a line, and the counts.
void printDiffJson(std::ostream& out, const TypeDiff& diff);

} // namespace Inspect
