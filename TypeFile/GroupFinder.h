#pragma once

#include "TypeFile/TypeNodes.h"

#include <algorithm>
#include <span>
#include <vector>

namespace TypeFile {

/// Finds the groups of types that lead to one another, by the algorithm of Tarjan, with a stack of
/// its own: each group after those that it leads to. Finished types are in none.
class GroupFinder {
public:
    /// The ids of a group's types.
    using Group = std::span<const unsigned int>;

    explicit GroupFinder(const TypeNodes& types) : m_types(types) {}

    /// Calls `take` with the ids of each group, in ascending order, over the parts that
    /// `follows(part)` picks, and with whether it leads back to itself: one type alone need not.
    /// Inside `take`, `isInside` tells who belongs to the group.
    template <typename Follows, typename Take> void find(Follows follows, Take take) {
        m_marks.assign(m_types.deferred.size(), {});
        m_entered = m_groups = 0;
        for (const DeferredType& type : m_types.deferred) {
            if (m_types.isUnfinished(type.typeId) && markOf(type.typeId).number == 0 &&
                !takeAlone(type.typeId, follows, take))
                goDownFrom(type.typeId, follows, take);
        }
    }

    /// Whether a type is in the group that was given last.
    bool isInside(unsigned int target) const {
        if (!m_types.isUnfinished(target))
            return false;
        const Mark& mark = markOf(target);
        return mark.low == GROUPED && mark.number == m_groups;
    }

private:
    static constexpr unsigned int GROUPED = 0;

    /// What the search knows of a type.
    struct Mark {
        unsigned int number = 0; ///< 0 until it is entered; its group's once it is grouped.
        unsigned int low = 0;    ///< The smallest number that it leads to, or GROUPED.
    };

    /// A type on the way down, and the part that is next.
    struct Step {
        unsigned int typeId;
        bool isDone;
        std::size_t next;
    };

    template <typename Follows, typename Take>
    void goDownFrom(unsigned int first, Follows& follows, Take& take) {
        enter(first);
        while (!m_path.empty()) {
            Step& step = m_path.back();
            if (step.isDone) {
                leave(follows, take);
                continue;
            }
            const Part& part = m_types.parts[step.next++];
            step.isDone = part.isLast;
            if (!m_types.isUnfinished(part.target) || !follows(part))
                continue;
            const Mark& below = markOf(part.target);
            if (below.number != 0 && below.low != GROUPED)
                lowerTo(step.typeId, below.number);
            else if (below.number == 0 && !takeAlone(part.target, follows, take))
                enter(part.target);
        }
    }

    Mark& markOf(unsigned int id) { return m_marks[m_types.places[id]]; }
    const Mark& markOf(unsigned int id) const { return m_marks[m_types.places[id]]; }

    void lowerTo(unsigned int id, unsigned int number) {
        Mark& mark = markOf(id);
        mark.low = std::min(mark.low, number);
    }

    /// Takes a type that leads to none without a group, as most do, as a group by itself.
    template <typename Follows, typename Take>
    bool takeAlone(unsigned int id, Follows& follows, Take& take) {
        const Part* part = &m_types.parts[m_types.deferred[m_types.places[id]].firstPart];
        for (bool isLast = false; !isLast; ++part) {
            isLast = part->isLast;
            if (m_types.isUnfinished(part->target) && !isGrouped(markOf(part->target)) &&
                follows(*part))
                return false;
        }
        ++m_groups;
        markOf(id) = {m_groups, GROUPED};
        take(Group(&id, 1), false);
        return true;
    }

    template <typename Follows> bool leadsToItself(unsigned int id, Follows& follows) const {
        const std::span<const Part> parts = m_types.partsOf(id).parts;
        return std::any_of(parts.begin(), parts.end(),
                           [&](const Part& part) { return part.target == id && follows(part); });
    }

    static bool isGrouped(const Mark& mark) { return mark.number != 0 && mark.low == GROUPED; }

    void enter(unsigned int id) {
        ++m_entered;
        markOf(id) = {m_entered, m_entered};
        m_ungrouped.push_back(id);
        m_path.push_back({id, false, m_types.deferred[m_types.places[id]].firstPart});
    }

    template <typename Follows, typename Take> void leave(Follows& follows, Take& take) {
        const unsigned int id = m_path.back().typeId;
        m_path.pop_back();
        const Mark mark = markOf(id);
        if (!m_path.empty())
            lowerTo(m_path.back().typeId, mark.low);
        if (mark.low != mark.number)
            return;
        auto first = m_ungrouped.end() - 1;
        while (*first != id)
            --first;
        const Group group(first, m_ungrouped.end());
        std::sort(first, m_ungrouped.end());
        ++m_groups;
        for (const unsigned int member : group)
            markOf(member) = {m_groups, GROUPED};
        take(group, group.size() > 1 || leadsToItself(id, follows));
        m_ungrouped.erase(first, m_ungrouped.end());
    }

    const TypeNodes& m_types;
    std::vector<Mark> m_marks; ///< Of the deferred types.
    std::vector<Step> m_path;
    std::vector<unsigned int> m_ungrouped;
    unsigned int m_entered = 0;
    unsigned int m_groups = 0;
};

} // namespace TypeFile
