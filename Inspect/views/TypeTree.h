#pragma once

#include "Inspect/json/TypeJsonWriter.h"
#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TextStyle.h"
#include "Inspect/words/TypeText.h"

#include <limits>
#include <ostream>

namespace Inspect {

/// Which part of a tree is drawn.
struct TreeRequest {
    unsigned int id = 0; ///< The id of the outermost type.

    /// The largest number of types above one that is shown.
    unsigned int depth = std::numeric_limits<unsigned int>::max();

    /// The largest number of parts that the walk visits, including those that lie too deep. The
    /// largest tree of the example designs has fewer; a short file can hold one of 2^40.
    unsigned int limit = 10'000'000;

    RangeLists lists = RangeLists::SHORT; ///< How the text shows long lists of ranges.
};

// A tree shows what a type is made of, with one line for each part and the parts of a type below
// it. Each part has the ranges of its dimensions as `populateTypeConstraints` gives them for the
// outermost type. That walk does not go below dynamic arrays, queues and associative arrays: the
// ranges there are those that the element type has on its own. A class that contains itself, and a
// struct that does so without a class in between, is "seen above" where it recurs, without parts.
// The types behind access and file types are not parts.
//
// Each part is written as soon as it is found, so memory use grows only with the depth: a tree can
// be far larger than the file.

/// Draws the tree with ASCII lines. From the 40th level on, a number gives the depth instead. A
/// tree that goes on beyond the limit ends with a line that says so; the result is then false.
bool writeTree(std::ostream& out, const TypeTable& types, const TreeRequest& request,
               const TextStyle& style);

/// Writes the tree as a list of parts, each with its depth, its role and all its ranges. False if
/// the limit cut it.
bool writeTreeJson(std::ostream& out, const TypeTable& types, const TreeRequest& request,
                   JsonForm form);

} // namespace Inspect
