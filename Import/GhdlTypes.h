#pragma once

#include "Import/GhdlListing.h"
#include "Import/VhdlTypes.h"

namespace Import {

/// Adds the types of a listing to `types`, and declares them. The listing names types without the
/// package: a name means the last declaration that is in sight, or any of those in packages.
/// `input` is where the listing came from. Takes time by the size of the declarations.
void addGhdlTypes(const GhdlListing& listing, const Input& input, VhdlTypes& types);

} // namespace Import
