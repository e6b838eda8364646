#pragma once

#include "OVAT/IBlockManager.h"
#include "TypeFile/Finding.h"
#include "TypeFile/VerifyLimits.h"

#include <vector>

namespace TypeFile {

/// Checks the type file whose header is at `baseOffset` in a storage of `storageSize` bytes.
///
/// If a file has no errors, every type loads, and every query on every type ends and is safe; a
/// warning names each type whose constraint walk takes more steps than the limit. The findings are
/// ordered: first those of the whole file, then by type id, then by offset. A record that cannot be
/// read completely gives one error, and whatever depends on its fields is not examined.
///
/// Takes time linear in the size of the file, plus `maxCountingSteps`, plus the time to sort the
/// record addresses if they are not ascending. Takes up to 100 bytes of memory for each type, and 8
/// for each reference of a type that comes before what it refers to: never more than the file
/// itself. No contents make it throw; exceptions of the storage within its stated size pass
/// through, and so does std::bad_alloc.
std::vector<Finding> verify(OVAT::IBlockManager& storage, unsigned long long storageSize,
                            unsigned long long baseOffset, const VerifyLimits& limits = {});

/// Whether any of the findings is an error.
bool hasErrors(const std::vector<Finding>& findings);

} // namespace TypeFile
