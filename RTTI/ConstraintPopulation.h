#pragma once

#include "RTTI/Export.h"
#include "RTTI/RTBaseType.h"

#include <cstddef>
#include <vector>

namespace RTTI {

/// The flattened ranges of a type, as far as a bounded walk came.
struct PopulatedConstraints {
    std::vector<FullConstraints> ranges; ///< In the order of the walk.
    bool isComplete = true; ///< False where the walk would have taken more steps than allowed.
};

/// What `type.populateTypeConstraints` gives with a fresh stack, unless it takes more than
/// `maxSteps` steps: then its beginning. A step is a range given, or a visit of a struct or class
/// that gave some. A short file can hold a type of 2^40 ranges; programs that ask types of files
/// that they do not know ask in this way. Grows with the steps and the types passed; throws
/// std::bad_alloc alone.
RTTI_EXPORT PopulatedConstraints populateTypeConstraints(const RTBaseType& type,
                                                         std::size_t maxSteps);

} // namespace RTTI
