#include "Inspect/declarations/EnumValues.h"

#include <algorithm>
#include <string_view>

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
        for (unsigned int byte = 0; unknowns != nullptr && byte < byteCount(); ++byte) {
            if (knownOf(unknowns, byte) != 0)
                return true;
        }
        return false;
    }

    unsigned int byteCount() const { return (known + 7) / 8; }

    /// The bits of a byte of a plane that are known.
    unsigned int knownOf(const char* bytes, unsigned int byte) const {
        const unsigned int bits = std::min(known - 8 * byte, 8U);
        return byte < plane ? static_cast<unsigned char>(bytes[byte]) & ((1U << bits) - 1) : 0;
    }

    void writeHex(Text& out) const {
        constexpr std::string_view DIGITS = "0123456789abcdef";
        for (unsigned int byte = byteCount(); byte-- > 0;) {
            const unsigned int bits = knownOf(values, byte);
            const char digits[] = {DIGITS[bits >> 4], DIGITS[bits & 0xF]};
            const bool isWhole = known > 8 * byte + 4;
            out << std::string_view(digits, 2).substr(isWhole ? 0 : 1);
        }
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
    value.writeHex(out);
}

} // namespace Inspect
