#include "TypeFile/PartVerifier.h"

#include "OVAT/Counted.h"
#include "RTTI/LittleEndian.h"

#include <algorithm>
#include <limits>

namespace TypeFile {

using namespace RTTI::TypeFileFormat;

namespace {

/// In place of the ranges that a type asks for.
constexpr unsigned int NOT_KNOWN = std::numeric_limits<unsigned int>::max();
constexpr unsigned int MOST_RANGES = NOT_KNOWN - 1;
constexpr std::size_t DIRECTION_OFFSET = 8; ///< In a constraint.

/// How many of the first `count` ranges of a part have bounds of their own.
unsigned int rangesWithBounds(const Part& part, unsigned int count, StorageWindow& window) {
    unsigned int found = 0;
    for (unsigned long long i = 0; i < std::min(count, part.rangeCount); ++i) {
        const char* const range = window.at(part.rangesAt + i * CONSTRAINT_SIZE, CONSTRAINT_SIZE);
        const int direction = RTTI::littleEndianAt<int>(range + DIRECTION_OFFSET);
        found += direction != UNCONSTRAINED_DIRECTION ? 1 : 0;
    }
    return found;
}

} // namespace

void PartVerifier::settle(unsigned int typeId, const RecordParts& record) {
    TypeState& state = m_types.states[typeId];
    if (record.parts.empty()) {
        state.isSettled = true;
        return;
    }
    WalkSum sum{record.dimensions};
    bool needsCheck = record.dimensions != 0;
    for (const Part& part : record.parts) {
        const bool isBroken = m_types.isBroken(part.target, part.link);
        needsCheck = needsCheck || isBroken;
        if (part.target >= m_types.size())
            continue;
        const TypeState below = m_types.states[part.target];
        if (!below.isSettled)
            return keep(typeId, record);
        if (!below.hasFacts)
            continue;
        needsCheck = true;
        m_steps.add(sum, m_types, part.target, part.link);
    }
    state.isSettled = true;
    if (!needsCheck)
        return;
    TypeNode& node = m_types.nodes[typeId];
    node.dimensions = record.dimensions;
    check(typeId, record, m_sweep);
    node.steps = m_steps.end(sum, state.role);
    state.hasFacts = node.open != 0 || node.steps != 0;
    m_steps.report(typeId, m_types, m_findings);
}

/// What the type asks itself is found out while its ranges are at hand.
void PartVerifier::keep(unsigned int typeId, const RecordParts& record) {
    TypeNode& node = m_types.nodes[typeId];
    node.dimensions = record.dimensions;
    node.firstReference = m_types.references.size();
    for (const Part& part : record.parts)
        m_types.references.push_back({part.target, part.link, false});
    m_types.references.back().isLast = true;
    if (node.dimensions == 0)
        return;
    const Part& element = record.parts.front();
    node.open = element.rangeCount < node.dimensions
                    ? NOT_KNOWN
                    : node.dimensions - rangesWithBounds(element, node.dimensions, m_sweep);
}

void PartVerifier::checkKept(unsigned int typeId) {
    TypeNode& node = m_types.nodes[typeId];
    bool needsCheck = node.open == NOT_KNOWN;
    m_types.forEachReference(typeId, [&](const Reference& reference) {
        needsCheck = needsCheck || askedBelow(reference.target, reference.link) != 0 ||
                     m_types.isBroken(reference.target, reference.link);
    });
    if (needsCheck) {
        m_records.readParts(typeId, m_kept);
        check(typeId, m_kept, m_jumps);
    }
    m_types.states[typeId].hasFacts = node.open != 0;
}

void PartVerifier::settleKept(unsigned int typeId) {
    TypeNode& node = m_types.nodes[typeId];
    WalkSum sum{node.dimensions};
    bool isSettled = true;
    m_types.forEachReference(typeId, [&](const Reference& reference) {
        isSettled = isSettled && (reference.target >= m_types.size() ||
                                  m_types.states[reference.target].isSettled);
        m_steps.add(sum, m_types, reference.target, reference.link);
    });
    if (!isSettled)
        return;
    TypeState& state = m_types.states[typeId];
    node.steps = m_steps.end(sum, state.role);
    state.hasFacts = node.open != 0 || node.steps != 0;
    state.isSettled = true;
    m_steps.report(typeId, m_types, m_findings);
}

void PartVerifier::check(unsigned int typeId, const RecordParts& record, StorageWindow& window) {
    unsigned long long open = 0;
    bool isBroken = false;
    for (std::size_t i = 0; i < record.parts.size(); ++i) {
        const Part& part = record.parts[i];
        isBroken = isBroken || m_types.isBroken(part.target, part.link);
        if (!Link::has(part.link, Link::WALKED) || !m_types.isLinked(part.target))
            continue;
        const unsigned int asked = askedBelow(part.target, part.link);
        if (asked != 0 || record.dimensions != 0)
            open += openRanges(typeId, i, part, asked, window);
    }
    m_types.nodes[typeId].open =
        static_cast<unsigned int>(std::min<unsigned long long>(open, MOST_RANGES));
    if (isBroken)
        m_records.addBrokenLinks(typeId);
}

/// How many ranges a part asks of the levels around.
///
/// Its list answers, entry by entry, what is asked below; entries that stand open and those that
/// are missing are asked of the level further out. An array asks for its own dimensions first, and
/// its element may have what the list holds beyond them.
unsigned int PartVerifier::openRanges(unsigned int typeId, std::size_t place, const Part& part,
                                      unsigned int askedBelow, StorageWindow& window) {
    const unsigned int dimensions = m_types.nodes[typeId].dimensions;
    const auto asked = static_cast<unsigned int>(std::min<unsigned long long>(
        MOST_RANGES, static_cast<unsigned long long>(dimensions) + askedBelow));
    const unsigned int bounded = rangesWithBounds(part, asked, window);
    const bool isShort =
        part.rangeCount < dimensions || (part.rangeCount > dimensions && part.rangeCount < asked);
    if (isShort)
        m_records.addAtRanges(FindingCode::CONSTRAINT_LIST_TOO_SHORT, typeId, place,
                              "Found " + OVAT::counted(part.rangeCount, "constraint") + " for " +
                                  OVAT::counted(asked, "dimension") + ".");
    return asked - bounded;
}

} // namespace TypeFile
