#pragma once

#include "Inspect/declarations/DeclaredTypes.h"
#include "Inspect/declarations/TypeNeed.h"
#include "Inspect/model/TypeTable.h"

namespace Inspect {

/// Whether the SystemVerilog types of a class are fixed, dynamic or associative arrays or queues.
bool isSystemVerilogArray(unsigned int classId);

/// Whether its dimensions stand before a name.
bool isPackedArray(const RTTI::RTBaseType& type);

/// Whether a declaration that names the type writes it out instead: an array without a name. One
/// that is nested deeper than `INLINE_LIMIT` in such arrays is called by its name all the same.
bool isSpelledOut(const DeclaredTypes& declared, unsigned int id);

/// The same for the index of an associative array, where only packed dimensions have a place.
bool isSpelledOutAsIndex(const TypeTable& types, const DeclaredTypes& declared, unsigned int id);

/// Arrays of arrays without names are written out up to this depth.
inline constexpr int INLINE_LIMIT = 8;

/// Replaces `needs` by those of a type, in the order of the declaration. A type with a keyword
/// needs nothing.
void findSystemVerilogNeeds(const TypeTable& types, const DeclaredTypes& declared, unsigned int id,
                            TypeNeeds& needs);

} // namespace Inspect
