// Records, structs and unions, and the names of their kinds.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(RecordRecords, WithoutMembersGoStraightToTheSVTypeId) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000011, "r").u32(0xB0003).i32(0).i32(8));
    EXPECT_THAT(types.as<RTRecordType>(0).m_members, IsEmpty());
    EXPECT_EQ(types[0]->getSVTypeId(), 8);
}

TEST(RecordRecords, NegativeMemberCountIsNone) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000011, "r").u32(0xB0003).i32(-1).i32(8));
    EXPECT_THAT(types.as<RTRecordType>(0).m_members, IsEmpty());
    EXPECT_EQ(types[0]->getSVTypeId(), 8);
}

TEST(RecordRecords, EmptyBodyHasNoKindAndNoSVTypeId) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000011, "r"));
    EXPECT_EQ(static_cast<unsigned int>(types.as<RTRecordType>(0).m_recordKind), 0u);
    EXPECT_EQ(types[0]->getSVTypeId(), -99);
}

TEST(RecordRecords, MembersOfOneNameAreBothKeptInOrder) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0001).i32(2).str("m").u32(1).u32(0).str("m").u32(2).u32(0);
    LoadedTypes types(file.i32(-99).string("s").integer("i"));
    const auto& type = types.as<RTRecordType>(0);
    EXPECT_STREQ(type.m_members[0]->m_memberName, "m");
    EXPECT_STREQ(type.m_members[1]->m_memberName, "m");
    EXPECT_THAT(type.m_memberTypes, ElementsAre(types[1], types[2]));
}

TEST(RecordRecords, EmptyMemberNameTakesOneByte) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0001).i32(1).str("").u32(1).u32(0).i32(3).string("s");
    LoadedTypes types(file);
    EXPECT_STREQ(types.as<RTRecordType>(0).m_members[0]->m_memberName, "");
    EXPECT_EQ(types.as<RTRecordType>(0).m_members[0]->m_typeId, 1u);
    EXPECT_EQ(types[0]->getSVTypeId(), 3);
}

TEST(RecordRecords, MembersPastTheEndAreThereWithDefaults) {
    LoadedTypes types(TypeFileBuilder{}.string("s").record(0xA0000011, "r").u32(0xB0001).i32(3));
    const auto& type = types.as<RTRecordType>(1);
    ASSERT_EQ(type.m_members.size(), 3u);
    EXPECT_STREQ(type.m_members[2]->m_memberName, "");
    EXPECT_EQ(type.m_members[2]->m_typeId, 0u);
    EXPECT_THAT(type.m_members[2]->m_constraints, IsEmpty());
    EXPECT_THAT(type.m_memberTypes, ElementsAre(types[0], types[0], types[0]));
}

TEST(RecordRecords, KindsAreKeptWithinAndOutsideTheirTable) {
    TypeFileBuilder file;
    file.record(0xA0000011, "8").u32(0xB0008).record(0xA0000011, "9").u32(0xB0009);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTRecordType>(0).m_recordKind, BYTE_UNPADDED_STRUCT);
    EXPECT_EQ(static_cast<unsigned int>(types.as<RTRecordType>(1).m_recordKind), 0xB0009u);
}

TEST(RecordRecords, MemberWhoseTypeBuildsNothingHasNoType) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0001).i32(2).str("a").u32(1).u32(0).str("b").u32(77).u32(0);
    LoadedTypes types(file.i32(-99).record(0xA000000F, "bit"), false);
    EXPECT_THAT(static_cast<RTRecordType*>(types[0])->m_memberTypes, ElementsAre(nullptr, nullptr));
}

TEST(RecordRecords, StructThatReachesItselfIsLinkedToItself) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0002).i32(1).str("m").u32(0).u32(0).i32(-99);
    LoadedTypes types(file);
    EXPECT_THAT(types.as<RTRecordType>(0).m_memberTypes, ElementsAre(types[0]));
    EXPECT_EQ(types.storage().takeReads().size(), 3u);
}

