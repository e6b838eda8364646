// The stack of ranges: who answers, which entries are used up, and how a pushed frame is filled.

#include "RTTI/ConstraintStack.h"
#include "tests/support/LinkedTypes.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace RTTI;
using namespace RTTITest;

class ConstraintStacks : public testing::Test {
protected:
    /// The next `count` answers.
    std::vector<std::vector<int>> take(int count) {
        Ranges ranges;
        for (int i = 0; i < count; ++i)
            ranges.push_back(stack.getConstraint());
        return numbersOf(ranges);
    }

    /// What a frame holds after it was pushed onto `bottom`; no entry of it may be the marker.
    std::vector<std::vector<int>> pushedOnto(const Ranges& bottom, const Ranges& own) {
        stack.push(bottom);
        stack.push(own);
        return take(static_cast<int>(own.size()));
    }

    Brakel_tolv::ConstraintStack<FullConstraints> stack;
};

TEST_F(ConstraintStacks, EmptyStackAnswersZeros) {
    EXPECT_EQ(take(2), numbersOf({{0, 0, 0}, {0, 0, 0}}));
}

TEST_F(ConstraintStacks, MarkerIsAnsweredFromBelowAndBothCursorsAdvance) {
    stack.push({{0, 7, 1}, {5, 6, 1}});
    stack.push({OPEN, {8, 9, 1}});
    EXPECT_EQ(take(2), numbersOf({{0, 7, 1}, {8, 9, 1}}));
    stack.pop();
    EXPECT_EQ(take(1), numbersOf({{5, 6, 1}}));
}

TEST_F(ConstraintStacks, ConstrainedTopAnswersAndNoOtherCursorMoves) {
    stack.push({{0, 7, 1}});
    stack.push({{3, 0, 0}});
    EXPECT_EQ(take(1), numbersOf({{3, 0, 0}}));
    stack.pop();
    EXPECT_EQ(take(1), numbersOf({{0, 7, 1}}));
}

TEST_F(ConstraintStacks, MarkersAllTheWayDownAnswerZerosAndAreUsedUp) {
    stack.push({OPEN, {1, 2, 1}});
    stack.push({OPEN});
    stack.push({OPEN});
    EXPECT_EQ(take(1), numbersOf({{0, 0, 0}}));
    stack.pop();
    stack.pop();
    EXPECT_EQ(take(1), numbersOf({{1, 2, 1}}));
}

TEST_F(ConstraintStacks, FramesBelowTheOneThatAnswersAreNotTouched) {
    stack.push({{1, 2, 1}});
    stack.push({{3, 4, 1}});
    stack.push({OPEN});
    EXPECT_EQ(take(1), numbersOf({{3, 4, 1}}));
    stack.pop();
    stack.pop();
    EXPECT_EQ(take(1), numbersOf({{1, 2, 1}}));
}

TEST_F(ConstraintStacks, OpenRangeIsReturnedLikeAnyOther) {
    stack.push({{0, 7, 1}});
    stack.push({FULL_RANGE});
    EXPECT_EQ(take(1), numbersOf({FULL_RANGE}));
}

TEST_F(ConstraintStacks, MarkerCountsWhateverItsIndices) {
    stack.push({{0, 7, 1}});
    stack.push({{4, 2, -2}});
    EXPECT_EQ(take(1), numbersOf({{0, 7, 1}}));
}

TEST_F(ConstraintStacks, EndOfAFrameIsAMissingEntry) {
    stack.push({{0, 7, 1}});
    stack.push({{3, 0, 0}});
    EXPECT_EQ(take(3), numbersOf({{3, 0, 0}, {0, 7, 1}, {0, 0, 0}}));
}

TEST_F(ConstraintStacks, EmptyFrameIsPassedBy) {
    stack.push({{0, 7, 1}});
    stack.push({});
    EXPECT_EQ(take(1), numbersOf({{0, 7, 1}}));
}

TEST_F(ConstraintStacks, PushCopiesItsArgument) {
    Ranges own{{0, 7, 1}};
    stack.push(own);
    own[0].ei = 99;
    EXPECT_EQ(take(1), numbersOf({{0, 7, 1}}));
}

TEST_F(ConstraintStacks, MergeFillsMarkersFromTheBottomFrame) {
    EXPECT_EQ(pushedOnto({{0, 9, 1}, {1, 4, 1}}, {{5, 6, -2}, {1, 4, 1}}),
              numbersOf({{0, 9, 1}, {1, 4, 1}}));
    stack.pop();
    EXPECT_EQ(take(1), numbersOf({{0, 9, 1}})); // The merge uses up nothing.
}

TEST_F(ConstraintStacks, MergeAlignsTheFirstCommonEntry) {
    EXPECT_EQ(pushedOnto({{8, 8, 1}, {0, 9, 1}, {1, 4, 1}, {2, 2, 0}}, {OPEN, {1, 4, 1}, OPEN}),
              numbersOf({{0, 9, 1}, {1, 4, 1}, {2, 2, 0}}));
}

TEST_F(ConstraintStacks, MergeFillsOpenRangesWhereAMarkerIsPresent) {
    EXPECT_EQ(pushedOnto({{1, 4, 1}, {0, 9, 1}, {2, 2, 0}}, {{1, 4, 1}, FULL_RANGE, OPEN}),
              numbersOf({{1, 4, 1}, {0, 9, 1}, {2, 2, 0}}));
}

TEST_F(ConstraintStacks, OpenRangeAloneStays) {
    stack.push({FULL_RANGE});
    EXPECT_EQ(take(1), numbersOf({FULL_RANGE}));
}

