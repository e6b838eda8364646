// Flattened ranges: one for each array dimension, each from the nearest level that gives it.

#include "RTTI/ConstraintPopulation.h"
#include "RTTI/ConstraintStack.h"
#include "tests/support/TypeGraph.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace {

using namespace RTTI;
using namespace RTTITest;
using Stack = Brakel_tolv::ConstraintStack<FullConstraints>;

/// Throws when it is walked, until it is told not to.
class ThrowingType : public RTStringType {
public:
    unsigned int GetClassId() const override { return ClassId::BASE_TYPE; }
    void populateTypeConstraints(Stack&, Ranges&) const override {
        if (m_throws)
            throw std::runtime_error("walked");
    }

    bool m_throws = true;
};

/// Gives a range although its class id is that of a scalar.
class IntWithARange : public RTIntType {
public:
    void populateTypeConstraints(Stack& stack, Ranges& out) const override {
        out.push_back(stack.getConstraint());
    }
};

class ConstraintPopulation : public testing::Test {
protected:
    static std::vector<std::vector<int>> rangesOf(const RTBaseType& type) {
        Stack stack;
        Ranges out;
        type.populateTypeConstraints(stack, out);
        EXPECT_EQ(numbersOf({stack.getConstraint()}), numbersOf({{0, 0, 0}}));
        return numbersOf(out);
    }

    /// An array whose dimension tells it from other ones.
    const RTBaseType* numbered(int number) { return &types.array(scalar, {{number, 0, 0}}); }

    TypeGraph types;
    const RTBaseType* scalar = &types.add<RTIntType>();
};

TEST_F(ConstraintPopulation, IntegerLeavesOutputAndStackAlone) {
    Stack stack;
    stack.push({{4, 5, 1}});
    Ranges out{{1, 2, 1}};
    scalar->populateTypeConstraints(stack, out);
    EXPECT_EQ(numbersOf(out), numbersOf({{1, 2, 1}}));
    EXPECT_EQ(numbersOf({stack.getConstraint()}), numbersOf({{4, 5, 1}}));
}

TEST_F(ConstraintPopulation, ArrayGivesItsDimensionsInOrder) {
    EXPECT_EQ(rangesOf(types.array(scalar, {{0, 7, 1}, {3, 0, 0}})),
              numbersOf({{0, 7, 1}, {3, 0, 0}}));
}

TEST_F(ConstraintPopulation, TypedefFillsTheOpenDimensionOfItsArray) {
    EXPECT_EQ(rangesOf(types.alias(&types.array(scalar, {OPEN}), {{0, 15, 1}})),
              numbersOf({{0, 15, 1}}));
}

TEST_F(ConstraintPopulation, DiscreteEnumFillsTheOpenDimensionOfItsBaseType) {
    EXPECT_EQ(rangesOf(types.discreteEnum(&types.array(scalar, {OPEN}), {{0, 15, 1}})),
              numbersOf({{0, 15, 1}}));
}

TEST_F(ConstraintPopulation, MemberFillsTheOpenDimensionOfItsType) {
    const auto& open = types.array(scalar, {OPEN});
    auto& record = types.record(VHDL_RECORD);
    addMember(record, &open, {{1, 2, 1}});
    addMember(record, &open, {{3, 4, 1}});
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 2, 1}, {3, 4, 1}}));
    auto& classType = types.classType();
    addMember(classType, &open, {{5, 6, 1}});
    EXPECT_EQ(rangesOf(classType), numbersOf({{5, 6, 1}}));
}

TEST_F(ConstraintPopulation, TypedefOfAScalarGivesNothing) {
    EXPECT_TRUE(rangesOf(types.alias(scalar, {{0, 15, 1}})).empty());
}

TEST_F(ConstraintPopulation, RecordWithAnArrayAndAnIntegerGivesOneRange) {
    EXPECT_EQ(rangesOf(types.record(VHDL_RECORD, {numbered(4), scalar})), numbersOf({{4, 0, 0}}));
}

TEST_F(ConstraintPopulation, EveryRecordKindIsWalked) {
    for (unsigned int kind = RECORD_KIND_INVALID; kind <= BYTE_UNPADDED_STRUCT; ++kind) {
        const auto& record = types.record(static_cast<RecordKind>(kind), {numbered(4)});
        EXPECT_EQ(rangesOf(record), numbersOf({{4, 0, 0}})) << std::hex << kind;
    }
}

