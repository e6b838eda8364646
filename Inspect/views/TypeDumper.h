#pragma once

#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TextStyle.h"
#include "Inspect/words/TypeText.h"

#include <ostream>

namespace Inspect {

/// Writes the first line of a type: id, kind and name. `types` is needed to describe a type without
/// a name by its parts.
void dumpHeading(std::ostream& out, unsigned int id, const RTTI::RTBaseType& type,
                 const TypeTable& types, const TextStyle& style = TextStyle::plain());

/// Writes a type as one block of lines: id, kind, name, its declaration in its own language, every
/// field and its answers to queries, with other types shown by id and name, and an empty line at
/// the end. `types` gives the types that fields refer to by id, and the encoding: the one that the
/// type answers when it is asked before all others. Of a long list of ranges that is wanted whole,
/// each run of equal ranges has a line. If the walk that flattens the ranges stops, after as many
/// steps as `mostWalkSteps` says, the text says so.
void dumpType(std::ostream& out, unsigned int id, const RTTI::RTBaseType& type,
              const TypeTable& types, const TextStyle& style = TextStyle::plain(),
              RangeLists lists = RangeLists::SHORT);

} // namespace Inspect
