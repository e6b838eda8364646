#include "Inspect/declarations/EnumValues.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

namespace Inspect {

namespace {

bool bitAt(const char* bytes, unsigned int size, unsigned int bit) {
    const unsigned int byte = bit / 8;
    return byte < size && ((static_cast<unsigned char>(bytes[byte]) >> (bit % 8)) & 1) != 0;
}

char hexDigit(std::string_view bits) {
    unsigned int value = 0;
    for (const char bit : bits)
        value = value * 2 + (bit == '1' ? 1 : 0);
    return "0123456789abcdef"[value];
}

} // namespace

std::string enumBits(const char* bytes, unsigned int size, std::uint64_t width, bool isFourState) {
    const unsigned int plane = isFourState ? size / 2 : size;
    const auto known = static_cast<unsigned int>(
        std::clamp<std::uint64_t>(plane * 8ULL, 1, std::max<std::uint64_t>(width, 1)));
    std::string bits;
    for (unsigned int bit = known; bit-- > 0;) {
        const bool value = bitAt(bytes, plane, bit);
        const bool isUnknown = isFourState && bitAt(bytes + plane, plane, bit);
        bits += isUnknown ? (value ? 'x' : 'z') : (value ? '1' : '0');
    }
    return bits;
}

std::string enumValue(const char* bytes, unsigned int size, std::uint64_t width, bool isFourState) {
    std::string bits = enumBits(bytes, size, width, isFourState);
    if (bits.find_first_of("xz") != std::string::npos) {
        // A first digit of X or Z would be repeated up to the width.
        return fmt::format("{}'b{}{}", width, bits.size() < width ? "0" : "", bits);
    }
    bits.insert(0, (4 - bits.size() % 4) % 4, '0');
    std::string digits;
    for (std::size_t digit = 0; digit < bits.size(); digit += 4)
        digits += hexDigit(std::string_view(bits).substr(digit, 4));
    return fmt::format("{}'h{}", width, digits);
}

} // namespace Inspect
