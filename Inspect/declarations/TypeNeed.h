#pragma once

namespace Inspect {

/// A type that a declaration names.
struct TypeNeed {
    unsigned int typeId; ///< Its id in the same file.
    bool isForward;      ///< Whether announcing the type is enough.
};

} // namespace Inspect
