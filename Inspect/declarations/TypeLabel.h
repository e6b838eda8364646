#pragma once

#include "Inspect/model/TypeTable.h"
#include "Inspect/words/Text.h"
#include "Inspect/words/TextStyle.h"

#include <string>

namespace Inspect {

// How the printers name types. All bytes of names are escaped. `type` is the type of the id, or
// null; `types` gives those that it refers to.

/// What a type without a name is, as its language spells it out: `logic [7:0]`. A line of at most
/// 80 characters; the kind in words where the language has no way to spell it out.
std::string shapeOf(const TypeTable& types, unsigned int id, const RTTI::RTBaseType& type);

/// The shape of a type without a name as it stands behind its kind, whose words it does not repeat:
/// `{ logic a; }` for what is labelled `packed struct { logic a; }`. Empty where nothing is left,
/// for a type with a name, and where there is no type.
std::string shapeBehindKind(const TypeTable& types, unsigned int id, const RTTI::RTBaseType* type);

/// The name, quoted, or else the shape.
/// @{
std::string nameOrShape(const TypeTable& types, unsigned int id, const RTTI::RTBaseType& type);
void writeNameOrShape(Text& out, const TypeTable& types, unsigned int id,
                      const RTTI::RTBaseType& type);
/// @}

/// Kind and name, `packed struct "pkt_t"`, or kind and shape, `packed array logic [7:0]`. A name
/// that nobody gave, such as "<anonymous>", stands before the shape.
/// @{
std::string describedType(const TypeTable& types, unsigned int id, const RTTI::RTBaseType& type,
                          const TextStyle& style);
void writeDescription(Text& out, const TypeTable& types, unsigned int id,
                      const RTTI::RTBaseType& type, const TextStyle& style);
/// @}

/// The same behind the id: `12 packed struct "pkt_t"`; "12 (no type)" where there is none.
std::string labelOf(const TypeTable& types, unsigned int id, const RTTI::RTBaseType* type,
                    const TextStyle& style);

} // namespace Inspect
