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

/// Looks at all parts before it decides anything: no processor foresees what they are.
[[gnu::always_inline]] inline PartVerifier::PartSum
PartVerifier::sumOf(const PartsOfType& type) const {
    const std::span states(m_types.states);
    const TypeCounts* const counts = m_types.counts.data();
    unsigned long long steps = type.dimensions;
    unsigned int asked = 0;
    unsigned char links = 0;
    bool isBroken = false;
    TypeStates below;
    for (const Part& part : type.parts) {
        if (part.target >= states.size()) {
            isBroken = true;
            continue;
        }
        below.add(states[part.target]);
        links |= part.link;
        const TypeCounts& ofPart = counts[part.target];
        const bool isWalked = Link::has(part.link, Link::WALKED);
        steps += isWalked ? ofPart.steps : 0;
        asked |= isWalked ? ofPart.open : 0;
    }
    isBroken |= below.any().isNoType || (Link::has(links, Link::BASE_CLASS) && hasWrongBase(type));
    return {steps, asked, below.all().isFinished, isBroken};
}

void PartVerifier::verify(unsigned int typeId, const PartsOfType& type) {
    const PartSum sum = sumOf(type);
    if (!sum.isFinished)
        return defer(typeId, type);
    finish(typeId, type, sum);
}

bool PartVerifier::hasWrongBase(const PartsOfType& type) const {
    const Part& base = *std::find_if(type.parts.begin(), type.parts.end(), [](const Part& part) {
        return Link::has(part.link, Link::BASE_CLASS);
    });
    return m_types.isBroken(base.target, base.link);
}

/// The ranges that a part leaves to the levels around it.
unsigned int PartVerifier::askedBy(const Part& part) const {
    const bool isAsking = Link::has(part.link, Link::WALKED) && m_types.isLinked(part.target) &&
                          m_types.states[part.target].role != Role::CLASS;
    return isAsking ? m_types.counts[part.target].open : 0;
}

void PartVerifier::finish(unsigned int typeId, const PartsOfType& type, const PartSum& sum) {
    check(typeId, type, sum);
    TypeState& state = m_types.states[typeId];
    m_types.counts[typeId].steps = m_steps.end({sum.steps}, state.role);
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
    const PartsOfType type = m_types.partsOf(typeId);
    check(typeId, type, sumOf(type));
}

void PartVerifier::verifyDeferred(unsigned int typeId) {
    const PartsOfType type = m_types.partsOf(typeId);
    const PartSum sum = sumOf(type);
    if (sum.isFinished)
        finish(typeId, type, sum);
    else
        check(typeId, type, sum);
}

void PartVerifier::check(unsigned int typeId, const PartsOfType& type, const PartSum& sum) {
    if (sum.asked != 0 || type.dimensions != 0)
        m_types.counts[typeId].open = openRanges(typeId, type);
    if (sum.isBroken)
        addBrokenParts(typeId, type);
}

/// How many ranges the parts ask of the levels around.
unsigned int PartVerifier::openRanges(unsigned int typeId, const PartsOfType& type) {
    unsigned long long open = 0;
    for (std::size_t place = 0; place < type.parts.size(); ++place) {
        const Part& part = type.parts[place];
        const unsigned int asked = askedBy(part);
        const bool isArray = type.dimensions != 0 && Link::has(part.link, Link::WALKED) &&
                             m_types.isLinked(part.target);
        if (asked != 0 || isArray)
            open += openRanges(typeId, type, place, asked);
    }
    return static_cast<unsigned int>(std::min<unsigned long long>(open, MOST_RANGES));
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
    if (isShort)
        addShort(typeId, place, rangeCount, asked);
    if (list != nullptr)
        return asked - rangesWithBounds(*list, asked);
    unsigned int withBounds = 0;
    for (unsigned int i = 0; i < std::min<unsigned int>(asked, part.rangeCount); ++i)
        withBounds += part.bounded >> i & 1;
    return asked - withBounds;
}

void PartVerifier::addShort(unsigned int typeId, std::size_t place, unsigned int found,
                            unsigned int asked) {
    if (!m_findings.hasRoom(FindingCode::CONSTRAINT_LIST_TOO_SHORT))
        return m_findings.leaveOut(FindingCode::CONSTRAINT_LIST_TOO_SHORT);
    m_records.addAtRanges(FindingCode::CONSTRAINT_LIST_TOO_SHORT, typeId, place,
                          "Found " + OVAT::counted(found, "constraint") + " for " +
                              OVAT::counted(asked, "dimension") + ".");
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
