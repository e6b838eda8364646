// The verifier on ranges and on the length of constraint walks.

#include "tests/TypeFile/ExpectedFindings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace RTTI;
using namespace TypeFile;

TEST(SuspiciousConstraints, FewerThanDimensions) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ARRAY, "a").u32(VHDL_ARRAY).u32(0);
    file.u32(2).u32(0).u32(0).u32(1).range(0, 7, 1).i32(-99);
    expectWarning(findingsOf(file), FindingCode::CONSTRAINT_LIST_TOO_SHORT, 1, "constraintCount",
                  file.address(1) + BODY + 20);
}

TEST(SuspiciousConstraints, FewerThanTheOpenDimensionsBelowATypedef) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ARRAY, "a").u32(VHDL_ARRAY).u32(0);
    file.u32(2).u32(0).u32(0).u32(2).range(0, 0, OPEN).range(0, 0, OPEN).i32(-99);
    file.record(ClassId::TYPEDEF, "t").u32(1).u32(1).range(0, 7, 1);
    expectWarning(findingsOf(file), FindingCode::CONSTRAINT_LIST_TOO_SHORT, 2, "constraintCount",
                  file.address(2) + BODY + 4);
}

TEST(SuspiciousConstraints, FewerThanTheOpenDimensionsBelowAMember) {
    TypeFileBuilder file;
    file.integer("i");
    file.packedArray(0, OPEN);
    file.packedArray(1, OPEN);
    file.record(ClassId::RECORD, "s").u32(VHDL_RECORD).u32(1);
    file.str("m").u32(2).u32(1).range(0, 7, 1).i32(-99);
    expectWarning(findingsOf(file), FindingCode::CONSTRAINT_LIST_TOO_SHORT, 3,
                  "members[0].constraintCount", file.address(3) + BODY + 8 + 6);
}

/// Appends a typedef of an array, of whose ranges the first ones stand open.
void addTypedef(TypeFileBuilder& file, unsigned int array, unsigned int open,
                unsigned int bounded) {
    file.record(ClassId::TYPEDEF, "t").u32(array).u32(open + bounded);
    for (unsigned int i = 0; i < open + bounded; ++i)
        file.range(0, 7, i < open ? OPEN : 1);
}

void addArrayOfTenOpenDimensions(TypeFileBuilder& file) {
    file.record(ClassId::ARRAY, "a").u32(VHDL_ARRAY).u32(0).u32(10);
    for (int i = 0; i < 10; ++i)
        file.u32(0);
    file.u32(10);
    for (int i = 0; i < 10; ++i)
        file.range(0, 0, OPEN);
    file.i32(-99);
}

TEST(SuspiciousConstraints, FewerThanAListOfManyRangesLeavesOpen) {
    for (const bool isArrayLast : {false, true}) {
        TypeFileBuilder file;
        file.integer("i");
        if (!isArrayLast)
            addArrayOfTenOpenDimensions(file);
        const unsigned int array = isArrayLast ? 5 : 1;
        const unsigned int twoOpen = isArrayLast ? 1 : 2;
        addTypedef(file, array, 2, 8);
        addTypedef(file, twoOpen, 0, 2);
        addTypedef(file, twoOpen, 0, 1); // One too few.
        addTypedef(file, array, 0, 10);
        if (isArrayLast)
            addArrayOfTenOpenDimensions(file);
        else
            addTypedef(file, twoOpen + 3, 0, 1); // Nothing is left open.
        expectWarning(findingsOf(file), FindingCode::CONSTRAINT_LIST_TOO_SHORT, twoOpen + 2,
                      "constraintCount", file.address(twoOpen + 2) + BODY + 4);
    }
}

TEST(Verifier, FindsNothingWhereATypedefFillsTheOpenDimensions) {
    TypeFileBuilder file;
    file.integer("i");
    file.packedArray(0, OPEN);
    file.packedArray(1, OPEN);
    file.record(ClassId::TYPEDEF, "t").u32(2).u32(2).range(0, 7, 1).range(0, 3, 1);
    file.alias(2);
    expectClean(file);
}

