#pragma once

#include "Inspect/model/TypeTable.h"

#include <functional>
#include <string>
#include <vector>

/// The id of a type that a call names by id or name; `what` is the argument that does. `find` gives
/// the types of the name, of which a typedef and the type of the same name that it stands for are
/// one: the typedef. Throws CLI::ValidationError for a type that the file does not have, and for a
/// name of several, with their ids.
unsigned int typeIdOf(const std::string& what, const std::string& type,
                      const Inspect::TypeTable& types,
                      const std::function<std::vector<unsigned int>()>& find);
