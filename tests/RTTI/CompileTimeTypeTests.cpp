// Compile-time types: what their constructors set, and the class ids that they answer.

#include "RTTI/CTType.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace {

using namespace RTTI;

constexpr unsigned int NO_ID = 0xFFFFFFFF;

template <typename Type> unsigned int idThroughCompileTimePart(const Type& type) {
    return static_cast<const CTBaseType&>(type).GetClassId();
}

template <typename Type> unsigned int idThroughRunTimePart(const Type& type) {
    return static_cast<const RTBaseType&>(type).GetClassId();
}

template <typename Type> void expectClassId(unsigned int classId) {
    const Type type;
    EXPECT_EQ(idThroughRunTimePart(type), classId);
    EXPECT_EQ(idThroughCompileTimePart(type), classId);
}

TEST(CompileTimeTypes, AnswerTheirRunTimeClassThroughBothBases) {
    expectClassId<CTSeqEnumType>(0xA0000003);
    expectClassId<CTDiscreteEnumType>(0xA0000004);
    expectClassId<CTIntType>(0xA0000005);
    expectClassId<CTFloatType>(0xA0000006);
    expectClassId<CTTypedefType>(0xA0000007);
    expectClassId<CTAccessType>(0xA0000008);
    expectClassId<CTEventType>(0xA000000B);
    expectClassId<CTFileType>(0xA000000C);
    expectClassId<CTPhysicalType>(0xA000000D);
    expectClassId<CTArrayType>(0xA0000010);
    expectClassId<CTRecordType>(0xA0000011);
}

TEST(CompileTimeTypes, ContainersAnswerTheirRunTimeClass) {
    EXPECT_EQ(idThroughRunTimePart(CTDynamicArrayType("d", 1)), 0xA0000013U);
    EXPECT_EQ(idThroughRunTimePart(CTQueueType("q", 1)), 0xA0000014U);
    EXPECT_EQ(idThroughRunTimePart(CTAssocArrayType("a", 1, 2)), 0xA0000015U);
}

TEST(CompileTimeTypes, ContainersHaveNoCompileTimePartAndNoDefaultConstructor) {
    EXPECT_FALSE((std::is_base_of_v<CTBaseType, CTDynamicArrayType>));
    EXPECT_FALSE((std::is_base_of_v<CTBaseType, CTQueueType>));
    EXPECT_FALSE((std::is_base_of_v<CTBaseType, CTAssocArrayType>));
    EXPECT_FALSE(std::is_default_constructible_v<CTDynamicArrayType>);
    EXPECT_FALSE(std::is_default_constructible_v<CTQueueType>);
    EXPECT_FALSE(std::is_default_constructible_v<CTAssocArrayType>);
}

TEST(CompileTimeTypes, CompileTimePartAddsNoFieldsAndNoVirtualDestructor) {
    EXPECT_EQ(sizeof(CTBaseType), sizeof(void*));
    EXPECT_TRUE(std::is_polymorphic_v<CTBaseType>);
    EXPECT_FALSE(std::has_virtual_destructor_v<CTBaseType>);
    EXPECT_EQ(sizeof(CTArrayType), sizeof(RTArrayType) + sizeof(CTBaseType));
    EXPECT_EQ(sizeof(CTQueueType), sizeof(RTQueueType));
}

TEST(CompileTimeTypes, ArrayKeepsItsNameKindAndIdsAndHasOneDimension) {
    const CTArrayType type("a", VHDL_ARRAY, 5, 9);
    EXPECT_STREQ(type.m_name, "a");
    EXPECT_EQ(type.m_flags, 0U);
    EXPECT_EQ(type.m_arrayKind, 0xA00001U);
    EXPECT_EQ(type.m_elementTypeId, 5U);
    EXPECT_EQ(type.m_elementType, nullptr);
    EXPECT_EQ(type.m_indexTypeIds, (std::vector<unsigned int>{9}));
    EXPECT_EQ(type.getSVTypeId(), -99);
    EXPECT_TRUE(type.m_constraints.empty());
    EXPECT_TRUE(type.m_reserved.empty());
    EXPECT_EQ(idThroughRunTimePart(type), 0xA0000010U);
    EXPECT_EQ(idThroughCompileTimePart(type), 0xA0000010U);
}

