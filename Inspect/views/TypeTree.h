#pragma once

#include "Inspect/json/TypeJsonWriter.h"
#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TextStyle.h"

#include <limits>
#include <ostream>

namespace Inspect {

/// What a tree is drawn of.
struct TreeRequest {
    unsigned int id = 0; ///< Of the outermost type.

    /// The types that may lie above one that is shown.
    unsigned int depth = std::numeric_limits<unsigned int>::max();
};

// A tree shows what a type is made of: a line a part, those of a type below it, each with the
// ranges of its dimensions as `populateTypeConstraints` gives them for the outermost type, in its
// order. That walk does not go below dynamic arrays, queues and associative arrays: the ranges
// there are those that the element type has by itself. A class that is on the way to itself, and a
// struct that is without a class in between, is "seen above" and has no parts there. Types behind
// access and file types are no parts.
//
// A part is written as it is met, so that memory grows with the depth alone: a tree can be far
// larger than the file.

/// Draws the tree with lines of ASCII. From the 40th level on a number tells the depth instead.
void writeTree(std::ostream& out, const TypeTable& types, const TreeRequest& request,
               const TextStyle& style);

/// Writes the tree as a list of parts, each with its depth and its role.
void writeTreeJson(std::ostream& out, const TypeTable& types, const TreeRequest& request,
                   JsonForm form);

} // namespace Inspect
