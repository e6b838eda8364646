// Which overload of a visitor each class calls, and the compile-time classes.

#include "RTTI/CTType.h"
#include "RTTI/RTTypeVisitor.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

using namespace RTTI;

/// Remembers the overload that was called.
class Recorder : public RTTypeDumperVisitor {
public:
    using RTTypeDumperVisitor::visit;

    bool visit(const RTBaseType&) override { return saw("RTBaseType"); }
    bool visit(const RTEnumType&) override { return saw("RTEnumType"); }
    bool visit(const RTSeqEnumType&) override { return saw("RTSeqEnumType"); }
    bool visit(const RTDiscreteEnumType&) override { return saw("RTDiscreteEnumType"); }
    bool visit(const RTIntType&) override { return saw("RTIntType"); }
    bool visit(const RTFloatType&) override { return saw("RTFloatType"); }
    bool visit(const RTTypedefType&) override { return saw("RTTypedefType"); }
    bool visit(const RTAccessType&) override { return saw("RTAccessType"); }
    bool visit(const RTCHandle&) override { return saw("RTCHandle"); }
    bool visit(const RTClassHandle&) override { return saw("RTClassHandle"); }
    bool visit(const RTEventType&) override { return saw("RTEventType"); }
    bool visit(const RTFileType&) override { return saw("RTFileType"); }
    bool visit(const RTPhysicalType&) override { return saw("RTPhysicalType"); }
    bool visit(const RTLogicType&) override { return saw("RTLogicType"); }
    bool visit(const RTBitType&) override { return saw("RTBitType"); }
    bool visit(const RTArrayType&) override { return saw("RTArrayType"); }
    bool visit(const RTAbstractArrayType&) override { return saw("RTAbstractArrayType"); }
    bool visit(const RTDynamicArrayType&) override { return saw("RTDynamicArrayType"); }
    bool visit(const RTQueueType&) override { return saw("RTQueueType"); }
    bool visit(const RTAssocArrayType&) override { return saw("RTAssocArrayType"); }
    bool visit(const RTAggregateType&) override { return saw("RTAggregateType"); }
    bool visit(const RTRecordType&) override { return saw("RTRecordType"); }
    bool visit(const RTClassType&) override { return saw("RTClassType"); }
    bool visit(const RTStringType&) override { return saw("RTStringType"); }

    std::string m_seen;
    bool m_answer = true;

private:
    bool saw(const char* overload) {
        m_seen += m_seen.empty() ? overload : std::string(" ") + overload;
        return m_answer;
    }
};

template <typename Type, typename... Arguments> std::string seenBy(const Arguments&... arguments) {
    const Type type(arguments...);
    Recorder recorder;
    EXPECT_TRUE(type.accept(recorder));
    return recorder.m_seen;
}

TEST(Visitor, SeesEveryClassAsItself) {
    EXPECT_EQ(seenBy<RTEnumType>(), "RTEnumType");
    EXPECT_EQ(seenBy<RTSeqEnumType>(), "RTSeqEnumType");
    EXPECT_EQ(seenBy<RTDiscreteEnumType>(), "RTDiscreteEnumType");
    EXPECT_EQ(seenBy<RTIntType>(), "RTIntType");
    EXPECT_EQ(seenBy<RTFloatType>(), "RTFloatType");
    EXPECT_EQ(seenBy<RTAccessType>(), "RTAccessType");
    EXPECT_EQ(seenBy<RTCHandle>(), "RTCHandle");
    EXPECT_EQ(seenBy<RTEventType>(), "RTEventType");
    EXPECT_EQ(seenBy<RTFileType>(), "RTFileType");
    EXPECT_EQ(seenBy<RTPhysicalType>(), "RTPhysicalType");
    EXPECT_EQ(seenBy<RTArrayType>(), "RTArrayType");
    EXPECT_EQ(seenBy<RTAbstractArrayType>(), "RTAbstractArrayType");
    EXPECT_EQ(seenBy<RTDynamicArrayType>(), "RTDynamicArrayType");
    EXPECT_EQ(seenBy<RTQueueType>(), "RTQueueType");
    EXPECT_EQ(seenBy<RTAssocArrayType>(), "RTAssocArrayType");
    EXPECT_EQ(seenBy<RTRecordType>(), "RTRecordType");
    EXPECT_EQ(seenBy<RTClassType>(), "RTClassType");
    EXPECT_EQ(seenBy<RTStringType>(), "RTStringType");
}

TEST(Visitor, SeesAWildcardAsABaseType) { EXPECT_EQ(seenBy<RTWildCardType>(), "RTBaseType"); }

