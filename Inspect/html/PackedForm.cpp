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

void writeValues(JsonText& text, const EnumTable& table) {
    std::vector<std::string> values;
    bool arePositions = true;
    for (const EnumEntry& entry : table.entries) {
        arePositions = arePositions && shortText(entry.bits) == fmt::format("${:x}", values.size());
        values.push_back(shortText(entry.bits));
    }
    text.key("values");
    if (arePositions)
        text.value(nullptr);
    else
        text.value(values);
}

void writeOffsets(JsonText& text, const TypeTable& types, const RTRecordType& record) {
    text.key("offsets");
    text.openList();
    std::size_t count = 0;
    for (const PackedMember& member : packedMembersOf(types, record)) {
        for (; count < member.index; ++count)
            text.value(nullptr);
        text.value(member.offset);
        ++count;
    }
    text.closeList();
}

void writeElements(JsonText& text, unsigned int typeId,
                   const std::vector<FullConstraints>& dimensions) {
    text.member("of", typeId);
    text.key("ranges");
    text.openList();
    for (const FullConstraints& range : dimensions)
        text.value(std::vector{range.si, range.ei});
    text.closeList();
}

/// Of a struct, union, enumeration, vector, or an array of these.
void writeElement(JsonText& text, const TypeTable& types, const PackedElement& element) {
    if (!element.dimensions.empty()) {
        writeElements(text, element.typeId, element.dimensions);
        return;
    }
    text.member("width", element.width);
    if (element.kind == PackedElement::Kind::ENUMERATION)
        writeValues(text, *enumTableOf(types, *element.type));
    else if (element.kind != PackedElement::Kind::VECTOR)
        writeOffsets(text, types, static_cast<const RTRecordType&>(*element.type));
}

/// Whether the values are those of a VHDL enumeration.
bool hasPositions(const TypeTable& types, const RTBaseType& type) {
    const RTBaseType* base = type.getSelf(false);
    return base != nullptr && base->GetClassId() == ClassId::SEQ_ENUM &&
           enumTableOf(types, *base).has_value();
}

} // namespace

bool hasPackedForm(const TypeTable& types, const RTBaseType& type) {
    const auto width = types.widths->of(&type);
    return width ? *width <= ValueDecoder::MOST_BITS : hasPositions(types, type);
}

void writePackedForm(JsonText& text, const TypeTable& types, unsigned int id,
                     const RTBaseType& type) {
    text.openObject();
    if (type.GetClassId() == ClassId::TYPEDEF) {
        writeElements(text, static_cast<const RTTypedefType&>(type).m_dataTypeId, {});
    } else if (types.widths->of(&type)) {
        writeElement(text, types, packedElementOf(types, id, type));
    } else {
        const EnumTable table = *enumTableOf(types, type);
        text.member("width", table.width);
        writeValues(text, table);
    }
    text.closeObject();
}

} // namespace Inspect