TEST_F(ConstraintPopulation, ClassWithAHandleOfItselfEndsAndCanBeWalkedAgain) {
    auto& type = types.classType();
    addMember(type, &type);
    addMember(type, numbered(1));
    EXPECT_EQ(rangesOf(type), numbersOf({{1, 0, 0}}));
    EXPECT_EQ(rangesOf(type), numbersOf({{1, 0, 0}}));
}

TEST_F(ConstraintPopulation, BaseClassComesBeforeTheMembers) {
    auto& root = types.classType({numbered(1)});
    auto& middle = types.classType({numbered(2)}, &root);
    EXPECT_EQ(rangesOf(types.classType({numbered(3), numbered(4)}, &middle)),
              numbersOf({{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}}));
}

TEST_F(ConstraintPopulation, ClassMetTwiceSideBySideIsWalkedBothTimes) {
    auto& part = types.classType({numbered(1), numbered(2)});
    EXPECT_EQ(rangesOf(types.classType({&part, &part})),
              numbersOf({{1, 0, 0}, {2, 0, 0}, {1, 0, 0}, {2, 0, 0}}));
}

TEST_F(ConstraintPopulation, MarksDoNotOutliveTheWalk) {
    // The walk of `second` meets `first` again, whose walk came before.
    auto& first = types.classType({numbered(1)});
    auto& second = types.classType({&first, numbered(2)});
    addMember(first, &second);
    EXPECT_EQ(rangesOf(first), numbersOf({{1, 0, 0}, {2, 0, 0}}));
    EXPECT_EQ(rangesOf(second), numbersOf({{1, 0, 0}, {2, 0, 0}}));
}

TEST_F(ConstraintPopulation, ContainersOfVariableSizeAreNotWalked) {
    EXPECT_TRUE(rangesOf(types.container<RTDynamicArrayType>(numbered(1))).empty());
    EXPECT_TRUE(rangesOf(types.container<RTQueueType>(numbered(1))).empty());
    EXPECT_TRUE(rangesOf(types.container<RTAssocArrayType>(numbered(1))).empty());
}

TEST_F(ConstraintPopulation, AccessAndFileTypesAreNotWalked) {
    auto& access = types.add<RTAccessType>();
    access.m_refType = numbered(1);
    auto& file = types.add<RTFileType>();
    file.m_refType = numbered(1);
    EXPECT_TRUE(rangesOf(access).empty());
    EXPECT_TRUE(rangesOf(file).empty());
}

TEST_F(ConstraintPopulation, ClassDerivedFromAScalarIsAskedAboveTheFramesOfTheLevelsAround) {
    const auto& own = types.add<IntWithARange>();
    const auto& array = types.array(VHDL_ARRAY, &own, 1, {{1, 2, 1}, {3, 4, 1}});
    EXPECT_EQ(rangesOf(types.alias(&array, {{5, 6, 1}})), numbersOf({{1, 2, 1}, {3, 4, 1}}));
    EXPECT_EQ(rangesOf(types.alias(&own, {{5, 6, 1}})), numbersOf({{5, 6, 1}}));
}

TEST_F(ConstraintPopulation, LevelsAroundAnOpenArrayAnswerAlsoBehindArraysWithRangesOfTheirOwn) {
    // Record, member (7, 8), typedef (5, 6), array with a range and one to spare, two open ones.
    const auto& inner = types.array(&types.array(scalar, {OPEN}), {OPEN});
    const auto& outer = types.array(VHDL_ARRAY, &inner, 1, {{1, 2, 1}, {3, 4, 1}});
    auto& record = types.record(VHDL_RECORD);
    addMember(record, &types.alias(&outer, {{5, 6, 1}}), {{7, 8, 1}});
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 2, 1}, {3, 4, 1}, {5, 6, 1}}));
}

TEST_F(ConstraintPopulation, FramesAroundAnAggregateAnswerForItsMembers) {
    auto& record = types.structure({&types.array(scalar, {OPEN}), &types.array(scalar, {OPEN})});
    const auto& array = types.array(VHDL_ARRAY, &record, 1, {{1, 2, 1}, {3, 4, 1}});
    EXPECT_EQ(rangesOf(types.structure({&types.alias(&array, {{5, 6, 1}})})),
              numbersOf({{1, 2, 1}, {3, 4, 1}, {5, 6, 1}}));
}

