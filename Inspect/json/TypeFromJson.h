#pragma once

#include "Inspect/json/JsonError.h"
#include "Inspect/json/JsonValues.h"
#include "RTTI/RTType.h"

#include <memory>

namespace Inspect {

/// A type as its JSON object describes it, and its id.
struct DescribedType {
    unsigned int id = 0;
    std::unique_ptr<RTTI::RTBaseType> type;
};

/// Makes the type that an object of the JSON form describes. Every key has to be one that the kind
/// has; "flags", "constraints", "svTypeId" and "flag" may be left out. Throws JsonError.
DescribedType typeFromJson(const JsonValue& json, const JsonPlace& place);

} // namespace Inspect
