#include "tests/support/LinkedTypes.h"

using namespace RTTI;

unsigned int LinkedTypes::integer(const std::string& name, int left, int right) {
    add<RTIntType>(name).m_constraint = {left, right, left <= right ? 1 : 0};
    return last();
}

unsigned int LinkedTypes::enumeration(const std::string& name,
                                      const std::vector<std::string>& literals) {
    auto& type = add<RTSeqEnumType>(name);
    type.m_enumKind = VHDL_OTHER_ENUM;
    for (const std::string& literal : literals)
        TypeFile::addLiteral(type, literal);
    return last();
}

unsigned int LinkedTypes::alias(const std::string& name, unsigned int data,
                                std::vector<FullConstraints> ranges) {
    auto& type = add<RTTypedefType>(name);
    type.m_dataTypeId = data;
    type.m_constraints = std::move(ranges);
    return last();
}

unsigned int LinkedTypes::vhdlArray(const std::string& name, unsigned int element,
                                    const std::vector<unsigned int>& indices,
                                    std::vector<FullConstraints> ranges) {
    auto& type = add<RTArrayType>(name);
    type.m_arrayKind = VHDL_ARRAY;
    type.m_elementTypeId = element;
    type.m_indexTypeIds = indices;
    type.m_constraints = std::move(ranges);
    return last();
}

unsigned int LinkedTypes::array(ArrayKind kind, const std::string& name, unsigned int element,
                                std::vector<FullConstraints> ranges) {
    auto& type = add<RTArrayType>(name);
    type.m_arrayKind = kind;
    type.m_elementTypeId = element;
    type.m_indexTypeIds.assign(ranges.size(), TypeFileFormat::NO_TYPE_ID);
    type.m_constraints = std::move(ranges);
    return last();
}

unsigned int LinkedTypes::access(const std::string& name, unsigned int designated) {
    add<RTAccessType>(name).m_refTypeId = designated;
    return last();
}

unsigned int LinkedTypes::logic() {
    const unsigned int id = enumeration("logic", {"0", "1", "X", "Z"});
    auto& type = static_cast<RTSeqEnumType&>(*m_types[id]);
    type.m_enumKind = VLOG_BUILTIN_ENUM;
    type.m_valueEncoding = ENCODING_4_STATE;
    return id;
}

unsigned int LinkedTypes::bit() {
    const unsigned int id = enumeration("bit", {"0", "1"});
    auto& type = static_cast<RTSeqEnumType&>(*m_types[id]);
    type.m_enumKind = VLOG_BUILTIN_ENUM;
    type.m_valueEncoding = ENCODING_2_STATE;
    return id;
}

unsigned int LinkedTypes::hole() {
    m_types.push_back(nullptr);
    return last();
}

const RTBaseType* LinkedTypes::at(unsigned int id) const {
    return id < m_types.size() ? m_types[id].get() : nullptr;
}

void LinkedTypes::link(RTBaseType& type) const {
    if (auto* alias = dynamic_cast<RTTypedefType*>(&type))
        alias->m_dataType = at(alias->m_dataTypeId);
    else if (auto* discrete = dynamic_cast<RTDiscreteEnumType*>(&type))
        discrete->m_baseType = at(discrete->m_baseTypeId);
    else if (auto* access = dynamic_cast<RTAccessType*>(&type))
        access->m_refType = at(access->m_refTypeId);
    else if (auto* file = dynamic_cast<RTFileType*>(&type))
        file->m_refType = at(file->m_refTypeId);
    else if (auto* array = dynamic_cast<RTArrayType*>(&type))
        array->m_elementType = at(array->m_elementTypeId);
    else if (auto* container = dynamic_cast<RTAbstractArrayType*>(&type))
        container->m_elementType = at(container->m_elementTypeId);
    else if (auto* aggregate = dynamic_cast<RTAggregateType*>(&type)) {
        aggregate->m_memberTypes.clear();
        for (const RTAggregateType::t_Member* member : aggregate->m_members)
            aggregate->m_memberTypes.push_back(member != nullptr ? at(member->m_typeId) : nullptr);
    }
    if (auto* derived = dynamic_cast<RTClassType*>(&type))
        derived->m_baseClass = at(derived->m_baseClassTypeId);
    if (auto* map = dynamic_cast<RTAssocArrayType*>(&type))
        map->m_indexType = at(map->m_indexTypeId);
}

Inspect::TypeTable LinkedTypes::table() {
    for (const auto& type : m_types) {
        if (type != nullptr)
            link(*type);
    }
    return {static_cast<unsigned int>(m_types.size()), [this](unsigned int id) { return at(id); }};
}
