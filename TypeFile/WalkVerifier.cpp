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

/// A leaf costs nothing, and a class is held by reference.
inline void WalkVerifier::account(unsigned int typeId, const Part& part, Sum& sum) {
    const bool isClass = m_types.roles[part.typeId] == Role::CLASS;
    const WalkCost below = isClass ? WalkCost{0, false, true} : m_costs[part.typeId];
    sum.passedBelow = sum.passedBelow || below.steps > m_limits.maxWalkSteps;
    sum.cost.steps = addSteps(sum.cost.steps, partSteps(part, below), m_limits.maxWalkSteps);
    sum.cost.givesRanges = sum.cost.givesRanges || below.givesRanges;
    sum.cost.entersClasses = sum.cost.entersClasses || below.entersClasses;
    const unsigned int askedBelow = isClass ? 0 : m_states[part.typeId].open;
    if (askedBelow != 0 || ownSteps(m_types[typeId]) != 0)
        sum.open = static_cast<unsigned int>(std::min<unsigned long long>(
            MOST_RANGES, 0ULL + sum.open + openRanges(typeId, part, askedBelow)));
}

/// How many ranges a part asks of the levels around.
///
/// Its list answers, entry by entry, what is asked below; entries that stand open and those that
/// are missing are asked of the level further out. An array asks for its own dimensions first, and
/// its element may have what the list holds beyond them.
unsigned int WalkVerifier::openRanges(unsigned int typeId, const Part& part,
                                      unsigned int askedBelow) {
    const unsigned int dimensions = ownSteps(m_types[typeId]);
    const unsigned int asked = static_cast<unsigned int>(std::min<unsigned long long>(
        MOST_RANGES, static_cast<unsigned long long>(dimensions) + askedBelow));
    const bool isShort =
        part.rangeCount < dimensions || (part.rangeCount > dimensions && part.rangeCount < asked);
    if (isShort)
        m_findings.add(FindingCode::CONSTRAINT_LIST_TOO_SHORT, typeId,
                       m_parts.rangesFieldOf(typeId, part), part.rangesAt - sizeof part.rangeCount,
                       "Found " + std::to_string(part.rangeCount) + " constraints, and " +
                           std::to_string(asked) + " dimensions consume them.");
    return asked - m_parts.rangesWithBounds(part, asked);
}

/// Reported where the limit is first passed, not at everything above.
inline void WalkVerifier::close(unsigned int typeId, const Sum& sum) {
    WalkCost cost = sum.cost;
    cost.steps = addSteps(cost.steps, ownSteps(m_types[typeId]), m_limits.maxWalkSteps);
    closeCost(m_types[typeId], cost);
    if (cost.steps > m_limits.maxWalkSteps && !sum.passedBelow && !cost.entersClasses)
        addWalkTooLarge(m_types[typeId], typeId, m_findings, m_limits.maxWalkSteps);
    m_costs[typeId] = cost;
    m_states[typeId].open = sum.open;
    m_states[typeId].progress = Progress::DONE;
}

bool WalkVerifier::settle(unsigned int typeId) {
    if (m_types.roles[typeId] < Role::PASSAGE || !m_parts.areAtHand(typeId))
        return false;
    if (!m_parts.allOf(typeId, [this](const Part& part) { return isSettled(part.typeId); }))
        return false;
    Sum sum;
    m_parts.allOf(typeId, [&](const Part& part) {
        if (isSound(typeId, part))
            account(typeId, part, sum);
        return true;
    });
    close(typeId, sum);
    return !sum.cost.entersClasses;
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
    m_path.push_back({typeId, lastRecord, m_parts.begin(typeId), {}, false, {}});
    m_states[typeId] = {0, place, Progress::OPEN};
}

void WalkVerifier::advance() {
    Step& step = m_path.back();
    if (step.isBelow) {
        step.isBelow = false;
        account(step.typeId, step.part, step.sum);
    } else if (m_parts.read(step.typeId, step.position, step.part)) {
        meet(step);
    } else {
        close(step.typeId, step.sum);
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
        account(step.typeId, step.part, step.sum);
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

} // namespace TypeFile
