#include "fuzz/MemoryLimit.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <new>
#include <vector>

namespace {

using Fuzz::MemoryLimit;

bool canAllocate(std::size_t size) {
    try {
        ::operator delete(::operator new(size));
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

TEST(MemoryLimit, RefusesABlockThatIsTooLarge) {
    const MemoryLimit limit({1000, 100000});
    EXPECT_TRUE(canAllocate(1000));
    EXPECT_FALSE(canAllocate(1001));
}

TEST(MemoryLimit, RefusesWhatIsTooMuchAtOneTime) {
    const MemoryLimit limit({1000, 10000});
    std::vector<std::unique_ptr<char[]>> blocks;
    EXPECT_THROW(
        {
            for (;;)
                blocks.push_back(std::make_unique<char[]>(1000));
        },
        std::bad_alloc);
    blocks.clear();
    EXPECT_TRUE(canAllocate(1000)); // What is given back can be had again.
}

TEST(MemoryLimit, HoldsNoLongerThanItLives) {
    { const MemoryLimit limit({10, 10}); }
    EXPECT_TRUE(canAllocate(1000));
}

TEST(MemoryLimit, HoldsWithinAnother) {
    const MemoryLimit outer({1000, 2000});
    {
        const MemoryLimit inner({5000, 5000});
        EXPECT_TRUE(canAllocate(1000));
        EXPECT_FALSE(canAllocate(1001));
    }
    EXPECT_FALSE(canAllocate(1001));
}

TEST(MemoryLimit, TellsTheMostThatWasInUseAtOneTime) {
    const MemoryLimit limit({100000, 100000});
    EXPECT_TRUE(canAllocate(50000));
    EXPECT_TRUE(canAllocate(50000));
    EXPECT_GE(limit.mostInUse(), 50000U);
    EXPECT_LT(limit.mostInUse(), 60000U);
}

} // namespace
