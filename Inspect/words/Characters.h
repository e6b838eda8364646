#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace Inspect {

/// Eight characters, which are judged at once.
using Characters = std::uint64_t;

/// For each of eight ASCII characters, in its highest bit, whether something is true of it.
using Judgement = std::uint64_t;

/// The same byte for each of the characters.
constexpr Characters forEach(unsigned char byte) { return Characters{0x0101010101010101} * byte; }

/// Whether they are from `first` to `last`.
constexpr Judgement areBetween(Characters characters, unsigned char first, unsigned char last) {
    return (characters + forEach(0x80 - first)) & ~(characters + forEach(0x7F - last));
}

/// Whether they are a certain one.
constexpr Judgement are(unsigned char c, Characters characters) {
    return areBetween(characters, c, c);
}

/// Whether they are letters or digits.
constexpr Judgement areLettersOrDigits(Characters characters) {
    return areBetween(characters | forEach('a' - 'A'), 'a', 'z') | areBetween(characters, '0', '9');
}

/// Whether they are a certain one and beside another such character.
constexpr Judgement areTwice(unsigned char c, Characters characters) {
    const Judgement found = are(c, characters);
    return found & (found << 8 | found >> 8);
}

/// Whether all characters of a text are in ASCII and of the kind that `judge` finds. Letters must
/// be of that kind. `judge` gets `overlap` characters again that it had last, to see each of them
/// beside the next.
template <typename Judge> bool allOf(std::string_view text, Judge judge, std::size_t overlap = 0) {
    constexpr std::size_t SIZE = sizeof(Characters);
    const auto isTrueAt = [&](const char* at) {
        Characters characters = 0;
        std::memcpy(&characters, at, SIZE);
        return ((characters | ~judge(characters)) & forEach(0x80)) == 0;
    };
    if (text.size() < SIZE) {
        char filled[] = {'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x'};
        text.copy(filled, text.size());
        return isTrueAt(filled);
    }
    const char* const last = text.data() + text.size() - SIZE;
    for (const char* at = text.data(); at < last; at += SIZE - overlap) {
        if (!isTrueAt(at))
            return false;
    }
    return isTrueAt(last); // It may overlap those before.
}

} // namespace Inspect
