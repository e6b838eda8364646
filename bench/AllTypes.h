#pragma once

#include "RTTI/RTTypeManager.h"

#include <vector>

namespace Bench {

/// Types by id.
using TypeList = std::vector<const RTTI::RTBaseType*>;

/// Every type of a table whose records all build something; those not yet read are read now.
inline TypeList allTypes(RTTI::RTTypeManager& manager) {
    TypeList types;
    while (const RTTI::RTBaseType* type =
               manager.getRTType(static_cast<unsigned int>(types.size())))
        types.push_back(type);
    return types;
}

} // namespace Bench
