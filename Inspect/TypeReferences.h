#pragma once

#include "RTTI/RTType.h"

#include <vector>

namespace Inspect {

/// The ids of the types that a type's own fields refer to, each once, in the order of the fields;
/// ids that say "no type" are left out.
std::vector<unsigned int> referencesOf(const RTTI::RTBaseType& type);

} // namespace Inspect
