#include "TypeFile/WalkCounter.h"

#include <algorithm>
#include <string>
#include <utility>

namespace TypeFile {

/// Bounds may pass the limit where the steps do not: then the walks below are counted exactly.
void WalkCounter::verify() {
    if (!count(true))
        count(false);
    for (const DeferredType& type : m_types.deferred)
        if (m_types.isUnfinished(type.typeId))
            m_steps.report(type.typeId, m_types, m_findings);
    if (m_isExhausted)
        m_findings.add(FindingCode::WALKS_NOT_COUNTED, RTTI::TypeFileFormat::NO_TYPE_ID,
                       Field::ADDRESS_TABLE, m_tableOffset,
                       "Counting the constraint walks of all types takes more than " +
                           std::to_string(m_limits.maxCountingSteps) +
                           " steps, so walks of more than " +
                           std::to_string(m_limits.maxWalkSteps) + " may go unreported.");
}

/// Whether every type that passes the limit does so for certain.
bool WalkCounter::count(bool withBounds) {
    m_withBounds = withBounds;
    m_needsExact = false;
    const auto follows = [this](const Part& part) {
        return Link::has(part.link, Link::WALKED) &&
               m_types.states[part.target].role != Role::NO_TYPE &&
               !m_types.states[part.target].isUnsound;
    };
    m_groups.find(follows, [this](Group group, bool isCycle) {
        if (m_types.states[group.front()].isUnsound)
            return;
        if (isCycle)
            countGroup(group);
        else
            countAlone(group.front());
    });
    return !m_needsExact;
}

void WalkCounter::countAlone(unsigned int typeId) {
    const PartsOfType type = m_types.partsOf(typeId);
    WalkSum sum{type.dimensions};
    for (const Part& part : type.parts)
        m_steps.add(sum, m_types, part.target, part.link);
    set(typeId, m_steps.end(sum, m_types.states[typeId].role), sum.isBound);
}

void WalkCounter::set(unsigned int typeId, unsigned int steps, bool isBound) {
    m_types.counts[typeId].steps = steps;
    m_types.states[typeId].isBound = isBound;
    m_needsExact = m_needsExact || (isBound && m_steps.isTooMany(steps));
}

void WalkCounter::countGroup(Group group) {
    layOut(group);
    const bool givesRanges = std::any_of(m_places.begin(), m_places.end(), [](const Place& place) {
        return place.outside.steps != 0;
    });
    if (!givesRanges) {
        for (const unsigned int id : group)
            set(id, 0, false);
    } else if (!m_withBounds || !takeBounds(group)) {
        countEach(group);
    }
}

/// Makes the flat graph of the group.
void WalkCounter::layOut(Group group) {
    m_placeInGroup.resize(m_types.deferred.size());
    m_places.assign(group.size() + 1, {});
    m_edges.clear();
    for (unsigned int place = 0; place < group.size(); ++place)
        m_placeInGroup[m_types.places[group[place]]] = place;
    for (unsigned int place = 0; place < group.size(); ++place) {
        m_places[place].firstEdge = m_edges.size();
        m_places[place].role = m_types.states[group[place]].role;
        addEdges(group[place], m_places[place]);
    }
    m_places.back().firstEdge = m_edges.size();
}

/// Parts of the same type are one edge.
void WalkCounter::addEdges(unsigned int typeId, Place& place) {
    const PartsOfType type = m_types.partsOf(typeId);
    place.outside.steps = type.dimensions;
    for (const Part& part : type.parts) {
        if (!Link::has(part.link, Link::WALKED))
            continue;
        if (m_groups.isInside(part.target))
            m_edges.push_back({m_placeInGroup[m_types.places[part.target]], 1});
        else
            m_steps.add(place.outside, m_types, part.target, part.link);
    }
    const auto first = m_edges.begin() + static_cast<std::ptrdiff_t>(place.firstEdge);
    std::sort(first, m_edges.end(), [](Edge left, Edge right) { return left.to < right.to; });
    auto last = first;
    for (auto edge = first; edge != m_edges.end(); ++edge) {
        if (edge == first)
            continue;
        if (edge->to == last->to)
            ++last->times;
        else
            *++last = *edge;
    }
    m_edges.erase(first == m_edges.end() ? first : last + 1, m_edges.end());
}

/// A class is followed by at most as many classes as there are paths from it to the next, and each
/// class comes once on a path, so that the walk visits no more classes in a row than the product of
/// those numbers. Whether that is within the limit for the whole group, which then has it.
bool WalkCounter::takeBounds(Group group) {
    sumValues();
    unsigned long long product = 1;
    unsigned long long steps = 0;
    for (std::size_t place = 0; place < group.size(); ++place) {
        if (m_places[place].role != Role::CLASS)
            continue;
        product = m_steps.clamped(product * std::max(m_places[place].paths, 1ULL));
        steps = m_steps.clamped(steps + m_places[place].steps);
    }
    const unsigned long long ofClass = m_steps.clamped(product * steps);
    const auto boundOf = [&](const Place& place) {
        return place.role == Role::CLASS ? ofClass : place.steps + place.paths * ofClass;
    };
    for (std::size_t place = 0; place < group.size(); ++place)
        if (m_steps.isTooMany(boundOf(m_places[place])))
            return false;
    for (std::size_t place = 0; place < group.size(); ++place)
        set(group[place], m_steps.clamped(boundOf(m_places[place])), true);
    return true;
}

/// The paths and steps of each type of the group as far as it enters no further class.
void WalkCounter::sumValues() {
    const auto count = static_cast<unsigned int>(m_places.size() - 1);
    std::vector<unsigned int> holders(count); // By value, that are not in the order yet.
    for (const Edge& edge : m_edges)
        holders[edge.to] += m_places[edge.to].role == Role::CLASS ? 0 : 1;
    m_order.clear();
    for (unsigned int place = 0; place < count; ++place)
        if (holders[place] == 0)
            m_order.push_back(place);
    for (std::size_t next = 0; next < m_order.size(); ++next) {
        for (const Edge& edge : edgesFrom(m_order[next]))
            if (m_places[edge.to].role != Role::CLASS && --holders[edge.to] == 0)
                m_order.push_back(edge.to);
    }
    for (auto next = m_order.rbegin(); next != m_order.rend(); ++next) {
        Place& place = m_places[*next];
        unsigned long long paths = 0;
        unsigned long long steps = place.outside.steps + (place.role >= Role::RECORD ? 1 : 0);
        for (const Edge& edge : edgesFrom(*next)) {
            const Place& below = m_places[edge.to];
            const bool isClass = below.role == Role::CLASS;
            paths = m_steps.clamped(paths + edge.times * (isClass ? 1 : below.paths));
            steps = m_steps.clamped(steps + edge.times * (isClass ? 0 : below.steps));
        }
        place.paths = paths;
        place.steps = m_steps.clamped(steps);
    }
}

void WalkCounter::countEach(Group group) {
    const bool isBound = std::any_of(m_places.begin(), m_places.end(),
                                     [](const Place& place) { return place.outside.isBound; });
    for (unsigned int place = 0; place < group.size(); ++place)
        set(group[place], m_isExhausted ? 0 : countFrom(place), isBound);
}

/// Makes the walk from one type of the group.
unsigned int WalkCounter::countFrom(unsigned int start) {
    enter(start);
    unsigned int steps = 0;
    while (!m_walk.empty() && !m_isExhausted) {
        Step& step = m_walk.back();
        m_isExhausted = ++m_counted > m_limits.maxCountingSteps;
        if (m_steps.isTooMany(step.steps)) {
            steps = m_steps.tooMany();
            break;
        }
        if (step.nextEdge != m_places[step.place + 1].firstEdge) {
            if (!enter(m_edges[step.nextEdge].to))
                ++step.nextEdge;
            continue;
        }
        steps = leave();
        if (!m_walk.empty()) {
            const Edge& edge = m_edges[m_walk.back().nextEdge++];
            m_walk.back().steps += static_cast<unsigned long long>(edge.times) * steps;
        }
    }
    forget();
    return m_isExhausted ? 0 : steps;
}

/// Whether the walk goes on there: not to a class that it comes from, nor where nothing is found
/// until something changes.
bool WalkCounter::enter(unsigned int place) {
    Place& entered = m_places[place];
    if (entered.isBarren || entered.isOnPath)
        return false;
    entered.isOnPath = entered.role == Role::CLASS;
    touch(place);
    m_walk.push_back({place, entered.firstEdge, entered.outside.steps});
    return true;
}

/// The steps of the visit that ends.
unsigned int WalkCounter::leave() {
    const Step left = m_walk.back();
    m_walk.pop_back();
    Place& place = m_places[left.place];
    place.isOnPath = false;
    const unsigned int steps = m_steps.end({left.steps}, place.role);
    if (steps != 0) {
        revive(left.place);
    } else {
        place.isBarren = true;
        waitForParts(left.place);
    }
    return steps;
}

void WalkCounter::touch(unsigned int place) {
    if (!std::exchange(m_places[place].isTouched, true))
        m_touched.push_back(place);
}

/// Once it is in the lists of its parts, a type stays there until the walk ends.
void WalkCounter::waitForParts(unsigned int place) {
    if (std::exchange(m_places[place].isWaiting, true))
        return;
    for (const Edge& edge : edgesFrom(place)) {
        touch(edge.to);
        m_waiting.push_back(
            {place, std::exchange(m_places[edge.to].firstWaiting, m_waiting.size())});
        ++m_counted;
    }
}

/// What was barren while a class was on the path may give something now that it has left.
void WalkCounter::revive(unsigned int place) {
    m_places[place].isBarren = false;
    m_revived.assign(1, place);
    while (!m_revived.empty()) {
        const Place& changed = m_places[m_revived.back()];
        m_revived.pop_back();
        for (std::size_t next = changed.firstWaiting; next != NONE; next = m_waiting[next].next) {
            if (std::exchange(m_places[m_waiting[next].place].isBarren, false))
                m_revived.push_back(m_waiting[next].place);
            ++m_counted;
        }
    }
}

/// Takes back what a walk left behind.
void WalkCounter::forget() {
    for (const unsigned int place : m_touched) {
        Place& touched = m_places[place];
        touched.isBarren = touched.isOnPath = touched.isWaiting = touched.isTouched = false;
        touched.firstWaiting = NONE;
    }
    m_touched.clear();
    m_waiting.clear();
    m_walk.clear();
}

} // namespace TypeFile
