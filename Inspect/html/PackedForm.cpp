#include "Inspect/html/PackedForm.h"

#include "Inspect/translate/Digits.h"
#include "Inspect/translate/EnumTable.h"
#include "Inspect/translate/PackedElement.h"
#include "Inspect/translate/ValueDecoder.h"

#include <fmt/format.h>

#include <algorithm>

namespace Inspect {

using namespace RTTI;

namespace {

/// The shortest text that `bitsOf` makes the same bits of.
std::string shortText(const std::string& bits) {
    const std::string digits = hexDigits(bits);
    const bool isBinary = digits.find('X') != std::string::npos;
    const std::string& all = isBinary ? bits : digits;
    const std::size_t first = std::min(all.find_first_not_of('0'), all.size() - 1);
    return (isBinary ? '%' : '$') + all.substr(first);
}

Json valuesOf(const EnumTable& table) {
    Json values = Json::array();
    bool arePositions = true;
    for (const EnumEntry& entry : table.entries) {
        values.push_back(shortText(entry.bits));
        arePositions = arePositions && values.back() == fmt::format("${:x}", values.size() - 1);
    }
    return arePositions ? Json() : values;
}

Json offsetsOf(const TypeTable& types, const RTRecordType& record) {
    Json offsets = Json::array();
    for (const PackedMember& member : packedMembersOf(types, record)) {
        while (offsets.size() < member.index)
            offsets.push_back(nullptr);
        offsets.push_back(member.offset);
    }
    return offsets;
}

Json elementsOf(const PackedElement& element) {
    Json ranges = Json::array();
    for (const FullConstraints& range : element.dimensions)
        ranges.push_back(Json::array({range.si, range.ei}));
    return {{"of", element.typeId}, {"ranges", std::move(ranges)}};
}

/// Of a struct, union, enumeration, vector, or an array of these.
Json packedForm(const TypeTable& types, const PackedElement& element) {
    if (!element.dimensions.empty())
        return elementsOf(element);
    Json form{{"width", element.width}};
    if (element.kind == PackedElement::Kind::ENUMERATION)
        form["values"] = valuesOf(*enumTableOf(types, *element.type));
    else if (element.kind != PackedElement::Kind::VECTOR)
        form["offsets"] = offsetsOf(types, static_cast<const RTRecordType&>(*element.type));
    return form;
}

/// Whether the values are those of a VHDL enumeration.
bool hasPositions(const TypeTable& types, const RTBaseType& type) {
    const RTBaseType* base = type.getSelf(false);
    return base != nullptr && base->GetClassId() == ClassId::SEQ_ENUM &&
           enumTableOf(types, *base).has_value();
}

} // namespace

Json packedForm(const TypeTable& types, unsigned int id, const RTBaseType& type) {
    const auto width = types.widths->of(&type);
    if (width ? *width > ValueDecoder::MOST_BITS : !hasPositions(types, type))
        return {};
    if (type.GetClassId() == ClassId::TYPEDEF)
        return {{"of", static_cast<const RTTypedefType&>(type).m_dataTypeId},
                {"ranges", Json::array()}};
    if (width)
        return packedForm(types, packedElementOf(types, id, type));
    const EnumTable table = *enumTableOf(types, type);
    return {{"width", table.width}, {"values", valuesOf(table)}};
}

} // namespace Inspect
