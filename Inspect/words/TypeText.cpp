#include "Inspect/words/TypeText.h"

#include "TypeFile/NamedValues.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace Inspect {

using namespace RTTI;

namespace {

/// The name of a value, or the value itself in the given format.
template <typename Enum> std::string nameOr(Enum value, const char* format) {
    const char* name = TypeFile::namesOf(value).nameOf(static_cast<unsigned int>(value));
    if (name != nullptr)
        return name;
    return fmt::format(fmt::runtime(format), static_cast<std::underlying_type_t<Enum>>(value));
}

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isPlainInPath(char c) {
    return isLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '$' || c == ':';
}

void appendEscaped(std::string& text, char c) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte < 0x7F)
        text += c;
    else if (c == '\n')
        text += "\\n";
    else if (c == '\t')
        text += "\\t";
    else
        text += fmt::format("\\x{:02X}", byte);
}

/// Bounds beyond it stand for the whole range of a double, which some compilers round.
constexpr double WHOLE_REAL = 1.797e308;

bool hasAllLiterals(const RTSeqEnumType& type, const FullConstraints& range) {
    return range.si == 0 && range.dir == TypeFileFormat::TO_DIRECTION &&
           range.ei + 1LL == static_cast<long long>(type.m_enumeratorNames.size());
}

} // namespace

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text)
        appendEscaped(result, c);
    return result;
}

std::string quoted(std::string_view text) {
    std::string result;
    result.reserve(text.size() + 2);
    result += '"';
    for (const char c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        appendEscaped(result, c);
    }
    result += '"';
    return result;
}

bool isGivenName(const char* name) {
    const std::string_view text = name != nullptr ? name : "";
    if (text.size() < 2 || text.front() != '<' || text.back() != '>')
        return !text.empty();
    return !std::all_of(text.begin() + 1, text.end() - 1, isLetter);
}

std::string quotedName(const char* name) { return name != nullptr ? quoted(name) : "(no name)"; }

std::string pathName(const char* name) {
    const std::string_view text = name != nullptr ? name : "";
    return !text.empty() && std::all_of(text.begin(), text.end(), isPlainInPath) ? std::string(text)
                                                                                 : quoted(text);
}

std::string rangeText(const FullConstraints& range) {
    if (range.dir == TypeFileFormat::TO_DIRECTION)
        return fmt::format("{} to {}", range.si, range.ei);
    if (range.dir == TypeFileFormat::DOWNTO_DIRECTION)
        return fmt::format("{} downto {}", range.si, range.ei);
    if (!isOpen(range))
        return fmt::format("{}, {}, direction {}", range.si, range.ei, range.dir);
    if (range.si == 0 && range.ei == 0)
        return "open";
    return fmt::format("open ({}, {})", range.si, range.ei);
}

std::string entryText(const FullConstraints& range) { return '(' + rangeText(range) + ')'; }

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

std::string namedText(ValueEncoding encoding) { return nameOr(encoding, "{}"); }
std::string namedText(EnumKind kind) { return nameOr(kind, "{}"); }
std::string namedText(ArrayKind kind) { return nameOr(kind, "{:#x}"); }
std::string namedText(RecordKind kind) { return nameOr(kind, "{:#x}"); }

} // namespace Inspect
