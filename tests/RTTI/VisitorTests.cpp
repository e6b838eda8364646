// Which overload of a visitor each class calls, and what becomes of its result.

#include "RTTI/CTType.h"
#include "RTTI/RTTypeVisitor.h"
#include "tests/support/LinkedTypes.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace {

using namespace RTTI;
using namespace RTTITest;

/// Records the calls: the overload's name and the object that it was given.
template <typename Visitor> class Recorder : public Visitor {
public:
    using Visitor::visit;

    bool visit(const RTBaseType& type) override { return record("RTBaseType", &type); }
    bool visit(const RTEnumType& type) override { return record("RTEnumType", &type); }
    bool visit(const RTSeqEnumType& type) override { return record("RTSeqEnumType", &type); }
    bool visit(const RTDiscreteEnumType& type) override {
        return record("RTDiscreteEnumType", &type);
    }
    bool visit(const RTIntType& type) override { return record("RTIntType", &type); }
    bool visit(const RTFloatType& type) override { return record("RTFloatType", &type); }
    bool visit(const RTTypedefType& type) override { return record("RTTypedefType", &type); }
    bool visit(const RTAccessType& type) override { return record("RTAccessType", &type); }
    bool visit(const RTCHandle& type) override { return record("RTCHandle", &type); }
    bool visit(const RTClassHandle&) override { return record("RTClassHandle", nullptr); }
    bool visit(const RTEventType& type) override { return record("RTEventType", &type); }
    bool visit(const RTFileType& type) override { return record("RTFileType", &type); }
    bool visit(const RTPhysicalType& type) override { return record("RTPhysicalType", &type); }
    bool visit(const RTLogicType&) override { return record("RTLogicType", nullptr); }
    bool visit(const RTBitType&) override { return record("RTBitType", nullptr); }
    bool visit(const RTArrayType& type) override { return record("RTArrayType", &type); }
    bool visit(const RTAbstractArrayType& type) override {
        return record("RTAbstractArrayType", &type);
    }
    bool visit(const RTDynamicArrayType& type) override {
        return record("RTDynamicArrayType", &type);
    }
    bool visit(const RTQueueType& type) override { return record("RTQueueType", &type); }
    bool visit(const RTAssocArrayType& type) override { return record("RTAssocArrayType", &type); }
    bool visit(const RTAggregateType& type) override { return record("RTAggregateType", &type); }
    bool visit(const RTRecordType& type) override { return record("RTRecordType", &type); }
    bool visit(const RTClassType& type) override { return record("RTClassType", &type); }
    bool visit(const RTStringType& type) override { return record("RTStringType", &type); }

    std::string m_overloads; ///< Every overload called, a space after each.
    const RTBaseType* m_visited = nullptr;
    bool m_result = true;

private:
    bool record(const char* overload, const RTBaseType* type) {
        m_overloads += std::string(overload) + ' ';
        m_visited = type;
        return m_result;
    }
};

/// An aggregate that does not say how it is visited.
class OtherAggregate : public RTAggregateType {
public:
    ValueEncoding getValueEncoding() const override { return ENCODING_BYTE; }
};

std::string overloadsCalled(const RTBaseType& type) {
    Recorder<RTTypeVisitor> visitor;
    type.accept(visitor);
    EXPECT_EQ(visitor.m_visited, &type);
    return visitor.m_overloads;
}

TEST(Visitors, EveryScalarClassCallsItsOwnOverloadOnce) {
    EXPECT_EQ(overloadsCalled(RTEnumType()), "RTEnumType ");
    EXPECT_EQ(overloadsCalled(RTSeqEnumType()), "RTSeqEnumType ");
    EXPECT_EQ(overloadsCalled(RTDiscreteEnumType()), "RTDiscreteEnumType ");
    EXPECT_EQ(overloadsCalled(RTIntType()), "RTIntType ");
    EXPECT_EQ(overloadsCalled(RTFloatType()), "RTFloatType ");
    EXPECT_EQ(overloadsCalled(RTCHandle()), "RTCHandle ");
    EXPECT_EQ(overloadsCalled(RTEventType()), "RTEventType ");
    EXPECT_EQ(overloadsCalled(RTPhysicalType()), "RTPhysicalType ");
    EXPECT_EQ(overloadsCalled(RTStringType()), "RTStringType ");
}

