#include "Import/VerilatorTree.h"

#include "Import/TreeScanner.h"
#include "Import/TreeTypes.h"

namespace Import {

void readVerilatorTree(Input& input, const ImportOptions& options, TypeTable& types, Notes& notes) {
    const TreeContents contents = TreeScanner(input).scan();
    TreeTypes(contents, options, input, types, notes).add();
}

} // namespace Import