TEST_F(ConstraintPopulation, OpenDimensionThatNobodyFillsIsZeros) {
    EXPECT_EQ(rangesOf(types.array(scalar, {OPEN})), numbersOf({{0, 0, 0}}));
}

TEST_F(ConstraintPopulation, OuterArraysNextEntryFillsTheInnerDimension) {
    const auto& inner = types.array(scalar, {OPEN});
    const auto& outer = types.array(VHDL_ARRAY, &inner, 1, {{0, 3, 1}, {0, 7, 1}});
    EXPECT_EQ(rangesOf(outer), numbersOf({{0, 3, 1}, {0, 7, 1}}));
}

TEST_F(ConstraintPopulation, NearestLevelWithBoundsAnswers) {
    const auto& open = types.array(scalar, {OPEN});
    auto& near = types.alias(&open, {{1, 1, 1}});
    EXPECT_EQ(rangesOf(types.alias(&near, {{2, 2, 1}})), numbersOf({{1, 1, 1}}));
    auto& passing = types.alias(&open, {OPEN});
    EXPECT_EQ(rangesOf(types.alias(&passing, {{2, 2, 1}})), numbersOf({{2, 2, 1}}));
}

TEST_F(ConstraintPopulation, MergedFrameOfAnArrayTakesBoundsByPosition) {
    // Without the merge, the open dimension would take the typedef's first entry.
    const auto& array = types.array(scalar, {{1, 4, 1}, OPEN});
    EXPECT_EQ(rangesOf(types.alias(&array, {{1, 4, 1}, {0, 9, 1}})),
              numbersOf({{1, 4, 1}, {0, 9, 1}}));
}

TEST_F(ConstraintPopulation, DimensionsBeyondTheFrameAreMissingEntries) {
    const auto& array = types.array(VHDL_ARRAY, scalar, 3, {{1, 4, 1}});
    EXPECT_EQ(rangesOf(array), numbersOf({{1, 4, 1}, {0, 0, 0}, {0, 0, 0}}));
    EXPECT_EQ(rangesOf(types.alias(&array, {{5, 6, 1}})),
              numbersOf({{1, 4, 1}, {5, 6, 1}, {0, 0, 0}}));
}

TEST_F(ConstraintPopulation, ArrayWithoutDimensionsStillWalksItsElement) {
    EXPECT_EQ(rangesOf(types.array(VLOG_FIXED_PACKED_ARRAY, numbered(1), 0, {})),
              numbersOf({{1, 0, 0}}));
}

TEST_F(ConstraintPopulation, OutputIsAppendedAndTheStackIsLeftAsItWas) {
    Stack stack;
    stack.push({{5, 6, 1}, {7, 8, 1}});
    Ranges out{{1, 2, 1}};
    types.array(scalar, {OPEN}).populateTypeConstraints(stack, out);
    EXPECT_EQ(numbersOf(out), numbersOf({{1, 2, 1}, {5, 6, 1}}));
    EXPECT_EQ(numbersOf({stack.getConstraint(), stack.getConstraint()}),
              numbersOf({{7, 8, 1}, {0, 0, 0}}));
}

TEST_F(ConstraintPopulation, MissingTypesAreSkipped) {
    EXPECT_TRUE(rangesOf(types.alias(nullptr, {{0, 1, 1}})).empty());
    EXPECT_TRUE(rangesOf(types.discreteEnum(nullptr, {{0, 1, 1}})).empty());
    EXPECT_EQ(rangesOf(types.array(nullptr, {{0, 1, 1}})), numbersOf({{0, 1, 1}}));
    EXPECT_EQ(rangesOf(types.structure({nullptr, numbered(1)})), numbersOf({{1, 0, 0}}));
    EXPECT_EQ(rangesOf(types.classType({nullptr, numbered(1)})), numbersOf({{1, 0, 0}}));
}

TEST_F(ConstraintPopulation, MissingMemberRecordIsSkipped) {
    auto& record = types.structure({numbered(1), numbered(2)});
    delete record.m_members[0];
    record.m_members[0] = nullptr;
    EXPECT_EQ(rangesOf(record), numbersOf({{2, 0, 0}}));
}

TEST_F(ConstraintPopulation, StructThatComesBackToItselfIsSkippedThere) {
    auto& record = types.structure({numbered(1)});
    addMember(record, &record);
    addMember(record, numbered(2));
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 0, 0}, {2, 0, 0}}));
}

