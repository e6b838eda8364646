#include "TypeFile/GroupVerifier.h"

#include "RTTI/TypeFileFormat.h"

#include <algorithm>
#include <string>
#include <utility>

namespace TypeFile {

using RTTI::TypeFileFormat::REOPEN_LIMIT;

void GroupVerifier::verify() {
    m_places.assign(m_types.size(), NEW);
    m_groups.find([](const Reference&) { return true; },
                  [this](Group group) {
                      if (isCycle(group))
                          return verifyGroup(group);
                      m_parts.checkKept(group.front());
                      m_parts.settleKept(group.front());
                  });
}

bool GroupVerifier::isCycle(Group group) const {
    bool leadsToItself = false;
    m_types.forEachReference(group.front(), [&](const Reference& reference) {
        leadsToItself = leadsToItself || reference.target == group.front();
    });
    return group.size() > 1 || leadsToItself;
}

void GroupVerifier::verifyGroup(Group group) {
    m_isSound = true;
    m_isReopened = false;
    verifyValues(group);
    verifyReads(group);
    for (const unsigned int id : group)
        m_types.states[id].isUnsound = !m_isSound;
}

/// Each type is checked after its parts.
void GroupVerifier::verifyValues(Group group) {
    goThrough(
        group,
        [this](const Reference& reference) {
            return m_types.isByValue(reference.target, reference.link);
        },
        [this](const Step& step, const Reference& reference) { addSelfContained(step, reference); },
        [this](unsigned int typeId) { m_parts.checkKept(typeId); });
}

void GroupVerifier::verifyReads(Group group) {
    goThrough(
        group, [](const Reference& reference) { return Link::has(reference.link, Link::AWAITED); },
        [this](const Step& step, const Reference& reference) { addEndless(step, reference); },
        [this](unsigned int typeId) { measureChain(typeId); });
}

/// Goes down from each type of the group along the references that `follows` picks and that stay in
/// it. `back` is called where one comes back to the way, `leave` for each type once all below it
/// are left.
template <typename Follows, typename Back, typename Leave>
void GroupVerifier::goThrough(Group group, Follows follows, Back back, Leave leave) {
    for (const unsigned int id : group)
        m_places[id] = NEW;
    for (const unsigned int id : group) {
        if (m_places[id] == NEW)
            enter(id);
        while (!m_path.empty()) {
            Step& step = m_path.back();
            if (step.isDone) {
                m_places[step.typeId] = LEFT;
                leave(step.typeId);
                m_path.pop_back();
                continue;
            }
            const Reference& reference = m_types.references[step.next++];
            step.isDone = reference.isLast;
            if (!follows(reference) || !m_groups.isInside(reference.target))
                continue;
            if (m_places[reference.target] == NEW)
                enter(reference.target);
            else if (m_places[reference.target] != LEFT)
                back(step, reference);
        }
    }
}

void GroupVerifier::enter(unsigned int typeId) {
    const unsigned int outer = m_path.empty() ? 0 : m_path.back().records;
    const bool isRecord = m_types.states[typeId].role == Role::RECORD;
    m_path.push_back(
        {typeId, outer + (isRecord ? 1 : 0), false, m_types.nodes[typeId].firstReference});
    m_places[typeId] = static_cast<unsigned int>(m_path.size());
}

/// Where no struct takes part, the references themselves never end.
void GroupVerifier::addSelfContained(const Step& step, const Reference& reference) {
    m_isSound = false;
    const unsigned int place = m_places[reference.target] - 1;
    if (step.records == (place == 0 ? 0 : m_path[place - 1].records))
        return;
    m_records.addAtPart(FindingCode::STRUCT_CONTAINS_ITSELF, step.typeId, placeOf(step),
                        "Type " + std::to_string(reference.target) +
                            " contains this one by value, so that neither has a finite size.");
}

void GroupVerifier::addEndless(const Step& step, const Reference& reference) {
    m_isSound = false;
    m_records.addAtPart(FindingCode::REFERENCE_ENDLESS, step.typeId, placeOf(step),
                        "Type " + std::to_string(reference.target) +
                            " cannot be read before this one, which it refers to.");
}

/// A record is open once by itself, and once more for each record below it that it waits for and
/// that leads back to it once it is there itself.
void GroupVerifier::measureChain(unsigned int typeId) {
    unsigned int below = 0;
    bool leadsBack = false;
    unsigned int last = typeId;
    m_types.forEachReference(typeId, [&](const Reference& reference) {
        if (!m_groups.isInside(reference.target))
            return;
        if (!Link::has(reference.link, Link::AWAITED))
            leadsBack = true;
        else if (std::exchange(last, reference.target) != reference.target)
            below += m_types.nodes[reference.target].chain;
    });
    m_types.nodes[typeId].chain =
        static_cast<unsigned char>(std::min(below + (leadsBack ? 1 : 0), REOPEN_LIMIT));
    if (below >= REOPEN_LIMIT && m_isSound && !m_isReopened)
        addReopened(typeId);
}

/// Said once a group: what leads here can be opened as often.
void GroupVerifier::addReopened(unsigned int typeId) {
    m_isReopened = true;
    std::size_t place = 0;
    bool isFound = false;
    m_types.forEachReference(typeId, [&](const Reference& reference) {
        isFound = isFound ||
                  (Link::has(reference.link, Link::AWAITED) && m_groups.isInside(reference.target));
        place += isFound ? 0 : 1;
    });
    m_records.addAtPart(FindingCode::RECORD_REOPENED, typeId, place,
                        "A load may have to open this record more than " +
                            std::to_string(REOPEN_LIMIT) +
                            " times before it is read; further references to it are null.");
}

} // namespace TypeFile
