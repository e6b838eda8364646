#include "Inspect/model/TypeNesting.h"

#include "Inspect/model/TypeReferences.h"

#include <algorithm>
#include <limits>

namespace Inspect {

using namespace RTTI;

namespace {

/// Finds how deep each type nests, the types below before those above.
class NestingSearch {
public:
    explicit NestingSearch(const TypeTable& types)
        : m_types(types), m_depths(types.count), m_next(types.count, NONE) {}

    std::vector<unsigned int> run() {
        for (unsigned int id = 0; id < m_types.count; ++id) {
            if (m_depths[id] == UNKNOWN && m_types.typeOf(id) != nullptr)
                search(id);
        }
        return m_depths.empty() ? std::vector<unsigned int>() : chain();
    }

private:
    static constexpr unsigned int NONE = TypeFileFormat::NO_TYPE_ID;
    static constexpr unsigned int UNKNOWN = 0; ///< It stays so where an id has no type.
    static constexpr unsigned int ON_PATH = std::numeric_limits<unsigned int>::max();

    /// A type on the path; its parts that are still to come are those in m_parts from here on.
    struct Step {
        unsigned int id;
        std::size_t parts;
        unsigned int deepest; ///< Of the parts that were looked at.
    };

    bool isClass(unsigned int id) const {
        return m_types.typeOf(id)->GetClassId() == ClassId::CLASS;
    }

    /// Whether the link leads to a type of the table that lies within the value.
    bool isByValue(const RTBaseType& type, const TypeLink& link) const {
        if (link.typeId >= m_types.count || m_types.typeOf(link.typeId) == nullptr)
            return false;
        switch (link.role) {
        case LinkRole::ELEMENT: return type.GetClassId() == ClassId::ARRAY;
        case LinkRole::ALIASED:
        case LinkRole::BASE_TYPE:
        case LinkRole::BASE_CLASS:
        case LinkRole::MEMBER: return true;
        default: return false;
        }
    }

    void search(unsigned int id) {
        enter(id);
        while (!m_path.empty())
            advance();
    }

    void enter(unsigned int id) {
        m_path.push_back({id, m_parts.size(), 0});
        m_depths[id] = ON_PATH;
        const RTBaseType& type = *m_types.typeOf(id);
        linksOf(type, m_links);
        for (const TypeLink& link : m_links) {
            if (isByValue(type, link))
                m_parts.push_back(link);
        }
    }

    /// Looks at parts, the last first, up to one whose depth has to be found before.
    void advance() {
        Step& step = m_path.back();
        while (m_parts.size() > step.parts) {
            const TypeLink part = m_parts.back();
            const bool isHandle = part.role != LinkRole::BASE_CLASS && isClass(part.typeId);
            if (!isHandle && m_depths[part.typeId] == UNKNOWN)
                return enter(part.typeId);
            m_parts.pop_back();
            if (isHandle || m_depths[part.typeId] != ON_PATH)
                take(step, part.typeId, isHandle ? 1 : m_depths[part.typeId]);
        }
        m_depths[step.id] = step.deepest + 1;
        m_path.pop_back();
    }

    void take(Step& step, unsigned int part, unsigned int depth) {
        if (depth < step.deepest)
            return;
        step.deepest = depth;
        m_next[step.id] = part;
    }

    std::vector<unsigned int> chain() const {
        const auto deepest = std::max_element(m_depths.begin(), m_depths.end());
        std::vector<unsigned int> ids;
        auto id = static_cast<unsigned int>(deepest - m_depths.begin());
        for (unsigned int left = *deepest; left != 0; --left) {
            ids.push_back(id);
            id = m_next[id];
        }
        return ids;
    }

    const TypeTable& m_types;
    std::vector<unsigned int> m_depths; ///< Types in the longest chain from each.
    std::vector<unsigned int> m_next;   ///< The second type of that chain.
    std::vector<Step> m_path;
    std::vector<TypeLink> m_parts;
    std::vector<TypeLink> m_links;
};

} // namespace

std::vector<unsigned int> deepestNesting(const TypeTable& types) {
    return NestingSearch(types).run();
}

} // namespace Inspect
