#pragma once

#include "RTTI/RTType.h"
#include "RTTI/TypeFileFormat.h"

#include <type_traits>

namespace Import {

/// Calls `take` with each field of a type that holds the id of another one, in the order of the
/// record; not for those that may be and are empty. The fields of a type that may be changed can be
/// changed.
template <typename Type, typename Take> void forEachTypeId(Type& type, Take take);

namespace Detail {

template <typename To, typename From> auto& as(From& type) {
    return static_cast<std::conditional_t<std::is_const_v<From>, const To, To>&>(type);
}

template <typename Id, typename Take> void takeIfThere(Id& id, Take& take) {
    if (id != RTTI::TypeFileFormat::NO_TYPE_ID)
        take(id);
}

template <typename Type, typename Take> void takeAggregate(Type& type, Take& take) {
    for (auto* const member : type.m_members) {
        if constexpr (std::is_const_v<Type>)
            take(static_cast<const unsigned int&>(member->m_typeId));
        else
            take(member->m_typeId);
    }
}

template <typename Type, typename Take> void takeArray(Type& type, Take& take) {
    take(type.m_elementTypeId);
    for (auto& id : type.m_indexTypeIds)
        takeIfThere(id, take);
}

} // namespace Detail

template <typename Type, typename Take> void forEachTypeId(Type& type, Take take) {
    using namespace RTTI;
    using Detail::as;
    switch (type.GetClassId()) {
    case ClassId::DISCRETE_ENUM: take(as<RTDiscreteEnumType>(type).m_baseTypeId); break;
    case ClassId::TYPEDEF: take(as<RTTypedefType>(type).m_dataTypeId); break;
    case ClassId::ACCESS: take(as<RTAccessType>(type).m_refTypeId); break;
    case ClassId::FILE_TYPE: take(as<RTFileType>(type).m_refTypeId); break;
    case ClassId::ARRAY: Detail::takeArray(as<RTArrayType>(type), take); break;
    case ClassId::DYNAMIC_ARRAY:
    case ClassId::QUEUE: take(as<RTAbstractArrayType>(type).m_elementTypeId); break;
    case ClassId::ASSOC_ARRAY:
        take(as<RTAbstractArrayType>(type).m_elementTypeId);
        take(as<RTAssocArrayType>(type).m_indexTypeId);
        break;
    case ClassId::RECORD: Detail::takeAggregate(as<RTRecordType>(type), take); break;
    case ClassId::CLASS:
        Detail::takeIfThere(as<RTClassType>(type).m_baseClassTypeId, take);
        Detail::takeAggregate(as<RTClassType>(type), take);
        break;
    default: break; // The others refer to nothing.
    }
}

} // namespace Import
