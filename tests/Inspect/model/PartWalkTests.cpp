// What the walk through the parts of a type gives agrees with the queries of the types.

#include "Inspect/model/LeafWalk.h"
#include "Inspect/model/PartWalk.h"
#include "tests/support/LinkedTypes.h"
#include "tests/support/RandomTypes.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace RTTI;
using namespace RTTITest;
using Inspect::PartWalk;

constexpr unsigned int graphs = 8000;
constexpr std::size_t partLimit = 5000;

bool isContainer(const RTBaseType* type) {
    return dynamic_cast<const RTAbstractArrayType*>(type) != nullptr;
}

Ranges rangesOf(const RTBaseType& type) {
    Brakel_tolv::ConstraintStack<FullConstraints> stack;
    Ranges out;
    type.populateTypeConstraints(stack, out);
    return out;
}

/// Random types whose queues lead to structs, classes and scalars.
LinkedTypes typesWithQueues(std::mt19937& random) {
    LinkedTypes types = randomTypes(random);
    for (unsigned int id = 0; id < types.size(); ++id) {
        const unsigned int target = randomId(types, random);
        const bool isAggregate = dynamic_cast<RTAggregateType*>(&types[target]) != nullptr;
        auto* queue = dynamic_cast<RTQueueType*>(&types[id]);
        if (queue != nullptr && isAggregate)
            queue->m_elementTypeId = target;
    }
    return types;
}

/// The parts of a type, as far as the limit.
struct Parts {
    std::vector<Inspect::Part> all;
    bool isWhole = true;
};

Parts partsOf(const RTBaseType& type, unsigned int maxDepth = PartWalk::ANY_DEPTH) {
    PartWalk walk(0, &type, maxDepth);
    Parts parts;
    while (walk.next()) {
        if (parts.all.size() == partLimit) {
            parts.isWhole = false;
            break;
        }
        parts.all.push_back(walk.part());
    }
    return parts;
}

/// The ranges of the parts that are not below an array of variable size.
Ranges rangesOutsideContainers(const std::vector<Inspect::Part>& parts) {
    Ranges ranges;
    unsigned int container = PartWalk::ANY_DEPTH;
    for (const Inspect::Part& part : parts) {
        if (part.depth > container)
            continue;
        container = isContainer(part.type) ? part.depth : PartWalk::ANY_DEPTH;
        ranges.insert(ranges.end(), part.ranges.begin(), part.ranges.end());
    }
    return ranges;
}

TEST(PartWalk, GivesTheRangesOfPopulateTypeConstraintsInItsOrder) {
    std::size_t compared = 0;
    std::size_t entries = 0;
    std::size_t belowQueues = 0;
    for (unsigned int seed = 0; seed < graphs; ++seed) {
        std::mt19937 random(seed);
        const LinkedTypes types = typesWithQueues(random);
        for (unsigned int id = 0; id < types.size(); ++id) {
            const Parts parts = partsOf(types[id]);
            if (!parts.isWhole)
                continue;
            const Ranges expected = rangesOf(types[id]);
            ASSERT_EQ(numbersOf(rangesOutsideContainers(parts.all)), numbersOf(expected))
                << "seed " << seed << ", type " << id;
            ++compared;
            entries += expected.size();
            for (const Inspect::Part& part : parts.all)
                belowQueues += isContainer(part.type) && part.hasParts ? 1 : 0;
        }
    }
    EXPECT_GT(compared, 10000u);
    EXPECT_GT(entries, 10000u);
    EXPECT_GT(belowQueues, 500u);
}

TEST(PartWalk, OfLimitedDepthGivesTheSamePartsAsFarAsItGoes) {
    std::size_t cut = 0;
    for (unsigned int seed = 0; seed < graphs; ++seed) {
        std::mt19937 random(seed);
        const LinkedTypes types = typesWithQueues(random);
        const RTBaseType& type = types[randomId(types, random)];
        const auto depth = static_cast<unsigned int>(random() % 5);
        const Parts all = partsOf(type);
        if (!all.isWhole)
            continue;
        std::vector<Inspect::Part> expected;
        for (const Inspect::Part& part : all.all) {
            if (part.depth <= depth)
                expected.push_back(part);
        }
        const Parts shallow = partsOf(type, depth);
        ASSERT_EQ(shallow.all.size(), expected.size()) << "seed " << seed;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            ASSERT_EQ(shallow.all[i].type, expected[i].type) << "seed " << seed;
            ASSERT_EQ(numbersOf(shallow.all[i].ranges), numbersOf(expected[i].ranges))
                << "seed " << seed << ", depth " << depth << ", part " << i;
        }
        cut += expected.size() < all.all.size() ? 1 : 0;
    }
    EXPECT_GT(cut, 500u);
}

TEST(LeafWalk, GivesEveryPartThatHasNoParts) {
    std::size_t leaves = 0;
    for (unsigned int seed = 0; seed < graphs; ++seed) {
        std::mt19937 random(seed);
        const LinkedTypes types = typesWithQueues(random);
        const RTBaseType& type = types[randomId(types, random)];
        const Parts parts = partsOf(type);
        if (!parts.isWhole)
            continue;
        Inspect::PackedWidths widths;
        Inspect::LeafWalk leaf(0, &type, widths);
        for (const Inspect::Part& part : parts.all) {
            if (part.hasParts)
                continue;
            ASSERT_TRUE(leaf.next()) << "seed " << seed;
            ASSERT_EQ(leaf.isSeenAbove(), part.isSeenAbove) << "seed " << seed;
            ++leaves;
        }
        ASSERT_FALSE(leaf.next()) << "seed " << seed;
    }
    EXPECT_GT(leaves, 3000u);
}

} // namespace
