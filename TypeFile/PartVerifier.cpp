#include "TypeFile/PartVerifier.h"

#include "OVAT/Counted.h"
#include "TypeFile/RecordScan.h"

#include <algorithm>
#include <limits>

namespace TypeFile {

using namespace RTTI::TypeFileFormat;

namespace {

constexpr unsigned int MOST_RANGES = std::numeric_limits<unsigned int>::max() - 1;

/// The list of a part with MANY ranges.
const LongList& longListOf(const PartsOfType& type, std::size_t place) {
    return *std::lower_bound(
        type.longLists.begin(), type.longLists.end(), type.firstPlace + place,
        [](const LongList& list, std::size_t part) { return list.part < part; });
}

} // namespace

void PartVerifier::verify(unsigned int typeId, const PartsOfType& type) {
    bool isPlain = type.dimensions == 0;
    for (const Part& part : type.parts) {
        if (part.target >= m_types.size()) {
            isPlain = false;
            continue;
        }
        const TypeState below = m_types.states[part.target];
        if (!below.isFinished)
            return defer(typeId, type);
        isPlain = isPlain && !below.hasCounts && below.role != Role::NO_TYPE &&
                  !Link::has(part.link, Link::BASE_CLASS);
    }
    m_types.states[typeId].isFinished = true;
    if (!isPlain)
        finish(typeId, type);
}

void PartVerifier::finish(unsigned int typeId, const PartsOfType& type) {
    const WalkSum sum = check(typeId, type);
    TypeState& state = m_types.states[typeId];
    TypeCounts& counts = m_types.counts[typeId];
    counts.steps = m_steps.end(sum, state.role);
    state.hasCounts = counts.open != 0 || counts.steps != 0;
    state.isFinished = true;
    m_steps.report(typeId, m_types, m_findings);
}

void PartVerifier::defer(unsigned int typeId, const PartsOfType& type) {
    const std::size_t first = m_types.parts.size();
    m_types.deferred.push_back({typeId, type.dimensions, first});
    m_types.parts.insert(m_types.parts.end(), type.parts.begin(), type.parts.end());
    m_types.parts.back().isLast = true;
    for (const LongList& list : type.longLists)
        m_types.longLists.push_back({first + list.part, list.rangeCount, list.rangesAt});
}

void PartVerifier::checkDeferred(unsigned int typeId) {
    check(typeId, m_types.partsOf(typeId));
    m_types.states[typeId].hasCounts = m_types.counts[typeId].open != 0;
}

void PartVerifier::verifyDeferred(unsigned int typeId) {
    const PartsOfType type = m_types.partsOf(typeId);
    const bool isFinished =
        std::none_of(type.parts.begin(), type.parts.end(),
                     [this](const Part& part) { return m_types.isUnfinished(part.target); });
    if (isFinished)
        finish(typeId, type);
    else
        checkDeferred(typeId);
}

/// Gives the steps of the type's walk, as far as those of its parts are known.
WalkSum PartVerifier::check(unsigned int typeId, const PartsOfType& type) {
    WalkSum sum{type.dimensions};
    unsigned long long open = 0;
    bool isBroken = false;
    for (std::size_t place = 0; place < type.parts.size(); ++place) {
        const Part& part = type.parts[place];
        isBroken = isBroken || m_types.isBroken(part.target, part.link);
        if (!Link::has(part.link, Link::WALKED) || !m_types.isLinked(part.target))
            continue;
        unsigned int asked = 0;
        if (m_types.states[part.target].hasCounts) {
            m_steps.add(sum, m_types, part.target, part.link);
            if (m_types.states[part.target].role != Role::CLASS)
                asked = m_types.counts[part.target].open;
        }
        if (asked != 0 || type.dimensions != 0)
            open += openRanges(typeId, type, place, asked);
    }
    m_types.counts[typeId].open =
        static_cast<unsigned int>(std::min<unsigned long long>(open, MOST_RANGES));
    if (isBroken)
        addBrokenParts(typeId, type);
    return sum;
}

void PartVerifier::addBrokenParts(unsigned int typeId, const PartsOfType& type) {
    bool hasRoom = false;
    for (const Part& part : type.parts)
        hasRoom = hasRoom || (m_types.isBroken(part.target, part.link) &&
                              m_findings.hasRoom(m_types.brokenCode(part.target)));
    if (hasRoom)
        return m_records.addBrokenLinks(typeId);
    for (const Part& part : type.parts)
        if (m_types.isBroken(part.target, part.link))
            m_findings.leaveOut(m_types.brokenCode(part.target));
}

/// How many ranges a part asks of the levels around.
///
/// Its list answers, entry by entry, what is asked below; entries that stand open and those that
/// are missing are asked of the level further out. An array asks for its own dimensions first, and
/// its element may have what the list holds beyond them.
unsigned int PartVerifier::openRanges(unsigned int typeId, const PartsOfType& type,
                                      std::size_t place, unsigned int askedBelow) {
    const Part& part = type.parts[place];
    const unsigned int dimensions = type.dimensions;
    const auto asked = static_cast<unsigned int>(std::min<unsigned long long>(
        MOST_RANGES, static_cast<unsigned long long>(dimensions) + askedBelow));
    const LongList* const list = part.rangeCount == Part::MANY ? &longListOf(type, place) : nullptr;
    const unsigned int rangeCount = list != nullptr ? list->rangeCount : part.rangeCount;
    const bool isShort = rangeCount < dimensions || (rangeCount > dimensions && rangeCount < asked);
    if (isShort && m_findings.hasRoom(FindingCode::CONSTRAINT_LIST_TOO_SHORT))
        m_records.addAtRanges(FindingCode::CONSTRAINT_LIST_TOO_SHORT, typeId, place,
                              "Found " + OVAT::counted(rangeCount, "constraint") + " for " +
                                  OVAT::counted(asked, "dimension") + ".");
    else if (isShort)
        m_findings.leaveOut(FindingCode::CONSTRAINT_LIST_TOO_SHORT);
    if (list != nullptr)
        return asked - rangesWithBounds(*list, asked);
    unsigned int withBounds = 0;
    for (unsigned int i = 0; i < std::min<unsigned int>(asked, part.rangeCount); ++i)
        withBounds += part.bounded >> i & 1;
    return asked - withBounds;
}

/// How many of the first `count` ranges of a list have bounds of their own.
unsigned int PartVerifier::rangesWithBounds(const LongList& list, unsigned int count) {
    unsigned int found = 0;
    for (unsigned long long i = 0; i < std::min(count, list.rangeCount); ++i) {
        const char* const range = m_jumps.at(list.rangesAt + i * CONSTRAINT_SIZE, CONSTRAINT_SIZE);
        found += isOpenRange(range) ? 0 : 1;
    }
    return found;
}

} // namespace TypeFile