TEST(Visitor, SeesACompileTimeTypeAsItsRunTimeClass) {
    EXPECT_EQ((seenBy<CTQueueType>("q", 1u)), "RTQueueType");
    EXPECT_EQ(seenBy<CTRecordType>(), "RTRecordType");
}

TEST(Visitor, DoesNotLookThroughTypedefs) {
    const RTIntType aliased;
    RTTypedefType type;
    type.m_dataType = &aliased;
    Recorder recorder;
    type.accept(recorder);
    EXPECT_EQ(recorder.m_seen, "RTTypedefType");
}

TEST(Visitor, HandsOnTheResultOfItsOverload) {
    Recorder recorder;
    recorder.m_answer = false;
    EXPECT_FALSE(RTIntType().accept(recorder));
    recorder.m_answer = true;
    EXPECT_TRUE(RTIntType().accept(recorder));
}

TEST(DumperVisitor, AnswersTrueForPointersAndDoesNothing) {
    Recorder recorder;
    RTQueueType queue;
    RTClassType type;
    EXPECT_TRUE(recorder.visit(&queue));
    EXPECT_TRUE(recorder.visit(&type));
    EXPECT_TRUE(recorder.visit(static_cast<RTBitType*>(nullptr)));
    EXPECT_EQ(recorder.m_seen, "");
}

template <typename Type> unsigned int throughMixIn(const Type& type) {
    return static_cast<const CTBaseType&>(type).GetClassId();
}

TEST(CompileTimeTypes, ArrayHoldsOneIndexType) {
    const CTArrayType type("a", VHDL_ARRAY, 5, 9);
    EXPECT_STREQ(type.m_name, "a");
    EXPECT_EQ(type.m_arrayKind, 0xA00001u);
    EXPECT_EQ(type.m_elementTypeId, 5u);
    EXPECT_EQ(type.m_indexTypeIds, std::vector<unsigned int>{9});
    EXPECT_EQ(type.getSVTypeId(), -99);
    EXPECT_EQ(static_cast<const RTBaseType&>(type).GetClassId(), 0xA0000010u);
    EXPECT_EQ(throughMixIn(type), 0xA0000010u);
}

TEST(CompileTimeTypes, AssociativeArrayKeepsANullName) {
    CTAssocArrayType type(nullptr, 3, 4);
    EXPECT_EQ(type.m_name, nullptr);
    EXPECT_EQ(type.m_elementTypeId, 3u);
    EXPECT_EQ(type.getIndexTypeId(), 4u);
    EXPECT_EQ(type.getArrayKind(), 0xA00005u);
    EXPECT_EQ(type.m_indexType, nullptr);
    EXPECT_EQ(type.GetClassId(), 0xA0000015u);
}

TEST(CompileTimeTypes, TypedefKeepsANullLink) {
    const CTTypedefType type("t", 7);
    EXPECT_EQ(throughMixIn(type), 0xA0000007u);
    EXPECT_EQ(type.m_dataTypeId, 7u);
    EXPECT_EQ(type.m_dataType, nullptr);
}

TEST(CompileTimeTypes, CopyTheirNames) {
    char name[] = "first";
    const CTQueueType type(name, 1);
    std::strcpy(name, "other");
    EXPECT_STREQ(type.m_name, "first");
}

TEST(CompileTimeTypes, AnswerTheClassOfTheirRunTimeTypeThroughBothBases) {
    EXPECT_EQ(throughMixIn(CTSeqEnumType()), 0xA0000003u);
    EXPECT_EQ(throughMixIn(CTDiscreteEnumType()), 0xA0000004u);
    EXPECT_EQ(throughMixIn(CTIntType()), 0xA0000005u);
    EXPECT_EQ(throughMixIn(CTFloatType()), 0xA0000006u);
    EXPECT_EQ(throughMixIn(CTAccessType("p", 1)), 0xA0000008u);
    EXPECT_EQ(throughMixIn(CTEventType()), 0xA000000Bu);
    EXPECT_EQ(throughMixIn(CTFileType("f", 1)), 0xA000000Cu);
    EXPECT_EQ(throughMixIn(CTPhysicalType()), 0xA000000Du);
    EXPECT_EQ(throughMixIn(CTRecordType()), 0xA0000011u);
    EXPECT_EQ(CTDynamicArrayType("d", 1).GetClassId(), 0xA0000013u);
    EXPECT_EQ(CTQueueType("q", 1).GetClassId(), 0xA0000014u);
}

} // namespace
