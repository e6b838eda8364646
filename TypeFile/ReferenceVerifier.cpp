#include "TypeFile/ReferenceVerifier.h"

#include "TypeFile/TypeParts.h"

#include <algorithm>

namespace TypeFile {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

constexpr std::size_t ASSOC_INDEX_OFFSET = 8; ///< Behind the element type id and the SV type id.

bool hasReference(unsigned int kind) {
    switch (kind) {
    case ClassId::ACCESS:
    case ClassId::FILE_TYPE:
    case ClassId::DYNAMIC_ARRAY:
    case ClassId::QUEUE:
    case ClassId::ASSOC_ARRAY:
    case ClassId::CLASS: return true;
    default: return isPassage(kind);
    }
}

/// The references that the loader follows before the object of the record is in its table.
unsigned int followedAtOnce(const TypeFacts& type) {
    if (!type.isWhole || !hasReference(type.kind) || type.kind == ClassId::ACCESS ||
        (type.kind == ClassId::CLASS && type.reference == NO_TYPE_ID))
        return 0;
    return type.kind == ClassId::ASSOC_ARRAY ? 2 : 1;
}

} // namespace

void addBrokenLink(const TypeTable& types, FindingList& findings, unsigned int typeId,
                   unsigned int target, const std::string& field, unsigned long long offset) {
    if (target >= types.size())
        findings.add(FindingCode::TYPE_ID_OUTSIDE_TABLE, typeId, field, offset,
                     "Found type " + std::to_string(target) + ", and the file has " +
                         std::to_string(types.size()) + " types.");
    else
        findings.add(FindingCode::LINK_TO_NO_TYPE, typeId, field, offset,
                     "Type " + std::to_string(target) + " has a kind that builds no type.");
}

void ReferenceVerifier::begin() {
    m_depths.assign(m_types.size(), 0);
    m_isOpen.assign(m_types.size(), false);
}

void ReferenceVerifier::settle(unsigned int typeId) {
    const TypeFacts& type = m_types[typeId];
    if (hasReference(type.kind)) {
        const bool hasSecond = type.kind == ClassId::ASSOC_ARRAY;
        if (!isSettled(type.reference) || (hasSecond && !isSettled(type.second)))
            return;
        checkLinks(typeId);
        const unsigned int followed = followedAtOnce(type);
        if (followed > 0)
            goBehind(typeId, type.reference);
        if (followed > 1)
            goBehind(typeId, type.second);
    }
    close(typeId);
}

void ReferenceVerifier::goBehind(unsigned int typeId, unsigned int target) {
    if (target < m_types.size())
        m_depths[typeId] = std::max(m_depths[typeId], m_depths[target]);
}

bool ReferenceVerifier::verify() {
    for (unsigned int id = 0; id < m_types.size(); ++id) {
        if (m_depths[id] == 0 && hasReference(m_types[id].kind))
            checkLinks(id);
    }
    for (unsigned int id = 0; id < m_types.size(); ++id) {
        if (m_depths[id] == 0 && followedAtOnce(m_types[id]) != 0)
            measureFrom(id);
    }
    return m_allEnd;
}

void ReferenceVerifier::checkLinks(unsigned int typeId) {
    const TypeFacts& type = m_types[typeId];
    if (!type.isWhole || (type.kind == ClassId::CLASS && type.reference == NO_TYPE_ID))
        return;
    const unsigned long long offset = type.address + type.referenceAt;
    if (!isLinked(m_types, type.reference))
        addBrokenLink(m_types, m_findings, typeId, type.reference, referenceField(type.kind),
                      offset);
    else if (type.kind == ClassId::CLASS && m_types.roles[type.reference] != Role::CLASS &&
             m_types[type.reference].kind != 0)
        m_findings.add(FindingCode::BASE_IS_NO_CLASS, typeId, referenceField(type.kind), offset,
                       "Type " + std::to_string(type.reference) + " is no class.");
    if (type.kind == ClassId::ASSOC_ARRAY && !isLinked(m_types, type.second))
        addBrokenLink(m_types, m_findings, typeId, type.second, "index type id",
                      offset + ASSOC_INDEX_OFFSET);
}

void ReferenceVerifier::measureFrom(unsigned int typeId) {
    m_path.push_back({typeId, 0});
    m_isOpen[typeId] = true;
    while (!m_path.empty()) {
        const Step step = m_path.back();
        if (step.followed < followedAtOnce(m_types[step.typeId])) {
            follow(m_path.back());
        } else {
            close(step.typeId);
            m_isOpen[step.typeId] = false;
            m_path.pop_back();
        }
    }
}

unsigned int ReferenceVerifier::target(const Step& step) const {
    const TypeFacts& type = m_types[step.typeId];
    return step.followed == 0 ? type.reference : type.second;
}

void ReferenceVerifier::follow(Step& step) {
    const unsigned int next = target(step);
    const bool isFirst = step.followed == 0;
    if (next < m_types.size() && m_isOpen[next]) {
        const TypeFacts& type = m_types[step.typeId];
        m_allEnd = false;
        m_findings.add(FindingCode::REFERENCE_ENDLESS, step.typeId,
                       isFirst ? referenceField(type.kind) : "index type id",
                       type.address + type.referenceAt + (isFirst ? 0 : ASSOC_INDEX_OFFSET),
                       "Type " + std::to_string(next) +
                           " cannot be read before this one, which it refers to.");
    } else if (next < m_types.size() && m_depths[next] == 0) {
        m_path.push_back({next, 0});
        m_isOpen[next] = true;
        return; // Looked at again when its depth is known.
    } else {
        goBehind(step.typeId, next);
    }
    ++step.followed;
}

/// Once the depths behind the type's references are known.
void ReferenceVerifier::close(unsigned int typeId) {
    const TypeFacts& type = m_types[typeId];
    if (++m_depths[typeId] == m_limits.maxNesting + 1)
        m_findings.add(FindingCode::NESTING_TOO_DEEP, typeId, referenceField(type.kind),
                       type.address + type.referenceAt,
                       "The references from here lead through more than " +
                           std::to_string(m_limits.maxNesting) + " types.");
}

} // namespace TypeFile
