#pragma once

#include "RTTI/RTTypeManager.h"

namespace Fuzz {

/// Loads every type from 0 up to `typeCount` and asks each whatever it answers. Returns the number
/// of ids that have no type.
unsigned int askEverything(RTTI::RTTypeManager& manager, unsigned int typeCount);

} // namespace Fuzz
