#pragma once

#include <cstddef>
#include <string_view>

namespace Inspect {

/// The character at the front of a text.
struct Utf8Character {
    std::size_t size;    ///< Its bytes; of what is none, those that could have begun one.
    unsigned int code;   ///< Its number in Unicode, REPLACEMENT for what is none.
    bool isWhole = true; ///< Whether the bytes are a character.

    static constexpr unsigned int REPLACEMENT = 0xFFFD;
};

/// `text` has at least one byte.
Utf8Character firstCharacter(std::string_view text);

/// Whether all of a text is UTF-8.
bool isUtf8(std::string_view text);

} // namespace Inspect