TEST(Visitors, EveryClassThatRefersToOthersCallsItsOwnOverloadOnce) {
    EXPECT_EQ(overloadsCalled(RTTypedefType()), "RTTypedefType ");
    EXPECT_EQ(overloadsCalled(RTAccessType()), "RTAccessType ");
    EXPECT_EQ(overloadsCalled(RTFileType()), "RTFileType ");
    EXPECT_EQ(overloadsCalled(RTArrayType()), "RTArrayType ");
    EXPECT_EQ(overloadsCalled(RTAbstractArrayType()), "RTAbstractArrayType ");
    EXPECT_EQ(overloadsCalled(RTDynamicArrayType()), "RTDynamicArrayType ");
    EXPECT_EQ(overloadsCalled(RTQueueType()), "RTQueueType ");
    EXPECT_EQ(overloadsCalled(RTAssocArrayType()), "RTAssocArrayType ");
    EXPECT_EQ(overloadsCalled(OtherAggregate()), "RTAggregateType ");
    EXPECT_EQ(overloadsCalled(RTRecordType()), "RTRecordType ");
    EXPECT_EQ(overloadsCalled(RTClassType()), "RTClassType ");
}

TEST(Visitors, WildcardCallsTheOverloadOfTheBaseType) {
    EXPECT_EQ(overloadsCalled(RTWildCardType()), "RTBaseType ");
}

TEST(Visitors, CompileTimeQueueIsVisitedAsAQueue) {
    EXPECT_EQ(overloadsCalled(CTQueueType("q", 1)), "RTQueueType ");
}

TEST(Visitors, CompileTimeTypesAreVisitedAsTheirRunTimeClass) {
    EXPECT_EQ(overloadsCalled(CTSeqEnumType()), "RTSeqEnumType ");
    EXPECT_EQ(overloadsCalled(CTDiscreteEnumType()), "RTDiscreteEnumType ");
    EXPECT_EQ(overloadsCalled(CTIntType()), "RTIntType ");
    EXPECT_EQ(overloadsCalled(CTFloatType()), "RTFloatType ");
    EXPECT_EQ(overloadsCalled(CTTypedefType()), "RTTypedefType ");
    EXPECT_EQ(overloadsCalled(CTAccessType()), "RTAccessType ");
    EXPECT_EQ(overloadsCalled(CTEventType()), "RTEventType ");
    EXPECT_EQ(overloadsCalled(CTFileType()), "RTFileType ");
    EXPECT_EQ(overloadsCalled(CTPhysicalType()), "RTPhysicalType ");
    EXPECT_EQ(overloadsCalled(CTArrayType()), "RTArrayType ");
    EXPECT_EQ(overloadsCalled(CTRecordType()), "RTRecordType ");
    EXPECT_EQ(overloadsCalled(CTDynamicArrayType("d", 1)), "RTDynamicArrayType ");
    EXPECT_EQ(overloadsCalled(CTAssocArrayType("a", 1, 2)), "RTAssocArrayType ");
}

TEST(Visitors, AcceptReturnsWhatTheOverloadReturns) {
    LinkedTypes types;
    types.add<RTIntType>();
    types.add<RTWildCardType>();
    types.structure();
    types.classType();
    types.add<CTQueueType>("", 1U);
    Recorder<RTTypeVisitor> visitor;
    for (unsigned int id = 0; id < types.size(); ++id) {
        for (const bool result : {true, false}) {
            visitor.m_result = result;
            EXPECT_EQ(types[id].accept(visitor), result) << id;
        }
    }
}

TEST(Visitors, TypedefIsVisitedAsATypedefNotAsWhatItNames) {
    LinkedTypes types;
    EXPECT_EQ(overloadsCalled(types[types.alias(types.integer())]), "RTTypedefType ");
}

