// The classes by themselves: what an object answers before anything is loaded into it.

#include "RTTI/RTTypeVisitor.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using namespace RTTI;

class PlainType : public RTBaseType {
public:
    bool accept(RTTypeVisitor&) const override { return false; }
};

char* copyOf(const char* text) {
    char* copy = new char[std::strlen(text) + 1];
    std::strcpy(copy, text);
    return copy;
}

TEST(TypeClasses, BaseTypeHasTheAnswersOfTheRoot) {
    const PlainType type;
    EXPECT_EQ(type.GetClassId(), 0xA0000001u);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_BYTE);
    EXPECT_EQ(type.getSVTypeId(), -99);
    EXPECT_EQ(type.getValueSize(), 0u);
    EXPECT_EQ(type.getSelf(false), &type);
    EXPECT_EQ(type.getSelf(true), &type);
    EXPECT_EQ(type.m_name, nullptr);
    EXPECT_EQ(type.m_flags, 0u);
}

TEST(TypeClasses, OnlyTheUnpaddedFlagChangesTheEncoding) {
    PlainType type;
    type.m_flags = 0x10;
    EXPECT_EQ(type.getValueEncoding(), ENCODING_UNPADDED_BYTE);
    type.m_flags = 0xFFFFFFEF;
    EXPECT_EQ(type.getValueEncoding(), ENCODING_BYTE);
}

TEST(TypeClasses, SVTypeIdIsIgnoredWhereThereIsNoRoomForIt) {
    const RTIntType type;
    type.setSVTypeId(5);
    EXPECT_EQ(type.getSVTypeId(), -99);
    const RTTypedefType alias;
    alias.setSVTypeId(5);
    EXPECT_EQ(alias.getSVTypeId(), -99);
}

TEST(TypeClasses, SVTypeIdIsStoredByArraysAndAggregates) {
    const RTQueueType queue;
    const RTArrayType array;
    const RTRecordType record;
    const RTClassType klass;
    for (const RTBaseType* type :
         std::initializer_list<const RTBaseType*>{&queue, &array, &record, &klass}) {
        EXPECT_EQ(type->getSVTypeId(), -99);
        type->setSVTypeId(12);
        EXPECT_EQ(type->getSVTypeId(), 12);
    }
}

TEST(TypeClasses, AggregatesAnswerTwoClassIds) {
    const RTRecordType record;
    const RTClassType klass;
    EXPECT_EQ(record.GetClassId(), 0xA0000011u);
    EXPECT_EQ(record.getClassId(), 0xA0000016u);
    EXPECT_EQ(klass.GetClassId(), 0xA0000017u);
    EXPECT_EQ(klass.getClassId(), 0xA0000016u);
}

TEST(TypeClasses, AnswerTheirKindCodes) {
    EXPECT_EQ(RTEnumType().GetClassId(), 0xA0000002u);
    EXPECT_EQ(RTSeqEnumType().GetClassId(), 0xA0000003u);
    EXPECT_EQ(RTDiscreteEnumType().GetClassId(), 0xA0000004u);
    EXPECT_EQ(RTIntType().GetClassId(), 0xA0000005u);
    EXPECT_EQ(RTFloatType().GetClassId(), 0xA0000006u);
    EXPECT_EQ(RTTypedefType().GetClassId(), 0xA0000007u);
    EXPECT_EQ(RTAccessType().GetClassId(), 0xA0000008u);
    EXPECT_EQ(RTCHandle().GetClassId(), 0xA0000009u);
    EXPECT_EQ(RTEventType().GetClassId(), 0xA000000Bu);
    EXPECT_EQ(RTFileType().GetClassId(), 0xA000000Cu);
    EXPECT_EQ(RTPhysicalType().GetClassId(), 0xA000000Du);
    EXPECT_EQ(RTArrayType().GetClassId(), 0xA0000010u);
    EXPECT_EQ(RTAbstractArrayType().GetClassId(), 0xA0000012u);
    EXPECT_EQ(RTDynamicArrayType().GetClassId(), 0xA0000013u);
    EXPECT_EQ(RTQueueType().GetClassId(), 0xA0000014u);
    EXPECT_EQ(RTAssocArrayType().GetClassId(), 0xA0000015u);
    EXPECT_EQ(RTStringType().GetClassId(), 0xA0000018u);
    EXPECT_EQ(RTWildCardType().GetClassId(), 0xA0000019u);
}

TEST(TypeClasses, BeginWithTheLoadersInitialValues) {
    EXPECT_EQ(RTSeqEnumType().m_valueEncoding, ENCODING_BYTE);
    EXPECT_EQ(RTSeqEnumType().m_valueSize, 0u);
    EXPECT_EQ(RTDiscreteEnumType().m_baseTypeId, 0xFFFFFFFFu);
    EXPECT_EQ(RTTypedefType().m_dataTypeId, 0xFFFFFFFFu);
    EXPECT_EQ(RTAccessType().m_refTypeId, 0xFFFFFFFFu);
    EXPECT_EQ(RTFileType().m_refTypeId, 0xFFFFFFFFu);
    EXPECT_EQ(RTArrayType().m_elementTypeId, 0xFFFFFFFFu);
    EXPECT_EQ(RTAssocArrayType().m_indexTypeId, 0xFFFFFFFFu);
    EXPECT_EQ(RTClassType().m_baseClassTypeId, 0xFFFFFFFFu);
    EXPECT_EQ(static_cast<unsigned int>(RTRecordType().m_recordKind), 0u);
}

