#pragma once

#include "Inspect/model/TypeTable.h"

#include <vector>

namespace Inspect {

/// Which types of two files have to be told apart to find what differs between the files.
struct TypesInQuestion {
    /// Whether each id has the same type in both files, SystemVerilog type ids included.
    bool areNone = false;

    /// By node of a TypeGraph. The others equal the type of the same id in the other file, and no
    /// other type that is in question.
    std::vector<bool> nodes;
};

/// Most types of two versions of a design have kept their ids and have not changed, nor has
/// anything that they lead to. They are in question only where one that is has their name or leads
/// to them. Takes a pass over the types and their fields; names and references are gone through
/// again where something differs.
TypesInQuestion typesInQuestion(const TypeTable& a, const TypeTable& b);

} // namespace Inspect
