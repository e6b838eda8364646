#pragma once

#include "TypeFile/TypeNodes.h"

#include <algorithm>
#include <span>
#include <vector>

namespace TypeFile {

/// Finds the groups of types that lead to one another, by the algorithm of Tarjan, with a stack of
/// its own: each group after those that it leads to. Settled types are in none.
class GroupFinder {
public:
    explicit GroupFinder(const TypeNodes& types) : m_types(types) {}

    /// Calls `take` with the ids of each group, in ascending order, over the references that
    /// `follows(reference)` picks. Inside `take`, `isInside` tells who belongs to the group.
    template <typename Follows, typename Take> void find(Follows follows, Take take) {
        m_numbers.assign(m_types.size(), 0);
        m_lows.assign(m_types.size(), 0);
        m_entered = m_groups = 0;
        for (unsigned int id = 0; id < m_types.size(); ++id) {
            if (!m_types.states[id].isSettled && m_numbers[id] == 0)
                goDownFrom(id, follows, take);
        }
    }

    /// Whether a type is in the group that was given last.
    bool isInside(unsigned int target) const {
        return target < m_types.size() && !m_types.states[target].isSettled &&
               m_lows[target] == GROUPED && m_numbers[target] == m_groups;
    }

private:
    static constexpr unsigned int GROUPED = 0;

    /// A type on the way down, and the reference that is next.
    struct Step {
        unsigned int typeId;
        bool isDone;
        unsigned long long next;
    };

    template <typename Follows, typename Take>
    void goDownFrom(unsigned int first, Follows& follows, Take& take) {
        enter(first);
        while (!m_path.empty()) {
            Step& step = m_path.back();
            if (step.isDone) {
                leave(take);
                continue;
            }
            const Reference& reference = m_types.references[step.next++];
            step.isDone = reference.isLast;
            if (reference.target >= m_types.size() || m_types.states[reference.target].isSettled ||
                !follows(reference))
                continue;
            if (m_numbers[reference.target] == 0)
                enter(reference.target);
            else if (m_lows[reference.target] != GROUPED)
                m_lows[step.typeId] = std::min(m_lows[step.typeId], m_numbers[reference.target]);
        }
    }

    void enter(unsigned int id) {
        m_numbers[id] = m_lows[id] = ++m_entered;
        m_ungrouped.push_back(id);
        m_path.push_back({id, false, m_types.nodes[id].firstReference});
    }

    template <typename Take> void leave(Take& take) {
        const unsigned int id = m_path.back().typeId;
        m_path.pop_back();
        if (!m_path.empty()) {
            unsigned int& low = m_lows[m_path.back().typeId];
            low = std::min(low, m_lows[id]);
        }
        if (m_lows[id] != m_numbers[id])
            return;
        auto first = m_ungrouped.end() - 1;
        while (*first != id)
            --first;
        std::sort(first, m_ungrouped.end());
        ++m_groups;
        for (auto next = first; next != m_ungrouped.end(); ++next) {
            m_numbers[*next] = m_groups;
            m_lows[*next] = GROUPED;
        }
        take(std::span<const unsigned int>(first, m_ungrouped.end()));
        m_ungrouped.erase(first, m_ungrouped.end());
    }

    const TypeNodes& m_types;
    std::vector<unsigned int> m_numbers; ///< 0 until a type is entered; its group's once grouped.
    std::vector<unsigned int> m_lows;    ///< The smallest number that a type leads to, or GROUPED.
    std::vector<Step> m_path;
    std::vector<unsigned int> m_ungrouped;
    unsigned int m_entered = 0;
    unsigned int m_groups = 0;
};

} // namespace TypeFile
