// Records, structs, unions and classes.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

TEST(ClassRecords, WithoutABaseClassResolveNone) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000017, "c").u32(0xFFFFFFFF).i32(12).i32(0));
    const auto& type = types.as<RTClassType>(0);
    EXPECT_EQ(type.m_baseClass, nullptr);
    EXPECT_EQ(type.m_baseClassTypeId, 0xFFFFFFFFu);
    EXPECT_EQ(type.getSVTypeId(), 12);
    EXPECT_THAT(type.m_members, IsEmpty());
}

TEST(ClassRecords, ReadTheirBaseClassFirst) {
    TypeFileBuilder file;
    file.record(0xA0000017, "derived").u32(1).i32(1).i32(0);
    file.record(0xA0000017, "base").u32(0xFFFFFFFF).i32(2).i32(0);
    LoadedTypes types(file, false);
    types[0];
    EXPECT_EQ(types.storage().takeReads().size(), 6u);
    EXPECT_EQ(types.as<RTClassType>(0).m_baseClass, types[1]);
    EXPECT_TRUE(types.storage().takeReads().empty());
    EXPECT_THAT(types.manager().getRTClassTypeIds(), ElementsAre(1u, 0u));
}

TEST(ClassRecords, CutBeforeTheBaseClassDeriveFromTypeZero) {
    LoadedTypes types(TypeFileBuilder{}.string("s").record(0xA0000017, "c"));
    EXPECT_EQ(types.as<RTClassType>(1).m_baseClassTypeId, 0u);
    EXPECT_EQ(types.as<RTClassType>(1).m_baseClass, types[0]);
    EXPECT_EQ(types[1]->getSVTypeId(), 0);
}

TEST(ClassRecords, MemberFlagIsTrueForAnyWordButZero) {
    TypeFileBuilder file;
    file.record(0xA0000017, "c").u32(0xFFFFFFFF).i32(0).i32(2);
    file.str("a").u32(0).u32(0).u32(7).str("b").u32(0).u32(0).u32(0);
    LoadedTypes types(file);
    const auto flag = [&](std::size_t i) {
        return dynamic_cast<RTClassType::t_ClassMember&>(*types.as<RTClassType>(0).m_members[i])
            .m_memberFlag;
    };
    EXPECT_TRUE(flag(0));
    EXPECT_FALSE(flag(1));
}

TEST(ClassRecords, NegativeMemberCountReadsNothingMore) {
    TypeFileBuilder file;
    file.record(0xA0000017, "c").u32(0xFFFFFFFF).i32(4).i32(-3).str("m").u32(0).u32(0).u32(1);
    LoadedTypes types(file);
    EXPECT_THAT(types.as<RTClassType>(0).m_members, IsEmpty());
}

TEST(ClassRecords, DerivedClassesShareTheirBaseClass) {
    TypeFileBuilder file;
    file.record(0xA0000017, "a").u32(2).i32(0).i32(0).record(0xA0000017, "b").u32(2).i32(0).i32(0);
    file.record(0xA0000017, "base").u32(0xFFFFFFFF).i32(0).i32(0);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTClassType>(0).m_baseClass, types[2]);
    EXPECT_EQ(types.as<RTClassType>(1).m_baseClass, types[2]);
}

TEST(ClassRecords, ClassReadThroughAMemberIsListedAfterItsUser) {
    TypeFileBuilder file;
    file.record(0xA0000017, "user").u32(0xFFFFFFFF).i32(0).i32(1).str("m").u32(1).u32(0).u32(0);
    file.record(0xA0000017, "used").u32(0xFFFFFFFF).i32(0).i32(0);
    LoadedTypes types(file);
    EXPECT_THAT(types.manager().getRTClassTypeIds(), ElementsAre(0u, 1u));
}

TEST(ClassRecords, ClassMayHaveAMemberOfItself) {
    TypeFileBuilder file;
    file.record(0xA0000017, "c").u32(0xFFFFFFFF).i32(0).i32(1).str("me").u32(0).u32(0).u32(0);
    LoadedTypes types(file);
    EXPECT_THAT(types.as<RTClassType>(0).m_memberTypes, ElementsAre(types[0]));
}

} // namespace
