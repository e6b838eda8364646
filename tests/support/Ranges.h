#pragma once

#include "RTTI/RTType.h"

#include <vector>

namespace RTTITest {

using Ranges = std::vector<RTTI::FullConstraints>;

/// A range that stands open until an enclosing level gives its bounds.
inline constexpr RTTI::FullConstraints OPEN{0, 0, -2};

/// The full range of a 32-bit index.
inline constexpr RTTI::FullConstraints FULL_RANGE{-2147483647 - 1, 2147483647, 1};

} // namespace RTTITest

/// Ranges as plain numbers, which compare and print.
inline std::vector<std::vector<int>> numbersOf(const std::vector<RTTI::FullConstraints>& ranges) {
    std::vector<std::vector<int>> numbers;
    for (const RTTI::FullConstraints& range : ranges)
        numbers.push_back({range.si, range.ei, range.dir});
    return numbers;
}
