#pragma once

#include "RTTI/RTBaseType.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace RTTI {

/// A range that a level leaves to the levels around it.
inline constexpr FullConstraints OPEN_RANGE{0, 0, TypeFileFormat::UNCONSTRAINED_DIRECTION};

/// Whether a level leaves the range to the levels around it. Constant time.
constexpr bool isOpen(const FullConstraints& range) {
    return range.dir == TypeFileFormat::UNCONSTRAINED_DIRECTION;
}

/// Whether any of the ranges is left to the levels around. Linear time.
inline bool hasOpenRanges(const std::vector<FullConstraints>& ranges) {
    for (const FullConstraints& range : ranges) {
        if (isOpen(range))
            return true;
    }
    return false;
}

/// Whether a range has bounds of its own: it is neither open nor all of a 32-bit index, which a
/// level around it may narrow. Constant time.
constexpr bool hasBounds(const FullConstraints& range) {
    const bool isWholeIndex = range.si == std::numeric_limits<int>::min() &&
                              range.ei == std::numeric_limits<int>::max() &&
                              range.dir == TypeFileFormat::TO_DIRECTION;
    return !isOpen(range) && !isWholeIndex;
}

/// Whether both have the same bounds and direction. Constant time.
constexpr bool isSame(const FullConstraints& a, const FullConstraints& b) {
    return a.si == b.si && a.ei == b.ei && a.dir == b.dir;
}

/// Where the outermost level repeats the ranges of a level within it, to supply those that are open
/// there: the entry of `outermost` that lies beside the first one of `own`, so that the first range
/// of `own` with bounds lies beside its equal. Null if `own` has no open range or none with bounds,
/// or if `outermost` has no such entries. Linear time.
inline const FullConstraints* alignedRanges(const std::vector<FullConstraints>& own,
                                            const std::vector<FullConstraints>& outermost) {
    if (!hasOpenRanges(own))
        return nullptr;
    const auto anchor = std::find_if(own.begin(), own.end(), hasBounds);
    if (anchor == own.end())
        return nullptr;
    const auto match =
        std::find_if(outermost.begin(), outermost.end(),
                     [&](const FullConstraints& range) { return isSame(range, *anchor); });
    const auto shift = (match - outermost.begin()) - (anchor - own.begin());
    if (match == outermost.end() || shift < 0 ||
        outermost.end() - outermost.begin() - shift < own.end() - own.begin())
        return nullptr;
    return outermost.data() + shift;
}

} // namespace RTTI
