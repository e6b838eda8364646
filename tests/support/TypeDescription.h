#pragma once

#include "RTTI/RTType.h"
#include "tests/support/ReferenceLoader.h"

#include <cstdint>
#include <map>

namespace RTTITest {

/// The ids of the types of a manager.
using SlotOf = std::map<const RTTI::RTBaseType*, std::uint32_t>;

/// Puts the fields of a type into the words that the reference loader uses.
Description describe(const RTTI::RTBaseType& type, const SlotOf& slots);

/// The same without the links.
Description describeFields(const RTTI::RTBaseType& type);

} // namespace RTTITest
