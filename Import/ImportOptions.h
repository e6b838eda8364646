#pragma once

#include <string>
#include <vector>

namespace Import {

/// What becomes of the inputs of an import.
struct ImportOptions {
    /// The packages whose declarations are imported, with what these need; all if there are none.
    std::vector<std::string> packages;

    /// A type without a name keeps the one that the front end made up for it.
    bool keepAnonymous = false;
};

} // namespace Import
