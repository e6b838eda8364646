#pragma once

#include "Inspect/model/TypeTable.h"

#include <ostream>

namespace Inspect {

/// Writes a Python module, for Python 3.8 and later, that needs nothing else: an IntEnum for each
/// enumeration, a dataclass for each packed struct and a class for each packed union, within a
/// class for each package. The module says how to use them. It has no literals with X or Z, except
/// in comments. Loads all types.
void writePythonModule(std::ostream& out, const TypeTable& types);

} // namespace Inspect
