#pragma once

#include "Inspect/model/PackedWidths.h"
#include "Inspect/model/TypeEncodings.h"
#include "RTTI/RTType.h"

#include <functional>
#include <memory>

/// Types as text and as JSON, for people and for other programs.
namespace Inspect {

/// Returns the type with an id, or null if there is none.
using TypeLookup = std::function<const RTTI::RTBaseType*(unsigned int)>;

/// The types of one file as the printers see them: by id, from 0 on. The creator of a table decides
/// whether types are loaded in advance or on request; the types must outlive the table.
struct TypeTable {
    unsigned int count = 0; ///< The number of ids, which count from 0.
    TypeLookup typeOf;      ///< Null for an id whose record builds no type.

    /// The encodings of the types, independent of earlier questions. Copies of a table share it.
    std::shared_ptr<TypeEncodings> encodings = std::make_shared<TypeEncodings>();

    /// The widths of packed types. Copies of a table share it.
    std::shared_ptr<PackedWidths> widths = std::make_shared<PackedWidths>();
};

} // namespace Inspect
