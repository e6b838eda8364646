#include "Inspect/translate/Digits.h"

#include <algorithm>

namespace Inspect {

namespace {

constexpr std::string_view HEX_DIGITS = "0123456789abcdef";

char hexDigit(std::string_view nibble) {
    std::size_t value = 0;
    for (const char bit : nibble) {
        if (bit == 'x' || bit == 'z') {
            const bool isUniform = nibble.find_first_not_of(bit) == std::string_view::npos;
            return isUniform ? bit : 'X';
        }
        value = value * 2 + (bit == '1' ? 1 : 0);
    }
    return nibble.find_first_of("xz") == std::string_view::npos ? HEX_DIGITS[value] : 'X';
}

char lowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Adds the four bits of a digit; false if it is none.
bool addNibble(std::string& bits, char digit) {
    if (digit == 'x' || digit == 'z') {
        bits.append(4, digit);
        return true;
    }
    const std::size_t value = HEX_DIGITS.find(digit);
    if (value == std::string_view::npos)
        return false;
    for (int bit = 3; bit >= 0; --bit)
        bits += (value >> bit & 1) != 0 ? '1' : '0';
    return true;
}

/// Takes off what is in front of the digits, and gives the base that it stands for; else 0.
unsigned int takeBase(std::string_view& text) {
    const auto take = [&](std::string_view prefix) {
        const bool isThere = text.substr(0, prefix.size()) == prefix;
        text.remove_prefix(isThere ? prefix.size() : 0);
        return isThere;
    };
    if (take("0x") || take("0X") || take("$"))
        return 16;
    return take("0b") || take("0B") || take("%") ? 2 : 0;
}

/// Without the underscores that stand behind a digit.
std::string digitsOf(std::string_view text) {
    std::string digits(text);
    if (!digits.empty() && digits.front() != '_')
        digits.erase(std::remove(digits.begin(), digits.end(), '_'), digits.end());
    return digits;
}

/// Whether the digits are as wide as the value, or a prefix says that zeros are left out.
bool fits(std::size_t digits, std::uint64_t most, bool hasPrefix) {
    return hasPrefix ? digits != 0 && digits <= most : digits == most;
}

} // namespace

std::string hexDigits(std::string_view bits) {
    std::string digits;
    const std::size_t first = bits.size() % 4;
    if (first != 0) {
        const char fill = bits.front() == '1' ? '0' : bits.front();
        digits += hexDigit(std::string(4 - first, fill) + std::string(bits.substr(0, first)));
    }
    for (std::size_t i = first; i < bits.size(); i += 4)
        digits += hexDigit(bits.substr(i, 4));
    return digits;
}

std::optional<std::string> bitsOf(std::string_view text, std::uint64_t width) {
    const unsigned int base = takeBase(text);
    const std::string digits = digitsOf(text);
    const std::uint64_t hexLength = width / 4 + (width % 4 != 0 ? 1 : 0);
    const bool isBinary = base != 16 && fits(digits.size(), width, base == 2);
    if (!isBinary && (base == 2 || !fits(digits.size(), hexLength, base == 16)))
        return std::nullopt;
    std::string bits;
    for (const char c : digits) {
        const char digit = lowerCase(c);
        if (!isBinary) {
            if (!addNibble(bits, digit))
                return std::nullopt;
        } else if (std::string_view("01xz").find(digit) != std::string_view::npos) {
            bits += digit;
        } else {
            return std::nullopt;
        }
    }
    if (bits.size() <= width)
        return std::string(width - bits.size(), '0') + bits;
    const std::size_t extra = bits.size() - width;
    if (bits.find('1') < extra)
        return std::nullopt; // Bits that the value does not have.
    return bits.substr(extra);
}

} // namespace Inspect
