#pragma once

#include "Import/Input.h"
#include "Import/Pool.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace Import {

/// What a type of a GHW file is; the values are the file's. Kinds that no GHDL puts into waves have
/// no name here.
enum class GhwKind : std::uint8_t {
    ENUM_OF_TWO = 22,
    ENUM_OF_BYTES = 23,
    ENUM_OF_WORDS = 24,
    INTEGER = 25,
    LONG_INTEGER = 26,
    REAL = 27,
    PHYSICAL = 28,
    LONG_PHYSICAL = 29,
    ARRAY = 31,
    RECORD = 32,
    SCALAR_SUBTYPE = 34,
    ARRAY_SUBTYPE = 35,
    OPEN_ARRAY_SUBTYPE = 37,
    RECORD_SUBTYPE = 38,
    OPEN_RECORD_SUBTYPE = 39,
};

/// A range. Positions of literals and whole numbers are in `left` and `right`, reals in the others.
struct GhwRange {
    bool isDownto = false;
    bool isReal = false;
    std::int64_t left = 0;
    std::int64_t right = 0;
    double realLeft = 0;
    double realRight = 0;
};

/// A literal, a unit or a member.
struct GhwPart {
    std::uint32_t name = 0; ///< A number of a string.
    std::uint32_t type = 0; ///< Of a member: a number of a type.
    std::int64_t value = 0; ///< Of a unit: in primary units.
};

/// Some of the elements of a vector.
struct Slice {
    std::uint32_t begin = 0;
    std::uint32_t count = 0;
};

/// A type as the file has it. Numbers of types and of strings count from 1; 0 is none.
struct GhwType {
    std::uint64_t offset = 0; ///< Where the file describes it.
    GhwKind kind = GhwKind::INTEGER;
    std::uint32_t name = 0; ///< 0 where the source gives it none.
    std::uint32_t base = 0; ///< Of a subtype; of an array its element.
    Slice items;            ///< Parts, indexes of an array, or ranges of a subtype.
};

/// The types of a wave file of GHDL. A type refers only to types in front of it.
struct GhwFile {
    Pool texts;                    ///< What the names belong to.
    std::vector<PoolText> strings; ///< Latin-1; the first is empty and stands for no name.
    std::vector<GhwType> types;    ///< The first is none.

    /// The literals of an enumeration, the units of a physical type, the members of a record.
    std::span<const GhwPart> partsOf(const GhwType& type) const {
        return std::span(parts).subspan(type.items.begin, type.items.count);
    }

    /// The types of an array's indexes.
    std::span<const std::uint32_t> indexesOf(const GhwType& type) const {
        return std::span(indexes).subspan(type.items.begin, type.items.count);
    }

    /// Those of a subtype. A composite one has those that its base leaves open: own dimensions,
    /// then those of the element; of a record those of its members, one after the other.
    std::span<const GhwRange> rangesOf(const GhwType& type) const {
        return std::span(ranges).subspan(type.items.begin, type.items.count);
    }

    /// Of all types, one after the other.
    /// @{
    std::vector<GhwPart> parts;
    std::vector<std::uint32_t> indexes;
    std::vector<GhwRange> ranges;
    /// @}
};

/// Reads the types, and passes over the rest to see that it is there. Takes time by the size of the
/// file and memory by that of the types. Throws ImportError for anything else than a whole file.
GhwFile readGhw(Input& input);

} // namespace Import
