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
    type.m_valueEncoding = ENCODING_BYTE;
    type.m_valueSize = 1;
    for (const std::string& literal : literals)
        TypeFile::addLiteral(type, literal);
    return last();
}

unsigned int LinkedTypes::string() {
    add<RTStringType>("string");
    return last();
}

unsigned int LinkedTypes::alias(const std::string& name, unsigned int data, Ranges ranges) {
    auto& type = add<RTTypedefType>(name);
    type.m_dataTypeId = data;
    type.m_constraints = std::move(ranges);
    return last();
}

unsigned int LinkedTypes::vhdlArray(const std::string& name, unsigned int element,
                                    const std::vector<unsigned int>& indices, Ranges ranges) {
    auto& type = add<RTArrayType>(name);
    type.m_arrayKind = VHDL_ARRAY;
    type.m_elementTypeId = element;
    type.m_indexTypeIds = indices;
    type.m_constraints = std::move(ranges);
    return last();
}

unsigned int LinkedTypes::array(ArrayKind kind, const std::string& name, unsigned int element,
                                Ranges ranges) {
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

unsigned int LinkedTypes::packed(const std::string& name, unsigned int element, Ranges ranges) {
    return array(VLOG_FIXED_PACKED_ARRAY, name, element, std::move(ranges));
}

unsigned int LinkedTypes::packed(unsigned int element, Ranges ranges) {
    return packed("", element, std::move(ranges));
}

unsigned int LinkedTypes::queue(unsigned int element) {
    add<RTQueueType>("").m_elementTypeId = element;
    return last();
}

unsigned int LinkedTypes::structure(const std::string& name, const std::vector<Member>& members,
                                    RecordKind kind) {
    auto& type = add<RTRecordType>(name);
    type.m_recordKind = kind;
    for (const Member& member : members)
        TypeFile::addMember(type, member.name, member.typeId, member.ranges);
    return last();
}

unsigned int LinkedTypes::classType(const std::string& name, const std::vector<Member>& members,
                                    unsigned int base) {
    auto& type = add<RTClassType>(name);
    type.m_baseClassTypeId = base;
    for (const Member& member : members)
        TypeFile::addMember(type, member.name, member.typeId, member.ranges);
    return last();
}

unsigned int LinkedTypes::logic() {
    auto& type = as<RTSeqEnumType>(enumeration("logic", {"0", "1", "x", "z"}));
    type.m_enumKind = VLOG_BUILTIN_ENUM;
    type.m_valueEncoding = ENCODING_4_STATE;
    return last();
}

unsigned int LinkedTypes::bit() {
    auto& type = as<RTSeqEnumType>(enumeration("bit", {"0", "1"}));
    type.m_enumKind = VLOG_BUILTIN_ENUM;
    type.m_valueEncoding = ENCODING_2_STATE;
    return last();
}

unsigned int LinkedTypes::hole() {
    m_types.push_back(nullptr);
    return last();
}

RTBaseType* LinkedTypes::at(unsigned int id) const {
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

Inspect::TypeTable LinkedTypes::table() const {
    for (const auto& type : m_types) {
        if (type != nullptr)
            link(*type);
    }
    return {size(), [this](unsigned int id) { return at(id); }};
}
