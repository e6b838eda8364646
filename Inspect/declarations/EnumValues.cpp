#include "Inspect/declarations/EnumValues.h"

#include <fmt/format.h>

#include <algorithm>

namespace Inspect {

namespace {

bool bitAt(const char* bytes, unsigned int size, unsigned int bit) {
    const unsigned int byte = bit / 8;
    return byte < size && ((static_cast<unsigned char>(bytes[byte]) >> (bit % 8)) & 1) != 0;
}

char hexDigit(const char* bytes, unsigned int size, unsigned int digit) {
    unsigned int value = 0;
    for (unsigned int i = 0; i < 4; ++i)
        value |= static_cast<unsigned int>(bitAt(bytes, size, digit * 4 + i)) << i;
    return "0123456789abcdef"[value];
}

} // namespace

std::string enumValue(const char* bytes, unsigned int size, std::uint64_t width, bool isFourState) {
    const unsigned int plane = isFourState ? size / 2 : size;
    const char* unknown = bytes + plane;
    const bool hasUnknown =
        isFourState && std::any_of(unknown, unknown + plane, [](char byte) { return byte != 0; });
    // What the bytes do not reach is 0, and need not be written.
    const auto known = static_cast<unsigned int>(
        std::clamp<std::uint64_t>(plane * 8ULL, 1, std::max<std::uint64_t>(width, 1)));
    std::string digits;
    if (hasUnknown) {
        if (known < width)
            digits += '0'; // A first digit of X or Z would be repeated up to the width.
        for (unsigned int bit = known; bit-- > 0;) {
            const bool value = bitAt(bytes, plane, bit);
            digits += bitAt(unknown, plane, bit) ? (value ? 'x' : 'z') : (value ? '1' : '0');
        }
        return fmt::format("{}'b{}", width, digits);
    }
    for (unsigned int digit = (known + 3) / 4; digit-- > 0;)
        digits += hexDigit(bytes, plane, digit);
    return fmt::format("{}'h{}", width, digits);
}

} // namespace Inspect
