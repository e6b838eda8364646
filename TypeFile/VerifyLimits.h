#pragma once

#include <cstddef>

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

} // namespace TypeFile
