#pragma once

#include "RTTI/RTType.h"

#include <typeinfo>

namespace RTTI {

/// In place of a class id: nothing is below the type.
inline constexpr unsigned int SCALAR = 0;

/// Whether the type is of one of the classes at which most ways end.
inline bool isScalar(const RTBaseType& type) {
    const std::type_info* const exact = &typeid(type);
    return exact == &typeid(RTSeqEnumType) || exact == &typeid(RTIntType) ||
           exact == &typeid(RTFloatType);
}

/// What GetClassId answers, and SCALAR for the types at which most ways end. Walks meet few other
/// classes than those that are told without a call; classes derived from them are asked.
inline unsigned int classIdOf(const RTBaseType& type) {
    const std::type_info* const exact = &typeid(type);
    if (exact == &typeid(RTArrayType))
        return ClassId::ARRAY;
    if (exact == &typeid(RTTypedefType))
        return ClassId::TYPEDEF;
    if (isScalar(type))
        return SCALAR;
    if (exact == &typeid(RTRecordType))
        return ClassId::RECORD;
    if (exact == &typeid(RTClassType))
        return ClassId::CLASS;
    if (exact == &typeid(RTDiscreteEnumType))
        return ClassId::DISCRETE_ENUM;
    return type.GetClassId();
}

} // namespace RTTI
