#include "Inspect/json/JsonText.h"

#include "Inspect/json/JsonValues.h"
#include "Inspect/json/Utf8.h"
#include "TypeFile/TypeFields.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>

namespace Inspect {

namespace {

/// Characters with an escape of their own, and the letters of these.
constexpr std::string_view SHORT_ESCAPED = "\b\t\n\f\r\"\\";
constexpr std::string_view SHORT_ESCAPES = "btnfr\"\\";

std::size_t plainSizeOf(std::string_view text) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isPlainInString) -
                                    text.begin());
}

/// The four digits behind "\u".
std::array<char, 6> unicodeEscape(unsigned int unit) {
    std::array<char, 6> text{'\\', 'u'};
    for (std::size_t i = 0; i < 4; ++i)
        text[2 + i] = HEX_DIGITS[unit >> (12 - 4 * i) & 0xF];
    return text;
}

} // namespace

void JsonText::writeTo(std::ostream& out) {
    out.write(view().data(), static_cast<std::streamsize>(view().size()));
    m_written = last();
    m_text.truncate(0);
}

void JsonText::value(std::string_view text) { value(text, plainSizeOf(text)); }

void JsonText::name(std::string_view name) {
    const std::size_t plainSize = plainSizeOf(name);
    if (isUtf8(name.substr(plainSize))) {
        value(name, plainSize);
        return;
    }
    openObject();
    member(JsonKey::HEX, hexOf(name));
    closeObject();
}

void JsonText::value(const double& value) {
    if (!std::isfinite(value))
        this->value(notFiniteText(value));
    else
        word(nlohmann::json(value).dump()); // A number takes no memory to destroy.
}

void JsonText::value(const RTTI::FullConstraints& range) {
    openObject();
    TypeFile::forEachField(
        range, [&](const char* name, int bound, TypeFile::Form::Number) { member(name, bound); });
    closeObject();
}

void JsonText::string(std::string_view piece) { string(piece, plainSizeOf(piece)); }

void JsonText::value(std::string_view text, std::size_t plainSize) {
    openString();
    string(text, plainSize);
    closeString();
}

/// Text that begins with so many characters that stand for themselves.
void JsonText::string(std::string_view text, std::size_t plainSize) {
    for (;;) {
        m_text << text.substr(0, plainSize);
        text.remove_prefix(plainSize);
        if (text.empty())
            return;
        text.remove_prefix(escape(text));
        plainSize = plainSizeOf(text);
    }
}

/// Appends the character at the front of `text`, escaped. Returns its size.
std::size_t JsonText::escape(std::string_view text) {
    const std::size_t isShort = SHORT_ESCAPED.find(text.front());
    if (isShort != std::string_view::npos) {
        m_text << '\\' << SHORT_ESCAPES[isShort];
        return 1;
    }
    constexpr unsigned int LAST_UNIT = 0xFFFF;
    const auto unit = [&](unsigned int number) {
        const auto escape = unicodeEscape(number);
        m_text << std::string_view(escape.data(), escape.size());
    };
    const Utf8Character character = firstCharacter(text);
    if (character.code > LAST_UNIT) { // As two units.
        unit(0xD800 + ((character.code - LAST_UNIT - 1) >> 10));
        unit(0xDC00 + (character.code & 0x3FF));
    } else {
        unit(character.code);
    }
    return character.size;
}

void JsonText::breakLine() {
    m_text << '\n';
    for (unsigned int i = 0; i < m_depth; ++i)
        m_text << "  ";
}

} // namespace Inspect
