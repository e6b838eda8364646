#include "Inspect/declarations/Identifiers.h"

#include "Inspect/declarations/ReservedWords.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace Inspect {

namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// Letters, digits and underlines.
constexpr auto wordCharacters = [] {
    std::array<bool, 256> isOne{};
    for (std::size_t c = 'a'; c <= 'z'; ++c)
        isOne[c] = isOne[c - 'a' + 'A'] = true;
    for (std::size_t c = '0'; c <= '9'; ++c)
        isOne[c] = true;
    isOne['_'] = true;
    return isOne;
}();

/// The same and '$'.
constexpr auto systemVerilogCharacters = [] {
    std::array<bool, 256> isOne = wordCharacters;
    isOne['$'] = true;
    return isOne;
}();

bool hasOnly(const std::array<bool, 256>& characters, std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [&](char c) { return characters[static_cast<unsigned char>(c)]; });
}

bool isGraphic(char c) { return c > ' ' && c <= '~'; }
bool isPrintable(char c) { return c >= ' ' && c <= '~'; }

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string lowerCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

/// Letters, digits, and underlines that stand by themselves between them.
bool isBasicVhdl(std::string_view name) {
    if (!isLetter(name.front()) || name.back() == '_' || !hasOnly(wordCharacters, name) ||
        name.find("__") != std::string_view::npos)
        return false;
    return name.size() > LONGEST_RESERVED_WORD ||
           !isReservedWord(SourceLanguage::VHDL, lowerCase(name));
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
    return (isLetter(name.front()) || name.front() == '_') &&
           hasOnly(systemVerilogCharacters, name) &&
           (name.size() > LONGEST_RESERVED_WORD ||
            !isReservedWord(SourceLanguage::SYSTEM_VERILOG, name));
}

std::string vhdlIdentifier(std::string_view name) {
    if (isBasicVhdl(name) || isExtendedVhdl(name))
        return std::string(name);
    std::string text = "\\";
    for (const char c : name) {
        if (c == '\\')
            text += "\\\\";
        else if (isPrintable(c))
            text += c;
        else
            text += fmt::format("\\\\x{:02X}", static_cast<unsigned char>(c));
    }
    return text + '\\';
}

std::string systemVerilogIdentifier(std::string_view name) {
    if (isSimpleSystemVerilog(name))
        return std::string(name);
    std::string text = "\\";
    for (const char c : name) {
        if (isGraphic(c))
            text += c;
        else
            text += fmt::format("\\x{:02X}", static_cast<unsigned char>(c));
    }
    return text + ' ';
}

} // namespace

std::string identifierOf(SourceLanguage language, std::string_view name) {
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
    // FNV-1a, over the same characters as `identityOf` has.
    constexpr std::uint64_t PRIME = 0x100000001B3;
    std::uint64_t hash = 0xCBF29CE484222325;
    const bool isEscaped = identifier.front() == '\\';
    const bool isAnyCase =
        language == SourceLanguage::VHDL && !isEscaped && identifier.front() != '\'';
    if (isEscaped && language == SourceLanguage::SYSTEM_VERILOG)
        identifier = identifier.substr(1, identifier.size() - 2);
    for (const char c : identifier)
        hash = (hash ^ static_cast<unsigned char>(isAnyCase ? lower(c) : c)) * PRIME;
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
