#pragma once

#include "RTTI/RTType.h"

#include <stdexcept>

namespace Bench {

/// Calls `action` with a type as an object of its own class. Generated tables have no other kinds
/// than these; std::logic_error for one that they have not.
template <typename Action> void asItsKind(const RTTI::RTBaseType& type, Action&& action) {
    using namespace RTTI;
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM: return action(static_cast<const RTSeqEnumType&>(type));
    case ClassId::DISCRETE_ENUM: return action(static_cast<const RTDiscreteEnumType&>(type));
    case ClassId::INT: return action(static_cast<const RTIntType&>(type));
    case ClassId::FLOAT: return action(static_cast<const RTFloatType&>(type));
    case ClassId::STRING: return action(static_cast<const RTStringType&>(type));
    case ClassId::PHYSICAL: return action(static_cast<const RTPhysicalType&>(type));
    case ClassId::TYPEDEF: return action(static_cast<const RTTypedefType&>(type));
    case ClassId::ACCESS: return action(static_cast<const RTAccessType&>(type));
    case ClassId::ARRAY: return action(static_cast<const RTArrayType&>(type));
    case ClassId::QUEUE: return action(static_cast<const RTQueueType&>(type));
    case ClassId::DYNAMIC_ARRAY: return action(static_cast<const RTDynamicArrayType&>(type));
    case ClassId::ASSOC_ARRAY: return action(static_cast<const RTAssocArrayType&>(type));
    case ClassId::RECORD: return action(static_cast<const RTRecordType&>(type));
    case ClassId::CLASS: return action(static_cast<const RTClassType&>(type));
    default: throw std::logic_error("a kind that generated tables do not have");
    }
}

} // namespace Bench
