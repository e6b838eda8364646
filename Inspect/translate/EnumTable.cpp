#include "Inspect/translate/EnumTable.h"

#include "Inspect/declarations/EnumValues.h"

namespace Inspect {

using namespace RTTI;

namespace {

std::optional<EnumTable> discreteTable(const TypeTable& types, const RTDiscreteEnumType& type) {
    const auto width = types.widths->of(&type);
    if (!width || *width > MOST_ENUM_BITS)
        return std::nullopt;
    const bool isFourState = types.encodings->of(type) == ENCODING_4_STATE;
    EnumTable table{*width, {}};
    for (const t_enumNameAndValuePair& literal : type.m_enumerators) {
        std::string bits = enumBits(literal.value, type.m_valueSize, *width, isFourState);
        bits.insert(0, *width - bits.size(), '0');
        table.entries.push_back({literal.enumName, std::move(bits)});
    }
    return table;
}

std::optional<EnumTable> positionTable(const RTSeqEnumType& type) {
    if (type.m_enumKind != VHDL_OTHER_ENUM && type.m_enumKind != VHDL_CHAR_ENUM)
        return std::nullopt;
    EnumTable table{1, {}};
    const std::size_t count = type.m_enumeratorNames.size();
    while (count > std::uint64_t{1} << table.width)
        ++table.width;
    for (std::size_t position = 0; position < count; ++position) {
        const char* name = type.m_enumeratorNames[position];
        std::string bits;
        for (std::uint64_t bit = table.width; bit-- > 0;)
            bits += (position >> bit & 1) != 0 ? '1' : '0';
        table.entries.push_back({name != nullptr ? name : "", std::move(bits)});
    }
    return table;
}

} // namespace

std::optional<EnumTable> enumTableOf(const TypeTable& types, const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::DISCRETE_ENUM:
        return discreteTable(types, static_cast<const RTDiscreteEnumType&>(type));
    case ClassId::SEQ_ENUM: return positionTable(static_cast<const RTSeqEnumType&>(type));
    default: return std::nullopt;
    }
}

} // namespace Inspect
