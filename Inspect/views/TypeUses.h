#pragma once

#include "Inspect/json/TypeJsonWriter.h"
#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TextStyle.h"

#include <ostream>

namespace Inspect {

// The types that refer to a type. All types of the table are examined; references to ids that the
// table does not have are ignored.

/// Writes one line for each reference to the type, in the order of the ids.
void writeUses(std::ostream& out, const TypeTable& types, unsigned int id, const TextStyle& style);

/// The same as a list of JSON objects.
void writeUsesJson(std::ostream& out, const TypeTable& types, unsigned int id, JsonForm form);

/// Writes one line for each other type that leads to this one, nearest first, with its shortest
/// path and the number of references on it. The text shows at most the first 8 references of a
/// path; in JSON each object gives only the next type on its path. Takes memory for every reference
/// of the table.
void writeAllUses(std::ostream& out, const TypeTable& types, unsigned int id,
                  const TextStyle& style);

/// The same as a list of JSON objects.
void writeAllUsesJson(std::ostream& out, const TypeTable& types, unsigned int id, JsonForm form);

} // namespace Inspect