TEST(CompileTimeTypes, AssocArrayWithoutNameKeepsItsIds) {
    CTAssocArrayType type(nullptr, 3, 4);
    EXPECT_EQ(type.m_name, nullptr);
    EXPECT_EQ(type.m_elementTypeId, 3U);
    EXPECT_EQ(type.m_indexTypeId, 4U);
    EXPECT_EQ(type.getIndexTypeId(), 4U);
    EXPECT_EQ(type.getArrayKind(), 0xA00005U);
    EXPECT_EQ(type.m_elementType, nullptr);
    EXPECT_EQ(type.m_indexType, nullptr);
    EXPECT_EQ(type.getSVTypeId(), -99);
}

TEST(CompileTimeTypes, DynamicArrayKeepsItsNameAndElementId) {
    CTDynamicArrayType type("d", 6);
    EXPECT_STREQ(type.m_name, "d");
    EXPECT_EQ(type.m_elementTypeId, 6U);
    EXPECT_EQ(type.m_elementType, nullptr);
    EXPECT_EQ(type.getArrayKind(), 0xA00004U);
    EXPECT_EQ(type.getIndexTypeId(), NO_ID);
    EXPECT_EQ(type.getSVTypeId(), -99);
}

TEST(CompileTimeTypes, QueueKeepsItsNameAndElementId) {
    CTQueueType type("q", 7);
    EXPECT_STREQ(type.m_name, "q");
    EXPECT_EQ(type.m_elementTypeId, 7U);
    EXPECT_EQ(type.m_elementType, nullptr);
    EXPECT_EQ(type.getArrayKind(), 0xA00006U);
    EXPECT_EQ(type.getIndexTypeId(), NO_ID);
    EXPECT_EQ(type.getSVTypeId(), -99);
}

TEST(CompileTimeTypes, TypedefKeepsItsIdAndANullLinkUntilItsBuilderSetsOne) {
    CTTypedefType type("t", 7);
    EXPECT_EQ(idThroughCompileTimePart(type), 0xA0000007U);
    EXPECT_STREQ(type.m_name, "t");
    EXPECT_EQ(type.m_dataTypeId, 7U);
    EXPECT_EQ(type.m_dataType, nullptr);
    EXPECT_TRUE(type.m_constraints.empty());
    const CTIntType number;
    type.m_dataType = &number;
    EXPECT_EQ(type.getSelf(false), &number);
}

TEST(CompileTimeTypes, AccessAndFileKeepTheirIdAndRecordNoSize) {
    const CTAccessType access("p", 11);
    EXPECT_STREQ(access.m_name, "p");
    EXPECT_EQ(access.m_refTypeId, 11U);
    EXPECT_EQ(access.m_refType, nullptr);
    EXPECT_EQ(access.m_alignment, 0U);
    EXPECT_EQ(access.getValueSize(), 0U);
    const CTFileType file("f", 12);
    EXPECT_STREQ(file.m_name, "f");
    EXPECT_EQ(file.m_refTypeId, 12U);
    EXPECT_EQ(file.m_refType, nullptr);
    EXPECT_EQ(file.m_alignment, 0U);
    EXPECT_EQ(file.getValueSize(), 0U);
}

TEST(CompileTimeTypes, NameIsCopied) {
    char name[] = "first";
    const CTArrayType array(name, VHDL_ARRAY, 1, 2);
    const CTQueueType queue(name, 1);
    const CTTypedefType alias(name, 1);
    name[0] = 'X';
    EXPECT_STREQ(array.m_name, "first");
    EXPECT_STREQ(queue.m_name, "first");
    EXPECT_STREQ(alias.m_name, "first");
}

TEST(CompileTimeTypes, NullNameStaysNullAndAnEmptyNameStaysEmpty) {
    EXPECT_EQ(CTArrayType(nullptr, VHDL_ARRAY, 1, 2).m_name, nullptr);
    EXPECT_EQ(CTFileType(nullptr, 1).m_name, nullptr);
    EXPECT_STREQ(CTAccessType("", 1).m_name, "");
}

