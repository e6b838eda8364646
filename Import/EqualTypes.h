#pragma once

#include "Import/References.h"
#include "RTTI/RTType.h"

#include <memory>
#include <vector>

namespace Import {

/// For each type the first one that it equals: all fields are the same, and those that hold ids
/// refer to equal types, also around cycles. `references` says to which types they refer, by their
/// places in `types`; the ids in the types themselves do not matter and stay as they are. Takes
/// O(m log n) for m references of n types, and no recursion. Throws TypeFile::WriteError for some
/// of what no record can hold.
std::vector<unsigned int>
firstEqualTypes(const std::vector<std::unique_ptr<RTTI::RTBaseType>>& types,
                const References& references);

} // namespace Import
