// Arrays of every kind.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using testing::IsEmpty;

bool traceHas(const TypeFileBuilder& file, const std::string& text) {
    return LoadedTypes(file, false).trace().find(text) != std::string::npos;
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

TEST(FixedArrays, EmptyBodyHasTypeZeroAsItsElement) {
    LoadedTypes types(TypeFileBuilder{}.string("s").record(0xA0000010, "a"));
    const auto& type = types.as<RTArrayType>(1);
    EXPECT_EQ(static_cast<unsigned int>(type.m_arrayKind), 0u);
    EXPECT_EQ(type.m_elementTypeId, 0u);
    EXPECT_EQ(type.m_elementType, types[0]);
    EXPECT_THAT(type.m_indexTypeIds, IsEmpty());
    EXPECT_EQ(type.getSVTypeId(), -99);
}

TEST(FixedArrays, ElementReadInTheMiddleDoesNotDisturbTheRecord) {
    TypeFileBuilder file;
    file.record(0xA0000010, "a").u32(0xA00003).u32(1).i32(2).u32(7).u32(9);
    file.u32(1).range(3, 0, 0).i32(5).integer("element");
    LoadedTypes types(file);
    const auto& type = types.as<RTArrayType>(0);
    EXPECT_EQ(type.m_elementType, types[1]);
    EXPECT_THAT(type.m_indexTypeIds, ElementsAre(7u, 9u));
    EXPECT_THAT(numbersOf(type.m_constraints), ElementsAre(ElementsAre(3, 0, 0)));
    EXPECT_EQ(type.getSVTypeId(), 5);
}

TEST(FixedArrays, KindIsTracedByNameAndKeptAsItIs) {
    const char* names[] = {"ARRAY_KIND_INVALID",
                           "VHDL_ARRAY",
                           "VLOG_FIXED_UNPACKED_ARRAY",
                           "VLOG_FIXED_PACKED_ARRAY",
                           "VLOG_DYNAMIC_ARRAY",
                           "VLOG_ASSOCIATIVE_ARRAY",
                           "VLOG_QUEUE",
                           "BYTE_UNPADDED_ARRAY",
                           "ARRAY_KIND_UNKNOWN"};
    for (unsigned int i = 0; i < std::size(names); ++i) {
        TypeFileBuilder file;
        file.string("s").record(0xA0000010, "a").u32(0xA00000 + i).u32(0);
        EXPECT_TRUE(traceHas(file, std::string("** Array Kind =  ") + names[i] + "  **  \n")) << i;
        LoadedTypes types(file);
        EXPECT_EQ(static_cast<unsigned int>(types.as<RTArrayType>(1).m_arrayKind), 0xA00000 + i);
    }
}

TEST(FixedArrays, KindBelowItsTableIsUnknown) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000010, "a").u32(0x9FFFFF).u32(0);
    EXPECT_TRUE(traceHas(file, "** Array Kind =  ARRAY_KIND_UNKNOWN  **  \n"));
}

TEST(FixedArrays, SVTypeIdZeroIsTraced) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000010, "a").u32(0xA00002).u32(0).i32(0).u32(0).i32(0);
    EXPECT_TRUE(traceHas(file, "** Array SV Type Id =  0  **  \n"));
}

TEST(FixedArrays, CutSVTypeIdIsNoneAndNotTraced) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000010, "a").u32(0xA00002).u32(0).i32(0).u32(0).bytes("\5\5\5");
    EXPECT_EQ(LoadedTypes(file)[1]->getSVTypeId(), -99);
    EXPECT_FALSE(traceHas(file, "SV Type Id"));
}

TEST(FixedArrays, ReservedListStaysEmpty) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000010, "a").u32(0xA00002).u32(0).i32(1).u32(0).u32(0).i32(1);
    EXPECT_THAT(LoadedTypes(file).as<RTArrayType>(1).m_reserved, IsEmpty());
}

TEST(FixedArrays, IndexTypesAreNotReadForTheArray) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000010, "a").u32(0xA00001).u32(0).i32(1).u32(2).integer("index");
    LoadedTypes types(file, false);
    types[1];
    EXPECT_EQ(types.storage().takeReads().size(), 6u); // The array and its element.
}

