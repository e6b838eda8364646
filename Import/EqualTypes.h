#pragma once

#include "RTTI/RTType.h"

#include <vector>

namespace Import {

/// For each type the first one that it equals: all fields are the same, and those that hold ids
/// refer to equal types, also around cycles. A type's number is its place in `types`; ids are such
/// numbers. The types are as before afterwards. Takes O(m log n) for m references of n types, and
/// no recursion. Throws TypeFile::WriteError for what no record can hold.
std::vector<unsigned int> firstEqualTypes(const std::vector<RTTI::RTBaseType*>& types);

} // namespace Import
