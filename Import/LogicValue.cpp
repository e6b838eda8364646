#include "Import/LogicValue.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace Import {

namespace {

/// A digit of base 2, 8 or 16: 'x' and 'z' as they are, its value, or -1.
int digitValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    if (lower == 'x' || lower == 'z')
        return lower;
    if (lower >= 'a' && lower <= 'f')
        return lower - 'a' + 10;
    return -1;
}

int bitsPerDigit(char base) {
    switch (base) {
    case 'b': return 1;
    case 'o': return 3;
    case 'h': return 4;
    default: return 0;
    }
}

/// What stands before the digits.
struct Prefix {
    unsigned long long width = 0; ///< 0 where the value takes any.
    bool isSigned = false;
    int bitsPerDigit = 0; ///< 0 for a single digit that fills the whole width.
};

/// Takes the prefix off the text: "4'sb", "?32?h", "'".
bool takePrefix(std::string_view& text, Prefix& prefix) {
    const std::size_t mark = text.find_first_of("'?");
    if (mark == std::string_view::npos)
        return false;
    const bool isUnsized = text[mark] == '?';
    const std::size_t begin = isUnsized ? mark + 1 : 0;
    const std::size_t end = isUnsized ? text.find('?', begin) : mark;
    if (end == std::string_view::npos)
        return false;
    std::from_chars(text.data() + begin, text.data() + end, prefix.width);
    text.remove_prefix(end + 1);
    if (!text.empty() && text[0] == 's') {
        prefix.isSigned = true;
        text.remove_prefix(1);
    }
    prefix.bitsPerDigit = text.empty() ? 0 : bitsPerDigit(text[0]);
    if (prefix.bitsPerDigit != 0)
        text.remove_prefix(1);
    return !text.empty() && (prefix.bitsPerDigit != 0 || text.size() == 1);
}

/// The bits of the number, least first: '0', '1', 'x' or 'z'.
bool readBits(std::string_view digits, int perDigit, std::string& bits) {
    for (std::size_t i = digits.size(); i-- > 0;) {
        const int value = digitValue(digits[i]);
        if (value == 'x' || value == 'z') {
            bits.append(static_cast<std::size_t>(perDigit), static_cast<char>(value));
            continue;
        }
        if (value < 0 || value >= 1 << perDigit)
            return false;
        for (int bit = 0; bit < perDigit; ++bit)
            bits.push_back((value >> bit & 1) != 0 ? '1' : '0');
    }
    return true;
}

} // namespace

bool LogicValue::hasUnknown() const {
    return std::any_of(planes.begin() + static_cast<std::ptrdiff_t>(planes.size() / 2),
                       planes.end(), [](char byte) { return byte != 0; });
}

bool readLogicValue(std::string_view text, unsigned int bits, LogicValue& value) {
    Prefix prefix;
    if (!takePrefix(text, prefix))
        return false;
    std::string number;
    if (!readBits(text, std::max(prefix.bitsPerDigit, 1), number))
        return false;
    char fill = '0';
    if (prefix.bitsPerDigit == 0)
        fill = number[0];
    else if (prefix.isSigned && prefix.width != 0 && number.size() >= prefix.width)
        fill = number[prefix.width - 1];
    if (prefix.width != 0 && number.size() > prefix.width)
        number.resize(prefix.width);
    number.resize(bits, fill);

    const std::size_t bytes = (bits + 7) / 8;
    value.planes.assign(2 * bytes, '\0');
    for (std::size_t i = 0; i < bits; ++i) {
        const char mask = static_cast<char>(1 << i % 8);
        if (number[i] == '1' || number[i] == 'x')
            value.planes[i / 8] = static_cast<char>(value.planes[i / 8] | mask);
        if (number[i] == 'x' || number[i] == 'z')
            value.planes[bytes + i / 8] = static_cast<char>(value.planes[bytes + i / 8] | mask);
    }
    return true;
}

} // namespace Import
