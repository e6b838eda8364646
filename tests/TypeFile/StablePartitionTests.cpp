#include "TypeFile/StablePartition.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <utility>
#include <vector>

namespace {

using TypeFile::LabelledEdge;
using Blocks = std::vector<unsigned int>;

/// Blocks numbered in the order of their first nodes.
Blocks renumbered(const Blocks& blocks) {
    std::map<unsigned int, unsigned int> numbers;
    Blocks result;
    for (const unsigned int block : blocks)
        result.push_back(numbers.try_emplace(block, numbers.size()).first->second);
    return result;
}

/// Splits all blocks by the blocks that their edges lead to, until nothing changes.
Blocks plainlyPartitioned(Blocks blocks, const std::vector<LabelledEdge>& edges) {
    using Heads = std::map<unsigned int, unsigned int>; // By label.
    for (;;) {
        std::vector<Heads> heads(blocks.size());
        for (const LabelledEdge& edge : edges)
            heads[edge.tail][edge.label] = blocks[edge.head];
        std::map<std::pair<unsigned int, Heads>, unsigned int> numbers;
        Blocks next;
        for (std::size_t node = 0; node < blocks.size(); ++node)
            next.push_back(
                numbers.try_emplace({blocks[node], heads[node]}, numbers.size()).first->second);
        if (next == blocks)
            return blocks;
        blocks = next;
    }
}

TEST(StablePartition, AgreesWithPlainRefinementOnRandomGraphs) {
    std::mt19937 random(1);
    for (int round = 0; round < 3000; ++round) {
        Blocks blocks(1 + random() % 12);
        for (unsigned int& block : blocks)
            block = random() % 2;
        blocks = renumbered(blocks);
        std::vector<LabelledEdge> edges;
        for (unsigned int tail = 0; tail < blocks.size(); ++tail) {
            for (unsigned int label = 0; label < 3; ++label) {
                if (random() % 3 != 0)
                    edges.push_back(
                        {tail, label, static_cast<unsigned int>(random() % blocks.size())});
            }
        }
        std::shuffle(edges.begin(), edges.end(), random);
        EXPECT_EQ(renumbered(TypeFile::stablePartition(blocks, edges)),
                  renumbered(plainlyPartitioned(blocks, edges)));
    }
}

} // namespace
