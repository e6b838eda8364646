#pragma once

#include "RTTI/RTBaseType.h"

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

/// The names as lists.
namespace ValueNames {

/// The names of the values of one enumeration.
/// @{
inline constexpr const char* ENCODINGS[] = {"4-State", "2-State", "Byte", "Unpadded-Byte"};
inline constexpr const char* ARRAY_KINDS[] = {"ARRAY_KIND_INVALID",
                                              "VHDL_ARRAY",
                                              "VLOG_FIXED_UNPACKED_ARRAY",
                                              "VLOG_FIXED_PACKED_ARRAY",
                                              "VLOG_DYNAMIC_ARRAY",
                                              "VLOG_ASSOCIATIVE_ARRAY",
                                              "VLOG_QUEUE",
                                              "BYTE_UNPADDED_ARRAY"};
inline constexpr const char* RECORD_KINDS[] = {
    "RECORD_KIND_INVALID",        "VHDL_RECORD",
    "VLOG_UNPACKED_STRUCT",       "VLOG_PACKED_STRUCT",
    "VLOG_PACKED_TAGGED_UNION",   "VLOG_UNPACKED_TAGGED_UNION",
    "VLOG_PACKED_UNTAGGED_UNION", "VLOG_UNPACKED_UNTAGGED_UNION",
    "BYTE_UNPADDED_STRUCT"};
inline constexpr const char* ENUM_KINDS[] = {"INVALID_ENUM",   "VLOG_BUILTIN_ENUM",
                                             "VHDL_BIT_ENUM",  "VHDL_STD_LOGIC_ENUM",
                                             "VHDL_CHAR_ENUM", "VHDL_OTHER_ENUM"};
/// @}

} // namespace ValueNames

/// The names of the values of one enumeration, with the numbers that they stand for.
/// @{
inline constexpr NamedValues valueEncodings{ValueNames::ENCODINGS, std::size(ValueNames::ENCODINGS),
                                            RTTI::ENCODING_4_STATE};
inline constexpr NamedValues arrayKinds{ValueNames::ARRAY_KINDS, std::size(ValueNames::ARRAY_KINDS),
                                        RTTI::ARRAY_KIND_INVALID};
inline constexpr NamedValues recordKinds{
    ValueNames::RECORD_KINDS, std::size(ValueNames::RECORD_KINDS), RTTI::RECORD_KIND_INVALID};
inline constexpr NamedValues enumKinds{ValueNames::ENUM_KINDS, std::size(ValueNames::ENUM_KINDS),
                                       RTTI::INVALID_ENUM};
/// @}

/// The names of an enumeration's values.
/// @{
constexpr const NamedValues& namesOf(RTTI::ValueEncoding) { return valueEncodings; }
constexpr const NamedValues& namesOf(RTTI::ArrayKind) { return arrayKinds; }
constexpr const NamedValues& namesOf(RTTI::RecordKind) { return recordKinds; }
constexpr const NamedValues& namesOf(RTTI::EnumKind) { return enumKinds; }
/// @}

} // namespace TypeFile
