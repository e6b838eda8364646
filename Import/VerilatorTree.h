#pragma once

#include "Import/ImportOptions.h"
#include "Import/Input.h"
#include "Import/Notes.h"
#include "Import/TypeTable.h"

namespace Import {

/// Adds the types of a tree that Verilator dumped after it gave every expression its width
/// (V*_width.tree), of any release from 5.006 to 5.048. One pass over the input; memory grows with
/// the types, not with the tree. Throws ImportError for a tree that is damaged or cut short.
void readVerilatorTree(Input& input, const ImportOptions& options, TypeTable& types, Notes& notes);

} // namespace Import
