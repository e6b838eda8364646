#pragma once

#include "Inspect/model/TypeEncodings.h"
#include "RTTI/RTType.h"

#include <functional>
#include <memory>

/// Types as text and as JSON, for people and for other programs.
namespace Inspect {

/// Gives the type of an id, or null where there is none.
using TypeLookup = std::function<const RTTI::RTBaseType*(unsigned int)>;

/// The types of one file, as the printers see them: by id, from 0 on. Whoever makes a table decides
/// whether a type is loaded before or when it is asked for; the types must outlive the table.
struct TypeTable {
    unsigned int count = 0; ///< Ids go from 0 up to this.
    TypeLookup typeOf;      ///< Null for an id whose record builds no type.

    /// The encodings of the types, whatever was asked before. Copies of a table share it.
    std::shared_ptr<TypeEncodings> encodings = std::make_shared<TypeEncodings>();
};

} // namespace Inspect