TEST(Containers, EmptyBodyHasTypeZeroAsItsElementAndSVTypeIdZero) {
    for (const unsigned int kind : {0xA0000013u, 0xA0000014u, 0xA0000015u}) {
        LoadedTypes types(TypeFileBuilder{}.string("s").record(kind, "c"));
        const auto& type = types.as<RTAbstractArrayType>(1);
        EXPECT_EQ(type.m_elementTypeId, 0u);
        EXPECT_EQ(type.m_elementType, types[0]);
        EXPECT_EQ(type.getSVTypeId(), 0);
    }
}

TEST(Containers, ElementReadInTheMiddleDoesNotDisturbTheRecord) {
    for (const unsigned int kind : {0xA0000013u, 0xA0000014u, 0xA0000015u}) {
        LoadedTypes types(TypeFileBuilder{}.record(kind, "c").u32(1).i32(42).u32(1).string("s"));
        EXPECT_EQ(types.as<RTAbstractArrayType>(0).m_elementType, types[1]);
        EXPECT_EQ(types[0]->getSVTypeId(), 42);
    }
}

TEST(Containers, SVTypeIdOfMinusNinetyNineIsTracedAllTheSame) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000014, "q").u32(0).i32(-99);
    file.record(0xA0000015, "m").u32(0).i32(-99).u32(0);
    EXPECT_TRUE(traceHas(file, "** Queue SV Type Id =  -99  **  \n"));
    EXPECT_TRUE(traceHas(file, "** Associative Array SV Type Id =  -99  **  \n"));
}

TEST(AssociativeArrays, CutBeforeTheIndexTypeAreIndexedByTypeZero) {
    LoadedTypes types(
        TypeFileBuilder{}.integer("i").string("s").record(0xA0000015, "m").u32(1).i32(6));
    const auto& type = types.as<RTAssocArrayType>(2);
    EXPECT_EQ(type.m_elementType, types[1]);
    EXPECT_EQ(type.getSVTypeId(), 6);
    EXPECT_EQ(type.m_indexTypeId, 0u);
    EXPECT_EQ(type.m_indexType, types[0]);
}

TEST(AssociativeArrays, MayBeIndexedByNoType) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000015, "m").u32(0).i32(6).u32(0xFFFFFFFF);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTAssocArrayType>(1).getIndexTypeId(), 0xFFFFFFFFu);
    EXPECT_EQ(types.as<RTAssocArrayType>(1).m_indexType, nullptr);
}

TEST(AssociativeArrays, IndexTypeIsReadAfterTheSVTypeIdIsTraced) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000015, "m").u32(0).i32(6).u32(2).integer("index");
    const std::string trace = LoadedTypes(file, false).trace();
    EXPECT_LT(trace.find("Associative Array SV Type Id"), trace.find("Built in Int Type"));
    EXPECT_LT(trace.find("Built in Int Type"), trace.find("** Index Type Id =  2 ** \n"));
}

TEST(Containers, DimensionsOfLoadedTypesAddUp) {
    TypeFileBuilder file;
    file.record(0xA0000013, "of integers").u32(3).i32(1);
    file.record(0xA0000014, "of dynamic arrays").u32(0).i32(1);
    file.record(0xA0000013, "of matrices").u32(4).i32(1).integer("i");
    file.record(0xA0000010, "matrix").u32(0xA00002).u32(3).i32(2).u32(3).u32(3);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTAbstractArrayType>(0).getTotalNumDimensions(false), 1u);
    EXPECT_EQ(types.as<RTAbstractArrayType>(1).getTotalNumDimensions(true), 2u);
    EXPECT_EQ(types.as<RTAbstractArrayType>(2).getTotalNumDimensions(false), 3u);
}

TEST(Containers, DimensionsOfAnArrayWithoutIndexTypesAreNone) {
    TypeFileBuilder file;
    file.integer("i").record(0xA0000010, "a").u32(0xA00002).u32(0).i32(0).u32(0).i32(1);
    file.record(0xA0000014, "q").u32(1).i32(1);
    EXPECT_EQ(LoadedTypes(file).as<RTQueueType>(2).getTotalNumDimensions(true), 1u);
}

} // namespace
