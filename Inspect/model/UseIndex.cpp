#include "Inspect/model/UseIndex.h"

namespace Inspect {

using namespace RTTI;

UseIndex::UseIndex(const TypeTable& types)
    : m_count(types.count), m_begins(std::size_t{types.count} + 2) {
    // The begins are one place ahead while the links are put in, and have moved there at the end.
    forEachLink(types, [&](unsigned int, const RTBaseType&, const TypeLink& link) {
        ++m_begins[link.typeId + 2];
        return true;
    });
    for (std::size_t i = 2; i < m_begins.size(); ++i)
        m_begins[i] += m_begins[i - 1];
    m_backLinks.resize(m_begins.back());
    forEachLink(types, [&](unsigned int id, const RTBaseType&, const TypeLink& link) {
        m_backLinks[m_begins[link.typeId + 1]++] = {id, link.role, link.position};
        return true;
    });
}

std::vector<Use> UseIndex::referencesTo(unsigned int id) const {
    std::vector<Use> uses;
    if (id >= m_count)
        return uses;
    for (std::size_t i = m_begins[id]; i < m_begins[id + std::size_t{1}]; ++i) {
        const BackLink& back = m_backLinks[i];
        uses.push_back({back.from, {back.role, back.position, id}, 1});
    }
    return uses;
}

std::vector<Use> UseIndex::usesOf(unsigned int id) const {
    std::vector<Use> uses;
    if (id >= m_count)
        return uses;
    std::vector<bool> isFound(m_count);
    isFound[id] = true;
    const auto addUsesOf = [&](unsigned int used, unsigned int distance) {
        for (std::size_t i = m_begins[used]; i < m_begins[used + 1]; ++i) {
            const BackLink& back = m_backLinks[i];
            if (isFound[back.from])
                continue;
            isFound[back.from] = true;
            uses.push_back({back.from, {back.role, back.position, used}, distance});
        }
    };
    addUsesOf(id, 1);
    for (std::size_t next = 0; next < uses.size(); ++next)
        addUsesOf(uses[next].typeId, uses[next].distance + 1);
    return uses;
}

} // namespace Inspect
