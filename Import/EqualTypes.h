#pragma once

#include "Import/References.h"
#include "RTTI/RTType.h"

#include <functional>
#include <string_view>
#include <vector>

namespace Import {

/// The name of a type, by its number.
using NameOf = std::function<std::string_view(unsigned int type)>;

/// A type by its number, valid until the next call.
using ObjectOf = std::function<RTTI::RTBaseType&(unsigned int type)>;

/// For each type the first one that it equals: all fields are the same, and those that hold ids
/// refer to equal types, also around cycles. `references` says to which types they refer; the ids
/// in the types themselves do not matter and stay as they are. Few types are looked at as objects
/// whose name no other one has. Takes O(m log n) for m references of n types, and no
/// recursion. Throws TypeFile::WriteError for some of what no record can hold.
std::vector<unsigned int> firstEqualTypes(const References& references, const NameOf& nameOf,
                                          const ObjectOf& objectOf);

} // namespace Import
