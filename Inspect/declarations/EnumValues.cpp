#include "Inspect/declarations/EnumValues.h"

#include "Inspect/declarations/PredefinedTypes.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace Inspect {

using namespace RTTI;

namespace {

constexpr int CHAIN_LIMIT = 1000;

std::uint64_t lengthOf(const FullConstraints& range) {
    const auto left = static_cast<std::int64_t>(range.si);
    const auto right = static_cast<std::int64_t>(range.ei);
    return static_cast<std::uint64_t>(std::max(left, right) - std::min(left, right)) + 1;
}

bool bitAt(const char* bytes, unsigned int size, unsigned int bit) {
    const unsigned int byte = bit / 8;
    return byte < size && ((static_cast<unsigned char>(bytes[byte]) >> (bit % 8)) & 1) != 0;
}

char hexDigit(const char* bytes, unsigned int size, unsigned int digit) {
    unsigned int value = 0;
    for (unsigned int i = 0; i < 4; ++i)
        value |= static_cast<unsigned int>(bitAt(bytes, size, digit * 4 + i)) << i;
    return "0123456789abcdef"[value];
}

} // namespace

std::optional<unsigned int> packedWidth(const RTBaseType* type) {
    std::uint64_t width = 1;
    for (int i = 0; i < CHAIN_LIMIT && type != nullptr; ++i) {
        if (const auto* alias = dynamic_cast<const RTTypedefType*>(type)) {
            type = alias->m_dataType;
        } else if (type->GetClassId() == ClassId::SEQ_ENUM) {
            return static_cast<unsigned int>(width);
        } else if (type->GetClassId() == ClassId::ARRAY) {
            const auto& array = static_cast<const RTArrayType&>(*type);
            if (array.m_constraints.size() < array.m_indexTypeIds.size())
                return std::nullopt;
            for (std::size_t d = 0; d < array.m_indexTypeIds.size(); ++d) {
                width *= lengthOf(array.m_constraints[d]);
                if (width > std::numeric_limits<std::uint32_t>::max())
                    return std::nullopt;
            }
            type = array.m_elementType;
        } else {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

std::string enumValue(const char* bytes, unsigned int size, unsigned int width, bool isFourState) {
    const unsigned int plane = isFourState ? size / 2 : size;
    const char* unknown = bytes + plane;
    const bool hasUnknown =
        isFourState && std::any_of(unknown, unknown + plane, [](char byte) { return byte != 0; });
    // What the bytes do not reach is 0, and need not be written.
    const unsigned int known = std::max(1U, std::min(width, plane * 8));
    std::string digits;
    if (hasUnknown) {
        if (known < width)
            digits += '0'; // A first digit of X or Z would be repeated up to the width.
        for (unsigned int bit = known; bit-- > 0;) {
            const bool value = bitAt(bytes, plane, bit);
            digits += bitAt(unknown, plane, bit) ? (value ? 'x' : 'z') : (value ? '1' : '0');
        }
        return fmt::format("{}'b{}", width, digits);
    }
    for (unsigned int digit = (known + 3) / 4; digit-- > 0;)
        digits += hexDigit(bytes, plane, digit);
    return fmt::format("{}'h{}", width, digits);
}

} // namespace Inspect
