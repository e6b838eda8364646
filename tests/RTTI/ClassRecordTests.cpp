// Classes: their base, their members, and the list of them.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using testing::IsEmpty;

const RTClassType::t_ClassMember& member(LoadedTypes& types, unsigned int id, std::size_t index) {
    const auto* found =
        dynamic_cast<const RTClassType::t_ClassMember*>(types.as<RTClassType>(id).m_members[index]);
    if (found == nullptr)
        throw std::logic_error("not a class member");
    return *found;
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

TEST(ClassRecords, CutBeforeTheSVTypeIdHaveZeroAndTraceIt) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000017, "c").u32(0xFFFFFFFF), false);
    EXPECT_NE(types.trace().find("** Class with SV Type Id =  0  **  \n"
                                 "** Class derived from  4294967295  **  \n"),
              std::string::npos);
    EXPECT_EQ(types[0]->getSVTypeId(), 0);
}

TEST(ClassRecords, TraceTheSVTypeIdOfMinusNinetyNine) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000017, "c").u32(0xFFFFFFFF).i32(-99), false);
    EXPECT_NE(types.trace().find("** Class with SV Type Id =  -99  **  \n"), std::string::npos);
}

TEST(ClassRecords, CutBeforeTheBaseClassAndWithoutATypeBeforeThemHaveNone) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000017, "c"));
    EXPECT_EQ(types.as<RTClassType>(0).m_baseClassTypeId, 0u);
    EXPECT_EQ(types.as<RTClassType>(0).m_baseClass, nullptr);
}

TEST(ClassRecords, BaseClassReadInTheMiddleDoesNotDisturbTheRecord) {
    TypeFileBuilder file;
    file.record(0xA0000017, "derived").u32(1).i32(7).i32(1).str("m").u32(2).u32(0).u32(1);
    file.record(0xA0000017, "base").u32(0xFFFFFFFF).i32(8).i32(0).string("s");
    LoadedTypes types(file);
    EXPECT_EQ(types[0]->getSVTypeId(), 7);
    EXPECT_STREQ(member(types, 0, 0).m_memberName, "m");
    EXPECT_TRUE(member(types, 0, 0).m_memberFlag);
    EXPECT_THAT(types.as<RTClassType>(0).m_memberTypes, ElementsAre(types[2]));
}

TEST(ClassRecords, AncestorsAreReadBeforeTheClassAndListedFirst) {
    TypeFileBuilder file;
    file.record(0xA0000017, "c").u32(1).i32(1).i32(0).record(0xA0000017, "b").u32(2).i32(1).i32(0);
    file.record(0xA0000017, "a").u32(0xFFFFFFFF).i32(1).i32(0);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTClassType>(0).m_baseClass, types[1]);
    EXPECT_EQ(types.as<RTClassType>(1).m_baseClass, types[2]);
    EXPECT_THAT(types.manager().getRTClassTypeIds(), ElementsAre(2u, 1u, 0u));
}

TEST(ClassRecords, MemberFlagIsFalseWhereItIsCut) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000017, "c").u32(0xFFFFFFFF).i32(0).i32(1);
    file.str("m").u32(0).u32(0).bytes("\1\1\1");
    LoadedTypes types(file);
    EXPECT_FALSE(member(types, 1, 0).m_memberFlag);
}

TEST(ClassRecords, MemberFlagIsTrueWhereOnlyTheTopBitIsSet) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000017, "c").u32(0xFFFFFFFF).i32(0).i32(1);
    LoadedTypes types(file.str("m").u32(0).u32(0).u32(0x80000000));
    EXPECT_TRUE(member(types, 1, 0).m_memberFlag);
}

TEST(ClassRecords, MemberBeginsRightAfterTheFlagOfTheOneBefore) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000017, "c").u32(0xFFFFFFFF).i32(0).i32(2);
    file.str("a").u32(0).u32(1).range(3, 2, 0).u32(1).str("b").u32(0).u32(0).u32(0);
    LoadedTypes types(file);
    EXPECT_THAT(numbersOf(member(types, 1, 0).m_constraints), ElementsAre(ElementsAre(3, 2, 0)));
    EXPECT_STREQ(member(types, 1, 1).m_memberName, "b");
    EXPECT_FALSE(member(types, 1, 1).m_memberFlag);
}

TEST(ClassRecords, MembersPastTheEndAreThereWithDefaults) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000017, "c").u32(0xFFFFFFFF).i32(5).i32(2);
    LoadedTypes types(file);
    ASSERT_EQ(types.as<RTClassType>(1).m_members.size(), 2u);
    EXPECT_STREQ(member(types, 1, 1).m_memberName, "");
    EXPECT_THAT(member(types, 1, 1).m_constraints, IsEmpty());
    EXPECT_THAT(types.as<RTClassType>(1).m_memberTypes, ElementsAre(types[0], types[0]));
}

TEST(ClassRecords, BaseThatIsNoClassIsLinkedAllTheSame) {
    LoadedTypes types(TypeFileBuilder{}.string("s").record(0xA0000017, "c").u32(0).i32(1).i32(0));
    EXPECT_EQ(types.as<RTClassType>(1).m_baseClass, types[0]);
}

TEST(ClassRecords, BaseWhoseRecordBuildsNothingIsNone) {
    TypeFileBuilder file;
    file.record(0xA0000017, "c").u32(1).i32(1).i32(0).record(0xA000000A, "nothing");
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTClassType>(0).m_baseClass, nullptr);
    EXPECT_EQ(types.as<RTClassType>(0).m_baseClassTypeId, 1u);
}

TEST(ClassRecords, ListIsReadAgainFromTheSameReference) {
    TypeFileBuilder file;
    file.record(0xA0000017, "a").u32(0xFFFFFFFF).i32(1).i32(0);
    file.record(0xA0000017, "b").u32(0xFFFFFFFF).i32(2).i32(0);
    LoadedTypes types(file, false);
    const std::vector<unsigned int>& list = types.manager().getRTClassTypeIds();
    EXPECT_THAT(list, IsEmpty());
    types[1];
    EXPECT_THAT(list, ElementsAre(1u));
    types[0];
    EXPECT_THAT(list, ElementsAre(1u, 0u));
}

} // namespace
