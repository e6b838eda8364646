#pragma once

#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TextStyle.h"

#include <ostream>

namespace Inspect {

/// Writes a type's first line: id, kind and name.
void dumpHeading(std::ostream& out, unsigned int id, const RTTI::RTBaseType& type,
                 const TextStyle& style = TextStyle::plain());

/// Writes a type as one block of lines: id, kind, name, its declaration in its own language, every
/// field and what the type answers to its queries, with other types shown as id and name, and an
/// empty line at the end. `types` gives the types that a field holds by id, and the encoding: the one
/// that the type answers when it is asked before all others.
void dumpType(std::ostream& out, unsigned int id, const RTTI::RTBaseType& type,
              const TypeTable& types, const TextStyle& style = TextStyle::plain());

} // namespace Inspect
