// Flattened ranges: one for each array dimension, each from the nearest level that gives it.

#include "RTTI/ConstraintPopulation.h"
#include "RTTI/ConstraintStack.h"
#include "tests/support/LinkedTypes.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <utility>

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
    std::vector<std::vector<int>> rangesOf(unsigned int type) {
        Stack stack;
        Ranges out;
        types[type].populateTypeConstraints(stack, out);
        EXPECT_EQ(numbersOf({stack.getConstraint()}), numbersOf({{0, 0, 0}}));
        return numbersOf(out);
    }

    /// An array whose dimension tells it from other ones.
    unsigned int numbered(int number) { return types.vhdlArray(scalar, {{number, 0, 0}}); }

    LinkedTypes types;
    unsigned int scalar = types.integer();
};

TEST_F(ConstraintPopulation, IntegerLeavesOutputAndStackAlone) {
    Stack stack;
    stack.push({{4, 5, 1}});
    Ranges out{{1, 2, 1}};
    types[scalar].populateTypeConstraints(stack, out);
    EXPECT_EQ(numbersOf(out), numbersOf({{1, 2, 1}}));
    EXPECT_EQ(numbersOf({stack.getConstraint()}), numbersOf({{4, 5, 1}}));
}

TEST_F(ConstraintPopulation, ArrayGivesItsDimensionsInOrder) {
    EXPECT_EQ(rangesOf(types.vhdlArray(scalar, {{0, 7, 1}, {3, 0, 0}})),
              numbersOf({{0, 7, 1}, {3, 0, 0}}));
}

TEST_F(ConstraintPopulation, TypedefFillsTheOpenDimensionOfItsArray) {
    EXPECT_EQ(rangesOf(types.alias(types.vhdlArray(scalar, {OPEN}), {{0, 15, 1}})),
              numbersOf({{0, 15, 1}}));
}

TEST_F(ConstraintPopulation, DiscreteEnumFillsTheOpenDimensionOfItsBaseType) {
    EXPECT_EQ(rangesOf(types.discreteEnum(types.vhdlArray(scalar, {OPEN}), {{0, 15, 1}})),
              numbersOf({{0, 15, 1}}));
}

TEST_F(ConstraintPopulation, MemberFillsTheOpenDimensionOfItsType) {
    const auto open = types.vhdlArray(scalar, {OPEN});
    const auto record = types.record(VHDL_RECORD);
    types.addMember(record, open, {{1, 2, 1}});
    types.addMember(record, open, {{3, 4, 1}});
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 2, 1}, {3, 4, 1}}));
    const auto classType = types.classType();
    types.addMember(classType, open, {{5, 6, 1}});
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
        const auto record = types.record(static_cast<RecordKind>(kind), {numbered(4)});
        EXPECT_EQ(rangesOf(record), numbersOf({{4, 0, 0}})) << std::hex << kind;
    }
}

TEST_F(ConstraintPopulation, ClassWithAHandleOfItselfEndsAndCanBeWalkedAgain) {
    const auto type = types.classType();
    types.addMember(type, type);
    types.addMember(type, numbered(1));
    EXPECT_EQ(rangesOf(type), numbersOf({{1, 0, 0}}));
    EXPECT_EQ(rangesOf(type), numbersOf({{1, 0, 0}}));
}

TEST_F(ConstraintPopulation, BaseClassComesBeforeTheMembers) {
    const auto root = types.classType({numbered(1)});
    const auto middle = types.classType({numbered(2)}, root);
    EXPECT_EQ(rangesOf(types.classType({numbered(3), numbered(4)}, middle)),
              numbersOf({{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}}));
}

TEST_F(ConstraintPopulation, ClassMetTwiceSideBySideIsWalkedBothTimes) {
    const auto part = types.classType({numbered(1), numbered(2)});
    EXPECT_EQ(rangesOf(types.classType({part, part})),
              numbersOf({{1, 0, 0}, {2, 0, 0}, {1, 0, 0}, {2, 0, 0}}));
}

