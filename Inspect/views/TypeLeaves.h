#pragma once

#include "Inspect/json/TypeJsonWriter.h"
#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TextStyle.h"

#include <ostream>

namespace Inspect {

// The leaves of a type are the values that it is made of. A leaf is a scalar, an enumeration, a
// string, an event, a chandle, a value of an access or file type, or an array of these with all of
// its dimensions. A struct or class without members is a leaf too, and so is one that contains
// itself, where it recurs ("seen above"). An array of structs is part of the path of their members,
// with its ranges: `pkt_t.lanes[0 to 3].data`. If the dimension has no range there is a word:
// "dynamic", "queue" or "associative". Inherited members are listed with those of the class.
//
// The ranges are those that `populateTypeConstraints` gives; below a dynamic array, a queue or an
// associative array, those of the element type by itself. The encoding is that of the whole leaf,
// within the innermost array of that sort. Each leaf is written as soon as it is found, so memory
// use grows only with the depth.

/// Writes one line for each leaf: path, type, encoding and ranges, with "-" for anything that does
/// not apply. At least two spaces separate the columns.
void writeLeaves(std::ostream& out, const TypeTable& types, unsigned int id,
                 const TextStyle& style);

/// Writes the leaves as a list of objects.
void writeLeavesJson(std::ostream& out, const TypeTable& types, unsigned int id, JsonForm form);

} // namespace Inspect
