#pragma once

// The bytes of a type file, stated once: sizes, offsets, kind codes and markers. Every integer in
// the file is little-endian, nothing is padded, and every storage offset in it is absolute.

#include <cstddef>

namespace RTTI {

/// Text constants of the format.
namespace RTTI_CONSTS {

/// Version text of a type file without usable types, compared including its terminating zero byte.
inline constexpr char TYPE_FILE_VERSION_STR_INVALID[26] = "Brakel Ovat TYPE FILE 000";

} // namespace RTTI_CONSTS

/// The values of `GetClassId`, which are also the kind codes of the records that types are read
/// from. Records of some kinds build no object.
namespace ClassId {

inline constexpr unsigned int BASE_TYPE = 0xA0000001;      ///< RTBaseType; no object.
inline constexpr unsigned int ENUM = 0xA0000002;           ///< RTEnumType; no object.
inline constexpr unsigned int SEQ_ENUM = 0xA0000003;       ///< RTSeqEnumType.
inline constexpr unsigned int DISCRETE_ENUM = 0xA0000004;  ///< RTDiscreteEnumType.
inline constexpr unsigned int INT = 0xA0000005;            ///< RTIntType.
inline constexpr unsigned int FLOAT = 0xA0000006;          ///< RTFloatType.
inline constexpr unsigned int TYPEDEF = 0xA0000007;        ///< RTTypedefType.
inline constexpr unsigned int ACCESS = 0xA0000008;         ///< RTAccessType.
inline constexpr unsigned int CHANDLE = 0xA0000009;        ///< RTCHandle.
inline constexpr unsigned int CLASS_HANDLE = 0xA000000A;   ///< No object.
inline constexpr unsigned int EVENT = 0xA000000B;          ///< RTEventType.
inline constexpr unsigned int FILE_TYPE = 0xA000000C;      ///< RTFileType.
inline constexpr unsigned int PHYSICAL = 0xA000000D;       ///< RTPhysicalType.
inline constexpr unsigned int LOGIC = 0xA000000E;          ///< No object.
inline constexpr unsigned int BIT = 0xA000000F;            ///< No object.
inline constexpr unsigned int ARRAY = 0xA0000010;          ///< RTArrayType.
inline constexpr unsigned int RECORD = 0xA0000011;         ///< RTRecordType.
inline constexpr unsigned int ABSTRACT_ARRAY = 0xA0000012; ///< RTAbstractArrayType; no object.
inline constexpr unsigned int DYNAMIC_ARRAY = 0xA0000013;  ///< RTDynamicArrayType.
inline constexpr unsigned int QUEUE = 0xA0000014;          ///< RTQueueType.
inline constexpr unsigned int ASSOC_ARRAY = 0xA0000015;    ///< RTAssocArrayType.
inline constexpr unsigned int AGGREGATE = 0xA0000016;      ///< RTAggregateType; no object.
inline constexpr unsigned int CLASS = 0xA0000017;          ///< RTClassType.
inline constexpr unsigned int STRING = 0xA0000018;         ///< RTStringType.
inline constexpr unsigned int WILDCARD = 0xA0000019;       ///< RTWildCardType.

} // namespace ClassId

/// Sizes, offsets and markers of a type file, in bytes unless stated otherwise.
namespace TypeFileFormat {

/// The type id that means "no type".
inline constexpr unsigned int NO_TYPE_ID = 0xFFFFFFFF;

/// SystemVerilog type ids with a meaning to the library: none, the string and the event.
/// @{
inline constexpr int NO_SV_TYPE_ID = -99;
inline constexpr int STRING_SV_TYPE_ID = -5;
inline constexpr int EVENT_SV_TYPE_ID = -7;
/// @}

/// The direction of an open range, whose bounds come from an enclosing level.
inline constexpr int UNCONSTRAINED_DIRECTION = -2;

/// The directions of a VHDL or SystemVerilog range that has bounds.
/// @{
inline constexpr int DOWNTO_DIRECTION = 0;
inline constexpr int TO_DIRECTION = 1;
/// @}

/// The only flag bit that the library interprets: values of the type are stored in unpadded bytes.
inline constexpr unsigned int UNPADDED_BYTE_FLAG = 0x10;

/// The version text that the writer uses. Readers accept every text but that of an unusable file.
inline constexpr char TYPE_FILE_VERSION[] = "Brakel Ovat TYPE FILE 001";

/// Header: version text, type count, storage offset of the address table.
/// @{
inline constexpr std::size_t VERSION_SIZE = 32;
inline constexpr std::size_t TYPE_COUNT_OFFSET = 32;
inline constexpr std::size_t ADDRESS_TABLE_OFFSET = 36;
inline constexpr std::size_t HEADER_SIZE = 40;
/// @}
static_assert(TYPE_COUNT_OFFSET == VERSION_SIZE && HEADER_SIZE == ADDRESS_TABLE_OFFSET + 4);

/// Address table: one storage offset for each type.
inline constexpr std::size_t ADDRESS_SIZE = 8;

/// Record: signed size of the whole record, kind code, then name, flags and the fields of the kind.
/// @{
inline constexpr std::size_t RECORD_SIZE_SIZE = 4;
inline constexpr std::size_t RECORD_KIND_OFFSET = 4;
inline constexpr std::size_t RECORD_KIND_SIZE = 4;
inline constexpr std::size_t RECORD_HEADER_SIZE = 8;
/// @}
static_assert(RECORD_HEADER_SIZE == RECORD_KIND_OFFSET + RECORD_KIND_SIZE);

/// The record size is a signed 32-bit number.
inline constexpr std::size_t LARGEST_RECORD_SIZE = 0x7FFFFFFF;

/// The address table's storage offset is an unsigned 32-bit number.
inline constexpr unsigned long long LARGEST_ADDRESS_TABLE_OFFSET = 0xFFFFFFFF;

/// Constraint record: start index, end index, direction.
inline constexpr std::size_t CONSTRAINT_SIZE = 12;

/// The largest flavours that a record can have; the loader ignores larger ones.
/// @{
inline constexpr int LAST_FLOAT_KIND = 3;
inline constexpr int LAST_EVENT_KIND = 1;
/// @}

} // namespace TypeFileFormat

} // namespace RTTI
