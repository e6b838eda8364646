#include "Inspect/diff/TypeShape.h"

#include "Inspect/json/JsonValues.h"
#include "RTTI/Ranges.h"

#include <fmt/format.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace Inspect {

using namespace RTTI;
namespace Form = TypeFile::Form;

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
    template <typename Value> std::string operator()(Value value) const {
        if constexpr (std::is_enum_v<Value>)
            return namedText(value);
        else
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
    void link(unsigned int) { ++m_shape.linkCount; }
    void part(const char* field, std::string_view name) {
        m_shape.parts.push_back({field, name, m_shape.fields.size(), m_shape.linkCount});
    }

private:
    TypeShape& m_shape;
};

/// Finds a reference by its position among those of a type, without a look at the others.
class LinkFinder {
public:
    explicit LinkFinder(unsigned int position) : m_left(position) {}

    LinkPlace place() const { return m_place; }

    template <typename Link>
    void operator()(const char*, unsigned int, const Form::TypeId<Link>& form) {
        isAmong(form.role, 1);
    }
    template <typename Link>
    void operator()(const char*, const std::vector<unsigned int>& ids,
                    const Form::Items<Form::TypeId<Link>>& form) {
        isAmong(form.item.role, ids.size());
    }
    template <typename Entry>
    void operator()(const char*, const std::vector<RTAggregateType::t_Member*>& members,
                    Form::Entries<Entry>) {
        if (isAmong(LinkRole::MEMBER, members.size()) && members[m_place.position] != nullptr)
            m_place.memberName = textOf(members[m_place.position]->m_memberName);
    }
    template <typename Value, typename FieldForm>
    void operator()(const char*, const Value&, const FieldForm&) {}

private:
    bool isAmong(LinkRole role, std::size_t count) {
        const bool isFound = !m_isFound && m_left < count;
        if (isFound)
            m_place = {role, m_left, {}};
        else if (!m_isFound)
            m_left -= static_cast<unsigned int>(count);
        m_isFound = m_isFound || isFound;
        return isFound;
    }

    unsigned int m_left;
    bool m_isFound = false;
    LinkPlace m_place{};
};

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
    FieldWalk(sink).of(type);
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
    LinkFinder finder(link);
    TypeFile::asItsClass(type, [&](const auto& object) { TypeFile::forEachField(object, finder); });
    return finder.place();
}

} // namespace Inspect
