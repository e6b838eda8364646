#include "Inspect/diff/TypeShape.h"

#include "Inspect/json/JsonValues.h"

#include <fmt/format.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace Inspect {

using namespace RTTI;

namespace {

using Ranges = std::vector<FullConstraints>;

struct SameValue {
    bool operator()(Bits a, Bits b) const { return a.bits == b.bits; }
    bool operator()(SVTypeId a, SVTypeId b) const { return std::min(a.id, 0) == std::min(b.id, 0); }
    bool operator()(RawValue a, RawValue b) const { return a.bytes == b.bytes; }
    bool operator()(const FullConstraints& a, const FullConstraints& b) const {
        return isSame(a, b);
    }
    bool operator()(const Ranges* a, const Ranges* b) const {
        return std::equal(a->begin(), a->end(), b->begin(), b->end(), SameValue());
    }
    bool operator()(double a, double b) const {
        return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
    }
    template <typename Value> bool operator()(const Value& a, const Value& b) const {
        static_assert(std::is_integral_v<Value> || std::is_enum_v<Value>);
        return a == b;
    }
    template <typename A, typename B> bool operator()(const A&, const B&) const { return false; }
};

std::string rangesText(const Ranges& ranges, RangeLists lists) {
    if (ranges.empty())
        return "no range";
    return ranges.size() == 1 ? rangeText(ranges[0]) : runsText(ranges, lists);
}

std::string realText(double value) {
    return std::isnan(value) ? fmt::format("nan {:016x}", std::bit_cast<std::uint64_t>(value))
                             : fmt::format("{}", value);
}

struct Words {
    RangeLists lists;

    std::string operator()(Bits value) const { return fmt::format("{:#x}", value.bits); }
    std::string operator()(SVTypeId value) const {
        if (value.id == TypeFileFormat::NO_SV_TYPE_ID)
            return "none";
        return value.id < 0 ? fmt::format("{}", value.id) : "assigned";
    }
    std::string operator()(RawValue value) const { return hexOf(value.bytes); }
    std::string operator()(const FullConstraints& value) const { return rangeText(value); }
    std::string operator()(const Ranges* value) const { return rangesText(*value, lists); }
    std::string operator()(double value) const { return realText(value); }
    std::string operator()(ValueEncoding value) const { return encodingText(value); }
    std::string operator()(EnumKind value) const { return enumKindText(value); }
    std::string operator()(ArrayKind value) const { return arrayKindText(value); }
    std::string operator()(RecordKind value) const { return recordKindText(value); }
    template <typename Number> std::string operator()(Number value) const {
        return fmt::format("{}", value);
    }
};

/// Makes lists of what the fields are.
class ShapeSink {
public:
    explicit ShapeSink(TypeShape& shape) : m_shape(shape) {}

    void value(const char* field, const Ranges& ranges) {
        m_shape.fields.push_back({field, &ranges});
    }
    template <typename Value> void value(const char* field, const Value& value) {
        m_shape.fields.push_back({field, value});
    }
    void link(LinkRole, unsigned int, unsigned int) { ++m_shape.linkCount; }
    void part(const char* field, std::string_view name) {
        m_shape.parts.push_back({field, name, m_shape.fields.size(), m_shape.linkCount});
    }

private:
    TypeShape& m_shape;
};

LinkPlace memberPlace(const RTAggregateType& type, unsigned int position) {
    const RTAggregateType::t_Member* member = type.m_members[position];
    return {LinkRole::MEMBER, position,
            member != nullptr ? textOf(member->m_memberName) : std::string_view()};
}

} // namespace

std::string fieldText(const FieldValue& value, RangeLists lists) {
    return std::visit(Words{lists}, value);
}

std::pair<std::string, std::string> differentTexts(const FieldValue& a, const FieldValue& b,
                                                   RangeLists lists) {
    std::pair<std::string, std::string> texts{fieldText(a, lists), fieldText(b, lists)};
    const auto* const rangesA = std::get_if<const Ranges*>(&a);
    const auto* const rangesB = std::get_if<const Ranges*>(&b);
    if (texts.first != texts.second || rangesA == nullptr || rangesB == nullptr)
        return texts;
    const auto [fromA, fromB] = std::mismatch((*rangesA)->begin(), (*rangesA)->end(),
                                              (*rangesB)->begin(), (*rangesB)->end(), SameValue());
    const std::string place = fmt::format("from [{}] on: ", fromA - (*rangesA)->begin());
    return {place + rangesText({fromA, (*rangesA)->end()}, lists),
            place + rangesText({fromB, (*rangesB)->end()}, lists)};
}

bool isSameValue(const FieldValue& a, const FieldValue& b) { return std::visit(SameValue(), a, b); }

TypeShape::TypeShape(const RTBaseType& type) {
    ShapeSink sink(*this);
    visitFields(type, sink);
}

std::vector<std::string_view> TypeShape::partNames() const {
    std::vector<std::string_view> names;
    names.reserve(parts.size());
    for (const Part& part : parts)
        names.push_back(part.name);
    return names;
}

std::size_t TypeShape::fieldsEnd(std::size_t part) const {
    return part + 1 < parts.size() ? parts[part + 1].fieldsBegin : fields.size();
}

unsigned int TypeShape::linksEnd(std::size_t part) const {
    return part + 1 < parts.size() ? parts[part + 1].linksBegin : linkCount;
}

LinkPlace placeOf(const RTBaseType& type, unsigned int link) {
    switch (type.GetClassId()) {
    case ClassId::DISCRETE_ENUM: return {LinkRole::BASE_TYPE, 0, {}};
    case ClassId::TYPEDEF: return {LinkRole::ALIASED, 0, {}};
    case ClassId::ACCESS: return {LinkRole::DESIGNATED, 0, {}};
    case ClassId::FILE_TYPE: return {LinkRole::FILE_ELEMENT, 0, {}};
    case ClassId::RECORD: return memberPlace(static_cast<const RTRecordType&>(type), link);
    case ClassId::CLASS:
        if (link == 0)
            return {LinkRole::BASE_CLASS, 0, {}};
        return memberPlace(static_cast<const RTClassType&>(type), link - 1);
    default:
        if (link == 0)
            return {LinkRole::ELEMENT, 0, {}};
        return {LinkRole::INDEX, link - 1, {}};
    }
}

} // namespace Inspect
