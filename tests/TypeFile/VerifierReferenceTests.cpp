// The verifier on references between types: where they lead, and whether they end.

#include "tests/TypeFile/ExpectedFindings.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace RTTI;
using namespace TypeFile;

TEST(Verifier, FindsNothingWhereAnAccessTypeLeadsBackToItself) {
    TypeFileBuilder file;
    file.record(ClassId::ACCESS, "p").u32(1).u32(8).u32(8);
    file.structure({0});
    expectClean(file);
}

TEST(Verifier, FindsNothingWhereAClassHasAMemberOfItsTypedef) {
    TypeFileBuilder file;
    file.alias(1);
    file.classType(NO_BASE, {0, 1});
    expectClean(file);
}

TEST(Verifier, FindsNothingWhereAStructHoldsAQueueOfItself) {
    TypeFileBuilder file;
    file.structure({1});
    file.record(ClassId::QUEUE, "q").u32(0).i32(5);
    // The queue is read while nothing is in the table but the struct.
    expectClean(file);
}

TEST(InvalidReference, TypedefOfAnIdOutsideTheTable) {
    TypeFileBuilder file;
    file.alias(1);
    expectError(findingsOf(file), FindingCode::TYPE_ID_OUTSIDE_TABLE, 0, "dataType", 40 + BODY);
}

TEST(InvalidReference, AssocArrayIndexOutsideTheTable) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ASSOC_ARRAY, "k").u32(0).i32(1).u32(2);
    expectError(findingsOf(file), FindingCode::TYPE_ID_OUTSIDE_TABLE, 1, "indexType",
                file.address(1) + BODY + 8);
}

TEST(InvalidReference, MemberOfAnIdOutsideTheTable) {
    TypeFileBuilder file;
    file.integer("i");
    file.structure({0, 2});
    expectError(findingsOf(file), FindingCode::TYPE_ID_OUTSIDE_TABLE, 1, "members[1].type",
                file.address(1) + BODY + 8 + 10 + 2);
}

TEST(InvalidReference, LastOfMoreMembersThanAreKept) {
    constexpr unsigned int MEMBERS = 3000;
    TypeFileBuilder file;
    file.record(0xA0000011, "s").u32(VLOG_UNPACKED_STRUCT).i32(MEMBERS);
    for (unsigned int i = 1; i < MEMBERS; ++i)
        file.str("m").u32(1).u32(0); // Of the integer, which comes behind the struct.
    file.str("m").u32(7).u32(0).i32(-99).integer("i");
    expectError(findingsOf(file), FindingCode::TYPE_ID_OUTSIDE_TABLE, 0, "members[2999].type",
                file.address(0) + BODY + 8 + (MEMBERS - 1) * 10 + 2);
}

TEST(InvalidReference, ClassMemberWithoutAType) {
    TypeFileBuilder file;
    file.classType(NO_BASE, {0, NO_BASE});
    expectError(findingsOf(file), FindingCode::TYPE_ID_OUTSIDE_TABLE, 0, "members[1].type",
                40 + BODY + 12 + 14 + 2);
}

TEST(SuspiciousReference, IndexTypeOutsideTheTable) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ARRAY, "a").u32(VHDL_ARRAY).u32(0);
    file.u32(2).u32(NO_BASE).u32(0xFFFFFFFE).u32(2).range(0, 1, 1).range(0, 1, 1).i32(-99);
    const std::string text =
        expectWarning(findingsOf(file), FindingCode::INDEX_TYPE_ID_OUTSIDE_TABLE, 1,
                      "indexTypes[1]", file.address(1) + BODY + 16);
    EXPECT_EQ(text, "Found 4294967294, expected the id of a type of this file.");
}

TEST(InvalidReference, ToAKindThatBuildsNoType) {
    TypeFileBuilder file;
    file.record(ClassId::LOGIC, "l");
    file.alias(0);
    file.structure({0});
    const auto findings = findingsOf(file);
    ASSERT_EQ(findings.size(), 3u) << linesOf(findings);
    expectFinding(findings, 0, FindingCode::KIND_WITHOUT_TYPE, Severity::ERROR, 0, "kind", 44);
    expectFinding(findings, 1, FindingCode::LINK_TO_NO_TYPE, Severity::ERROR, 1, "dataType",
                  file.address(1) + BODY);
    expectFinding(findings, 2, FindingCode::LINK_TO_NO_TYPE, Severity::ERROR, 2, "members[0].type",
                  file.address(2) + BODY + 8 + 2);
}

TEST(SuspiciousReference, BaseThatIsNoClass) {
    TypeFileBuilder file;
    file.integer("i");
    file.classType(0, {});
    expectWarning(findingsOf(file), FindingCode::BASE_IS_NO_CLASS, 1, "baseClass",
                  file.address(1) + BODY);
}

TEST(InvalidReference, TypedefOfItself) {
    TypeFileBuilder file;
    file.alias(0);
    expectError(findingsOf(file), FindingCode::REFERENCE_ENDLESS, 0, "dataType", 40 + BODY);
}

TEST(InvalidReference, ArrayOfATypedefOfTheArray) {
    TypeFileBuilder file;
    file.packedArray(1);
    file.alias(0);
    expectError(findingsOf(file), FindingCode::REFERENCE_ENDLESS, 1, "dataType",
                file.address(1) + BODY);
}