/// Structs of two members of the next, `levels` deep, over an array of one dimension.
TypeFileBuilder ladder(unsigned int levels) {
    TypeFileBuilder file;
    file.integer("i");
    file.packedArray(0);
    for (unsigned int level = 0; level < levels; ++level)
        file.structure({level + 1, level + 1});
    return file;
}

/// Exactly these types are reported for their walks, and nothing else is found.
void expectLargeWalks(const TypeFileBuilder& file, const VerifyLimits& limits,
                      const std::vector<unsigned int>& types) {
    const auto findings = findingsOf(file, limits);
    ASSERT_EQ(findings.size(), types.size()) << linesOf(findings);
    for (std::size_t i = 0; i < types.size(); ++i)
        expectFinding(findings, i, FindingCode::WALK_TOO_LARGE, Severity::WARNING, types[i],
                      "record", file.address(types[i]));
}

/// The ids from `first` to `last`.
std::vector<unsigned int> idsBetween(unsigned int first, unsigned int last) {
    std::vector<unsigned int> ids;
    for (unsigned int id = first; id <= last; ++id)
        ids.push_back(id);
    return ids;
}

VerifyLimits walkLimit(unsigned int steps) {
    VerifyLimits limits;
    limits.maxWalkSteps = steps;
    return limits;
}

TEST(LargeWalk, LadderOfStructs) {
    // The array gives one range; a struct takes two times what is below it, and itself: 3, 7, 15,
    // ... 2^(k + 1) - 1 for the k-th, which is type k + 1.
    expectLargeWalks(ladder(12), walkLimit(2047), {12, 13});
    expectLargeWalks(ladder(12), walkLimit(2046), {11, 12, 13});
    expectLargeWalks(ladder(40), {}, idsBetween(29, 41));
}

TEST(LargeWalk, LadderOfClasses) {
    TypeFileBuilder file;
    file.integer("i");
    file.packedArray(0);
    for (unsigned int level = 0; level < 40; ++level)
        file.classType(NO_BASE, {level + 1, level + 1});
    expectLargeWalks(file, {}, idsBetween(29, 41));
}

TEST(LargeWalk, OfTypesThatStandBeforeTheirParts) {
    TypeFileBuilder file;
    for (unsigned int id = 0; id < 30; ++id)
        file.structure({id + 1, id + 1});
    file.packedArray(31).integer("i"); // Type 29 takes 3 steps, type 0 takes 2^31 - 1.
    expectLargeWalks(file, {}, {0, 1, 2});
}

TEST(LargeWalk, OfAnArrayIsItsDimensions) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ARRAY, "a").u32(VHDL_ARRAY).u32(0);
    file.u32(3).u32(0).u32(0).u32(0).u32(3).range(0, 1, 1).range(0, 1, 1).range(0, 1, 1).i32(-99);
    expectLargeWalks(file, walkLimit(3), {});
    expectLargeWalks(file, walkLimit(2), {1});
}

TEST(Verifier, FindsNothingInARowOfClassesThatAlsoLeadBack) {
    // There are more than 2^40 paths, and nearly all of them give nothing.
    TypeFileBuilder file;
    file.integer("i");
    file.packedArray(0);
    for (unsigned int id = 2; id < 42; ++id) {
        const unsigned int next = std::min(id + 1, 41U);
        file.classType(NO_BASE, {id == 2 ? 1 : id - 1, next, next});
    }
    expectClean(file);
}

TEST(Verifier, FindsNothingInALongRingOfClasses) {
    constexpr unsigned int CLASSES = 8000;
    TypeFileBuilder file;
    file.integer("i");
    file.packedArray(0);
    for (unsigned int i = 0; i < CLASSES; ++i)
        file.classType(NO_BASE, {1, 2 + (i + 1) % CLASSES});
    VerifyLimits limits;
    limits.maxCountingSteps = 0; // It can be told without counting.
    expectLargeWalks(file, limits, {});
}

