#pragma once

#include "Inspect/json/JsonText.h"
#include "RTTI/RTType.h"

#include <optional>

namespace Inspect {

// What the JSON of several printers shares.

/// Opens the object that a document is, with what it says of itself before all else: its format,
/// which is a few words, and that format's version.
void openDocument(JsonText& text, std::string_view format);

/// The array kind of a fixed array, the record kind of a record, 0 for other types.
unsigned int kindDetailOf(const RTTI::RTBaseType& type);

// Members of an object that is open, with the values of the JSON form of types.

/// "kind", and "arrayKind" or "recordKind" where the kind has one and `detail` says which. The kind
/// is "none" where `kindCode` builds no type.
void kindMembers(JsonText& text, unsigned int kindCode, std::optional<unsigned int> detail);

/// Those of its kind, and "name". Where there is no type the kind is "none" and the name null.
void kindAndName(JsonText& text, const RTTI::RTBaseType* type);

/// The same behind "id".
void typeMembers(JsonText& text, unsigned int id, const RTTI::RTBaseType* type);

} // namespace Inspect
