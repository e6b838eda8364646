// Access, file and typedef types, arrays, and references that come back.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace RTTI;
using testing::ElementsAre;
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

TEST(ArrayRecords, IndexTypesStayIds) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000010, "a").u32(0xA00001).u32(0).i32(2).u32(7).u32(9);
    LoadedTypes types(file);
    EXPECT_THAT(types.as<RTArrayType>(1).m_indexTypeIds, ElementsAre(7u, 9u));
}

TEST(ArrayRecords, CutAfterTheElementTypeHaveNoDimensionsAndNoSVTypeId) {
    LoadedTypes types(TypeFileBuilder{}.string("s").record(0xA0000010, "a").u32(0xA00003).u32(0));
    const auto& type = types.as<RTArrayType>(1);
    EXPECT_EQ(type.m_elementType, types[0]);
    EXPECT_THAT(type.m_indexTypeIds, IsEmpty());
    EXPECT_THAT(type.m_constraints, IsEmpty());
    EXPECT_EQ(type.getSVTypeId(), -99);
}

TEST(ArrayRecords, IndexIdsPastTheEndAreZero) {
    LoadedTypes types(
        TypeFileBuilder{}.string("s").record(0xA0000010, "a").u32(0xA00003).u32(0).i32(3).u32(5));
    EXPECT_THAT(types.as<RTArrayType>(1).m_indexTypeIds, ElementsAre(5u, 0u, 0u));
}

TEST(ArrayRecords, NegativeDimensionCountGivesNoDimensions) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000010, "a").u32(0xA00002).u32(0).i32(-1).u32(1).range(0, 3, 1);
    LoadedTypes types(file.i32(6));
    EXPECT_THAT(types.as<RTArrayType>(1).m_indexTypeIds, IsEmpty());
    EXPECT_EQ(types.as<RTArrayType>(1).m_constraints.size(), 1u);
    EXPECT_EQ(types[1]->getSVTypeId(), 6);
}

TEST(ArrayRecords, DynamicArrayCutAfterElementIdHasSVTypeIdZero) {
    LoadedTypes types(TypeFileBuilder{}.string("s").record(0xA0000013, "d").u32(0));
    EXPECT_EQ(types[1]->getSVTypeId(), 0);
}

TEST(ArrayRecords, ArraysOfOneElementTypeShareItsObject) {
    TypeFileBuilder file;
    file.record(0xA0000013, "d").u32(2).i32(1).record(0xA0000014, "q").u32(2).i32(2).string("s");
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTDynamicArrayType>(0).m_elementType, types[2]);
    EXPECT_EQ(types.as<RTQueueType>(1).m_elementType, types[2]);
}

TEST(ArrayRecords, AssociativeArrayIndexedByItsElementTypeResolvesBothToOneObject) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000015, "m").u32(1).i32(3).u32(1).string("s"));
    const auto& type = types.as<RTAssocArrayType>(0);
    EXPECT_EQ(type.m_elementType, types[1]);
    EXPECT_EQ(type.m_indexType, types[1]);
    EXPECT_EQ(type.getIndexTypeId(), 1u);
}

TEST(ComingBack, TypedefOfItselfNamesNoType) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000007, "t").u32(0).u32(0));
    EXPECT_EQ(types.as<RTTypedefType>(0).m_dataType, nullptr);
    EXPECT_EQ(types[0]->getSelf(false), nullptr);
    EXPECT_EQ(types.storage().takeReads().size(), 3u);
}

TEST(ComingBack, RingOfArraysEndsInNoType) {
    TypeFileBuilder file;
    file.record(0xA0000013, "a").u32(1).i32(0).record(0xA0000014, "b").u32(0).i32(0);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTDynamicArrayType>(0).m_elementType, types[1]);
    EXPECT_EQ(types.as<RTQueueType>(1).m_elementType, nullptr);
}

TEST(ComingBack, ClassThatIsItsOwnAncestorHasNoBaseClass) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000017, "c").u32(0).i32(1).i32(0));
    EXPECT_EQ(types.as<RTClassType>(0).m_baseClass, nullptr);
    EXPECT_EQ(types.as<RTClassType>(0).m_baseClassTypeId, 0u);
    EXPECT_THAT(types.manager().getRTClassTypeIds(), ElementsAre(0u));
}

TEST(ComingBack, TypedefOfAClassWithAMemberOfItIsOneObject) {
    TypeFileBuilder file;
    file.record(0xA0000007, "alias").u32(1).u32(1).range(0, 1, 1);
    file.record(0xA0000017, "c").u32(0xFFFFFFFF).i32(1).i32(1).str("m").u32(0).u32(0).u32(0);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTTypedefType>(0).m_dataType, types[1]);
    EXPECT_EQ(types.as<RTClassType>(1).m_memberTypes[0], types[0]);
    EXPECT_EQ(types.storage().takeReads().size(), 9u); // The typedef's record twice.
}

TEST(ComingBack, BaseClassWithAMemberOfTheDerivedClassListsEachOnce) {
    TypeFileBuilder file;
    file.record(0xA0000017, "derived").u32(1).i32(1).i32(1).str("own").u32(2).u32(0).u32(0);
    file.record(0xA0000017, "base").u32(0xFFFFFFFF).i32(2).i32(1).str("d").u32(0).u32(0).u32(0);
    file.string("s");
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTClassType>(0).m_baseClass, types[1]);
    EXPECT_EQ(types.as<RTClassType>(1).m_memberTypes[0], types[0]);
    EXPECT_THAT(types.as<RTClassType>(0).m_memberTypes, ElementsAre(types[2]));
    EXPECT_THAT(types.manager().getRTClassTypeIds(), ElementsAre(1u, 0u));
    EXPECT_EQ(types.storage().takeReads().size(), 12u); // The derived class's record twice.
}

} // namespace