TEST(TypeClasses, ContainersAnswerTheirArrayKind) {
    EXPECT_EQ(RTAbstractArrayType().getArrayKind(), 0xA00000u);
    EXPECT_EQ(RTDynamicArrayType().getArrayKind(), 0xA00004u);
    EXPECT_EQ(RTQueueType().getArrayKind(), 0xA00006u);
    EXPECT_EQ(RTAssocArrayType().getArrayKind(), 0xA00005u);
}

TEST(TypeClasses, OnlyAssociativeArraysHaveAnIndexType) {
    RTAssocArrayType map;
    map.m_indexTypeId = 4;
    EXPECT_EQ(map.getIndexTypeId(), 4u);
    EXPECT_EQ(RTDynamicArrayType().getIndexTypeId(), 0xFFFFFFFFu);
    EXPECT_EQ(RTQueueType().getIndexTypeId(), 0xFFFFFFFFu);
}

TEST(Dimensions, DiscreteEnumerationIsALeafOrItsBaseType) {
    const RTIntType element;
    RTArrayType array;
    array.m_elementType = &element;
    array.m_indexTypeIds = {1};
    RTDiscreteEnumType enumeration;
    enumeration.m_baseType = &array;
    RTDynamicArrayType outer;
    outer.m_elementType = &enumeration;
    EXPECT_EQ(outer.getTotalNumDimensions(false), 2u);
    EXPECT_EQ(outer.getTotalNumDimensions(true), 1u);
}

TEST(Dimensions, CountThroughTypedefs) {
    const RTIntType element;
    RTArrayType array;
    array.m_elementType = &element;
    array.m_indexTypeIds = {1, 2, 3};
    RTTypedefType alias;
    alias.m_dataType = &array;
    RTQueueType queue;
    queue.m_elementType = &alias;
    EXPECT_EQ(queue.getTotalNumDimensions(false), 4u);
}

TEST(Dimensions, AddUpOverNestedContainers) {
    const RTStringType text;
    RTAssocArrayType inner;
    inner.m_elementType = &text;
    RTAssocArrayType outer;
    outer.m_elementType = &inner;
    EXPECT_EQ(outer.getTotalNumDimensions(false), 2u);
    EXPECT_EQ(outer.getTotalNumDimensions(true), 2u);
    EXPECT_EQ(outer.getNumArrayDimensions(), 1u);
}

TEST(Dimensions, LeaveOutTheContainersOwnWhereATypeIsMissing) {
    RTQueueType queue;
    EXPECT_EQ(queue.getTotalNumDimensions(false), 0u);
    RTArrayType array;
    array.m_indexTypeIds = {1, 2};
    queue.m_elementType = &array;
    EXPECT_EQ(queue.getTotalNumDimensions(false), 2u);
}

TEST(TypeClasses, ReleaseTheirMembersAndSkipNullOnes) {
    RTClassType type;
    type.m_members.push_back(nullptr);
    auto* member = new RTClassType::t_ClassMember;
    member->m_memberName = copyOf("released with its class");
    type.m_members.push_back(member);
    EXPECT_EQ(type.m_members.size(), 2u); // The leak checker sees the rest.
}

TEST(TypeClasses, ReleaseTheirNamesAndLiterals) {
    RTSeqEnumType type;
    type.m_name = copyOf("e");
    type.m_enumeratorNames = {copyOf("A"), nullptr};
    RTDiscreteEnumType discrete;
    discrete.m_valueSize = 2;
    discrete.m_enumerators.push_back({"A", new char[2]{}});
    EXPECT_STREQ(type.m_enumeratorNames[0], "A");
}

TEST(Dimensions, ChainOfDiscreteEnumerationsIsLookedThrough) {
    const RTIntType element;
    RTQueueType base;
    base.m_elementType = &element;
    RTDiscreteEnumType inner;
    inner.m_baseType = &base;
    RTTypedefType alias;
    alias.m_dataType = &inner;
    RTDiscreteEnumType enumeration;
    enumeration.m_baseType = &alias;
    RTDynamicArrayType outer;
    outer.m_elementType = &enumeration;
    EXPECT_EQ(outer.getTotalNumDimensions(false), 2u);
    EXPECT_EQ(outer.getTotalNumDimensions(true), 1u);
}

TEST(Dimensions, EnumerationInsideANestedArrayIsALeafOrItsBaseType) {
    const RTIntType element;
    RTArrayType matrix;
    matrix.m_elementType = &element;
    matrix.m_indexTypeIds = {1, 2};
    RTDiscreteEnumType enumeration;
    enumeration.m_baseType = &matrix;
    RTArrayType array;
    array.m_elementType = &enumeration;
    array.m_indexTypeIds = {1};
    RTQueueType outer;
    outer.m_elementType = &array;
    EXPECT_EQ(outer.getTotalNumDimensions(false), 4u);
    EXPECT_EQ(outer.getTotalNumDimensions(true), 2u);
}

TEST(Dimensions, SequentialEnumerationIsALeaf) {
    const RTSeqEnumType enumeration;
    RTAssocArrayType map;
    map.m_elementType = &enumeration;
    EXPECT_EQ(map.getTotalNumDimensions(false), 1u);
}

} // namespace
