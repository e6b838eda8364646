#pragma once

#include "Inspect/json/TypeJsonWriter.h"
#include "Inspect/model/TypeTable.h"
#include "Inspect/views/TypeTree.h"
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
// associative array, those that the element type has on its own. The encoding is that of the whole
// leaf, within the innermost array of that sort. Each leaf is written as soon as it is found, so
// memory use grows only with the depth.

/// Which leaves are listed.
struct LeavesRequest {
    unsigned int id = 0; ///< The id of the outermost type.

    /// The largest number of parts that the walk goes to on its way to the leaves; see TreeRequest.
    unsigned int limit = TreeRequest().limit;

    /// How the text shows long lists of dimensions, those in the paths included.
    RangeLists lists = RangeLists::SHORT;
};

/// Writes one line for each leaf: path, type, encoding, bits and ranges, with "-" for anything that
/// does not apply. At least two spaces separate the columns. A list that goes on beyond the limit
/// ends with a line that says so; the result is then false.
bool writeLeaves(std::ostream& out, const TypeTable& types, const LeavesRequest& request,
                 const TextStyle& style);

/// Writes the leaves as a list of objects, with all dimensions. False if the limit cut it.
bool writeLeavesJson(std::ostream& out, const TypeTable& types, const LeavesRequest& request,
                     JsonForm form);

} // namespace Inspect
