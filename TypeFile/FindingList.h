#pragma once

#include "TypeFile/Finding.h"

#include <cstddef>
#include <vector>

namespace TypeFile {

/// Where all findings arise. Keeps so many of them, errors before warnings, and counts the rest.
class FindingList {
public:
    explicit FindingList(std::size_t maxKept) : m_maxKept(maxKept) {}

    /// Whether one more finding with this code would be kept, so that it is worth its words.
    bool hasRoom(FindingCode code) const;

    /// Counts a finding that has no words, since there is no room for it.
    void leaveOut(FindingCode code);

    void add(FindingCode code, unsigned int typeId, std::string field, unsigned long long offset,
             std::string text);

    /// The findings in their order, which leave the list empty. Where some were not kept, the last
    /// one says how many.
    std::vector<Finding> take();

private:
    /// The findings of one severity, as many as are kept, and how many there were.
    struct Kept {
        std::vector<Finding> findings;
        unsigned long long count = 0;
    };

    Kept& listOf(FindingCode code);

    std::size_t m_maxKept;
    Kept m_errors;
    Kept m_warnings;
};

} // namespace TypeFile
