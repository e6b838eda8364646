#pragma once

#include "Inspect/diff/TypeGraph.h"

#include <vector>

namespace Inspect {

/// The class of each node in question. Two nodes are in one class if their names and contents are
/// equal and their references, one by one, lead to nodes of one class, to no type or nowhere; where
/// they lead in cycles, if nothing on any way tells the two apart. Ids make no difference. Classes
/// are numbered from 0 on. Takes about as long as sorting the references; no recursion.
std::vector<unsigned int> equalityClasses(const TypeGraph& graph);

} // namespace Inspect
