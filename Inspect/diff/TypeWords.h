#pragma once

#include "Inspect/model/TypeTable.h"

#include <string>

namespace Inspect {

/// A name that somebody gave: others are empty, or in angle brackets as "<anonymous>" is.
bool isGivenName(const char* name);

/// The kind of the type of an id; "no type" where the id builds none.
std::string kindWords(const TypeTable& types, unsigned int id);

/// A type in words: kind and name, or what it is made of where it has no name. An id that says "no
/// type" gives "none". Printable ASCII.
std::string typeWords(const TypeTable& types, unsigned int id);

} // namespace Inspect
