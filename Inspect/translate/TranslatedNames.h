#pragma once

#include "Inspect/model/TypeTable.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// The name of each type by id: its own, or else that of the first typedef of it, or else "type_"
/// with its id. Loads all types. Names may be equal.
std::vector<std::string> translatedNames(const TypeTable& types);

/// Gives each thing a name that no other has.
class UniqueNames {
public:
    /// `name`, or with `_` and the id behind it if it is taken. Upper and lower case are the same.
    std::string take(const std::string& name, unsigned int id);

private:
    std::set<std::string> m_taken; ///< In lower case.
};

/// A name for a file from one for a type: letters, digits, `_`, `-` and single dots between them;
/// `::` becomes a dot and everything else `_`. At most 200 characters.
std::string fileNameOf(std::string_view name);

} // namespace Inspect