TEST(CompileTimeTypes, DefaultEnumsHaveTheLoadersInitialValues) {
    const CTSeqEnumType sequence;
    EXPECT_EQ(sequence.m_name, nullptr);
    EXPECT_EQ(sequence.m_flags, 0U);
    EXPECT_EQ(sequence.m_valueEncoding, 2);
    EXPECT_EQ(sequence.m_enumKind, 0);
    EXPECT_EQ(sequence.m_valueSize, 0U);
    EXPECT_TRUE(sequence.m_enumeratorNames.empty());
    const CTDiscreteEnumType discrete;
    EXPECT_EQ(discrete.m_baseTypeId, NO_ID);
    EXPECT_EQ(discrete.m_baseType, nullptr);
    EXPECT_EQ(discrete.m_valueSize, 0U);
    EXPECT_TRUE(discrete.m_enumerators.empty());
    EXPECT_TRUE(discrete.m_constraints.empty());
}

TEST(CompileTimeTypes, DefaultScalarsHaveTheLoadersInitialValues) {
    const CTIntType number;
    EXPECT_EQ(number.m_constraint.si, 0);
    EXPECT_EQ(number.m_constraint.ei, 0);
    EXPECT_EQ(number.m_constraint.dir, 0);
    const CTFloatType real;
    EXPECT_EQ(real.m_floatKind, 0);
    EXPECT_EQ(real.m_left, 0.0);
    EXPECT_EQ(real.m_right, 0.0);
    EXPECT_EQ(real.m_direction, 0);
    EXPECT_EQ(CTEventType().m_eventKind, 0);
    EXPECT_TRUE(CTPhysicalType().m_units.empty());
}

TEST(CompileTimeTypes, DefaultReferencesHaveTheLoadersInitialValues) {
    EXPECT_EQ(CTTypedefType().m_dataTypeId, NO_ID);
    EXPECT_EQ(CTTypedefType().m_dataType, nullptr);
    EXPECT_EQ(CTAccessType().m_refTypeId, NO_ID);
    EXPECT_EQ(CTAccessType().m_valueSize, 0U);
    EXPECT_EQ(CTFileType().m_refTypeId, NO_ID);
    EXPECT_EQ(CTFileType().m_valueSize, 0U);
}

TEST(CompileTimeTypes, DefaultArrayAndRecordHaveTheLoadersInitialValues) {
    const CTArrayType array;
    EXPECT_EQ(array.m_arrayKind, 0U);
    EXPECT_EQ(array.m_elementTypeId, NO_ID);
    EXPECT_EQ(array.m_elementType, nullptr);
    EXPECT_EQ(array.getSVTypeId(), -99);
    EXPECT_TRUE(array.m_indexTypeIds.empty());
    const CTRecordType record;
    EXPECT_EQ(record.m_recordKind, 0U);
    EXPECT_EQ(record.getSVTypeId(), -99);
    EXPECT_TRUE(record.m_members.empty());
    EXPECT_TRUE(record.m_memberTypes.empty());
}

TEST(CompileTimeTypes, AnswerQueriesAsTheirRunTimeClass) {
    CTSeqEnumType bit;
    bit.m_valueEncoding = ENCODING_2_STATE;
    bit.m_valueSize = 3;
    EXPECT_EQ(bit.getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(bit.getValueSize(), 3U);
    CTArrayType array("a", VLOG_FIXED_PACKED_ARRAY, 1, 2);
    array.m_elementType = &bit;
    EXPECT_EQ(array.getValueEncoding(), ENCODING_2_STATE);
    CTTypedefType alias("t", 3);
    alias.m_dataType = &array;
    EXPECT_EQ(alias.getValueEncoding(), ENCODING_2_STATE);
}

TEST(CompileTimeTypes, AreDestroyedThroughTheirRunTimeClass) {
    // A leak or a wrong release shows under the address sanitizer.
    std::unique_ptr<RTBaseType> type = std::make_unique<CTArrayType>("array", VHDL_ARRAY, 1U, 2U);
    EXPECT_EQ(type->GetClassId(), 0xA0000010U);
    type = std::make_unique<CTQueueType>("queue", 1U);
    EXPECT_EQ(type->GetClassId(), 0xA0000014U);
}

} // namespace
