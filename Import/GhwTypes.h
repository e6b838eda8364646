#pragma once

#include "Import/GhwFile.h"
#include "Import/VhdlTypes.h"

namespace Import {

/// Adds the types of a GHW file to `types`, and declares them. The file's first subtypes and the
/// types behind them become one. `input` is where the file came from: its places are in what is
/// thrown and noted. Throws ImportError where types do not fit together. Takes time by the size of
/// the types.
void addGhwTypes(GhwFile file, const Input& input, VhdlTypes& types);

} // namespace Import
