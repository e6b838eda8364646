#pragma once

#include "TypeFile/GroupFinder.h"
#include "TypeFile/VerifyLimits.h"
#include "TypeFile/WalkSteps.h"

#include <span>
#include <vector>

namespace TypeFile {

/// Counts the steps of the constraint walks of the deferred types that are not finished, and
/// reports those above the limit.
///
/// Outside of groups that lead back to themselves, a type costs the sum of its parts. Inside, a
/// class ends a path on which it was met before, so that the walk takes every path that meets none
/// twice. There is no counting these but by making the walk, so first a bound is taken that costs
/// no more than to look at the group; where it passes the limit, the walk is made over a flat graph
/// of the group, like the library's own, as far as `maxCountingSteps` reach.
class WalkCounter {
public:
    /// What is said of the file as a whole is said of the address table, at `tableOffset`.
    WalkCounter(TypeNodes& types, FindingList& findings, const VerifyLimits& limits,
                const WalkSteps& steps, unsigned long long tableOffset)
        : m_types(types), m_findings(findings), m_limits(limits), m_steps(steps),
          m_tableOffset(tableOffset), m_groups(types) {}

    void verify();

private:
    using Group = GroupFinder::Group;

    /// From one type of a group to another, so many times.
    struct Edge {
        unsigned int to; ///< Place in the group.
        unsigned int times;
    };

    /// A type of the group.
    struct Place {
        std::size_t firstEdge = 0;
        Role role = Role::PLAIN;
        WalkSum outside;              ///< Its own steps, and those of parts outside the group.
        unsigned long long paths = 0; ///< To the next classes of the group, through no class.
        unsigned long long steps = 0; ///< On them.
        std::size_t firstWaiting = NONE;
        bool isOnPath = false;
        bool isBarren = false;
        bool isWaiting = false; ///< For its parts, on this walk.
        bool isTouched = false; ///< By this walk.
    };

    /// A type that waits for another one of its group to give ranges.
    struct Waiting {
        unsigned int place;
        std::size_t next;
    };

    /// A type on a counted walk.
    struct Step {
        unsigned int place;
        std::size_t nextEdge;
        unsigned long long steps;
    };

    static constexpr std::size_t NONE = ~std::size_t{0};

    bool count(bool withBounds);
    void countGroup(Group group);
    void countAlone(unsigned int typeId);
    void layOut(Group group);
    void addEdges(unsigned int typeId, Place& place);
    bool takeBounds(Group group);
    void sumValues();
    void countEach(Group group);
    unsigned int countFrom(unsigned int start);
    bool enter(unsigned int place);
    unsigned int leave();
    void touch(unsigned int place);
    void waitForParts(unsigned int place);
    void revive(unsigned int place);
    void forget();
    std::span<const Edge> edgesFrom(unsigned int place) const {
        return std::span(m_edges).subspan(m_places[place].firstEdge, m_places[place + 1].firstEdge -
                                                                         m_places[place].firstEdge);
    }
    void set(unsigned int typeId, unsigned int steps, bool isBound);

    TypeNodes& m_types;
    FindingList& m_findings;
    const VerifyLimits& m_limits;
    const WalkSteps& m_steps;
    unsigned long long m_tableOffset;
    GroupFinder m_groups;
    bool m_withBounds = true;
    bool m_needsExact = false;
    bool m_isExhausted = false;
    unsigned long long m_counted = 0;

    // The group that is being counted.
    std::vector<unsigned int> m_placeInGroup; ///< Of each deferred type.
    std::vector<Place> m_places;              ///< With one more at the end.
    std::vector<Edge> m_edges;
    std::vector<unsigned int> m_order; ///< Of its places, each before its parts by value.

    // A counted walk.
    std::vector<Step> m_walk;
    std::vector<Waiting> m_waiting;
    std::vector<unsigned int> m_touched;
    std::vector<unsigned int> m_revived;
};

} // namespace TypeFile
