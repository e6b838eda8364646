#include "Inspect/graph/GraphDrawing.h"

#include "Inspect/words/Counted.h"
#include "Inspect/words/TypeText.h"

#include <fmt/format.h>

namespace Inspect {

using namespace RTTI;

namespace {

// What a picture has room for.
constexpr std::size_t MAX_NAME = 60;
constexpr std::size_t MAX_RANGES = 3;
constexpr std::size_t MAX_LABELS = 4;

std::string rangesText(const std::vector<FullConstraints>& ranges) {
    std::string text;
    for (std::size_t i = 0; i < ranges.size() && i < MAX_RANGES; ++i)
        text += (i == 0 ? "" : ", ") + rangeText(ranges[i]);
    if (ranges.size() > MAX_RANGES)
        text += fmt::format(", +{} more", ranges.size() - MAX_RANGES);
    return text;
}

std::string shortened(std::string_view whole) {
    const std::string text = escaped(whole.substr(0, MAX_NAME + 1));
    return text.size() <= MAX_NAME ? text : text.substr(0, MAX_NAME - 3) + "...";
}

/// Whether pictures say the field of a role's references. Of the others, their lines tell.
bool hasLabel(LinkRole role) {
    return role == LinkRole::INDEX || role == LinkRole::BASE_TYPE || role == LinkRole::DESIGNATED ||
           role == LinkRole::FILE_ELEMENT;
}

} // namespace

std::string pictureName(const GraphNode& node) {
    return isGivenName(node.type->m_name) ? shortened(node.type->m_name) : "";
}

std::string pictureDetail(const GraphNode& node) {
    if (!node.shape.empty())
        return shortened(node.shape);
    const RTBaseType& type = *node.type;
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM: {
        const auto& enumeration = static_cast<const RTSeqEnumType&>(type);
        return counted(enumeration.m_enumeratorNames.size(), "literal") + ", " +
               namedText(enumeration.m_valueEncoding);
    }
    case ClassId::DISCRETE_ENUM:
        return counted(static_cast<const RTDiscreteEnumType&>(type).m_enumerators.size(),
                       "literal");
    case ClassId::INT: return rangeText(static_cast<const RTIntType&>(type).m_constraint);
    case ClassId::PHYSICAL:
        return counted(static_cast<const RTPhysicalType&>(type).m_units.size(), "unit");
    case ClassId::TYPEDEF: return rangesText(static_cast<const RTTypedefType&>(type).m_constraints);
    case ClassId::ARRAY: return rangesText(static_cast<const RTArrayType&>(type).m_constraints);
    case ClassId::RECORD:
    case ClassId::CLASS:
        return counted(static_cast<const RTAggregateType&>(type).m_members.size(), "member");
    default: return "";
    }
}

std::vector<std::string> pictureLabels(const GraphEdge& edge) {
    std::vector<std::string> labels;
    if (edge.role != LinkRole::MEMBER) {
        if (hasLabel(edge.role))
            labels.push_back(TypeFile::fieldWords(fieldOf(edge.role, edge.fromClass)));
        return labels;
    }
    // A name takes no more room than the words that it would be counted in.
    const bool areAll = edge.members.size() <= MAX_LABELS + 1;
    const std::size_t shown = areAll ? edge.members.size() : MAX_LABELS;
    for (std::size_t i = 0; i < shown; ++i)
        labels.push_back(shortened(edge.members[i]));
    if (!areAll)
        labels.push_back(fmt::format("+{} more", edge.members.size() - shown));
    return labels;
}

} // namespace Inspect
