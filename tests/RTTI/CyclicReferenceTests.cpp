// References that come back to a record that is being read.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using namespace RTTI;
using testing::ElementsAre;

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

TEST(NeverEnding, ReferencesOfEveryKindToTheirOwnRecordAreNull) {
    TypeFileBuilder file;
    file.record(0xA0000004, "e").u32(0).record(0xA000000C, "f").u32(1);
    file.record(0xA0000010, "a").u32(0xA00001).u32(2).record(0xA0000013, "d").u32(3);
    file.record(0xA0000014, "q").u32(4).record(0xA0000015, "m").u32(5).i32(0).u32(5);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTDiscreteEnumType>(0).m_baseType, nullptr);
    EXPECT_EQ(types.as<RTFileType>(1).m_refType, nullptr);
    EXPECT_EQ(types.as<RTArrayType>(2).m_elementType, nullptr);
    EXPECT_EQ(types.as<RTDynamicArrayType>(3).m_elementType, nullptr);
    EXPECT_EQ(types.as<RTQueueType>(4).m_elementType, nullptr);
    EXPECT_EQ(types.as<RTAssocArrayType>(5).m_elementType, nullptr);
    EXPECT_EQ(types.as<RTAssocArrayType>(5).m_indexType, nullptr);
    EXPECT_EQ(types.storage().takeReads().size(), 6u * 3);
}

TEST(NeverEnding, RingOfAncestorsEndsAtTheClassThatWasAskedFor) {
    TypeFileBuilder file;
    file.record(0xA0000017, "a").u32(1).i32(0).i32(0).record(0xA0000017, "b").u32(2).i32(0).i32(0);
    file.record(0xA0000017, "c").u32(0).i32(0).i32(0);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTClassType>(0).m_baseClass, types[1]);
    EXPECT_EQ(types.as<RTClassType>(1).m_baseClass, types[2]);
    EXPECT_EQ(types.as<RTClassType>(2).m_baseClass, nullptr);
    EXPECT_THAT(types.manager().getRTClassTypeIds(), ElementsAre(2u, 1u, 0u));
    EXPECT_EQ(types.storage().takeReads().size(), 9u);
}

TEST(NeverEnding, FieldsBehindTheReferenceAreReadAllTheSame) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000007, "t").u32(0).u32(1).range(1, 2, 3));
    EXPECT_THAT(numbersOf(types.as<RTTypedefType>(0).m_constraints),
                ElementsAre(ElementsAre(1, 2, 3)));
}

TEST(ReadTwice, BaseClassWithAMemberOfTheDerivedClassIsTracedTwice) {
    TypeFileBuilder file;
    file.record(0xA0000017, "derived").u32(1).i32(0).i32(0);
    file.record(0xA0000017, "base").u32(0xFFFFFFFF).i32(0).i32(1).str("d").u32(0).u32(0).u32(0);
    const std::string trace = LoadedTypes(file, false).trace();
    const std::string begin = "**** Type Id  =  0   begin ****  \n";
    const std::size_t first = trace.find(begin);
    ASSERT_NE(first, std::string::npos);
    const std::size_t second = trace.find(begin, first + 1);
    ASSERT_NE(second, std::string::npos);
    EXPECT_EQ(trace.find(begin, second + 1), std::string::npos);
    EXPECT_EQ(trace.find("**** Type Id  =  1   begin", trace.find("Type Id  =  1   begin") + 1),
              std::string::npos);
}

TEST(ReadTwice, ObjectIsTheSameWhicheverOfThemIsAskedForFirst) {
    TypeFileBuilder file;
    file.record(0xA0000017, "derived").u32(1).i32(0).i32(0);
    file.record(0xA0000017, "base").u32(0xFFFFFFFF).i32(0).i32(1).str("d").u32(0).u32(0).u32(0);
    for (const unsigned int first : {0u, 1u}) {
        LoadedTypes types(file, false);
        const RTBaseType* asked = types[first];
        EXPECT_EQ(types[first], asked);
        EXPECT_EQ(types.as<RTClassType>(0).m_baseClass, types[1]);
        EXPECT_THAT(types.as<RTClassType>(1).m_memberTypes, ElementsAre(types[0]));
        EXPECT_EQ(types.storage().takeReads().size(), first == 0 ? 9u : 6u);
        EXPECT_THAT(types.manager().getRTClassTypeIds(), ElementsAre(1u, 0u));
    }
}

TEST(ReadTwice, ArrayOfAStructWithAMemberOfThatArrayIsOneObject) {
    TypeFileBuilder file;
    file.record(0xA0000013, "children").u32(1).i32(3);
    file.record(0xA0000011, "node").u32(0xB0002).i32(1).str("children").u32(0).u32(0).i32(-99);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTDynamicArrayType>(0).m_elementType, types[1]);
    EXPECT_THAT(types.as<RTRecordType>(1).m_memberTypes, ElementsAre(types[0]));
    EXPECT_EQ(types[0]->getSVTypeId(), 3);
    EXPECT_EQ(types.storage().takeReads().size(), 9u);
}

TEST(ReadTwice, FileOfAnAccessTypeThatDesignatesTheFileIsOneObject) {
    TypeFileBuilder file;
    file.record(0xA000000C, "f").u32(1).u32(1).u32(2).record(0xA0000008, "p").u32(0).u32(3).u32(4);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTFileType>(0).m_refType, types[1]);
    EXPECT_EQ(types.as<RTAccessType>(1).m_refType, types[0]);
}

} // namespace
