#include "Inspect/model/TypeReferences.h"

#include "Inspect/words/TypeText.h"

#include <unordered_set>

namespace Inspect {

using namespace RTTI;

namespace {

/// Collects the links of one type.
class LinkList {
public:
    explicit LinkList(std::vector<TypeLink>& links) : m_links(links) { m_links.clear(); }

    void add(LinkRole role, unsigned int typeId, std::size_t position = 0) {
        if (typeId != TypeFileFormat::NO_TYPE_ID)
            m_links.push_back({role, static_cast<unsigned int>(position), typeId});
    }

    void addArray(const RTArrayType& array) {
        add(LinkRole::ELEMENT, array.m_elementTypeId);
        for (std::size_t i = 0; i < array.m_indexTypeIds.size(); ++i)
            add(LinkRole::INDEX, array.m_indexTypeIds[i], i);
    }

    void addMembers(const RTAggregateType& type) {
        for (std::size_t i = 0; i < type.m_members.size(); ++i) {
            if (type.m_members[i] != nullptr)
                add(LinkRole::MEMBER, type.m_members[i]->m_typeId, i);
        }
    }

private:
    std::vector<TypeLink>& m_links;
};

} // namespace

void linksOf(const RTBaseType& type, std::vector<TypeLink>& links) {
    LinkList list(links);
    switch (type.GetClassId()) {
    case ClassId::DISCRETE_ENUM:
        return list.add(LinkRole::BASE_TYPE,
                        static_cast<const RTDiscreteEnumType&>(type).m_baseTypeId);
    case ClassId::TYPEDEF:
        return list.add(LinkRole::ALIASED, static_cast<const RTTypedefType&>(type).m_dataTypeId);
    case ClassId::ACCESS:
        return list.add(LinkRole::DESIGNATED, static_cast<const RTAccessType&>(type).m_refTypeId);
    case ClassId::FILE_TYPE:
        return list.add(LinkRole::FILE_ELEMENT, static_cast<const RTFileType&>(type).m_refTypeId);
    case ClassId::ARRAY: return list.addArray(static_cast<const RTArrayType&>(type));
    case ClassId::DYNAMIC_ARRAY:
    case ClassId::QUEUE:
        return list.add(LinkRole::ELEMENT,
                        static_cast<const RTAbstractArrayType&>(type).m_elementTypeId);
    case ClassId::ASSOC_ARRAY:
        list.add(LinkRole::ELEMENT, static_cast<const RTAssocArrayType&>(type).m_elementTypeId);
        return list.add(LinkRole::INDEX, static_cast<const RTAssocArrayType&>(type).m_indexTypeId);
    case ClassId::RECORD: return list.addMembers(static_cast<const RTRecordType&>(type));
    case ClassId::CLASS:
        list.add(LinkRole::BASE_CLASS, static_cast<const RTClassType&>(type).m_baseClassTypeId);
        return list.addMembers(static_cast<const RTClassType&>(type));
    default: return;
    }
}

std::string linkText(const RTBaseType& type, const TypeLink& link) {
    switch (link.role) {
    case LinkRole::ALIASED: return "aliased type";
    case LinkRole::BASE_TYPE: return "base type";
    case LinkRole::DESIGNATED: return "designated type";
    case LinkRole::FILE_ELEMENT: return "file element";
    case LinkRole::ELEMENT: return "element";
    case LinkRole::INDEX:
        return type.GetClassId() == ClassId::ARRAY
                   ? "index type of dimension " + std::to_string(link.position + 1)
                   : "index type";
    case LinkRole::BASE_CLASS: return "base class";
    default: break;
    }
    const auto& aggregate = static_cast<const RTAggregateType&>(type);
    return "member " + quotedName(aggregate.m_members[link.position]->m_memberName);
}

std::vector<unsigned int> referencesOf(const RTBaseType& type) {
    std::vector<TypeLink> links;
    linksOf(type, links);
    std::vector<unsigned int> distinct;
    std::unordered_set<unsigned int> seen;
    for (const TypeLink& link : links) {
        if (seen.insert(link.typeId).second)
            distinct.push_back(link.typeId);
    }
    return distinct;
}

} // namespace Inspect
