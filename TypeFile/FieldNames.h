#pragma once

#include <string>
#include <string_view>

namespace TypeFile {

/// The names of fields, the same everywhere: in the layout of records, in findings and errors, and
/// as keys of the JSON form. Text for people has them in words; see `fieldWords`.
namespace Field {

/// A field of a type, or of an entry of one of its lists.
/// @{
inline constexpr char ID[] = "id";
inline constexpr char KIND[] = "kind";
inline constexpr char NAME[] = "name";
inline constexpr char FLAGS[] = "flags";
inline constexpr char SV_TYPE_ID[] = "svTypeId";
inline constexpr char VALUE_SIZE[] = "valueSize";
inline constexpr char ALIGNMENT[] = "alignment";
inline constexpr char FLAVOUR[] = "flavour";
inline constexpr char CONSTRAINTS[] = "constraints";

inline constexpr char ENCODING[] = "encoding";
inline constexpr char ENUM_KIND[] = "enumKind";
inline constexpr char LITERALS[] = "literals";
inline constexpr char BASE_TYPE[] = "baseType";
inline constexpr char VALUE[] = "value";
inline constexpr char RANGE[] = "range";
inline constexpr char SI[] = "si";
inline constexpr char EI[] = "ei";
inline constexpr char DIR[] = "dir";
inline constexpr char LEFT[] = "left";
inline constexpr char RIGHT[] = "right";
inline constexpr char DIRECTION[] = "direction";
inline constexpr char DATA_TYPE[] = "dataType";
inline constexpr char REF_TYPE[] = "refType";
inline constexpr char UNITS[] = "units";
inline constexpr char ARRAY_KIND[] = "arrayKind";
inline constexpr char ELEMENT_TYPE[] = "elementType";
inline constexpr char INDEX_TYPES[] = "indexTypes";
inline constexpr char INDEX_TYPE[] = "indexType";
inline constexpr char RECORD_KIND[] = "recordKind";
inline constexpr char BASE_CLASS[] = "baseClass";
inline constexpr char MEMBERS[] = "members";
inline constexpr char TYPE[] = "type";
inline constexpr char FLAG[] = "flag";
/// @}

/// A field of a record that is derived from others. Types have no such field.
/// @{
inline constexpr char RECORD_SIZE[] = "recordSize";
inline constexpr char LITERAL_COUNT[] = "literalCount";
inline constexpr char UNIT_COUNT[] = "unitCount";
inline constexpr char INDEX_TYPE_COUNT[] = "indexTypeCount";
inline constexpr char MEMBER_COUNT[] = "memberCount";
inline constexpr char CONSTRAINT_COUNT[] = "constraintCount";
/// @}

/// The header and its fields, the address table and an entry of it.
/// @{
inline constexpr char HEADER[] = "header";
inline constexpr char VERSION[] = "version";
inline constexpr char TYPE_COUNT[] = "typeCount";
inline constexpr char ADDRESS_TABLE_OFFSET[] = "addressTableOffset";
inline constexpr char ADDRESS_TABLE[] = "addressTable";
inline constexpr char ADDRESS[] = "address";
/// @}

/// What the classes keep in reserve; no record holds it.
inline constexpr char RESERVED[] = "reserved";

} // namespace Field

/// The words for a field name, or for a path to a field, in text for people: "element type" for
/// "elementType"; "members[2].type" stays as it is. Abbreviations are written out: "svTypeId" is
/// "SV type id", "refType" is "referenced type" and "si" is "start index".
std::string fieldWords(std::string_view field);

} // namespace TypeFile
