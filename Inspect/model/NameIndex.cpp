#include "Inspect/model/NameIndex.h"

#include "RTTI/RTType.h"

#include <algorithm>
#include <unordered_set>

namespace Inspect {

using namespace RTTI;

NameIndex::NameIndex(const TypeTable& types) : m_types(types) {
    for (unsigned int id = 0; id < types.count; ++id) {
        const RTBaseType* type = types.typeOf(id);
        if (type != nullptr && type->m_name != nullptr)
            m_ids[type->m_name].push_back(id);
    }
}

std::vector<unsigned int> NameIndex::idsOf(std::string_view name) const {
    const auto found = m_ids.find(name);
    return found == m_ids.end() ? std::vector<unsigned int>()
                                : withoutNamesakes(m_types, found->second);
}

std::vector<unsigned int> withoutNamesakes(const TypeTable& types, std::vector<unsigned int> ids) {
    std::unordered_set<unsigned int> behind;
    for (const unsigned int id : ids) {
        const RTBaseType* type = types.typeOf(id);
        if (type == nullptr)
            behind.insert(id);
        else if (type->GetClassId() == ClassId::TYPEDEF)
            behind.insert(static_cast<const RTTypedefType&>(*type).m_dataTypeId);
    }
    std::erase_if(ids, [&](unsigned int id) { return behind.count(id) != 0; });
    return ids;
}

} // namespace Inspect
