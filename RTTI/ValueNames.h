#pragma once

namespace RTTI {

/// The names of the values of the library's enumerations: in the trace, in JSON, in all texts.
namespace ValueNames {

/// The names of the values of one enumeration, in the order of their numbers.
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

} // namespace RTTI
