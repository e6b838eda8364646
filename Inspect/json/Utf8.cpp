#include "Inspect/json/Utf8.h"

namespace Inspect {

namespace {

/// The bytes that follow a lead byte of UTF-8, and the range of the first of them.
struct Sequence {
    unsigned char firstLead, lastLead;
    std::size_t following;
    unsigned char lowest, highest;
};

constexpr Sequence sequences[] = {
    {0x00, 0x7F, 0, 0, 0},       {0xC2, 0xDF, 1, 0x80, 0xBF}, {0xE0, 0xE0, 2, 0xA0, 0xBF},
    {0xE1, 0xEC, 2, 0x80, 0xBF}, {0xED, 0xED, 2, 0x80, 0x9F}, {0xEE, 0xEF, 2, 0x80, 0xBF},
    {0xF0, 0xF0, 3, 0x90, 0xBF}, {0xF1, 0xF3, 3, 0x80, 0xBF}, {0xF4, 0xF4, 3, 0x80, 0x8F}};

/// The bits of a lead byte that belong to the character's number, by the bytes that follow.
constexpr unsigned int LEAD_BITS[] = {0x7F, 0x1F, 0x0F, 0x07};

Utf8Character characterOf(const Sequence& sequence, std::string_view text) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    unsigned int code = byteAt(0) & LEAD_BITS[sequence.following];
    for (std::size_t i = 1; i <= sequence.following; ++i) {
        if (i == text.size() || byteAt(i) < (i == 1 ? sequence.lowest : 0x80) ||
            byteAt(i) > (i == 1 ? sequence.highest : 0xBF))
            return {i, Utf8Character::REPLACEMENT, false};
        code = code << 6 | (byteAt(i) & 0x3F);
    }
    return {sequence.following + 1, code};
}

} // namespace

Utf8Character firstCharacter(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    for (const Sequence& sequence : sequences) {
        if (lead >= sequence.firstLead && lead <= sequence.lastLead)
            return characterOf(sequence, text);
    }
    return {1, Utf8Character::REPLACEMENT, false};
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const Utf8Character character = firstCharacter(text);
        if (!character.isWhole)
            return false;
        text.remove_prefix(character.size);
    }
    return true;
}

} // namespace Inspect
