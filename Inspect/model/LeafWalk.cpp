#include "Inspect/model/LeafWalk.h"

#include "RTTI/AggregateClasses.h"

namespace Inspect {

using namespace RTTI;

namespace {

/// Adds those of the part itself, which has a type. False if what is below counts by itself.
bool addDimensionsOf(const Part& part, std::vector<Dimension>& dimensions) {
    const auto addWord = [&](Dimension::Kind kind) {
        dimensions.push_back({kind, {}});
        return false;
    };
    switch (part.type->GetClassId()) {
    case ClassId::DYNAMIC_ARRAY: return addWord(Dimension::Kind::DYNAMIC);
    case ClassId::QUEUE: return addWord(Dimension::Kind::QUEUE);
    case ClassId::ASSOC_ARRAY: return addWord(Dimension::Kind::ASSOCIATIVE);
    default: break;
    }
    for (const FullConstraints& range : part.ranges)
        dimensions.push_back({Dimension::Kind::RANGE, range});
    return true;
}

/// Whether the parts that come below are the members of a struct or a class.
bool hasMembers(const Part& part) {
    return part.hasParts && part.type != nullptr && isAggregate(part.type->GetClassId());
}

bool hasName(const RTBaseType* type) { return type != nullptr && isGivenName(type->m_name); }

} // namespace

/// As runs of dimensions have them.
/// @{
bool isSame(const Dimension& a, const Dimension& b) {
    return a.kind == b.kind && isSame(a.range, b.range);
}

void writeEntry(Text& out, const Dimension& dimension) {
    if (dimension.kind == Dimension::Kind::RANGE)
        writeEntry(out, dimension.range);
    else
        out << dimensionText(dimension);
}
/// @}

std::string dimensionText(const Dimension& dimension) {
    switch (dimension.kind) {
    case Dimension::Kind::DYNAMIC: return "dynamic";
    case Dimension::Kind::QUEUE: return "queue";
    case Dimension::Kind::ASSOCIATIVE: return "associative";
    default: return rangeText(dimension.range);
    }
}

std::string dimensionsText(const std::vector<Dimension>& dimensions, RangeLists lists) {
    if (lists == RangeLists::SHORT && dimensions.size() > MOST_RUNS_IN_LINE)
        return runsText(dimensions);
    std::string text;
    for (const Dimension& dimension : dimensions)
        text += (text.empty() ? "" : ", ") + dimensionText(dimension);
    return text;
}

std::vector<Dimension> dimensionsOf(unsigned int id, const RTBaseType* type) {
    std::vector<Dimension> dimensions;
    PartWalk walk(id, type);
    while (walk.next()) {
        const Part& part = walk.part();
        if (part.type != nullptr)
            addDimensionsOf(part, dimensions);
        if (!part.hasParts || hasMembers(part))
            break;
    }
    return dimensions;
}

bool LeafWalk::next() {
    while (m_walk.next()) {
        meet(m_walk.part());
        if (!m_walk.part().hasParts)
            return true;
    }
    return false;
}

const RTBaseType* LeafWalk::encoded() const {
    const RTBaseType* last = m_walk.part().type;
    return last != nullptr && !isAggregate(last->GetClassId()) ? m_encoded : nullptr;
}

void LeafWalk::meet(const Part& part) {
    m_pathLengths.resize(part.depth);
    m_path.resize(part.depth != 0 ? m_pathLengths.back() : 0);
    if (part.depth == 0 || part.role == LinkRole::MEMBER || part.role == LinkRole::BASE_CLASS)
        beginMember(part);
    m_places.meet(part);
    if (!m_bits)
        m_bits = m_places.place();
    if (m_encoded == nullptr)
        m_encoded = part.type;
    if (part.type != nullptr)
        addDimensions(part);
    if (hasMembers(part))
        addDimensionsToPath();
    m_pathLengths.push_back(m_path.size());
}

void LeafWalk::beginMember(const Part& part) {
    m_declaredId = part.typeId;
    m_dimensions.clear();
    m_encoded = nullptr;
    m_enumeration = nullptr;
    m_bits.reset();
    if (part.depth == 0)
        m_path = hasName(part.type) ? pathName(part.type->m_name) : std::to_string(part.typeId);
    else if (part.role == LinkRole::MEMBER)
        m_path += '.' + pathName(part.member != nullptr ? part.member->m_memberName : nullptr);
}

void LeafWalk::addDimensions(const Part& part) {
    if (!addDimensionsOf(part, m_dimensions))
        m_encoded = nullptr;
    if (part.type->GetClassId() == ClassId::DISCRETE_ENUM && m_enumeration == nullptr) {
        m_enumeration = part.type;
        m_enumerationId = part.typeId;
    }
}

void LeafWalk::addDimensionsToPath() {
    if (m_dimensions.empty())
        return;
    m_path += '[' + dimensionsText(m_dimensions, m_lists) + ']';
}

} // namespace Inspect
