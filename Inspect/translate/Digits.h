#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Inspect {

// Values of packed types as text. Bits are the digits 0, 1, x and z, the most significant first.

/// The hexadecimal digits of bits as viewers show them: x or z for four bits that are, and X for
/// others of which some are.
std::string hexDigits(std::string_view bits);

/// The bits of a number, binary if it has `width` digits, hexadecimal if it has those for `width`
/// bits; with 0x, 0b or GTKWave's $, % in front, with fewer digits too. Digits may have underscores
/// behind them. None for any other text.
std::optional<std::string> bitsOf(std::string_view text, std::uint64_t width);

} // namespace Inspect
