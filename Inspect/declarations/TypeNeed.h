#pragma once

#include <vector>

namespace Inspect {

/// A type that a declaration names.
struct TypeNeed {
    unsigned int typeId; ///< Its id in the same file.
    bool isForward;      ///< Whether announcing the type is enough.
};

/// What a declaration is made of.
struct TypeNeeds {
    std::vector<TypeNeed> named;      ///< Types of the same file that it calls by their names.
    std::vector<unsigned int> inside; ///< Arrays that it writes out; none in VHDL.
};

} // namespace Inspect
