#pragma once

#include "Inspect/model/PackedWidths.h"
#include "Inspect/model/PartWalk.h"
#include "Inspect/words/Text.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Inspect {

/// A packed dimension around a part.
struct BitStride {
    std::uint64_t count; ///< Of elements.
    std::uint64_t bits;  ///< From one element to the next.
};

/// Whether both have as many elements, as many bits apart.
bool isSame(const BitStride& a, const BitStride& b);

/// Writes a stride as an entry of a list: "4 every 20".
void writeEntry(Text& out, const BitStride& stride);

/// The bits of a part in the outermost packed value around it.
struct BitPlace {
    std::uint64_t offset; ///< Of its least significant bit, from that of the whole value.
    std::uint64_t width;

    /// Of the packed arrays around it, outermost first. The offset is that in the elements with the
    /// right bounds: one element further to the left means that many bits more.
    std::vector<BitStride> strides;
};

/// Gives the members of a packed struct or union their bits, one member after the other.
class MemberPlaces {
public:
    /// The struct or union has `width` bits from `offset` on. Of another type, or of null, nothing
    /// is asked.
    MemberPlaces(const RTTI::RTBaseType* type, std::uint64_t offset, std::uint64_t width);

    /// The offset of the next member, which has `width` bits: a struct's first member has its most
    /// significant bits, the members of a union have the same least significant one. Members
    /// without a width are left out.
    std::uint64_t next(std::uint64_t width) { return m_isStruct ? m_end -= width : m_end; }

private:
    bool m_isStruct;
    std::uint64_t m_end; ///< The bits below are those of the members to come.
};

/// Finds the bits of the parts of a type, in constant time for each.
class BitPlaces {
public:
    /// The widths must outlive this object.
    explicit BitPlaces(PackedWidths& widths) : m_widths(widths) {}

    /// Goes on to the next part of a PartWalk; takes all of them in turn.
    void meet(const Part& part);

    /// The bits of the part that was met last. None if it is not packed.
    std::optional<BitPlace> place() const;

private:
    /// A type on the path.
    struct Step {
        std::optional<std::uint64_t> width;
        std::uint64_t offset;
        MemberPlaces members; ///< Those that were not met yet.
        std::size_t strides;  ///< From the outermost packed value to here.
    };

    void addStrides(const RTTI::RTArrayType& array, std::uint64_t elementBits);

    PackedWidths& m_widths;
    std::vector<Step> m_path;
    std::vector<BitStride> m_strides;
};

} // namespace Inspect
