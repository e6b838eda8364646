#include "Inspect/declarations/Identifiers.h"

#include "Inspect/declarations/ReservedWords.h"
#include "Inspect/words/Characters.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>

namespace Inspect {

namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isPrintable(char c) { return c >= ' ' && c <= '~'; }

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string lowerCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

/// Letters, digits, and underlines that stand by themselves between them.
bool isBasicVhdl(std::string_view name) {
    const auto areWord = [](Characters some) {
        return areLettersOrDigits(some) | (are('_', some) & ~areTwice('_', some));
    };
    return isLetter(name.front()) && name.back() != '_' && allOf(name, areWord, 1) &&
           !isReservedWord(SourceLanguage::VHDL, name);
}

/// Backslashes around printable text in which each backslash is doubled.
bool isExtendedVhdl(std::string_view name) {
    if (name.size() < 3 || name.front() != '\\' || name.back() != '\\')
        return false;
    const std::string_view inner = name.substr(1, name.size() - 2);
    for (std::size_t i = 0; i < inner.size(); ++i) {
        if (!isPrintable(inner[i]))
            return false;
        if (inner[i] == '\\' && (++i == inner.size() || inner[i] != '\\'))
            return false;
    }
    return true;
}

bool isSimpleSystemVerilog(std::string_view name) {
    const auto areWord = [](Characters some) {
        return areLettersOrDigits(some) | are('_', some) | are('$', some);
    };
    return (isLetter(name.front()) || name.front() == '_') && allOf(name, areWord) &&
           !isReservedWord(SourceLanguage::SYSTEM_VERILOG, name);
}

/// The name between a backslash and `end`. A character that is not plain is there as `escape`, `x`
/// and its digits, but a backslash as two.
template <typename Judge>
Identifier escapedIdentifier(std::string_view name, Judge arePlain, std::string_view escape,
                             char end) {
    std::string text;
    text.reserve(name.size() + 2);
    text += '\\';
    if (allOf(name, arePlain)) {
        text += name;
    } else {
        for (const char& c : name) {
            if (allOf({&c, 1}, arePlain))
                text += c;
            else if (c == '\\')
                text += "\\\\";
            else
                text += fmt::format("{}x{:02X}", escape, static_cast<unsigned char>(c));
        }
    }
    text += end;
    return Identifier(std::move(text));
}

Identifier vhdlIdentifier(std::string_view name) {
    if (isBasicVhdl(name) || isExtendedVhdl(name))
        return Identifier(name);
    const auto arePlain = [](Characters some) {
        return areBetween(some, ' ', '~') & ~are('\\', some);
    };
    return escapedIdentifier(name, arePlain, "\\\\", '\\');
}

Identifier systemVerilogIdentifier(std::string_view name) {
    if (isSimpleSystemVerilog(name))
        return Identifier(name);
    const auto arePlain = [](Characters some) { return areBetween(some, '!', '~'); };
    return escapedIdentifier(name, arePlain, "\\", ' ');
}

} // namespace

Identifier identifierOf(SourceLanguage language, std::string_view name) {
    return language == SourceLanguage::VHDL ? vhdlIdentifier(name) : systemVerilogIdentifier(name);
}

std::string identityOf(SourceLanguage language, std::string_view identifier) {
    const bool isEscaped = identifier.front() == '\\';
    if (language == SourceLanguage::VHDL)
        return isEscaped || identifier.front() == '\'' ? std::string(identifier)
                                                       : lowerCase(identifier);
    return std::string(isEscaped ? identifier.substr(1, identifier.size() - 2) : identifier);
}

std::uint64_t identityHash(SourceLanguage language, std::string_view identifier) {
    constexpr std::uint64_t SPREAD = 0x9E3779B97F4A7C15;
    constexpr std::ptrdiff_t STEP = sizeof(std::uint64_t);
    const bool isEscaped = identifier.front() == '\\';
    const bool isAnyCase =
        language == SourceLanguage::VHDL && !isEscaped && identifier.front() != '\'';
    if (isEscaped && language == SourceLanguage::SYSTEM_VERILOG)
        identifier = identifier.substr(1, identifier.size() - 2);
    // Of the characters of a basic identifier, only letters of either case differ in this bit
    // alone.
    const std::uint64_t anyCase = isAnyCase ? 0x2020202020202020 : 0;
    std::uint64_t hash = identifier.size() * SPREAD;
    const auto add = [&](const char* bytes, std::size_t count) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes, count);
        hash = (hash ^ (word | anyCase)) * SPREAD;
        hash ^= hash >> 32;
    };
    const char* const end = identifier.data() + identifier.size();
    if (end - identifier.data() < STEP) {
        add(identifier.data(), identifier.size());
        return hash;
    }
    for (const char* at = identifier.data(); end - at > STEP; at += STEP)
        add(at, STEP);
    add(end - STEP, STEP);
    return hash;
}

std::string suffixed(SourceLanguage language, std::string_view name, std::string_view suffix) {
    std::string text(name);
    const bool isQuoted = language == SourceLanguage::VHDL && isExtendedVhdl(name);
    return text.insert(text.size() - (isQuoted ? 1 : 0), suffix);
}

bool isCharacterLiteral(std::string_view name) {
    return name.size() == 3 && name.front() == '\'' && name.back() == '\'' && isPrintable(name[1]);
}

} // namespace Inspect
