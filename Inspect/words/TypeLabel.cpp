#include "Inspect/words/TypeLabel.h"

#include "Inspect/words/TypeKind.h"
#include "Inspect/words/TypeText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace Inspect {

using namespace RTTI;

namespace {

bool isPlainInPath(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '$' || c == ':';
}

/// Bounds beyond it stand for the whole range of a double, which some compilers round.
constexpr double WHOLE_REAL = 1.797e308;

bool hasAllLiterals(const RTSeqEnumType& type, const FullConstraints& range) {
    return range.si == 0 && range.dir == TypeFileFormat::TO_DIRECTION &&
           range.ei + 1LL == static_cast<long long>(type.m_enumeratorNames.size());
}

} // namespace

std::string labelOf(unsigned int id, const RTBaseType* type, const TextStyle& style) {
    const std::string number = style.paint(Ink::COMMENT, std::to_string(id));
    if (type == nullptr)
        return number + ' ' + style.paint(Ink::WARNING, "(no type)");
    std::string text = number + ' ' + style.paint(Ink::KEYWORD, kindOf(*type));
    if (type->m_name != nullptr && *type->m_name != '\0')
        text += ' ' + style.paint(Ink::NAME, quoted(type->m_name));
    return text;
}

std::string pathName(const char* name) {
    const std::string_view text = name != nullptr ? name : "";
    return !text.empty() && std::all_of(text.begin(), text.end(), isPlainInPath) ? std::string(text)
                                                                                 : quoted(text);
}

std::string rangeList(const std::vector<FullConstraints>& ranges) {
    std::string text;
    for (const FullConstraints& range : ranges)
        text += (text.empty() ? "" : ", ") + rangeText(range);
    return text;
}

std::string valueRangeText(const RTBaseType& type, const FullConstraints* narrowing) {
    switch (type.GetClassId()) {
    case ClassId::INT:
        return "range " + rangeText(narrowing != nullptr
                                        ? *narrowing
                                        : static_cast<const RTIntType&>(type).m_constraint);
    case ClassId::FLOAT: {
        const auto& real = static_cast<const RTFloatType&>(type);
        if (std::abs(real.m_left) > WHOLE_REAL && std::abs(real.m_right) > WHOLE_REAL)
            return "";
        const bool ascends = real.m_direction == TypeFileFormat::TO_DIRECTION;
        return fmt::format("range {} {} {}", real.m_left, ascends ? "to" : "downto", real.m_right);
    }
    case ClassId::SEQ_ENUM:
        if (narrowing == nullptr ||
            hasAllLiterals(static_cast<const RTSeqEnumType&>(type), *narrowing))
            return "";
        return "range " + rangeText(*narrowing);
    case ClassId::PHYSICAL: return narrowing != nullptr ? "range " + rangeText(*narrowing) : "";
    default: return "";
    }
}

} // namespace Inspect