TEST_F(ConstraintPopulation, MarksDoNotOutliveTheWalk) {
    // The walk of `second` meets `first` again, whose walk came before.
    const auto first = types.classType({numbered(1)});
    const auto second = types.classType({first, numbered(2)});
    types.addMember(first, second);
    EXPECT_EQ(rangesOf(first), numbersOf({{1, 0, 0}, {2, 0, 0}}));
    EXPECT_EQ(rangesOf(second), numbersOf({{1, 0, 0}, {2, 0, 0}}));
}

TEST_F(ConstraintPopulation, ContainersOfVariableSizeAreNotWalked) {
    EXPECT_TRUE(rangesOf(types.container<RTDynamicArrayType>(numbered(1))).empty());
    EXPECT_TRUE(rangesOf(types.container<RTQueueType>(numbered(1))).empty());
    EXPECT_TRUE(rangesOf(types.container<RTAssocArrayType>(numbered(1))).empty());
}

TEST_F(ConstraintPopulation, AccessAndFileTypesAreNotWalked) {
    const auto array = numbered(1);
    EXPECT_TRUE(rangesOf(types.access("", array)).empty());
    types.add<RTFileType>().m_refTypeId = array;
    EXPECT_TRUE(rangesOf(types.last()).empty());
}

TEST_F(ConstraintPopulation, ClassDerivedFromAScalarIsAskedAboveTheFramesOfTheLevelsAround) {
    const auto own = types.plain<IntWithARange>();
    const auto array = types.array(VHDL_ARRAY, own, 1, {{1, 2, 1}, {3, 4, 1}});
    EXPECT_EQ(rangesOf(types.alias(array, {{5, 6, 1}})), numbersOf({{1, 2, 1}, {3, 4, 1}}));
    EXPECT_EQ(rangesOf(types.alias(own, {{5, 6, 1}})), numbersOf({{5, 6, 1}}));
}

TEST_F(ConstraintPopulation, LevelsAroundAnOpenArrayAnswerAlsoBehindArraysWithRangesOfTheirOwn) {
    // Record, member (7, 8), typedef (5, 6), array with a range and one to spare, two open ones.
    const auto inner = types.vhdlArray(types.vhdlArray(scalar, {OPEN}), {OPEN});
    const auto outer = types.array(VHDL_ARRAY, inner, 1, {{1, 2, 1}, {3, 4, 1}});
    const auto record = types.record(VHDL_RECORD);
    types.addMember(record, types.alias(outer, {{5, 6, 1}}), {{7, 8, 1}});
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 2, 1}, {3, 4, 1}, {5, 6, 1}}));
}

TEST_F(ConstraintPopulation, FramesAroundAnAggregateAnswerForItsMembers) {
    const auto record =
        types.structure({types.vhdlArray(scalar, {OPEN}), types.vhdlArray(scalar, {OPEN})});
    const auto array = types.array(VHDL_ARRAY, record, 1, {{1, 2, 1}, {3, 4, 1}});
    EXPECT_EQ(rangesOf(types.structure({types.alias(array, {{5, 6, 1}})})),
              numbersOf({{1, 2, 1}, {3, 4, 1}, {5, 6, 1}}));
}

TEST_F(ConstraintPopulation, OpenDimensionThatNobodyFillsIsZeros) {
    EXPECT_EQ(rangesOf(types.vhdlArray(scalar, {OPEN})), numbersOf({{0, 0, 0}}));
}

TEST_F(ConstraintPopulation, OuterArraysNextEntryFillsTheInnerDimension) {
    const auto inner = types.vhdlArray(scalar, {OPEN});
    const auto outer = types.array(VHDL_ARRAY, inner, 1, {{0, 3, 1}, {0, 7, 1}});
    EXPECT_EQ(rangesOf(outer), numbersOf({{0, 3, 1}, {0, 7, 1}}));
}

TEST_F(ConstraintPopulation, NearestLevelWithBoundsAnswers) {
    const auto open = types.vhdlArray(scalar, {OPEN});
    const auto near = types.alias(open, {{1, 1, 1}});
    EXPECT_EQ(rangesOf(types.alias(near, {{2, 2, 1}})), numbersOf({{1, 1, 1}}));
    const auto passing = types.alias(open, {OPEN});
    EXPECT_EQ(rangesOf(types.alias(passing, {{2, 2, 1}})), numbersOf({{2, 2, 1}}));
}

