#pragma once

#include "RTTI/RTBaseType.h"
#include "RTTI/ValueNames.h"

#include <cstddef>
#include <iterator>
#include <string_view>

namespace TypeFile {

/// The names of consecutive numbers, such as the kinds of arrays.
struct NamedValues {
    const char* const* names; ///< In the order of the numbers.
    std::size_t count;        ///< How many there are.
    unsigned int first;       ///< The number that the first name stands for.

    /// The name of a number, or null if it has none.
    constexpr const char* nameOf(unsigned int value) const {
        const unsigned int index = value - first; // Wraps for what is below the first.
        return index < count ? names[index] : nullptr;
    }

    /// Whether `name` stands for a number, and which.
    constexpr bool find(std::string_view name, unsigned int& value) const {
        for (std::size_t i = 0; i < count; ++i) {
            if (name == names[i]) {
                value = first + static_cast<unsigned int>(i);
                return true;
            }
        }
        return false;
    }
};

/// The names of the values of one enumeration, with the numbers that they stand for.
/// @{
inline constexpr NamedValues valueEncodings{
    RTTI::ValueNames::ENCODINGS, std::size(RTTI::ValueNames::ENCODINGS), RTTI::ENCODING_4_STATE};
inline constexpr NamedValues arrayKinds{RTTI::ValueNames::ARRAY_KINDS,
                                        std::size(RTTI::ValueNames::ARRAY_KINDS),
                                        RTTI::ARRAY_KIND_INVALID};
inline constexpr NamedValues recordKinds{RTTI::ValueNames::RECORD_KINDS,
                                         std::size(RTTI::ValueNames::RECORD_KINDS),
                                         RTTI::RECORD_KIND_INVALID};
inline constexpr NamedValues enumKinds{RTTI::ValueNames::ENUM_KINDS,
                                       std::size(RTTI::ValueNames::ENUM_KINDS), RTTI::INVALID_ENUM};
/// @}

/// The names of an enumeration's values.
/// @{
constexpr const NamedValues& namesOf(RTTI::ValueEncoding) { return valueEncodings; }
constexpr const NamedValues& namesOf(RTTI::ArrayKind) { return arrayKinds; }
constexpr const NamedValues& namesOf(RTTI::RecordKind) { return recordKinds; }
constexpr const NamedValues& namesOf(RTTI::EnumKind) { return enumKinds; }
/// @}

} // namespace TypeFile
