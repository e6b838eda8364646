#include "TypeFile/WalksThroughClasses.h"

#include "TypeFile/ReferenceVerifier.h"

#include <algorithm>
#include <tuple>

namespace TypeFile {

using namespace RTTI;

namespace {

/// Edges kept, for each type of the file, so that memory stays linear in the type count.
constexpr std::size_t MOST_EDGES_PER_TYPE = 8;

} // namespace

void WalksThroughClasses::verify() {
    m_orders.assign(m_types.size(), 0);
    m_lows.assign(m_types.size(), 0);
    m_places.assign(m_types.size(), 0);
    m_passedBelow.assign(m_types.size(), false);
    for (unsigned int id = 0; id < m_types.size(); ++id) {
        if (m_orders[id] == 0 && isConcerned(id))
            enter(id);
        while (!m_path.empty())
            advance();
    }
}

bool WalksThroughClasses::isConcerned(unsigned int typeId) const {
    return m_costs[typeId].entersClasses; // The others, classes too, are counted already.
}

void WalksThroughClasses::enter(unsigned int typeId) {
    m_orders[typeId] = m_lows[typeId] = ++m_entered;
    m_ungrouped.push_back(typeId);
    m_costs[typeId].steps = ownSteps(m_types[typeId]);
    m_costs[typeId].givesRanges = m_costs[typeId].steps != 0;
    m_path.push_back({typeId, m_parts.begin(typeId), {}, false, m_edges.size()});
}

void WalksThroughClasses::advance() {
    Step& step = m_path.back();
    if (step.isBelow) {
        step.isBelow = false;
        account(step);
    } else if (m_parts.read(step.typeId, step.position, step.part)) {
        meet(step);
    } else {
        leave();
    }
}

void WalksThroughClasses::meet(Step& step) {
    const unsigned int next = step.part.typeId;
    if (!isLinked(m_types, next))
        return;
    if (isConcerned(next) && m_orders[next] == 0) {
        step.isBelow = true;
        enter(next);
    } else {
        account(step);
    }
}

/// A part that is in no group yet leads back here, and so is of this type's own group.
void WalksThroughClasses::account(Step& step) {
    const unsigned int id = step.typeId;
    const unsigned int next = step.part.typeId;
    if (m_lows[next] != 0) {
        m_lows[id] = std::min(m_lows[id], m_lows[next]);
        addEdge({id, next, 1ULL + step.part.rangeCount, 1});
        return;
    }
    WalkCost& cost = m_costs[id];
    m_passedBelow[id] = m_passedBelow[id] || m_costs[next].steps > m_limits.maxWalkSteps;
    cost.steps = addSteps(cost.steps, partSteps(step.part, m_costs[next]), m_limits.maxWalkSteps);
    cost.givesRanges = cost.givesRanges || m_costs[next].givesRanges;
}

void WalksThroughClasses::addEdge(const Edge& edge) {
    if (m_edges.size() < MOST_EDGES_PER_TYPE * m_types.size())
        m_edges.push_back(edge);
    else
        m_hasLostEdges = true;
}

void WalksThroughClasses::leave() {
    const Step step = m_path.back();
    m_path.pop_back();
    if (m_lows[step.typeId] != m_orders[step.typeId])
        return;
    const auto first = std::find(m_ungrouped.rbegin(), m_ungrouped.rend(), step.typeId).base() - 1;
    m_group.assign(first, m_ungrouped.end());
    m_ungrouped.erase(first, m_ungrouped.end());
    for (unsigned int place = 0; place < m_group.size(); ++place) {
        m_places[m_group[place]] = place;
        m_lows[m_group[place]] = 0;
    }
    if (m_group.size() == 1 && m_edges.size() == step.firstEdge)
        closeSingle(step.typeId);
    else
        closeGroup(step.firstEdge);
    m_edges.resize(step.firstEdge);
}

void WalksThroughClasses::closeSingle(unsigned int typeId) {
    WalkCost& cost = m_costs[typeId];
    closeCost(m_types[typeId], cost);
    if (cost.steps > m_limits.maxWalkSteps && !m_passedBelow[typeId])
        addWalkTooLarge(m_types[typeId], typeId, m_findings, m_limits.maxWalkSteps);
}

/// Where nothing in the group gives a range, all of it is passed by. After the first walk that is
/// too large the others are not counted: one finding a group says enough.
void WalksThroughClasses::closeGroup(std::size_t firstEdge) {
    const auto gives = [&](unsigned int id) { return m_costs[id].givesRanges; };
    const bool givesRanges = std::any_of(m_group.begin(), m_group.end(), gives);
    bool isTooLarge = std::any_of(m_group.begin(), m_group.end(),
                                  [&](unsigned int id) { return m_passedBelow[id]; });
    sortEdges(firstEdge);
    std::vector<unsigned int> counts(m_group.size(), givesRanges ? m_limits.maxWalkSteps + 1 : 0);
    for (unsigned int place = 0; place < m_group.size() && givesRanges && !isTooLarge; ++place) {
        counts[place] = m_hasLostEdges ? m_limits.maxWalkSteps + 1 : countFrom(place);
        isTooLarge = counts[place] > m_limits.maxWalkSteps;
        if (isTooLarge)
            addWalkTooLarge(m_types[m_group[place]], m_group[place], m_findings,
                            std::min<unsigned long long>(m_counted, m_limits.maxWalkSteps));
    }
    for (unsigned int place = 0; place < m_group.size(); ++place) {
        m_costs[m_group[place]].steps = counts[place];
        m_costs[m_group[place]].givesRanges = givesRanges;
    }
}

/// Puts the group's edges in the order of their places, with one edge for those that are alike.
void WalksThroughClasses::sortEdges(std::size_t firstEdge) {
    const auto first = m_edges.begin() + static_cast<std::ptrdiff_t>(firstEdge);
    for (auto edge = first; edge != m_edges.end(); ++edge) {
        edge->from = m_places[edge->from];
        edge->to = m_places[edge->to];
    }
    std::sort(first, m_edges.end(), [](const Edge& left, const Edge& right) {
        return std::tie(left.from, left.to) < std::tie(right.from, right.to);
    });
    auto last = first;
    for (auto edge = first; edge != m_edges.end(); ++edge) {
        if (edge != first && last->from == edge->from && last->to == edge->to) {
            last->steps += edge->steps;
            ++last->times;
        } else {
            last = edge == first ? first : last + 1;
            *last = *edge;
        }
    }
    m_edges.erase(first == m_edges.end() ? first : last + 1, m_edges.end());
    m_edgesFrom.assign(m_group.size() + 1, m_edges.size());
    for (std::size_t i = m_edges.size(); i > firstEdge; --i)
        m_edgesFrom[m_edges[i - 1].from] = i - 1;
    for (std::size_t place = m_group.size(); place > 0; --place)
        m_edgesFrom[place - 1] = std::min(m_edgesFrom[place - 1], m_edgesFrom[place]);
    m_isOnWalk.assign(m_group.size(), false);
}

/// Makes the walk from one type of the group, counting.
unsigned int WalksThroughClasses::countFrom(unsigned int start) {
    enterWalk(start);
    for (;;) {
        WalkStep& step = m_walk.back();
        if (step.steps > m_limits.maxWalkSteps || ++m_counted > m_limits.maxCountingSteps) {
            m_walk.clear();
            return m_limits.maxWalkSteps + 1;
        }
        if (step.nextEdge == m_edgesFrom[step.place + 1]) {
            const unsigned int steps = step.steps;
            m_isOnWalk[step.place] = false;
            m_walk.pop_back();
            if (m_walk.empty())
                return steps;
            const Edge& edge = m_edges[m_walk.back().nextEdge++];
            m_walk.back().steps = addSteps(m_walk.back().steps, edge.steps + edge.times * steps,
                                           m_limits.maxWalkSteps);
        } else if (const Edge& edge = m_edges[step.nextEdge]; m_isOnWalk[edge.to]) {
            step.steps = addSteps(step.steps, edge.steps, m_limits.maxWalkSteps);
            ++step.nextEdge;
        } else {
            enterWalk(edge.to);
        }
    }
}

/// Classes alone end a path that comes back to them; no other type is met twice without one.
void WalksThroughClasses::enterWalk(unsigned int place) {
    const unsigned int id = m_group[place];
    m_isOnWalk[place] = m_types[id].kind == ClassId::CLASS;
    m_walk.push_back({place, m_edgesFrom[place], m_costs[id].steps});
}

} // namespace TypeFile
