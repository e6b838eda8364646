#pragma once

#include "RTTI/RTType.h"

#include <string_view>
#include <vector>

namespace TypeFile {

/// @name Filling in types
///
/// For compilers: these functions copy names and list items into arrays that the type owns and
/// releases. Each throws WriteError for anything that no type file can hold, and then leaves the
/// type as it was. Apart from the copying they take constant time.
/// @{

/// Replaces the type's name.
void setName(RTTI::RTBaseType& type, std::string_view name);

/// Appends a literal, whose value is its position.
void addLiteral(RTTI::RTSeqEnumType& type, std::string_view name);

/// Appends a literal and the bytes of its value, in the order that the file has them. The values of
/// all literals of a type have the same size, which the first one determines.
void addLiteral(RTTI::RTDiscreteEnumType& type, std::string_view name, std::string_view value);

/// Appends a unit; `value` is in primary units.
void addUnit(RTTI::RTPhysicalType& type, std::string_view name, long long value);

/// Appends a member to a record, struct or union. The result belongs to the type.
RTTI::RTAggregateType::t_Member& addMember(RTTI::RTRecordType& type, std::string_view name,
                                           unsigned int typeId,
                                           std::vector<RTTI::FullConstraints> constraints = {});

/// Appends a member to a class. The result belongs to the type.
RTTI::RTClassType::t_ClassMember& addMember(RTTI::RTClassType& type, std::string_view name,
                                            unsigned int typeId,
                                            std::vector<RTTI::FullConstraints> constraints = {},
                                            bool flag = false);

/// @}

} // namespace TypeFile
