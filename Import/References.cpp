#include "Import/References.h"

#include <utility>

namespace Import {

using TypeFile::LinkRole;

void References::add(const RTTI::RTBaseType* type) {
    const auto take = [&](unsigned int id, LinkRole role) {
        const bool isHandle =
            role == LinkRole::DESIGNATED ||
            (role == LinkRole::MEMBER && type->GetClassId() == RTTI::ClassId::CLASS);
        addId(id, !isHandle);
    };
    if (type != nullptr)
        forEachTypeId(*type, take);
    endType();
}

void References::append(References&& other) {
    if (m_ends.empty()) {
        *this = std::move(other);
        return;
    }
    const std::size_t offset = m_ids.size();
    m_ids.insert(m_ids.end(), other.m_ids.begin(), other.m_ids.end());
    m_ends.reserve(m_ends.size() + other.m_ends.size());
    for (const Ends& ends : other.m_ends)
        m_ends.push_back({offset + ends.parts, offset + ends.all});
    m_parts = m_ids.size();
}

void References::keep(const std::vector<unsigned int>& types) {
    std::vector<unsigned int> placeOf(count(), RTTI::TypeFileFormat::NO_TYPE_ID);
    bool areInPlace = types.size() == count();
    for (unsigned int place = 0; place < types.size(); ++place) {
        areInPlace = areInPlace && types[place] == place;
        placeOf[types[place]] = place;
    }
    if (areInPlace)
        return;
    References result;
    result.m_ends.reserve(types.size());
    result.m_ids.reserve(m_ids.size());
    for (const unsigned int type : types) {
        const std::size_t begin = result.m_ids.size();
        for (const unsigned int id : of(type))
            result.m_ids.push_back(placeOf[id]);
        result.m_ends.push_back({begin + parts(type).size(), result.m_ids.size()});
    }
    *this = std::move(result);
}

void Ordering::walkFrom(unsigned int type) {
    enter(type);
    while (!m_visits.empty()) {
        Visit& visit = m_visits.back();
        if (visit.left.empty()) {
            m_order.push_back(visit.type);
            m_visits.pop_back();
            continue;
        }
        const unsigned int next = visit.left.front();
        visit.left = visit.left.subspan(1);
        enter(next);
    }
}

void Ordering::enter(unsigned int type) {
    if (m_isSeen[type])
        return;
    m_isSeen[type] = true;
    std::span<const unsigned int> left = (m_references.*m_leadsTo)(type);
    while (!left.empty() && m_isSeen[left.front()])
        left = left.subspan(1);
    if (left.empty())
        m_order.push_back(type);
    else
        m_visits.push_back({type, left});
}

} // namespace Import
