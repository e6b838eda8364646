#include "RTTI/RTTypeVisitor.h"

namespace RTTI {

RTTypeVisitor::~RTTypeVisitor() = default;

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
