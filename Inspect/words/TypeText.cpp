#include "Inspect/words/TypeText.h"

#include "Inspect/words/Characters.h"
#include "TypeFile/NamedValues.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace Inspect {

using namespace RTTI;

namespace {

/// The name of a value, or the value itself in digits of a base.
template <typename Enum> void writeNameOr(Text& out, Enum value, int base) {
    const char* name = TypeFile::namesOf(value).nameOf(static_cast<unsigned int>(value));
    if (name != nullptr)
        out << name;
    else
        (out << (base == 16 ? "0x" : ""))
            .digits(static_cast<std::underlying_type_t<Enum>>(value), base);
}

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isPlainInPath(char c) {
    return isLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '$' || c == ':';
}

bool isPrintable(char c) { return c >= ' ' && c <= '~'; }

void writeEscaped(Text& out, char c) {

    if (isPrintable(c))
        out << c;
    else if (c == '\n')
        out << "\\n";
    else if (c == '\t')
        out << "\\t";
    else
        writeByte(out << "\\x", c);
}

/// Bounds beyond it stand for the whole range of a double, which some compilers round.
constexpr double WHOLE_REAL = 1.797e308;

bool hasAllLiterals(const RTSeqEnumType& type, const FullConstraints& range) {
    return range.si == 0 && range.dir == TypeFileFormat::TO_DIRECTION &&
           range.ei + 1LL == static_cast<long long>(type.m_enumeratorNames.size());
}

} // namespace

void writeByte(Text& out, char byte) {
    constexpr char DIGITS[] = "0123456789ABCDEF";
    out << DIGITS[static_cast<unsigned char>(byte) >> 4] << DIGITS[byte & 0xF];
}

std::string escaped(std::string_view text) {
    return written([=](Text& out) {
        for (const char c : text)
            writeEscaped(out, c);
    });
}

void writeQuoted(Text& out, std::string_view text) {
    const auto arePlain = [](Characters some) {
        return areBetween(some, ' ', '~') & ~are('"', some) & ~are('\\', some);
    };
    out << '"';
    if (allOf(text, arePlain)) {
        out << text << '"';
        return;
    }
    for (const char c : text) {
        if (c == '"' || c == '\\')
            out << '\\';
        writeEscaped(out, c);
    }
    out << '"';
}

std::string quoted(std::string_view text) {
    return written([=](Text& out) { writeQuoted(out, text); });
}

bool isGivenName(const char* name) {
    if (name == nullptr || *name != '<')
        return name != nullptr && *name != '\0';
    const std::string_view text = name;
    return text.size() < 2 || text.back() != '>' ||
           !std::all_of(text.begin() + 1, text.end() - 1, isLetter);
}

std::string_view givenName(const char* name) {
    return isGivenName(name) ? std::string_view(name) : std::string_view();
}

void writeQuotedName(Text& out, const char* name) {
    if (name != nullptr)
        writeQuoted(out, name);
    else
        out << "(no name)";
}

std::string quotedName(const char* name) {
    return written([=](Text& out) { writeQuotedName(out, name); });
}

std::string pathName(const char* name) {
    const std::string_view text = name != nullptr ? name : "";
    return !text.empty() && std::all_of(text.begin(), text.end(), isPlainInPath) ? std::string(text)
                                                                                 : quoted(text);
}

void writeRange(Text& out, const FullConstraints& range) {
    if (range.dir == TypeFileFormat::TO_DIRECTION)
        out << range.si << " to " << range.ei;
    else if (range.dir == TypeFileFormat::DOWNTO_DIRECTION)
        out << range.si << " downto " << range.ei;
    else if (!isOpen(range))
        out << range.si << ", " << range.ei << ", direction " << range.dir;
    else if (range.si == 0 && range.ei == 0)
        out << "open";
    else
        out << "open (" << range.si << ", " << range.ei << ')';
}

std::string rangeText(const FullConstraints& range) {
    return written([&](Text& out) { writeRange(out, range); });
}

void writeEntry(Text& out, const FullConstraints& range) {
    out << '(';
    writeRange(out, range);
    out << ')';
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

void writeNamed(Text& out, ValueEncoding encoding) { writeNameOr(out, encoding, 10); }
void writeNamed(Text& out, EnumKind kind) { writeNameOr(out, kind, 10); }
void writeNamed(Text& out, ArrayKind kind) { writeNameOr(out, kind, 16); }
void writeNamed(Text& out, RecordKind kind) { writeNameOr(out, kind, 16); }

} // namespace Inspect
