#pragma once

#include <string>
#include <string_view>

namespace Import {

/// A value of a number of bits, each 0, 1, x or z, as the file has it: the bytes of the value
/// plane, least first, then those of the control plane. A bit of the control plane is 1 for x and
/// z, and the same bit of the value plane tells them apart: 1 for x.
struct LogicValue {
    std::string planes; ///< 2 * ((bits + 7) / 8) bytes.

    /// Whether there is an x or a z.
    bool hasUnknown() const;

    /// The value plane alone.
    std::string_view values() const {
        return std::string_view(planes).substr(0, planes.size() / 2);
    }
};

/// Reads a SystemVerilog number as tree dumps print it ("2'b1x", "32'shffffffff", "?32?sh4", "'x")
/// and makes it `bits` wide. False for what is no number.
bool readLogicValue(std::string_view text, unsigned int bits, LogicValue& value);

} // namespace Import