TEST_F(ConstraintStacks, OpenRangeWithoutAMarkerIsNotMerged) {
    EXPECT_EQ(pushedOnto({{0, 9, 1}, {1, 4, 1}}, {FULL_RANGE, {1, 4, 1}}),
              numbersOf({FULL_RANGE, {1, 4, 1}}));
}

TEST_F(ConstraintStacks, MarkerWithoutConstrainedEntryIsNotMerged) {
    // Were the open range the anchor, the marker would become (0, 9, 1).
    stack.push({{7, 7, 1}, FULL_RANGE, {0, 9, 1}});
    stack.push({FULL_RANGE, OPEN});
    EXPECT_EQ(take(2), numbersOf({FULL_RANGE, {7, 7, 1}}));
}

TEST_F(ConstraintStacks, PushOntoAnEmptyStackNeverMergesAndBecomesTheBottom) {
    stack.push({OPEN, {1, 4, 1}});
    EXPECT_EQ(take(2), numbersOf({{0, 0, 0}, {1, 4, 1}}));
    stack.push({FULL_RANGE, {1, 4, 1}, OPEN}); // Bottom has too few entries.
    EXPECT_EQ(take(2), numbersOf({FULL_RANGE, {1, 4, 1}}));
}

TEST_F(ConstraintStacks, MergeLooksAtTheBottomFrameNotAtTheTop) {
    stack.push({{0, 9, 1}, {1, 4, 1}});
    stack.push({{6, 6, 1}, {1, 4, 1}});
    stack.push({OPEN, {1, 4, 1}});
    EXPECT_EQ(take(1), numbersOf({{0, 9, 1}}));
}

TEST_F(ConstraintStacks, NoMergeWhereNoEntryAgreesInAllThreeFields) {
    // The marker is then answered by the bottom frame's first entry.
    EXPECT_EQ(pushedOnto({{7, 7, 1}, {1, 4, 0}, {2, 4, 1}, {1, 5, 1}}, {{1, 4, 1}, OPEN}),
              numbersOf({{1, 4, 1}, {7, 7, 1}}));
}

TEST_F(ConstraintStacks, NoMergeWhereTheShiftWouldBeNegative) {
    EXPECT_EQ(pushedOnto({{1, 4, 1}, {7, 7, 1}, {8, 8, 1}}, {OPEN, {1, 4, 1}, OPEN}),
              numbersOf({{1, 4, 1}, {1, 4, 1}, {7, 7, 1}}));
}

TEST_F(ConstraintStacks, NoMergeWhereTheBottomFrameIsTooShort) {
    EXPECT_EQ(pushedOnto({{9, 9, 1}, {1, 4, 1}}, {{1, 4, 1}, OPEN}),
              numbersOf({{1, 4, 1}, {9, 9, 1}}));
}

TEST_F(ConstraintStacks, MergeCanFillAMarkerWithTheBottomsMarker) {
    EXPECT_EQ(pushedOnto({OPEN, {1, 4, 1}, {3, 3, 0}}, {FULL_RANGE, {1, 4, 1}, OPEN}),
              numbersOf({{0, 0, 0}, {1, 4, 1}, {3, 3, 0}}));
}

TEST_F(ConstraintStacks, LastingRangesAnswerAsCopiesDo) {
    const Ranges bottom{{0, 9, 1}, {1, 4, 1}};
    const Ranges top{OPEN, {1, 4, 1}};
    stack.pushLasting(bottom);
    stack.pushLasting(top);
    EXPECT_EQ(take(3), numbersOf({{0, 9, 1}, {1, 4, 1}, {0, 9, 1}}));
}

TEST_F(ConstraintStacks, LastingRangesThatAreFilledStayAsTheyWere) {
    const Ranges top{OPEN, {1, 4, 1}};
    stack.push({{0, 9, 1}, {1, 4, 1}});
    stack.pushLasting(top);
    EXPECT_EQ(numbersOf(top), numbersOf({OPEN, {1, 4, 1}}));
}

TEST_F(ConstraintStacks, FramesAboveADepthArePoppedTogether) {
    const Ranges lasting{{3, 4, 1}, {5, 6, 1}};
    for (const std::size_t frames : {1U, 11U, 12U, 13U, 100U}) {
        stack.push({{0, 7, 1}});
        for (std::size_t i = 0; i < frames; ++i)
            i % 2 == 0 ? stack.push({{1, 2, 1}}) : stack.pushLasting(lasting);
        EXPECT_EQ(stack.depth(), frames + 1);
        stack.popTo(1);
        EXPECT_EQ(take(1), numbersOf({{0, 7, 1}})) << frames;
        stack.pop();
        EXPECT_EQ(stack.depth(), 0U);
    }
}

TEST_F(ConstraintStacks, AnyNumberOfFramesKeepTheirOrder) {
    for (int i = 0; i < 100; ++i)
        stack.push({{i, 0, 0}});
    for (int i = 99; i >= 0; --i) {
        EXPECT_EQ(take(1), numbersOf({{i, 0, 0}}));
        stack.pop();
    }
}

/// LeakSanitizer sees what is left behind.
TEST(ConstraintStackEnd, ReleasesFramesThatNobodyPopped) {
    auto stack = std::make_unique<Brakel_tolv::ConstraintStack<FullConstraints>>();
    for (int i = 0; i < 100; ++i)
        stack->push(Ranges(100, FullConstraints{i, 0, 0}));
    EXPECT_EQ(numbersOf({stack->getConstraint()}), numbersOf({{99, 0, 0}}));
    stack.reset();
}

} // namespace