TEST_F(ConstraintPopulation, MergedFrameOfAnArrayTakesBoundsByPosition) {
    // Without the merge, the open dimension would take the typedef's first entry.
    const auto array = types.vhdlArray(scalar, {{1, 4, 1}, OPEN});
    EXPECT_EQ(rangesOf(types.alias(array, {{1, 4, 1}, {0, 9, 1}})),
              numbersOf({{1, 4, 1}, {0, 9, 1}}));
}

TEST_F(ConstraintPopulation, DimensionsBeyondTheFrameAreMissingEntries) {
    const auto array = types.array(VHDL_ARRAY, scalar, 3, {{1, 4, 1}});
    EXPECT_EQ(rangesOf(array), numbersOf({{1, 4, 1}, {0, 0, 0}, {0, 0, 0}}));
    EXPECT_EQ(rangesOf(types.alias(array, {{5, 6, 1}})),
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
    types[types.vhdlArray(scalar, {OPEN})].populateTypeConstraints(stack, out);
    EXPECT_EQ(numbersOf(out), numbersOf({{1, 2, 1}, {5, 6, 1}}));
    EXPECT_EQ(numbersOf({stack.getConstraint(), stack.getConstraint()}),
              numbersOf({{7, 8, 1}, {0, 0, 0}}));
}

TEST_F(ConstraintPopulation, MissingTypesAreSkipped) {
    EXPECT_TRUE(rangesOf(types.alias(NO_TYPE_ID, {{0, 1, 1}})).empty());
    EXPECT_TRUE(rangesOf(types.discreteEnum(NO_TYPE_ID, {{0, 1, 1}})).empty());
    EXPECT_EQ(rangesOf(types.vhdlArray(NO_TYPE_ID, {{0, 1, 1}})), numbersOf({{0, 1, 1}}));
    EXPECT_EQ(rangesOf(types.structure({NO_TYPE_ID, numbered(1)})), numbersOf({{1, 0, 0}}));
    EXPECT_EQ(rangesOf(types.classType({NO_TYPE_ID, numbered(1)})), numbersOf({{1, 0, 0}}));
}

TEST_F(ConstraintPopulation, MissingMemberRecordIsSkipped) {
    const auto id = types.structure({numbered(1), numbered(2)});
    auto& record = types.as<RTRecordType>(id);
    delete std::exchange(record.m_members[0], nullptr); // The link to its type stays.
    Stack stack;
    Ranges out;
    record.populateTypeConstraints(stack, out);
    EXPECT_EQ(numbersOf(out), numbersOf({{2, 0, 0}}));
}

TEST_F(ConstraintPopulation, StructThatComesBackToItselfIsSkippedThere) {
    const auto record = types.structure({numbered(1)});
    types.addMember(record, record);
    types.addMember(record, numbered(2));
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 0, 0}, {2, 0, 0}}));
}

TEST_F(ConstraintPopulation, StructThatComesBackThroughOtherStructsIsSkippedThere) {
    const auto record = types.structure({numbered(1)});
    const auto middle = types.structure({types.structure({record}), numbered(2)});
    types.addMember(record, middle);
    types.addMember(record, middle);
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 0, 0}, {2, 0, 0}, {2, 0, 0}}));
}

TEST_F(ConstraintPopulation, StructIsWalkedAgainBehindAClass) {
    // record: 1, class; class: 2, record. Behind the class the record gives 1 and ends at the
    // class, which is on the path.
    const auto record = types.structure({numbered(1)});
    const auto holder = types.classType({numbered(2), record});
    types.addMember(record, holder);
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 0, 0}, {2, 0, 0}, {1, 0, 0}}));
}

TEST_F(ConstraintPopulation, StructsThatShareAPartWhichEndedAreWalkedAgainBehindAClass) {
    // The part leads back to the record and gives nothing there, through either struct. Behind the
    // class, the second struct leads through it to the record, and that gives 1.
    const auto record = types.structure({});
    const auto part = types.structure({record});
    const auto second = types.structure({part});
    types.addMember(record, types.structure({part}));
    types.addMember(record, second);
    types.addMember(record, types.classType({second}));
    types.addMember(record, numbered(1));
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 0, 0}, {1, 0, 0}}));
}

