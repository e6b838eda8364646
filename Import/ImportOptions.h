#pragma once

#include <string>
#include <vector>

namespace Import {

/// How inputs are imported.
struct ImportOptions {
    /// Import only the declarations of these packages, and what they need. Empty: import
    /// everything.
    std::vector<std::string> packages;

    /// Keep the names that the front end has made up for types without a name, with a typedef for
    /// each. Verilator makes up such names; GHDL does not.
    bool keepAnonymous = false;
};

} // namespace Import
