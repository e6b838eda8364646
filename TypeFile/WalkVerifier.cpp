#include "TypeFile/WalkVerifier.h"

#include "TypeFile/ReferenceVerifier.h"

#include <algorithm>
#include <limits>

namespace TypeFile {

using namespace RTTI;

namespace {

constexpr unsigned int MOST_RANGES = std::numeric_limits<unsigned int>::max() - 1;

} // namespace

void closeCost(const TypeFacts& type, WalkCost& cost) {
    cost.givesRanges = cost.givesRanges || ownSteps(type) != 0;
    if (isAggregate(type.kind) && !cost.givesRanges)
        cost.steps = 0;
}

void addWalkTooLarge(const TypeFacts& type, unsigned int typeId, FindingList& findings,
                     unsigned long long steps) {
    findings.add(FindingCode::WALK_TOO_LARGE, typeId, "record", type.address,
                 "To flatten the constraints of this type takes more than " +
                     std::to_string(steps) + " steps.");
}

void WalkVerifier::begin() {
    m_costs.assign(m_types.size(), {});
    m_states.assign(m_types.size(), {});
}

void WalkVerifier::settle(unsigned int typeId) {
    if (m_types.roles[typeId] < Role::PASSAGE || !m_parts.areAtHand(typeId))
        return;
    if (!m_parts.allOf(typeId, [this](const Part& part) { return isSettled(part.typeId); }))
        return;
    m_costs[typeId].steps = ownSteps(m_types[typeId]);
    bool passedBelow = false;
    m_parts.allOf(typeId, [&](const Part& part) {
        if (isSound(typeId, part))
            account(typeId, part, passedBelow);
        return true;
    });
    close(typeId, passedBelow);
}

bool WalkVerifier::isSettled(unsigned int typeId) const {
    if (typeId >= m_types.size())
        return true;
    const Role role = m_types.roles[typeId];
    return role == Role::RECORD || role == Role::PASSAGE
               ? m_states[typeId].progress == Progress::DONE
               : role != Role::UNREAD;
}

bool WalkVerifier::verify() {
    for (unsigned int id = 0; id < m_types.size(); ++id) {
        if (m_types.roles[id] >= Role::PASSAGE && m_states[id].progress == Progress::NEW)
            verifyFrom(id);
    }
    return m_isFinite;
}

void WalkVerifier::verifyFrom(unsigned int typeId) {
    enter(typeId);
    while (!m_path.empty())
        advance();
}

void WalkVerifier::enter(unsigned int typeId) {
    const auto place = static_cast<unsigned int>(m_path.size());
    const bool isRecord = m_types.roles[typeId] == Role::RECORD;
    const unsigned int lastRecord = isRecord         ? place + 1
                                    : m_path.empty() ? 0
                                                     : m_path.back().lastRecord;
    m_path.push_back({typeId, lastRecord, m_parts.begin(typeId), {}, false, false});
    m_states[typeId] = {0, place, Progress::OPEN};
    m_costs[typeId].steps = ownSteps(m_types[typeId]);
}

void WalkVerifier::advance() {
    Step& step = m_path.back();
    if (step.isBelow) {
        step.isBelow = false;
        account(step.typeId, step.part, step.passedBelow);
    } else if (m_parts.read(step.typeId, step.position, step.part)) {
        meet(step);
    } else {
        close(step.typeId, step.passedBelow);
        m_path.pop_back();
    }
}

/// Whether the part leads to an object. A link that is not a member's was checked with the other
/// references.
bool WalkVerifier::isSound(unsigned int typeId, const Part& part) {
    if (isLinked(m_types, part.typeId))
        return true;
    if (m_types.roles[typeId] != Role::PASSAGE && part.index != BASE_CLASS)
        addBrokenLink(m_types, m_findings, typeId, part.typeId, m_parts.fieldOf(typeId, part),
                      part.idAt);
    return false;
}

void WalkVerifier::meet(Step& step) {
    if (!isSound(step.typeId, step.part))
        return;
    const unsigned int next = step.part.typeId;
    const Role role = m_types.roles[next];
    const bool isEntered = role == Role::RECORD || role == Role::PASSAGE;
    if (isEntered && m_states[next].progress == Progress::NEW) {
        step.isBelow = true;
        enter(next);
    } else if (isEntered && m_states[next].progress == Progress::OPEN) {
        addSelfContained(step);
    } else {
        account(step.typeId, step.part, step.passedBelow);
    }
}

void WalkVerifier::addSelfContained(const Step& step) {
    m_isFinite = false;
    const unsigned int next = step.part.typeId;
    if (step.lastRecord <= m_states[next].place)
        return; // No record takes part: the references themselves never end.
    m_findings.add(FindingCode::STRUCT_CONTAINS_ITSELF, step.typeId,
                   m_parts.fieldOf(step.typeId, step.part), step.part.idAt,
                   "Type " + std::to_string(next) +
                       " contains this one by value, so that neither has a finite size.");
}

void WalkVerifier::account(unsigned int typeId, const Part& part, bool& passedBelow) {
    const Role role = m_types.roles[part.typeId];
    const bool isClass = role == Role::CLASS;
    const bool isLeaf = isClass || role == Role::LEAF;
    const WalkCost below = isLeaf ? WalkCost{0, false, isClass} : m_costs[part.typeId];
    WalkCost& cost = m_costs[typeId];
    passedBelow = passedBelow || below.steps > m_limits.maxWalkSteps;
    cost.steps = addSteps(cost.steps, partSteps(part, below), m_limits.maxWalkSteps);
    cost.givesRanges = cost.givesRanges || below.givesRanges;
    cost.entersClasses = cost.entersClasses || below.entersClasses;
    accountRanges(typeId, part, isLeaf ? 0 : m_states[part.typeId].open);
}

/// The list of a part answers, entry by entry, what is asked below; entries that stand open and
/// those that are missing are asked of the level further out. An array asks for its own dimensions
/// first, and its element may have what the list holds beyond them.
void WalkVerifier::accountRanges(unsigned int typeId, const Part& part, unsigned int askedBelow) {
    const unsigned int dimensions = ownSteps(m_types[typeId]);
    const unsigned int asked = static_cast<unsigned int>(std::min<unsigned long long>(
        MOST_RANGES, static_cast<unsigned long long>(dimensions) + askedBelow));
    if (asked == 0)
        return;
    const bool isShort =
        part.rangeCount < dimensions || (part.rangeCount > dimensions && part.rangeCount < asked);
    if (isShort)
        m_findings.add(FindingCode::CONSTRAINT_LIST_TOO_SHORT, typeId,
                       m_parts.rangesFieldOf(typeId, part), part.rangesAt - sizeof part.rangeCount,
                       "Found " + std::to_string(part.rangeCount) + " constraints, and " +
                           std::to_string(asked) + " dimensions consume them.");
    const unsigned long long open = asked - m_parts.rangesWithBounds(part, asked);
    unsigned int& sum = m_states[typeId].open;
    sum = static_cast<unsigned int>(std::min<unsigned long long>(MOST_RANGES, sum + open));
}

/// Reported where the limit is first passed, not at everything above.
void WalkVerifier::close(unsigned int typeId, bool passedBelow) {
    WalkCost& cost = m_costs[typeId];
    closeCost(m_types[typeId], cost);
    if (cost.steps > m_limits.maxWalkSteps && !passedBelow && !cost.entersClasses)
        addWalkTooLarge(m_types[typeId], typeId, m_findings, m_limits.maxWalkSteps);
    m_states[typeId].progress = Progress::DONE;
}

} // namespace TypeFile
