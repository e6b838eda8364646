#include "Inspect/translate/PackedElement.h"

#include "Inspect/translate/EnumTable.h"

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

} // namespace Inspect
