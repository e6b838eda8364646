#pragma once

#include <vector>

namespace TypeFile {

/// An edge of a graph. Edges that leave one node have different labels.
struct LabelledEdge {
    unsigned int tail;
    unsigned int label;
    unsigned int head;
};

/// Splits blocks of nodes until nodes of one block have, label by label, edges to one block. The
/// result is the coarsest such partition that is as fine as the given one: the block of each node,
/// numbered from 0 on. `blockOf` has a block for each node, with every number up to the largest in
/// use. Takes O(m log n) for m edges of n nodes, memory by the largest label, and no recursion.
std::vector<unsigned int> stablePartition(const std::vector<unsigned int>& blockOf,
                                          const std::vector<LabelledEdge>& edges);

} // namespace TypeFile
