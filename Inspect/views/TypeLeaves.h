#pragma once

#include "Inspect/json/TypeJsonWriter.h"
#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TextStyle.h"

#include <ostream>

namespace Inspect {

// The leaves of a type are the values that it is made of. A leaf is a scalar, an enumeration, a
// string, an event, a chandle, a value of an access or file type, or an array of these: all of its
// dimensions belong to it. So does a struct or class without members, and one that is "seen above":
// on the way to itself. An array of structs is part of the path of their members, with its ranges:
// `pkt_t.lanes[0 to 3].data`. Where the dimension has no range there is a word, "dynamic", "queue"
// or "associative". What a class inherits is listed with its own members.
//
// The ranges are those that `populateTypeConstraints` gives; below a dynamic array, a queue and an
// associative array those that the element type has by itself. The encoding is that of the whole
// leaf, within the innermost array of that sort. A leaf is written as it is met, so that memory
// grows with the depth alone.

/// Writes a line a leaf: path, type, encoding, and its ranges; "-" for what there is not. At least
/// two spaces lie between two columns.
void writeLeaves(std::ostream& out, const TypeTable& types, unsigned int id,
                 const TextStyle& style);

/// Writes the leaves as a list of objects.
void writeLeavesJson(std::ostream& out, const TypeTable& types, unsigned int id, JsonForm form);

} // namespace Inspect
