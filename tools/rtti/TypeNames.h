#pragma once

#include "Inspect/model/TypeTable.h"

#include <functional>
#include <string>

/// The id of a type that a call names by id or name, in a file of `typeCount` types; `what` is the
/// argument that does. A name takes a look at all types, which `loadedTypes` gives. A typedef and
/// the type of the same name that it stands for are one type here: the typedef. Throws
/// CLI::ValidationError for a type that the file does not have, and for a name of several, with
/// their ids.
unsigned int typeIdOf(const std::string& what, const std::string& type, unsigned int typeCount,
                      const std::function<Inspect::TypeTable()>& loadedTypes);
