#pragma once

#include "OVAT/IBlockManager.h"
#include "TypeFile/Finding.h"

#include <cstddef>
#include <vector>

namespace TypeFile {

/// What a type file may ask for. The defaults take every file of a real design that we know of.
struct VerifyLimits {
    /// Findings kept, of all those that a broken file can give; one more says how many there were.
    /// Nobody reads more, and memory must not grow with the number of faults.
    std::size_t maxFindings = 1000;

    /// Bytes of all records, each counted once a type id: the objects of a load take a small
    /// multiple. Records that many ids share could ask for much more than the file is long.
    unsigned long long maxRecordBytes = 1ULL << 32;

    /// Steps of one constraint walk: ranges given, and visits of structs and classes that gave
    /// some, as `RTTI::populateTypeConstraints` counts them. Structs that hold two of the next
    /// double the walk at each level, so that a short file can ask for 2^40 ranges. This many steps
    /// take seconds; the largest walk of a real file takes some 100,000.
    unsigned int maxWalkSteps = 1U << 28;

    /// Steps that the verifier itself may take, for the whole file, to count the walks through
    /// classes that refer to one another, where it cannot tell more cheaply that they are within
    /// the limit. Their number depends on every path between the classes, so that there is no
    /// counting it faster; this many take less than a second.
    unsigned long long maxCountingSteps = 1ULL << 26;
};

/// Checks the type file whose header lies at `baseOffset` of a storage of `storageSize` bytes.
///
/// Of a file without an error every type loads, and every query on every type ends and is safe; a
/// warning tells of those types whose constraint walk takes more steps than the limit. The findings
/// are ordered: those of the file, then by type id, then by offset. A record that is not read whole
/// gives one error, and what depends on its fields is not looked at.
///
/// Takes time linear in the file, besides the sorting of record addresses where they do not ascend
/// and `maxCountingSteps`. Takes up to 100 bytes of memory a type, and 8 for each reference of a
/// type that stands before what it refers to: never more than the file itself. No contents make it
/// throw; what the storage throws inside its stated size passes through, and so does
/// std::bad_alloc.
std::vector<Finding> verify(OVAT::IBlockManager& storage, unsigned long long storageSize,
                            unsigned long long baseOffset, const VerifyLimits& limits = {});

/// Whether one of the findings is an error.
bool hasErrors(const std::vector<Finding>& findings);

} // namespace TypeFile