TEST(RecordRecords, KindIsTracedByNameAndKeptAsItIs) {
    const char* names[] = {"RECORD_KIND_INVALID",        "VHDL_RECORD",
                           "VLOG_UNPACKED_STRUCT",       "VLOG_PACKED_STRUCT",
                           "VLOG_PACKED_TAGGED_UNION",   "VLOG_UNPACKED_TAGGED_UNION",
                           "VLOG_PACKED_UNTAGGED_UNION", "VLOG_UNPACKED_UNTAGGED_UNION",
                           "BYTE_UNPADDED_STRUCT",       "RECORD_KIND_UNKNOWN"};
    for (unsigned int i = 0; i < std::size(names); ++i) {
        TypeFileBuilder file;
        file.record(0xA0000011, "r").u32(0xB0000 + i);
        const std::string trace = LoadedTypes(file, false).trace();
        EXPECT_NE(trace.find(std::string("** Record Kind =  ") + names[i] + "  **  \n"),
                  std::string::npos);
        LoadedTypes types(file);
        EXPECT_EQ(static_cast<unsigned int>(types.as<RTRecordType>(0).m_recordKind), 0xB0000 + i);
    }
}

TEST(RecordRecords, MissingKindIsTracedAsUnknown) {
    const std::string trace = LoadedTypes(TypeFileBuilder{}.record(0xA0000011, "r"), false).trace();
    EXPECT_NE(trace.find("** Record Kind =  RECORD_KIND_UNKNOWN  **  \n"), std::string::npos);
    EXPECT_EQ(trace.find("Struct with SV Type Id"), std::string::npos);
}

TEST(RecordRecords, NegativeSVTypeIdIsTracedWithItsSign) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0002).i32(0).i32(-98);
    EXPECT_NE(LoadedTypes(file, false).trace().find("** Struct with SV Type Id =  -98  **  \n"),
              std::string::npos);
}

TEST(RecordRecords, CutInTheirSVTypeIdHaveNone) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0002).i32(0).bytes("\1\1\1");
    EXPECT_EQ(LoadedTypes(file)[0]->getSVTypeId(), -99);
}

TEST(RecordRecords, MemberNameWithoutItsZeroByteEndsWithTheRecord) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000011, "r").u32(0xB0002).i32(1).bytes("mem");
    LoadedTypes types(file);
    const auto& type = types.as<RTRecordType>(1);
    ASSERT_EQ(type.m_members.size(), 1u);
    EXPECT_STREQ(type.m_members[0]->m_memberName, "mem");
    EXPECT_EQ(type.m_members[0]->m_typeId, 0u);
    EXPECT_THAT(type.m_memberTypes, ElementsAre(types[0]));
}

TEST(RecordRecords, MemberCutInItsConstraintsHasThemAllWithZeros) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000011, "r").u32(0xB0002).i32(1).str("m").u32(0).u32(2).i32(9);
    LoadedTypes types(file);
    EXPECT_THAT(numbersOf(types.as<RTRecordType>(1).m_members[0]->m_constraints),
                ElementsAre(ElementsAre(9, 0, 0), ElementsAre(0, 0, 0)));
    EXPECT_EQ(types[1]->getSVTypeId(), -99);
}

TEST(RecordRecords, MembersAreReadAfterTheStructsOwnFieldsAreTraced) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0002).i32(2).str("a").u32(1).u32(0).str("b").u32(1).u32(0);
    file.i32(3).integer("i");
    const std::string trace = LoadedTypes(file, false).trace();
    EXPECT_LT(trace.find("** Struct with SV Type Id =  3"), trace.find("Built in Int Type"));
}

TEST(RecordRecords, MembersOfOneTypeShareItsObject) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0002).i32(2).str("a").u32(1).u32(0).str("b").u32(1).u32(0);
    LoadedTypes types(file.i32(-99).integer("i"));
    EXPECT_THAT(types.as<RTRecordType>(0).m_memberTypes, ElementsAre(types[1], types[1]));
    EXPECT_EQ(types.storage().takeReads().size(), 6u);
}

TEST(RecordRecords, ThatReachEachOtherAreOneObjectEach) {
    TypeFileBuilder file;
    file.record(0xA0000011, "a").u32(0xB0002).i32(1).str("b").u32(1).u32(0).i32(-99);
    file.record(0xA0000011, "b").u32(0xB0002).i32(1).str("a").u32(0).u32(0).i32(-99);
    LoadedTypes types(file);
    EXPECT_THAT(types.as<RTRecordType>(0).m_memberTypes, ElementsAre(types[1]));
    EXPECT_THAT(types.as<RTRecordType>(1).m_memberTypes, ElementsAre(types[0]));
    EXPECT_EQ(types.storage().takeReads().size(), 6u);
}

TEST(RecordRecords, AreNotListedAsClasses) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000011, "r").u32(0xB0002).i32(0).i32(1));
    EXPECT_THAT(types.manager().getRTClassTypeIds(), IsEmpty());
}

} // namespace
