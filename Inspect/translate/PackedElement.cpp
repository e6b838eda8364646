#include "Inspect/translate/PackedElement.h"

#include "Inspect/model/BitPlaces.h"
#include "Inspect/translate/EnumTable.h"

#include <algorithm>

namespace Inspect {

using namespace RTTI;

PackedElement packedElementOf(const TypeTable& types, unsigned int id, const RTBaseType& type) {
    PackedElement element;
    element.type = &type;
    element.typeId = id;
    for (;;) {
        const RTBaseType& here = *element.type;
        if (here.GetClassId() == ClassId::TYPEDEF) {
            const auto& alias = static_cast<const RTTypedefType&>(here);
            element.type = alias.m_dataType;
            element.typeId = alias.m_dataTypeId;
        } else if (here.GetClassId() == ClassId::ARRAY) {
            const auto& array = static_cast<const RTArrayType&>(here);
            const auto end = array.m_constraints.begin() +
                             static_cast<std::ptrdiff_t>(array.m_indexTypeIds.size());
            element.dimensions.insert(element.dimensions.end(), array.m_constraints.begin(), end);
            element.type = array.m_elementType;
            element.typeId = array.m_elementTypeId;
        } else {
            break;
        }
    }
    const std::uint64_t width = types.widths->of(element.type).value_or(0);
    if (element.type->GetClassId() == ClassId::DISCRETE_ENUM && width <= MOST_ENUM_BITS) {
        element.kind = PackedElement::Kind::ENUMERATION;
    } else if (element.type->GetClassId() == ClassId::RECORD) {
        const auto& record = static_cast<const RTRecordType&>(*element.type);
        element.kind = record.m_recordKind == VLOG_PACKED_STRUCT ? PackedElement::Kind::STRUCT
                                                                 : PackedElement::Kind::UNION;
    } else {
        element.dimensions.clear();
        element.type = &type;
        element.typeId = id;
    }
    element.width = types.widths->of(element.type).value_or(0);
    return element;
}

std::vector<PackedMember> packedMembersOf(const TypeTable& types, const RTRecordType& record) {
    MemberPlaces places(&record, 0, types.widths->of(&record).value_or(0));
    std::vector<PackedMember> members;
    const std::size_t count = std::min(record.m_members.size(), record.m_memberTypes.size());
    for (std::size_t i = 0; i < count; ++i) {
        const RTAggregateType::t_Member* member = record.m_members[i];
        const RTBaseType* type = record.m_memberTypes[i];
        const auto width = types.widths->of(type);
        if (member != nullptr && width)
            members.push_back(
                {i, member->m_memberName, member->m_typeId, type, places.next(*width), *width});
    }
    return members;
}

} // namespace Inspect
