#pragma once

#include <cmath>
#include <limits>
#include <optional>

namespace RTTI {

/// The direction of a real type without its fraction, as a loader takes it. Nothing for NaN and for
/// what no 32-bit number holds.
inline std::optional<int> truncatedDirection(double direction) {
    const double truncated = std::trunc(direction);
    if (truncated >= std::numeric_limits<int>::min() &&
        truncated <= std::numeric_limits<int>::max())
        return static_cast<int>(truncated);
    return std::nullopt;
}

} // namespace RTTI
