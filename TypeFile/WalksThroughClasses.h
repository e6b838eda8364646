#pragma once

#include "TypeFile/WalkVerifier.h"

#include <utility>
#include <vector>

namespace TypeFile {

/// Counts the steps of the constraint walks that enter classes, in a file in which no reference is
/// endless and nothing contains itself by value.
///
/// A class ends a path on which it was met before, so that among classes that lead to one another
/// the walk takes every path that meets none twice. Elsewhere a type costs the sum of its parts.
/// The types are taken group by group, a group being those that lead to one another, each group
/// after those below it; within a group the walk from each type is counted by making it, over a
/// graph of the group alone, as far as `maxCountingSteps` reach. A type that was not counted to the
/// end is reported like one whose walk is too large: nothing says that it is not.
class WalksThroughClasses {
public:
    WalksThroughClasses(const TypeTable& types, TypeParts& parts, std::vector<WalkCost>& costs,
                        FindingList& findings, const VerifyLimits& limits)
        : m_types(types), m_parts(parts), m_costs(costs), m_findings(findings), m_limits(limits) {}

    void verify();

private:
    /// A type on the way down.
    struct Step {
        unsigned int typeId;
        PartPosition position;
        Part part;
        bool isBelow;
        std::size_t firstEdge; ///< In m_edges: of those that were found from here on.
    };

    /// From one type to another of its group: their ids, and their places once it is closed.
    struct Edge {
        unsigned int from;
        unsigned int to;
        unsigned long long steps; ///< In between.
        unsigned long long times;
    };

    /// A type on a counted walk.
    struct WalkStep {
        unsigned int place;
        std::size_t nextEdge;
        unsigned int steps;
    };

    bool isConcerned(unsigned int typeId) const;
    void enter(unsigned int typeId);
    void advance();
    void meet(Step& step);
    void account(Step& step);
    void leave();
    void addEdge(const Edge& edge);
    void closeSingle(unsigned int typeId);
    void closeGroup(std::size_t firstEdge);
    void sortEdges(std::size_t firstEdge);
    unsigned int countFrom(unsigned int start);
    void enterWalk(unsigned int place);

    const TypeTable& m_types;
    TypeParts& m_parts;
    std::vector<WalkCost>& m_costs;
    FindingList& m_findings;
    const VerifyLimits& m_limits;

    std::vector<unsigned int> m_orders; ///< 0 until a type is entered.
    std::vector<unsigned int> m_lows;   ///< Smallest order that a type leads to, 0 once grouped.
    std::vector<bool> m_passedBelow;    ///< A part alone passes the limit of the walk.
    std::vector<Step> m_path;
    std::vector<unsigned int> m_ungrouped;
    std::vector<Edge> m_edges; ///< Within groups that are not closed yet; ends are type ids.
    bool m_hasLostEdges = false;
    unsigned int m_entered = 0;

    // The group that is being closed.
    std::vector<unsigned int> m_group;
    std::vector<unsigned int> m_places;
    std::vector<std::size_t> m_edgesFrom; ///< First edge of each place, and one past the last.
    std::vector<bool> m_isOnWalk;
    std::vector<WalkStep> m_walk;
    unsigned long long m_counted = 0;
};

} // namespace TypeFile
