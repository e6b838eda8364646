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
/// know. The walk also ends, incomplete, when it has passed by 65,536 structs and classes and 16
/// more for each step allowed: parts that it has seen to give nothing, or that are around
/// themselves. Takes time proportional to the steps and the types passed; throws only
/// std::bad_alloc.
RTTI_EXPORT PopulatedConstraints populateTypeConstraints(const RTBaseType& type,
                                                         std::size_t maxSteps);

} // namespace RTTI
