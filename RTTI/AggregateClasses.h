#pragma once

#include "RTTI/TypeFileFormat.h"

namespace RTTI {

/// Whether types of a class have members: records, structs, unions and classes.
constexpr bool isAggregate(unsigned int classId) {
    return classId == ClassId::RECORD || classId == ClassId::CLASS;
}

} // namespace RTTI
