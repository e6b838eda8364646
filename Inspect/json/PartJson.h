#pragma once

#include "Inspect/json/JsonValues.h"
#include "RTTI/RTType.h"

#include <optional>

namespace Inspect {

// Words and objects that the JSON of several printers shares.

/// What a document says of itself before all else: its format, which is a few words, and that
/// format's version; then the members of `rest`.
Json jsonHead(const char* format, const Json& rest = Json::object());

/// The array kind of a fixed array, the record kind of a record, 0 for other types.
unsigned int kindDetailOf(const RTTI::RTBaseType& type);

/// An object with "kind", and "arrayKind" or "recordKind" where the kind has one and `detail` says
/// which. The kind is "none" where `kindCode` builds no type.
Json kindToJson(unsigned int kindCode, std::optional<unsigned int> detail);

/// An object with the keys "id", "kind", "arrayKind" or "recordKind" where the kind has one, and
/// "name", with the values of the JSON form of types. Where there is no type the kind is "none" and
/// the name null.
Json typeToJson(unsigned int id, const RTTI::RTBaseType* type);

} // namespace Inspect
