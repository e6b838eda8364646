#pragma once

#include "RTTI/RTType.h"

#include <string_view>
#include <vector>

namespace TypeFile {

/// @name What a compiler fills in
///
/// Names and lists, copied into arrays that the type owns and releases. Each function throws
/// WriteError, and leaves the type as it was, for what no type file can hold; it takes constant
/// time besides the copies.
/// @{

/// Replaces the type's name.
void setName(RTTI::RTBaseType& type, std::string_view name);

/// Appends a literal. Its value is its position.
void addLiteral(RTTI::RTSeqEnumType& type, std::string_view name);

/// Appends a literal with its value's bytes, in the order in which the file has them. All literals
/// of a type have values of one size: the first one settles it.
void addLiteral(RTTI::RTDiscreteEnumType& type, std::string_view name, std::string_view value);

/// Appends a unit; `value` counts primary units.
void addUnit(RTTI::RTPhysicalType& type, std::string_view name, long long value);

/// Appends a member of a record, struct or union. The answer belongs to the type.
RTTI::RTAggregateType::t_Member& addMember(RTTI::RTRecordType& type, std::string_view name,
                                           unsigned int typeId,
                                           std::vector<RTTI::FullConstraints> constraints = {});

/// Appends a member of a class. The answer belongs to the type.
RTTI::RTClassType::t_ClassMember& addMember(RTTI::RTClassType& type, std::string_view name,
                                            unsigned int typeId,
                                            std::vector<RTTI::FullConstraints> constraints = {},
                                            bool flag = false);

/// @}

} // namespace TypeFile
