#pragma once

// All run-time type classes. RTBaseType describes what they share: ownership, links, fields.

#include "RTTI/RTAggregateTypes.h"
#include "RTTI/RTArrayTypes.h"
#include "RTTI/RTBaseType.h"
#include "RTTI/RTEnumTypes.h"
#include "RTTI/RTReferenceTypes.h"
#include "RTTI/RTScalarTypes.h"
