// Ranges, alone and in counted lists.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ConstraintRecords, ShortCountGivesAnEmptyListAndGoesOnFourBytes) {
    TypeFileBuilder file;
    file.record(0xA0000007, "t").u32(1).u32(1).cut(8 + 2 + 4 + 4 + 2).string("s");
    EXPECT_THAT(LoadedTypes(file).as<RTTypedefType>(0).m_constraints, IsEmpty());
}

TEST(ConstraintRecords, EntriesPastTheEndAreZero) {
    TypeFileBuilder file;
    file.record(0xA0000007, "t").u32(1).u32(2).range(4, 5, 6).string("s");
    LoadedTypes types(file);
    EXPECT_THAT(numbersOf(types.as<RTTypedefType>(0).m_constraints),
                ElementsAre(ElementsAre(4, 5, 6), ElementsAre(0, 0, 0)));
}

TEST(ConstraintRecords, CountOfZeroGivesAnEmptyList) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000007, "t").u32(1).u32(0).string("s"));
    EXPECT_THAT(types.as<RTTypedefType>(0).m_constraints, IsEmpty());
}

TEST(ConstraintRecords, WholeIndexRangeReadsBackUnchanged) {
    const int lowest = std::numeric_limits<int>::min();
    const int highest = std::numeric_limits<int>::max();
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000005, "i").range(lowest, highest, 1));
    EXPECT_EQ(types.as<RTIntType>(0).m_constraint.si, lowest);
    EXPECT_EQ(types.as<RTIntType>(0).m_constraint.ei, highest);
    EXPECT_EQ(types.as<RTIntType>(0).m_constraint.dir, 1);
}

TEST(ConstraintRecords, EachMemberHasItsOwnList) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0001).i32(2);
    file.str("five").u32(1).u32(5);
    for (int i = 0; i < 5; ++i)
        file.range(i, i, 0);
    file.str("three").u32(1).u32(3).range(7, 6, 0).range(5, 4, 0).range(3, 2, 0).i32(-99);
    file.string("s");
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTRecordType>(0).m_members[0]->m_constraints.size(), 5u);
    EXPECT_THAT(numbersOf(types.as<RTRecordType>(0).m_members[1]->m_constraints),
                ElementsAre(ElementsAre(7, 6, 0), ElementsAre(5, 4, 0), ElementsAre(3, 2, 0)));
}

using namespace RTTI;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t INT_BODY = 8 + 2 + 4; // Size and kind, the name "i", the flags.

std::vector<int> integerRange(std::size_t bodyBytes) {
    TypeFileBuilder file;
    file.record(0xA0000005, "i").range(0x01020304, -2, -1).cut(INT_BODY + bodyBytes);
    LoadedTypes types(file);
    return numbersOf({types.as<RTIntType>(0).m_constraint}).front();
}

TEST(ConstraintFields, AreReadOnlyWhereAllFourBytesAreInTheRecord) {
    EXPECT_THAT(integerRange(0), ElementsAre(0, 0, 0));
    EXPECT_THAT(integerRange(3), ElementsAre(0, 0, 0));
    EXPECT_THAT(integerRange(4), ElementsAre(0x01020304, 0, 0));
    EXPECT_THAT(integerRange(7), ElementsAre(0x01020304, 0, 0));
    EXPECT_THAT(integerRange(8), ElementsAre(0x01020304, -2, 0));
    EXPECT_THAT(integerRange(11), ElementsAre(0x01020304, -2, 0));
    EXPECT_THAT(integerRange(12), ElementsAre(0x01020304, -2, -1));
}

TEST(ConstraintFields, AreTracedWithTheirSign) {
    TypeFileBuilder file;
    file.record(0xA0000005, "i").range(-2147483647 - 1, 2147483647, 1);
    EXPECT_NE(LoadedTypes(file, false)
                  .trace()
                  .find("** constraints : si= -2147483648  , ei= 2147483647  , dir= 1  \n"),
              std::string::npos);
}

TEST(ConstraintLists, ShortCountLeavesNothingForTheFieldsBehindIt) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000010, "a").u32(0xA00002).u32(0).i32(0).bytes("\x05\x05");
    LoadedTypes types(file); // Two bytes of the count are there; the SV type id is four bytes on.
    EXPECT_THAT(types.as<RTArrayType>(1).m_constraints, IsEmpty());
    EXPECT_EQ(types[1]->getSVTypeId(), -99);
}

TEST(ConstraintLists, EntryCutInItsMiddleKeepsTheFieldsBeforeTheCut) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000007, "t").u32(0).u32(2).range(1, 2, 3).i32(4).bytes("\x05\x06");
    LoadedTypes types(file);
    EXPECT_THAT(numbersOf(types.as<RTTypedefType>(1).m_constraints),
                ElementsAre(ElementsAre(1, 2, 3), ElementsAre(4, 0, 0)));
}

TEST(ConstraintLists, EntriesBehindTheCountAreNotRead) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000007, "t").u32(0).u32(1).range(1, 2, 3).range(4, 5, 6);
    EXPECT_THAT(numbersOf(LoadedTypes(file).as<RTTypedefType>(1).m_constraints),
                ElementsAre(ElementsAre(1, 2, 3)));
}

TEST(ConstraintLists, FieldBehindAListBeginsRightAfterIt) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000010, "a").u32(0xA00002).u32(0).i32(0);
    file.u32(2).range(1, 2, 0).range(3, 4, 1).i32(77);
    EXPECT_EQ(LoadedTypes(file)[1]->getSVTypeId(), 77);
}

TEST(ConstraintLists, OfOneMemberDoNotReachTheNextMember) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000017, "c").u32(0xFFFFFFFF).i32(0).i32(2);
    file.str("five").u32(0).u32(5);
    for (int i = 0; i < 5; ++i)
        file.range(i, i, 1);
    file.u32(0).str("none").u32(0).u32(0).u32(1);
    LoadedTypes types(file);
    const auto& members = types.as<RTClassType>(1).m_members;
    EXPECT_EQ(members[0]->m_constraints.size(), 5u);
    EXPECT_THAT(members[1]->m_constraints, IsEmpty());
}

TEST(ConstraintLists, EveryEntryIsTracedOnALineWithItsIndex) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000007, "t").u32(0).u32(2).range(7, 0, 0);
    const std::string trace = LoadedTypes(file, false).trace();
    EXPECT_NE(trace.find(" ++  constraint[  0 ] ** constraints : si= 7  , ei= 0  , dir= 0  \n"
                         " ++  constraint[  1 ] ** constraints : si= 0  , ei= 0  , dir= 0  \n"),
              std::string::npos)
        << trace;
}

} // namespace
