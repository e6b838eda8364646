#pragma once

#include "Inspect/declarations/TypeNeed.h"
#include "Inspect/model/TypeTable.h"

namespace Inspect {

/// Whether a SystemVerilog type is a fixed, dynamic or associative array or a queue.
bool isSystemVerilogArray(const RTTI::RTBaseType& type);

/// Whether its dimensions stand before a name.
bool isPackedArray(const RTTI::RTBaseType& type);

/// Whether a declaration that names the type writes it out instead: an array without a name. One
/// that is nested deeper than `INLINE_LIMIT` in such arrays is called by its name all the same.
bool isSpelledOut(const RTTI::RTBaseType& type);

/// The same for the index of an associative array, where only packed dimensions have a place.
bool isSpelledOutAsIndex(const RTTI::RTBaseType& type);

/// Arrays of arrays without names are written out up to this depth.
inline constexpr int INLINE_LIMIT = 8;

/// Replaces `needs` by those of a type, in the order of the declaration. A type with a keyword
/// needs nothing.
void findSystemVerilogNeeds(const TypeTable& types, unsigned int id, TypeNeeds& needs);

} // namespace Inspect
