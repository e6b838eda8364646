#pragma once

#include "Inspect/json/TypeJsonWriter.h"
#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TextStyle.h"

#include <ostream>

namespace Inspect {

// Who refers to a type. All types of the table are asked for; where a type refers to an id that the
// table does not have, nobody is told.

/// Writes a line for each reference to the type, in the order of the ids.
void writeUses(std::ostream& out, const TypeTable& types, unsigned int id, const TextStyle& style);

/// The same as a list of JSON objects.
void writeUsesJson(std::ostream& out, const TypeTable& types, unsigned int id, JsonForm form);

/// Writes a line for each other type that leads to this one, nearest first, with the number of
/// references on the shortest way and the way itself. Of a way of more than 8 references the text
/// has the first 8; in JSON each object names the next type on its way alone. Takes memory for
/// every reference of the table.
void writeAllUses(std::ostream& out, const TypeTable& types, unsigned int id,
                  const TextStyle& style);

/// The same as a list of JSON objects.
void writeAllUsesJson(std::ostream& out, const TypeTable& types, unsigned int id, JsonForm form);

} // namespace Inspect