/// Counts integers and says no to them; all other classes are as the default visitor has them.
class IntCounter : public RTTypeDefaultVisitor {
public:
    using RTTypeDefaultVisitor::visit;

    bool visit(const RTIntType&) override {
        ++m_integers;
        return false;
    }

    int m_integers = 0;
};

TEST(Visitors, DefaultVisitorLeavesAClassThatOverridesOneOverload) {
    IntCounter visitor;
    EXPECT_FALSE(RTIntType().accept(visitor));
    EXPECT_TRUE(RTFloatType().accept(visitor));
    EXPECT_EQ(visitor.m_integers, 1);
}

TEST(Visitors, DefaultVisitorReturnsTrueForEveryClass) {
    RTTypeDefaultVisitor visitor;
    EXPECT_TRUE(RTEnumType().accept(visitor));
    EXPECT_TRUE(RTSeqEnumType().accept(visitor));
    EXPECT_TRUE(RTDiscreteEnumType().accept(visitor));
    EXPECT_TRUE(RTIntType().accept(visitor));
    EXPECT_TRUE(RTFloatType().accept(visitor));
    EXPECT_TRUE(RTTypedefType().accept(visitor));
    EXPECT_TRUE(RTAccessType().accept(visitor));
    EXPECT_TRUE(RTCHandle().accept(visitor));
    EXPECT_TRUE(RTEventType().accept(visitor));
    EXPECT_TRUE(RTFileType().accept(visitor));
    EXPECT_TRUE(RTPhysicalType().accept(visitor));
    EXPECT_TRUE(RTArrayType().accept(visitor));
    EXPECT_TRUE(RTAbstractArrayType().accept(visitor));
    EXPECT_TRUE(RTDynamicArrayType().accept(visitor));
    EXPECT_TRUE(RTQueueType().accept(visitor));
    EXPECT_TRUE(RTAssocArrayType().accept(visitor));
    EXPECT_TRUE(OtherAggregate().accept(visitor));
    EXPECT_TRUE(RTRecordType().accept(visitor));
    EXPECT_TRUE(RTClassType().accept(visitor));
    EXPECT_TRUE(RTStringType().accept(visitor));
    EXPECT_TRUE(RTWildCardType().accept(visitor));
}

static_assert(std::is_abstract_v<RTTypeVisitor>);
static_assert(std::is_abstract_v<RTTypeDumperVisitor>);

/// Whether the dumper's overload for pointers to `Type` returns true and calls no other overload.
template <typename Type> bool dumperDoesNothing(Type* type) {
    Recorder<RTTypeDumperVisitor> visitor;
    visitor.m_result = false;
    return visitor.visit(type) && visitor.m_overloads.empty();
}

template <typename... Types> void expectDumperDoesNothing() {
    EXPECT_TRUE((dumperDoesNothing(static_cast<Types*>(nullptr)) && ...));
}

TEST(Visitors, DumperDoesNothingForPointersAndReturnsTrue) {
    expectDumperDoesNothing<RTBaseType, RTEnumType, RTSeqEnumType, RTDiscreteEnumType, RTIntType,
                            RTFloatType, RTTypedefType, RTAccessType>();
    expectDumperDoesNothing<RTCHandle, RTClassHandle, RTEventType, RTFileType, RTPhysicalType,
                            RTLogicType, RTBitType, RTArrayType>();
    expectDumperDoesNothing<RTAbstractArrayType, RTDynamicArrayType, RTQueueType, RTAssocArrayType,
                            RTRecordType, RTClassType, RTStringType>();
}

TEST(Visitors, AcceptCallsTheOverloadForConstantTypesOfADumper) {
    Recorder<RTTypeDumperVisitor> visitor;
    visitor.m_result = false;
    RTQueueType queue;
    EXPECT_FALSE(queue.accept(visitor));
    EXPECT_EQ(visitor.m_overloads, "RTQueueType ");
}

} // namespace
