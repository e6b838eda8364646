#pragma once

#include "fuzz/LoadedTypes.h"

namespace Fuzz {

/// Asks each type whatever it answers; its ranges only if their walk is short. Returns the number
/// of ids that have no type.
unsigned int askEverything(const LoadedTypes& types);

} // namespace Fuzz
