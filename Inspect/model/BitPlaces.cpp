#include "Inspect/model/BitPlaces.h"

#include <fmt/format.h>

#include <algorithm>

namespace Inspect {

using namespace RTTI;

bool isSame(const BitStride& a, const BitStride& b) {
    return a.count == b.count && a.bits == b.bits;
}

std::string entryText(const BitStride& stride) {
    return fmt::format("{} every {}", stride.count, stride.bits);
}

void BitPlaces::meet(const Part& part) {
    m_path.resize(part.depth);
    Step here{part.type, m_widths.of(part.type), 0, 0, 0};
    m_strides.resize(!m_path.empty() ? m_path.back().strides : 0);
    if (!here.width) {
        m_strides.clear();
    } else if (!m_path.empty() && m_path.back().width) {
        Step& above = m_path.back();
        here.offset = above.offset;
        if (part.role == LinkRole::MEMBER)
            placeMember(above, here);
        else if (part.role == LinkRole::ELEMENT)
            addStrides(static_cast<const RTArrayType&>(*above.type), *here.width);
    }
    here.end = here.offset + here.width.value_or(0);
    here.strides = m_strides.size();
    m_path.push_back(here);
}

std::optional<BitPlace> BitPlaces::place() const {
    const Step& here = m_path.back();
    if (!here.width)
        return std::nullopt;
    return BitPlace{here.offset, *here.width, m_strides};
}

/// A struct's first member has its most significant bits; the members of a union have the same
/// least significant one.
void BitPlaces::placeMember(Step& above, Step& member) const {
    if (static_cast<const RTRecordType&>(*above.type).m_recordKind != VLOG_PACKED_STRUCT)
        return;
    above.end -= *member.width;
    member.offset = above.end;
}

void BitPlaces::addStrides(const RTArrayType& array, std::uint64_t elementBits) {
    const std::size_t outer = m_strides.size();
    std::uint64_t bits = elementBits;
    for (std::size_t i = array.m_indexTypeIds.size(); i-- > 0;) {
        const std::uint64_t count = *lengthOf(array.m_constraints[i]);
        m_strides.push_back({count, bits});
        bits *= count;
    }
    std::reverse(m_strides.begin() + static_cast<std::ptrdiff_t>(outer), m_strides.end());
}

} // namespace Inspect
