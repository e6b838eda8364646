#pragma once

#include "Import/Notes.h"
#include "Import/TypeTable.h"
#include "Import/VhdlTypes.h"

namespace Import {

/// Adds the types that are declared, and what they need, to `table` as records: scalar subtypes and
/// those of arrays and records as typedefs, subtypes of reals as reals. What a record cannot hold,
/// or the input does not say, is noted. Takes time by the size of the types.
void addVhdlRecords(VhdlTypes types, TypeTable& table, Notes& notes);

} // namespace Import
