#include "Import/VhdlNotes.h"

#include <algorithm>
#include <set>
#include <string>

namespace Import {

namespace {

std::string textOf(const VhdlRange& range) {
    return std::to_string(range.left) + (range.isDownto ? " downto " : " to ") +
           std::to_string(range.right);
}

} // namespace

void VhdlNotes::add(const VhdlType& type, const std::string& text) {
    m_notes.add(m_types.placeOf(type), labelOf(type) + ": " + text);
}

void VhdlNotes::addOf(const VhdlType& type) {
    switch (type.kind) {
    case VhdlKind::INTEGER: ofInteger(type); break;
    case VhdlKind::REAL: ofReal(type); break;
    case VhdlKind::PHYSICAL:
        if (!isPredefined(type))
            lostRange(type, type);
        break;
    case VhdlKind::SUBTYPE: ofSubtype(type); break;
    default: break;
    }
}

void VhdlNotes::alternatives(const VhdlType& type) {
    std::set<std::uint32_t> noted;
    forEachUse(type, [&](const VhdlUse& use) {
        if (!use.alternatives.empty() && noted.insert(use.type).second)
            add(type, "the input does not say which " + std::string(m_types[use.type].name) +
                          " it uses; there are " + std::to_string(use.alternatives.size() + 1) +
                          "; the nearest is taken");
    });
}

void VhdlNotes::cutRange(const VhdlType& type, const VhdlRange& range) {
    if (std::min(range.left, range.right) < LEAST_BOUND ||
        std::max(range.left, range.right) > LARGEST_BOUND)
        add(type, "its range " + textOf(range) + " is cut to 32 bits");
}

void VhdlNotes::missingRanges(const VhdlType& type) {
    add(type, "the input does not say which of its arrays have ranges");
}

void VhdlNotes::ofInteger(const VhdlType& type) {
    if (type.range.isOpen && !isPredefined(type))
        add(type, "its range is not in the input; 32 bits are assumed");
    if (!type.range.isOpen && type.mayBeReal)
        add(type, "the input does not say whether its range " + textOf(type.range) +
                      " is one of whole numbers or of reals; whole numbers are assumed");
    cutRange(type, type.range);
}

void VhdlNotes::ofReal(const VhdlType& type) {
    if (isPredefined(type))
        return;
    if (type.realRange == nullptr)
        add(type, "its range is not in the input; all reals are assumed");
    else if (!type.realRange->isExact)
        add(type, "the input gives the bounds of its range to six digits only");
}

void VhdlNotes::lostRange(const VhdlType& type, const VhdlType& physical) {
    std::string unit;
    if (!physical.parts.empty())
        unit.append(" ").append(physical.parts.front().name);
    add(type, type.range.isOpen ? "its range is not in the input, and could not be kept"
                                : "its range " + textOf(type.range) + unit + " is not kept");
}

void VhdlNotes::ofSubtype(const VhdlType& type) {
    const VhdlType& base = m_types[type.of.type];
    if (base.kind != VhdlKind::PHYSICAL)
        cutRange(type, type.range);
    else if (!isPredefined(base) || type.name != "delay_length")
        lostRange(type, base);
    if (type.mayBePart)
        missingRanges(type);
    resolution(type, base);
}

/// Dumps show a resolved subtype of an enumeration as one with all of its literals.
void VhdlNotes::resolution(const VhdlType& type, const VhdlType& base) {
    if (base.kind == VhdlKind::ENUMERATION && type.name != "std_logic" && !type.range.isOpen &&
        type.range.left == 0 &&
        type.range.right + 1 == static_cast<std::int64_t>(base.parts.size()))
        add(type, "the input does not say whether it has a resolution function");
}

} // namespace Import
