#pragma once

#include "TypeFile/VerifyLimits.h"

namespace Fuzz {

/// The longest walk through ranges, and the largest tree, that an input is tried with.
constexpr unsigned int MOST_STEPS = 1U << 12;

/// Limits under which no small input takes longer than a few milliseconds.
inline TypeFile::VerifyLimits quickLimits() {
    TypeFile::VerifyLimits limits;
    limits.maxWalkSteps = MOST_STEPS;
    limits.maxCountingSteps = 1U << 14;
    return limits;
}

} // namespace Fuzz
