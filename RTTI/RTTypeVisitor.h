#pragma once

#include "RTTI/RTType.h"

namespace RTTI {

// Declared only for the visitor's overload set: no type of the library has one of these classes.
class RTClassHandle;
class RTLogicType;
class RTBitType;

/// Acts on a type according to its class. `RTBaseType::accept` calls the overload for the class of
/// the type and returns its result; the visitor itself has to follow links to other types. The
/// order of the overloads is part of the binary interface. To act on only a few classes, derive
/// from RTTypeDefaultVisitor.
class RTTI_EXPORT RTTypeVisitor {
public:
    virtual ~RTTypeVisitor();

    /// Acts on a type of this class; `accept` returns the result. The overload for RTBaseType
    /// receives the wildcard type.
    /// @{
    virtual bool visit(const RTBaseType& type) = 0;
    virtual bool visit(const RTEnumType& type) = 0;
    virtual bool visit(const RTSeqEnumType& type) = 0;
    virtual bool visit(const RTDiscreteEnumType& type) = 0;
    virtual bool visit(const RTIntType& type) = 0;
    virtual bool visit(const RTFloatType& type) = 0;
    virtual bool visit(const RTTypedefType& type) = 0;
    virtual bool visit(const RTAccessType& type) = 0;
    virtual bool visit(const RTCHandle& type) = 0;
    virtual bool visit(const RTClassHandle& type) = 0;
    virtual bool visit(const RTEventType& type) = 0;
    virtual bool visit(const RTFileType& type) = 0;
    virtual bool visit(const RTPhysicalType& type) = 0;
    virtual bool visit(const RTLogicType& type) = 0;
    virtual bool visit(const RTBitType& type) = 0;
    virtual bool visit(const RTArrayType& type) = 0;
    virtual bool visit(const RTAbstractArrayType& type) = 0;
    virtual bool visit(const RTDynamicArrayType& type) = 0;
    virtual bool visit(const RTQueueType& type) = 0;
    virtual bool visit(const RTAssocArrayType& type) = 0;
    virtual bool visit(const RTAggregateType& type) = 0;
    virtual bool visit(const RTRecordType& type) = 0;
    virtual bool visit(const RTClassType& type) = 0;
    virtual bool visit(const RTStringType& type) = 0;
    /// @}
};

/// A visitor whose overloads all do nothing and return true: derive from it and override those that
/// you need.
class RTTI_EXPORT RTTypeDefaultVisitor : public RTTypeVisitor {
public:
    /// Does nothing and returns true.
    /// @{
    bool visit(const RTBaseType& type) override;
    bool visit(const RTEnumType& type) override;
    bool visit(const RTSeqEnumType& type) override;
    bool visit(const RTDiscreteEnumType& type) override;
    bool visit(const RTIntType& type) override;
    bool visit(const RTFloatType& type) override;
    bool visit(const RTTypedefType& type) override;
    bool visit(const RTAccessType& type) override;
    bool visit(const RTCHandle& type) override;
    bool visit(const RTClassHandle& type) override;
    bool visit(const RTEventType& type) override;
    bool visit(const RTFileType& type) override;
    bool visit(const RTPhysicalType& type) override;
    bool visit(const RTLogicType& type) override;
    bool visit(const RTBitType& type) override;
    bool visit(const RTArrayType& type) override;
    bool visit(const RTAbstractArrayType& type) override;
    bool visit(const RTDynamicArrayType& type) override;
    bool visit(const RTQueueType& type) override;
    bool visit(const RTAssocArrayType& type) override;
    bool visit(const RTAggregateType& type) override;
    bool visit(const RTRecordType& type) override;
    bool visit(const RTClassType& type) override;
    bool visit(const RTStringType& type) override;
    /// @}
};

/// A visitor with a second set of overloads, which take pointers to non-const types, do nothing and
/// return true. A subclass has to implement the overloads of RTTypeVisitor.
class RTTI_EXPORT RTTypeDumperVisitor : public RTTypeVisitor {
public:
    using RTTypeVisitor::visit;

    /// Does nothing and returns true unless overridden. `accept` never calls these overloads.
    /// @{
    virtual bool visit(RTBaseType* type);
    virtual bool visit(RTEnumType* type);
    virtual bool visit(RTSeqEnumType* type);
    virtual bool visit(RTDiscreteEnumType* type);
    virtual bool visit(RTIntType* type);
    virtual bool visit(RTFloatType* type);
    virtual bool visit(RTTypedefType* type);
    virtual bool visit(RTAccessType* type);
    virtual bool visit(RTCHandle* type);
    virtual bool visit(RTClassHandle* type);
    virtual bool visit(RTEventType* type);
    virtual bool visit(RTFileType* type);
    virtual bool visit(RTPhysicalType* type);
    virtual bool visit(RTLogicType* type);
    virtual bool visit(RTBitType* type);
    virtual bool visit(RTArrayType* type);
    virtual bool visit(RTAbstractArrayType* type);
    virtual bool visit(RTDynamicArrayType* type);
    virtual bool visit(RTQueueType* type);
    virtual bool visit(RTAssocArrayType* type);
    virtual bool visit(RTRecordType* type);
    virtual bool visit(RTClassType* type);
    virtual bool visit(RTStringType* type);
    /// @}
};

} // namespace RTTI
