#include "Inspect/TypeReferences.h"

#include <unordered_set>

namespace Inspect {

using namespace RTTI;

namespace {

std::vector<unsigned int> membersOf(const RTAggregateType& type) {
    std::vector<unsigned int> ids;
    for (const RTAggregateType::t_Member* member : type.m_members) {
        if (member != nullptr)
            ids.push_back(member->m_typeId);
    }
    return ids;
}

std::vector<unsigned int> fieldsOf(const RTBaseType& type) {
    std::vector<unsigned int> ids;
    switch (type.GetClassId()) {
    case ClassId::DISCRETE_ENUM: return {static_cast<const RTDiscreteEnumType&>(type).m_baseTypeId};
    case ClassId::TYPEDEF: return {static_cast<const RTTypedefType&>(type).m_dataTypeId};
    case ClassId::ACCESS: return {static_cast<const RTAccessType&>(type).m_refTypeId};
    case ClassId::FILE_TYPE: return {static_cast<const RTFileType&>(type).m_refTypeId};
    case ClassId::ARRAY: {
        const auto& array = static_cast<const RTArrayType&>(type);
        ids = {array.m_elementTypeId};
        ids.insert(ids.end(), array.m_indexTypeIds.begin(), array.m_indexTypeIds.end());
        return ids;
    }
    case ClassId::DYNAMIC_ARRAY:
    case ClassId::QUEUE: return {static_cast<const RTAbstractArrayType&>(type).m_elementTypeId};
    case ClassId::ASSOC_ARRAY: {
        const auto& array = static_cast<const RTAssocArrayType&>(type);
        return {array.m_elementTypeId, array.m_indexTypeId};
    }
    case ClassId::RECORD: return membersOf(static_cast<const RTRecordType&>(type));
    case ClassId::CLASS: {
        const auto& derived = static_cast<const RTClassType&>(type);
        ids = membersOf(derived);
        ids.insert(ids.begin(), derived.m_baseClassTypeId);
        return ids;
    }
    default: return {};
    }
}

} // namespace

std::vector<unsigned int> referencesOf(const RTBaseType& type) {
    std::vector<unsigned int> distinct;
    std::unordered_set<unsigned int> seen{TypeFileFormat::NO_TYPE_ID};
    for (const unsigned int id : fieldsOf(type)) {
        if (seen.insert(id).second)
            distinct.push_back(id);
    }
    return distinct;
}

} // namespace Inspect
