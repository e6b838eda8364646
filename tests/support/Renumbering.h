#pragma once

#include "RTTI/RTType.h"

#include <functional>

namespace RTTITest {

/// Replaces each id that a type's fields hold, "no type" as well, by what `newId` gives for it.
/// Links are left as they are.
void mapReferences(RTTI::RTBaseType& type, const std::function<unsigned int(unsigned int)>& newId);

} // namespace RTTITest
