#include "Inspect/views/TypeNesting.h"

#include <algorithm>
#include <limits>

namespace Inspect {

using namespace RTTI;

namespace {

/// Finds how deep each type nests, the types below before those above.
class NestingSearch {
public:
    explicit NestingSearch(const TypeOutlines& types)
        : m_types(types), m_depths(types.count()), m_next(types.count(), NONE) {}

    std::vector<unsigned int> run() {
        for (unsigned int id = 0; id < m_types.count(); ++id) {
            if (m_depths[id] == UNKNOWN && m_types.hasType(id))
                search(id);
        }
        return m_depths.empty() ? std::vector<unsigned int>() : chain();
    }

private:
    static constexpr unsigned int NONE = TypeFileFormat::NO_TYPE_ID;
    static constexpr unsigned int UNKNOWN = 0; ///< It stays so where an id has no type.
    static constexpr unsigned int ON_PATH = std::numeric_limits<unsigned int>::max();

    /// A type on the path.
    struct Step {
        unsigned int id;
        unsigned int linksLeft; ///< Those that are still to come; the last one is the next.
        unsigned int deepest;   ///< Of the parts that were looked at.
    };

    void search(unsigned int id) {
        enter(id);
        while (!m_path.empty())
            advance();
    }

    void enter(unsigned int id) {
        m_path.push_back({id, m_types[id].linkCount, 0});
        m_depths[id] = ON_PATH;
    }

    /// Looks at references, the last first, up to a part whose depth has to be found before.
    void advance() {
        Step& step = m_path.back();
        const auto links = m_types.linksOf(step.id);
        for (; step.linksLeft != 0; --step.linksLeft) {
            const TypeOutlines::Link& link = links[step.linksLeft - 1];
            if (!link.isByValue || !m_types.hasType(link.typeId))
                continue;
            const bool isHandle =
                !link.isBaseClass && m_types[link.typeId].kindCode == ClassId::CLASS;
            if (!isHandle && m_depths[link.typeId] == UNKNOWN)
                return enter(link.typeId);
            if (isHandle || m_depths[link.typeId] != ON_PATH)
                take(step, link.typeId, isHandle ? 1 : m_depths[link.typeId]);
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

    const TypeOutlines& m_types;
    std::vector<unsigned int> m_depths; ///< Types in the longest chain from each.
    std::vector<unsigned int> m_next;   ///< The second type of that chain.
    std::vector<Step> m_path;
};

} // namespace

std::vector<unsigned int> deepestNesting(const TypeOutlines& types) {
    return NestingSearch(types).run();
}

} // namespace Inspect
