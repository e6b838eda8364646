#include "Inspect/model/PackedWidths.h"

#include "RTTI/Ranges.h"

#include <algorithm>
#include <limits>

namespace Inspect {

using namespace RTTI;

namespace {

using Width = std::optional<std::uint64_t>;

constexpr std::uint64_t MOST_BITS = std::numeric_limits<std::uint64_t>::max();

Width sum(Width a, Width b) {
    return a && b && *a <= MOST_BITS - *b ? Width(*a + *b) : std::nullopt;
}

Width product(Width a, Width b) {
    return a && b && (*b == 0 || *a <= MOST_BITS / *b) ? Width(*a * *b) : std::nullopt;
}

Width larger(Width a, Width b) { return a && b ? Width(std::max(*a, *b)) : std::nullopt; }

const RTRecordType& recordOf(const RTBaseType& type) {
    return static_cast<const RTRecordType&>(type);
}

std::size_t memberCount(const RTRecordType& record) {
    return std::min(record.m_members.size(), record.m_memberTypes.size());
}

bool isPacked(RecordKind kind) {
    return kind == VLOG_PACKED_STRUCT || kind == VLOG_PACKED_TAGGED_UNION ||
           kind == VLOG_PACKED_UNTAGGED_UNION;
}

/// The types that the width is made of. None where there is another reason for it, or for none.
std::size_t partCount(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::TYPEDEF:
    case ClassId::DISCRETE_ENUM: return 1;
    case ClassId::ARRAY:
        return static_cast<const RTArrayType&>(type).m_arrayKind == VLOG_FIXED_PACKED_ARRAY ? 1 : 0;
    case ClassId::RECORD:
        return isPacked(recordOf(type).m_recordKind) ? memberCount(recordOf(type)) : 0;
    default: return 0;
    }
}

const RTBaseType* partOf(const RTBaseType& type, std::size_t index) {
    switch (type.GetClassId()) {
    case ClassId::TYPEDEF: return static_cast<const RTTypedefType&>(type).m_dataType;
    case ClassId::DISCRETE_ENUM: return static_cast<const RTDiscreteEnumType&>(type).m_baseType;
    case ClassId::ARRAY: return static_cast<const RTArrayType&>(type).m_elementType;
    default:
        return recordOf(type).m_members[index] != nullptr ? recordOf(type).m_memberTypes[index]
                                                          : nullptr;
    }
}

/// The width of the type as far as it depends on no part of it.
Width ownWidth(const RTBaseType& type) {
    if (type.GetClassId() == ClassId::SEQ_ENUM &&
        static_cast<const RTSeqEnumType&>(type).m_enumKind == VLOG_BUILTIN_ENUM)
        return 1;
    return partCount(type) != 0 ? Width(0) : std::nullopt;
}

/// A tagged union may have members without a value: the front end's `void`, a struct of nothing.
bool isVoid(const RTBaseType& whole, const RTBaseType* member) {
    return recordOf(whole).m_recordKind == VLOG_PACKED_TAGGED_UNION && member != nullptr &&
           member->GetClassId() == ClassId::RECORD && memberCount(recordOf(*member)) == 0;
}

/// The width of a type with one part more, of the width `part`.
Width withPart(const RTBaseType& type, Width before, Width part) {
    switch (type.GetClassId()) {
    case ClassId::RECORD:
        return recordOf(type).m_recordKind == VLOG_PACKED_STRUCT ? sum(before, part)
                                                                 : larger(before, part);
    case ClassId::ARRAY: {
        const auto& array = static_cast<const RTArrayType&>(type);
        if (array.m_constraints.size() < array.m_indexTypeIds.size())
            return std::nullopt;
        for (std::size_t i = 0; i < array.m_indexTypeIds.size(); ++i)
            part = product(part, lengthOf(array.m_constraints[i]));
        return part;
    }
    default: return part;
    }
}

std::uint64_t tagBits(const RTBaseType& type) {
    if (type.GetClassId() != ClassId::RECORD ||
        recordOf(type).m_recordKind != VLOG_PACKED_TAGGED_UNION)
        return 0;
    std::uint64_t bits = 0;
    while (std::uint64_t{1} << bits < memberCount(recordOf(type)))
        ++bits;
    return bits;
}

} // namespace

Width lengthOf(const FullConstraints& dimension) {
    if (!hasBounds(dimension))
        return std::nullopt;
    const auto left = static_cast<std::int64_t>(dimension.si);
    const auto right = static_cast<std::int64_t>(dimension.ei);
    return static_cast<std::uint64_t>(std::max(left, right) - std::min(left, right)) + 1;
}

Width PackedWidths::of(const RTBaseType* type) {
    if (type == nullptr)
        return std::nullopt;
    const auto known = m_widths.find(type);
    if (known != m_widths.end())
        return known->second;
    explore(*type);
    return m_widths.at(type);
}

void PackedWidths::enter(const RTBaseType& type) {
    m_widths.emplace(&type, std::nullopt);
    m_path.push_back({&type, 0, ownWidth(type)});
}

/// Goes to the types below `first` that are not known yet, each after its parts. Where one has no
/// width, its other parts do not matter.
void PackedWidths::explore(const RTBaseType& first) {
    enter(first);
    while (!m_path.empty()) {
        Step& step = m_path.back();
        if (!step.width || step.nextPart == partCount(*step.type)) {
            m_widths[step.type] = sum(step.width, tagBits(*step.type));
            m_path.pop_back();
            continue;
        }
        const RTBaseType* part = partOf(*step.type, step.nextPart);
        if (step.type->GetClassId() == ClassId::RECORD && isVoid(*step.type, part)) {
            ++step.nextPart;
            continue;
        }
        const auto known = m_widths.find(part);
        if (part != nullptr && known == m_widths.end()) {
            enter(*part);
            continue;
        }
        step.width = withPart(*step.type, step.width,
                              known != m_widths.end() ? known->second : std::nullopt);
        ++step.nextPart;
    }
}

} // namespace Inspect
