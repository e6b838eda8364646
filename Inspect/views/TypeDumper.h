#pragma once

#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TextStyle.h"

#include <ostream>

namespace Inspect {

/// How a dump shows long lists of ranges.
enum class RangeLists {
    SHORT, ///< In one line: the first few runs of equal ranges, and the total number.
    WHOLE  ///< Completely, with one line for each run of equal ranges.
};

/// Writes the first line of a type: id, kind and name. `types` is needed to describe a type without
/// a name by its parts.
void dumpHeading(std::ostream& out, unsigned int id, const RTTI::RTBaseType& type,
                 const TypeTable& types, const TextStyle& style = TextStyle::plain());

/// Writes a type as one block of lines: id, kind, name, its declaration in its own language, every
/// field and its answers to queries, with other types shown by id and name, and an empty line at
/// the end. `types` gives the types that fields refer to by id, and the encoding: the one that the
/// type answers when it is asked before all others. The walk that flattens the ranges stops after a
/// million steps, or ten million for WHOLE; if it stops, the text says so.
void dumpType(std::ostream& out, unsigned int id, const RTTI::RTBaseType& type,
              const TypeTable& types, const TextStyle& style = TextStyle::plain(),
              RangeLists lists = RangeLists::SHORT);

} // namespace Inspect
