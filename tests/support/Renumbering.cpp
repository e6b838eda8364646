#include "tests/support/Renumbering.h"

namespace RTTITest {

using namespace RTTI;

namespace {

/// The fields that hold type ids, class by class, as the format lists them.
std::vector<unsigned int*> idFieldsOf(RTBaseType& type) {
    std::vector<unsigned int*> fields;
    if (auto* discreteEnum = dynamic_cast<RTDiscreteEnumType*>(&type))
        fields.push_back(&discreteEnum->m_baseTypeId);
    if (auto* alias = dynamic_cast<RTTypedefType*>(&type))
        fields.push_back(&alias->m_dataTypeId);
    if (auto* access = dynamic_cast<RTAccessType*>(&type))
        fields.push_back(&access->m_refTypeId);
    if (auto* file = dynamic_cast<RTFileType*>(&type))
        fields.push_back(&file->m_refTypeId);
    if (auto* array = dynamic_cast<RTArrayType*>(&type)) {
        fields.push_back(&array->m_elementTypeId);
        for (unsigned int& id : array->m_indexTypeIds)
            fields.push_back(&id);
    }
    if (auto* array = dynamic_cast<RTAbstractArrayType*>(&type))
        fields.push_back(&array->m_elementTypeId);
    if (auto* array = dynamic_cast<RTAssocArrayType*>(&type))
        fields.push_back(&array->m_indexTypeId);
    if (auto* inheriting = dynamic_cast<RTClassType*>(&type))
        fields.push_back(&inheriting->m_baseClassTypeId);
    if (auto* aggregate = dynamic_cast<RTAggregateType*>(&type)) {
        for (RTAggregateType::t_Member* member : aggregate->m_members)
            fields.push_back(&member->m_typeId);
    }
    return fields;
}

} // namespace

void mapReferences(RTBaseType& type, const std::function<unsigned int(unsigned int)>& newId) {
    for (unsigned int* id : idFieldsOf(type))
        *id = newId(*id);
}

} // namespace RTTITest
