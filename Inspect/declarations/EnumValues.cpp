#include "Inspect/declarations/EnumValues.h"

#include <algorithm>

namespace Inspect {

namespace {

bool bitAt(const char* bytes, unsigned int size, unsigned int bit) {
    const unsigned int byte = bit / 8;
    return byte < size && ((static_cast<unsigned char>(bytes[byte]) >> (bit % 8)) & 1) != 0;
}

/// A value of an enumeration as its bytes have it.
struct EnumValue {
    EnumValue(const char* bytes, unsigned int size, std::uint64_t width, bool isFourState)
        : values(bytes), plane(isFourState ? size / 2 : size),
          unknowns(isFourState ? bytes + plane : nullptr),
          known(static_cast<unsigned int>(
              std::clamp<std::uint64_t>(plane * 8ULL, 1, std::max<std::uint64_t>(width, 1)))) {}

    bool isUnknown(unsigned int bit) const {
        return unknowns != nullptr && bitAt(unknowns, plane, bit);
    }

    char digit(unsigned int bit) const {
        const bool value = bitAt(values, plane, bit);
        return isUnknown(bit) ? (value ? 'x' : 'z') : (value ? '1' : '0');
    }

    bool hasUnknown() const {
        for (unsigned int bit = 0; unknowns != nullptr && bit < known; ++bit) {
            if (isUnknown(bit))
                return true;
        }
        return false;
    }

    /// Four bits, of which the lowest is the first.
    char hexDigit(unsigned int first) const {
        const unsigned int byte = first / 8;
        unsigned int value =
            byte < plane ? static_cast<unsigned char>(values[byte]) >> (first % 8) & 0xF : 0;
        if (known < first + 4)
            value &= (1U << (known - first)) - 1;
        return "0123456789abcdef"[value];
    }

    const char* values;
    unsigned int plane;   ///< Bytes of values, and of marks for those that are unknown.
    const char* unknowns; ///< Null where all bits are known.
    unsigned int known;   ///< Bits, at least 1.
};

} // namespace

std::string enumBits(const char* bytes, unsigned int size, std::uint64_t width, bool isFourState) {
    const EnumValue value(bytes, size, width, isFourState);
    std::string bits;
    for (unsigned int bit = value.known; bit-- > 0;)
        bits += value.digit(bit);
    return bits;
}

void writeEnumValue(Text& out, const char* bytes, unsigned int size, std::uint64_t width,
                    bool isFourState) {
    const EnumValue value(bytes, size, width, isFourState);
    if (value.hasUnknown()) {
        // A first digit of X or Z would be repeated up to the width.
        out << width << "'b" << (value.known < width ? "0" : "");
        for (unsigned int bit = value.known; bit-- > 0;)
            out << value.digit(bit);
        return;
    }
    out << width << "'h";
    for (unsigned int digit = (value.known + 3) / 4; digit-- > 0;)
        out << value.hexDigit(4 * digit);
}

} // namespace Inspect
