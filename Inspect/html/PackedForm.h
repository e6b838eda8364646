#pragma once

#include "Inspect/json/JsonText.h"
#include "Inspect/model/TypeTable.h"

namespace Inspect {

/// Whether a ValueDecoder takes values of the type.
bool hasPackedForm(const TypeTable& types, const RTTI::RTBaseType& type);

/// Writes what a page has to know of such a type to take its values apart, beside the type's
/// record, as an object.
/// - Of a typedef, and of an array of packed structs, unions or enumerations, `of` is the id of
/// what
///   it consists of, and `ranges` has pairs of bounds, outermost first.
/// - Of every other type, `width` is that of its values in bits.
/// - Of a struct or union, `offsets` has one for each member, null for a member without a value.
/// - Of an enumeration, `values` has those of its literals as texts that `bitsOf` reads; it is null
///   if each one is the literal's position.
void writePackedForm(JsonText& text, const TypeTable& types, unsigned int id,
                     const RTTI::RTBaseType& type);

} // namespace Inspect
