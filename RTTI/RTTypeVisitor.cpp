#include "RTTI/RTTypeVisitor.h"

namespace RTTI {

RTTypeVisitor::~RTTypeVisitor() = default;

bool RTEnumType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTSeqEnumType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTDiscreteEnumType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTIntType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTFloatType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTTypedefType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTAccessType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTCHandle::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTEventType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTFileType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTPhysicalType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTArrayType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTAbstractArrayType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTDynamicArrayType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTQueueType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTAssocArrayType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTAggregateType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTRecordType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTClassType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }
bool RTStringType::accept(RTTypeVisitor& visitor) const { return visitor.visit(*this); }

/// The wildcard has no overload of its own.
bool RTWildCardType::accept(RTTypeVisitor& visitor) const {
    return visitor.visit(static_cast<const RTBaseType&>(*this));
}

bool RTTypeDefaultVisitor::visit(const RTBaseType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTEnumType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTSeqEnumType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTDiscreteEnumType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTIntType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTFloatType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTTypedefType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTAccessType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTCHandle&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTClassHandle&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTEventType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTFileType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTPhysicalType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTLogicType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTBitType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTArrayType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTAbstractArrayType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTDynamicArrayType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTQueueType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTAssocArrayType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTAggregateType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTRecordType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTClassType&) { return true; }

bool RTTypeDefaultVisitor::visit(const RTStringType&) { return true; }

bool RTTypeDumperVisitor::visit(RTBaseType*) { return true; }

bool RTTypeDumperVisitor::visit(RTEnumType*) { return true; }

bool RTTypeDumperVisitor::visit(RTSeqEnumType*) { return true; }

bool RTTypeDumperVisitor::visit(RTDiscreteEnumType*) { return true; }

bool RTTypeDumperVisitor::visit(RTIntType*) { return true; }

bool RTTypeDumperVisitor::visit(RTFloatType*) { return true; }

bool RTTypeDumperVisitor::visit(RTTypedefType*) { return true; }

bool RTTypeDumperVisitor::visit(RTAccessType*) { return true; }

bool RTTypeDumperVisitor::visit(RTCHandle*) { return true; }

bool RTTypeDumperVisitor::visit(RTClassHandle*) { return true; }

bool RTTypeDumperVisitor::visit(RTEventType*) { return true; }

bool RTTypeDumperVisitor::visit(RTFileType*) { return true; }

bool RTTypeDumperVisitor::visit(RTPhysicalType*) { return true; }

bool RTTypeDumperVisitor::visit(RTLogicType*) { return true; }

bool RTTypeDumperVisitor::visit(RTBitType*) { return true; }

bool RTTypeDumperVisitor::visit(RTArrayType*) { return true; }

bool RTTypeDumperVisitor::visit(RTAbstractArrayType*) { return true; }

bool RTTypeDumperVisitor::visit(RTDynamicArrayType*) { return true; }

bool RTTypeDumperVisitor::visit(RTQueueType*) { return true; }

bool RTTypeDumperVisitor::visit(RTAssocArrayType*) { return true; }

bool RTTypeDumperVisitor::visit(RTRecordType*) { return true; }

bool RTTypeDumperVisitor::visit(RTClassType*) { return true; }

bool RTTypeDumperVisitor::visit(RTStringType*) { return true; }

} // namespace RTTI
