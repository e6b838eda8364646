#pragma once

#include "Inspect/json/JsonValues.h"
#include "Inspect/model/TypeReferences.h"
#include "RTTI/RTType.h"

namespace Inspect {

// Words and objects that the JSON of several printers shares.

/// The word for a role, such as "indexType".
const char* jsonRoleOf(LinkRole role);

/// An object with the keys "id", "kind" and "name"; kind and name are null where there is no type.
Json typeToJson(unsigned int id, const RTTI::RTBaseType* type);

} // namespace Inspect
