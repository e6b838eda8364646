#pragma once

#include "Inspect/model/TypeTable.h"

#include <string>

namespace Inspect {

/// The kind of the type of an id; "no type" where the id builds none.
std::string kindWords(const TypeTable& types, unsigned int id);

/// A type in words: kind and name, or its shape where it has no name. An id that says "no
/// type" gives "none". Printable ASCII.
std::string typeWords(const TypeTable& types, unsigned int id);

} // namespace Inspect
