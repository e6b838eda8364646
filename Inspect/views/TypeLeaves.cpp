#include "Inspect/views/TypeLeaves.h"

#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/json/JsonLines.h"
#include "Inspect/json/PartJson.h"
#include "Inspect/model/LeafWalk.h"
#include "Inspect/words/TypeText.h"

#include <fmt/format.h>

#include <string>

namespace Inspect {

using namespace RTTI;

namespace {

constexpr std::size_t PATH_WIDTH = 40;
constexpr std::size_t TYPE_WIDTH = 24;
constexpr std::size_t ENCODING_WIDTH = 13; ///< Of the longest name.
constexpr std::size_t BITS_WIDTH = 7;      ///< Of three digits a bound.

std::string typeText(const TypeTable& types, const LeafWalk& leaf) {
    const RTBaseType* type = leaf.type();
    if (type == nullptr)
        return "(no type)";
    std::string text =
        isGivenName(type->m_name) ? pathName(type->m_name) : shapeOf(types, leaf.typeId(), *type);
    return leaf.isSeenAbove() ? text + " (seen above)" : text;
}

std::string encodingOf(const LeafWalk& leaf, const TypeTable& types) {
    const RTBaseType* encoded = leaf.encoded();
    return encoded != nullptr ? namedText(types.encodings->of(*encoded)) : "-";
}

/// "13:12", and "13:12 (4 every 20)" where structs of an array have it 20 bits apart.
std::string bitsOf(const LeafWalk& leaf, RangeLists lists) {
    if (!leaf.bits())
        return "-";
    const BitPlace& bits = *leaf.bits();
    std::string text = bits.width == 1
                           ? fmt::format("{}", bits.offset)
                           : fmt::format("{}:{}", bits.offset + (bits.width - 1), bits.offset);
    return bits.strides.empty() ? text : text + " (" + runsText(bits.strides, lists) + ')';
}

std::string rangesOf(const LeafWalk& leaf, RangeLists lists) {
    std::string text = dimensionsText(leaf.dimensions(), lists);
    const std::string range =
        leaf.type() != nullptr ? valueRangeText(*leaf.type(), leaf.narrowing()) : "";
    if (!range.empty())
        text += (text.empty() ? "" : ", ") + range;
    return text.empty() ? "-" : text;
}

/// The text in a colour, and two spaces behind the width of its column.
std::string column(const TextStyle& style, Ink ink, std::string_view text, std::size_t width) {
    const std::size_t spaces = text.size() < width ? width - text.size() : 0;
    return style.paint(ink, text) + std::string(spaces + 2, ' ');
}

void writeDimensions(JsonText& text, const std::vector<Dimension>& dimensions) {
    text.openList();
    for (const Dimension& dimension : dimensions) {
        if (dimension.kind == Dimension::Kind::RANGE)
            text.value(dimension.range);
        else
            text.value(dimensionText(dimension));
    }
    text.closeList();
}

void writeBits(JsonText& text, const BitPlace& bits) {
    text.openObject();
    text.member("offset", bits.offset);
    text.member("width", bits.width);
    text.key("strides");
    text.openList();
    for (const BitStride& stride : bits.strides) {
        text.openObject();
        text.member("count", stride.count);
        text.member("bits", stride.bits);
        text.closeObject();
    }
    text.closeList();
    text.closeObject();
}

void leafMembers(JsonText& text, const LeafWalk& leaf, const TypeTable& types) {
    text.member("path", leaf.path());
    typeMembers(text, leaf.typeId(), leaf.type());
    text.key("declaredType");
    if (leaf.declaredTypeId() != TypeFileFormat::NO_TYPE_ID)
        text.value(leaf.declaredTypeId());
    else
        text.value(nullptr);
    text.key("encoding");
    if (leaf.encoded() != nullptr)
        text.value(encodingOf(leaf, types));
    else
        text.value(nullptr);
    text.key("dimensions");
    writeDimensions(text, leaf.dimensions());
    text.key("bits");
    if (leaf.bits())
        writeBits(text, *leaf.bits());
    else
        text.value(nullptr);
    if (leaf.narrowing() != nullptr)
        text.member("valueRange", *leaf.narrowing());
    if (leaf.isSeenAbove())
        text.member("seenAbove", true);
}

} // namespace

bool writeLeaves(std::ostream& out, const TypeTable& types, const LeavesRequest& request,
                 const TextStyle& style) {
    LeafWalk leaf(request.id, types.typeOf(request.id), *types.widths, request.limit,
                  request.lists);
    while (out && leaf.next())
        out << column(style, Ink::NAME, leaf.path(), PATH_WIDTH)
            << column(style, Ink::KEYWORD, typeText(types, leaf), TYPE_WIDTH)
            << column(style, Ink::COMMENT, encodingOf(leaf, types), ENCODING_WIDTH)
            << column(style, Ink::NUMBER, bitsOf(leaf, request.lists), BITS_WIDTH)
            << style.paint(Ink::NUMBER, rangesOf(leaf, request.lists)) << '\n';
    if (leaf.isCut())
        out << style.paint(Ink::COMMENT, "... and more") << '\n';
    return !leaf.isCut();
}

bool writeLeavesJson(std::ostream& out, const TypeTable& types, const LeavesRequest& request,
                     JsonForm form) {
    LeafWalk leaf(request.id, types.typeOf(request.id), *types.widths, request.limit);
    JsonLines lines(out, form, "HDL simulator type leaves", "leaves",
                    [&](JsonText& head) { head.member("id", request.id); });
    while (out && leaf.next()) {
        leafMembers(lines.begin(), leaf, types);
        lines.put();
    }
    lines.end();
    return !leaf.isCut();
}

} // namespace Inspect
