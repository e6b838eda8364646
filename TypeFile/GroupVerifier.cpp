#include "TypeFile/GroupVerifier.h"

#include "RTTI/LoadLimits.h"

#include <algorithm>
#include <string>
#include <utility>

namespace TypeFile {

using RTTI::REOPEN_LIMIT;

void GroupVerifier::verify() {
    m_depths.assign(m_types.deferred.size(), NEW);
    m_reopenings.assign(m_types.deferred.size(), 0);
    m_groups.find([](const Part&) { return true; },
                  [this](Group group, bool isCycle) {
                      if (isCycle)
                          verifyGroup(group);
                      else
                          m_parts.verifyDeferred(group.front());
                  });
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
        group, [this](const Part& part) { return m_types.isByValue(part.target, part.link); },
        [this](const Step& step, const Part& part) { addSelfContained(step, part); },
        [this](unsigned int typeId) { m_parts.checkDeferred(typeId); });
}

void GroupVerifier::verifyReads(Group group) {
    goThrough(
        group, [](const Part& part) { return Link::has(part.link, Link::AWAITED); },
        [this](const Step& step, const Part& part) { addEndless(step, part); },
        [this](unsigned int typeId) { countReopenings(typeId); });
}

/// Goes down from each type of the group along the parts that `follows` picks and that stay in it.
/// `back` is called where one comes back to the way, `leave` for each type once all below it
/// are left.
template <typename Follows, typename Back, typename Leave>
void GroupVerifier::goThrough(Group group, Follows follows, Back back, Leave leave) {
    for (const unsigned int id : group)
        depthOf(id) = NEW;
    for (const unsigned int id : group) {
        if (depthOf(id) == NEW)
            enter(id);
        while (!m_path.empty()) {
            Step& step = m_path.back();
            if (step.isDone) {
                depthOf(step.typeId) = LEFT;
                leave(step.typeId);
                m_path.pop_back();
                continue;
            }
            const Part& part = m_types.parts[step.next++];
            step.isDone = part.isLast;
            if (!follows(part) || !m_groups.isInside(part.target))
                continue;
            if (depthOf(part.target) == NEW)
                enter(part.target);
            else if (depthOf(part.target) != LEFT)
                back(step, part);
        }
    }
}

void GroupVerifier::enter(unsigned int typeId) {
    const unsigned int outer = m_path.empty() ? 0 : m_path.back().records;
    const bool isRecord = m_types.states[typeId].role == Role::RECORD;
    m_path.push_back({typeId, outer + (isRecord ? 1 : 0), false, firstPartOf(typeId)});
    depthOf(typeId) = static_cast<unsigned int>(m_path.size());
}

/// Where no struct takes part, the references themselves never end.
void GroupVerifier::addSelfContained(const Step& step, const Part& part) {
    m_isSound = false;
    const unsigned int place = depthOf(part.target) - 1;
    if (step.records == (place == 0 ? 0 : m_path[place - 1].records))
        return;
    m_records.addAtPart(FindingCode::STRUCT_CONTAINS_ITSELF, step.typeId, placeOf(step),
                        "Type " + std::to_string(part.target) +
                            " contains this one by value, so that neither has a finite size.");
}

void GroupVerifier::addEndless(const Step& step, const Part& part) {
    m_isSound = false;
    m_records.addAtPart(FindingCode::REFERENCE_ENDLESS, step.typeId, placeOf(step),
                        "Type " + std::to_string(part.target) +
                            " cannot be read before this one, which it refers to.");
}

/// A record is open once by itself, and once more for each record below it that it waits for and
/// that leads back to it once it is there itself.
void GroupVerifier::countReopenings(unsigned int typeId) {
    unsigned int below = 0;
    bool leadsBack = false;
    unsigned int last = typeId;
    for (const Part& part : m_types.partsOf(typeId).parts) {
        if (!m_groups.isInside(part.target))
            continue;
        if (!Link::has(part.link, Link::AWAITED))
            leadsBack = true;
        else if (std::exchange(last, part.target) != part.target)
            below += reopeningsOf(part.target);
    }
    reopeningsOf(typeId) =
        static_cast<unsigned char>(std::min(below + (leadsBack ? 1 : 0), REOPEN_LIMIT));
    if (below >= REOPEN_LIMIT && m_isSound && !m_isReopened)
        addReopened(typeId);
}

/// Said once a group: what leads here can be opened as often.
void GroupVerifier::addReopened(unsigned int typeId) {
    m_isReopened = true;
    const std::span<const Part> parts = m_types.partsOf(typeId).parts;
    const auto awaited = std::find_if(parts.begin(), parts.end(), [this](const Part& part) {
        return Link::has(part.link, Link::AWAITED) && m_groups.isInside(part.target);
    });
    m_records.addAtPart(
        FindingCode::RECORD_REOPENED, typeId, static_cast<std::size_t>(awaited - parts.begin()),
        "A load may have to open this record more than " + std::to_string(REOPEN_LIMIT) +
            " times before it is read; further references to it are null.");
}

} // namespace TypeFile
