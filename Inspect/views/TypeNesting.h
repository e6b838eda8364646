#pragma once

#include "Inspect/views/TypeOutlines.h"

#include <vector>

namespace Inspect {

/// The longest chain of types in which each holds the next by value, outermost first: as data
/// type of a typedef, as base type of an enumeration, as element of an array of fixed shape, as
/// member or as base class. What is held elsewhere is the end of a chain: a class that is a member
/// or an element, an access or file type, a dynamic array, a queue or an associative array. Of
/// chains as long the first, by the ids and by the order of members. Where a type of an unsound
/// file holds itself by value, the chain ends before it comes again.
///
/// Takes the time of a pass over the types and their references.
std::vector<unsigned int> deepestNesting(const TypeOutlines& types);

} // namespace Inspect