/// Classes that all have members of all of them, and of type 1, an array.
TypeFileBuilder clique(unsigned int classes, bool givesRanges = true) {
    TypeFileBuilder file;
    file.integer("i");
    file.packedArray(0);
    std::vector<unsigned int> members{givesRanges ? 1u : 0u};
    for (unsigned int id = 2; id < 2 + classes; ++id)
        members.push_back(id);
    for (unsigned int id = 2; id < 2 + classes; ++id)
        file.classType(NO_BASE, members);
    return file;
}

TEST(LargeWalk, IsNotCountedToTheEndAmongManyClasses) {
    expectClean(clique(5));
    VerifyLimits limits;
    limits.maxCountingSteps = 100000;
    const TypeFileBuilder file = clique(30);
    expectWarning(findingsOf(file, limits), FindingCode::WALKS_NOT_COUNTED, FILE_LEVEL,
                  "addressTable", file.tableOffset());
}

TEST(LargeWalk, ThroughTwoClassesIsCountedExactly) {
    // From either: the array, the other class with its array, and the two visits.
    expectLargeWalks(clique(2), walkLimit(4), {});
    expectLargeWalks(clique(2), walkLimit(3), {2, 3});
}

TEST(LargeWalk, ThroughManyHandlesIsCountedExactly) {
    // 100 visits of type 3, each of which gives the array, and the array and the visit of type 2.
    TypeFileBuilder file;
    file.integer("i");
    file.packedArray(0);
    std::vector<unsigned int> members(100, 3);
    members.push_back(1);
    file.classType(NO_BASE, members);
    file.classType(NO_BASE, {1, 2});
    expectLargeWalks(file, walkLimit(202), {});
    expectLargeWalks(file, walkLimit(201), {2});
}

TEST(LargeWalk, IsCountedInAsManyStepsAsAreAllowed) {
    // From either class: two edges of each of them, and the two ends.
    VerifyLimits limits = walkLimit(3);
    limits.maxCountingSteps = 12;
    expectLargeWalks(clique(2), limits, {2, 3});
    limits.maxCountingSteps = 11;
    const TypeFileBuilder file = clique(2);
    expectFinding(findingsOf(file, limits), 0, FindingCode::WALKS_NOT_COUNTED, Severity::WARNING,
                  FILE_LEVEL, "addressTable", file.tableOffset());
}

/// Type 2 is a class of an array and two handles to type 3, a class of the array and a handle back;
/// type 4 holds ten handles to type 2.
TypeFileBuilder tenTimesTwoClasses() {
    TypeFileBuilder file;
    file.integer("i");
    file.packedArray(0);
    file.classType(NO_BASE, {1, 3, 3});
    file.classType(NO_BASE, {1, 2});
    return file.structure(std::vector<unsigned int>(10, 2));
}

TEST(LargeWalk, CountsEveryHandleToTheSameClass) {
    // Type 2: 1 + 2 * 2 + 1. Type 3: 1 + 2 + 1. Type 4: 10 * 6 + 1.
    expectLargeWalks(tenTimesTwoClasses(), walkLimit(6), {4});
    expectLargeWalks(tenTimesTwoClasses(), walkLimit(5), {2, 4});
    expectLargeWalks(tenTimesTwoClasses(), walkLimit(3), {2, 3, 4});
}

TEST(LargeWalk, IsCountedExactlyWhereTheBoundOfAPartWouldPassTheLimit) {
    expectLargeWalks(tenTimesTwoClasses(), walkLimit(61), {});
    expectLargeWalks(tenTimesTwoClasses(), walkLimit(60), {4});
}

TEST(Verifier, FindsNothingWhereManyClassesGiveNoRange) { expectClean(clique(8, false)); }

TEST(Verifier, ReadsNeighbouringRecordsTogether) {
    const TypeFileBuilder file = ladder(20);
    const std::string image = file.image();
    RecordingBlockManager storage(image);
    verify(storage, image.size(), 0);
    EXPECT_LE(storage.takeReads().size(), 5u);
}

} // namespace
