#pragma once

#include <string_view>
#include <vector>

namespace Inspect {

/// How the entries of a list of names came to be those of another. Positions count from 0; each
/// list is in the order of A, where an entry has a place there, else of B.
struct ListAlignment {
    struct Match {
        unsigned int a;
        unsigned int b;
    };

    std::vector<Match> kept;     ///< In both lists, in the same order.
    std::vector<Match> moved;    ///< In both, out of that order.
    std::vector<Match> replaced; ///< Other names in one place between the same neighbours.
    std::vector<unsigned int> removed;
    std::vector<unsigned int> added;
};

/// Aligns two lists; a name that is there several times stands for itself in the order of its
/// places. As few entries as possible count as moved. Takes O(n log n).
ListAlignment alignLists(const std::vector<std::string_view>& a,
                         const std::vector<std::string_view>& b);

} // namespace Inspect
