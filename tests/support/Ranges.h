#pragma once

#include "RTTI/RTType.h"

#include <vector>

/// Ranges as plain numbers, which compare and print.
inline std::vector<std::vector<int>> numbersOf(const std::vector<RTTI::FullConstraints>& ranges) {
    std::vector<std::vector<int>> numbers;
    for (const RTTI::FullConstraints& range : ranges)
        numbers.push_back({range.si, range.ei, range.dir});
    return numbers;
}