TEST_F(ConstraintPopulation, BoundedWalkGivesAllRangesWithinItsSteps) {
    // Two ranges, and the visit of the struct that gave them.
    const auto type = types.record(VHDL_RECORD, {numbered(1), numbered(2)});
    const PopulatedConstraints all = populateTypeConstraints(types[type], 3);
    EXPECT_TRUE(all.isComplete);
    EXPECT_EQ(numbersOf(all.ranges), numbersOf({{1, 0, 0}, {2, 0, 0}}));
    EXPECT_FALSE(populateTypeConstraints(types[type], 2).isComplete);
}

TEST_F(ConstraintPopulation, BoundedWalkOfALadderEndsWithTheFirstRanges) {
    unsigned int rung = numbered(1);
    for (int i = 0; i < 60; ++i) // 2^60 ranges.
        rung = types.record(VHDL_RECORD, {rung, rung});
    const PopulatedConstraints some = populateTypeConstraints(types[rung], 1000);
    EXPECT_FALSE(some.isComplete);
    EXPECT_GT(some.ranges.size(), 400u);
    EXPECT_LE(some.ranges.size(), 1000u);
    EXPECT_EQ(numbersOf({some.ranges.back()}), numbersOf({{1, 0, 0}}));
}

TEST_F(ConstraintPopulation, BoundedWalkLooksAtAMillionMembersAnd32MoreForEachStep) {
    const auto type = types.classType();
    for (int i = 0; i < (1 << 16) + 2 * 2 - 1; ++i)
        types.addMember(type, type); // It is on the path, which counts as 16.
    for (int i = 0; i < 15; ++i)
        types.addMember(type, types.integer());
    types.addMember(type, numbered(1));
    EXPECT_TRUE(populateTypeConstraints(types[type], 2).isComplete);
    types.addMember(type, types.integer());
    EXPECT_FALSE(populateTypeConstraints(types[type], 2).isComplete);
    EXPECT_TRUE(populateTypeConstraints(types[type], 3).isComplete);
    const std::size_t part = (std::numeric_limits<std::size_t>::max() >> 5) + 1;
    EXPECT_TRUE(populateTypeConstraints(types[type], part).isComplete); // 32 times that is 0.
}

TEST_F(ConstraintPopulation, BoundedWalkOfALargeStructAgainAndAgainEnds) {
    const auto large = types.structure({numbered(1)});
    for (int i = 0; i < 5000; ++i)
        types.addMember(large, types.integer());
    const auto outer = types.structure();
    for (int i = 0; i < 1000; ++i) // Each is two steps and 5001 members.
        types.addMember(outer, large);
    const PopulatedConstraints some = populateTypeConstraints(types[outer], 2000);
    EXPECT_FALSE(some.isComplete);
    EXPECT_NEAR(static_cast<double>(some.ranges.size()), ((1 << 20) + 32 * 2000) / 5001.0, 2);
}

TEST_F(ConstraintPopulation, ExceptionTakesFramesAndMarksBack) {
    auto& throwing = types.add<ThrowingType>();
    const auto base = types.classType();
    types.addMember(base, base - 1, {{8, 8, 1}});
    const auto type = types.classType({numbered(1)}, base);
    const auto record = types.structure({types.alias(type, {{9, 9, 1}})});
    Stack stack;
    stack.push({{5, 6, 1}});
    Ranges out;
    EXPECT_THROW(types[record].populateTypeConstraints(stack, out), std::runtime_error);
    EXPECT_EQ(numbersOf({stack.getConstraint(), stack.getConstraint()}),
              numbersOf({{5, 6, 1}, {0, 0, 0}}));
    throwing.m_throws = false;
    EXPECT_EQ(rangesOf(type), numbersOf({{1, 0, 0}}));
    EXPECT_EQ(rangesOf(record), numbersOf({{1, 0, 0}}));
}

} // namespace
