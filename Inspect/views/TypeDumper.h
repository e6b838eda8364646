#pragma once

#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TextStyle.h"

#include <ostream>

namespace Inspect {

/// How much a dump shows of long lists of ranges.
enum class RangeLists {
    SHORT, ///< A line each: equal neighbours counted, the first few, and how many there are.
    WHOLE  ///< All, equal neighbours in a line.
};

/// Writes a type's first line: id, kind and name. `types` gives the types that one without a name
/// is made of.
void dumpHeading(std::ostream& out, unsigned int id, const RTTI::RTBaseType& type,
                 const TypeTable& types, const TextStyle& style = TextStyle::plain());

/// Writes a type as one block of lines: id, kind, name, its declaration in its own language, every
/// field and what the type answers to its queries, with other types shown as id and name, and an
/// empty line at the end. `types` gives the types that a field holds by id, and the encoding: the
/// one that the type answers when it is asked before all others. The walk for the flattened ranges
/// ends after a million steps, or ten million where lists are wanted whole, and the text says where
/// it did.
void dumpType(std::ostream& out, unsigned int id, const RTTI::RTBaseType& type,
              const TypeTable& types, const TextStyle& style = TextStyle::plain(),
              RangeLists lists = RangeLists::SHORT);

} // namespace Inspect
