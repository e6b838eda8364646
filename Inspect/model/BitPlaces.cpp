#include "Inspect/model/BitPlaces.h"

#include <algorithm>

namespace Inspect {

using namespace RTTI;

bool isSame(const BitStride& a, const BitStride& b) {
    return a.count == b.count && a.bits == b.bits;
}

void writeEntry(Text& out, const BitStride& stride) {
    out << stride.count << " every " << stride.bits;
}

MemberPlaces::MemberPlaces(const RTBaseType* type, std::uint64_t offset, std::uint64_t width)
    : m_isStruct(type != nullptr && type->GetClassId() == ClassId::RECORD &&
                 static_cast<const RTRecordType&>(*type).m_recordKind == VLOG_PACKED_STRUCT),
      m_end(m_isStruct ? offset + width : offset) {}

void BitPlaces::meet(const Part& part) {
    m_path.erase(m_path.begin() + part.depth, m_path.end());
    const auto width = m_widths.of(part.type);
    std::uint64_t offset = 0;
    m_strides.resize(!m_path.empty() ? m_path.back().strides : 0);
    if (!width) {
        m_strides.clear();
    } else if (!m_path.empty() && m_path.back().width) {
        Step& above = m_path.back();
        offset = part.role == LinkRole::MEMBER ? above.members.next(*width) : above.offset;
        if (part.role == LinkRole::ELEMENT)
            addStrides(static_cast<const RTArrayType&>(*part.above), *width);
    }
    m_path.push_back(
        {width, offset, MemberPlaces(part.type, offset, width.value_or(0)), m_strides.size()});
}

std::optional<BitPlace> BitPlaces::place() const {
    const Step& here = m_path.back();
    if (!here.width)
        return std::nullopt;
    return BitPlace{here.offset, *here.width, m_strides};
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
