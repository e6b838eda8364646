// Access, file and typedef types, and references to what is not there.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace RTTI;
using testing::IsEmpty;

TEST(AccessRecords, EmptyBodyDesignatesTypeZero) {
    LoadedTypes types(TypeFileBuilder{}.string("s").record(0xA0000008, "p"));
    const auto& type = types.as<RTAccessType>(1);
    EXPECT_EQ(type.m_refTypeId, 0u);
    EXPECT_EQ(type.m_refType, types[0]);
    EXPECT_EQ(type.m_alignment, 0u);
    EXPECT_EQ(type.getValueSize(), 0u);
}

TEST(AccessRecords, TypeThatDesignatesItselfIsLinkedToItself) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000008, "p").u32(0).u32(8).u32(4));
    EXPECT_EQ(types.as<RTAccessType>(0).m_refType, types[0]);
    EXPECT_EQ(types.as<RTAccessType>(0).m_alignment, 8u);
    EXPECT_EQ(types[0]->getValueSize(), 4u);
    EXPECT_EQ(types.storage().takeReads().size(), 3u);
}

TEST(AccessRecords, DesignatedRecordMayHaveAMemberOfTheAccessType) {
    TypeFileBuilder file;
    file.record(0xA0000008, "p").u32(1).u32(0).u32(0);
    file.record(0xA0000011, "node").u32(0xB0001).i32(1).str("next").u32(0).u32(0).i32(-99);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTAccessType>(0).m_refType, types[1]);
    EXPECT_EQ(types.as<RTRecordType>(1).m_memberTypes[0], types[0]);
}

TEST(FileRecords, LinkTheirElementType) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA000000C, "f").u32(1).u32(4).u32(2).string("s"));
    EXPECT_EQ(types.as<RTFileType>(0).m_refType, types[1]);
    EXPECT_EQ(types.as<RTFileType>(0).m_alignment, 4u);
    EXPECT_EQ(types[0]->getValueSize(), 2u);
}

TEST(TypedefRecords, LinkTheirTypeWithoutConstraints) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000007, "t").u32(1).u32(0).string("s"));
    EXPECT_EQ(types.as<RTTypedefType>(0).m_dataType, types[1]);
    EXPECT_THAT(types.as<RTTypedefType>(0).m_constraints, IsEmpty());
    EXPECT_EQ(types[0]->getSVTypeId(), -5);
}

TEST(TypedefRecords, OfATypedefKeepTheirOwnConstraintsEach) {
    TypeFileBuilder file;
    file.record(0xA0000007, "outer").u32(1).u32(1).range(1, 1, 1);
    file.record(0xA0000007, "inner").u32(2).u32(1).range(2, 2, 1).integer("int");
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTTypedefType>(0).m_dataType, types[1]);
    EXPECT_EQ(types.as<RTTypedefType>(1).m_dataType, types[2]);
    EXPECT_EQ(types.as<RTTypedefType>(0).m_constraints[0].si, 1);
    EXPECT_EQ(types.as<RTTypedefType>(1).m_constraints[0].si, 2);
    EXPECT_EQ(types[0]->getSelf(false), types[2]);
    EXPECT_EQ(types[0]->getSelf(true), types[0]);
}

TEST(OutOfRange, ReferencesOfEveryKindAreNull) {
    TypeFileBuilder file;
    file.record(0xA0000004, "e").u32(99).record(0xA0000007, "t").u32(8);
    file.record(0xA0000008, "p").u32(0xFFFFFFFF).record(0xA000000C, "f").u32(8);
    file.record(0xA0000010, "a").u32(0xA00001).u32(8).record(0xA0000014, "q").u32(0x80000000);
    file.record(0xA0000015, "m").u32(8).i32(0).u32(8).record(0xA0000017, "c").u32(8).i32(0).i32(0);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTDiscreteEnumType>(0).m_baseType, nullptr);
    EXPECT_EQ(types.as<RTTypedefType>(1).m_dataType, nullptr);
    EXPECT_EQ(types.as<RTAccessType>(2).m_refType, nullptr);
    EXPECT_EQ(types.as<RTFileType>(3).m_refType, nullptr);
    EXPECT_EQ(types.as<RTArrayType>(4).m_elementType, nullptr);
    EXPECT_EQ(types.as<RTQueueType>(5).m_elementType, nullptr);
    EXPECT_EQ(types.as<RTAssocArrayType>(6).m_indexType, nullptr);
    EXPECT_EQ(types.as<RTClassType>(7).m_baseClass, nullptr);
    EXPECT_EQ(types.as<RTClassType>(7).m_baseClassTypeId, 8u);
    EXPECT_EQ(types.storage().takeReads().size(), 8u * 3);
}

} // namespace
