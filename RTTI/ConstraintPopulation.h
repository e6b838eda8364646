#pragma once

#include "RTTI/Export.h"
#include "RTTI/RTBaseType.h"

#include <cstddef>
#include <vector>

namespace RTTI {

/// The flattened ranges of a type, as far as a bounded walk got.
struct PopulatedConstraints {
    std::vector<FullConstraints> ranges; ///< In the order of the walk.
    bool isComplete = true;              ///< False if the walk ended before all ranges were found.
};

/// The result of `type.populateTypeConstraints` with an empty stack, cut off after `maxSteps`
/// steps. A step is a range produced, or a visit to a struct or class that produced some. A short
/// file can hold a type with 2^40 ranges: use this function for the types of a file that you do not
/// know. The walk also ends, incomplete, when it has looked at 2^20 members, and 32 more for each
/// step allowed; one that leads to a struct or class that it has seen to give nothing, or that is
/// around itself, counts as 16. Takes time proportional to the steps and these members; throws only
/// std::bad_alloc.
RTTI_EXPORT PopulatedConstraints populateTypeConstraints(const RTBaseType& type,
                                                         std::size_t maxSteps);

} // namespace RTTI
