#pragma once

#include "OVAT/IBlockManager.h"
#include "TypeFile/Finding.h"

#include <cstddef>
#include <vector>

namespace TypeFile {

/// How much a type file may demand. The defaults accept every known file of a real design.
struct VerifyLimits {
    /// The number of findings reported; one more gives the number of those left out. Nobody reads
    /// more, and memory use must not grow with the number of faults.
    std::size_t maxFindings = 1000;

    /// The bytes of all records, each counted once for every type id that has it. The objects of a
    /// load take a small multiple of that. Without a limit, records shared by many ids could demand
    /// far more memory than the file is long.
    unsigned long long maxRecordBytes = 1ULL << 32;

    /// The steps of one constraint walk: ranges produced, and visits to structs and classes that
    /// produced some, as `RTTI::populateTypeConstraints` counts them. Each level of structs that
    /// hold two of the next doubles the walk, so a short file can demand 2^40 ranges. This many
    /// steps take seconds; the largest walk in a real file takes about 100,000.
    unsigned int maxWalkSteps = 1U << 28;

    /// The steps that the verifier itself may take, for the whole file, to count the walks through
    /// classes that refer to one another, if it cannot tell more cheaply that they are within the
    /// limit. The length of such a walk depends on every path between the classes, so it cannot be
    /// counted faster; this many steps take less than a second.
    unsigned long long maxCountingSteps = 1ULL << 26;
};

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
