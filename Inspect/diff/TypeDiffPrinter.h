#pragma once

#include "Inspect/diff/TypeDiff.h"
#include "Inspect/words/TextStyle.h"
#include "Inspect/words/TypeText.h"

#include <ostream>

namespace Inspect {

/// Writes one line for each type that was removed, each change of a type and each type that was
/// added, then the verdict with its rule, and the number of types of each sort. `lists` says how
/// long lists of ranges are written in the changes.
void printDiffText(std::ostream& out, const TypeDiff& diff, const TextStyle& style,
                   RangeLists lists = RangeLists::SHORT);

/// Writes one JSON object with the verdict, the same lists (one entry on each line) and the counts.
/// Lists of ranges are complete.
void printDiffJson(std::ostream& out, const TypeDiff& diff);

} // namespace Inspect