TEST_F(ConstraintPopulation, StructThatComesBackThroughOtherStructsIsSkippedThere) {
    auto& record = types.structure({numbered(1)});
    auto& middle = types.structure({&types.structure({&record}), numbered(2)});
    addMember(record, &middle);
    addMember(record, &middle);
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 0, 0}, {2, 0, 0}, {2, 0, 0}}));
}

TEST_F(ConstraintPopulation, StructIsWalkedAgainBehindAClass) {
    // record: 1, class; class: 2, record. Behind the class the record gives 1 and ends at the
    // class, which is on the path.
    auto& record = types.structure({numbered(1)});
    auto& holder = types.classType({numbered(2), &record});
    addMember(record, &holder);
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 0, 0}, {2, 0, 0}, {1, 0, 0}}));
}

TEST_F(ConstraintPopulation, StructsThatShareAPartWhichEndedAreWalkedAgainBehindAClass) {
    // The part leads back to the record and gives nothing there, through either struct. Behind the
    // class, the second struct leads through it to the record, and that gives 1.
    auto& record = types.structure({});
    auto& part = types.structure({&record});
    auto& second = types.structure({&part});
    addMember(record, &types.structure({&part}));
    addMember(record, &second);
    addMember(record, &types.classType({&second}));
    addMember(record, numbered(1));
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 0, 0}, {1, 0, 0}}));
}

TEST_F(ConstraintPopulation, BoundedWalkGivesAllRangesWithinItsSteps) {
    // Two ranges, and the visit of the struct that gave them.
    const RTBaseType& type = types.record(VHDL_RECORD, {numbered(1), numbered(2)});
    const PopulatedConstraints all = populateTypeConstraints(type, 3);
    EXPECT_TRUE(all.isComplete);
    EXPECT_EQ(numbersOf(all.ranges), numbersOf({{1, 0, 0}, {2, 0, 0}}));
    EXPECT_FALSE(populateTypeConstraints(type, 2).isComplete);
}

TEST_F(ConstraintPopulation, BoundedWalkOfALadderEndsWithTheFirstRanges) {
    const RTBaseType* rung = numbered(1);
    for (int i = 0; i < 60; ++i) // 2^60 ranges.
        rung = &types.record(VHDL_RECORD, {rung, rung});
    const PopulatedConstraints some = populateTypeConstraints(*rung, 1000);
    EXPECT_FALSE(some.isComplete);
    EXPECT_GT(some.ranges.size(), 400u);
    EXPECT_LE(some.ranges.size(), 1000u);
    EXPECT_EQ(numbersOf({some.ranges.back()}), numbersOf({{1, 0, 0}}));
}

TEST_F(ConstraintPopulation, BoundedWalkPassesBy65536PartsAnd16MoreForEachStep) {
    auto& type = types.classType();
    for (int i = 0; i < 65536 + 2 * 16; ++i)
        addMember(type, &type); // It is on the path.
    addMember(type, numbered(1));
    EXPECT_TRUE(populateTypeConstraints(type, 2).isComplete);
    addMember(type, &type);
    EXPECT_FALSE(populateTypeConstraints(type, 2).isComplete);
    EXPECT_TRUE(populateTypeConstraints(type, 3).isComplete);
    const std::size_t sixteenth = (std::numeric_limits<std::size_t>::max() >> 4) + 1;
    EXPECT_TRUE(populateTypeConstraints(type, sixteenth).isComplete); // 16 times that is 0.
}

TEST_F(ConstraintPopulation, ExceptionTakesFramesAndMarksBack) {
    auto& throwing = types.add<ThrowingType>();
    auto& base = types.classType();
    addMember(base, &throwing, {{8, 8, 1}});
    auto& type = types.classType({numbered(1)}, &base);
    auto& record = types.structure({&types.alias(&type, {{9, 9, 1}})});
    Stack stack;
    stack.push({{5, 6, 1}});
    Ranges out;
    EXPECT_THROW(record.populateTypeConstraints(stack, out), std::runtime_error);
    EXPECT_EQ(numbersOf({stack.getConstraint(), stack.getConstraint()}),
              numbersOf({{5, 6, 1}, {0, 0, 0}}));
    throwing.m_throws = false;
    EXPECT_EQ(rangesOf(type), numbersOf({{1, 0, 0}}));
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 0, 0}}));
}

} // namespace