TEST(InvalidReference, DiscreteEnumBasedOnItself) {
    TypeFileBuilder file;
    file.record(ClassId::DISCRETE_ENUM, "d").u32(0).i32(0).i32(1).u32(0);
    expectError(findingsOf(file), FindingCode::REFERENCE_ENDLESS, 0, "baseType", 40 + BODY);
}

TEST(InvalidReference, FileOfQueuesOfTheFile) {
    TypeFileBuilder file;
    file.record(ClassId::FILE_TYPE, "x").u32(1).u32(4).u32(4);
    file.record(ClassId::QUEUE, "q").u32(0).i32(1);
    expectError(findingsOf(file), FindingCode::REFERENCE_ENDLESS, 1, "elementType",
                file.address(1) + BODY);
}

TEST(InvalidReference, AssocArrayIndexedByItself) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ASSOC_ARRAY, "k").u32(0).i32(1).u32(1);
    expectError(findingsOf(file), FindingCode::REFERENCE_ENDLESS, 1, "indexType",
                file.address(1) + BODY + 8);
}

TEST(InvalidReference, ClassThatIsItsOwnAncestor) {
    TypeFileBuilder file;
    file.classType(1, {});
    file.classType(0, {});
    expectError(findingsOf(file), FindingCode::REFERENCE_ENDLESS, 1, "baseClass",
                file.address(1) + BODY);
}

/// Classes that are each derived from the next one and have a member of the first.
TypeFileBuilder lineage(unsigned int classes) {
    TypeFileBuilder file;
    for (unsigned int id = 0; id < classes; ++id)
        file.classType(id + 1 < classes ? id + 1 : NO_BASE, {0});
    return file;
}

TEST(SuspiciousReference, RecordThatIsOpenedMoreThanSixteenTimes) {
    // The first class is opened by itself, and again by the members of each class below it.
    expectClean(lineage(16));
    const TypeFileBuilder file = lineage(17);
    expectWarning(findingsOf(file), FindingCode::RECORD_REOPENED, 0, "baseClass", 40 + BODY);
}

TEST(SuspiciousReference, IsSaidOnceOfAGroup) {
    const TypeFileBuilder file = lineage(40); // From the twenty-fourth on there are seventeen.
    expectWarning(findingsOf(file), FindingCode::RECORD_REOPENED, 23, "baseClass",
                  file.address(23) + BODY);
}

TEST(Verifier, FindsNothingInAChainThatDoesNotLeadBack) {
    TypeFileBuilder file;
    for (unsigned int id = 0; id < 40; ++id)
        file.classType(id < 39 ? id + 1 : NO_BASE, {id});
    expectClean(file); // Each class leads back to itself alone.
}

TEST(Verifier, FindsNothingInAChainOfTypedefsToAClassThatLeadsBack) {
    TypeFileBuilder file;
    for (unsigned int id = 0; id < 40; ++id)
        file.alias(id + 1);
    expectClean(file.classType(NO_BASE, {0})); // Once the class is there, it stays.
}

TEST(InvalidReference, ChainOfAMillionTypedefs) {
    constexpr unsigned int LAST = 999999;
    TypeFileBuilder file;
    for (unsigned int id = 0; id < LAST; ++id)
        file.alias(id + 1);
    file.alias(LAST);
    expectError(findingsOf(file), FindingCode::REFERENCE_ENDLESS, LAST, "dataType",
                file.address(LAST) + BODY);
}

TEST(InvalidStruct, ContainsItself) {
    TypeFileBuilder file;
    file.integer("i");
    file.structure({0, 1});
    expectError(findingsOf(file), FindingCode::STRUCT_CONTAINS_ITSELF, 1, "members[1].type",
                file.address(1) + BODY + 8 + 10 + 2);
}

TEST(InvalidStruct, ContainsItselfThroughATypedefAndAnArray) {
    TypeFileBuilder file;
    file.structure({1});
    file.alias(2);
    file.packedArray(0);
    expectError(findingsOf(file), FindingCode::STRUCT_CONTAINS_ITSELF, 2, "elementType",
                file.address(2) + BODY + 4);
}

TEST(InvalidStruct, FromATypedefOnward) {
    TypeFileBuilder file;
    file.alias(1);
    file.structure({0});
    expectError(findingsOf(file), FindingCode::STRUCT_CONTAINS_ITSELF, 1, "members[0].type",
                file.address(1) + BODY + 8 + 2);
}

TEST(Verifier, FindsNothingWhereAClassHandleLeadsBackToAStruct) {
    TypeFileBuilder file;
    file.structure({1});
    file.classType(NO_BASE, {0, 1});
    expectClean(file);
}

TEST(InvalidReference, OfEveryTypeThatSharesARecord) {
    TypeFileBuilder file;
    file.alias(7);
    file.alias(7);
    std::string image = file.image();
    patch(image, file.tableOffset() + 8, 40);
    const auto findings = findingsOf(image);
    ASSERT_EQ(findings.size(), 3u) << linesOf(findings);
    expectFinding(findings, 0, FindingCode::TYPE_ID_OUTSIDE_TABLE, Severity::ERROR, 0, "dataType",
                  40 + BODY);
    expectFinding(findings, 1, FindingCode::TYPE_ID_OUTSIDE_TABLE, Severity::ERROR, 1, "dataType",
                  40 + BODY);
    expectFinding(findings, 2, FindingCode::RECORD_SHARED, Severity::WARNING, 1, "address",
                  file.tableOffset() + 8);
}

} // namespace
