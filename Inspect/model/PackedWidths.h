#pragma once

#include "RTTI/RTType.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

namespace Inspect {

/// The number of indices in a dimension. None if it is open, that is, without bounds of its own.
std::optional<std::uint64_t> lengthOf(const RTTI::FullConstraints& dimension);

/// The widths of packed types in bits.
///
/// The packed types are SystemVerilog's `bit` and `logic`, its packed arrays, structs and unions of
/// packed types, enumerations over such a type, and typedefs of them. A struct is as wide as its
/// members together, an array as its elements together, a union as its widest member; a tagged
/// union also has enough bits to number its members. All other types have no width. Nor does a type
/// that leads to one of them, to an open dimension or back to itself, or whose number of bits does
/// not fit into 64 bits.
///
/// An object of this class remembers its results: asking for all types of a table takes time and
/// memory proportional to the table, whatever the depth. The types must stay alive, and each thread
/// needs an object of its own.
class PackedWidths {
public:
    /// None for a type that is not packed, and for null.
    std::optional<std::uint64_t> of(const RTTI::RTBaseType* type);

private:
    /// A type whose parts are being looked at.
    struct Step {
        const RTTI::RTBaseType* type;
        std::size_t nextPart = 0;
        std::optional<std::uint64_t> width; ///< Of the parts that were looked at.
    };

    void enter(const RTTI::RTBaseType& type);
    void explore(const RTTI::RTBaseType& first);

    /// None while a type is on the path, too: there it leads back to itself.
    std::unordered_map<const RTTI::RTBaseType*, std::optional<std::uint64_t>> m_widths;
    std::vector<Step> m_path;
};

} // namespace Inspect
